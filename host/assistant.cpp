// SPDX-License-Identifier: MIT
#include "host/assistant.hpp"

#include "host/history_items.hpp"
#include "host/texts.hpp"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <cassert>

namespace vkr {

namespace {

constexpr double titleSize = 1.3; // of the window's font
constexpr double figureSize = 1.6;
constexpr int leastWidth = 52; // characters
constexpr qsizetype longestHeadline = 60;

QLabel* label(QWidget* parent, const char* name) {
    auto* made = new QLabel(parent);
    made->setObjectName(QLatin1String(name));
    made->setTextFormat(Qt::PlainText);
    made->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return made;
}

void setScale(QLabel& text, double scale, QFont::Weight weight) {
    QFont font = QApplication::font();
    if (font.pointSizeF() > 0) // else it is given in pixels
        font.setPointSizeF(font.pointSizeF() * scale);
    font.setWeight(weight);
    text.setFont(font);
}

// A text that is being typed may be a whole page.
QString elided(const QString& text) {
    constexpr qsizetype most = 200;
    return text.size() <= most ? text : text.left(most) + QChar(0x2026);
}

// Rows of two cells below their headings, the figures right-aligned.
QString tableText(const QString& left, const QString& right,
                  const QList<std::pair<QString, QString>>& rows) {
    const auto row = [](const QString& name, const QString& value) {
        return QStringLiteral("<tr><td style=\"padding: 2px 18px 2px 0\">%1</td>"
                              "<td align=\"right\" style=\"padding: 2px 0\">%2</td></tr>")
            .arg(name.toHtmlEscaped(), value.toHtmlEscaped());
    };
    QString html = row(left, right);
    for (const auto& [name, value] : rows)
        html += row(name, value);
    return QStringLiteral("<table cellspacing=\"0\">%1</table>").arg(html);
}

} // namespace

Assistant::Assistant(const ShownCompany& company, QWidget* parent)
    : QDialog(parent), shownCompany_(company), title_(label(this, "title")),
      company_(label(this, "company")), damage_(label(this, "damage")),
      stored_(label(this, "stored")), longText_(new QPlainTextEdit(this)),
      unit_(label(this, "unit")), origin_(label(this, "origin")),
      onScreen_(label(this, "onScreen")), body_(new QWidget(this)),
      chartTitle_(label(body_, "chartTitle")), chart_(new HistoryChart(body_)),
      quartersBox_(new QWidget(body_)), quartersTitle_(label(quartersBox_, "quartersTitle")),
      quarters_(label(quartersBox_, "quarters")) {
    setObjectName(QStringLiteral("assistant"));
    setScale(*title_, titleSize, QFont::Bold);
    setScale(*chartTitle_, 1, QFont::Bold);
    setScale(*quartersTitle_, 1, QFont::Bold);
    longText_->setObjectName(QStringLiteral("longText"));
    longText_->setAccessibleName(tr("Stored text"));
    longText_->setReadOnly(true);
    longText_->setTabChangesFocus(true);
    title_->setMinimumWidth(fontMetrics().averageCharWidth() * leastWidth);
    chartTitle_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    quarters_->setTextFormat(Qt::RichText);
    for (QLabel* read : {stored_, quarters_}) // with the keyboard, too
        read->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    for (QLabel* mayBeLong : {company_, damage_, origin_, onScreen_})
        mayBeLong->setWordWrap(true);

    layOutBody();
    layOut();

    // A field is stored when it is left, which is when the focus goes elsewhere.
    connect(qApp, &QApplication::focusChanged, this, [this] {
        if (isVisible())
            refresh();
    });
}

// The history, and the newest quarters beside it.
void Assistant::layOutBody() {
    auto* beside = new QVBoxLayout(quartersBox_);
    beside->setContentsMargins(0, 0, 0, 0);
    beside->addWidget(quartersTitle_);
    beside->addWidget(quarters_);
    beside->addStretch();
    auto* history = new QVBoxLayout;
    history->setSpacing(beside->spacing());
    history->addWidget(chartTitle_);
    history->addWidget(chart_, 1);
    auto* row = new QHBoxLayout(body_);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2 * row->spacing() + 12);
    row->addLayout(history, 1);
    row->addWidget(quartersBox_);
}

