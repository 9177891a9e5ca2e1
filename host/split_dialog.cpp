// SPDX-License-Identifier: MIT
#include "host/split_dialog.hpp"

#include "control/vkr_data_entry.hpp"
#include "desktop/vkr_data_entry_widget.hpp"
#include "host/assistant_facts.hpp"
#include "host/messages.hpp"
#include "host/texts.hpp"
#include "host/tick_delegate.hpp"
#include "input/date_reader.hpp"
#include "sheet/today.hpp"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <cassert>

namespace vkr {

namespace {

enum Column { figureColumn, periodColumn, beforeColumn, afterColumn, columnCount };

constexpr int visibleRows = 14;
constexpr int widthInCharacters = 104;
constexpr Qt::Alignment rightAligned = Qt::AlignRight | Qt::AlignVCenter;

} // namespace

SplitDialog::SplitDialog(std::shared_ptr<const CompanyRecord> record, const QString& dateFormat,
                         QWidget* parent)
    : QDialog(parent), record_(std::move(record)), dateFormat_(dateFormat),
      ratio_(new QLineEdit(this)), date_(new QLineEdit(this)), told_(new QLabel(this)),
      table_(new QTableWidget(0, columnCount, this)), apply_(nullptr) {
    setObjectName(QStringLiteral("splitDialog"));
    setWindowTitle(tr("Adjust for a Split - %1")
                       .arg(companyTitle(record_->get_Name(), record_->get_Symbol())));
    layOut();
    for (QLineEdit* edit : {ratio_, date_})
        connect(edit, &QLineEdit::textChanged, this, &SplitDialog::preview);
    connect(table_, &QTableWidget::itemChanged, this, &SplitDialog::showCount);
    preview();
}

void SplitDialog::layOut() {
    ratio_->setObjectName(QStringLiteral("ratio"));
    ratio_->setPlaceholderText(tr("4:1"));
    ratio_->setToolTip(tr("New shares for old ones: 4:1, 3:2, 1:10"));
    date_->setObjectName(QStringLiteral("effective"));
    date_->setPlaceholderText(tr("2024-06-10"));
    date_->setToolTip(tr("The first day on which the new shares are traded"));
    told_->setObjectName(QStringLiteral("told"));
    told_->setWordWrap(true);
    told_->setTextFormat(Qt::PlainText);
    table_->setObjectName(QStringLiteral("preview"));
    table_->setItemDelegateForColumn(0, new TickDelegate(this));
    table_->setAccessibleName(tr("Figures that change"));
    table_->setHorizontalHeaderLabels({tr("Figure"), tr("Of"), tr("Before"), tr("After")});
    table_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    for (const int figures : {beforeColumn, afterColumn})
        table_->horizontalHeaderItem(figures)->setTextAlignment(rightAligned);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setTabKeyNavigation(false);
    table_->setAlternatingRowColors(true);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table_->horizontalHeader()->setSectionResizeMode(figureColumn, QHeaderView::Stretch);
    table_->setMinimumSize(fontMetrics().averageCharWidth() * widthInCharacters,
                           table_->verticalHeader()->defaultSectionSize() * visibleRows);

    auto* form = new QFormLayout;
    form->addRow(tr("&New shares for old:"), ratio_);
    form->addRow(tr("&First day of the new shares:"), date_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    apply_ = buttons->addButton(tr("Adjust"), QDialogButtonBox::AcceptRole);
    apply_->setObjectName(QStringLiteral("adjust"));
    apply_->setDefault(true);
    apply_->setMinimumWidth(fontMetrics().horizontalAdvance(tr("Adjust %1 Figures").arg(1000)) +
                            2 * fontMetrics().averageCharWidth());
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(told_);
    layout->addWidget(table_, 1);
    layout->addWidget(buttons);
}

void SplitDialog::tell(const QString& text) {
    told_->setText(text);
    fill({});
}

void SplitDialog::preview() {
    const auto ratio = readSplitRatio(ratio_->text().toStdString());
    const auto date = readDate(date_->text().toStdString(), today(), dateFormat_.toStdString());
    if (!ratio) {
        tell(ratio_->text().isEmpty()
                 ? tr("Type the new shares for old ones, such as 4:1, 3:2 or 1:10.")
                 : tr("This is no split. Type new shares for old ones, such as 4:1, 3:2 or 1:10."));
    } else if (!date) {
        tell(date_->text().isEmpty()
                 ? tr("Type the day on which the new shares were traded first.")
                 : tr("This is no date. Type the day on which the new shares were traded first."));
    } else {
        split_ = {*ratio, *date};
        const SplitChanges found = splitChanges(*record_, split_);
        QString text = tr("Figures of what ended before %1. Those that are not ticked stay.")
                           .arg(isoDate(*date));
        if (found.changes.empty())
            text = tr("No figure is of before %1.").arg(isoDate(*date));
        for (const Datum missing : found.missingDates)
            text +=
                u'\n' +
                tr("Some are left out for want of a date: %1.").arg(helpTitleOf(topicOf(missing)));
        told_->setText(text);
        fill(found);
    }
}

void SplitDialog::noteTicks() {
    for (int row = 0; row < table_->rowCount(); ++row) {
        const DatumChange& change = changes_[static_cast<std::size_t>(row)].change;
        if (table_->item(row, figureColumn)->checkState() == Qt::Checked)
            unticked_.erase({change.datum, change.element});
        else
            unticked_.emplace(change.datum, change.element);
    }
}

void SplitDialog::fill(const SplitChanges& split) {
    const QSignalBlocker quietly(table_);
    noteTicks();
    changes_ = split.changes;
    table_->setRowCount(static_cast<int>(changes_.size()));
    int row = 0;
    for (const auto& [change, isInexact] : changes_) {
        auto* figure = new QTableWidgetItem(helpTitleOf(topicOf(change.datum)));
        figure->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        figure->setCheckState(unticked_.contains({change.datum, change.element}) ? Qt::Unchecked
                                                                                 : Qt::Checked);
        table_->setItem(row, figureColumn, figure);
        const QString period =
            change.element ? assistantFacts(topicOf(change.datum), *record_, change.element).period
                           : tr("today");
        table_->setItem(row, periodColumn, new QTableWidgetItem(period));
        for (const auto& [column, value] :
             {std::pair(beforeColumn, change.before), std::pair(afterColumn, change.after)}) {
            auto* item = new QTableWidgetItem(figureText(value.toDouble()));
            item->setTextAlignment(rightAligned);
            if (isInexact)
                item->setToolTip(tr("The opposite split would give back another last digit. Undo "
                                    "gives back the figure itself."));
            table_->setItem(row, column, item);
        }
        ++row;
    }
    showCount();
}

void SplitDialog::showCount() {
    const std::size_t count = changes().size();
    apply_->setText(count == 0   ? tr("Adjust")
                    : count == 1 ? tr("Adjust 1 Figure")
                                 : tr("Adjust %1 Figures").arg(count));
    apply_->setEnabled(count > 0);
}

std::vector<DatumChange> SplitDialog::changes() const {
    assert(table_->rowCount() == std::ssize(changes_));
    std::vector<DatumChange> ticked;
    for (int row = 0; row < table_->rowCount(); ++row)
        if (const auto* item = table_->item(row, figureColumn);
            item != nullptr && item->checkState() == Qt::Checked)
            ticked.push_back(changes_[static_cast<std::size_t>(row)].change);
    return ticked;
}

void adjustForSplit(QMainWindow& window, VKRDataEntryWidget& entry,
                    const std::shared_ptr<const CompanyRecord>& record) {
    VKRDataEntry& component = entry.component();
    component.leaveField();
    auto now = record->clone();
    component.commitInto(now); // the lock may have been chosen just now
    if (now->get_Settings()->get(setting::lockBasicInfo).toBoolean()) {
        tellNews(&window, SplitDialog::tr("The data is locked."),
                 SplitDialog::tr("Take the tick off Lock Data before a split."));
        return;
    }
    SplitDialog dialog(record, entry.dateFormat(), &window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const std::vector<DatumChange> changes = dialog.changes();
    if (const auto refusal = component.changeRecord(changes, splitAction(dialog.ratio())))
        tellFault(&window, SplitDialog::tr("Nothing was adjusted."), fromUtf8(*refusal));
    else
        notice(window,
               changes.size() == 1
                   ? SplitDialog::tr("1 figure is on the new basis.")
                   : SplitDialog::tr("%1 figures are on the new basis.").arg(changes.size()));
}

} // namespace vkr
