// SPDX-License-Identifier: MIT
#pragma once

#include "automation/component_model.hpp"
#include "platform/text_field.hpp"
#include "record/figure_place.hpp"

#include <map>
#include <string>
#include <string_view>

namespace vkr::automation {

// What a container has to say of figures: an array of rows, each an array of the datum's name, the
// element of a series (empty or missing for a datum that is none), and what is said. Nothing, or an
// array without rows, says nothing of any. Throws ComError where one row is none, so that none of
// them is taken.

// Rows of datum, element and text.
[[nodiscard]] std::map<FigurePlace, std::string> remarksIn(const VARIANT& rows);
// Rows of datum, element, text and whether the corner of the field is marked.
[[nodiscard]] std::map<FigurePlace, FieldOrigin> originsIn(const VARIANT& rows);

[[nodiscard]] FigurePlace figurePlaceIn(std::string_view datum, const VARIANT& element);

} // namespace vkr::automation
