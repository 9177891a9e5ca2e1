// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"
#include "host/assistant_topics.hpp"
#include "host/history_chart.hpp"
#include "platform/number_marks.hpp"
#include "record/datum_table.hpp"
#include "record/enumerations.hpp"

#include <QString>

#include <optional>
#include <utility>

namespace vkr {

class Form;

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
    std::optional<int> element;
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
