// Builds the three tables that a host answers GetHelpCodeInfo with, so that nobody counts positions by hand.
//
//     grid.GetHelpCodeInfo.connect([&](const Variant&, Variant& Grid_code, Variant& GridInfo,
//                                      Variant& GridData) {
//         HelpTable table("货号");
//         table.field("code", "货号").field("name", "品名", 3000);
//         table.field("price", "单价", 1200, HelpKind::Number);
//         table.result("code", "name").search({"code", "name"});
//         for (const Good& good : goods) table.row({good.code, good.name, good.price});
//         table.answer(Grid_code, GridInfo, GridData);
//     });
//
// The tables by hand:
//
// Grid_code has one dimension: element 0 is the host's own (HelpTable puts the code field's name there),
// element 1 the list's name, which the message about an empty list shows.
//
// GridInfo has one entry per field (first index, from 0) with numbered attributes (second index), see
// HelpPosition. Entry 0 carries, beside its own field, the settings of the whole help. Trailing entries
// without a field name are no fields; with one field alone there must be such a spare entry.
//
// GridData has one row per record (first index) and one column per field (second index, from its lower
// bound).
//
// A table counts as present when it is an array whose first upper bound is not 0. What is missing in it, or
// cannot be read, counts as empty.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/Enumerations.h"
#include "kxVsGrid/Variant.h"

namespace kxVsGrid {

/// The numbers of the attributes of an entry of GridInfo.
namespace HelpPosition {
constexpr std::int32_t FieldName = 1;
constexpr std::int32_t Header = 13;  ///< the field name where there is none
constexpr std::int32_t Width = 14;   ///< of the column in twips; 1500 where there is none
/// A number of mEmflexAlign; without it numbers right, others by their texts.
constexpr std::int32_t Alignment = 15;
constexpr std::int32_t Visible = 17;    ///< "0" or False: hidden
constexpr std::int32_t Decimals = 18;   ///< of a number, 0 to 15; without it "#,##0.00" is shown
constexpr std::int32_t Thousands = 19;  ///< "1" or True: a number with decimals given has separators
constexpr std::int32_t Kind = 39;       ///< a number of HelpKind; text where there is none
constexpr std::int32_t Last = 43;

// In entry 0:
constexpr std::int32_t EditComponent = 2;  ///< handed to the host by the edit button
constexpr std::int32_t CodeField = 5;      ///< name of the field whose value becomes the code
constexpr std::int32_t NameField = 6;      ///< and the name; searched when no search field has the text
constexpr std::int32_t Editable = 8;       ///< "1" or True: the edit button is shown
constexpr std::int32_t SearchFields = 9;   ///< names, separated by ';'
}  // namespace HelpPosition

/// What the values of a field are. Amounts and quantities show as "00", prices as "0000": whole numbers of at
/// least so many digits.
enum class HelpKind : std::int32_t {
    Text = 0,
    Number = 5,
    Date = 7,
    Amount = i金额型,
    Quantity = i数量型,
    Price = i单价型,
};

class HelpTable {
  public:
    /// `caption` names the list in the message that it is empty.
    explicit HelpTable(std::string_view caption);

    /// A column of the list; width in twips. `decimals` and `thousands` shape the kind Number.
    HelpTable& field(std::string_view name, std::string_view header, std::int32_t width = 1500,
                     HelpKind kind = HelpKind::Text, std::int32_t decimals = 2, bool thousands = true);
    /// Of the last field.
    HelpTable& alignment(mEmflexAlign alignment);
    HelpTable& hidden();

    /// The fields whose values become code and name. Without it the first field is both.
    HelpTable& result(std::string_view codeField, std::string_view nameField);
    /// The fields that are searched, first wins. Without it the name field is.
    HelpTable& search(std::initializer_list<std::string_view> fields);
    HelpTable& search(std::span<const std::string> fields);
    /// Shows the edit button; `component` is handed to GetHelpEdit.
    HelpTable& editable(std::string_view component = {});

    /// One record, values in the order of the fields; missing ones are empty.
    HelpTable& row(std::vector<Variant> values);

    Variant Grid_code() const;
    Variant GridInfo() const;
    Variant GridData() const;
    void answer(Variant& Grid_code, Variant& GridInfo, Variant& GridData) const;

  private:
    struct Field {
        std::string name;
        std::string header;
        std::int32_t width;
        HelpKind kind;
        std::int32_t decimals;
        bool thousands;
        mEmflexAlign alignment;
        bool visible;
    };
    std::string caption_;
    std::vector<Field> fields_;
    std::string codeField_;
    std::string nameField_;
    std::string searchFields_;
    bool editable_ = false;
    std::string component_;
    std::vector<std::vector<Variant>> rows_;
};
}  // namespace kxVsGrid