void Assistant::layOut() {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    auto* help = buttons->addButton(tr("More &Help..."), QDialogButtonBox::HelpRole);
    help->setObjectName(QStringLiteral("moreHelp"));
    connect(help, &QPushButton::clicked, this,
            [this] { emit helpAsked(helpObjectBase + object()); });
    history_ = buttons->addButton(tr("H&istory..."), QDialogButtonBox::ActionRole);
    history_->setObjectName(QStringLiteral("history"));
    history_->setAutoDefault(false);
    connect(history_, &QPushButton::clicked, this, [this] {
        const auto facts = assistantFacts(*topic_, *shownCompany_.record(), element_);
        emit historyAsked(*topic_->datum, facts.element);
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    close_ = buttons->button(QDialogButtonBox::Close);
    close_->setDefault(true);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(title_);
    layout->addWidget(company_);
    layout->addWidget(damage_);
    layout->addSpacing(layout->spacing());
    layout->addWidget(stored_);
    layout->addWidget(longText_);
    layout->addWidget(unit_);
    layout->addWidget(origin_);
    layout->addWidget(onScreen_);
    layout->addSpacing(layout->spacing());
    layout->addWidget(body_, 1);
    layout->addWidget(buttons);
}

// The focus goes elsewhere while its widgets are taken down.
Assistant::~Assistant() {
    disconnect(qApp, nullptr, this, nullptr);
}

void Assistant::tell(int object, const QString& shown, std::optional<int> element,
                     const QString& dateFormat, const NumberMarks& marks) {
    const AssistantTopic* topic = assistantTopic(object);
    if (topic == nullptr)
        return;
    topic_ = topic;
    shown_ = shown;
    element_ = element;
    dateFormat_ = dateFormat;
    marks_ = marks;
    storedWhenAsked_ = assistantFacts(*topic, *shownCompany_.record(), element).stored;
    checkStored();
    refresh();
    // What the texts need is known before the window is shown.
    for (const QWidget* part : {quartersBox_, body_, static_cast<QWidget*>(this)})
        part->layout()->activate();
    resize(sizeHint().boundedTo(screen()->availableSize()));
    if (!isVisible())
        standBeside(*parentWidget()->window());
    close_->setFocus();
    show();
    raise();
    activateWindow();
}

// Where there is no room on any side, the desktop finds a place.
void Assistant::standBeside(const QWidget& form) {
    const QRect taken = form.frameGeometry();
    const QRect room = form.screen()->availableGeometry();
    const QSize own = size() + taken.size() - form.size(); // the frames are alike
    const int lowest = std::max(room.top(), room.bottom() - own.height() + 1);
    const int rightmost = std::max(room.left(), room.right() - own.width() + 1);
    for (const QPoint& place :
         {QPoint(taken.right() + 1, taken.top()), QPoint(taken.left() - own.width(), taken.top()),
          QPoint(taken.left(), taken.bottom() + 1),
          QPoint(taken.left(), taken.top() - own.height())}) {
        QRect wanted(place, own);
        if (place.y() == taken.top())
            wanted.moveTop(std::clamp(place.y(), room.top(), lowest));
        else
            wanted.moveLeft(std::clamp(place.x(), room.left(), rightmost));
        if (room.contains(wanted)) {
            move(wanted.topLeft());
            return;
        }
    }
}

void Assistant::checkStored() {
    damage_->setText(fromUtf8(shownCompany_.damage()));
    damage_->setVisible(!damage_->text().isEmpty());
}

void Assistant::refresh() {
    assert(topic_ != nullptr);
    const auto record = shownCompany_.record();
    const AssistantFacts facts =
        assistantFacts(*topic_, *record, element_, shown_, dateFormat_, marks_);
    const QString company = companyTitle(record->get_Name(), record->get_Symbol());
    setWindowTitle(tr("%1 - %2").arg(facts.title, company));
    title_->setText(facts.title);
    company_->setText(facts.period.isEmpty() ? company : tr("%1, %2").arg(company, facts.period));
    const bool isHeadline = facts.stored.size() <= longestHeadline && !facts.stored.contains(u'\n');
    setScale(*stored_, facts.isStored ? figureSize : 1, QFont::Normal);
    stored_->setText(isHeadline ? facts.stored : QString());
    stored_->setVisible(isHeadline);
    longText_->setPlainText(isHeadline ? QString() : facts.stored);
    longText_->setVisible(!isHeadline);
    unit_->setText(facts.unit);
    unit_->setVisible(!facts.unit.isEmpty());

    // What was on screen then says nothing about what is stored by now.
    const bool differs = facts.differs && facts.stored == storedWhenAsked_;
    onScreen_->setText(tr("On screen: %1").arg(elided(shown_)));
    onScreen_->setVisible(differs);

    showOrigin(facts);
    chartTitle_->setText(facts.history.title);
    chart_->setHistory(facts.history);
    quartersTitle_->setText(facts.quartersTitle);
    quarters_->setAccessibleDescription(facts.quartersTitle);
    quarters_->setText(tableText(tr("Quarter ended"), facts.quartersUnit, facts.quarters));
    quartersBox_->setVisible(!facts.quarters.isEmpty());
    body_->setVisible(!facts.history.periods.isEmpty());
}

void Assistant::showOrigin(const AssistantFacts& facts) {
    const bool isDatum = topic_->datum.has_value();
    history_->setVisible(isDatum);
    origin_->setVisible(isDatum && facts.isStored);
    if (!isDatum)
        return;
    const FigureOrigin origin = shownCompany_.origins().of(*topic_->datum, facts.element);
    QString text = history::originText(origin.origin, fromUtf8(origin.document));
    if (origin.isOutdated && origin.origin != Origin::derived)
        text = tr("%1; what it follows from has changed since").arg(text);
    origin_->setText(tr("Where it comes from: %1").arg(text));
}

} // namespace vkr
