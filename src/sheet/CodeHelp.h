// What F2 shows in columns of codes: the list of the source, with its edit button, or one of the host's own.
#pragma once

#include <cstdint>
#include <string>

#include "sheet/CodeColumns.h"
#include "sheet/SheetContext.h"

namespace kxVsGrid::sheet {

class CodeHelp {
  public:
    explicit CodeHelp(const SheetContext& context) : c_(context) {}

    // Each answers what is for one of these columns, and nothing else.
    void list(const Variant& basis, Variant& code, Variant& info, Variant& data) const;
    void edit(const std::string& basis, Variant& data) const;
    /// The help of the current column is the host's own: the text that is typed becomes the name.
    void choose(std::int32_t x, std::int32_t y, std::string& text, Variant& code) const;

  private:
    HelpTable tableOf(const ColumnPlan& plan) const;
    /// Of the exception that is being handled: it goes on to where nobody is told.
    void tellFailed() const;

    const SheetContext& c_;
};
}  // namespace kxVsGrid::sheet
