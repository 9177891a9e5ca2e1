// SPDX-License-Identifier: MIT
#include "host/history_window.hpp"

#include "company/exact_text.hpp"
#include "desktop/still_list.hpp"
#include "host/history_items.hpp"
#include "host/messages.hpp"
#include "host/texts.hpp"
#include "host/wide_margins.hpp"
#include "host/window_memory.hpp"
#include "store/history_periods.hpp"

#include <QComboBox>
#include <QDateTime>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QMap>
#include <QPointer>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <cassert>
#include <functional>
#include <map>
#include <set>

namespace vkr {

using namespace history;

namespace {

struct Span {
    const char* text;
    int days; // 0: ever
};
constexpr Span spans[] = {
    {QT_TRANSLATE_NOOP("history", "Any time"), 0},
    {QT_TRANSLATE_NOOP("history", "Last 24 hours"), 1},
    {QT_TRANSLATE_NOOP("history", "Last 7 days"), 7},
    {QT_TRANSLATE_NOOP("history", "Last 30 days"), 30},
    {QT_TRANSLATE_NOOP("history", "Last 12 months"), 365},
};

constexpr int limits[] = {0, 1000, 100, 20};

// Years and quarters, the newest first. A quarter that ended on another day once is the same one.
class Periods {
  public:
    void add(const QString& period) {
        if (const auto number = periodNumber(period.toStdString()))
            (dateFromIso(period.toStdString()) ? quarters_ : years_).try_emplace(*number, period);
    }
    void offerIn(QComboBox& list) const {
        for (const Found* found : {&years_, &quarters_}) {
            if (!found->empty())
                list.insertSeparator(list.count());
            for (const auto& [number, period] : *found)
                list.addItem(period, period);
        }
    }

