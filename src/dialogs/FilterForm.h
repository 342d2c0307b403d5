// The list of a column's texts, of which the clerk ticks those whose rows shall be shown.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Form.h"
#include "kxVsGrid/cResize.h"

namespace kxVsGrid::dialogs {

struct FilterChoice {
    std::string text;
    std::int64_t rows;
    bool ticked;
};

/// What is typed narrows the list and ticks just what is found, so that OK shows it; without a search the ticks are
/// again as the clerk had put them. The search box has the keyboard: arrows move in the list from there, and until
/// something is typed again Space ticks the row. A press ticks, too.
class FilterForm : public Form {
  public:
    enum class Outcome { Cancelled, Chosen, Ended };

    FilterForm(const TextMetrics& metrics, const std::string& column, std::vector<FilterChoice> choices,
               bool filtered);

    Outcome outcome() const { return outcome_; }
    /// The texts that are shown; after Chosen.
    const std::vector<std::string>& texts() const { return chosen_; }

  protected:
    void load() override;
    void resized() override;
    void pressed(FormControl& button) override;
    void textChanged(FormControl& box) override;
    void doubleClicked(FormControl& control) override;
    bool keyDown(FormControl& focused, std::int16_t code, std::int16_t shift) override;

  private:
    void fill();
    void narrow();
    void toggle(std::int32_t row);
    void show(std::size_t choice, bool ticked);
    void tick(std::size_t choice, bool ticked);
    void tickAll(bool ticked);
    void accept();
    void say(const std::string& message);
    void sayWhatIsListed();
    bool listed(std::size_t choice) const;
    bool searches() const;

    std::vector<FilterChoice> choices_;  ///< ticked as without a search
    std::vector<bool> ticked_;           ///< as the list shows it, where it does
    std::vector<std::string> lowered_;   ///< what is searched, of each choice
    CellGrid grid_;
    FormControl& text_;
    FormControl& list_;
    FormControl& message_;
    FormControl& all_;
    FormControl& none_;
    FormControl& end_;
    FormControl& ok_;
    cResize resize_;
    bool inList_ = false;  ///< the clerk has moved in the list since he typed
    Outcome outcome_ = Outcome::Cancelled;
    std::vector<std::string> chosen_;
};
}  // namespace kxVsGrid::dialogs
