// The control's place in its widget. Does nothing once the widget is gone.
#pragma once

#include <memory>
#include <utility>

#include "kxVsGrid/Platform.h"
#include "qt/Machine.h"

namespace kxVsGrid::qt {

class QtSeat : public Seat {
  public:
    explicit QtSeat(std::shared_ptr<Machine> machine) : machine_(std::move(machine)) {}

    void giveFocus(FocusPlace place) override;
    void leaveControl(bool forward) override;
    void showEditor(const EditorView& editor) override;
    void showSuggestions(const SuggestionView& suggestions) override;
    void showFindBar(bool replace) override;
    void typeIntoEditor(std::string_view character) override;
    void editText(Command command) override;
    void layoutChanged() override;
    Rect onScreen(const Rect& place) const override;
    void settingChanged(std::string_view name) override;
    /// None: the widget hears its wheel itself.
    std::unique_ptr<WheelHook> wheelHook() override { return nullptr; }

  private:
    /// Nothing while the control is made, and once its widget is gone.
    Stage* shown() const;

    std::shared_ptr<Machine> machine_;
};
}  // namespace kxVsGrid::qt
