// Any tables, lists of constants and texts in the dialogs of a column's help, worked by any keys: a search
// must lead where looking at every cell leads, and what is returned must stand in the current row.
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

#include "dialogs/CalendarForm.h"
#include "dialogs/ConstantForm.h"
#include "dialogs/LookupForm.h"
#include "kxVsGrid/HelpExchange.h"
#include "kxVsGrid/HelpTable.h"
#include "kxVsGrid/headless/Desk.h"
#include "support/Dates.h"
#include "support/Text.h"

namespace {

using namespace kxVsGrid;
using headless::CalendarDialog;
using headless::ConstantDialog;
using headless::LookupDialog;

void require(bool condition, const char* what, std::string_view text) {
    if (condition) return;
    std::cerr << what << ": \"" << text << "\"\n";
    std::abort();
}

/// Takes choices from the input; all are 0 once it is used up.
class Bytes {
  public:
    Bytes(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
    bool left() const { return size_ > 0; }
    std::int32_t below(std::int32_t count) { return next() % count; }
    std::int32_t between(std::int32_t least, std::int32_t most) { return least + below(most - least + 1); }

    std::string text() {
        static constexpr std::array<std::string_view, 12> Pieces = {
            "a", "A", "b", "1", ";", "|", " ", "货", "物", std::string_view("\0", 1), "\xff", "aaaaaaaa"};
        std::string text;
        for (std::int32_t length = below(6); length > 0; --length)
            text += Pieces[static_cast<std::size_t>(below(Pieces.size()))];
        return below(200) == 199 ? text + std::string(10'000, 'a') : text;
    }
    Variant value(int depth = 2) {
        switch (below(12)) {
            case 0:
                return {};
            case 1:
                return Variant::null();
            case 2:
                return below(2) == 1;
            case 3:
                return static_cast<std::int16_t>(next() - 100);
            case 4:
                return below(50);
            case 5:
                return (next() - 100) * 1e5 / 7;
            case 6:
                return depth > 0 ? table(depth - 1) : Variant();
            case 7:
                return std::to_string(below(12));
            case 8:
                return std::string(1, static_cast<char>('a' + below(4)));  // the name of a field
            default:
                return text();
        }
    }
    /// A table of one or two dimensions, its elements of any kind.
    Variant table(int depth = 1) {
        const std::int32_t lower = between(-1, 1);
        const std::int32_t upper = lower - 1 + below(9);
        if (below(3) == 0) {
            Table rows(lower, upper);
            for (std::int32_t i = lower; i <= upper; ++i)
                rows.at(i) = depth > 0 ? table(depth - 1) : value(0);
            return rows;
        }
        const std::int32_t lower2 = between(-1, 1);
        const std::int32_t upper2 = lower2 - 1 + below(6);
        Table cells(lower, upper, lower2, upper2);
        for (std::int32_t i = lower; i <= upper; ++i)
            for (std::int32_t j = lower2; j <= upper2; ++j) cells.at(i, j) = value(depth);
        return cells;
    }
    /// A definition as it should be, but for a few attributes.
    Variant definition() {
        if (below(8) == 0) return table();
        const std::int32_t fields = between(1, 4);
        Table info(0, fields, 0, HelpPosition::Last);
        for (std::int32_t i = 0; i < fields; ++i)
            info.at(i, HelpPosition::FieldName) = std::string(1, static_cast<char>('a' + i));
        info.at(0, HelpPosition::CodeField) = std::string(1, static_cast<char>('a' + below(4)));
        info.at(0, HelpPosition::NameField) = std::string(1, static_cast<char>('a' + below(4)));
        std::string search;
        for (std::int32_t n = below(4); n > 0; --n)
            search += std::string(1, static_cast<char>('a' + below(4))) + ";";
        if (!search.empty()) search.pop_back();
        info.at(0, HelpPosition::SearchFields) = search;
        info.at(0, HelpPosition::Editable) = below(2) == 1;
        for (std::int32_t n = below(6); n > 0; --n)
            info.at(below(fields + 1), below(HelpPosition::Last + 1)) = value(1);
        return info;
    }

  private:
    std::int32_t next() {
        if (size_ == 0) return 0;
        --size_;
        return *data_++;
    }
    const std::uint8_t* data_;
    std::size_t size_;
};

constexpr std::array Keys = {Key::Up,   Key::Down, Key::PageUp, Key::PageDown, Key::Home, Key::End,
                             Key::Left, Key::Back, Key::Delete, Key::Tab,      Key::F2};

/// The hit of a text, by looking at every cell.
bool leadsTo(const CellGrid& grid, const dialogs::LookupDefinition& definition, std::string_view text,
             std::int32_t& row, std::int32_t& col) {
    const std::vector<std::int32_t> name{definition.FindColumn(definition.nameField())};
    for (const auto& columns : {definition.searchColumns(), name})
        for (std::int32_t r = grid.FixedRows(); r < grid.Rows(); ++r)
            for (const std::int32_t c : columns)
                if (c < grid.Cols() && grid.Text(r, c).starts_with(text)) return row = r, col = c, true;
    return false;
}

void search(LookupDialog& dialog, const dialogs::LookupDefinition& definition, const std::string& text) {
    const CellGrid& grid = dialog.grid();
    std::int32_t row = grid.Row();
    std::int32_t col = grid.Col();
    if (text != dialog.CodeText()) leadsTo(grid, definition, support::trim(text), row, col);
    dialog.CodeText(text);
    require(grid.Row() == row && grid.Col() == col, "the search leads elsewhere", text);
}

/// What is returned is two empty texts, or stands in the row.
void checkReturned(const std::string& code, const std::string& name) {
    const HelpExchange& exchange = HelpExchange::shared();
    const bool nothing = exchange.ReturnCode.empty() && exchange.ReturnName.empty();
    require(nothing || (exchange.ReturnCode == code && exchange.ReturnName == name),
            "what is returned is not in the row", exchange.ReturnCode);
}

void clear(Bytes& bytes) {
    HelpExchange::shared() = {};
    HelpExchange::shared().SearchText = bytes.text();
}

void lookUp(headless::Desk& desk, Bytes& bytes) {
    clear(bytes);
    HelpExchange& exchange = HelpExchange::shared();
    exchange.GridInfo = bytes.definition();
    exchange.GridData = bytes.table();
    const dialogs::LookupDefinition definition(exchange.GridInfo);
    dialogs::LookupForm form(desk.textMetrics());
    form.startSize(bytes.below(200) * 100, bytes.below(200) * 100);
    form.EvHasGetHelpEdit.connect([&](Variant& data, const std::string&) {
        data = bytes.below(3) == 0 ? bytes.value() : bytes.table();
    });
    desk.onDialog([&](LookupDialog& dialog) {
        const CellGrid& grid = dialog.grid();
        while (bytes.left() && dialog.open()) {
            switch (bytes.below(8)) {
                case 0:
                    dialog.idle();
                    break;
                case 1:
                    dialog.press(Keys[static_cast<std::size_t>(bytes.below(Keys.size()))]);
                    break;
                case 2:
                    if (dialog.editShown()) dialog.Edit();
                    break;
                case 3:
                    dialog.resize(bytes.below(250) * 50, bytes.below(250) * 50);
                    break;
                default:
                    search(dialog, definition, bytes.text());
            }
        }
        const std::int32_t row = grid.Row();
        const auto cell = [&](const std::string& field) {
            return grid.Cols() == 0
                       ? ""
                       : std::string(support::trim(grid.Text(row, definition.FindColumn(field))));
        };
        const std::string code = cell(definition.codeField());
        const std::string name = cell(definition.nameField());
        dialog.Ok();
        checkReturned(code, name);
        require(row > 0 || exchange.ReturnCode + exchange.ReturnName == "", "the header was returned", code);
    });
    desk.showForm(form, {});
}

void chooseConstant(headless::Desk& desk, Bytes& bytes) {
    clear(bytes);
    std::string list;
    for (std::int32_t n = bytes.below(20); n > 0; --n) list += bytes.text();
    HelpExchange::shared().HelpCode = list;
    dialogs::ConstantForm form(desk.textMetrics());
    desk.onDialog([&](ConstantDialog& dialog) {
        for (std::int32_t n = bytes.below(8); n > 0; --n)
            dialog.press(Keys[static_cast<std::size_t>(bytes.below(Keys.size()))]);
        const CellGrid& grid = dialog.grid();
        const std::string code(support::trim(grid.Text(grid.Row(), 2)));
        const std::string name(support::trim(grid.Text(grid.Row(), 1)));
        require(list.find('|') == 0 || list.empty() || grid.Rows() > 1, "a list without rows", list);
        dialog.Ok();
        checkReturned(code, name);
    });
    desk.showForm(form, {});
}

void chooseDate(headless::Desk& desk, Bytes& bytes) {
    using Mode = dialogs::CalendarForm::Mode;
    clear(bytes);
    std::string start;
    for (std::int32_t n = bytes.below(20); n > 0; --n)
        start += std::string_view("0123456789-./: ")[static_cast<std::size_t>(bytes.below(15))];
    HelpExchange::shared().SearchText = start + (bytes.below(2) == 1 ? "" : bytes.text());
    dialogs::CalendarForm form(static_cast<Mode>(bytes.below(3)), [&desk] { return desk.now(); });
    desk.onDialog([](CalendarDialog& dialog) { dialog.Ok(); });
    desk.showForm(form, {});
    const std::string day = HelpExchange::shared().ReturnCode.substr(0, 10);
    require(support::parseDate(day).has_value(), "no date was returned", day);
    checkReturned(HelpExchange::shared().ReturnName, HelpExchange::shared().ReturnName);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Bytes bytes(data, size);
    headless::Desk desk;
    switch (bytes.below(4)) {
        case 0:
            chooseConstant(desk, bytes);
            break;
        case 1:
            chooseDate(desk, bytes);
            break;
        default:
            lookUp(desk, bytes);
    }
    HelpExchange::shared() = {};
    return 0;
}
