// SPDX-License-Identifier: MIT
#include "native/native_services.hpp"

#include "native/calendar_window.hpp"
#include "native/clipboard.hpp"
#include "native/field_window.hpp"
#include "native/native_form.hpp"
#include "native/native_text.hpp"
#include "native/paste_window.hpp"
#include "platform/message_box.hpp"

#include <algorithm>
#include <commdlg.h>

namespace vkr {

// A dialog or a menu that takes keys and pointer for a while.
class NativeServices::Interruption {
  public:
    explicit Interruption(NativeServices& services) : services_(services) {
        services_.form_->interrupted();
    }
    ~Interruption() {
        if (services_.form_ != nullptr) // it may have gone meanwhile
            services_.form_->resumed();
    }
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

  private:
    NativeServices& services_;
};

NativeServices::NativeServices() {
    ownColors_.fill(RGB(255, 255, 255));
}

HWND NativeServices::root() const {
    return GetAncestor(form_->window(), GA_ROOT);
}

PixelScale NativeServices::scale() const {
    return form_ != nullptr ? form_->scale() : PixelScale(GetDpiForSystem());
}

// --- dialogs -------------------------------------------------------------------------------------

namespace {

struct ButtonsRow {
    MessageAnswer first;
    std::size_t count;
    UINT code;
};
constexpr ButtonsRow buttonRows[] = {
    {MessageAnswer::ok, 1, MB_OK},
    {MessageAnswer::ok, 2, MB_OKCANCEL},
    {MessageAnswer::yes, 2, MB_YESNO},
    {MessageAnswer::yes, 3, MB_YESNOCANCEL},
};

UINT iconOf(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::critical:
        return MB_ICONERROR;
    case MessageIcon::question:
        return MB_ICONQUESTION;
    case MessageIcon::warning:
        return MB_ICONWARNING;
    case MessageIcon::information:
        return MB_ICONINFORMATION;
    default:
        return 0;
    }
}

UINT codeOf(const MessageBoxLook& look) {
    const auto* row = std::ranges::find_if(buttonRows, [&](const ButtonsRow& one) {
        return one.first == look.buttons.front() && one.count == look.buttons.size();
    });
    const auto chosen = std::ranges::find(look.buttons, look.chosen) - look.buttons.begin();
    const UINT buttons = row == std::end(buttonRows) ? MB_OK : row->code;
    return buttons | iconOf(look.icon) | static_cast<UINT>(chosen) * MB_DEFBUTTON2;
}

} // namespace

MessageAnswer NativeServices::messageBox(const std::string& text, int buttons,
                                         const std::string& title) {
    const auto look = messageBoxLook(buttons);
    if (form_ == nullptr)
        return look.closed;
    const Interruption interruption(*this);
    const int pressed = MessageBoxW(root(), withNativeBreaks(toWide(text)).c_str(),
                                    toWide(title).c_str(), codeOf(look) | MB_APPLMODAL);
    const auto answer = static_cast<MessageAnswer>(pressed); // the numbers are the same
    return std::ranges::find(look.buttons, answer) == look.buttons.end() ? look.closed : answer;
}

std::optional<Color> NativeServices::chooseColor(Color current) {
    if (form_ == nullptr)
        return std::nullopt;
    const Interruption interruption(*this);
    CHOOSECOLORW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = root();
    dialog.rgbResult = Palette::plain(current);
    dialog.lpCustColors = ownColors_.data();
    dialog.Flags = CC_RGBINIT | CC_FULLOPEN | CC_ANYCOLOR;
    if (ChooseColorW(&dialog) == FALSE)
        return std::nullopt;
    return dialog.rgbResult;
}

void NativeServices::showModal(CalendarForm& form) {
    if (form_ == nullptr) {
        form.pressCancel();
        return;
    }
    {
        const Interruption interruption(*this);
        std::optional<RECT> beside;
        if (const auto* owner = form.owner(); owner != nullptr) {
            const HWND field = form_->windowOf(*owner);
            RECT place;
            if (field != nullptr && IsWindowVisible(field) != FALSE &&
                GetWindowRect(field, &place) != FALSE)
                beside = place;
        }
        CalendarWindow(form, root(), form_->scale(), beside).run();
    }
    if (form.visible()) // it was closed by nobody
        form.pressCancel();
}

