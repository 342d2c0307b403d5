// What the control asks of the machine it runs on, and what the machine tells the control.
//
// A machine is a Platform: message boxes, clipboard, clock, text widths. Each control has a place on it, a
// Seat: the focus, the text box that stands for the editor, the settings' container. What the clerk does
// comes back through the control's Input. headless::Desk is a machine without a window; kxGridWidget is one
// that paints.
//
// Everything runs on one thread. The core decides, the machine carries out: a text box mirrors the EditorView
// that it is shown and reports only what the clerk changed in it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/Clipboard.h"
#include "kxVsGrid/Command.h"
#include "kxVsGrid/DateTime.h"
#include "kxVsGrid/Enumerations.h"
#include "kxVsGrid/Geometry.h"
#include "kxVsGrid/Menu.h"
#include "kxVsGrid/Suggestions.h"

namespace kxVsGrid {

class Form;
class kxGrid;

/// Who has the keyboard. Elsewhere means another control of the same window: another window, a box of ours, a
/// menu or a dialog in front does not count as a loss, and the machine does not report it.
enum class FocusPlace { Elsewhere, Surface, Grid, Editor, HelpButton };

/// The editor as it has to be shown: a text box over the current cell and a small button at its right edge,
/// or beside the cell where that is too narrow for both.
struct EditorView {
    bool visible = false;
    bool enabled = true;
    bool helpButton = false;  ///< the button is shown
    bool multiLine = false;
    bool refused = false;  ///< the text was refused and has not been changed since: shown with a red frame
    bool readsDigits =
        false;  ///< numbers and dates are expected; an input method may prefer them, never enforce them
    /// Full-width digits and signs count as their ASCII selves: a text box may show them so at once; it is shown
    /// the text anew when it does not.
    bool plainSigns = false;
    std::int16_t limit =
        0;  ///< most characters that can be typed, 0 for no limit; texts set by code are never cut
    mEmflexAlign alignment = flexAlignLeftCenter;
    Rect rect;  ///< twips, in the control; without the button
    Rect helpRect;
    /// Why the text was refused, to be shown at the box for as long as it stands here; it takes neither keys
    /// nor the keyboard. A machine without tips shows none.
    std::string tip;
    std::string text;
    std::size_t selStart = 0;  ///< in characters
    std::size_t selLength = 0;
};

/// A message for the clerk.
struct MessageBox {
    /// What `style` may be.
    enum Style : std::int32_t { Critical = 16, Information = 64 };
    std::string text;
    std::int32_t style = 0;
    std::string title;
    friend bool operator==(const MessageBox&, const MessageBox&) = default;
};

/// A question with a line of text for the answer.
struct InputBox {
    std::string prompt;
    std::string title;
    std::string preset;
    friend bool operator==(const InputBox&, const InputBox&) = default;
};

/// Code of a key that has none of its own. Not 0, which says that somebody has used the key up.
inline constexpr std::int16_t OtherKey = 10;

/// One key going down, with the character that it types.
struct KeyStroke {
    std::int16_t code = 0;   ///< a Key, the ASCII capital of a letter or digit, or OtherKey
    std::int16_t shift = 0;  ///< a sum of ShiftMask
    /// UTF-8; control characters for Enter "\r", Esc "\x1b", Backspace "\b", Ctrl+letter "\x01" to "\x1a";
    /// empty for keys that type none (arrows, function keys, Insert, Delete, Tab).
    std::string character;
};

/// What the machine tells one control. Coordinates are twips in the control.
class Input {
  public:
    virtual ~Input() = default;

    /// The keyboard has gone to `place`. Reported when it has happened, also when the control asked for it.
    virtual void focusMoved(FocusPlace place) = 0;
    virtual FocusPlace focus() const = 0;

    /// A key for whoever has the focus: key down, and for a key with a character key press. True when the
    /// control has used it up; false when the text box (or, on the surface and for Tab at the ends, the
    /// window) shall act on it.
    virtual bool key(const KeyStroke& stroke) = 0;
    virtual void keyUp(std::int16_t code, std::int16_t shift) = 0;
    /// The clerk asks for a command in another way than by one of the control's keys for it, or by one that the
    /// text box was left to act on and has no use for. False when it could not be done.
    virtual bool command(Command command) = 0;

    /// The clerk changed the editor's text or its selection (in characters).
    virtual void edited(std::string_view text, std::size_t selStart, std::size_t selLength) = 0;
    virtual void selected(std::size_t selStart, std::size_t selLength) = 0;
    /// Opens the editor over the current cell as a typed character would, without the character (composition,
    /// paste). False when the cell is not typed into: read-only, fixed, Boolean.
    virtual bool openForTyping() = 0;
    /// An input method has begun to compose, or is done. In between no key is acted on.
    virtual void composing(bool underway) = 0;

