// SPDX-License-Identifier: MIT
#include "desktop/qt_values.hpp"

#include <QTextDocument>

#include <algorithm>

namespace vkr {

QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string fromQt(const QString& text) {
    return text.toStdString();
}

int unitsOf(const QString& text, int characters) {
    qsizetype unit = 0;
    for (; characters > 0 && unit < text.size(); --characters)
        unit += text.at(unit).isHighSurrogate() && unit + 1 < text.size() ? 2 : 1;
    return static_cast<int>(unit);
}

int charactersOf(const QString& text, int units) {
    int characters = 0;
    const qsizetype end = std::min<qsizetype>(units, text.size());
    for (qsizetype unit = 0; unit < end; ++characters)
        unit += text.at(unit).isHighSurrogate() && unit + 1 < text.size() ? 2 : 1;
    return characters;
}

int charactersOf(const QString& text) {
    return charactersOf(text, static_cast<int>(text.size()));
}

QColor toQt(Color color) {
    return isSystemColor(color) ? QColor() : QColor(redOf(color), greenOf(color), blueOf(color));
}

Color fromQt(const QColor& color) {
    return colorOf(color.red(), color.green(), color.blue());
}

QDate toQt(Date date) {
    if (isAbsent(date))
        return {};
    const auto day = civil(date);
    return {day.year, day.month, day.day};
}

std::optional<Date> fromQt(QDate date) {
    return date.isValid() ? makeDate(date.year(), date.month(), date.day()) : std::nullopt;
}

QString plainToolTip(const QString& text) {
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

// --- keys --------------------------------------------------------------------------------------

namespace {

struct KeyRow {
    int qtKey;
    KeyCode code;
};
constexpr KeyRow keyRows[] = {
    {Qt::Key_Backspace, keys::backspace},
    {Qt::Key_Tab, keys::tab},
    {Qt::Key_Backtab, keys::tab},
    {Qt::Key_Return, keys::enter},
    {Qt::Key_Enter, keys::enter},
    {Qt::Key_Escape, keys::escape},
    {Qt::Key_Space, keys::space},
    {Qt::Key_PageUp, keys::pageUp},
    {Qt::Key_PageDown, keys::pageDown},
    {Qt::Key_End, keys::end},
    {Qt::Key_Home, keys::home},
    {Qt::Key_Left, keys::left},
    {Qt::Key_Up, keys::up},
    {Qt::Key_Right, keys::right},
    {Qt::Key_Down, keys::down},
    {Qt::Key_Insert, keys::insert},
    {Qt::Key_Delete, keys::del},
    {Qt::Key_Menu, keys::menu},
    {Qt::Key_Apostrophe, keys::apostrophe},
};
constexpr KeyCode keyWithoutCode = 231;

bool isModifier(int key) {
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock:
    case 0:
        return true;
    default:
        return false;
    }
}

bool isPrintable(QChar unit) {
    return unit.isPrint() || unit.isSurrogate() || unit.category() == QChar::Other_Format ||
           unit.category() == QChar::Other_PrivateUse;
}

} // namespace

KeyCode keyCodeOf(const QKeyEvent& event) {
    const int key = event.key();
    for (const auto& row : keyRows)
        if (row.qtKey == key)
            return row.code;
    if ((key == Qt::Key_Period || key == Qt::Key_Comma) &&
        event.modifiers().testFlag(Qt::KeypadModifier))
        return keys::decimal;
    if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z))
        return static_cast<KeyCode>(key);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12)
        return static_cast<KeyCode>(keys::f1 + key - Qt::Key_F1);
    return isModifier(key) && event.text().isEmpty() ? keys::none : keyWithoutCode;
}

int shiftOf(Qt::KeyboardModifiers modifiers) {
    return (modifiers.testFlag(Qt::ShiftModifier) ? shifts::shift : 0) +
           (modifiers.testFlag(Qt::ControlModifier) ? shifts::control : 0) +
           (modifiers.testFlag(Qt::AltModifier) ? shifts::alt : 0);
}

namespace {

// The characters that the key presses: Enter, Backspace, Esc and all that can be printed. Empty
// for shortcuts, arrows, Delete and their like.
QString charactersPressed(const QKeyEvent& event) {
    const auto modifiers = event.modifiers();
    const bool control = modifiers.testFlag(Qt::ControlModifier);
    const bool alt = modifiers.testFlag(Qt::AltModifier);
    if (control != alt) { // both together are AltGr
        // On some keyboards Alt makes other characters of the keys.
        const bool ownCharacter =
            alt && event.text().size() == 1 && event.text().at(0).unicode() >= 0x80;
        if (!ownCharacter)
            return {};
    }
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return QStringLiteral("\r");
    case Qt::Key_Backspace:
        return QStringLiteral("\b");
    case Qt::Key_Escape:
        return QStringLiteral("\x1b");
    default:
        break;
    }
    const QString text = event.text();
    return !text.isEmpty() && isPrintable(text.at(0)) ? text : QString();
}

// To the fields of this desktop.
bool isCommand(const QKeyEvent& event) {
    for (const auto command :
         {QKeySequence::Copy, QKeySequence::Cut, QKeySequence::Paste, QKeySequence::Undo,
          QKeySequence::Redo, QKeySequence::SelectAll, QKeySequence::DeleteStartOfWord,
          QKeySequence::DeleteEndOfWord, QKeySequence::MoveToNextWord,
          QKeySequence::MoveToPreviousWord, QKeySequence::MoveToStartOfDocument,
          QKeySequence::MoveToEndOfDocument})
        if (event.matches(command))
            return true;
    return false;
}

// On the key, whatever is held beside it.
char32_t characterOn(const QKeyEvent& event) {
    constexpr int beyondCharacters = 0x110000;
    if (event.key() < beyondCharacters)
        return static_cast<char32_t>(event.key());
    return event.text().isEmpty() ? U'\0' : event.text().at(0).unicode();
}

} // namespace

Stroke strokeOf(const QKeyEvent& event) {
    Stroke stroke{keyCodeOf(event), shiftOf(event.modifiers()),
                  charactersPressed(event).toStdU32String(), characterOn(event),
                  event.isAutoRepeat()};
    stroke.command = (stroke.shift & shifts::control) != 0 && isCommand(event);
    stroke.systemKey = event.modifiers().testFlag(Qt::MetaModifier);
    return stroke;
}

// --- texts ---------------------------------------------------------------------------------------

QString withLineFeeds(QString text) {
    return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
}

// --- places --------------------------------------------------------------------------------------

QRect toQt(const PixelPlace& place) {
    return {place.left, place.top, place.width, place.height};
}

} // namespace vkr
