// SPDX-License-Identifier: MIT
#include "sheet/sheet_content.hpp"

#include "company/company_tables.hpp"
#include "company/exact_text.hpp"
#include "record/datum_titles.hpp"

#include <QCoreApplication>
#include <QLocale>
#include <QMap>

#include <algorithm>
#include <array>

namespace vkr {

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("sheet", text);
}

QString fromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString label(Datum datum) {
    return fromUtf8(titleOf(datum));
}

// --- what stands where -------------------------------------------------------------------------

constexpr Datum share[] = {
    Datum::CurrentPrice, Datum::PriceUpdatedDate, Datum::High52W,        Datum::Low52W,
    Datum::Last4QEPS,    Datum::ORBEPSProj,       Datum::CommDiv,        Datum::CommDivAlternate,
    Datum::VLTimeliness, Datum::VLSafety,         Datum::InsiderHolding, Datum::Institutional,
};
constexpr Datum capital[] = {
    Datum::CommShares, Datum::DilutedShares, Datum::TotalDebt,        Datum::TotalCap,
    Datum::PrefShares, Datum::PrefDiv,       Datum::TaxRate,          Datum::LastFY,
    Datum::LastFYDate, Datum::LastQDate,     Datum::LastQDateForGrid,
};
constexpr Datum origin[] = {
    Datum::Source,   Datum::DateOfSource, Datum::LastUpdate, Datum::Address1,
    Datum::Address2, Datum::City,         Datum::State,      Datum::Zip,
    Datum::Country,  Datum::Internet,     Datum::Tel,        Datum::ContactPerson,
};

constexpr Datum yearly[] = {
    Datum::YRevenueSeries, Datum::YPTISeries,     Datum::YTaxRateSeries, Datum::YNetIncSeries,
    Datum::YCommEqSeries,  Datum::YBookValSeries, Datum::YEPSSeries,     Datum::YDividendSeries,
    Datum::YHighSeries,    Datum::YLowSeries,     Datum::YCSOSeries,
};
constexpr Datum quarterly[] = {
    Datum::QRevenueSeries, Datum::QPTISeries, Datum::QTaxRateSeries,
    Datum::QNetIncSeries,  Datum::QEPSSeries,
};

// --- figures -----------------------------------------------------------------------------------

QString currencyOf(const CompanyRecord& record) {
    return fromUtf8(record.get_Settings()->get(setting::currencySymbol).toText()).trimmed();
}

QString unitText(DatumUnit unit, const CompanyRecord& record) {
    const QString currency = currencyOf(record);
    switch (unit) {
    case DatumUnit::money:
        return currency.isEmpty() ? tr("millions") : tr("%1 millions").arg(currency);
    case DatumUnit::shares:
        return tr("millions");
    case DatumUnit::perShare:
        return currency.isEmpty() ? tr("per share") : tr("%1 per share").arg(currency);
    case DatumUnit::percent:
        return tr("%");
    case DatumUnit::none:
        break;
    }
    return {};
}

// Numbers the notes, and knows which of them a figure has.
class NoteNumbers {
  public:
    explicit NoteNumbers(const std::vector<SheetNote>& notes) {
        int number = 0;
        for (const SheetNote& note : notes) {
            ++number;
            for (const FigurePlace& place : note.places)
                numbers_[keyOf(place)].append(number);
        }
    }
    // "1,4-6"; of many the first ones and "+".
    [[nodiscard]] QString of(const FigurePlace& place) const {
        constexpr qsizetype most = 3;
        QStringList runs;
        const QList<int> numbers = numbers_.value(keyOf(place));
        for (qsizetype at = 0; at < numbers.size(); ++at) {
            const int first = numbers.at(at);
            while (at + 1 < numbers.size() && numbers.at(at + 1) == numbers.at(at) + 1)
                ++at;
            runs.append(QString::number(first));
            if (numbers.at(at) != first)
                runs.last() += u'-' + QString::number(numbers.at(at));
        }
        const bool isMany = runs.size() > most;
        return runs.mid(0, most).join(u',') + (isMany ? "+" : "");
    }

  private:
    static QPair<int, int> keyOf(const FigurePlace& place) {
        return {static_cast<int>(place.datum), place.element.value_or(-1)};
    }

    QMap<QPair<int, int>, QList<int>> numbers_;
};

SheetValue figureValue(const QString& label, const QString& plain) {
    return {label, localizedFigure(plain), plain, {}};
}

SheetValue valueOf(const CompanyRecord& record, Datum datum, const NoteNumbers& notes) {
    const Variant& stored = record.stored(datum);
    SheetValue value{label(datum), {}, {}, notes.of({datum, std::nullopt})};
    if (const auto* number = std::get_if<double>(&stored.value())) {
        if (*number != 0) {
            value.figure = fromUtf8(exactNumberText(*number));
            value.text = localizedFigure(value.figure);
        }
        if (const QString unit = unitText(unitOf(datum), record); !unit.isEmpty())
            value.label += QStringLiteral(" (%1)").arg(unit);
    } else if (const auto* date = std::get_if<Date>(&stored.value())) {
        value.text = fromUtf8(isoDateText(*date));
    } else if (stored.varType() == Variant::vtString) {
        value.text = fromUtf8(stored.toText());
    } else if (const long year = stored.toLong(); year != 0) {
        value.text = QString::number(year);
    }
    return value;
}

