// SPDX-License-Identifier: MIT
#include "tests/support/entry_scene.hpp"

#include "record/datum_table.hpp"

namespace vkr {

std::shared_ptr<CompanyRecord> fullCompany() {
    auto company = std::make_shared<CompanyRecord>();
    int number = 0;
    for (const auto& row : datumTable()) {
        ++number;
        const double figure = 100.12345 + number;
        if (std::holds_alternative<TextAccess>(row.access)) {
            writeDatum(*company, row.datum, std::string(row.name) + " text");
        } else if (std::holds_alternative<NumberAccess>(row.access)) {
            writeDatum(*company, row.datum, figure);
        } else if (isSeries(row)) {
            Variant series = readDatum(*company, row.datum);
            VariantArray& figures = series.array();
            for (int i = figures.lower(); i <= figures.upper(); ++i)
                figures.setNumber(i, figure + 1000.0 * (i + 1));
            writeDatum(*company, row.datum, series);
        }
    }
    company->put_Symbol("FULL");
    company->put_LastFYDate(*makeDate(2025, 12, 31));
    company->put_LastFY(2025);
    company->put_LastQDate(*makeDate(2026, 9, 30));
    company->put_LastQDateForGrid(*makeDate(2026, 9, 30));
    company->put_PriceUpdatedDate(*makeDate(2026, 11, 20));
    company->put_LastUpdate(*makeDate(2026, 11, 19));
    company->put_DateOfSource(*makeDate(2026, 10, 1));
    company->put_CommDivAlternate(company->get_CommDiv());
    company->get_Settings()->put("intUnit", 6);
    company->get_Settings()->put("strCurSymbol", "$");
    return company;
}

} // namespace vkr
