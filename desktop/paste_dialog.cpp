// SPDX-License-Identifier: MIT
#include "desktop/paste_dialog.hpp"

#include "desktop/framed_marks.hpp"
#include "desktop/qt_values.hpp"
#include "desktop/still_list.hpp"
#include "platform/during.hpp"
#include "platform/paste_list.hpp"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QGridLayout>
#include <QHeaderView>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace vkr {

namespace {

Qt::Alignment alignmentOf(int column) {
    return Qt::AlignVCenter | (paste_list::isFigure(column) ? Qt::AlignRight : Qt::AlignLeft);
}

} // namespace

PasteDialog::PasteDialog(PasteForm& form, QWidget* parent)
    : FormDialog(form, parent), summary_(nullptr), lines_(nullptr) {
    setWindowTitle(toQt(form.caption()));
    auto* column = new QVBoxLayout(this);
    auto* switches = new QGridLayout;
    addSwitches(*switches);
    summary_ = new QLabel(this); // Tab goes in the order of making
    lines_ = new QTableWidget(this);
    column->addLayout(switches);
    column->addWidget(summary_);
    column->addWidget(lines_, 1);

    summary_->setObjectName(QStringLiteral("pasteSummary"));
    summary_->setWordWrap(true);
    lines_->setObjectName(QStringLiteral("pasteLines"));
    lines_->setAccessibleName(toQt(form.caption()));
    lines_->setColumnCount(paste_list::columns);
    QStringList heads;
    for (const auto& head : form.heads())
        heads << toQt(head);
    lines_->setHorizontalHeaderLabels(heads);
    for (int place = 0; place < paste_list::columns; ++place)
        lines_->horizontalHeaderItem(place)->setTextAlignment(alignmentOf(place));
    lines_->verticalHeader()->hide();
    lines_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lines_->setSelectionBehavior(QAbstractItemView::SelectRows);
    lines_->setSelectionMode(QAbstractItemView::SingleSelection);
    lines_->setTabKeyNavigation(false);
    lines_->setWordWrap(false);
    lines_->horizontalHeader()->setStretchLastSection(true);
    lines_->horizontalHeader()->setHighlightSections(false);

    auto* buttons = new QDialogButtonBox(this);
    ok_ = buttons->addButton(QString(), QDialogButtonBox::AcceptRole);
    ok_->setObjectName(QStringLiteral("pasteOk"));
    ok_->setDefault(true);
    auto* cancel = buttons->addButton(toQt(form.cancelCaption()), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("pasteCancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &PasteDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &PasteDialog::reject);
    column->addWidget(buttons);

    showForm();
    lines_->installEventFilter(this);
    const QFontMetrics metrics(font());
    int width = lines_->horizontalHeader()->length() + 2 * lines_->frameWidth() +
                style()->pixelMetric(QStyle::PM_ScrollBarExtent) +
                layout()->contentsMargins().left() + layout()->contentsMargins().right();
    width = std::max(width, metrics.averageCharWidth() * paste_list::charactersOnShow);
    resize(QSize(width, metrics.lineSpacing() * (paste_list::linesOnShow + 12))
               .boundedTo(screen()->availableSize()));
    ok_->setFocus();
}

// What is on or off on the left, lists with their captions on the right.
void PasteDialog::addSwitches(QGridLayout& grid) {
    int boxes = 0;
    int lists = 0;
    for (int index = 0; index < static_cast<int>(form().switches().size()); ++index) {
        const PasteSwitch& one = form().switches()[static_cast<std::size_t>(index)];
        const QString name = QStringLiteral("pasteSwitch%1").arg(index);
        if (one.entries.empty()) {
            auto* box = new FramedCheckBox(toQt(one.caption), this);
            connect(box, &QCheckBox::toggled, this, [this, index](bool on) { turn(index, on); });
            box->setObjectName(name);
            grid.addWidget(box, boxes++, 0);
            switches_.push_back(box);
            continue;
        }
        auto* label = new QLabel(toQt(one.caption), this);
        auto* list = new StillList(this);
        for (const auto& entry : one.entries)
            list->addItem(toQt(entry));
        label->setBuddy(list);
        connect(list, &QComboBox::currentIndexChanged, this,
                [this, index](int chosen) { turn(index, chosen); });
        list->setObjectName(name);
        grid.addWidget(label, lists, 2);
        grid.addWidget(list, lists++, 3);
        switches_.push_back(list);
    }
    grid.setColumnStretch(1, 1);
    grid.setColumnMinimumWidth(1, fontMetrics().averageCharWidth() * 2);
}

void PasteDialog::turn(int index, int chosen) {
    if (showing_)
        return;
    form().setSwitch(index, chosen);
    showForm();
}

void PasteDialog::showForm() {
    const During showing(showing_);
    for (std::size_t index = 0; index < switches_.size(); ++index) {
        const PasteSwitch& one = form().switches()[index];
        if (auto* box = qobject_cast<QCheckBox*>(switches_[index]))
            box->setChecked(one.chosen != 0);
        else if (auto* list = qobject_cast<QComboBox*>(switches_[index]))
            list->setCurrentIndex(one.chosen);
        switches_[index]->setEnabled(one.enabled);
    }
    summary_->setText(toQt(form().summary()));
    ok_->setText(toQt(form().okCaption()));
    ok_->setEnabled(form().canPaste());
    showLines();
}

void PasteDialog::showLines() {
    const auto& shown = form().lines();
    lines_->setRowCount(static_cast<int>(shown.size()));
    for (int row = 0; row < lines_->rowCount(); ++row)
        showLine(row, shown[static_cast<std::size_t>(row)]);
    fitLines();
    if (lines_->currentRow() < 0 && lines_->rowCount() > 0)
        lines_->setCurrentCell(0, 0);
}

void PasteDialog::showLine(int row, const PasteLine& line) {
    const Color ink = fromQt(lines_->palette().color(QPalette::Text));
    const Color back = fromQt(lines_->palette().color(QPalette::Base));
    for (int column = 0; column < paste_list::columns; ++column) {
        auto* item = new QTableWidgetItem(toQt(paste_list::textIn(line, column)).simplified());
        item->setTextAlignment(alignmentOf(column));
        item->setForeground(toQt(paste_list::inkOf(line.fate, column, ink, back)));
        item->setToolTip(plainToolTip(item->text()));
        lines_->setItem(row, column, item);
    }
}

// Columns and rows as large as their cells. Each cell is asked once: its text is laid out for the
// answer, which takes longer than all the rest.
void PasteDialog::fitLines() {
    lines_->ensurePolished();
    const int grid = lines_->showGrid() ? 1 : 0;
    std::array<int, paste_list::columns> widths{};
    for (int row = 0; row < lines_->rowCount(); ++row) {
        int height = lines_->verticalHeader()->sectionSizeHint(row);
        for (int column = 0; column < paste_list::columns; ++column) {
            const QSize cell = lines_->sizeHintForIndex(lines_->model()->index(row, column));
            auto& width = widths[static_cast<std::size_t>(column)];
            width = std::max(width, cell.width() + grid);
            height = std::max(height, cell.height() + grid);
        }
        lines_->setRowHeight(row, height);
    }
    for (int column = 0; column < paste_list::columns; ++column)
        lines_->setColumnWidth(column,
                               std::max(widths[static_cast<std::size_t>(column)],
                                        lines_->horizontalHeader()->sectionSizeHint(column)));
}

// In the colours of the other theme, once the table has them.
bool PasteDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lines_ && event->type() == QEvent::PaletteChange)
        showLines();
    return FormDialog::eventFilter(watched, event);
}

} // namespace vkr
