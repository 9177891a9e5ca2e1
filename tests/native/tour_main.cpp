// SPDX-License-Identifier: MIT
// vkr-native-tour <folder>: pictures of the form with a company, tab by tab, with a menu, the help
// and the calendar.
#include "company/company_csv.hpp"
#include "tests/native/native_window.hpp"
#include "tests/native/picture.hpp"
#include "tests/support/entry_scene.hpp"

#include <cstdio>
#include <exception>
#include <string>

namespace {

using namespace vkr;

void show(NativeWindow& host, const std::string& file) {
    host.pump();
    RedrawWindow(host.window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    writePicture(host.window(), file);
}

void take(const std::string& folder) {
    NativeWindow host;
    const std::string before = folder + "/" + std::to_string(GetDpiForWindow(host.window())) + "-";
    show(host, before + "empty.png");
    host.entry().put_objCompany(fullCompany());
    constexpr const char* names[] = {"company", "yearly", "quarterly", "other", "options"};
    for (int tab = toCompany; tab <= toOptions; ++tab) {
        host.entry().put_CurrentTab(static_cast<TABObject>(tab));
        show(host, before + names[tab - toCompany] + ".png");
    }
}

} // namespace

int main(int count, char** arguments) {
    try {
        if (count != 2)
            throw std::runtime_error("which folder?");
        take(arguments[1]);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vkr-native-tour: %s\n", error.what());
        return 1;
    }
}
