// The searchable pick-list of a code column: finds a record by what its code, or another field, starts with.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "dialogs/LookupDefinition.h"
#include "dialogs/PrefixIndex.h"
#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Event.h"
#include "kxVsGrid/Form.h"
#include "kxVsGrid/cResize.h"

namespace kxVsGrid::cellgrid {
class CellFormat;
}

namespace kxVsGrid::dialogs {

/// Reads definition, records and search text from the help exchange record and leaves the chosen code and
/// name there; both empty when nothing was chosen.
class LookupForm : public Form {
  public:
    explicit LookupForm(const TextMetrics& metrics);
    ~LookupForm() override;

    /// GridData, the edit component's name: the edit button was pressed; the listener may replace the table.
    Event<Variant&, const std::string&> EvHasGetHelpEdit;

  protected:
    void load() override;
    void resized() override;
    void pressed(FormControl& button) override;
    void textChanged(FormControl& box) override;
    void doubleClicked(FormControl& control) override;
    bool keyDown(FormControl& focused, std::int16_t code, std::int16_t shift) override;

  private:
    struct Hit {
        std::int32_t row;
        std::int32_t col;
    };
    using Indexed = std::pair<std::int32_t, std::unique_ptr<PrefixIndex>>;  // a column and its index

    void layOut();
    void fill();
    std::string shownText(const std::string& value, const LookupField& field,
                          const cellgrid::CellFormat& format) const;
    void buildIndexes();
    const PrefixIndex* indexOf(std::int32_t col) const;
    void search();
    void sayWhetherFound(bool found);
    void highlight(const std::string& code);
    std::optional<Hit> find(std::string_view text) const;
    void show(const Hit& hit);
    void accept();
    void edit();
    void finish(std::string code, std::string name);
    std::string cell(std::int32_t row, std::string_view field) const;

    CellGrid grid_;
    FormControl& text_;
    FormControl& list_;
    FormControl& message_;
    FormControl& notFound_;
    FormControl& edit_;
    FormControl& ok_;
    cResize resize_;
    std::optional<LookupDefinition> definition_;
    std::string helpCode_;
    std::vector<std::int32_t> searchColumns_;
    std::int32_t nameColumn_ = 0;  ///< searched when no search column has the text
    std::vector<Indexed> indexes_;
    bool building_ = false;       ///< the window works at the indexes
    std::int32_t startRow_ = -1;  ///< where the initial text led; -1 without one
};
}  // namespace kxVsGrid::dialogs
