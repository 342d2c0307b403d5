// A form with a control of every type, which notes what it hears.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Form.h"
#include "kxVsGrid/cResize.h"

namespace kxVsGrid::qt::testing {

class AnyForm : public Form {
  public:
    AnyForm();

    std::vector<std::string> heard;
    CellGrid grid;
    static constexpr std::int32_t ColumnWidth = 600;
    /// What the form does at each of its calls, by the words that it notes.
    std::function<void(AnyForm& form, const std::string& word)> at;

    bool keepsEnter = false;  ///< Enter and Esc do not close it

    /// The words from the last `clear` of `heard` on, in one text.
    std::string words() const;

    // --- What forms do to their window.
    void tell(const char* name) { changed(control(name)); }
    void giveFocusTo(const char* name) { giveFocus(control(name)); }
    void end() { close(); }
    void whenIdle(std::function<bool()> slice) { window()->whenIdle(std::move(slice)); }

  protected:
    void load() override;
    void resized() override;
    void unload() override;
    void pressed(FormControl& button) override;
    void textChanged(FormControl& box) override;
    void checkChanged(FormControl& box) override;
    void picked(FormControl& list) override;
    void chosen(FormControl& calendar) override;
    void doubleClicked(FormControl& control) override;
    bool keyDown(FormControl& focused, std::int16_t code, std::int16_t shift) override;

  private:
    void note(const std::string& word);
    cResize resize_;
};
}  // namespace kxVsGrid::qt::testing
