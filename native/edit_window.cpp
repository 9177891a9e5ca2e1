// SPDX-License-Identifier: MIT
#include "native/edit_window.hpp"

#include "native/native_text.hpp"

#include <algorithm>

namespace vkr {

namespace {

DWORD alignmentOf(const TextBox& box) {
    switch (box.alignment()) {
    case Alignment::center:
        return ES_CENTER;
    case Alignment::right:
        return ES_RIGHT;
    default:
        return ES_LEFT;
    }
}

} // namespace

EditWindow::EditWindow(ViewHost& host, TextBox& box, HWND parent)
    : FieldWindow(host, box), hasLines_(box.multiLine()) {
    const DWORD lines =
        hasLines_ ? ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL | WS_VSCROLL : ES_AUTOHSCROLL;
    create(WC_EDITW, alignmentOf(box) | lines | WS_TABSTOP, parent, WS_EX_CLIENTEDGE);
    send(EM_SETLIMITTEXT, 0x7FFFFFFE); // the model says how much there is room for
}

void EditWindow::show(Property property) {
    static const Setter setters[] = {
        {Property::text, &EditWindow::fitFigure},
        {Property::edit, &EditWindow::fitFigure},
        {Property::place, &EditWindow::fitFigure},
    };
    FieldWindow::show(property);
    ControlWindow::show(property, setters);
}

void EditWindow::showAll() {
    condensed_ = false;
    FieldWindow::showAll();
    if (!condensed_)
        useFont(host().fonts().plain());
}

int EditWindow::margin() const {
    return host().scale().pixels(30);
}

// With each font the system sets margins of its own, which depend on it.
void EditWindow::useFont(HFONT font) {
    pass(mainPart(), WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    pass(mainPart(), EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(margin(), margin()));
}

// A figure that is wider than its cell is condensed: no digit is out of sight.
void EditWindow::fitFigure() {
    static constexpr int narrowest = 50;
    if (static_cast<TextBox&>(*control()).alignment() != Alignment::right)
        return;
    auto& fonts = host().fonts();
    const auto text = toWide(field().text());
    const bool tooWide = fonts.widthOf(text) > room();
    if (!tooWide && !condensed_)
        return;
    condensed_ = tooWide;
    useFont(tooWide ? fonts.fitting(text, room(), narrowest) : fonts.plain());
}

int EditWindow::room() const {
    const int beside = 2 * (margin() + GetSystemMetrics(SM_CXEDGE)) + 1; // and the caret
    return std::max(1, host().scale().place(*control()).width - beside);
}

} // namespace vkr
