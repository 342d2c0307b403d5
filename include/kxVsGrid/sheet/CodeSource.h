// What a column of codes asks: the record of a code, what may be meant, the whole list. Codes<T> is one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/HelpTable.h"
#include "kxVsGrid/Suggestions.h"
#include "kxVsGrid/sheet/FieldText.h"

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
    /// Why the record cannot be chosen, though it is there; empty where it can.
    virtual std::string objection(const void* found) const = 0;
    /// An empty function where nothing is suggested.
    virtual SuggestionSource suggestions() const = 0;
    /// There is a list to choose from.
    virtual bool listed() const = 0;
    /// May throw.
    virtual HelpTable list(const std::string& caption) const = 0;
    /// How wide it begins, in twips; 0: as any list.
    virtual std::int32_t listWidth() const = 0;
    /// The list has an edit button. The record that was made or changed; none when there is none. May throw.
    virtual bool editable() const = 0;
    virtual Found edit(const std::string& code) const = 0;
    /// The host shows a list of its own, at a place of the screen in twips. May throw.
    virtual bool chosenByHost() const = 0;
    virtual Found choose(std::int32_t x, std::int32_t y, const std::string& typed) const = 0;
};

/// Makes the list of a source: columns first, then records.
class CodeListing {
  public:
    /// So many other texts does it search beside code and name.
    CodeListing(const std::string& caption, std::size_t others);
    void column(const std::string& header, std::int32_t width, FieldKind kind,
                std::optional<int> decimals = {});
    /// Code, name, the other texts, and those of the columns.
    void record(const std::vector<std::string>& texts);
    HelpTable table() const { return table_; }

  private:
    HelpTable table_;
    std::size_t hidden_;            ///< texts before those of the columns
    std::vector<FieldKind> kinds_;  ///< of the columns
};

/// What was typed without the blanks around it, those of full width too.
std::string_view trimmedCode(std::string_view typed);
/// The same with full-width digits and signs as their ASCII selves.
std::string plainCode(std::string_view typed);
}  // namespace kxVsGrid::sheet
