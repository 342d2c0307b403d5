#include "qt/KeyMap.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "support/Text.h"

namespace kxVsGrid::qt {
namespace {

struct Named {
    int key;
    std::int16_t code;
};

constexpr Named named[] = {
    {Qt::Key_Backspace, 8},
    {Qt::Key_Tab, 9},
    {Qt::Key_Backtab, 9},
    {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},
    {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},
    {Qt::Key_Pause, 19},
    {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, 27},
    {Qt::Key_Space, 32},
    {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},
    {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},
    {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},
    {Qt::Key_Down, 40},
    {Qt::Key_Print, 44},
    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},
    {Qt::Key_Help, 47},
    {Qt::Key_Menu, 93},
    {Qt::Key_NumLock, 144},
    {Qt::Key_ScrollLock, 145},
    // punctuation has codes beyond the letters, so that a point is not taken for Delete
    {Qt::Key_Semicolon, 186},
    {Qt::Key_Colon, 186},
    {Qt::Key_Equal, 187},
    {Qt::Key_Plus, 187},
    {Qt::Key_Comma, 188},
    {Qt::Key_Less, 188},
    {Qt::Key_Minus, 189},
    {Qt::Key_Underscore, 189},
    {Qt::Key_Period, 190},
    {Qt::Key_Greater, 190},
    {Qt::Key_Slash, 191},
    {Qt::Key_Question, 191},
    {Qt::Key_QuoteLeft, 192},
    {Qt::Key_AsciiTilde, 192},
    {Qt::Key_BracketLeft, 219},
    {Qt::Key_BraceLeft, 219},
    {Qt::Key_Backslash, 220},
    {Qt::Key_Bar, 220},
    {Qt::Key_BracketRight, 221},
    {Qt::Key_BraceRight, 221},
    {Qt::Key_Apostrophe, 222},
    {Qt::Key_QuoteDbl, 222},
    // the shifted digits of the usual keyboard
    {Qt::Key_ParenRight, '0'},
    {Qt::Key_Exclam, '1'},
    {Qt::Key_At, '2'},
    {Qt::Key_NumberSign, '3'},
    {Qt::Key_Dollar, '4'},
    {Qt::Key_Percent, '5'},
    {Qt::Key_AsciiCircum, '6'},
    {Qt::Key_Ampersand, '7'},
    {Qt::Key_Asterisk, '8'},
    {Qt::Key_ParenLeft, '9'},
};

constexpr std::int16_t FirstFunctionKey = 112;

bool isKeypadDecimal(const QKeyEvent& event) {
    const bool decimal = event.key() == Qt::Key_Comma || event.key() == Qt::Key_Period;
    return decimal && event.modifiers().testFlag(Qt::KeypadModifier);
}

std::int16_t codeOf(const QKeyEvent& event) {
    const int key = event.key();
    if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z))
        return static_cast<std::int16_t>(key);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return static_cast<std::int16_t>(FirstFunctionKey + (key - Qt::Key_F1));
    if (isKeypadDecimal(event)) return 190;
    const auto* found =
        std::find_if(std::begin(named), std::end(named), [&](const Named& n) { return n.key == key; });
    return found == std::end(named) ? OtherKey : found->code;
}

std::string characterOf(const QKeyEvent& event, std::int16_t code) {
    switch (event.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return "\r";
        case Qt::Key_Escape:
            return "\x1b";
        case Qt::Key_Backspace:
            return "\b";
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Delete:
            return {};
        default:
            break;
    }
    const bool ctrl = event.modifiers().testFlag(Qt::ControlModifier);
    const bool alt = event.modifiers().testFlag(Qt::AltModifier);
    // Ctrl and Alt together type the third character of a key
    if (ctrl && !alt) {
        if (code >= 'A' && code <= 'Z') return std::string(1, static_cast<char>(code - 'A' + 1));
        return event.key() == Qt::Key_Space ? " " : "";
    }
    if ((alt && !ctrl) || event.modifiers().testFlag(Qt::MetaModifier)) return {};
    if (isKeypadDecimal(event)) return ".";
    const QString text = event.text();
    if (text.isEmpty() || text[0] < u' ' || text[0] == QChar(0x7F)) return {};
    return text.toStdString();
}

/// Every control begins with it: when it is no command's there, the host has taken it away.
bool isDefaultKey(const KeyStroke& stroke) {
    const auto keys = defaultKeys();
    return std::any_of(keys.begin(), keys.end(), [&](const CommandKey& key) {
        return key.code == stroke.code && key.shift == stroke.shift;
    });
}

