#include "dialogs/FilterForm.h"

#include <algorithm>
#include <utility>

#include "dialogs/Captions.h"
#include "support/Text.h"

namespace kxVsGrid::dialogs {
namespace {

constexpr std::int32_t Tick = 0;
constexpr std::int32_t TextCol = 1;
constexpr std::int32_t RowsCol = 2;
constexpr std::int32_t TickWidth = 510;
constexpr std::int32_t RowsWidth = 900;
constexpr std::int32_t ListRowHeight = 300;

const std::string& captionOf(const FilterChoice& choice) {
    static const std::string Empty = captions::EmptyText;
    return choice.text.empty() ? Empty : choice.text;
}

std::string_view tickText(bool ticked) {
    return ticked ? "-1" : "0";
}

std::string lowered(std::string_view text) {
    std::string lower(text);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return lower;
}
}  // namespace

FilterForm::FilterForm(const TextMetrics& metrics, const std::string& column,
                       std::vector<FilterChoice> choices, bool filtered)
    : Form("XT_Filter", column.empty() ? captions::FilterTitle : captions::FilterTitle + ("：" + column),
           4500, 5400),
      choices_(std::move(choices)),
      grid_(metrics),
      text_(add("TextBox", "SearchText", captions::Search, {240, 150, 4020, 330})),
      list_(add("CellGrid", "TextsGrid", captions::FilterTitle, {240, 630, 4020, 3300})),
      message_(add("Label", "Message", "", {240, 4020, 4020, 240})),
      all_(add("CommandButton", "AllCommand", captions::TickAll, {240, 4380, 1200, 360})),
      none_(add("CommandButton", "NoneCommand", captions::TickNone, {1560, 4380, 1200, 360})),
      end_(add("CommandButton", "EndCommand", captions::EndFilter, {240, 4860, 1200, 360})),
      ok_(add("kxButton", "QdCommand", captions::Ok, {1740, 4860, 1200, 360})) {
    add("CommandButton", "QxCommand", captions::Cancel, {3060, 4860, 1200, 360}).isCancel = true;
    list_.grid = &grid_;
    ok_.isDefault = true;
    end_.enabled = filtered;
    grid_.MouseDown.connect([this](std::int16_t button, std::int16_t, float x, float y) {
        const GridHit hit = grid_.HitTest(static_cast<std::int32_t>(x), static_cast<std::int32_t>(y));
        if (button == LeftButton && hit.part == GridHit::Part::Cell) toggle(hit.row);
    });
}

void FilterForm::load() {
    grid_.Redraw(0);
    grid_.Resize(list_.place.width, list_.place.height);
    grid_.Cols(3);
    grid_.FixedRows(1);
    grid_.FixedCols(0);
    grid_.RowHeightMin(ListRowHeight);
    grid_.SelectsRows(true);
    grid_.ColDataType(Tick, flexDTBoolean);
    grid_.ColDataType(TextCol, flexDTString);
    grid_.ColWidth(Tick, TickWidth);
    grid_.ColWidth(RowsCol, RowsWidth);
    grid_.ColAlignment(TextCol, flexAlignLeftCenter);
    grid_.ColAlignment(RowsCol, flexAlignRightCenter);
    for (std::int32_t col = 0; col < grid_.Cols(); ++col) grid_.FixedAlignment(col, flexAlignCenterCenter);
    fill();
    grid_.Redraw(1);
    resize_.py_Init(*this);
    giveFocus(text_);
    changed(end_);
    sayWhatIsListed();
}

void FilterForm::fill() {
    grid_.Text(0, TextCol, captions::FilterText);
    grid_.Text(0, RowsCol, captions::FilterRows);
    grid_.Rows(1);
    grid_.Rows(static_cast<std::int32_t>(choices_.size()) + 1);
    lowered_.reserve(choices_.size());
    ticked_.resize(choices_.size());
    for (std::size_t i = 0; i < choices_.size(); ++i) {
        const auto row = static_cast<std::int32_t>(i) + 1;
        grid_.Text(row, TextCol, captionOf(choices_[i]));
        grid_.Text(row, RowsCol, std::to_string(choices_[i].rows));
        ticked_[i] = choices_[i].ticked;
        grid_.Text(row, Tick, tickText(ticked_[i]));
        lowered_.push_back(lowered(captionOf(choices_[i])));
    }
    grid_.Select(0, TextCol);
    resized();
}

// --- The list

bool FilterForm::listed(std::size_t choice) const {
    return !grid_.RowFiltered(static_cast<std::int32_t>(choice) + 1);
}

bool FilterForm::searches() const {
    return !support::trim(text_.text).empty();
}

/// No row is the current one then: Enter is OK, and what is typed goes on in the search.
void FilterForm::narrow() {
    const std::string wanted = lowered(support::trim(text_.text));
    std::vector<bool> hidden;
    hidden.reserve(choices_.size());
    for (std::size_t i = 0; i < choices_.size(); ++i) {
        const bool found = lowered_[i].find(wanted) != std::string::npos;
        hidden.push_back(!found);
        if (found) show(i, !wanted.empty() || choices_[i].ticked);
    }
    grid_.FilterRows(1, hidden);
    grid_.Select(0, TextCol);
    grid_.TopRow(1);
    sayWhatIsListed();
}

/// Of many texts a key changes few ticks: those that it does not find keep what they showed, unseen.
void FilterForm::show(std::size_t choice, bool ticked) {
    if (ticked_[choice] == ticked) return;
    ticked_[choice] = ticked;
    grid_.Text(static_cast<std::int32_t>(choice) + 1, Tick, tickText(ticked));
}

/// By the clerk himself: it stays when he searches no more.
void FilterForm::tick(std::size_t choice, bool ticked) {
    choices_[choice].ticked = ticked;
    show(choice, ticked);
}

void FilterForm::toggle(std::int32_t row) {
    if (row < 1 || !grid_.RowShown(row)) return;
    const auto choice = static_cast<std::size_t>(row) - 1;
    tick(choice, !ticked_[choice]);
    sayWhatIsListed();
}

void FilterForm::tickAll(bool ticked) {
    for (std::size_t i = 0; i < choices_.size(); ++i)
        if (listed(i)) tick(i, ticked);
    sayWhatIsListed();
}

void FilterForm::say(const std::string& message) {
    message_.caption = message;
    changed(message_);
}

void FilterForm::sayWhatIsListed() {
    const auto hidden = static_cast<std::size_t>(grid_.FilteredRows(1, grid_.Rows() - 1));
    if (hidden == choices_.size() && searches()) return say(captions::NotFound);
    say((searches() ? "找到 " : "共 ") + std::to_string(choices_.size() - hidden) + " 项");
}

// --- The clerk

void FilterForm::textChanged(FormControl& box) {
    if (&box != &text_) return;
    inList_ = false;
    narrow();
}

bool FilterForm::keyDown(FormControl& focused, std::int16_t code, std::int16_t shift) {
    if (shift != 0 || (&focused != &text_ && &focused != &list_)) return false;
    const auto key = static_cast<Key>(code);
    if (key == Key::Space && (&focused == &list_ || inList_)) {
        toggle(grid_.Row());
        return true;
    }
    const bool moves = key == Key::Up || key == Key::Down || key == Key::PageUp || key == Key::PageDown;
    if (&focused != &text_ || !moves) return false;
    grid_.keyDown(code, 0);
    inList_ = grid_.Row() >= grid_.FixedRows();
    return true;
}

void FilterForm::doubleClicked(FormControl& control) {
    if (&control == &list_) toggle(grid_.Row());
}

void FilterForm::resized() {
    if (window()) resize_.ResizeForm(*this);
    grid_.Resize(list_.place.width, list_.place.height);
    constexpr std::int32_t Edges = 90;
    const std::int32_t room = list_.place.width - TickWidth - RowsWidth - CellGrid::VerticalBarWidth - Edges;
    grid_.ColWidth(TextCol, std::max(room, RowsWidth));
}

void FilterForm::pressed(FormControl& button) {
    if (&button == &all_) return tickAll(true);
    if (&button == &none_) return tickAll(false);
    if (&button == &ok_) return accept();
    if (&button == &end_) outcome_ = Outcome::Ended;
    close();
}

/// A list in which all is ticked is no filter.
void FilterForm::accept() {
    chosen_.clear();
    bool all = true;
    bool any = false;
    for (std::size_t i = 0; i < choices_.size(); ++i) {
        any = any || listed(i);
        if (ticked_[i] && listed(i))
            chosen_.push_back(choices_[i].text);
        else
            all = false;
    }
    if (chosen_.empty()) return say(any ? captions::NothingTicked : captions::NothingListed);
    outcome_ = all ? Outcome::Ended : Outcome::Chosen;
    close();
}
}  // namespace kxVsGrid::dialogs
