// SPDX-License-Identifier: MIT
// vkr-native-tour <folder>: pictures of the form with a company, tab by tab, with a menu, the help
// and the calendar.
#include "tests/native/answerer.hpp"
#include "tests/native/native_window.hpp"
#include "tests/native/picture.hpp"
#include "tests/support/entry_scene.hpp"

#include <cstdio>
#include <exception>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace vkr;

class Tour {
  public:
    explicit Tour(const std::string& folder) {
        before_ = folder + "/" + std::to_string(GetDpiForWindow(host_.window())) + "-";
    }

    void take() {
        show("empty");
        host_.entry().put_vntExchange(textArray({"Nasdaq", "NYSE", "Xetra"}));
        host_.entry().put_objCompany(fullCompany());
        constexpr const char* names[] = {"company", "yearly", "quarterly", "other", "options"};
        for (int tab = toCompany; tab <= toOptions; ++tab) {
            host_.entry().put_CurrentTab(static_cast<TABObject>(tab));
            show(names[tab - toCompany]);
        }
        host_.entry().put_CurrentTab(toCompany);
        showMarks();
        showList();
        showOpened("calendar", "txtLastUpdate", VK_F4);
        showOpened("menu", "txtName", VK_APPS);
        showBlocks();
        showHelp();
        showDark();
    }

  private:
    // Of the whole screen where a window of its own lies before the form.
    void show(const std::string& name, bool screen = false) {
        host_.pump();
        write(name, screen);
    }
    void write(const std::string& name, bool screen) {
        RedrawWindow(host_.window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        writePicture(screen ? nullptr : host_.window(), before_ + name + ".png");
    }
    void enter(const char* field) {
        host_.entry().showField(field);
        host_.pump();
    }
    void strike(WORD key, int shift = 0) {
        strikeKey(key, shift);
        host_.pump();
    }

    void showMarks() {
        enter("txtPriceUpdate");
        for (const char32_t character : U"Feb 31, 2026")
            if (character != 0)
                strikeCharacter(character);
        strike(VK_TAB);
        enter("txtTotalDebt");
        host_.services().setClipboardText("1.5M");
        strikeKey('V', shifts::control);
        strike(VK_TAB);
        for (const char* imported : {"txtName", "txtCommonShares", "cmbIndustry"})
            host_.entry().form().get<TextField>(imported).setOrigin({"Imported.", true});
        enter("txtCommSO");
        strikeCharacter(U'x');
        show("marks");
    }

    void showList() {
        enter("cmbExchange");
        strike(VK_F4);
        show("list", true);
        strike(VK_ESCAPE);
    }

    // What opens has a loop of its own: a timer takes the picture, and closes it.
    void showOpened(const char* name, const char* field, WORD key, int shift = 0) {
        enter(field);
        name_ = name;
        open_ = this;
        const UINT_PTR timer = SetTimer(nullptr, 0, 300, [](HWND, UINT, UINT_PTR, DWORD) {
            if (Tour* tour = std::exchange(open_, nullptr); tour != nullptr) {
                tour->write(tour->name_, true);
                strikeKey(VK_ESCAPE);
            }
        });
        strike(key, shift);
        KillTimer(nullptr, timer);
    }

    // Several cells, and what a spreadsheet has put on the clipboard.
    void showBlocks() {
        host_.entry().put_CurrentTab(toYearly);
        enter("txtSales(3)");
        for (int step = 0; step < 3; ++step)
            strike(VK_DOWN, shifts::shift);
        strike(VK_RIGHT, shifts::shift);
        show("selection");
        strike(VK_ESCAPE);
        host_.services().setClipboardText("1,234.5\tn/a\r\n(2)\t4\r\n12 %\t\r\n1.5.2\t7\r\n");
        showOpened("paste", "txtSales(3)", 'V', shifts::control);
        host_.entry().put_CurrentTab(toCompany);
    }

    void showHelp() {
        enter("txtName");
        for (const int key : {VK_APPS, VK_UP, VK_RETURN}) // the last entry of the menu
            strikeKey(static_cast<WORD>(key));
        show("help");
    }

    // The system's colours turned round, as people have them who ask for high contrast. What a
    // visual style draws keeps its own.
    void showDark() {
        constexpr std::pair<int, COLORREF> dark[] = {
            {COLOR_BTNFACE, RGB(32, 32, 32)},        {COLOR_WINDOW, RGB(0, 0, 0)},
            {COLOR_BTNTEXT, RGB(255, 255, 255)},     {COLOR_WINDOWTEXT, RGB(255, 255, 255)},
            {COLOR_GRAYTEXT, RGB(63, 242, 63)},      {COLOR_BTNSHADOW, RGB(128, 128, 128)},
            {COLOR_BTNHIGHLIGHT, RGB(96, 96, 96)},   {COLOR_3DDKSHADOW, RGB(255, 255, 255)},
            {COLOR_HIGHLIGHT, RGB(26, 235, 255)},    {COLOR_HIGHLIGHTTEXT, RGB(0, 0, 0)},
            {COLOR_WINDOWFRAME, RGB(255, 255, 255)},
        };
        std::vector<int> names;
        std::vector<COLORREF> colors;
        std::vector<COLORREF> before;
        for (const auto& [name, color] : dark) {
            names.push_back(name);
            colors.push_back(color);
            before.push_back(GetSysColor(name));
        }
        SetSysColors(static_cast<int>(names.size()), names.data(), colors.data());
        SendMessageW(host_.form().window(), WM_SYSCOLORCHANGE, 0, 0);
        host_.form().palette().follow(true); // Wine has no way to ask for it
        for (const auto& [tab, name] :
             {std::pair{toCompany, "dark-company"}, std::pair{toYearly, "dark-yearly"},
              std::pair{toOptions, "dark-options"}}) {
            host_.entry().put_CurrentTab(tab);
            show(name);
        }
        SetSysColors(static_cast<int>(names.size()), names.data(), before.data());
        host_.form().palette().follow();
    }

    static inline Tour* open_ = nullptr; // while something is open
    NativeWindow host_;
    std::string before_;
    std::string name_;
};

} // namespace

int main(int count, char** arguments) {
    try {
        if (count != 2)
            throw std::runtime_error("which folder?");
        Tour(arguments[1]).take();
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vkr-native-tour: %s\n", error.what());
        return 1;
    }
}
