// The tests' window with help on its columns: code a list of goods, date a calendar, remark a list of
// constants, quantity the host's own.
#pragma once

#include "kxVsGrid/HelpTable.h"
#include "qt/Dialogs.h"

namespace kxVsGrid::qt::testing {

class HelpWindow : public Window {
  public:
    HelpWindow();

    /// What the list shows: code, name, initials, price.
    std::vector<std::vector<Variant>> goods;
    bool editable = false;
    int committed = 0;  ///< edits that the host heard of

    /// Opens the editor over a cell with this text.
    void write(std::int32_t row, std::int32_t col, const QString& text);
    void pressHelpButton();
    /// The editor stands open with this text and has the keyboard again.
    void expectEditing(const QString& text);
    std::string tag(std::int32_t row, std::int32_t col) { return grid().Grid().Data(row, col); }

    static std::vector<std::vector<Variant>> manyGoods(int count);
    HelpTable table() const;
};

enum Good : std::int32_t { GoodCode, GoodName, GoodInitials, GoodPrice };

/// The list of records or constants that a dialog shows.
inline CellGrid& list(const Dialog& d) {
    return dynamic_cast<FormGrid&>(d.part("CzxsGrid")).grid();
}
}  // namespace kxVsGrid::qt::testing
