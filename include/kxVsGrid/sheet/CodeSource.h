// What a column of codes asks: the record of a code, what may be meant, the whole list. Codes<T> is one.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "kxVsGrid/HelpTable.h"
#include "kxVsGrid/Suggestions.h"

namespace kxVsGrid::sheet {

class CodeSource {
  public:
    using Found = std::shared_ptr<const void>;

    virtual ~CodeSource() = default;
    /// The record of what was typed, which may be a code in another form than its own; none where there is none.
    /// May throw: then nobody knows.
    virtual Found find(std::string_view typed) const = 0;
    /// The code as it is to stand in the cell.
    virtual std::string codeOf(const void* found) const = 0;
    /// For the clerk; never empty.
    virtual std::string nameOf(const void* found) const = 0;
    /// An empty function where nothing is suggested.
    virtual SuggestionSource suggestions() const = 0;
    /// There is a list to choose from.
    virtual bool listed() const = 0;
    virtual HelpTable list(const std::string& caption) const = 0;
};
}  // namespace kxVsGrid::sheet
