// A machine without a window: for tests of hosts, and of the control itself.
//
//     kxVsGrid::headless::Desk desk;                 // 9000 x 6000 twips, the clock at a fixed moment
//     kxVsGrid::kxGrid& grid = desk.place();         // a newly placed control
//     myHost.attach(grid);
//     grid.ReDraw(true);
//     desk.focusGrid();
//     desk.type("12*3").press(Key::Enter);
//     assert(grid.ReadCell(1, 1, true) == "36");
//     assert(desk.messages().empty());
//
// It shows nothing, records everything and answers from scripts: input boxes that were not scripted are
// cancelled, dialogs closed by their frame. Several controls may live on one desk; what the clerk does goes
// to the one that was placed, loaded or chosen with use() last. Its text box carries out characters,
// Backspace, Delete, Left, Right, Home, End and, where several lines are allowed, Enter (a line feed). The
// clipboard is the desk's own; in the editor Ctrl+C, Ctrl+X, Ctrl+V and Ctrl+A do with the text what they do in a
// window.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/Platform.h"
#include "kxVsGrid/headless/Dialogs.h"
#include "kxVsGrid/kxGrid.h"

namespace kxVsGrid::headless {

/// The editor as a clerk sees it, with the tag behind its text. While it is hidden, text and tag are those of
/// the current cell.
struct SeenEditor : EditorView {
    std::string tag;
};

/// A dialog that was shown: the name of its form, its inner size and the place that it was shown near.
struct ShownDialog {
    std::string name;
    std::int32_t width = 0;
    std::int32_t height = 0;
    Rect anchor;
    friend bool operator==(const ShownDialog&, const ShownDialog&) = default;
};

/// The list of suggestions as it stands at the editor; without texts none is shown.
struct ShownSuggestions {
    std::vector<std::string> texts;
    std::vector<std::string> notes;  ///< one for each text
    std::ptrdiff_t current = -1;     ///< the one that the clerk has moved to; -1: none
    friend bool operator==(const ShownSuggestions&, const ShownSuggestions&) = default;
};

/// What a control has told its wheel hook last.
struct WheelHookState {
    std::int32_t fixedRows = 0;
    std::int32_t step = 0;
    std::int32_t topRow = 0;
    std::int32_t lastRow = 0;
    bool attached = false;
    friend bool operator==(const WheelHookState&, const WheelHookState&) = default;
};

/// A menu that has popped up, before the clerk.
class PoppedMenu {
  public:
    explicit PoppedMenu(const Menu& menu, const Rect& anchor) : menu_(menu), anchor_(anchor) {}
    const Menu& menu() const { return menu_; }
    /// Where it popped up, twips of the screen.
    const Rect& anchor() const { return anchor_; }
    /// By caption, as it stands or without its mnemonic ("序列方式填充" for "序列方式填充(&S)");
    /// std::logic_error when there is no such item, or when the clerk could not choose it.
    void choose(std::string_view item);
    /// The same for an item of the submenu that stands under another one.
    void choose(std::string_view parent, std::string_view item);
    /// By the number that the item has.
    void choose(std::int32_t index);
    const MenuChoice& choice() const { return choice_; }

  private:
    void take(const std::string& array, const MenuItem& item);
    const Menu& menu_;
    Rect anchor_;
    MenuChoice choice_;
};

class Desk : public Platform {
  public:
    /// Where the controls' left top corners stand on the screen, twips.
    static constexpr std::int32_t ScreenLeft = 3000;
    static constexpr std::int32_t ScreenTop = 1500;

    Desk();
    ~Desk() override;

    // --- Controls.
    /// Places a new control and makes it the one in use. It stays until the desk goes, or until remove().
    kxGrid& place();
    /// Loads one from settings; returned also when reading failed.
    kxGrid& load(PropertyBag& bag);
    void use(kxGrid& grid);
    /// Destroys a control, as closing its form does; allowed from inside its events. While the desk is
    /// carrying out a call it goes when that has returned.
    void remove(kxGrid& grid);
    kxGrid& grid();

    // --- The form.
    /// Sets the control's size, twips, and runs its layout; before there is a control, the size that controls
    /// are placed and loaded with from now on.
    Desk& resize(std::int32_t width, std::int32_t height);
    Desk& focusGrid();
    Desk& focusSurface();
    /// Another control of the same window.
    Desk& focusElsewhere();
    FocusPlace focusOwner() const;

    // --- Keys, to whoever holds the focus.
    /// Each character: key down, key press, key up.
    Desk& type(std::string_view text);
    Desk& press(Key key, std::int16_t shift = 0);
    Desk& press(std::int16_t code, std::int16_t shift = 0);
    /// A command, as from a menu of the host's.
    bool run(Command command);
    /// An input method shows `text` as being composed, in place of what it showed before.
    Desk& compose(std::string_view text);
    /// It ends with the committed text; an empty one drops the composition.
    Desk& commitComposition(std::string_view text);

