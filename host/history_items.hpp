// SPDX-License-Identifier: MIT
#pragma once

#include "store/company_history.hpp"

#include <QString>

#include <optional>
#include <span>

class QTreeWidgetItem;

// The lines of a history, and their words.
namespace vkr::history {

enum Column { when, who, what, before, after, from, columnCount };
inline constexpr Qt::Alignment numbers = Qt::AlignRight | Qt::AlignVCenter;

struct OriginRow {
    Origin origin;
    const char* text; // of told()
};
[[nodiscard]] std::span<const OriginRow> originRows();

// In the user's language.
[[nodiscard]] QString told(const char* text);
// "typed", "imported from 0001-24-5", "not known": how a figure came to be.
[[nodiscard]] QString originText(const std::optional<Origin>& origin, const QString& document);

// A save or a verdict, its changes below it.
[[nodiscard]] QTreeWidgetItem* groupItem(const HistoryGroup& group);

} // namespace vkr::history