/// The other way round; the first name of a code is that of the unshifted key.
Qt::Key qtKeyOf(std::int16_t code) {
    if (code >= FirstFunctionKey && code < FirstFunctionKey + 24)
        return static_cast<Qt::Key>(Qt::Key_F1 + (code - FirstFunctionKey));
    const auto* found =
        std::find_if(std::begin(named), std::end(named), [code](const Named& n) { return n.code == code; });
    const bool letterOrDigit = (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9');
    return static_cast<Qt::Key>(letterOrDigit || found == std::end(named) ? code : found->key);
}
}  // namespace

std::optional<Command> desktopCommandOf(const QKeyEvent& event, CommandKey::Where where) {
    if (event.matches(QKeySequence::Undo)) return Command::Undo;
    if (event.matches(QKeySequence::Redo)) return Command::Redo;
    if (where == CommandKey::Where::EditorToo) return {};
    if (event.matches(QKeySequence::Copy)) return Command::Copy;
    if (event.matches(QKeySequence::Cut)) return Command::Cut;
    if (event.matches(QKeySequence::Paste)) return Command::Paste;
    if (event.matches(QKeySequence::SelectAll)) return Command::SelectAll;
    return {};
}

std::optional<Command> ownCommandOf(const QKeyEvent& event, const kxGrid& grid, CommandKey::Where where) {
    const KeyStroke stroke = strokeOf(event);
    const auto own = grid.Commands().Of(stroke.code, stroke.shift, where);
    return own == Command::HeaderMenu && !grid.Options().HeaderMenu() ? std::nullopt : own;
}

std::optional<Command> commandOf(const QKeyEvent& event, const kxGrid& grid, CommandKey::Where where) {
    const KeyStroke stroke = strokeOf(event);
    if (const auto own = ownCommandOf(event, grid, where)) return own;
    return isDefaultKey(stroke) ? std::nullopt : desktopCommandOf(event, where);
}

QList<QKeySequence> sequencesOf(Command command, const Commands& commands) {
    QList<QKeySequence> sequences;
    for (const CommandKey& key : commands.Keys()) {
        if (key.command != command) continue;
        Qt::KeyboardModifiers modifiers;
        modifiers.setFlag(Qt::ControlModifier, (key.shift & CtrlKey) != 0);
        modifiers.setFlag(Qt::ShiftModifier, (key.shift & ShiftKey) != 0);
        modifiers.setFlag(Qt::AltModifier, (key.shift & AltKey) != 0);
        sequences << QKeySequence(QKeyCombination(modifiers, qtKeyOf(key.code)));
    }
    return sequences;
}

std::int16_t shiftOf(Qt::KeyboardModifiers modifiers) {
    int shift = 0;
    if (modifiers.testFlag(Qt::ShiftModifier)) shift += ShiftKey;
    if (modifiers.testFlag(Qt::ControlModifier)) shift += CtrlKey;
    if (modifiers.testFlag(Qt::AltModifier)) shift += AltKey;
    return static_cast<std::int16_t>(shift);
}

std::int16_t buttonsOf(Qt::MouseButtons buttons) {
    int sum = 0;
    if (buttons.testFlag(Qt::LeftButton)) sum += LeftButton;
    if (buttons.testFlag(Qt::RightButton)) sum += RightButton;
    if (buttons.testFlag(Qt::MiddleButton)) sum += MiddleButton;
    return static_cast<std::int16_t>(sum);
}

KeyStroke strokeOf(const QKeyEvent& event) {
    KeyStroke stroke;
    stroke.code = codeOf(event);
    stroke.shift = shiftOf(event.modifiers());
    if (event.key() == Qt::Key_Backtab) stroke.shift |= ShiftKey;
    stroke.character = characterOf(event, stroke.code);
    return stroke;
}

KeyStroke strokeOf(char32_t character) {
    KeyStroke stroke;
    const bool digit = character >= U'0' && character <= U'9';
    const bool capital = character >= U'A' && character <= U'Z';
    const bool small = character >= U'a' && character <= U'z';
    stroke.code = OtherKey;
    if (digit || capital) stroke.code = static_cast<std::int16_t>(character);
    if (small) stroke.code = static_cast<std::int16_t>(character - U'a' + U'A');
    stroke.character = support::utf8(character);
    return stroke;
}
}  // namespace kxVsGrid::qt
