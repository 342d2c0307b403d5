#include "dialogs/LookupForm.h"

#include <algorithm>

#include "cellgrid/format/CellFormat.h"
#include "dialogs/Captions.h"
#include "kxVsGrid/HelpExchange.h"
#include "support/Numbers.h"
#include "support/Text.h"

namespace kxVsGrid::dialogs {

namespace {

/// The lower bound of a record's fields; each array in an array has its own.
std::int32_t firstFieldOf(const Table& records, std::int32_t record) {
    if (records.dimensions() == 2) return records.lower(2);
    const Table* const fields = records.at(record).table();
    return fields ? fields->lower() : 0;
}
}  // namespace

/// At half of this size the controls that keep their height still clear each other and the edge.
LookupForm::LookupForm(const TextMetrics& metrics)
    : Form("XT_TybmczFrm", captions::LookupTitle, 7200, 5100),
      grid_(metrics),
      text_(add("TextBox", "CodeText", captions::Search, {840, 150, 4290, 330})),
      list_(add("CellGrid", "CzxsGrid", captions::LookupTitle, {120, 810, 6960, 3420})),
      message_(add("Label", "lblmessage", "", {120, 4440, 2400, 240})),
      notFound_(add("Label", "NotFound", "", {5220, 195, 960, 240})),
      edit_(add("kxButton", "Bjcommand", captions::Edit, {3240, 4380, 1200, 360})),
      ok_(add("CommandButton", "QdCommand", captions::Ok, {4560, 4380, 1200, 360})) {
    add("Label", "Label1", captions::Search, {120, 195, 720, 240});
    add("CommandButton", "QxCommand", captions::Cancel, {5880, 4380, 1200, 360}).isCancel = true;
    list_.grid = &grid_;
    ok_.isDefault = true;
    edit_.visible = false;
}

LookupForm::~LookupForm() = default;

// --- Load

void LookupForm::load() {
    HelpExchange& exchange = HelpExchange::shared();
    helpCode_ = std::exchange(exchange.HelpCode, {});
    definition_.emplace(exchange.GridInfo);
    edit_.visible = definition_->editable();
    searchColumns_ = definition_->searchColumns();
    nameColumn_ = definition_->FindColumn(definition_->nameField());
    grid_.Redraw(0);
    grid_.Resize(list_.place.width, list_.place.height);
    layOut();
    fill();
    grid_.Redraw(1);
    const std::string start(support::trim(exchange.SearchText));
    resize_.py_Init(*this);
    giveFocus(text_);
    text_.text = start;
    text_.selStart = 0;
    text_.selLength = static_cast<std::int32_t>(support::characters(start));
    changed(text_);
    changed(edit_);
    if (start.empty()) return;
    search();
    startRow_ = grid_.Row();
}

void LookupForm::layOut() {
    const std::vector<LookupField>& fields = definition_->fields();
    grid_.Cols(static_cast<std::int32_t>(fields.size()));
    grid_.FixedCols(0);
    grid_.FixedRows(1);
    grid_.SelectsRows(true);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const auto col = static_cast<std::int32_t>(i);
        const LookupField& field = fields[i];
        grid_.Text(0, col, field.header);
        grid_.ColWidth(col, field.width);
        grid_.ColAlignment(col, field.alignment);
        grid_.FixedAlignment(col, flexAlignCenterCenter);
        grid_.ColHidden(col, !field.visible);
        grid_.ColFormat(col, field.format);
    }
}

/// One row for each record; a value that is missing leaves its cell empty.
void LookupForm::fill() {
    const Variant& data = HelpExchange::shared().GridData;
    grid_.Rows(grid_.FixedRows());
    const Table* const table = data.table();
    const std::int32_t cols = grid_.Cols();
    const std::int64_t records = table ? std::int64_t{table->upper()} - table->lower() + 1 : 0;
    grid_.Rows(
        static_cast<std::int32_t>(std::min<std::int64_t>(grid_.FixedRows() + records, CellGrid::MaxRows)));
    for (std::int32_t col = 0; col < cols; ++col) {
        const LookupField& field = definition_->fields()[static_cast<std::size_t>(col)];
        const cellgrid::CellFormat format(field.format);
        for (std::int32_t row = grid_.FixedRows(); row < grid_.Rows(); ++row) {
            const std::int32_t record = table->lower() + row - grid_.FixedRows();
            const std::string value = textOf(elementOf(data, record, firstFieldOf(*table, record) + col));
            if (!value.empty()) grid_.Text(row, col, shownText(value, field, format));
        }
    }
    message_.caption = "共 " + std::to_string(records) + " 条";
    changed(message_);
    buildIndexes();
}

/// Numbers show alike however the host writes them: "1,234.5" and " 1234.50" are one number.
std::string LookupForm::shownText(const std::string& value, const LookupField& field,
                                  const cellgrid::CellFormat& format) const {
    std::string shown;
    const std::string plain = field.number ? support::withoutGroups(support::trim(value), true) : value;
    return format.apply(plain, shown) ? shown : value;
}

// --- Search

