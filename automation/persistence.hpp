// SPDX-License-Identifier: MIT
#pragma once

#include "automation/com.hpp"
#include "automation/component_model.hpp"
#include "platform/property_bag.hpp"

namespace vkr::automation {

// The set of values that a container keeps, in the three ways in which it keeps them. Reading
// throws ComError for what is damaged; a value that is missing, or of a type that it can't have, is
// the default.

// A property bag: in the order laid down for saving and for restoring. A value that is the default
// is not written unless all are wanted.
void saveTo(IPropertyBag& place, const PropertyBag& bag, bool all);
[[nodiscard]] PropertyBag loadFrom(IPropertyBag& place, IErrorLog* log);

// A stream, at its position: a mark, a version, the number of values, then each.
void saveTo(IStream& place, const PropertyBag& bag);
[[nodiscard]] PropertyBag loadFrom(IStream& place);
// The most that a saved set can take.
[[nodiscard]] ULONG largestStream();

// A storage: the stream in it.
void saveTo(IStorage& place, const PropertyBag& bag);
[[nodiscard]] PropertyBag loadFrom(IStorage& place);

} // namespace vkr::automation
