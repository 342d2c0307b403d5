// The page on which the columns of a grid are set up where forms are designed: one column at a time, every
// property of its definition, written back when the page is applied.
//
//     kxVsGrid::GridColumns columns(grid);            // or a ColumnSource of the designer's own
//     kxVsGrid::ControlPage page;
//     page.select({&columns});
//     platform.showForm(page, {});                    // or qt::showForm(parent, page)
//
// The page is a form: a machine shows its controls and tells it what is done there. Its button Command1 loads
// the list of columns into Combo1; Combo2 holds the alignments, Combo3 the kinds of data, Txt(0), Txt(1), ...
// the texts and numbers, Chk(0), Chk(1), ... the yes/no settings, each with its property's name beside it.
// QdCommand (OK) applies and closes, QxCommand (Cancel) closes, YyCommand (Apply) is enabled by changes.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/Form.h"
#include "kxVsGrid/cResize.h"
#include "kxVsGrid/cVsControl.h"

namespace kxVsGrid {

/// A grid control as the page sees it.
class ColumnSource {
  public:
    virtual ~ColumnSource() = default;
    virtual std::string FormatString() = 0;
    virtual std::int32_t Cols() = 0;
    /// The current column; SetVsControl is its definition, nothing where there is none yet.
    virtual std::int32_t Col() = 0;
    virtual void Col(std::int32_t col) = 0;
    virtual std::shared_ptr<cVsControl> SetVsControl() = 0;
    virtual void SetVsControl(std::shared_ptr<cVsControl> definition) = 0;
    /// The page has written a definition: the grid shows it.
    virtual void applied() {}
};

class ControlPage : public Form {
  public:
    ControlPage();
    ~ControlPage() override;

    /// The grid controls that are selected in the designer; the page works on the first, which must outlive
    /// its use here. Shows its current column; what was typed and not applied is dropped. None empties the
    /// page.
    void select(const std::vector<ColumnSource*>& grids);
    /// Presses Command1: loads the list of columns and of what Combo2 and Combo3 offer.
    void loadColumns();
    /// Something was changed that has not been applied.
    bool Changed() const { return changed_; }
    /// Told when that changes.
    void onChanged(std::function<void(bool)> listener) { listener_ = std::move(listener); }
    /// Writes everything shown into the definition of the chosen column. False when that cannot be done (a
    /// box holds no number where one is needed, the column has gone or cannot be chosen): nothing is written
    /// then, such a box gets the keyboard, and problem() says what is wrong.
    bool Apply();

    /// What the page has to say at its bottom; empty most of the time.
    const std::string& problem() const;
    /// Says something there, until the page is applied or shows another column.
    void explain(std::string_view text);

  protected:
    void load() override;
    void resized() override;
    void pressed(FormControl& button) override;
    void textChanged(FormControl& box) override;
    void checkChanged(FormControl& box) override;
    void picked(FormControl& list) override;

  private:
    struct Boxes;
    void fillLists();
    void chooseColumn(std::int32_t col);
    void show();
    void showChoice();
    void enable(bool there);
    void markChanged(bool now);

    std::unique_ptr<Boxes> boxes_;
    cResize resize_;
    std::function<void(bool)> listener_;
    ColumnSource* source_ = nullptr;
    std::int32_t col_ = -1;
    bool changed_ = false;
};
}  // namespace kxVsGrid