/// The order that a search needs is made while nothing else is to be done.
void LookupForm::buildIndexes() {
    indexes_.clear();
    std::vector<std::int32_t> columns = searchColumns_;
    columns.push_back(nameColumn_);
    const std::int32_t fixed = grid_.FixedRows();
    for (const std::int32_t col : columns) {
        if (indexOf(col) || col >= grid_.Cols()) continue;
        const auto text = [this, col, fixed](std::int32_t row) { return grid_.Text(row + fixed, col); };
        indexes_.emplace_back(col, std::make_unique<PrefixIndex>(grid_.Rows() - fixed, text));
    }
    if (building_ || !window()) return;
    building_ = true;
    window()->whenIdle([this] {
        const auto waiting = std::find_if(indexes_.begin(), indexes_.end(),
                                          [](const Indexed& each) { return !each.second->built(); });
        building_ = waiting != indexes_.end();
        if (building_) waiting->second->build();
        return building_;
    });
}

const PrefixIndex* LookupForm::indexOf(std::int32_t col) const {
    for (const auto& [indexed, index] : indexes_)
        if (indexed == col) return index.get();
    return nullptr;
}

/// Lowest row first, then first column in the list; the name column when no search column has the text.
std::optional<LookupForm::Hit> LookupForm::find(std::string_view text) const {
    std::optional<Hit> best;
    const auto look = [&](std::int32_t col) {
        const PrefixIndex* const index = indexOf(col);
        const std::int32_t stop = (best ? best->row : grid_.Rows()) - grid_.FixedRows();
        const auto record = index ? index->find(text, stop) : std::nullopt;
        if (record && *record < stop) best = Hit{grid_.FixedRows() + *record, col};
    };
    for (const std::int32_t col : searchColumns_) look(col);
    const auto& searched = searchColumns_;
    if (!best && std::find(searched.begin(), searched.end(), nameColumn_) == searched.end())
        look(nameColumn_);
    return best;
}

void LookupForm::search() {
    const std::string_view text = support::trim(text_.text);
    const auto hit = find(text);
    sayWhetherFound(hit || text.empty());
    if (hit) return show(*hit);
    // OK returns the row that was found last: the clerk sees which one.
    const std::int32_t row = grid_.Row();
    if (row >= grid_.FixedRows() && !grid_.RowIsVisible(row))
        grid_.BringRowIntoView(row, grid_.ClientHeight());
}

void LookupForm::sayWhetherFound(bool found) {
    notFound_.caption = found ? "" : captions::NotFound;
    changed(notFound_);
}

/// The keyboard is the grid's for one Left key, which scrolls back to the first columns, and the text box's
/// again; the window leaves it where it is all the while.
void LookupForm::show(const Hit& hit) {
    grid_.Select(hit.row, hit.col);
    grid_.keyDown(static_cast<std::int16_t>(Key::Left), 0);
    grid_.TopRow(hit.row);
}

void LookupForm::textChanged(FormControl& box) {
    if (&box == &text_) search();
}

// --- The clerk

/// Keys that move the highlight do so from the search box too.
bool LookupForm::keyDown(FormControl& focused, std::int16_t code, std::int16_t shift) {
    if (&focused != &text_ || shift != 0) return false;
    const auto key = static_cast<Key>(code);
    if (key != Key::Up && key != Key::Down && key != Key::PageUp && key != Key::PageDown) return false;
    grid_.keyDown(code, 0);
    return true;
}

void LookupForm::doubleClicked(FormControl& control) {
    if (&control == &list_) accept();
}

void LookupForm::pressed(FormControl& button) {
    if (&button == &ok_)
        accept();
    else if (&button == &edit_)
        edit();
    else
        finish({}, {});
}

std::string LookupForm::cell(std::int32_t row, std::string_view field) const {
    return std::string(support::trim(grid_.Text(row, definition_->FindColumn(field))));
}

void LookupForm::accept() {
    const std::int32_t row = grid_.Row();
    if (row < grid_.FixedRows() || grid_.Cols() == 0) return finish({}, {});
    // Nothing was changed where the initial text names its row already.
    if (row == startRow_ && cell(row, definition_->nameField()) == text_.text) return finish({}, {});
    finish(cell(row, definition_->codeField()), cell(row, definition_->nameField()));
}

void LookupForm::finish(std::string code, std::string name) {
    HelpExchange::shared().ReturnCode = std::move(code);
    HelpExchange::shared().ReturnName = std::move(name);
    close();
}

void LookupForm::edit() {
    Variant& data = HelpExchange::shared().GridData;
    HelpExchange& exchange = HelpExchange::shared();
    const std::int32_t row = grid_.Row();
    const bool onRecord = row >= grid_.FixedRows() && row < grid_.Rows() && grid_.Cols() > 0;
    exchange.RowCode = onRecord ? cell(row, definition_->codeField()) : std::string();
    EvHasGetHelpEdit(data, definition_->editComponent());
    const std::string code = std::exchange(exchange.RowCode, {});
    if (data.isEmpty() || data.isNull()) return;
    fill();
    highlight(code);
}

/// The record of this code; where there is none the highlight stays where filling has left it.
void LookupForm::highlight(const std::string& code) {
    if (code.empty() || grid_.Cols() == 0) return;
    for (std::int32_t row = grid_.FixedRows(); row < grid_.Rows(); ++row) {
        if (cell(row, definition_->codeField()) != code) continue;
        if (row != grid_.Row()) grid_.Row(row);
        if (!grid_.RowIsVisible(row)) grid_.TopRow(row);
        return;
    }
}

void LookupForm::resized() {
    resize_.ResizeForm(*this);
    grid_.Resize(list_.place.width, list_.place.height);
}
}  // namespace kxVsGrid::dialogs
