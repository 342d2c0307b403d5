// One control on a desk: the control, the text box that stands for its editor, its focus.
#pragma once

#include <memory>
#include <string>

#include "headless/TextLine.h"
#include "kxVsGrid/headless/Desk.h"

namespace kxVsGrid::headless {

struct Desk::Station {
    std::unique_ptr<kxGrid> grid;
    kxGrid* address =
        nullptr;  ///< known before `grid` is set: a seat is taken while the control is constructed
    TextLine box;
    std::string tip;  ///< that is shown at the editor
    bool composing = false;
    std::string composed;
    std::optional<WheelHookState> wheelHook;
    bool removed = false;  ///< goes when the desk's call has returned

    std::shared_ptr<Input> input() const { return address->input(); }
    void report() const { input()->edited(box.text, box.selStart, box.selLength); }
    /// What the clerk has made of the text box as it was.
    void reportChange(const TextLine& before) const {
        if (box.text != before.text)
            report();
        else if (box.selStart != before.selStart || box.selLength != before.selLength)
            input()->selected(box.selStart, box.selLength);
    }
};

struct Desk::Records {
    std::vector<MessageBox> messages;
    std::vector<InputBox> inputBoxes;
    std::vector<std::string> tips;
    std::deque<std::optional<std::string>> answers;
    std::function<void(PoppedMenu&)> menuScript;
    std::optional<Menu> lastMenu;
    int waits = 0;
    std::vector<ShownDialog> dialogs;
    std::function<void(LookupDialog&)> lookupScript;
    std::function<void(CalendarDialog&)> calendarScript;
    std::function<void(ConstantDialog&)> constantScript;
    std::function<void(FormDialog&)> formScript;
    std::vector<std::string> reports;
    std::string clipboard;
    std::int32_t width = 9000;  ///< of a control that is placed
    std::int32_t height = 6000;
    DateTime now{2026, 11, 20, 9, 30, 0};
    Station* focused = nullptr;
    FocusPlace place = FocusPlace::Elsewhere;
    int leftControl = 0;
    int calls = 0;  ///< how deep the desk is in carrying out calls
};
}  // namespace kxVsGrid::headless
