// SPDX-License-Identifier: MIT
#include "host/suggested_dates.hpp"

#include <algorithm>
#include <iterator>
#include <optional>

namespace vkr {

namespace {

bool isQuarterly(Datum datum) {
    return datum == Datum::Last4QEPS || (isSeries(rowOf(datum)) && !isYearly(datum));
}
bool isOfThePrice(Datum datum) {
    return datum == Datum::CurrentPrice;
}
bool isNothing(Datum /*datum*/) {
    return false;
}

struct Suggestion {
    Datum date;
    std::optional<Datum> beside; // written with it
    bool (*dates)(Datum datum);  // whether the datum goes by the date
};
constexpr Suggestion suggestions[] = {
    {Datum::LastQDate, Datum::LastQDateForGrid, isQuarterly},
    {Datum::LastFYDate, Datum::LastFY, isYearly},
    {Datum::PriceUpdatedDate, std::nullopt, isOfThePrice},
    {Datum::LastUpdate, std::nullopt, isNothing},
};

const Suggestion& suggestionOf(Datum date) {
    return *std::ranges::find(suggestions, date, &Suggestion::date);
}

} // namespace

void takeBack(const std::vector<Datum>& suggested, const CompanyRecord& unchanged,
              CompanyRecord& record) {
    for (const Datum date : suggested) {
        writeDatum(record, date, unchanged.stored(date));
        if (const auto beside = suggestionOf(date).beside)
            writeDatum(record, *beside, unchanged.stored(*beside));
    }
}

std::vector<Datum> withThoseBeside(const std::vector<Datum>& suggested,
                                   const CompanyRecord& record) {
    const CompanyRecord empty;
    std::vector<Datum> all = suggested;
    for (const Datum date : suggested)
        if (const auto beside = suggestionOf(date).beside;
            beside && record.stored(*beside) == empty.stored(*beside))
            all.push_back(*beside);
    return all;
}

std::vector<Datum> datingNothing(const std::vector<Datum>& suggested,
                                 const CompanyRecord& unchanged, const CompanyRecord& record) {
    std::vector<Datum> found;
    std::ranges::copy_if(suggested, std::back_inserter(found), [&](Datum date) {
        return std::ranges::none_of(datumTable(), [&](const DatumRow& row) {
            return suggestionOf(date).dates(row.datum) &&
                   record.stored(row.datum) != unchanged.stored(row.datum);
        });
    });
    return found;
}

} // namespace vkr
