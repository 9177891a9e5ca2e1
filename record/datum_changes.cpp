// SPDX-License-Identifier: MIT
#include "record/datum_changes.hpp"

#include "platform/error_trap.hpp"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace vkr {

namespace {

struct Write {
    Datum datum;
    Variant before; // as the record has it
    Variant after;
};

void change(Variant& value, const DatumChange& change) {
    if (!change.element) {
        value = change.after;
        return;
    }
    VariantArray& series = value.array();
    if (!series.contains(*change.element))
        throw std::out_of_range("There is no place for this figure.");
    series.set(*change.element, change.after);
}

// One for each datum, in the order in which they come first.
std::vector<Write> writesOf(const iVKR_Company& company, std::span<const DatumChange> changes) {
    std::vector<Write> writes;
    for (const DatumChange& one : changes) {
        auto write = std::ranges::find(writes, one.datum, &Write::datum);
        if (write == writes.end()) {
            Variant held = readDatum(company, one.datum);
            write = writes.insert(write, {one.datum, held, held});
        }
        change(write->after, one);
    }
    return writes;
}

} // namespace

std::vector<DatumChange> inverted(std::span<const DatumChange> changes) {
    std::vector<DatumChange> back;
    back.reserve(changes.size());
    for (auto one = changes.rbegin(); one != changes.rend(); ++one)
        back.push_back({one->datum, one->element, one->after, one->before});
    return back;
}

std::optional<std::string> applyChanges(iVKR_Company& company,
                                        std::span<const DatumChange> changes) {
    std::vector<Write> writes;
    if (auto refusal = failureOf([&] { writes = writesOf(company, changes); }))
        return refusal;
    for (auto write = writes.begin(); write != writes.end(); ++write) {
        auto refusal = failureOf([&] { writeDatum(company, write->datum, write->after); });
        if (!refusal)
            continue;
        // The refused one too: a record may have taken it in part.
        for (auto done = std::next(write); done != writes.begin();) {
            --done;
            ifPossible([&] { writeDatum(company, done->datum, done->before); });
        }
        return refusal;
    }
    return std::nullopt;
}

} // namespace vkr
