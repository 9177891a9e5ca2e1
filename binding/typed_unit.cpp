// SPDX-License-Identifier: MIT
#include "binding/typed_unit.hpp"

#include "input/mdlKMTMisc.hpp"

namespace vkr {

FieldMark TypedUnit::follow(const EntryContext& context, const FieldMark& mark,
                            std::int32_t before) {
    if (mark.kind != MarkKind::unstored) {
        *this = {};
        return mark;
    }
    if (unit_ == 0) {
        unit_ = before;
        reason_ = mark.reason;
    }
    FieldMark told{MarkKind::unstored, reason_};
    if (unit_ == context.unit) {
        *this = {};
        return told;
    }
    std::string units = context.text(text_number::typedInUnit);
    ReplaceAll(units, "%1", context.unitText(unit_));
    ReplaceAll(units, "%2", context.unitText());
    told.reason += " " + units;
    return told;
}

} // namespace vkr
