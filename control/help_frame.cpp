// SPDX-License-Identifier: MIT
#include "control/help_frame.hpp"

#include "form/controls.hpp"
#include "form/sizes.hpp"
#include "platform/error_trap.hpp"
#include "platform/number_text.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace vkr {

namespace {

constexpr Twips margin = 300; // what the frame is larger than its text, both sides together
constexpr Twips linkGap = 90; // between text and link
constexpr Twips linkPart = 1.5;
constexpr Twips cornerShift = 60;
// A label breaks its lines a little earlier than the sum of its words says.
constexpr Twips slack = 60;

constexpr Twips guessedLineHeight = 240; // where the desktop can't tell

// Parted by CR, LF, or both.
std::vector<std::string_view> linesIn(std::string_view text) {
    constexpr std::string_view breaks = "\r\n";
    std::vector<std::string_view> lines;
    for (auto end = text.find_first_of(breaks); end != std::string_view::npos;
         end = text.find_first_of(breaks)) {
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end + (text.substr(end).starts_with(breaks) ? 2 : 1));
    }
    lines.push_back(text);
    return lines;
}

Twips upToPixel(Twips length) {
    constexpr Twips pixel = 15;
    return std::ceil(length / pixel) * pixel;
}

} // namespace

bool HelpFrame::visible() const {
    return context_[controls::helpFrame].visible();
}

DataEntryObject HelpFrame::object() const {
    return static_cast<DataEntryObject>(leadingNumber(context_[controls::moreHelp].tag()));
}

void HelpFrame::ShowHelpFrame(std::string_view text, Twips left, Twips top,
                              DataEntryObject object) {
    const Form::Update update(context_.form);
    auto& label = context_[controls::helpText];
    label.setCaption(literalCaption(text));
    context_[controls::moreHelp].setTag(std::to_string(object));
    SizeHelpFrame();
    auto& frame = context_[controls::helpFrame];
    const auto& page = context_[controls::frames[frame::firstPage]];
    frame.move(std::max(0.0, left - frame.width() + cornerShift),
               std::max(0.0, top - frame.height() + page.top()));
    frame.setAccessibleName(text);
    frame.setVisible(true);
    frame.bringToFront();
}

Twips HelpFrame::widthOf(std::string_view text) const {
    constexpr Twips guessed = 90;
    return attemptOr(textLength(text) * guessed, [&] { return context_.services.textWidth(text); });
}

// As many characters of a word that is too long as a line has room for, one at least.
int HelpFrame::fitting(std::string_view word, Twips width) const {
    int fits = 1;
    for (int tooMany = textLength(word); tooMany - fits > 1;) {
        const int tried = (fits + tooMany) / 2;
        (widthOf(textLeft(word, tried)) > width ? tooMany : fits) = tried;
    }
    return fits;
}

// Lines that a line of the text takes in a width: broken at blanks, and within a word that is too
// long for a line of its own.
int HelpFrame::linesOf(std::string_view text, Twips width) const {
    int lines = 1;
    std::string line;
    while (!text.empty()) {
        const auto blank = text.find(' ');
        auto word = text.substr(0, blank);
        text.remove_prefix(blank == std::string_view::npos ? text.size() : blank + 1);
        if (!line.empty()) {
            line += ' ';
            line += word;
            if (widthOf(line) <= width)
                continue;
            ++lines;
        }
        while (widthOf(word) > width && textLength(word) > 1) {
            word = textFrom(word, fitting(word, width));
            ++lines;
        }
        line = word;
    }
    return lines;
}

void HelpFrame::SizeHelpFrame() {
    auto& label = context_[controls::helpText];
    auto& link = context_[controls::moreHelp];
    const Twips lineHeight =
        upToPixel(attemptOr(guessedLineHeight, [&] { return context_.services.textHeight(); }));
    const Twips linkWidth = upToPixel(widthOf(link.caption()));
    const Twips narrowest = linkPart * linkWidth;
    const Twips screen =
        attemptOr(sizes::workingWidth, [&] { return context_.services.screenWidth(); });
    // Half of the form, where the screen is wide enough.
    const Twips widest = std::max(narrowest, std::min(screen, sizes::workingWidth) / 2);

    const auto ownLines = linesIn(label.caption());
    Twips width = slack;
    for (const auto line : ownLines)
        width = std::max(width, upToPixel(widthOf(line)) + slack);
    auto lines = static_cast<int>(ownLines.size());
    const auto breakAt = [&](Twips limit) {
        width = upToPixel(limit);
        lines = 0;
        for (const auto line : ownLines)
            lines += linesOf(line, width - slack);
    };
    if (width > widest)
        breakAt(widest);
    // What is too high for the form takes its whole width, and is cut where that is not enough.
    const Twips below = margin / 2 + linkGap + lineHeight + margin / 2;
    const int most = static_cast<int>((sizes::workingHeight - below) / lineHeight);
    if (lines > most)
        breakAt(sizes::workingWidth - margin);
    lines = std::min(lines, most);
    label.setWordWrap(lines > 1);
    width = std::max(width, narrowest);
    label.resize(width, lines * lineHeight);
    link.move(label.left(), label.top() + label.height() + linkGap);
    link.resize(linkWidth, lineHeight);
    auto& frame = context_[controls::helpFrame];
    frame.resize(label.width() + margin, link.top() + link.height() + margin / 2);
    for (const auto& name : {controls::helpBackground, controls::helpBorder})
        context_[name].resize(frame.width(), frame.height());
}

} // namespace vkr