    // --- Mouse. Cells that are not in view cannot be hit: the test fails with std::logic_error.
    Desk& click(std::int32_t row, std::int32_t col, std::int16_t shift = 0);
    Desk& doubleClick(std::int32_t row, std::int32_t col);
    Desk& rightClick(std::int32_t row, std::int32_t col, std::int16_t shift = 0);
    Desk& clickEditor();
    Desk& pressHelpButton();
    /// Presses one of the suggestions that are shown, by its place there; std::logic_error when there is none.
    Desk& pressSuggestion(std::size_t index);
    Desk& mouseDown(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y);
    Desk& mouseMove(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y);
    Desk& mouseUp(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y);
    Desk& surfaceMouseMove(std::int16_t button, std::int16_t shift, float x, float y);
    /// Presses on one cell, drags to another one, and lets go there; headers take whole rows and columns.
    Desk& drag(std::int32_t fromRow, std::int32_t fromCol, std::int32_t toRow, std::int32_t toCol,
               std::int16_t shift = 0);
    /// The user drags the right edge of a column until it is this wide.
    Desk& dragColumn(std::int32_t col, std::int32_t twips);
    /// Notches; positive is down.
    Desk& wheel(std::int32_t notches);
    Desk& scrollTo(std::int32_t topRow, std::int32_t leftCol);
    /// Fingers move on a touchpad: twips to the right and down.
    Desk& scrollBy(std::int32_t right, std::int32_t down);

    // --- The editor.
    SeenEditor editor() const;
    /// The clerk moves the caret or selects; positions count characters.
    Desk& select(std::size_t start, std::size_t length = 0);
    /// Find bars that the control in use has asked for, in order; True: with replacing.
    const std::vector<bool>& findBars() const;
    /// What is suggested at the editor of the control in use.
    const ShownSuggestions& suggestions() const;

    // --- What was shown and asked.
    const std::vector<MessageBox>& messages() const;
    const std::vector<InputBox>& inputBoxes() const;
    /// Texts that were shown for a moment beside a cell, and tips as they came up at the editor.
    const std::vector<std::string>& tips() const;
    /// The answer to the next input box that has none yet.
    Desk& answerInputBox(std::string answer);
    Desk& cancelInputBox();
    /// Chooses from every menu from now on; an empty script leaves them. Choosing what is hidden or disabled
    /// throws std::logic_error.
    Desk& onPopup(std::function<void(PoppedMenu&)> script);
    /// The last menu that was popped up; std::logic_error when there was none.
    const Menu& lastMenu() const;
    /// How often the machine showed that it works.
    int waits() const;
    /// Works every dialog of its kind from now on; an empty script leaves them to their frame.
    Desk& onDialog(std::function<void(LookupDialog&)> script);
    Desk& onDialog(std::function<void(CalendarDialog&)> script);
    Desk& onDialog(std::function<void(ConstantDialog&)> script);
    /// Works every form that has no script of its kind: those of the control's help above, and any other that
    /// a host shows.
    Desk& onDialog(std::function<void(FormDialog&)> script);
    /// The dialogs shown so far, whatever their form.
    const std::vector<ShownDialog>& dialogs() const;
    const std::string& clipboard() const;
    /// What another program, or a test, has put there.
    Desk& clipboard(std::string_view text);
    /// Asked whenever something that takes its time says how far it has come, of how much: False cancels it.
    Desk& onProgress(std::function<bool(std::int64_t done, std::int64_t total)> script);
    /// The wheel hook of the control in use; nothing until it has read its settings.
    const std::optional<WheelHookState>& wheelHook() const;
    /// Names of changed settings, in order, of all controls.
    const std::vector<std::string>& reports() const;
    /// How the last press of Tab ended: 1 and -1 left the control forwards and backwards, 0 did not.
    int leftControl() const;
    Desk& setNow(std::int32_t year, std::int32_t month, std::int32_t day, std::int32_t hour = 0,
                 std::int32_t minute = 0, std::int32_t second = 0);
    /// Empties the records.
    Desk& clear();
    /// The visible grid as text; the editor is shown as [text], the current cell as <text>, one that is marked
    /// as a Problem as text!. For failing tests.
    std::string ascii() const;

    // --- Platform.
    std::unique_ptr<Seat> seat(kxGrid& control) override;
    const TextMetrics& textMetrics() const override;
    DateTime now() const override;
    void showMessage(const MessageBox& box) override;
    void showTip(std::string_view text, const Rect& anchor) override;
    std::optional<std::string> askText(const InputBox& box) override;
    MenuChoice popUp(const Menu& menu, const Rect& anchor) override;
    void waitCursor(bool on) override;
    void showForm(Form& form, const Rect& anchor) override;
    void copyToClipboard(const ClipboardContent& content) override;
    ClipboardContent clipboardContent() const override;
    std::unique_ptr<Progress> progress(std::string_view what, std::int64_t total) override;
    void processPendingInput() override;

  private:
    struct Station;
    struct Hands;
    template <class Dialog>
    struct HandsAt;
    struct Records;
    class DeskSeat;
    class Call;
    Station& station() const;
    void sweep();
    void moveFocus(Station* station, FocusPlace place);
    void stroke(const KeyStroke& key);
    void endComposition();
    void editText(Station& at, Command command);
    void applyToTextBox(Station& at, const KeyStroke& key);
    void undoOrRedo(Station& at, Command command);
    Rect reach(std::int32_t row, std::int32_t col) const;
    Desk& clickCell(std::int16_t button, std::int32_t row, std::int32_t col, std::int16_t shift);
    std::vector<std::shared_ptr<Station>> stations_;
    Station* current_ = nullptr;
    std::unique_ptr<Records> records_;
};
}  // namespace kxVsGrid::headless
