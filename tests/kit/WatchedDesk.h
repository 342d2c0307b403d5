// Desks that tell more than the plain one: in what order the control asked for what, and when it waits.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "kit/HostLog.h"
#include "kxVsGrid/headless/Desk.h"

namespace kxVsGrid::testing {

inline std::string placeName(FocusPlace place) {
    constexpr const char* Names[] = {"elsewhere", "the surface", "the grid", "the editor", "the help button"};
    return Names[static_cast<std::size_t>(place)];
}

/// Keeps the order of what it was asked to show, and lets things happen while a box is open.
class WatchedDesk : public headless::Desk {
  public:
    /// Boxes, what the editor showed, and where the keyboard was sent, in order.
    Lines takeSteps() { return std::exchange(*steps_, {}); }
    /// Done once, while the next box is in front of the clerk.
    std::function<void()> whileTheBoxIsOpen;

    std::unique_ptr<Seat> seat(kxGrid& control) override {
        return std::make_unique<WatchedSeat>(headless::Desk::seat(control), steps_);
    }
    void showMessage(const MessageBox& box) override {
        steps_->push_back("box: " + box.text);
        headless::Desk::showMessage(box);
        if (const auto act = std::exchange(whileTheBoxIsOpen, nullptr)) act();
    }

  private:
    // The seats go with the desk's own part, after this one.
    using Steps = std::shared_ptr<Lines>;

    class WatchedSeat : public Seat {
      public:
        WatchedSeat(std::unique_ptr<Seat> seat, Steps steps)
            : seat_(std::move(seat)), steps_(std::move(steps)) {}

        void giveFocus(FocusPlace place) override {
            steps_->push_back("keyboard to " + placeName(place));
            seat_->giveFocus(place);
        }
        void leaveControl(bool forward) override { seat_->leaveControl(forward); }
        void showEditor(const EditorView& editor) override {
            const std::string shown = describe(editor);
            if (shown != shown_) steps_->push_back(shown);
            shown_ = shown;
            seat_->showEditor(editor);
        }
        void showSuggestions(const SuggestionView& list) override { seat_->showSuggestions(list); }
        void typeIntoEditor(std::string_view character) override { seat_->typeIntoEditor(character); }
        void editText(Command command) override { seat_->editText(command); }
        void layoutChanged() override { seat_->layoutChanged(); }
        Rect onScreen(const Rect& place) const override { return seat_->onScreen(place); }
        void settingChanged(std::string_view name) override { seat_->settingChanged(name); }
        std::unique_ptr<WheelHook> wheelHook() override { return seat_->wheelHook(); }

      private:
        static std::string describe(const EditorView& editor) {
            if (!editor.visible) return "editor hidden";
            return "editor: " + editor.text + ", selected from " + std::to_string(editor.selStart) + ", " +
                   std::to_string(editor.selLength) + " long" + (editor.refused ? ", refused" : "");
        }

        std::unique_ptr<Seat> seat_;
        Steps steps_;
        std::string shown_;
    };

    Steps steps_ = std::make_shared<Lines>();
};

/// A desk at which a test can look when a question is asked and while the machine works.
class WatchfulDesk : public headless::Desk {
  public:
    std::optional<std::string> askText(const InputBox& box) override {
        if (whenAsked) whenAsked();
        return Desk::askText(box);
    }
    void waitCursor(bool on) override {
        working_ += on ? 1 : -1;
        Desk::waitCursor(on);
    }
    void processPendingInput() override {
        ++looksForInput_;
        Desk::processPendingInput();
    }
    /// The wait cursor is shown.
    bool working() const { return working_ > 0; }
    /// Every wait cursor that was shown has gone.
    bool idle() const { return working_ == 0; }
    /// How often input that waits was let in.
    int looksForInput() const { return looksForInput_; }

    std::function<void()> whenAsked;

  private:
    int working_ = 0;
    int looksForInput_ = 0;
};
}  // namespace kxVsGrid::testing
