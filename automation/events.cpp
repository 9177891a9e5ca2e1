// SPDX-License-Identifier: MIT
#include "automation/events.hpp"

#include "automation/late_bound.hpp"
#include "automation/member_numbers.hpp"
#include "control/property_table.hpp"
#include "platform/during.hpp"
#include "platform/error_trap.hpp"

#include <cassert>
#include <utility>
#include <vkr_data_entry.h>

namespace vkr::automation {

Events::Events(ControlOwner& control)
    : control_(control), events_(__uuidof(::__VKRDataEntry), Listeners::Asks::thatOrDispatch),
      notices_(IID_IPropertyNotifySink, Listeners::Asks::theInterface) {}

void Events::freeze(bool frozen) {
    if (frozen) {
        ++frozen_;
        return;
    }
    if (frozen_ > 0)
        --frozen_;
    if (thawing_)
        return;
    const During thawing(thawing_);
    while (frozen_ == 0 && !waiting_.empty()) {
        const auto next = std::move(waiting_.front());
        waiting_.pop_front();
        ifPossible(next); // none is lost for another one
    }
}

void Events::deliver(std::function<void()> call) {
    assert(waiting_.empty() || frozen_ > 0 || thawing_);
    if (frozen_ > 0 || !waiting_.empty())
        waiting_.push_back(std::move(call));
    else
        call();
}

void Events::propertyChanged(std::string_view name) {
    for (const DISPID member : membersOf(name))
        deliver([this, member] { noticeNow(member); });
}

void Events::noticeNow(DISPID property) {
    const auto stays = control_.stays(ControlOwner::Stay::quiet);
    notices_.each<IPropertyNotifySink>(
        [&](IPropertyNotifySink& sink) { sink.OnChanged(property); });
}

void Events::fire(DISPID event, std::vector<Variant> arguments) {
    deliver([this, event, given = std::move(arguments)] { fireNow(event, given); });
}

void Events::fireNow(DISPID event, const std::vector<Variant>& arguments) {
    const auto stays = control_.stays(ControlOwner::Stay::quiet);
    std::vector<OwnedVariant> held(arguments.size());
    std::vector<VARIANT> last; // first
    for (std::size_t i = arguments.size(); i-- > 0;) {
        toVariant(arguments[i], held[i]);
        last.push_back(held[i].get());
    }
    events_.each<IDispatch>([&](IDispatch& sink) {
        auto given = last; // a sink may write into what it is given
        DISPPARAMS parameters{given.data(), nullptr, static_cast<UINT>(given.size()), 0};
        OwnedVariant unused;
        EXCEPINFO error{};
        static_cast<void>(sink.Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                      &parameters, unused.receive(), &error, nullptr));
        SysFreeString(error.bstrSource);
        SysFreeString(error.bstrDescription);
        SysFreeString(error.bstrHelpFile);
    });
}

void Events::TabChange(TABObject intTab) {
    fire(member::tabChange, {static_cast<std::int32_t>(intTab)});
}
void Events::MoreHelp(std::int16_t intObject) {
    fire(member::moreHelp, {intObject});
}
void Events::Assistant(std::int16_t enumObject, const Variant& vntValue) {
    fire(member::assistant, {enumObject, vntValue});
}
void Events::UnloadRequest(UnloadModeType enumMode) {
    fire(member::unloadRequest, {static_cast<std::int32_t>(enumMode)});
}

std::vector<DISPID> membersOf(std::string_view property) {
    if (property == propertyRow(EntryProperty::NumberMarks).name)
        return {member::decimalMark, member::groupingMark};
    int number = 0;
    for (const PropertyRow& row : propertyTable().first(interfaceProperties)) {
        ++number;
        if (row.name == property)
            return {number};
    }
    return {};
}

} // namespace vkr::automation
