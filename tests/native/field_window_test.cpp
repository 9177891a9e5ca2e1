// SPDX-License-Identifier: MIT
#include "company/company_record.hpp"
#include "native/drawing.hpp"
#include "native/field_window.hpp"
#include "native/native_text.hpp"
#include "platform/readable_color.hpp"
#include "tests/native/native_window.hpp"
#include "tests/support/entry_scene.hpp"

#include <gtest/gtest.h>
#include <map>
#include <oleacc.h>
#include <string>
#include <vector>

namespace vkr {
namespace {

class FieldWindowTest : public testing::Test {
  protected:
    TextField& field(std::string_view name) { return host_.entry().form().get<TextField>(name); }
    HWND window(std::string_view name) { return host_.form().windowOf(field(name)); }

    // The colours of the field, as it draws itself into the context of another program.
    class Picture {
      public:
        Picture(NativeForm& form, HWND field) {
            RECT all;
            GetClientRect(form.window(), &all);
            GetWindowRect(field, &place_);
            MapWindowPoints(nullptr, form.window(), reinterpret_cast<POINT*>(&place_), 2);
            const WindowContext screen(nullptr);
            bitmap_.reset(CreateCompatibleBitmap(screen, all.right, all.bottom));
            context_ = CreateCompatibleDC(screen);
            before_ = SelectObject(context_, bitmap_.get());
            form.draw(context_);
        }
        ~Picture() {
            SelectObject(context_, before_);
            DeleteDC(context_);
        }
        Picture(const Picture&) = delete;
        Picture& operator=(const Picture&) = delete;

        [[nodiscard]] COLORREF at(int left, int top) const {
            return GetPixel(context_, place_.left + left, place_.top + top);
        }
        [[nodiscard]] int width() const { return place_.right - place_.left; }
        [[nodiscard]] int height() const { return place_.bottom - place_.top; }

      private:
        RECT place_{};
        Gdi<HBITMAP> bitmap_;
        HDC context_ = nullptr;
        HGDIOBJ before_ = nullptr;
    };

    NativeWindow host_;
};

TEST_F(FieldWindowTest, HasItsTextInTheMiddleAtAnyResolution) {
    for (const double dots : {96.0, 144.0, 192.0}) {
        host_.form().setDotsPerInch(dots);
        for (const char* name : {"txtName", "txtTotalDebt", "cmbExchange"}) {
            const HWND whole = window(name);
            const HWND inner = FindWindowExW(whole, nullptr, WC_EDITW, nullptr);
            const HWND edit = inner == nullptr ? whole : inner;
            RECT around;
            GetWindowRect(whole, &around);
            RECT text;
            GetClientRect(edit, &text);
            MapWindowPoints(edit, nullptr, reinterpret_cast<POINT*>(&text), 2);
            EXPECT_LE(std::abs((text.top - around.top) - (around.bottom - text.bottom)), 2)
                << name << " at " << dots;
            EXPECT_LE(text.bottom - text.top, host_.form().fonts().height() + 1)
                << name << " at " << dots;
        }
    }
}

TEST_F(FieldWindowTest, TakesAPressAboveItsText) {
    host_.form().setDotsPerInch(192);
    const HWND edit = window("txtName");
    RECT whole;
    GetWindowRect(edit, &whole);
    EXPECT_EQ(SendMessageW(edit, WM_NCHITTEST, 0, MAKELPARAM(whole.left + 20, whole.top + 4)),
              HTCLIENT);
}

TEST_F(FieldWindowTest, IsOfOneColourAroundItsText) {
    host_.form().setDotsPerInch(192);
    auto& name = field("txtName");
    name.setText("");
    for (const Color back : {colors::white, colors::paleCyan}) {
        name.setBackColor(back);
        const Picture picture(host_.form(), window("txtName"));
        for (const int top : {4, picture.height() / 2, picture.height() - 5})
            EXPECT_EQ(picture.at(picture.width() / 2, top), static_cast<COLORREF>(back)) << top;
    }
}

TEST_F(FieldWindowTest, HasACornerWhereTheFigureComesFromElsewhere) {
    const auto corner = readable(mark_colors::origin, colors::white, signContrast);
    // Where the text does not begin: figures are on the right.
    for (const auto& [name, atLeft] : std::map<std::string, bool>{
             {"txtName", false}, {"txtTotalDebt", true}, {"cmbExchange", false}}) {
        const auto colorOfCorner = [&, atLeft = atLeft, name = name] {
            const Picture picture(host_.form(), window(name));
            return picture.at(atLeft ? 2 : picture.width() - 3, 2);
        };
        field(name).setBackColor(colors::white);
        EXPECT_NE(colorOfCorner(), corner) << name;
        field(name).setOrigin({"Imported.", false});
        EXPECT_NE(colorOfCorner(), corner) << name;
        field(name).setOrigin({"Imported.", true});
        EXPECT_EQ(colorOfCorner(), corner) << name;
        field(name).setOrigin({});
        EXPECT_NE(colorOfCorner(), corner) << name;
    }
}

TEST_F(FieldWindowTest, ScreenReadersHearItsNameAndItsText) {
    host_.entry().put_objCompany(fullCompany());
    host_.pump();
    const auto heard = [](HWND window,
                          HRESULT (STDMETHODCALLTYPE IAccessible::*told)(VARIANT, BSTR*)) {
        void* found = nullptr;
        EXPECT_EQ(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT),
                                             __uuidof(IAccessible), &found),
                  S_OK);
        auto* const object = static_cast<IAccessible*>(found);
        VARIANT self{};
        V_VT(&self) = VT_I4;
        V_I4(&self) = CHILDID_SELF;
        BSTR text = nullptr;
        (object->*told)(self, &text);
        object->Release();
        const std::string plain = text == nullptr ? "" : fromWide({text, SysStringLen(text)});
        SysFreeString(text);
        return plain;
    };
    for (const auto& [name, label] :
         std::map<std::string, std::string>{{"txtName", "Name"},
                                            {"txtTotalDebt", "Total Debt (M)"},
                                            {"cmbExchange", "Exchange"}}) {
        const HWND inner = FindWindowExW(window(name), nullptr, WC_EDITW, nullptr);
        const HWND edit = inner == nullptr ? window(name) : inner;
        EXPECT_EQ(heard(edit, &IAccessible::get_accName), label);
        EXPECT_EQ(heard(edit, &IAccessible::get_accValue), field(name).text());
    }
}

} // namespace
} // namespace vkr
