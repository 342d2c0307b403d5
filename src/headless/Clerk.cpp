// The clerk at the desk: keys, input method, mouse.
#include <cctype>
#include <stdexcept>
#include <string>
#include <utility>

#include "headless/Call.h"
#include "headless/Station.h"
#include "support/Text.h"

namespace kxVsGrid::headless {
namespace {

constexpr char CtrlAtoZ = 0x1F;  ///< a letter's code masked by it is its control character

/// The character that a key types by itself.
std::string characterOf(std::int16_t code, std::int16_t shift) {
    switch (static_cast<Key>(code)) {
        case Key::Enter:
            return "\r";
        case Key::Escape:
            return "\x1b";
        case Key::Back:
            return "\b";
        case Key::Space:
            return " ";
        default:
            break;
    }
    if (code >= 'A' && code <= 'Z') {
        if (shift & CtrlKey) return std::string(1, static_cast<char>(code & CtrlAtoZ));
        return std::string(1, static_cast<char>(shift & ShiftKey ? code : std::tolower(code)));
    }
    if (code >= '0' && code <= '9') return std::string(1, static_cast<char>(code));
    return {};
}

/// Ctrl and this letter, and no other key of its kind.
bool isCtrl(const KeyStroke& key, char letter) {
    return key.code == letter && key.shift == CtrlKey;
}

std::int16_t codeOf(char32_t character) {
    if (character < 0x80 && std::isalnum(static_cast<int>(character)))
        return static_cast<std::int16_t>(std::toupper(static_cast<int>(character)));
    if (character == ' ') return static_cast<std::int16_t>(Key::Space);
    return OtherKey;
}
}  // namespace

Desk& Desk::type(std::string_view text) {
    while (!text.empty()) {
        const std::string character(support::left(text, 1));
        text.remove_prefix(character.size());
        if (character == "\n" || character == "\r")
            press(Key::Enter);
        else
            stroke({codeOf(support::firstCodePoint(character)), 0, character});
    }
    return *this;
}

Desk& Desk::press(Key key, std::int16_t shift) {
    return press(static_cast<std::int16_t>(key), shift);
}

Desk& Desk::press(std::int16_t code, std::int16_t shift) {
    stroke({code, shift, characterOf(code, shift)});
    return *this;
}

void Desk::stroke(const KeyStroke& key) {
    Call call(*this);
    Station& at = station();
    if (records_->focused != &at || at.composing) return;
    records_->leftControl = 0;
    const bool used = at.input()->key(key);
    if (at.removed) return;
    if (!used && static_cast<Key>(key.code) == Key::Tab) {
        const bool forward = (key.shift & ShiftKey) == 0;
        records_->leftControl = forward ? 1 : -1;
        moveFocus(&at, FocusPlace::Elsewhere);
    } else if (!used && records_->place == FocusPlace::Editor) {
        const auto command =
            std::as_const(*at.address).Commands().Of(key.code, key.shift, CommandKey::Where::EditorToo);
        if (command == Command::Undo || command == Command::Redo)
            undoOrRedo(at, *command);
        else
            applyToTextBox(at, key);
    }
    if (!at.removed && records_->focused == &at) at.input()->keyUp(key.code, key.shift);
}

/// What the text box does with the clipboard.
void Desk::editText(Station& at, Command command) {
    const TextLine before = at.box;
    if (command == Command::Paste) {
        at.box.paste(records_->clipboard.text);
    } else if (command == Command::SelectAll) {
        at.box.selectAll();
    } else if (at.box.selLength > 0) {
        records_->clipboard = {at.box.selected(), {}, false};
        if (command == Command::Cut) at.box.key(Key::Delete);
    }
    at.reportChange(before);
}

void Desk::applyToTextBox(Station& at, const KeyStroke& key) {
    for (const auto& [letter, command] : {std::pair{'C', Command::Copy}, std::pair{'X', Command::Cut},
                                          std::pair{'V', Command::Paste}, std::pair{'A', Command::SelectAll}})
        if (isCtrl(key, letter)) return editText(at, command);
    const TextLine before = at.box;
    const bool printable = !key.character.empty() && static_cast<unsigned char>(key.character[0]) >= ' ';
    if (printable)
        at.box.insert(key.character);
    else
        at.box.key(static_cast<Key>(key.code));
    at.reportChange(before);
}

/// What the text box cannot do any more is the grid's.
void Desk::undoOrRedo(Station& at, Command command) {
    const TextLine before = at.box;
    const bool done = command == Command::Undo ? at.box.undo() : at.box.redo();
    if (done)
        at.reportChange(before);
    else
        at.input()->command(command);
}

bool Desk::run(Command command) {
    Call call(*this);
    return station().input()->command(command);
}

// --- Input method

Desk& Desk::compose(std::string_view text) {
    Call call(*this);
    Station& at = station();
    if (records_->focused != &at) return *this;
    if (!at.composing) {
        const bool open = records_->place == FocusPlace::Editor || at.input()->openForTyping();
        if (!open || at.removed) return *this;
        at.composing = true;
        at.input()->composing(true);
    }
    at.composed = text;
    return *this;
}

Desk& Desk::commitComposition(std::string_view text) {
    Call call(*this);
    Station& at = station();
    if (!at.composing) return *this;
    at.composing = false;
    at.composed.clear();
    at.input()->composing(false);
    if (!text.empty() && !at.removed && at.address->editorView().visible) {
        at.box.insert(text);
        at.report();
    }
    return *this;
}

// --- Focus

Desk& Desk::focusGrid() {
    Call call(*this);
    moveFocus(&station(), FocusPlace::Grid);
    return *this;
}

Desk& Desk::focusSurface() {
    Call call(*this);
    moveFocus(&station(), FocusPlace::Surface);
    return *this;
}

/// An input method that is composing commits what it shows before it lets go.
void Desk::endComposition() {
    if (station().composing) commitComposition(std::string(station().composed));
}

Desk& Desk::focusElsewhere() {
    Call call(*this);
    endComposition();
    moveFocus(&station(), FocusPlace::Elsewhere);
    return *this;
}

Desk& Desk::select(std::size_t start, std::size_t length) {
    Call call(*this);
    Station& at = station();
    const std::size_t end = support::characters(at.box.text);
    at.box.selStart = std::min(start, end);
    at.box.selLength = std::min(length, end - at.box.selStart);
    at.input()->selected(at.box.selStart, at.box.selLength);
    return *this;
}

// --- Mouse

Rect Desk::reach(std::int32_t row, std::int32_t col) const {
    const kxGrid& grid = *station().address;
    const CellGrid& cells = grid.Grid();
    Rect cell = cells.CellRect(row, col);
    const std::int32_t x = cell.left + cell.width / 2;
    const std::int32_t y = cell.top + cell.height / 2;
    const GridHit hit = cells.HitTest(x, y);
    if (hit.row != row || hit.col != col)
        throw std::logic_error("cell (" + std::to_string(row) + ", " + std::to_string(col) +
                               ") cannot be hit: it is not in view\n" + ascii());
    cell.left += grid.gridRect().left;
    cell.top += grid.gridRect().top;
    return cell;
}

Desk& Desk::clickCell(std::int16_t button, std::int32_t row, std::int32_t col, std::int16_t shift) {
    const Rect cell = reach(row, col);
    const std::int32_t x = cell.left + cell.width / 2;
    const std::int32_t y = cell.top + cell.height / 2;
    mouseDown(button, shift, x, y);
    if (!station().removed) mouseUp(button, shift, x, y);
    return *this;
}

Desk& Desk::click(std::int32_t row, std::int32_t col, std::int16_t shift) {
    Call call(*this);
    return clickCell(LeftButton, row, col, shift);
}

Desk& Desk::rightClick(std::int32_t row, std::int32_t col, std::int16_t shift) {
    Call call(*this);
    return clickCell(RightButton, row, col, shift);
}

Desk& Desk::drag(std::int32_t fromRow, std::int32_t fromCol, std::int32_t toRow, std::int32_t toCol,
                 std::int16_t shift) {
    Call call(*this);
    const auto middle = [&](std::int32_t row, std::int32_t col) {
        const Rect cell = reach(row, col);
        return Rect{cell.left + cell.width / 2, cell.top + cell.height / 2, 0, 0};
    };
    const Rect from = middle(fromRow, fromCol);
    mouseDown(LeftButton, shift, from.left, from.top);
    if (station().removed) return *this;
    const Rect to = middle(toRow, toCol);
    mouseMove(LeftButton, shift, to.left, to.top);
    if (!station().removed) mouseUp(LeftButton, shift, to.left, to.top);
    return *this;
}

Desk& Desk::doubleClick(std::int32_t row, std::int32_t col) {
    Call call(*this);
    clickCell(LeftButton, row, col, 0);
    Station& at = station();
    if (at.removed) return *this;
    const Rect cell = reach(row, col);
    const std::int32_t x = cell.left + cell.width / 2;
    const std::int32_t y = cell.top + cell.height / 2;
    at.input()->doubleClick(LeftButton, 0, x, y);
    if (!at.removed) at.input()->mouseUp(LeftButton, 0, x, y);
    return *this;
}

Desk& Desk::clickEditor() {
    Call call(*this);
    if (!grid().editorView().visible) throw std::logic_error("the editor cannot be clicked: it is hidden");
    moveFocus(&station(), FocusPlace::Editor);
    return *this;
}

Desk& Desk::pressHelpButton() {
    Call call(*this);
    if (!grid().editorView().visible || !grid().editorView().helpButton)
        throw std::logic_error("the help button cannot be pressed: it is hidden");
    station().input()->helpButtonPressed();
    return *this;
}

Desk& Desk::pressSuggestion(std::size_t index) {
    Call call(*this);
    if (index >= station().suggestions.texts.size())
        throw std::logic_error("no suggestion " + std::to_string(index) + " can be pressed: it is not shown");
    station().input()->suggestionPressed(index);
    return *this;
}

Desk& Desk::mouseDown(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y) {
    Call call(*this);
    endComposition();
    station().input()->mouseDown(button, shift, x, y);
    return *this;
}

Desk& Desk::mouseMove(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y) {
    Call call(*this);
    station().input()->mouseMove(button, shift, x, y);
    return *this;
}

Desk& Desk::mouseUp(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y) {
    Call call(*this);
    station().input()->mouseUp(button, shift, x, y);
    return *this;
}

Desk& Desk::surfaceMouseMove(std::int16_t button, std::int16_t shift, float x, float y) {
    Call call(*this);
    station().input()->surfaceMouseMove(button, shift, x, y);
    return *this;
}

Desk& Desk::dragColumn(std::int32_t col, std::int32_t twips) {
    Call call(*this);
    grid().Grid().userColWidth(col, twips);
    return *this;
}

Desk& Desk::wheel(std::int32_t notches) {
    Call call(*this);
    station().input()->wheel(notches);
    return *this;
}

Desk& Desk::scrollTo(std::int32_t topRow, std::int32_t leftCol) {
    Call call(*this);
    station().input()->scrolled(topRow, leftCol);
    return *this;
}

Desk& Desk::scrollBy(std::int32_t right, std::int32_t down) {
    Call call(*this);
    station().input()->scrolledBy(right, down);
    return *this;
}

Desk& Desk::resize(std::int32_t width, std::int32_t height) {
    Call call(*this);
    if (!current_) {
        records_->width = width;
        records_->height = height;
    } else {
        current_->input()->resized(width, height);
    }
    return *this;
}
}  // namespace kxVsGrid::headless