void NativeServices::showPaste(PasteForm& form) {
    if (form_ == nullptr) {
        form.pressCancel();
        return;
    }
    {
        const Interruption interruption(*this);
        PasteWindow(form, root(), form_->scale()).run();
    }
    if (form.visible()) // it was closed by nobody
        form.pressCancel();
}

namespace {

// Which of the entries was chosen; 0 for none.
int trackedMenu(const std::vector<MenuItem*>& items, HWND owner, POINT place) {
    const HMENU menu = CreatePopupMenu();
    UINT number = 0;
    for (const auto* item : items) {
        ++number;
        if (!item->visible())
            continue;
        if (item->caption() == "-")
            AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        else
            AppendMenuW(menu, MF_STRING | (item->enabled() ? MF_ENABLED : MF_GRAYED), number,
                        toWide(item->caption()).c_str());
    }
    const int chosen =
        TrackPopupMenuEx(menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON,
                         static_cast<int>(place.x), static_cast<int>(place.y), owner, nullptr);
    DestroyMenu(menu);
    return chosen;
}

} // namespace

int NativeServices::popUpMenu(const std::vector<MenuItem*>& items, Twips left, Twips top) {
    if (form_ == nullptr)
        return -1;
    const auto pressed = form_->pressPlace();
    POINT place{form_->scale().pixels(left), form_->scale().pixels(top)};
    ClientToScreen(form_->window(), &place);
    const Interruption interruption(*this);
    // Under the pointer where a press is under way.
    const int chosen = trackedMenu(items, form_->window(), pressed.value_or(place));
    return chosen == 0 || form_ == nullptr ? -1
                                           : items[static_cast<std::size_t>(chosen) - 1]->index();
}

// --- fields --------------------------------------------------------------------------------------

void NativeServices::tellRefused(TextField& field, const std::string& note) {
    MessageBeep(MB_OK);
    if (form_ != nullptr)
        form_->showNote(field, toWide(note));
}

bool NativeServices::canUndo(const TextField& field) {
    const auto* shown = form_ == nullptr ? nullptr : form_->fieldWindow(field);
    return shown != nullptr && shown->canUndo();
}

void NativeServices::undo(TextField& field) {
    if (auto* shown = form_ == nullptr ? nullptr : form_->fieldWindow(field))
        shown->undo();
}

// --- what the desktop is like --------------------------------------------------------------------

bool NativeServices::clipboardHasText() {
    return clipboard::hasText();
}

std::string NativeServices::clipboardText() {
    return fromWide(clipboard::text());
}

// Spreadsheets write it into a style, as in mso-displayed-decimal-separator:"\,".
std::optional<char> NativeServices::clipboardDecimalMark() {
    constexpr std::string_view name = "mso-displayed-decimal-separator";
    const std::string html = clipboard::html();
    const auto found = html.find(name);
    if (found == std::string::npos)
        return std::nullopt;
    const auto mark = html.find_first_not_of(" \t\r\n:\"'\\", found + name.size());
    if (mark == std::string::npos || (html[mark] != '.' && html[mark] != ','))
        return std::nullopt;
    return html[mark];
}

void NativeServices::clearClipboard() {
    clipboard::clear();
}

void NativeServices::setClipboardText(const std::string& text) {
    clipboard::setText(toWide(text));
}

Date NativeServices::today() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return makeDate(now.wYear, now.wMonth, now.wDay).value_or(Date{});
}

Twips NativeServices::screenWidth() {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    const HWND window = form_ == nullptr ? GetDesktopWindow() : form_->window();
    if (GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor) == FALSE)
        return scale().twips(GetSystemMetrics(SM_CXSCREEN));
    return scale().twips(monitor.rcMonitor.right - monitor.rcMonitor.left);
}

Twips NativeServices::textWidth(std::string_view text) {
    const auto wide = toWide(text);
    return scale().twips(form_ != nullptr ? form_->fonts().widthOf(wide)
                                          : Fonts(scale()).widthOf(wide));
}

Twips NativeServices::textHeight() {
    return scale().twips(form_ != nullptr ? form_->fonts().height() : Fonts(scale()).height());
}

// --- the container -------------------------------------------------------------------------------

std::shared_ptr<Object> NativeServices::createObject(std::string_view programmaticId) {
    return factory_.create(programmaticId);
}

} // namespace vkr
