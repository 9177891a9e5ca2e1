// SPDX-License-Identifier: MIT
#include "host/findings_panel.hpp"

#include "desktop/framed_marks.hpp"
#include "host/assistant_facts.hpp"
#include "host/texts.hpp"
#include "plausibility/plausibility_rules.hpp"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cassert>
#include <utility>

namespace vkr {

namespace {

constexpr int indexRole = Qt::UserRole; // in the findings
constexpr int leastWidth = 44;          // characters
constexpr int chartLines = 8;

QString surenessText(Sureness sureness) {
    switch (sureness) {
    case Sureness::hint:
        return FindingsPanel::tr("a hint");
    case Sureness::likely:
        return FindingsPanel::tr("likely wrong");
    case Sureness::sure:
        return FindingsPanel::tr("surely wrong");
    }
    return {};
}

QString itemText(const ShownFinding& shown) {
    const auto* rule = findPlausibilityRule(shown.finding.rule);
    const QString title = rule == nullptr ? QString() : fromUtf8(rule->title);
    return QStringLiteral("%1 \u2013 %2\n%3")
        .arg(title,
             shown.isSilenced ? FindingsPanel::tr("called right")
                              : surenessText(shown.finding.sureness),
             fromUtf8(shown.finding.text));
}

} // namespace

FindingsPanel::FindingsPanel(QWidget* parent)
    : QDockWidget(parent), list_(new QListWidget), nothing_(new QLabel), chartTitle_(new QLabel),
      chart_(new HistoryChart), go_(new QPushButton(tr("Show"))),
      right_(new QPushButton(tr("It Is Right"))),
      silenced_(new FramedCheckBox(tr("Those called right"))) {
    setObjectName(QStringLiteral("findings"));
    setFeatures(QDockWidget::DockWidgetClosable);
    setAllowedAreas(Qt::RightDockWidgetArea);
    layOut();

    connect(list_, &QListWidget::currentRowChanged, this, &FindingsPanel::showChosen);
    connect(list_, &QListWidget::itemDoubleClicked, this, &FindingsPanel::goToChosen);
    connect(go_, &QPushButton::clicked, this, &FindingsPanel::goToChosen);
    connect(right_, &QPushButton::clicked, this, [this] {
        if (const ShownFinding* one = chosen())
            emit silenceAsked(Finding(one->finding), !one->isSilenced);
    });
    connect(silenced_, &QCheckBox::toggled, this, &FindingsPanel::fill);
}

void FindingsPanel::layOut() {
    list_->setObjectName(QStringLiteral("findingsList"));
    list_->setAccessibleName(tr("To look at"));
    list_->setWordWrap(true);
    list_->setAlternatingRowColors(true);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list_->setResizeMode(QListView::Adjust);
    list_->setMinimumWidth(fontMetrics().averageCharWidth() * leastWidth);
    nothing_->setText(tr("No figure stands out."));
    nothing_->setAlignment(Qt::AlignCenter);
    chartTitle_->setWordWrap(true);
    QFont bold = chartTitle_->font();
    bold.setBold(true);
    chartTitle_->setFont(bold);
    chart_->setFixedHeight(fontMetrics().lineSpacing() * chartLines);
    go_->setObjectName(QStringLiteral("showFigure"));
    right_->setObjectName(QStringLiteral("itIsRight"));
    silenced_->setObjectName(QStringLiteral("showSilenced"));

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(go_);
    buttons->addWidget(right_);
    buttons->addStretch();
    auto* body = new QWidget(this);
    auto* layout = new QVBoxLayout(body);
    layout->addWidget(list_, 1);
    layout->addWidget(nothing_, 1);
    layout->addLayout(buttons);
    layout->addWidget(silenced_);
    layout->addWidget(chartTitle_);
    layout->addWidget(chart_);
    setWidget(body);
    body->installEventFilter(this); // it has the keys where nothing stands out
    for (QWidget* part : body->findChildren<QWidget*>())
        part->installEventFilter(this);
}

bool FindingsPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape) {
            emit left();
            return true;
        }
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && watched == list_) {
            goToChosen();
            return true;
        }
    }
    return QDockWidget::eventFilter(watched, event);
}

void FindingsPanel::changeEvent(QEvent* event) {
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        fill(); // what was called right is in the pale colour of the desktop
}

void FindingsPanel::setFindings(std::vector<ShownFinding> findings,
                                std::shared_ptr<const CompanyRecord> record) {
    assert(record != nullptr);
    findings_ = std::move(findings);
    record_ = std::move(record);
    fill();
}

void FindingsPanel::fill() {
    const auto* before = list_->currentItem();
    const QString text = before == nullptr ? QString() : before->text();
    const int row = std::max(0, list_->currentRow());
    {
        const QSignalBlocker quietly(list_);
        list_->clear();
        for (std::size_t index = 0; index < findings_.size(); ++index) {
            if (findings_[index].isSilenced && !silenced_->isChecked())
                continue;
            auto* item = new QListWidgetItem(itemText(findings_[index]), list_);
            item->setData(indexRole, static_cast<int>(index));
            if (findings_[index].isSilenced)
                item->setForeground(palette().brush(QPalette::Disabled, QPalette::Text));
        }
        const auto same = list_->findItems(text, Qt::MatchExactly);
        if (!text.isEmpty() && !same.isEmpty())
            list_->setCurrentItem(same.front());
        else if (list_->count() > 0)
            list_->setCurrentRow(std::min(row, list_->count() - 1));
    }
    const auto open = std::ranges::count(findings_, false, &ShownFinding::isSilenced);
    setWindowTitle(open == 0 ? tr("Nothing to Look At") : tr("%1 to Look At").arg(open));
    silenced_->setVisible(open != std::ssize(findings_));
    list_->setVisible(list_->count() > 0);
    nothing_->setVisible(list_->count() == 0);
    showChosen();
}

const ShownFinding* FindingsPanel::chosen() const {
    const auto* item = list_->currentItem();
    return item == nullptr ? nullptr
                           : &findings_.at(static_cast<std::size_t>(item->data(indexRole).toInt()));
}

void FindingsPanel::showChosen() {
    const ShownFinding* one = chosen();
    go_->setEnabled(one != nullptr);
    right_->setEnabled(one != nullptr);
    right_->setText(one != nullptr && one->isSilenced ? tr("Look Again") : tr("It Is Right"));
    History history;
    if (one != nullptr && record_ != nullptr) {
        const FigurePlace& place = one->finding.places.front();
        if (unitOf(place.datum) != DatumUnit::none)
            history = assistantFacts(topicOf(place.datum), *record_, place.element).history;
        if (!place.element)
            history.marked = -1; // of the company as a whole
    }
    chartTitle_->setText(history.title);
    chart_->setHistory(history);
    chartTitle_->setVisible(!history.periods.isEmpty());
    chart_->setVisible(!history.periods.isEmpty());
}

void FindingsPanel::goToChosen() {
    if (const ShownFinding* one = chosen())
        emit placeAsked(FigurePlace(one->finding.places.front()));
}

void FindingsPanel::enter() {
    if (!isVisible())
        list_->setCurrentRow(0);
    show();
    raise();
    (list_->count() > 0 ? static_cast<QWidget*>(list_) : widget())
        ->setFocus(Qt::ShortcutFocusReason);
}

void FindingsPanel::goToNext() {
    if (list_->count() == 0)
        return;
    const bool wasSeen = isVisible();
    show();
    list_->setCurrentRow(wasSeen ? (list_->currentRow() + 1) % list_->count() : 0);
    goToChosen();
}

} // namespace vkr
