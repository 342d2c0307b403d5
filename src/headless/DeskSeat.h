// The place of one control on a desk.
#pragma once

#include "headless/Station.h"

namespace kxVsGrid::headless {

class Desk::DeskSeat : public Seat {
  public:
    DeskSeat(Desk& desk, Station& station) : desk_(desk), station_(station) {}

    void giveFocus(FocusPlace place) override { desk_.moveFocus(&station_, place); }
    void leaveControl(bool forward) override { desk_.records_->leftControl = forward ? 1 : -1; }
    void showEditor(const EditorView& editor) override {
        TextLine& box = station_.box;
        box.text = editor.text;
        box.selStart = editor.selStart;
        box.selLength = editor.selLength;
        box.limit = editor.limit;
        box.multiLine = editor.multiLine;
    }
    void typeIntoEditor(std::string_view character) override {
        station_.box.insert(character);
        station_.report();
    }
    void layoutChanged() override {}
    void settingChanged(std::string_view name) override { desk_.records_->reports.emplace_back(name); }

  private:
    Desk& desk_;
    Station& station_;
};
}  // namespace kxVsGrid::headless
