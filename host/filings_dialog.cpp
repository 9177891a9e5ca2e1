// SPDX-License-Identifier: MIT
#include "host/filings_dialog.hpp"

#include "desktop/framed_marks.hpp"
#include "host/filings_review_model.hpp"
#include "host/texts.hpp"
#include "host/tick_delegate.hpp"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace vkr {

namespace {

struct FilterRow {
    ReviewFilter filter;
    const char* title;
};

constexpr FilterRow filters[] = {
    {ReviewFilter::all, QT_TRANSLATE_NOOP("vkr::FilingsDialog", "All")},
    {ReviewFilter::fresh, QT_TRANSLATE_NOOP("vkr::FilingsDialog", "New")},
    {ReviewFilter::differs, QT_TRANSLATE_NOOP("vkr::FilingsDialog", "Differs")},
    {ReviewFilter::same, QT_TRANSLATE_NOOP("vkr::FilingsDialog", "Same")},
    {ReviewFilter::byHand, QT_TRANSLATE_NOOP("vkr::FilingsDialog", "Typed, or may be typed")},
    {ReviewFilter::doubtful, QT_TRANSLATE_NOOP("vkr::FilingsDialog", "Doubtful")},
};

constexpr int detailLines = 4;
constexpr int visibleRows = 18;

} // namespace

FilingsDialog::FilingsDialog(Reviewer reviewer, QWidget* parent)
    : QDialog(parent), reviewer_(std::move(reviewer)), model_(new FilingsReviewModel(this)),
      shown_(new FilteredReview(*model_, this)), title_(new QLabel(this)),
      shareBasis_(new QLabel(this)), notes_(new QLabel(this)), addsYears_(new FramedCheckBox(this)),
      addsQuarters_(new FramedCheckBox(this)), table_(new QTableView(this)),
      details_(new QPlainTextEdit(this)) {
    setObjectName(QStringLiteral("filings"));
    setWindowTitle(tr("Import from Filings"));
    setSizeGripEnabled(true);
    for (QLabel* label : {title_, shareBasis_, notes_}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    shareBasis_->setObjectName(QStringLiteral("shareBasis"));
    QFont bold = shareBasis_->font();
    bold.setBold(true);
    shareBasis_->setFont(bold);
    notes_->setObjectName(QStringLiteral("notes"));
    addsYears_->setObjectName(QStringLiteral("addsYears"));
    addsQuarters_->setObjectName(QStringLiteral("addsQuarters"));
    const FilingsReview first = reviewer_({});
    addsYears_->setChecked(first.years.added > 0);
    addsQuarters_->setChecked(first.quarters.added > 0);
    details_->setObjectName(QStringLiteral("details"));
    details_->setReadOnly(true);
    details_->setTabChangesFocus(true);
    details_->setAccessibleName(tr("Where the figure comes from"));
    details_->setFixedHeight(QFontMetrics(details_->font()).lineSpacing() * detailLines +
                             2 * static_cast<int>(details_->document()->documentMargin()) +
                             2 * details_->frameWidth());

    auto* adds = new QHBoxLayout;
    adds->addWidget(addsYears_);
    adds->addWidget(addsQuarters_);
    adds->addStretch();
    buildTable();
    auto* column = new QVBoxLayout(this);
    column->addWidget(title_);
    column->addWidget(shareBasis_);
    column->addWidget(notes_);
    column->addLayout(adds);
    column->addWidget(buildFilter());
    column->addWidget(table_, 1);
    column->addWidget(details_);
    column->addWidget(buildButtons());

    // What was made before the line above it.
    setTabOrder(findChild<QWidget*>(QStringLiteral("preset")), table_);
    setTabOrder(table_, details_);
    connect(addsYears_, &QCheckBox::toggled, this, &FilingsDialog::reviewAnew);
    connect(addsQuarters_, &QCheckBox::toggled, this, &FilingsDialog::reviewAnew);
    connect(model_, &FilingsReviewModel::ticksChanged, this, &FilingsDialog::showTicks);
    reviewAnew();
    table_->resizeColumnsToContents();
    table_->setCurrentIndex(shown_->index(0, 0));
    table_->setFocus();
}

const FilingsReview& FilingsDialog::review() const {
    return model_->review();
}

void FilingsDialog::buildTable() {
    table_->setObjectName(QStringLiteral("figures"));
    table_->setAccessibleName(tr("Figures of the filings"));
    table_->setModel(shown_);
    table_->setItemDelegateForColumn(0, new TickDelegate(this));
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setTabKeyNavigation(false);
    table_->setAlternatingRowColors(true);
    table_->setWordWrap(false);
    table_->verticalHeader()->hide();
    table_->horizontalHeader()->setHighlightSections(false);
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder); // none yet
    table_->setSortingEnabled(true);
    const int row = QFontMetrics(font()).height() + QFontMetrics(font()).leading() + 8;
    table_->verticalHeader()->setMinimumSectionSize(row);
    table_->verticalHeader()->setDefaultSectionSize(row);
    table_->setMinimumHeight(5 * row);
    table_->installEventFilter(this);
    connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &FilingsDialog::showDetails);
    const int letter = QFontMetrics(font()).averageCharWidth();
    resize(178 * letter, (visibleRows + 12) * row);
}