    virtual void mouseDown(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y) = 0;
    virtual void mouseMove(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y) = 0;
    virtual void mouseUp(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y) = 0;
    virtual void doubleClick(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y) = 0;
    virtual void helpButtonPressed() = 0;
    /// A suggestion was pressed in the list that is shown, by its place there: it is taken as Enter takes one.
    virtual void suggestionPressed(std::size_t index) = 0;
    /// The list that was shown has gone by itself: its window has changed. The next text opens one again.
    virtual void suggestionsGone() = 0;
    /// The mouse moved over the control's own surface, outside the grids.
    virtual void surfaceMouseMove(std::int16_t button, std::int16_t shift, float x, float y) = 0;
    /// Notches of the wheel; positive is down. Three rows each.
    virtual void wheel(std::int32_t notches) = 0;
    /// The clerk scrolls by less than rows and columns, as on a touchpad: so many twips to the right and down;
    /// negative is back.
    virtual void scrolledBy(std::int32_t right, std::int32_t down) = 0;
    /// The clerk moved a scroll bar, or both: where it stayed is told as it is.
    virtual void scrolled(std::int32_t topRow, std::int32_t leftCol) = 0;
    /// The control's inner size has changed, or is given for the first time: runs the layout.
    virtual void resized(std::int32_t width, std::int32_t height) = 0;
};

/// The object through which the wheel's turns over a loaded control are caught, on machines where a control
/// does not hear them by itself.
class WheelHook {
  public:
    virtual ~WheelHook() = default;
    /// The grid's fixed rows, and the whole part of (Rows - 1) / 5: how far one turn may go.
    virtual void range(std::int32_t fixedRows, std::int32_t step) = 0;
    /// The first row shown below the fixed ones, and the grid's last row.
    virtual void position(std::int32_t topRow, std::int32_t lastRow) = 0;
    /// The mouse is over the grid: its window is the one whose wheel is meant. Told again and again.
    virtual void attach() = 0;
};

/// The place that one control has on its machine. A control that a listener of its own destroys is at work a
/// little longer: the seat then goes last, keeps the platform until it does, and does nothing any more.
class Seat {
  public:
    virtual ~Seat() = default;
    /// Moves the keyboard to a part of this control; the machine reports back through Input::focusMoved.
    virtual void giveFocus(FocusPlace place) = 0;
    /// Moves the keyboard to the control after (or before) this one in the window.
    virtual void leaveControl(bool forward) = 0;
    /// The editor has changed: mirror it.
    virtual void showEditor(const EditorView& editor) = 0;
    /// The list of suggestions at the editor has changed: show it, or none. A machine without one shows none.
    virtual void showSuggestions(const SuggestionView&) {}
    /// The clerk wants to find something, or to replace it: shows a bar for that, with the keyboard in it. What is
    /// found is the control's (kxGrid::Find). A machine without one shows none.
    virtual void showFindBar(bool) {}
    /// Delivers a character to the text box as a keystroke; what it makes of the text is reported through
    /// Input::edited before this returns.
    virtual void typeIntoEditor(std::string_view character) = 0;
    /// Copy, Cut, Paste or SelectAll while the editor is open: the text box does it with its text, and reports
    /// what has become of that through Input::edited before this returns.
    virtual void editText(Command command) = 0;
    /// Places or scroll ranges may have changed; the control's totalRowRect() and its grids tell.
    virtual void layoutChanged() = 0;
    /// Where a place in the control lies on the screen, in twips of the screen.
    virtual Rect onScreen(const Rect& place) const = 0;
    /// A persisted setting has changed: the container may want to save.
    virtual void settingChanged(std::string_view name) = 0;
    /// A hook for a control that has read its settings; nothing where the machine needs none.
    virtual std::unique_ptr<WheelHook> wheelHook() = 0;
};

/// Shows how far something has come that takes its time, for as long as it lives.
class Progress {
  public:
    virtual ~Progress() = default;
    /// So much is done. False when the clerk has cancelled it. It may let input be handled, so that anything
    /// may have happened to the control meanwhile; often asked, it costs next to nothing.
    virtual bool goOn(std::int64_t done) = 0;
};

class Platform {
  public:
    virtual ~Platform() = default;
    /// A place for a control under construction; called once by its constructor. Messages to the control's
    /// input may start when the constructor has returned.
    virtual std::unique_ptr<Seat> seat(kxGrid& control) = 0;
    /// Must outlive the controls.
    virtual const TextMetrics& textMetrics() const = 0;
    virtual DateTime now() const = 0;
    /// Shows the message and waits for the clerk.
    virtual void showMessage(const MessageBox& box) = 0;
    /// How long the side of a check box is as the machine draws it in a cell with room for it, twips.
    virtual std::int32_t checkBoxSide() const { return 195; }
    /// Shows a line of text beside a place on the screen (twips) for a moment, and waits for nothing. A
    /// machine without such tips shows none.
    virtual void showTip(std::string_view, const Rect&) {}
    /// The answer, or nothing when the box was cancelled.
    virtual std::optional<std::string> askText(const InputBox& box) = 0;
    /// Pops the menu up at a place on the screen (twips): the visible items, separators only between items.
    /// Answers what the clerk chose; nothing when the menu was left.
    virtual MenuChoice popUp(const Menu& menu, const Rect& anchor) = 0;
    /// Something takes its time (calls are balanced).
    virtual void waitCursor(bool on) = 0;
    /// Shows the form in front of everything else, near a place on the screen (twips; an empty one is
    /// nowhere in particular), and returns when it has closed. An exception that leaves the form's code
    /// closes it and goes on to the caller.
    virtual void showForm(Form& form, const Rect& anchor) = 0;
    /// How the machine's language orders texts, each of which is given once: for each its rank, the same for
    /// texts that count as equal. By code points without one.
    virtual std::vector<std::uint32_t> collationRanks(const std::vector<std::string_view>& texts) const;
    virtual void copyToClipboard(const ClipboardContent& content) = 0;
    /// What is there now; nothing when another program holds it and does not answer.
    virtual ClipboardContent clipboardContent() const = 0;
    /// A display of how far the work has come, which appears when that takes more than 0.3 s and can be
    /// cancelled there: what is done, as a clerk reads it, and how much there is to do. A machine without one
    /// shows nothing.
    virtual std::unique_ptr<Progress> progress(std::string_view, std::int64_t) { return nullptr; }
    /// Lets input that waits be handled, as a typed key is passed on to the editor.
    virtual void processPendingInput() = 0;
};
}  // namespace kxVsGrid