template <std::size_t count>
SheetBlock blockOf(const QString& title, const CompanyRecord& record, const Datum (&data)[count],
                   const NoteNumbers& notes) {
    SheetBlock block{title, {}};
    for (const Datum datum : data)
        block.values.append(valueOf(record, datum, notes));
    return block;
}

template <std::size_t count>
SheetTable tableOf(const QString& title, const QString& periods, const CompanyRecord& record,
                   DatumPeriod period, const Datum (&columns)[count], const NoteNumbers& notes) {
    SheetTable table{title, {{periods, {}}}, {}};
    for (const Datum column : columns)
        table.heads.append({label(column), unitText(unitOf(column), record)});
    const FigureTable figures = figureTable(record, period);
    for (const FigureTable::Row& row : figures.rows) {
        SheetTable::Row cells;
        cells.cells.append({{}, fromUtf8(row.names.front()), {}, {}});
        for (const Datum column : columns) {
            const auto at = std::ranges::find(figures.series, column, &DatumRow::datum) -
                            figures.series.begin();
            SheetValue cell = figureValue({}, fromUtf8(row.figures[static_cast<std::size_t>(at)]));
            cell.marks = notes.of({column, row.element});
            cells.cells.append(cell);
        }
        table.rows.append(cells);
    }
    return table;
}

// --- charts ------------------------------------------------------------------------------------

std::optional<double> figureAt(const CompanyRecord& record, Datum series, int element) {
    const double figure = record.stored(series).array().number(element);
    return figure == 0 ? std::nullopt : std::optional(figure);
}

SheetChart chartOf(const QString& title, const CompanyRecord& record, Datum series,
                   std::optional<Datum> lower = {}) {
    SheetChart chart{title, unitText(unitOf(series), record), {}};
    const FigureTable years = figureTable(record, DatumPeriod::year);
    for (auto row = years.rows.rbegin(); row != years.rows.rend(); ++row)
        chart.bars.append({fromUtf8(row->names.front()), figureAt(record, series, row->element),
                           lower ? figureAt(record, *lower, row->element) : std::nullopt});
    return chart;
}

} // namespace

bool SheetChart::hasFigures() const {
    return std::ranges::any_of(bars, [](const Bar& bar) { return bar.value || bar.lower; });
}

SheetContent sheetContent(const SheetCompany& company) {
    const CompanyRecord& record = *company.record;
    const NoteNumbers notes(company.notes);
    SheetContent content;
    const QString symbol = fromUtf8(record.get_Symbol());
    content.name = fromUtf8(record.get_Name());
    if (content.name.isEmpty())
        content.name = symbol.isEmpty() ? tr("Company without a name") : symbol;
    QStringList identity;
    for (const QString& text :
         {symbol, fromUtf8(record.get_Exchange()), fromUtf8(record.get_Industry())})
        if (!text.isEmpty())
            identity.append(text);
    content.identity = identity.join(QStringLiteral("  \u00b7  "));
    content.blocks = {blockOf(tr("Share"), record, share, notes),
                      blockOf(tr("Capital and periods"), record, capital, notes),
                      blockOf(tr("Source and address"), record, origin, notes)};
    content.yearly =
        tableOf(tr("Fiscal years"), tr("Year"), record, DatumPeriod::year, yearly, notes);
    content.quarterly = tableOf(tr("Quarters"), tr("Quarter ended"), record, DatumPeriod::quarter,
                                quarterly, notes);
    content.charts = {chartOf(label(Datum::YRevenueSeries), record, Datum::YRevenueSeries),
                      chartOf(label(Datum::YEPSSeries), record, Datum::YEPSSeries),
                      chartOf(tr("Price range"), record, Datum::YHighSeries, Datum::YLowSeries)};
    content.notes = fromUtf8(record.get_Notes());
    for (const SheetNote& note : company.notes)
        content.footnotes.append(note.text);
    return content;
}

QString localizedFigure(const QString& plain) {
    const QLocale locale;
    QString digits = plain;
    const bool isNegative = digits.startsWith(u'-');
    if (isNegative)
        digits.remove(0, 1);
    const auto point = digits.indexOf(u'.');
    QString text = point < 0 ? digits : digits.left(point);
    constexpr int group = 3;
    if (!(locale.numberOptions() & QLocale::OmitGroupSeparator))
        for (auto at = text.size() - group; at > 0; at -= group)
            text.insert(at, locale.groupSeparator());
    if (point >= 0)
        text += locale.decimalPoint() + digits.mid(point + 1);
    return (isNegative ? QStringLiteral("-") : QString()) + text;
}

QString roundedFigure(const QString& plain, int digits) {
    QString text = QString::number(plain.toDouble(), 'g', digits);
    text.replace(u'.', QLocale().decimalPoint());
    return QChar(0x2248) + text;
}

} // namespace vkr
