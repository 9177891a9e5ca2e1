// SPDX-License-Identifier: MIT
#pragma once

#include "binding/datum_table.hpp"
#include "binding/enumerations.hpp"
#include "company/company_record.hpp"
#include "host/history_chart.hpp"
#include "platform/number_marks.hpp"

#include <QString>

#include <array>
#include <optional>
#include <span>
#include <utility>

namespace vkr {

class Form;

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
    DataEntryObject object;
    FigureUnit unit;
    std::optional<Datum> datum; // none: kept elsewhere, or worked out
    std::array<std::optional<Datum>, 2> yearly;
    std::optional<Datum> quarterly;
};

// One row an object, in the order of their numbers.
[[nodiscard]] std::span<const AssistantTopic> assistantTopics();
// Null where there is no such object.
[[nodiscard]] const AssistantTopic* assistantTopic(int object);

// Which period a cell of the form shows, as the element of its series. Nothing where the focus is
// on no cell of that object.
[[nodiscard]] std::optional<int> focusedElement(const Form& form, int object,
                                                const iVKR_Company& company);

// What there is to say about an object; texts that do not apply are empty.
struct AssistantFacts {
    QString title;
    QString stored; // the figure with all its digits, or that there is none
    bool isStored = false;
    QString unit;
    QString period; // of a figure that belongs to one
    // Whether a text on screen says something else than what is stored.
    bool differs = false;
    History history;
    QString quartersTitle;
    QString quartersUnit;                        // "million"; empty for figures per share
    QList<std::pair<QString, QString>> quarters; // the four newest: when they end, and the figure
};

// `element`: the period that is asked about; otherwise the newest one that has a figure.
// `shown`: the text on screen. `dateFormat` and `marks`: how dates and figures are
// written there.
[[nodiscard]] AssistantFacts
assistantFacts(const AssistantTopic& topic, const iVKR_Company& company,
               std::optional<int> element = std::nullopt, const QString& shown = {},
               const QString& dateFormat = {}, const NumberMarks& marks = {});

} // namespace vkr
