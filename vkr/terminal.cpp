// SPDX-License-Identifier: MIT
#include "vkr/terminal.hpp"

#include <QList>
#include <QString>

#include <cassert>
#include <csignal>
#include <cstdio>
#include <unistd.h>

namespace vkr {

namespace {

volatile std::sig_atomic_t toStop = 0;

void noteSignal(int /*signal*/) {
    toStop = 1;
}

// East Asian letters and pictures take two columns.
bool isWide(char32_t letter) {
    struct Range {
        char32_t first, last;
    };
    static constexpr Range ranges[] = {{0x1100, 0x115F},  {0x2E80, 0x303E}, {0x3041, 0xA4CF},
                                       {0xAC00, 0xD7A3},  {0xF900, 0xFAFF}, {0xFE30, 0xFE6F},
                                       {0xFF00, 0xFF60},  {0xFFE0, 0xFFE6}, {0x1F300, 0x1FAFF},
                                       {0x20000, 0x3FFFD}};
    for (const Range& range : ranges)
        if (letter >= range.first && letter <= range.last)
            return true;
    return false;
}

} // namespace

Terminal::Terminal()
    : isTerminal_(isatty(STDERR_FILENO) == 1),
      hasOutput_(isTerminal_ && isatty(STDOUT_FILENO) == 1) {}

void Terminal::checkInvariants() const {
    assert(!isShown_ || isTerminal_);
    assert(!hasOutput_ || isTerminal_);
    assert(!isInLine_ || (hasOutput_ && !isShown_));
}

void Terminal::say(const std::string& words) {
    endProgress();
    std::fprintf(stderr, "%s\n", words.c_str());
}

void Terminal::progress(std::size_t done, std::size_t total, const std::string& what) {
    constexpr std::chrono::milliseconds pause(100);
    const auto now = std::chrono::steady_clock::now();
    if (!isTerminal_ || isInLine_ || now - last_ < pause)
        return;
    last_ = now;
    isShown_ = true;
    if (hasOutput_)
        std::fflush(stdout);
    std::fprintf(stderr, "\r\x1b[K%zu of %zu  %s", done, total, printable(what).c_str());
    std::fflush(stderr);
    checkInvariants();
}

void Terminal::endProgress() {
    if (isShown_)
        std::fputs("\r\x1b[K", stderr);
    isShown_ = false;
}

void Terminal::makeWayFor(std::string_view text) {
    if (!hasOutput_ || text.empty())
        return;
    endProgress();
    isInLine_ = text.back() != '\n';
    checkInvariants();
}

bool Terminal::isToStop() {
    return toStop != 0;
}

void catchSignals() {
    struct sigaction action {};
    action.sa_handler = noteSignal;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
}

std::string printable(const std::string& text) {
    QString shown;
    for (const QChar letter : QString::fromStdString(text))
        if (letter.category() != QChar::Other_Control)
            shown += letter;
        else if (letter == u'\n')
            shown += QStringLiteral("\\n");
        else if (letter == u'\t')
            shown += QStringLiteral("\\t");
        else
            shown += QStringLiteral("\\x%1").arg(letter.unicode(), 2, 16, QLatin1Char('0'));
    return shown.toStdString();
}

int shownWidth(const std::string& text) {
    int width = 0;
    for (const char32_t letter : QString::fromStdString(text).toUcs4()) {
        const QChar::Category category = QChar::category(letter);
        if (category != QChar::Mark_NonSpacing && category != QChar::Mark_Enclosing &&
            category != QChar::Other_Format)
            width += isWide(letter) ? 2 : 1;
    }
    return width;
}

} // namespace vkr
