// A dialog as data: its controls with their type names and places. What it does runs without a window; a
// machine shows it (Platform::showForm), mirrors its controls and tells it what the clerk does there.
//
// All places are twips inside the form. Everything runs on one thread.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/DateTime.h"
#include "kxVsGrid/Geometry.h"

namespace kxVsGrid {

class CellGrid;

/// One control of a form. The type name says which of the properties mean something; a machine shows the
/// types "Label", "TextBox", "ComboBox", "CheckBox", "CommandButton", "kxButton", "CellGrid", "MonthView",
/// "DTPicker" and "Line", and leaves others out.
struct FormControl {
    std::string typeName;
    std::string name;
    std::string caption;  ///< on labels, buttons, check boxes; what assistive programs call the others
    /// A "Line" runs from its left top to its right bottom; its width and height may be negative. A control
    /// without a place (nothing is shown of it) has an empty one.
    Rect place{};
    std::string Tag;  ///< belongs to cResize once a form uses it
    /// Of a "CommandButton": 1 is graphical, 0 plain.
    std::int16_t Style = 0;
    bool visible = true;
    bool enabled = true;
    bool isDefault = false;  ///< the button that Enter presses
    bool isCancel = false;   ///< the button that Esc presses
    bool checked = false;

    std::string text;           ///< of a text box, or the chosen entry of a combo box
    std::int32_t selStart = 0;  ///< in characters
    std::int32_t selLength = 0;
    std::vector<std::string> list;  ///< the entries of a combo box
    DateTime value;                 ///< a month view shows its day, a time picker its time of day
    CellGrid* grid = nullptr;       ///< of a "CellGrid"; belongs to the form
};

/// The window that shows a form, as the form sees it.
class FormWindow {
  public:
    virtual ~FormWindow() = default;
    /// A property of the control has changed: mirror it. What changes inside a grid need not be told.
    virtual void changed(const FormControl& control) = 0;
    virtual void giveFocus(const FormControl& control) = 0;
    /// Ends the showing; the form hears no more of it.
    virtual void close() = 0;
    /// Runs `slice` whenever nothing else is to be done, until it answers false or the window closes. A
    /// slice takes a few milliseconds.
    virtual void whenIdle(std::function<bool()> slice) = 0;
};

class Form {
  public:
    using Controls = std::vector<std::unique_ptr<FormControl>>;

    /// The inner size is in twips.
    Form(std::string name, std::string caption, std::int32_t width, std::int32_t height);
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& name() const { return name_; }
    const std::string& caption() const { return caption_; }
    /// The present inner size.
    std::int32_t ScaleWidth() const { return width_; }
    std::int32_t ScaleHeight() const { return height_; }
    /// The inner size that the window starts with, asked for before it is shown; 0 keeps the form's own. What
    /// is smaller than half the form's own size becomes that half.
    void startSize(std::int32_t width, std::int32_t height);
    /// Smallest inner size that a window lets the clerk drag the form to.
    std::int32_t minWidth() const { return designWidth_ / 2; }
    std::int32_t minHeight() const { return designHeight_ / 2; }

    const Controls& controls() const { return controls_; }
    /// std::out_of_range when the form has none of that name.
    FormControl& control(std::string_view name) const;

    // --- What the machine tells.
    /// The window is there, not yet visible: loads the form and gives it its start size.
    void open(FormWindow& window);
    void resize(std::int32_t width, std::int32_t height);
    /// The window has gone, closed by the form or by its frame.
    void closed();

    // --- What the clerk does.
    void press(FormControl& button);
    void edit(FormControl& box, std::string_view text, std::int32_t selStart, std::int32_t selLength);
    void check(FormControl& box, bool checked);
    void pick(FormControl& list, std::int32_t index);
    void choose(FormControl& calendar, const DateTime& value);
    void doubleClick(FormControl& control);
    /// A key (its code and a sum of ShiftMask) while `focused` has the keyboard. True when it is used up;
    /// Enter and Esc always are.
    bool key(FormControl& focused, std::int16_t code, std::int16_t shift);

  protected:
    FormControl& add(std::string_view typeName, std::string_view name, std::string_view caption, Rect place);
    /// Nothing while the form is not shown.
    FormWindow* window() const { return window_; }
    /// The control's properties are set: the window follows.
    void changed(const FormControl& control);
    void giveFocus(const FormControl& control);
    void close();

    virtual void load() {}
    virtual void resized() {}
    virtual void unload() {}
    virtual void pressed(FormControl& button);
    virtual void textChanged(FormControl& box);
    virtual void checkChanged(FormControl& box);
    virtual void picked(FormControl& list);
    virtual void chosen(FormControl& calendar);
    virtual void doubleClicked(FormControl& control);
    /// A key before Enter and Esc are acted on; true uses it up.
    virtual bool keyDown(FormControl& focused, std::int16_t code, std::int16_t shift);

  private:
    std::string name_;
    std::string caption_;
    std::int32_t designWidth_;
    std::int32_t designHeight_;
    std::int32_t width_;
    std::int32_t height_;
    std::int32_t startWidth_ = 0;
    std::int32_t startHeight_ = 0;
    Controls controls_;
    FormWindow* window_ = nullptr;
};
}  // namespace kxVsGrid
