// SPDX-License-Identifier: MIT
#include "host/typed_figures_dialog.hpp"

#include "company/exact_text.hpp"
#include "host/texts.hpp"
#include "host/tick_delegate.hpp"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace vkr {

namespace {

enum Column { figure, typed, imported };

// Figures as the user's locale has them; long texts are cut.
QString valueText(const ReplacedFigure& one, const std::string& value) {
    const bool isFigure = one.setting.empty() && unitOf(one.datum) != DatumUnit::none;
    const auto number = isFigure ? exactNumber(value) : std::nullopt;
    const QString text = number ? figureText(*number) : fromUtf8(value).simplified();
    constexpr qsizetype most = 80;
    return text.size() <= most ? text : text.left(most) + QChar(0x2026);
}

QString leavingText(const ReplacedFigure& one) {
    if (one.leaves == ReplacedFigure::Leaves::tooOld)
        return QCoreApplication::translate("vkr::TypedFiguresDialog", "too old for the table");
    return rowOf(one.datum).period == DatumPeriod::year
               ? QCoreApplication::translate("vkr::TypedFiguresDialog", "after its last year")
               : QCoreApplication::translate("vkr::TypedFiguresDialog", "after its last quarter");
}

} // namespace

TypedFiguresDialog::TypedFiguresDialog(std::vector<Company> companies, QWidget* parent)
    : QDialog(parent), companies_(std::move(companies)), tree_(new QTreeWidget(this)) {
    setObjectName(QStringLiteral("typedFigures"));
    setWindowTitle(tr("Replace What Was Typed?"));
    setSizeGripEnabled(true);

    auto* words = new QLabel(tr("These were typed or pasted, and the import has something else. "
                                "They stay, but for those that you tick."),
                             this);
    words->setWordWrap(true);
    auto* ticks = new QHBoxLayout;
    for (const bool ticked : {true, false}) {
        auto* button = new QPushButton(ticked ? tr("&Tick All") : tr("&Untick All"), this);
        button->setObjectName(ticked ? QStringLiteral("tickAll") : QStringLiteral("untickAll"));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, ticked] { tickAll(ticked); });
        ticks->addWidget(button);
    }
    ticks->addStretch();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    auto* import = buttons->addButton(tr("&Import"), QDialogButtonBox::AcceptRole);
    import->setObjectName(QStringLiteral("import"));
    import->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    tree_->setObjectName(QStringLiteral("figures"));
    tree_->setAccessibleName(tr("What was typed"));
    tree_->setHeaderLabels({tr("Replace"), tr("Typed"), tr("Imported")});
    for (const int column : {typed, imported})
        tree_->headerItem()->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    tree_->setItemDelegateForColumn(figure, new TickDelegate(this));
    tree_->setAlternatingRowColors(true);
    tree_->setUniformRowHeights(true);
    tree_->header()->setStretchLastSection(false);
    fill();

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(words);
    layout->addWidget(tree_, 1);
    layout->addLayout(ticks);
    layout->addWidget(buttons);
    const QFontMetrics letters(font());
    resize(letters.averageCharWidth() * 108, letters.lineSpacing() * 24);
    tree_->setFocus();
}

void TypedFiguresDialog::fill() {
    tree_->setRootIsDecorated(companies_.size() > 1);
    for (const Company& company : companies_) {
        QTreeWidgetItem* above = tree_->invisibleRootItem();
        if (companies_.size() > 1) {
            above = new QTreeWidgetItem(tree_, {company.title});
            above->setFlags(above->flags() | Qt::ItemIsAutoTristate | Qt::ItemIsUserCheckable);
            above->setExpanded(true);
        }
        std::vector<QTreeWidgetItem*>& items = items_.emplace_back();
        for (const ReplacedFigure& one : company.figures) {
            auto* item = new QTreeWidgetItem(
                above, {fromUtf8(titleOf(one)), valueText(one, one.stored),
                        one.leavesTheTable() ? leavingText(one) : valueText(one, one.imported)});
            for (const int column : {typed, imported}) {
                item->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
                item->setToolTip(column, item->text(column));
            }
            item->setCheckState(figure, Qt::Unchecked);
            if (one.leavesTheTable())
                item->setFlags(item->flags() & ~(Qt::ItemIsUserCheckable | Qt::ItemIsEnabled));
            items.push_back(item);
        }
    }
    tree_->header()->setSectionResizeMode(figure, QHeaderView::Stretch);
    for (const int column : {typed, imported}) { // a longer text is in its tip
        tree_->resizeColumnToContents(column);
        const int most = QFontMetrics(font()).averageCharWidth() * 28;
        tree_->setColumnWidth(column, std::min(tree_->columnWidth(column) + 16, most));
    }
    tree_->setCurrentItem(tree_->topLevelItem(0));
}

void TypedFiguresDialog::tickAll(bool ticked) {
    for (std::size_t company = 0; company < items_.size(); ++company)
        for (std::size_t row = 0; row < items_[company].size(); ++row)
            if (!companies_[company].figures[row].leavesTheTable())
                items_[company][row]->setCheckState(figure, ticked ? Qt::Checked : Qt::Unchecked);
}

std::vector<ReplacedFigure> TypedFiguresDialog::kept(std::size_t company) const {
    std::vector<ReplacedFigure> kept;
    const auto& items = items_[company];
    for (std::size_t row = 0; row < items.size(); ++row)
        if (items[row]->checkState(figure) != Qt::Checked)
            kept.push_back(companies_[company].figures[row]);
    return kept;
}

} // namespace vkr
