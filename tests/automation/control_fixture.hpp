// SPDX-License-Identifier: MIT
#pragma once

#include "tests/automation/test_container.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace vkr::automation {

// A control in a container.
struct Control : WithLibrary {
    ComPtr<::_VKRDataEntry> control = library.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
    ComPtr<TestSite> site = makeCom<TestSite>();

    [[nodiscard]] IDispatch* dispatch() const { return control.get(); }
    template <typename Interface>
    [[nodiscard]] ComPtr<Interface> as() const {
        auto found = queryFor<Interface>(control.get());
        EXPECT_TRUE(found);
        return found;
    }
    void place() {
        EXPECT_EQ(as<IOleObject>()->SetClientSite(site.get()), S_OK);
        site->control = as<IOleInPlaceObject>();
    }
    HRESULT doVerb(LONG verb) {
        return as<IOleObject>()->DoVerb(verb, nullptr, nullptr, 0, nullptr, nullptr);
    }
    void takeAway() {
        const auto object = as<IOleObject>();
        EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
        EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
        site->control.reset();
    }
    // On show with a record, and with the keys.
    void open(::iVKR_Company* company) {
        place();
        EXPECT_EQ(control->putref_objCompany(company), S_OK);
        SetForegroundWindow(site->window);
        EXPECT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
        turn();
    }
    // A key as the loop of a container handles it: the control comes first. What the control said.
    HRESULT press(WPARAM key) {
        MSG message{GetFocus(), WM_KEYDOWN, key, 1, 0, {}};
        const HRESULT used = as<IOleInPlaceActiveObject>()->TranslateAccelerator(&message);
        if (used != S_OK) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        turn();
        return used;
    }
    // Into a field, as far as it is typed by letters and digits.
    void type(std::string_view field, std::string_view text) {
        EXPECT_EQ(control->ShowField(Bstr(field).get()), S_OK);
        for (const char key : text)
            press(static_cast<WPARAM>(key));
    }
    // The text of a field as it is on the screen; it gets the focus.
    std::string shown(std::string_view field) {
        EXPECT_EQ(control->ShowField(Bstr(field).get()), S_OK);
        wchar_t text[300] = {};
        GetWindowTextW(GetFocus(), text, 300);
        return textOf(std::wstring_view(text));
    }
    // The texts of everything that has a window in the form.
    std::vector<std::wstring> texts() {
        HWND window = nullptr;
        EXPECT_EQ(as<IOleInPlaceObject>()->GetWindow(&window), S_OK);
        std::vector<std::wstring> all;
        EnumChildWindows(
            window,
            [](HWND child, LPARAM into) -> BOOL {
                wchar_t text[200] = {};
                GetWindowTextW(child, text, 200);
                reinterpret_cast<std::vector<std::wstring>*>(into)->emplace_back(text);
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&all));
        return all;
    }
    // A record that can only be called by name.
    HRESULT give(IDispatch* record) {
        VARIANT given;
        V_VT(&given) = VT_DISPATCH;
        V_DISPATCH(&given) = record;
        return invoke(dispatch(), idOf(dispatch(), "objCompany"), DISPATCH_PROPERTYPUTREF, {given})
            .result;
    }
    // The names of the fields whose text is not in the record.
    std::vector<std::string> unstored() {
        std::vector<std::string> names;
        const Variant fields = getByName(dispatch(), "UnstoredFields");
        for (std::size_t i = 0; i < fields.array().size(); ++i)
            names.push_back(fields.array().at(static_cast<int>(i)).array().text(0));
        return names;
    }
    ~Control() override {
        site->control.reset();
        control.reset();
        EXPECT_EQ(site->references(), 1U) << "the control has kept its site";
    }
};

} // namespace vkr::automation
