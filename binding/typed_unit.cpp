// SPDX-License-Identifier: MIT
#include "binding/typed_unit.hpp"

#include "binding/text_numbers.hpp"
#include "input/mdlKMTMisc.hpp"

#include <cassert>

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
    if (unit_ == context.unit()) {
        *this = {};
        return told;
    }
    std::string units = context.text(text_number::typedInUnit);
    ReplaceAll(units, "%1", context.unitText(unit_));
    ReplaceAll(units, "%2", context.unitText());
    told.reason += " " + units;
    return told;
}

void TypedUnit::follow(const EntryContext& context, TextField& field, std::int32_t before) {
    const bool typed = field.isTyped();
    if (typed && !field.isUnstored()) {
        field.lookAtText();
        field.setMark(context.unstored(text_number::reasonRefused));
    }
    field.setMark(follow(context, field.mark(), before));
    begun_ = unit_ != 0 && (typed || begun_);
    assert(unit_ == 0 || unit_ != context.unit());
    assert(unit_ != 0 || reason_.empty());
}

bool TypedUnit::waits(const TextField& field) const {
    return unit_ != 0 && field.isUnstored() && (begun_ ? !field.text().empty() : !field.isTyped());
}

} // namespace vkr
