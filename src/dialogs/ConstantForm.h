// The pick-list of a column whose help is a list of constants written into its definition: "Male;1|Female;2".
#pragma once

#include <string>
#include <string_view>

#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Form.h"
#include "kxVsGrid/cResize.h"

namespace kxVsGrid::dialogs {

/// Reads the list and the editor's text from the help exchange record and leaves there what was picked. The
/// constant that the text is, by name or value, is current at first, without one the header row, which picks
/// nothing. What the clerk types leads to the first constant that begins so.
class ConstantForm : public Form {
  public:
    explicit ConstantForm(const TextMetrics& metrics);

  protected:
    void load() override;
    void resized() override;
    void pressed(FormControl& button) override;
    void textChanged(FormControl& box) override;
    void doubleClicked(FormControl& control) override;
    bool keyDown(FormControl& focused, std::int16_t code, std::int16_t shift) override;

  private:
    void fill();
    void fitColumns();
    bool valuesAreNames() const;
    std::int32_t roomForOne() const;
    std::int32_t rowOf(std::string_view text, bool whole) const;
    void show(std::int32_t row);
    void sayWhetherFound(bool found);
    void accept();
    void finish(std::string code, std::string name);

    const TextMetrics& metrics_;
    CellGrid grid_;
    FormControl& text_;
    FormControl& list_;
    FormControl& notFound_;
    FormControl& ok_;
    cResize resize_;
};
}  // namespace kxVsGrid::dialogs
