// The dialogs that a desk shows, as a clerk works them: those of a column's help, and any other form.
//
//     desk.onDialog([](kxVsGrid::headless::LookupDialog& d) { d.type("A0"); d.press(Key::Enter); });
//     desk.onDialog([](kxVsGrid::headless::FormDialog& d) { d.text("Name", "螺栓").click("Ok"); });
//
// A dialog that its script leaves open is closed by its frame. What cannot be done (a hidden button, a row
// out of view, anything after the dialog has closed) throws std::logic_error: a mistake of the test.
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Form.h"

namespace kxVsGrid::headless {

/// The window of a form on a desk, and the hands at it.
class DialogBase : private FormWindow {
  public:
    explicit DialogBase(Form& form);
    ~DialogBase() override;
    DialogBase(const DialogBase&) = delete;
    DialogBase& operator=(const DialogBase&) = delete;

    Form& form() const { return form_; }
    bool open() const { return open_; }
    /// Name of the control that has the keyboard.
    const std::string& focused() const;
    FormControl& control(std::string_view name) const { return form_.control(name); }

    /// Characters into the text box that has the keyboard.
    void type(std::string_view text);
    void press(Key key, std::int16_t shift = 0);
    void click(std::string_view button);
    void resize(std::int32_t width, std::int32_t height) { form_.resize(width, height); }
    void closeByFrame();
    /// Nothing else is to be done: works that were put off until then are carried out.
    void idle();

  protected:
    void focus(std::string_view name);
    void setText(FormControl& box, std::string_view text);
    void clickRow(FormControl& grid, std::int32_t row);
    void requireOpen(const char* what) const;

  private:
    void changed(const FormControl&) override {}
    void giveFocus(const FormControl& control) override { focused_ = control.name; }
    void close() override;
    void whenIdle(std::function<bool()> slice) override { slices_.push_back(std::move(slice)); }

    Form& form_;
    std::string focused_;
    bool open_ = true;
    std::vector<std::function<bool()>> slices_;
};

/// Any form, its controls by their names. A name that the form does not have is std::out_of_range; a control
/// of another type than the hand needs, or one that is hidden or disabled, std::logic_error.
class FormDialog : public DialogBase {
  public:
    using DialogBase::DialogBase;
    const std::string& name() const { return form().name(); }
    const std::string& text(std::string_view box) const { return control(box).text; }
    CellGrid& grid(std::string_view name) const;

    /// Gives a control the keyboard.
    FormDialog& focus(std::string_view name);
    FormDialog& click(std::string_view button);
    /// Replaces the text of a text box.
    FormDialog& text(std::string_view box, std::string_view text);
    FormDialog& check(std::string_view box, bool checked = true);
    /// Chooses an entry of a combo box by its text.
    FormDialog& pick(std::string_view list, std::string_view entry);
    /// A day of a month view, a time of a time picker.
    FormDialog& choose(std::string_view calendar, const DateTime& value);
    FormDialog& clickRow(std::string_view grid, std::int32_t row);
    FormDialog& doubleClick(std::string_view name);

  private:
    FormControl& reach(const char* what, std::string_view name);
    FormControl& reach(const char* what, std::string_view name, std::initializer_list<const char*> types);
};

/// The pick-list of a code column.
class LookupDialog : public DialogBase {
  public:
    static constexpr const char* FormName = "XT_TybmczFrm";
    using DialogBase::DialogBase;
    CellGrid& grid() const { return *control("CzxsGrid").grid; }
    const std::string& CodeText() const { return control("CodeText").text; }
    /// Replaces the search text.
    void CodeText(std::string_view text) { setText(control("CodeText"), text); }
    bool editShown() const { return control("Bjcommand").visible; }
    void clickRow(std::int32_t row) { DialogBase::clickRow(control("CzxsGrid"), row); }
    void doubleClickRow(std::int32_t row);
    void Ok() { click("QdCommand"); }
    void Cancel() { click("QxCommand"); }
    void Edit() { click("Bjcommand"); }
};

/// The picker of dates and times.
class CalendarDialog : public DialogBase {
  public:
    static constexpr const char* FormName = "XT_calendar";
    using DialogBase::DialogBase;
    DateTime day() const { return control("MonthView1").value; }
    void day(std::int32_t year, std::int32_t month, std::int32_t day);
    DateTime time() const { return control("DTPTime").value; }
    void time(std::int32_t hour, std::int32_t minute, std::int32_t second);
    const std::string& half() const { return control("Cob").text; }
    void half(std::string_view word);
    void doubleClickDay();
    void Today() { click("Jtcommand"); }
    void Ok() { click("QdCommand"); }
};

/// The list of constants.
class ConstantDialog : public DialogBase {
  public:
    static constexpr const char* FormName = "XT_Const";
    using DialogBase::DialogBase;
    CellGrid& grid() const { return *control("CzxsGrid").grid; }
    void clickRow(std::int32_t row) { DialogBase::clickRow(control("CzxsGrid"), row); }
    void doubleClickRow(std::int32_t row);
    void Ok() { click("QdCommand"); }
    void Cancel() { click("QxCommand"); }
};
}  // namespace kxVsGrid::headless