  private:
    using Found = std::map<int, QString, std::greater<>>;
    Found years_;
    Found quarters_;
};

// A list of choices with the one that was chosen before still chosen, where it is there.
void choose(QComboBox& list, const QVariant& chosen) {
    list.setCurrentIndex(std::max(0, list.findData(chosen)));
}

} // namespace

HistoryWindow::HistoryWindow(CompanyStore& store, std::int64_t company, const QString& title,
                             QWidget* parent)
    : QDialog(parent), store_(store), company_(company), person_(new QComboBox(this)),
      time_(new QComboBox(this)), origin_(new QComboBox(this)), figure_(new QComboBox(this)),
      period_(new QComboBox(this)), damage_(new QLabel(this)), tree_(new QTreeWidget(this)),
      extent_(new QLabel(this)), limit_(new StillList(this)) {
    setObjectName(QStringLiteral("history"));
    setWindowTitle(tr("History of %1").arg(title));
    for (const Span& span : spans)
        time_->addItem(told(span.text), span.days);
    origin_->addItem(tr("Any origin"), -1);
    for (const OriginRow& row : originRows()) {
        QString text = told(row.text);
        text[0] = text[0].toUpper();
        origin_->addItem(text, static_cast<int>(row.origin));
    }
    for (const int limit : limits)
        limit_->addItem(limit == 0 ? tr("all saves") : tr("%1 saves").arg(limit), limit);
    layOut();
    for (QComboBox* filter : {figure_, period_, person_, time_, origin_})
        connect(filter, &QComboBox::activated, this, &HistoryWindow::fillTree);
    connect(limit_, &QComboBox::activated, this, &HistoryWindow::setLimit);
    connect(tree_, &QTreeWidget::currentItemChanged, this,
            [this] { restore_->setEnabled(chosen() != nullptr); });
    rememberedSize(*this, "history", {920, 560});
    connect(this, &QDialog::finished, this, [this] { rememberSize(*this, "history"); });
}

QLayout* HistoryWindow::filterRow() {
    struct Filter {
        QComboBox* list;
        const char* name;
        QString label;
    };
    auto* row = new QHBoxLayout;
    for (const Filter& filter :
         {Filter{figure_, "figure", tr("&Figure:")}, Filter{period_, "period", tr("Per&iod:")},
          Filter{person_, "person", tr("&Person:")}, Filter{time_, "time", tr("&Time:")},
          Filter{origin_, "origin", tr("&Origin:")}}) {
        auto* label = new QLabel(filter.label, this);
        label->setBuddy(filter.list);
        filter.list->setObjectName(QLatin1String(filter.name));
        filter.list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        row->addWidget(label);
        row->addWidget(filter.list);
    }
    row->addStretch();
    return row;
}

void HistoryWindow::setUpTree() {
    tree_->setObjectName(QStringLiteral("changes"));
    tree_->setAccessibleName(tr("Changes"));
    tree_->setHeaderLabels(
        {tr("When"), tr("Who"), tr("What"), tr("Before"), tr("After"), tr("Where from")});
    for (const int column : {before, after})
        tree_->headerItem()->setTextAlignment(column, numbers);
    tree_->setAlternatingRowColors(true);
    tree_->setUniformRowHeights(true);
    tree_->header()->setStretchLastSection(true);
    WideMargins::giveTo(*tree_);
}

QLayout* HistoryWindow::limitRow() {
    auto* kept = new QHBoxLayout;
    extent_->setObjectName(QStringLiteral("extent"));
    kept->addWidget(extent_, 1);
    auto* keep = new QLabel(tr("&Keep of each company:"), this);
    keep->setBuddy(limit_);
    limit_->setObjectName(QStringLiteral("limit"));
    limit_->setToolTip(tr("For everybody who uses this database. What is older becomes one "
                          "entry when a company is saved."));
    kept->addWidget(keep);
    kept->addWidget(limit_);
    return kept;
}

void HistoryWindow::layOut() {
    setUpTree();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    restore_ = buttons->addButton(tr("&Restore This State..."), QDialogButtonBox::ActionRole);
    restore_->setObjectName(QStringLiteral("restore"));
    restore_->setEnabled(false);
    restore_->setAutoDefault(false);
    connect(restore_, &QPushButton::clicked, this, [this] {
        if (const HistoryGroup* group = chosen())
            emit restoreAsked(*group);
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(filterRow());
    damage_->setObjectName(QStringLiteral("damage"));
    damage_->setTextFormat(Qt::PlainText);
    damage_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    damage_->setWordWrap(true);
    damage_->hide();
    layout->addWidget(damage_);
    layout->addWidget(tree_, 1);
    layout->addLayout(limitRow());
    layout->addWidget(buttons);
    QWidget* before = figure_;
    for (QWidget* next :
         std::initializer_list<QWidget*>{period_, person_, time_, origin_, tree_, limit_}) {
        setTabOrder(before, next);
        before = next;
    }
}

void HistoryWindow::showAll() {
    asked_.reset();
    const QPointer<HistoryWindow> stays(this);
    readChoices();
    if (!stays)
        return;
    choose(*figure_, QVariant());
    choose(*period_, QVariant());
    fillTree();
    comeToFront();
}

void HistoryWindow::showFigure(Datum datum, const QString& period) {
    asked_ = {fromUtf8(rowOf(datum).name), period};
    const QPointer<HistoryWindow> stays(this);
    readChoices();
    if (!stays)
        return;
    choose(*figure_, asked_->datum);
    choose(*period_, period);
    fillTree();
    comeToFront();
}

void HistoryWindow::comeToFront() {
    tree_->setFocus();
    show();
    raise();
    activateWindow();
}

void HistoryWindow::refresh() {
    if (readChoices())
        fillTree();
}

bool HistoryWindow::readChoices() {
    const auto all = store_.history(company_);
    if (!all) {
        tellFault(parentWidget(), tr("The history can't be read."), fromUtf8(all.error().message));
        return false;
    }
    fillChoices(all.value());
    showDamage();
    showExtent();
    return true;
}

void HistoryWindow::fillChoices(const std::vector<HistoryGroup>& all) {
    std::set<QString> people;
    QMap<QString, QString> figures; // by what they are called
    Periods periods;
    const auto add = [&](const QString& datum, const QString& period) {
        figures.insert(datumTitle(datum.toStdString()), datum);
        periods.add(period);
    };
    periods.add(period_->currentData().toString());
    if (asked_)
        add(asked_->datum, asked_->period);
    for (const HistoryGroup& group : all) {
        people.insert(fromUtf8(group.user));
        if (group.verdict)
            add(fromUtf8(group.verdict->datum), fromUtf8(group.verdict->period));
        for (const HistoryChange& change : group.changes)
            add(fromUtf8(change.datum), fromUtf8(change.period));
    }
    const QVariant person = person_->currentData();
    const QVariant figure = figure_->currentData();
    const QVariant period = period_->currentData();
    person_->clear();
    person_->addItem(tr("Everybody"));
    for (const QString& name : people)
        person_->addItem(name, name);
    choose(*person_, person);
    figure_->clear();
    figure_->addItem(tr("All figures"));
    for (auto one = figures.cbegin(); one != figures.cend(); ++one)
        figure_->addItem(one.key(), one.value());
    choose(*figure_, figure);
    period_->clear();
    period_->addItem(tr("Any period"));
    periods.offerIn(*period_);
    choose(*period_, period);
}

HistoryQuery HistoryWindow::query() const {
    HistoryQuery query;
    query.user = person_->currentData().toString().toStdString();
    if (const int days = time_->currentData().toInt(); days > 0)
        query.from =
            QDateTime::currentDateTimeUtc().addDays(-days).toString(Qt::ISODate).toStdString();
    if (const int origin = origin_->currentData().toInt(); origin >= 0)
        query.origin = static_cast<Origin>(origin);
    query.datum = figure_->currentData().toString().toStdString();
    query.period = period_->currentData().toString().toStdString();
    return query;
}

void HistoryWindow::fillTree() {
    const auto found = store_.history(company_, query());
    groups_ = found ? found.value() : std::vector<HistoryGroup>();
    tree_->clear();
    QList<QTreeWidgetItem*> items;
    for (const HistoryGroup& group : groups_)
        items.append(groupItem(group));
    tree_->addTopLevelItems(items);
    for (qsizetype row = 0; row < items.size(); ++row)
        if (groups_[static_cast<std::size_t>(row)].verdict)
            items[row]->child(0)->setFirstColumnSpanned(true);
    if (items.size() == 1)
        items.front()->setExpanded(true);
    for (int column = 0; column < columnCount; ++column) {
        tree_->resizeColumnToContents(column);
        const int most = fontMetrics().averageCharWidth() * (column == what ? 64 : 34);
        tree_->setColumnWidth(column, std::min(tree_->columnWidth(column) + 12, most));
    }
    if (!items.isEmpty())
        tree_->setCurrentItem(items.front());
    restore_->setEnabled(chosen() != nullptr);
}

void HistoryWindow::showDamage() {
    const auto checked = store_.check(company_);
    const bool isDamaged = checked && checked.value();
    damage_->setText(isDamaged ? fromUtf8(checked.value()->message) : QString());
    damage_->setVisible(isDamaged);
}

void HistoryWindow::showExtent() {
    if (const auto extent = store_.historyExtent(company_))
        extent_->setText(tr("%1 entries since %2, about %3.")
                             .arg(QLocale().toString(qlonglong(extent.value().groups)),
                                  localTime(extent.value().since),
                                  QLocale().formattedDataSize(extent.value().bytes)));
    if (const auto limit = store_.historyLimit()) {
        const int row = limit_->findData(qlonglong(limit.value()));
        if (row < 0)
            limit_->addItem(tr("%1 saves").arg(limit.value()), qlonglong(limit.value()));
        limit_->setCurrentIndex(row < 0 ? limit_->count() - 1 : row);
    }
}

const HistoryGroup* HistoryWindow::chosen() const {
    QTreeWidgetItem* item = tree_->currentItem();
    if (item == nullptr)
        return nullptr;
    const int row = tree_->indexOfTopLevelItem(item->parent() != nullptr ? item->parent() : item);
    assert(tree_->topLevelItemCount() == std::ssize(groups_));
    if (row < 0 || groups_[static_cast<std::size_t>(row)].verdict)
        return nullptr; // no state to come back to
    return &groups_[static_cast<std::size_t>(row)];
}

void HistoryWindow::setLimit(int row) {
    const std::int64_t saves = limit_->itemData(row).toLongLong();
    const auto before = store_.historyLimit();
    const bool isFewer = before && saves > 0 && (before.value() == 0 || saves < before.value());
    const QPointer<HistoryWindow> stays(this); // its company may be deleted under a question
    const bool isAgreed =
        !isFewer || askFirst(this, tr("Keep %1 saves of each company?").arg(saves),
                             tr("What is older becomes one entry when a company is saved, for "
                                "everybody who uses this database. That can't be undone."),
                             tr("&Keep %1").arg(saves));
    if (isAgreed)
        if (const auto done = store_.setHistoryLimit(saves); !done)
            tellFault(this, tr("The setting was not saved."), fromUtf8(done.error().message));
    if (stays)
        showExtent();
}

} // namespace vkr
