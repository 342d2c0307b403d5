// What the machine reports, sent to whoever it concerns.
//
// One physical key goes to one place: a key that the editor used up never reaches the grid as a character,
// also when the keyboard went back to the grid meanwhile.
#pragma once

#include <string_view>

#include "clerk/CommandRunner.h"
#include "editing/EditSession.h"
#include "grid/Layout.h"
#include "grid/input/BoxPress.h"
#include "grid/input/Keys.h"
#include "grid/input/MoveEvents.h"
#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/GridEvents.h"
#include "kxVsGrid/Platform.h"

namespace kxVsGrid::grid {

class InputRouter : public Input {
  public:
    InputRouter(const InputContext& context, MoveEvents& moveEvents, Keys& keys, BoxPress& boxPress,
                Layout& layout, clerk::CommandRunner& commands)
        : c_(context),
          moveEvents_(moveEvents),
          keys_(keys),
          boxPress_(boxPress),
          layout_(layout),
          commands_(commands) {}

    bool active() const { return place_ != FocusPlace::Elsewhere; }
    /// Told when the editor was hidden: if it had the keyboard, the grid has it, once what the clerk did is
    /// done.
    void editorHidden() {
        if (underway_ == 0) takeKeyboardBack();
    }
    /// What is being pressed is still there after the commit that the press has brought about.
    bool pressLeadsThere() const { return pressLeadsThere_; }
    bool keyboardInGrid() const { return place_ == FocusPlace::Grid || place_ == FocusPlace::Editor; }

    void focusMoved(FocusPlace place) override;
    FocusPlace focus() const override { return place_; }
    bool key(const KeyStroke& stroke) override;
    bool command(Command command) override;
    void keyUp(std::int16_t code, std::int16_t shift) override;
    void edited(std::string_view text, std::size_t selStart, std::size_t selLength) override;
    void selected(std::size_t selStart, std::size_t selLength) override;
    bool openForTyping() override;
    void composing(bool underway) override;
    void mouseDown(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y) override;
    void mouseMove(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y) override;
    void mouseUp(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y) override;
    void doubleClick(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y) override;
    void helpButtonPressed() override;
    void suggestionPressed(std::size_t index) override;
    void suggestionsGone() override;
    void surfaceMouseMove(std::int16_t button, std::int16_t shift, float x, float y) override;
    void wheel(std::int32_t notches) override;
    void scrolled(std::int32_t topRow, std::int32_t leftCol) override;
    void scrolledBy(std::int32_t right, std::int32_t down) override;
    void resized(std::int32_t width, std::int32_t height) override;

  private:
    /// What the clerk does now. The keyboard of an editor that is hidden meanwhile goes to the grid at the
    /// end, when the current cell is where it shall be.
    template <class Work>
    auto acting(Work work);
    void takeKeyboardBack();
    bool keyFor(const KeyStroke& stroke);
    void press(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y);
    bool editorKey(const KeyStroke& stroke);
    bool gridKey(const KeyStroke& stroke);
    void surfaceKey(const KeyStroke& stroke);
    bool settleEditorForPress();

    InputContext c_;
    MoveEvents& moveEvents_;
    Keys& keys_;
    BoxPress& boxPress_;
    Layout& layout_;
    clerk::CommandRunner& commands_;
    FocusPlace place_ = FocusPlace::Elsewhere;
    int underway_ = 0;  ///< calls of the machine's that are being worked off
    bool composing_ = false;
    int pressesDelivered_ = 0;  ///< of the buttons that are down, a sum of MouseButton
    bool lastPressDelivered_ = false;
    bool pressLeadsThere_ = true;  ///< what is being pressed is still there
};
}  // namespace kxVsGrid::grid
