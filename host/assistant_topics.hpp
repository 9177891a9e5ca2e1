// SPDX-License-Identifier: MIT
#pragma once

#include "record/datum_table.hpp"
#include "record/enumerations.hpp"

#include <QString>

#include <array>
#include <optional>
#include <span>

namespace vkr {

// What a figure counts.
enum class FigureUnit {
    nothing, // the object holds none
    text,
    date,
    year,
    choice,
    money,    // millions of the company's currency
    shares,   // millions
    perShare, // the company's currency
    percent,
};

// Where a record keeps what an object on screen shows, and which histories tell about it.
struct AssistantTopic {
    std::optional<DataEntryObject> object;
    FigureUnit unit;
    std::optional<Datum> datum; // none: kept elsewhere, or worked out
    std::array<std::optional<Datum>, 2> yearly;
    std::optional<Datum> quarterly;
};

// One row an object, in the order of their numbers.
[[nodiscard]] std::span<const AssistantTopic> assistantTopics();
// Null where there is no such object.
[[nodiscard]] const AssistantTopic* assistantTopic(int object);
// That of the first object that shows the datum. Where none does it has no object.
[[nodiscard]] AssistantTopic topicOf(Datum datum);
// What the help calls the object.
[[nodiscard]] QString helpTitleOf(const AssistantTopic& topic);

} // namespace vkr
