// SPDX-License-Identifier: MIT
#include "native/paste_window.hpp"

#include "native/native_text.hpp"
#include "platform/during.hpp"
#include "platform/paste_list.hpp"

#include <algorithm>
#include <string>

namespace vkr {

namespace {

// Breaks and runs of blanks take no more than one blank.
std::wstring inOneLine(std::string_view text) {
    std::wstring line;
    for (const wchar_t unit : toWide(text))
        if (unit > L' ')
            line += unit;
        else if (!line.empty() && line.back() != L' ')
            line += L' ';
    if (!line.empty() && line.back() == L' ')
        line.pop_back();
    return line;
}

} // namespace

PasteWindow::PasteWindow(PasteForm& form, HWND owner, const PixelScale& scale)
    : DialogWindow(form.caption(), owner, scale, WS_THICKFRAME), form_(form) {
    addSwitches();
    summary_ = addPart(WC_STATICW, L"", SS_NOPREFIX, summaryPart, {});
    addList();
    ok_ = addPart(WC_BUTTONW, L"", BS_DEFPUSHBUTTON | WS_TABSTOP, okPart, {});
    cancel_ = addPart(WC_BUTTONW, toWide(form.cancelCaption()), BS_PUSHBUTTON | WS_TABSTOP,
                      cancelPart, {});
    placeSwitches();
    showForm();
    giveRoom(wantedRoom());
}

HWND PasteWindow::first() const {
    return form_.canPaste() ? ok_ : cancel_;
}

// --- parts ---------------------------------------------------------------------------------------

void PasteWindow::addSwitches() {
    int part = firstSwitchPart;
    for (const PasteSwitch& one : form_.switches()) {
        const auto caption = toWide(one.caption);
        if (one.entries.empty()) {
            switches_.push_back(
                {addPart(WC_BUTTONW, caption, BS_AUTOCHECKBOX | WS_TABSTOP, part++, {}), nullptr});
            continue;
        }
        const HWND label = addPart(WC_STATICW, caption, 0, -1, {}); // in front: it names the list
        const HWND list =
            addPart(WC_COMBOBOXW, L"", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, part++, {});
        for (const auto& entry : one.entries)
            SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(toWide(entry).c_str()));
        switches_.push_back({list, label});
    }
}

// The system asks for the texts of the lines that it shows.
void PasteWindow::addList() {
    lines_ = addPart(WC_LISTVIEWW, toWide(form_.caption()),
                     LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS |
                         LVS_NOSORTHEADER | WS_BORDER | WS_TABSTOP,
                     linesPart, {});
    SendMessageW(lines_, LVM_SETEXTENDEDLISTVIEWSTYLE, 0,
                 LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP);
    for (int column = 0; column < columns; ++column) {
        auto head = toWide(form_.heads()[static_cast<std::size_t>(column)]);
        LVCOLUMNW added{};
        added.mask = LVCF_FMT | LVCF_TEXT | LVCF_SUBITEM;
        added.fmt = paste_list::isFigure(column) ? LVCFMT_RIGHT : LVCFMT_LEFT;
        added.pszText = head.data();
        added.iSubItem = column;
        SendMessageW(lines_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&added));
    }
}

// What is on or off on the left, lists with their captions on the right.
void PasteWindow::placeSwitches() {
    const int gap = scale().pixels(120);
    const int height = std::max(scale().pixels(315), fonts().height() + scale().pixels(120));
    const int mark = height; // of a check box, and the arrow of a list
    int boxWidth = 0;
    int labelWidth = 0;
    int listWidth = 0;
    for (const PasteSwitch& one : form_.switches()) {
        const int width = fonts().widthOf(toWide(one.caption)) + gap;
        (one.entries.empty() ? boxWidth : labelWidth) =
            std::max(one.entries.empty() ? boxWidth : labelWidth, width);
        for (const auto& entry : one.entries)
            listWidth = std::max(listWidth, fonts().widthOf(toWide(entry)) + gap + mark);
    }
    int boxTop = gap;
    int listTop = gap;
    const int left = gap + boxWidth + mark + 2 * gap;
    for (const Switch& one : switches_) {
        if (one.label == nullptr) {
            MoveWindow(one.window, gap, boxTop, boxWidth + mark, height, FALSE);
            boxTop += height;
            continue;
        }
        MoveWindow(one.label, left, listTop + (height - fonts().height()) / 2, labelWidth,
                   fonts().height(), FALSE);
        MoveWindow(one.window, left + labelWidth, listTop, listWidth, 10 * height, FALSE);
        listTop += height + gap / 2;
    }
    switchesBottom_ = std::max(boxTop, listTop) + gap / 2;
}

SIZE PasteWindow::wantedRoom() const {
    const int lines = (paste_list::linesOnShow + 2) * (fonts().height() + scale().pixels(60));
    return {paste_list::charactersOnShow * fonts().widthOf(L"0"),
            switchesBottom_ + lines + 3 * fonts().height() + scale().pixels(900)};
}

void PasteWindow::layOut(SIZE inside) {
    const int gap = scale().pixels(120);
    const int buttonHeight = scale().pixels(345);
    const int buttonWidth =
        std::max(scale().pixels(1215), fonts().widthOf(toWide(form_.okCaption())) + 4 * gap);
    const int width = std::max<int>(1, inside.cx - 2 * gap);
    const int summaryHeight = 2 * fonts().height(); // it may take two lines
    const int listTop = switchesBottom_ + summaryHeight + gap / 2;
    const int buttonTop = std::max<int>(listTop, inside.cy - gap - buttonHeight);
    MoveWindow(summary_, gap, switchesBottom_, width, summaryHeight, TRUE);
    MoveWindow(lines_, gap, listTop, width, std::max(0, buttonTop - gap - listTop), TRUE);
    MoveWindow(cancel_, inside.cx - gap - buttonWidth, buttonTop, buttonWidth, buttonHeight, TRUE);
    MoveWindow(ok_, inside.cx - 2 * (gap + buttonWidth), buttonTop, buttonWidth, buttonHeight,
               TRUE);
}

