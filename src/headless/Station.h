// One control on a desk: the control, the text box that stands for its editor, its focus.
#pragma once

#include <functional>
#include <map>
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
    ShownSuggestions suggestions;
    std::vector<bool> findBars;
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

/// Who works a form: the script that a test gave for its kind.
struct Desk::Hands {
    virtual ~Hands() = default;
    virtual bool there() const = 0;
    /// `shown` is told when the form has been loaded.
    virtual void work(Form& form, const std::function<void()>& shown) const = 0;
};

template <class Dialog>
struct Desk::HandsAt : Hands {
    std::function<void(Dialog&)> script;

    bool there() const override { return script != nullptr; }
    void work(Form& form, const std::function<void()>& shown) const override {
        Dialog dialog(form);
        shown();
        // The script may give the desk another one.
        if (const auto own = script) own(dialog);
    }
};

struct Desk::Records {
    /// Those for the forms of a dialog's name, which stay once they have been asked for.
    template <class Dialog>
    HandsAt<Dialog>& handsAt() {
        std::unique_ptr<Hands>& known = hands[Dialog::FormName];
        if (!known) known = std::make_unique<HandsAt<Dialog>>();
        return static_cast<HandsAt<Dialog>&>(*known);
    }
    /// Those for a form.
    const Hands& handsFor(const Form& form) const {
        const auto own = hands.find(form.name());
        if (own != hands.end() && own->second->there()) return *own->second;
        return anyHands;
    }

    std::vector<MessageBox> messages;
    std::vector<InputBox> inputBoxes;
    std::vector<std::string> tips;
    std::deque<std::optional<std::string>> answers;
    std::function<void(PoppedMenu&)> menuScript;
    std::optional<Menu> lastMenu;
    int waits = 0;
    std::vector<ShownDialog> dialogs;
    std::map<std::string, std::unique_ptr<Hands>> hands;  ///< for the forms of these names
    HandsAt<FormDialog> anyHands;                         ///< for all others
    std::vector<std::string> reports;
    ClipboardContent clipboard;
    std::function<bool(std::int64_t, std::int64_t)> progressScript;
    std::int32_t width = 9000;  ///< of a control that is placed
    std::int32_t height = 6000;
    DateTime now{2026, 11, 20, 9, 30, 0};
    Station* focused = nullptr;
    FocusPlace place = FocusPlace::Elsewhere;
    int leftControl = 0;
    int calls = 0;  ///< how deep the desk is in carrying out calls
};
}  // namespace kxVsGrid::headless
