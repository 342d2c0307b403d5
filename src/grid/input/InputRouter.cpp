#include "grid/input/InputRouter.h"

#include <type_traits>

#include "grid/input/PressedRow.h"
#include "support/FlagSpan.h"
#include "support/Text.h"

namespace kxVsGrid::grid {
namespace {

constexpr std::int32_t RowsPerNotch = 3;

/// A character as the 16 bits of a key press. One beyond ASCII must not look like a control character.
std::int16_t asciiOf(std::string_view character) {
    const char32_t codePoint = support::firstCodePoint(character);
    if (codePoint < 0x80) return static_cast<std::int16_t>(codePoint);
    const auto ascii = static_cast<std::int16_t>(static_cast<std::uint16_t>(codePoint));
    const bool printable = codePoint <= 0xFFFF && (ascii > 32 || ascii < 0);
    return printable ? ascii : std::int16_t{-1};
}

/// Counts a call for its length.
class Counted {
  public:
    explicit Counted(int& count) : count_(count) { ++count_; }
    ~Counted() { --count_; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

  private:
    int& count_;
};
}  // namespace

// --- Focus

void InputRouter::focusMoved(FocusPlace place) {
    const FocusPlace from = place_;
    if (from == place) return;
    place_ = place;
    // The help button belongs to the editor: pressing it commits nothing.
    if (from == FocusPlace::Editor && place != FocusPlace::HelpButton) c_.editor.focusLost();
    if (from == FocusPlace::HelpButton && place != FocusPlace::Editor) c_.editor.focusLost();
    if (place == FocusPlace::Grid) moveEvents_.gainedFocus();
}

void InputRouter::takeKeyboardBack() {
    const bool editors = place_ == FocusPlace::Editor || place_ == FocusPlace::HelpButton;
    if (editors && !c_.editor.visible()) c_.seat.giveFocus(FocusPlace::Grid);
}

template <class Work>
auto InputRouter::acting(Work work) {
    const Counted counted(underway_);
    if constexpr (std::is_void_v<decltype(work())>) {
        work();
        if (underway_ == 1) takeKeyboardBack();
    } else {
        const auto result = work();
        if (underway_ == 1) takeKeyboardBack();
        return result;
    }
}

// --- Keys

bool InputRouter::key(const KeyStroke& stroke) {
    if (composing_) return false;
    return acting([&] { return keyFor(stroke); });
}

bool InputRouter::command(Command command) {
    if (composing_) return false;
    return acting([&] { return commands_.run(command); });
}

bool InputRouter::keyFor(const KeyStroke& stroke) {
    const std::optional<Command> command = commands_.commandOf(stroke.code, stroke.shift);
    if (command && keyboardInGrid()) return commands_.runByKey(*command);
    switch (place_) {
        case FocusPlace::Editor:
            return editorKey(stroke);
        case FocusPlace::Grid:
            return gridKey(stroke);
        case FocusPlace::Surface:
            surfaceKey(stroke);
            return false;
        default:
            return false;
    }
}

bool InputRouter::editorKey(const KeyStroke& stroke) {
    if (!c_.editor.visible()) return gridKey(stroke);
    if (stroke.code == static_cast<std::int16_t>(Key::Tab) && stroke.shift <= ShiftKey)
        return moveEvents_.tab(stroke.shift == 0);
    if (c_.editor.keyDown(stroke.code)) return true;
    return !stroke.character.empty() && c_.editor.keyPress(asciiOf(stroke.character));
}

bool InputRouter::gridKey(const KeyStroke& stroke) {
    if (stroke.code == static_cast<std::int16_t>(Key::Tab) && stroke.shift <= ShiftKey)
        return moveEvents_.tab(stroke.shift == 0);
    bool used = keys_.asksTheHost(stroke.code);
    used = c_.grid.keyDown(stroke.code, stroke.shift) || used;
    if (!stroke.character.empty()) {
        c_.grid.keyPress(asciiOf(stroke.character), stroke.character);
        used = true;
    }
    return used;
}

void InputRouter::surfaceKey(const KeyStroke& stroke) {
    std::int16_t code = stroke.code;
    std::int16_t shift = stroke.shift;
    c_.host.raise(&GridEvents::keyDown, code, shift);
    if (code == 0 || stroke.character.empty()) return;
    std::int16_t ascii = asciiOf(stroke.character);
    c_.host.raise(&GridEvents::KeyPress, ascii);
}

void InputRouter::keyUp(std::int16_t code, std::int16_t shift) {
    if (!composing_ && place_ == FocusPlace::Surface) c_.host.raise(&GridEvents::KeyUp, code, shift);
}

// --- The editor

void InputRouter::edited(std::string_view text, std::size_t selStart, std::size_t selLength) {
    if (!composing_) c_.editor.edited(text, selStart, selLength);
}

void InputRouter::selected(std::size_t selStart, std::size_t selLength) {
    if (!composing_) c_.editor.selected(selStart, selLength);
}

bool InputRouter::openForTyping() {
    return acting([&] { return keys_.openForTyping(); });
}

/// The keyboard stays with the grid while the first text is composed; then it is the editor's.
void InputRouter::composing(bool underway) {
    composing_ = underway;
    if (!underway && place_ == FocusPlace::Grid && c_.editor.visible()) c_.seat.giveFocus(FocusPlace::Editor);
}

// --- Mouse

/// A press in the grid commits an open editor first. False when the text is refused, or has been before: the
/// press is not delivered then, and nothing moves.
bool InputRouter::settleEditorForPress() {
    if (!c_.editor.locked()) return c_.editor.commitOrStay();
    c_.editor.giveKeyboard();
    return false;
}

void InputRouter::mouseDown(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y) {
    acting([&] { press(button, shift, x, y); });
}

void InputRouter::press(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y) {
    pressesDelivered_ &= ~button;
    lastPressDelivered_ = false;
    if (layout_.totalRowShown() && layout_.totalRowRect().contains(x, y)) return;
    const Rect main = layout_.mainRect();
    const PressedRow pressed(c_.grid, c_.rows.follower(), x - main.left, y - main.top);
    if (!settleEditorForPress()) return;
    pressesDelivered_ |= button;
    lastPressDelivered_ = true;
    c_.seat.giveFocus(FocusPlace::Grid);
    const auto place = pressed.place();
    support::FlagSpan there(pressLeadsThere_, place.has_value(), true);
    const std::int32_t gridX = x - main.left;
    boxPress_.begins(button, gridX, place);
    c_.grid.mouseDown(button, shift, gridX, place.value_or(y - main.top), place.has_value());
}

void InputRouter::mouseMove(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y) {
    const Rect main = layout_.mainRect();
    c_.grid.mouseMove(button, shift, x - main.left, y - main.top);
}

void InputRouter::mouseUp(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y) {
    if ((pressesDelivered_ & button) == 0) return;
    pressesDelivered_ &= ~button;
    const Rect main = layout_.mainRect();
    acting([&] { c_.grid.mouseUp(button, shift, x - main.left, y - main.top); });
}

void InputRouter::doubleClick(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y) {
    // The second press goes where the first one went: nowhere, when the editor's text was refused.
    if (!lastPressDelivered_ || (layout_.totalRowShown() && layout_.totalRowRect().contains(x, y))) return;
    pressesDelivered_ |= button;
    const Rect main = layout_.mainRect();
    acting([&] { c_.grid.doubleClick(button, shift, x - main.left, y - main.top); });
}

void InputRouter::helpButtonPressed() {
    acting([&] { c_.editor.help(); });
}

void InputRouter::suggestionPressed(std::size_t index) {
    if (!composing_) acting([&] { c_.editor.suggestionPressed(index); });
}

void InputRouter::suggestionsGone() {
    c_.editor.suggestions().close();
}

void InputRouter::surfaceMouseMove(std::int16_t button, std::int16_t shift, float x, float y) {
    c_.host.raise(&GridEvents::MouseMove, button, shift, x, y);
}

void InputRouter::wheel(std::int32_t notches) {
    c_.grid.wheel(notches * RowsPerNotch);
}

/// The bar that was not moved tells where it is, and leaves its direction as it is.
void InputRouter::scrolled(std::int32_t topRow, std::int32_t leftCol) {
    const CellGrid& grid = c_.grid;
    c_.grid.ScrollTo(topRow, leftCol, topRow == grid.TopRow() ? grid.TopOffset() : 0,
                     leftCol == grid.LeftCol() ? grid.LeftOffset() : 0);
}

void InputRouter::scrolledBy(std::int32_t right, std::int32_t down) {
    c_.grid.ScrollBy(right, down);
}

void InputRouter::resized(std::int32_t width, std::int32_t height) {
    layout_.resize(width, height);
    c_.editor.place();
    c_.seat.layoutChanged();
}
}  // namespace kxVsGrid::grid
