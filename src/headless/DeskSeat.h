// The place of one control on a desk. Does nothing once the control has been removed.
#pragma once

#include <memory>
#include <utility>

#include "headless/Station.h"

namespace kxVsGrid::headless {

class Desk::DeskSeat : public Seat {
  public:
    DeskSeat(Desk& desk, std::shared_ptr<Station> station) : desk_(desk), station_(std::move(station)) {}

    void giveFocus(FocusPlace place) override {
        if (!station_->removed) desk_.moveFocus(station_.get(), place);
    }
    void leaveControl(bool forward) override {
        if (!station_->removed) desk_.records_->leftControl = forward ? 1 : -1;
    }
    void showEditor(const EditorView& editor) override {
        TextLine& box = station_->box;
        box.set(editor.text);
        box.selStart = editor.selStart;
        box.selLength = editor.selLength;
        box.limit = editor.limit;
        box.multiLine = editor.multiLine;
        box.plainSigns = editor.plainSigns;
        const bool newTip = !editor.tip.empty() && editor.tip != station_->tip;
        station_->tip = editor.tip;
        if (newTip && !station_->removed) desk_.showTip(editor.tip, onScreen(editor.rect));
    }
    void showSuggestions(const SuggestionView& list) override {
        ShownSuggestions shown;
        for (const Suggestion& one : list.candidates) {
            shown.texts.push_back(one.text);
            shown.notes.push_back(one.note);
        }
        shown.current = list.current;
        station_->suggestions = std::move(shown);
    }
    void showFindBar(bool replace) override { station_->findBars.push_back(replace); }
    void typeIntoEditor(std::string_view character) override {
        if (station_->removed) return;
        station_->box.insert(character);
        station_->report();
    }
    void editText(Command command) override {
        if (!station_->removed) desk_.editText(*station_, command);
    }
    void layoutChanged() override {}
    Rect onScreen(const Rect& place) const override {
        return {ScreenLeft + place.left, ScreenTop + place.top, place.width, place.height};
    }
    void settingChanged(std::string_view name) override {
        if (!station_->removed) desk_.records_->reports.emplace_back(name);
    }
    std::unique_ptr<WheelHook> wheelHook() override {
        class Hook : public WheelHook {
          public:
            explicit Hook(std::shared_ptr<Station> station) : station_(std::move(station)) {
                station_->wheelHook.emplace();
            }
            ~Hook() override { station_->wheelHook.reset(); }
            void range(std::int32_t fixedRows, std::int32_t step) override {
                station_->wheelHook->fixedRows = fixedRows;
                station_->wheelHook->step = step;
            }
            void position(std::int32_t topRow, std::int32_t lastRow) override {
                station_->wheelHook->topRow = topRow;
                station_->wheelHook->lastRow = lastRow;
            }
            void attach() override { station_->wheelHook->attached = true; }

          private:
            std::shared_ptr<Station> station_;
        };
        return std::make_unique<Hook>(station_);
    }

  private:
    Desk& desk_;
    std::shared_ptr<Station> station_;
};
}  // namespace kxVsGrid::headless
