// The pick-list of a column whose help is a list of constants written into its definition: "Male;1|Female;2".
#pragma once

#include <string>

#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Form.h"
#include "kxVsGrid/cResize.h"

namespace kxVsGrid::dialogs {

/// Reads the list from the help exchange record and leaves there what was picked. The header row is current
/// until the clerk moves; it picks nothing.
class ConstantForm : public Form {
  public:
    explicit ConstantForm(const TextMetrics& metrics);

  protected:
    void load() override;
    void resized() override;
    void pressed(FormControl& button) override;
    void doubleClicked(FormControl& control) override;

  private:
    void fill();
    void fitColumns();
    void accept();
    void finish(std::string code, std::string name);

    const TextMetrics& metrics_;
    CellGrid grid_;
    FormControl& list_;
    FormControl& ok_;
    cResize resize_;
};
}  // namespace kxVsGrid::dialogs
