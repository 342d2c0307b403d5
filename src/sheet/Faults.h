// What is wrong with the lines, by what the host has said of them.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "sheet/CodeColumns.h"
#include "sheet/Computing.h"
#include "sheet/Lines.h"
#include "sheet/SheetContext.h"

namespace kxVsGrid::sheet {

class Faults {
  public:
    Faults(const SheetContext& context, const Lines& lines, const Computing& computing, CodeColumns& codes)
        : c_(context), lines_(lines), computing_(computing), codes_(codes) {}

    /// Visits what is wrong, row by row; the visitor answers whether to go on. Codes that could not be found are
    /// looked up again first, and each different code once.
    void visit(const std::function<bool(Fault)>& visitor) const;
    /// The same in one row, without looking again for what could not be found.
    void visit(std::int32_t row, const std::function<bool(Fault)>& visitor) const;
    /// Why a text may not be typed into the cell; empty where it may.
    std::string refusal(std::int32_t row, std::int32_t column, std::string_view text) const;

  private:
    struct Reason {
        std::string text;  ///< empty where nothing is wrong
        FaultKind kind = FaultKind::Rule;
    };
    bool visitRow(std::int32_t row, CodeColumns::Answers& answers,
                  const std::function<bool(Fault)>& visitor) const;
    /// Of one cell of a line, in the host's words; `known` where the whole record could be read.
    std::optional<Fault> at(const void* record, std::int32_t row, std::int32_t column, bool known,
                            CodeColumns::Answers& answers) const;
    Reason reason(const void* record, std::int32_t row, std::int32_t column, bool known,
                  CodeColumns::Answers& answers) const;
    std::string missing(const void* record, std::int32_t row, std::int32_t column, bool known) const;
    bool isBlankZero(const void* record, std::int32_t row, std::int32_t column) const;
    bool isReadable(std::int32_t column, const std::string& text) const;
    std::string brokenRule(const void* record, std::int32_t column, bool typed) const;

    const SheetContext& c_;
    const Lines& lines_;
    const Computing& computing_;
    CodeColumns& codes_;
};
}  // namespace kxVsGrid::sheet
