// SPDX-License-Identifier: MIT
#include "control/help_frame.hpp"

#include "control/form_layout.hpp"
#include "control/vkr_data_entry.hpp"
#include "platform/number_text.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <cmath>
#include <string>

namespace vkr {

namespace {

constexpr Twips margin = 300; // what the frame is larger than its text, both sides together
constexpr Twips linkGap = 90; // between text and link
constexpr Twips linkPart = 1.5;
constexpr Twips cornerShift = 60;
// A label breaks its lines a little earlier than the sum of its words says.
constexpr Twips slack = 60;

Twips upToPixel(Twips length) {
    constexpr Twips pixel = 15;
    return std::ceil(length / pixel) * pixel;
}

} // namespace

bool HelpFrame::visible() const {
    return session_.form.get<Frame>("fraDE", frame::help).visible();
}

DataEntryObject HelpFrame::object() const {
    return static_cast<DataEntryObject>(
        leadingNumber(session_.form.get<Label>("lblMoreHelp").tag()));
}

void HelpFrame::ShowHelpFrame(std::string_view text, Twips left, Twips top,
                              DataEntryObject object) {
    const Form::Update update(session_.form);
    auto& label = session_.form.get<Label>("lblToolTip");
    label.setCaption("");
    label.setWordWrap(false);
    label.setCaption(literalCaption(text));
    session_.form.get<Label>("lblMoreHelp").setTag(std::to_string(object));
    SizeHelpFrame();
    auto& frame = session_.form.get<Frame>("fraDE", frame::help);
    const auto& page = session_.form.get<Frame>("fraDE", frame::firstPage);
    frame.move(std::max(0.0, left - frame.width() + cornerShift),
               std::max(0.0, top - frame.height() + page.top()));
    frame.setAccessibleName(text);
    frame.setVisible(true);
    frame.bringToFront();
}

// Lines that a text takes in a width, broken at blanks.
int HelpFrame::linesOf(std::string_view text, Twips width) const {
    int lines = 1;
    std::string line;
    while (!text.empty()) {
        const auto blank = text.find(' ');
        const auto word = text.substr(0, blank);
        text.remove_prefix(blank == std::string_view::npos ? text.size() : blank + 1);
        std::string longer = line.empty() ? std::string(word) : line + " " + std::string(word);
        if (!line.empty() && session_.services.textWidth(longer) > width) {
            ++lines;
            line = word;
        } else {
            line = std::move(longer);
        }
    }
    return lines;
}

void HelpFrame::SizeHelpFrame() {
    auto& label = session_.form.get<Label>("lblToolTip");
    auto& link = session_.form.get<Label>("lblMoreHelp");
    const Twips lineHeight = upToPixel(session_.services.textHeight());
    const Twips linkWidth = upToPixel(session_.services.textWidth(link.caption()));
    const Twips narrowest = linkPart * linkWidth;
    // Half of the form, where the screen is wide enough.
    const Twips widest = std::max(
        narrowest, std::min(session_.services.screenWidth(), VKRDataEntry::workingWidth) / 2);
    Twips width = upToPixel(session_.services.textWidth(label.caption())) + slack;
    int lines = 1;
    if (width > widest) {
        width = upToPixel(widest);
        lines = linesOf(label.caption(), width - slack);
        label.setWordWrap(true);
    }
    width = std::max(width, narrowest);
    label.move(margin / 2, margin / 2);
    label.resize(width, lines * lineHeight);
    link.move(margin / 2, label.top() + label.height() + linkGap);
    link.resize(linkWidth, lineHeight);
    auto& frame = session_.form.get<Frame>("fraDE", frame::help);
    frame.resize(label.width() + margin, link.top() + link.height() + margin / 2);
    for (const auto* name : {"shaBackground", "shaBorder"}) {
        auto& shape = session_.form.get<Shape>(name);
        shape.move(0, 0);
        shape.resize(frame.width(), frame.height());
    }
}

} // namespace vkr
