// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/elements.hpp"
#include "tests/support/entry_scene.hpp"

#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

// What a person does with a field, wherever it is on the five tabs.
namespace vkr::test {

// Text as keys: what means something else in the notation stands in braces.
inline std::string keysOf(std::string_view text) {
    std::string keys;
    for (const char c : text)
        if (std::string_view("+^%~(){}").find(c) != std::string_view::npos)
            keys += std::string{'{', c, '}'};
        else
            keys += c;
    return keys;
}

inline int tabOf(const Control& control) {
    const Control* page = &control;
    while (page->container() != nullptr)
        page = page->container();
    return page->name() == "fraDE" && page->index() >= 10 && page->index() <= 14 ? page->index() - 9
                                                                                 : 0;
}

// Brings a control into view.
inline void show(EntryScene& scene, std::string_view id) {
    const Control& control = scene.desktop.control(id);
    const int tab = tabOf(control);
    if (tab != 0 && scene.form().get<TabStrip>("tbsDataEntry").selected() != tab)
        scene.desktop.clickTab(tab);
    if (scene.desktop.canReach(id))
        return;
    if (tab == toYearly)
        scene.desktop.scroll("hscrYearly", control.left() > 3000 ? 30000 : 0);
    else if (tab == toQuarterly)
        scene.desktop.scroll("vscrQuarterly", control.index());
}

inline void goTo(EntryScene& scene, std::string_view id) {
    show(scene, id);
    scene.desktop.click(id);
}

inline void typeAt(EntryScene& scene, std::string_view id, std::string_view keys) {
    show(scene, id);
    scene.typeAt(id, keys);
}

// Empties the field, types and leaves with Tab.
inline void typeOver(EntryScene& scene, std::string_view id, std::string_view text) {
    typeAt(scene, id, "^a{DEL}" + keysOf(text) + "{TAB}");
}

inline void pasteOver(EntryScene& scene, std::string_view id, std::string_view text) {
    scene.desktop.setClipboardText(std::string(text));
    typeAt(scene, id, "^a{DEL}^v{TAB}");
}

inline std::string textOf(const EntryScene& scene, std::string_view id) {
    return dynamic_cast<const TextField&>(scene.desktop.control(id)).text();
}
inline std::string markOf(const EntryScene& scene, std::string_view id) {
    return dynamic_cast<const TextField&>(scene.desktop.control(id)).mark().reason;
}

inline std::vector<TextField*> allFields(const EntryScene& scene) {
    std::vector<TextField*> fields;
    for (const auto& control : scene.form().controls())
        if (auto* field = dynamic_cast<TextField*>(control.get()))
            fields.push_back(field);
    return fields;
}

inline std::vector<std::string> allFieldIds(const EntryScene& scene) {
    std::vector<std::string> ids;
    for (const TextField* field : allFields(scene))
        ids.push_back(field->id());
    return ids;
}

// A scene in which every field can be seen.
inline void showEveryField(EntryScene& scene) {
    scene.entry->put_ShowVLs(true);
    scene.entry->put_ShowReportingPeriod(true);
}

// The names of the data in which two records differ, "YEPSSeries(3)" for an element.
inline std::vector<std::string> changedData(const iVKR_Company& before, const iVKR_Company& after) {
    std::vector<std::string> names;
    for (const auto& difference : differences(before, after))
        names.push_back(difference.datum + (difference.element
                                                ? "(" + std::to_string(*difference.element) + ")"
                                                : ""));
    return names;
}

// A dated company without figures.
inline std::shared_ptr<CompanyRecord> datedCompany(std::int16_t unit = 6) {
    auto company = std::make_shared<CompanyRecord>();
    company->put_LastFYDate(*makeDate(2025, 12, 31));
    company->put_LastFY(2025);
    company->put_LastQDateForGrid(*makeDate(2026, 9, 30));
    company->put_LastQDate(*makeDate(2026, 9, 30));
    company->put_PriceUpdatedDate(*makeDate(2026, 11, 20));
    company->put_LastUpdate(*makeDate(2026, 11, 19));
    company->get_Settings()->put(setting::unit, unit);
    company->get_Settings()->put(setting::currencySymbol, "$");
    return company;
}

} // namespace vkr::test