// --- showing the form ----------------------------------------------------------------------------

void PasteWindow::showForm() {
    const During showing(showing_);
    for (std::size_t index = 0; index < switches_.size(); ++index) {
        const PasteSwitch& one = form_.switches()[index];
        const HWND shown = switches_[index].window;
        const UINT message = one.entries.empty() ? BM_SETCHECK : CB_SETCURSEL;
        SendMessageW(shown, message, static_cast<WPARAM>(one.chosen), 0);
        EnableWindow(shown, one.enabled ? TRUE : FALSE);
    }
    SetWindowTextW(summary_, withNativeBreaks(toWide(form_.summary())).c_str());
    SetWindowTextW(ok_, toWide(form_.okCaption()).c_str());
    if (!form_.canPaste() && GetFocus() == ok_)
        SetFocus(cancel_); // a window that is disabled would keep the keys
    EnableWindow(ok_, form_.canPaste() ? TRUE : FALSE);
    showLines();
}

void PasteWindow::showLines() {
    constexpr int measured = 500; // of a huge block, so that it is on show at once
    const int count = static_cast<int>(form_.lines().size());
    const int beside = scale().pixels(240);
    for (int column = 0; column < columns; ++column) {
        int width = fonts().widthOf(toWide(form_.heads()[static_cast<std::size_t>(column)]));
        for (int row = 0; row < std::min(count, measured); ++row)
            width = std::max(width, fonts().widthOf(textOf(row, column)));
        SendMessageW(lines_, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), width + beside);
    }
    SendMessageW(lines_, LVM_SETITEMCOUNT, static_cast<WPARAM>(count), 0);
    InvalidateRect(lines_, nullptr, TRUE);
}

std::wstring PasteWindow::textOf(int row, int column) const {
    if (row < 0 || row >= static_cast<int>(form_.lines().size()) || column < 0 || column >= columns)
        return {};
    return inOneLine(paste_list::textIn(form_.lines()[static_cast<std::size_t>(row)], column));
}

void PasteWindow::tellText(NMLVDISPINFOW& wanted) const {
    if ((wanted.item.mask & LVIF_TEXT) == 0 || wanted.item.cchTextMax <= 0)
        return;
    const auto text = textOf(wanted.item.iItem, wanted.item.iSubItem);
    const auto room = static_cast<std::size_t>(wanted.item.cchTextMax) - 1;
    const auto length = std::min(text.size(), room);
    std::copy_n(text.begin(), length, wanted.item.pszText);
    wanted.item.pszText[length] = L'\0';
}

COLORREF PasteWindow::inkOf(const PasteLine& line, int column) const {
    const COLORREF ink = GetSysColor(COLOR_WINDOWTEXT);
    return palette_.highContrast()
               ? ink
               : paste_list::inkOf(line.fate, column, ink, GetSysColor(COLOR_WINDOW));
}

LRESULT PasteWindow::paintLine(NMLVCUSTOMDRAW& drawn) const {
    switch (drawn.nmcd.dwDrawStage) {
    case CDDS_PREPAINT:
        return CDRF_NOTIFYITEMDRAW;
    case CDDS_ITEMPREPAINT:
        return CDRF_NOTIFYSUBITEMDRAW;
    case CDDS_ITEMPREPAINT | CDDS_SUBITEM:
        if (const auto row = static_cast<std::size_t>(drawn.nmcd.dwItemSpec);
            row < form_.lines().size())
            drawn.clrText = inkOf(form_.lines()[row], drawn.iSubItem);
        return CDRF_NEWFONT;
    default:
        return CDRF_DODEFAULT;
    }
}

// --- messages ------------------------------------------------------------------------------------

void PasteWindow::turn(int index) {
    if (showing_)
        return;
    const HWND turned = switches_[static_cast<std::size_t>(index)].window;
    const bool box = form_.switches()[static_cast<std::size_t>(index)].entries.empty();
    form_.setSwitch(index,
                    static_cast<int>(SendMessageW(turned, box ? BM_GETCHECK : CB_GETCURSEL, 0, 0)));
    showForm();
}

std::optional<LRESULT> PasteWindow::handleOwn(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SIZE:
        if (cancel_ != nullptr)
            layOut({LOWORD(lParam), HIWORD(lParam)});
        return 0;
    case DM_GETDEFID: // what Enter presses
        return MAKELRESULT(GetFocus() == cancel_ ? cancelPart : okPart, DC_HASDEFID);
    case WM_COMMAND: {
        const int index = LOWORD(wParam) - firstSwitchPart;
        if (index < 0 || index >= static_cast<int>(switches_.size()))
            return std::nullopt;
        const bool box = switches_[static_cast<std::size_t>(index)].label == nullptr;
        if (HIWORD(wParam) == (box ? BN_CLICKED : CBN_SELCHANGE))
            turn(index);
        return 0;
    }
    case WM_NOTIFY: {
        auto* told = reinterpret_cast<NMHDR*>(lParam);
        if (told->hwndFrom != lines_)
            return std::nullopt;
        if (told->code == LVN_GETDISPINFOW)
            tellText(*reinterpret_cast<NMLVDISPINFOW*>(lParam));
        return told->code == NM_CUSTOMDRAW ? paintLine(*reinterpret_cast<NMLVCUSTOMDRAW*>(lParam))
                                           : 0;
    }
    default:
        return std::nullopt;
    }
}

} // namespace vkr