QWidget* FilingsDialog::buildFilter() {
    auto* line = new QWidget(this);
    auto* row = new QHBoxLayout(line);
    row->setContentsMargins({});
    filter_ = new QComboBox(line);
    filter_->setObjectName(QStringLiteral("filter"));
    filter_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    auto* label = new QLabel(tr("&Show:"), line);
    label->setBuddy(filter_);
    for (const FilterRow& one : filters)
        filter_->addItem(tr(one.title));
    row->addWidget(label);
    row->addWidget(filter_);
    row->addStretch();
    const auto button = [&](const QString& text, const char* name, auto act) {
        auto* made = new QPushButton(text, line);
        made->setObjectName(QLatin1String(name));
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, this, act);
        row->addWidget(made);
    };
    button(tr("&Tick All Shown"), "tickShown", [this] { setShownTicked(true); });
    button(tr("&Untick All Shown"), "untickShown", [this] { setShownTicked(false); });
    button(tr("As at &First"), "preset", [this] { model_->setTicks(ReviewTicks::preset); });
    connect(filter_, &QComboBox::currentIndexChanged, this, [this](int index) {
        shown_->setFilter(filters[index].filter);
        table_->setCurrentIndex(shown_->index(0, 0));
        showDetails();
    });
    return line;
}

QWidget* FilingsDialog::buildButtons() {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    auto* import = buttons->addButton(QString(), QDialogButtonBox::AcceptRole);
    import->setObjectName(QStringLiteral("import"));
    import->setDefault(true);
    import_ = import;
    auto* help = buttons->addButton(QDialogButtonBox::Help);
    help->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons, &QDialogButtonBox::helpRequested, this, &FilingsDialog::helpAsked);
    return buttons;
}

void FilingsDialog::reviewAnew() {
    const auto adding = [](const QCheckBox& box) {
        return box.isChecked() ? Adding::always : Adding::never;
    };
    FilingsReview anew =
        reviewer_({.years = adding(*addsYears_), .quarters = adding(*addsQuarters_)});
    for (const ReviewRow& row : review().rows)
        ticks_[{row.figure.datum, row.period}] = row.ticked;
    for (ReviewRow& row : anew.rows)
        if (const auto kept = ticks_.find({row.figure.datum, row.period}); kept != ticks_.end())
            row.ticked = kept->second;
    followTicks(anew);
    model_->setReview(std::move(anew));
    const FilingsReview& made = review();
    title_->setText(tr("%1 (CIK %2). Money and shares are in millions, rates in percent.")
                        .arg(fromUtf8(made.entityName))
                        .arg(made.cik));
    shareBasis_->setText(fromUtf8(made.shareBasis));
    shareBasis_->setVisible(!made.shareBasis.empty());
    addsYears_->setVisible(made.years.later > 0);
    addsYears_->setText(made.years.later == 1 ? tr("Add 1 fiscal &year")
                                              : tr("Add %1 fiscal &years").arg(made.years.later));
    addsQuarters_->setVisible(made.quarters.later > 0);
    addsQuarters_->setText(made.quarters.later == 1
                               ? tr("Add 1 &quarter")
                               : tr("Add %1 &quarters").arg(made.quarters.later));
    showDetails();
}

void FilingsDialog::showFilterCounts() {
    const auto& rows = review().rows;
    for (int i = 0; i < filter_->count(); ++i)
        filter_->setItemText(i, tr("%1 (%2)")
                                    .arg(tr(filters[i].title))
                                    .arg(std::ranges::count_if(rows, [&](const ReviewRow& row) {
                                        return passes(row, filters[i].filter);
                                    })));
}

void FilingsDialog::showTicks() {
    const int figures = review().ticked();
    import_->setText(figures == 1 ? tr("&Import 1 Figure") : tr("&Import %1 Figures").arg(figures));
    import_->setEnabled(figures > 0);
    QStringList notes;
    for (const std::string& note : notesOf(review()))
        notes.append(fromUtf8(note));
    notes_->setText(notes.join(u'\n'));
    notes_->setVisible(!notes.isEmpty());
    showFilterCounts();
}

void FilingsDialog::showDetails() {
    const QModelIndex current = table_->currentIndex();
    details_->setPlainText(current.isValid() ? model_->details(shown_->mapToSource(current).row())
                                             : QString());
}

void FilingsDialog::setShownTicked(bool ticked) {
    QModelIndexList all;
    for (int row = 0; row < shown_->rowCount(); ++row)
        all.append(shown_->index(row, 0));
    all = shown_->inReview(all);
    if (ticked) // there is nothing to take of those that are the same
        all.removeIf([this](const QModelIndex& index) {
            return model_->row(index.row()).state == ReviewState::same;
        });
    model_->setTicked(all, ticked);
}

// All of them as the first one becomes.
void FilingsDialog::toggleSelected() {
    const QModelIndexList rows = shown_->inReview(table_->selectionModel()->selectedRows());
    if (!rows.isEmpty())
        model_->setTicked(rows, !model_->row(rows.front().row()).ticked);
}

bool FilingsDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == table_ && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space) {
        toggleSelected();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace vkr
