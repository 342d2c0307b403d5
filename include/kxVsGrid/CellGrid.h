// The grid engine: rows and columns of cells, a current cell, a scrolled view; no window.
//
//     kxVsGrid::CellGrid grid;
//     grid.FormatString("行号|<货号    |>数量    ");
//     grid.Rows(1'000'000);
//     grid.Text(5, 1, "A001");
//     grid.CellChanged.connect([&](std::int32_t row, std::int32_t col) { repaint(row, col); });
//
// Rows and columns count from 0, fixed ones included: rows below FixedRows and columns below FixedCols are
// headers. A cell has a text (what it shows), data (a hidden string, the tag), an alignment and two colours,
// the last three "not set" until given. Sizes and places are twips. Misuse throws GridError, whose text names
// the member and the value; nothing has changed then. A listener of any event may destroy the grid: what was
// going on ends there.
//
// Cost: memory follows the cells that were written, and the rows whose ids were asked for, not the rows that
// exist. Reading and writing a cell is constant time; position <-> row is logarithmic; inserting or removing
// a row in the middle of a million moves no cells.
//
// Order of a move of the current cell, by code or by the user: BeforeRowColChange (cancelled: stop) ->
// LeaveCell (still the old cell) -> the cell changes -> EnterCell -> RowColChange -> AfterRowColChange ->
// SelChange. A listener that moves the current cell itself completes its own move first, with all its events.
// Before the current cell has changed that replaces the move under way, which raises nothing more; afterwards
// the outer move goes on to tell of itself. Rows that a listener inserts or removes carry the target of the
// move along; a target that vanishes ends the move.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kxVsGrid/CellMark.h"
#include "kxVsGrid/CellRange.h"
#include "kxVsGrid/ChangeListener.h"
#include "kxVsGrid/Enumerations.h"
#include "kxVsGrid/Event.h"
#include "kxVsGrid/Geometry.h"
#include "kxVsGrid/Members.h"
#include "kxVsGrid/RowId.h"

namespace kxVsGrid {

namespace support {
class TextPattern;
}

/// What of a grid lies under a point.
struct GridHit {
    enum class Part { Outside, Cell, FixedCell, ColumnEdge };
    Part part = Part::Outside;
    std::int32_t row = -1;
    std::int32_t col = -1;  ///< for ColumnEdge the column whose right edge it is
};

class CellGrid {
  public:
    static constexpr std::int32_t MaxCols = 32'766;
    static constexpr std::int32_t MaxRows = 100'000'000;
    static constexpr std::int32_t DefaultColWidth = 1000;
    static constexpr std::int32_t DefaultRowHeight = 300;
    static constexpr std::int32_t HorizontalBarHeight = 255;
    static constexpr std::int32_t VerticalBarWidth = 300;

    /// 10 columns, 6 rows, one fixed row and column, current cell (1, 1). The metrics must outlive the grid.
    explicit CellGrid(const TextMetrics& metrics = TextMetrics::fixed());
    ~CellGrid();
    CellGrid(const CellGrid&) = delete;
    CellGrid& operator=(const CellGrid&) = delete;

    // --- Size
    // 0 <= fixed <= count <= maximum, else GridError. Shrinking discards cells. Cols 0 is allowed: the fixed
    // columns become 0 and the current column -1, until columns return.
    std::int32_t Rows() const;
    void Rows(std::int32_t count);
    std::int32_t Cols() const;
    void Cols(std::int32_t count);
    std::int32_t FixedRows() const;
    void FixedRows(std::int32_t count);
    std::int32_t FixedCols() const;
    void FixedCols(std::int32_t count);

    /// So many columns after the fixed ones do not scroll either, hidden ones counted: data columns like the
    /// others. As many as was put, or as there are; GridError for a negative number. It stays through changes
    /// of Cols and FixedCols. Where not all columns fit into the view, only those stand still that leave 1000
    /// twips of it to the others, which scroll.
    std::int32_t FrozenCols() const;
    void FrozenCols(std::int32_t count);
    /// How many columns do not scroll now: the fixed ones, and the frozen ones there is room for. Where no
    /// scroll bars are allowed the width of the view does not limit them.
    std::int32_t StillCols() const;

    /// Inserts one empty row of default height before `position`; Rows() appends. A current cell at or below
    /// it follows its data, without events.
    void InsertRow(std::int32_t position);
    /// The same, for a row that was removed and comes back: it is the one that had this id. GridError when
    /// there is such a row, or never was one.
    void BringRowBack(std::int32_t position, RowId id);
    /// Removes one row. Removing the current row keeps the index, or takes the new last row; no events.
    void RemoveRow(std::int32_t position);

    /// Data rows [first, first + from.size()) change places; `from[i]` is the row, by its old place, that
    /// stands at first + i then. All that belongs to a row goes along: texts, data, looks, height, hidden and
    /// merging state, id. The current cell follows its row, without events; TopRow stays. Nothing happens
    /// where no row goes elsewhere. GridError when `from` does not name each of these rows once. When memory
    /// fails nothing has changed. Takes a time that grows with the number of rows between the first and the
    /// last that change places.
    void Reorder(std::int32_t first, std::span<const std::int32_t> from);
    /// The same for the data rows [first, first + count), which stand from `to` on then. GridError when they
    /// would not be data rows there.
    void MoveRows(std::int32_t first, std::int32_t count, std::int32_t to);

    // --- Who the rows are, wherever they go
    // An id is made when it is first asked for; rows that nobody asked about cost nothing. Asking takes a time
    // that grows with the logarithm of the number of ids.
    /// The row's id, which is never given to another one.
    RowId IdOf(std::int32_t row);
    /// The same; RowId::None for a row that nobody has asked about.
    RowId KnownId(std::int32_t row) const;
    /// Where the row is now; -1 when it has gone, and for what is no id of this grid's.
    std::int32_t RowOf(RowId id) const;
    /// Both for many rows at once, in much less time: the ids of the rows from `first` on, one for each place;
    /// where the rows of the ids are now, one place for each.
    void IdsOf(std::int32_t first, std::span<RowId> ids);
    void RowsOf(std::span<const RowId> ids, std::span<std::int32_t> rows) const;

    // --- The current cell. Code may put it into the fixed area.
    std::int32_t Row() const;
    void Row(std::int32_t row);
    std::int32_t Col() const;
    void Col(std::int32_t col);
    /// One move. Moving to where it is raises nothing. False when BeforeRowColChange cancelled it, or when
    /// what a listener did before the current cell changed replaced it or took its target away.
    bool Select(std::int32_t row, std::int32_t col);

    // --- What is selected beside the current cell: never a fixed cell, and only the current cell as long as
    // nothing else was taken. Selecting moves no current cell and raises none of its events; SelChange comes
    // once when something else is selected. Every move of the current cell ends the selection, and tells so
    // by the SelChange at its own end. Inserting and removing rows and columns, which raises none, keeps the
    // cells that were selected, as far as they are there; whole columns and all cells go on to be that.
    /// The user selects, with Shift and with the mouse. False at first: there he only moves.
    bool SelectsRanges() const;
    void SelectsRanges(bool ranges);
    /// Where the selection began, and the opposite corner, which Shift moves. The current cell, unless
    /// headers or code have begun it elsewhere; -1 where there is none.
    std::int32_t SelRow() const;
    std::int32_t SelCol() const;
    std::int32_t RowSel() const;
    std::int32_t ColSel() const;
    SelectionKind SelectedAs() const;
    /// Nothing but the current cell is selected.
    bool SelectsOneCell() const;
    /// The selected data cells, hidden ones between them included; empty when there are none.
    CellRange Selected() const;
    /// Selects from one data cell to another; Unselect when both are the current one.
    void SelectRange(std::int32_t anchorRow, std::int32_t anchorCol, std::int32_t cornerRow,
                     std::int32_t cornerCol);
    /// Whole rows, whole columns, everything. Nothing happens in a grid without data cells.
    void SelectRows(std::int32_t anchor, std::int32_t corner);
    void SelectCols(std::int32_t anchor, std::int32_t corner);
    void SelectAll();
    /// Nothing but the current cell is selected any more.
    void Unselect();
    /// Counts the cells of a range that are shown and lie in the data area, and adds up those that are a
    /// number: a text that is one as a whole, in a column of numbers or of no type; it counts what CellNumber says.
    /// Takes a time that grows with the rows that were ever written to; GridError when the range reaches
    /// beyond the grid.
    RangeSummary Summary(const CellRange& range) const;

    // --- Cells.
    std::string Text(std::int32_t row, std::int32_t col) const;
    void Text(std::int32_t row, std::int32_t col, std::string_view text);
    /// The text as the column's format shows it.
    std::string DisplayText(std::int32_t row, std::int32_t col) const;
    std::string Data(std::int32_t row, std::int32_t col) const;
    void Data(std::int32_t row, std::int32_t col, std::string_view data);
    /// Puts the data right where an event has failed in the middle of a pair: back, where the text could not
    /// follow, or in, where it has. Raises no CellChanged: the routine has ended with the failure.
    void RestoreData(std::int32_t row, std::int32_t col, std::string_view data);
    /// The same for the text, also where a whole state is put back and its texts follow from nothing.
    void RestoreText(std::int32_t row, std::int32_t col, std::string_view text);
    /// Writes the cell's data, then its text: the same as the two calls, in less time. False, and nothing is
    /// written, when the grid has no such cell; when a listener of the first takes the cell away, the text is
    /// not written. Where memory runs out both are the old ones or both the new ones, whatever the listeners
    /// hear; unless one of them throws, or writes to the same cells. `data` is a reference because it does
    /// not fit into registers any more: a view copied through memory is waited for at each of a million
    /// writes.
    bool Cell(std::int32_t row, std::int32_t col, std::string_view text, const std::string_view& data);
    /// Writes texts into the cells of a column from `firstRow` down, and tags, one for each text, or empties
    /// those where none are given: the same as Cell for one after the other, in less time. GridError, and
    /// nothing is written, when the cells are not all in the grid or the tags are not as many as the texts.
    /// Each cell is told as a single write tells it; where a listener removes rows, those that are not there
    /// any more are left out. What fails, for want of memory or in a listener, ends it: the cells before it
    /// are written, each with both halves, and none behind it.
    void Fill(std::int32_t col, std::int32_t firstRow, std::span<const std::string_view> texts,
              std::span<const std::string_view> tags = {});
    std::optional<mEmflexAlign> CellAlignment(std::int32_t row, std::int32_t col) const;
    void CellAlignment(std::int32_t row, std::int32_t col, std::optional<mEmflexAlign> alignment);
    std::optional<std::uint32_t> CellForeColor(std::int32_t row, std::int32_t col) const;
    void CellForeColor(std::int32_t row, std::int32_t col, std::optional<std::uint32_t> color);
    std::optional<std::uint32_t> CellBackColor(std::int32_t row, std::int32_t col) const;
    void CellBackColor(std::int32_t row, std::int32_t col, std::optional<std::uint32_t> color);
    /// Gives the cells of rows `firstRow` to `lastRow` of one column both colours; a whole column costs one
    /// entry. Nothing happens when the last row comes before the first; so with ClearText.
    void PaintColumn(std::int32_t col, std::int32_t firstRow, std::int32_t lastRow,
                     std::optional<std::uint32_t> foreColor, std::optional<std::uint32_t> backColor);
    /// Alignment as drawn: the cell's own, else its column's (in fixed rows the column's fixed alignment).
    /// General is resolved to left or right centre by the text.
    mEmflexAlign EffectiveAlignment(std::int32_t row, std::int32_t col) const;
    /// Empties texts and data of all cells of a row range; colours and alignments stay. Raises no
    /// CellChanged.
    void ClearText(std::int32_t firstRow, std::int32_t lastRow);

    using CellVisitor =
        std::function<void(std::int32_t row, std::int32_t col, std::string_view text, std::string_view data)>;
    /// Each cell of a row range that has a text or data stored, column by column; it may not write. Takes a
    /// time that grows with the rows that were ever written to. Computed texts and row numbers are not
    /// stored.
    void ForEachCell(std::int32_t firstRow, std::int32_t lastRow, const CellVisitor& visit) const;
    /// The same, of some of the columns; GridError when the range reaches beyond the grid.
    void ForEachCell(const CellRange& range, const CellVisitor& visit) const;

    using TextVisitor = std::function<void(std::int32_t row, std::string_view text)>;
    /// The cells of a row range in one column that have a text, computed ones included, row numbers not; it may
    /// not write. Takes a time that grows with the rows that were ever written to.
    void ForEachText(std::int32_t col, std::int32_t firstRow, std::int32_t lastRow,
                     const TextVisitor& visit) const;

    /// The first data row, other than `except`, whose stored text in the column is `text`; -1 for none. Takes
    /// a time that grows with the rows that were ever written to.
    std::int32_t RowWithText(std::int32_t col, std::string_view text, std::int32_t except = -1) const;

    /// For a search that goes through the rows bit by bit: adds those from `firstRow` to `lastRow` to `found` that are
    /// shown, and whose displayed text in the column has the pattern in it; those whose text is computed, which has to
    /// be asked for, are added to `computed`, shown or not. Row numbers are not looked at.
    void FindTexts(const support::TextPattern& pattern, std::int32_t col, std::int32_t firstRow,
                   std::int32_t lastRow, std::vector<std::int32_t>& found,
                   std::vector<std::int32_t>& computed) const;

    /// The cell's text is asked from `compute` at every look, until code writes a text there. Raises no
    /// CellChanged; nothing is stored. The cell takes it along when rows come or go before it, but `compute`
    /// does not follow: a row number that it holds goes on naming the row of that number, and what it reads
    /// from another cell repaints nothing when that cell changes.
    void ComputedText(std::int32_t row, std::int32_t col, std::function<std::string()> compute);
    /// From now on column 0 of data row r answers r - FixedRows + 1 from its position, until code writes a
    /// text there. Not stored, no CellChanged. Nothing without a fixed column; the numbers end when the last
    /// fixed column does.
    void NumberRows();
    /// A row number shows again where code had written the empty text over it; not stored, no CellChanged.
    void ShowRowNumber(std::int32_t row);
    /// The sum of the leading numbers of the displayed texts of a column's data rows, added up in row order
    /// in a double. Numbers once read are remembered until their cell changes.
    double ColumnSum(std::int32_t col) const;
    /// What one cell counts in that sum: the leading number of its displayed text. Where the column's format
    /// groups digits, separators between groups of three belong to the number; elsewhere a comma ends it.
    double CellNumber(std::int32_t row, std::int32_t col) const;

    // --- Marks on cells (CellMark.h)
    // A mark goes where its row goes. That of a row that is removed waits, and is there again when the row
    // comes back under its id. Columns take theirs along. A mark is no content: it is told to no
    // ChangeListener, and writing a cell leaves it. Memory follows the marks; a marked row gets an id.
    /// The mark on a cell; nullptr for none. Good until marks change. Takes a time that grows with the
    /// logarithm of the marks, none without any.
    const CellMark* Mark(std::int32_t row, std::int32_t col) const;
    /// Puts a mark in the place of the one that was there; nothing takes it away.
    void Mark(std::int32_t row, std::int32_t col, std::optional<CellMark> mark);
    /// Takes away all marks of a kind, or all there are, those of removed rows among them.
    void ClearMarks(std::optional<CellMark::Kind> kind = std::nullopt);
    /// The marked data cell (with a mark of that kind) that comes after the given one, row by row, and from
    /// the start on behind the last one; the given one itself when it is the only one. Hidden rows and columns
    /// are passed over. Any place to start from will do. Takes a time that grows with the number of marks.
    std::optional<MarkedCell> NextMark(std::int32_t row, std::int32_t col,
                                       std::optional<CellMark::Kind> kind = std::nullopt) const;

    // --- Columns. Setting a column property erases no cell setting.
    std::int32_t ColWidth(std::int32_t col) const;
    void ColWidth(std::int32_t col, std::int32_t twips);
    /// The text that the column is as wide as, also in another font, until a width is put; so are columns
    /// with the captions of FormatString. Empty for none: the width stays as it is.
    std::string ColSample(std::int32_t col) const;
    void ColSample(std::int32_t col, std::string_view sample);
    /// The metrics say something else now: columns with a sample get the width that it needs.
    void MeasureCols();
    bool ColHidden(std::int32_t col) const;
    void ColHidden(std::int32_t col, bool hidden);
    mEmflexAlign ColAlignment(std::int32_t col) const;
    void ColAlignment(std::int32_t col, mEmflexAlign alignment);
    /// Alignment of the column's cells in fixed rows.
    mEmflexAlign FixedAlignment(std::int32_t col) const;
    void FixedAlignment(std::int32_t col, mEmflexAlign alignment);
    /// Number or date format: "#,##0.00", "0%", "yyyy-mm-dd"; see DisplayText. Empty: none. Other letters
    /// than those of dates stand in quotation marks; a word is no format and changes nothing.
    std::string ColFormat(std::int32_t col) const;
    void ColFormat(std::int32_t col, std::string_view format);
    /// Whether a text is a format that shows something, or empty.
    static bool IsFormat(std::string_view format);
    /// The column's format separates groups of thousands.
    bool ColGroups(std::int32_t col) const;
    /// The column's format shows numbers as percent.
    bool ColPercent(std::int32_t col) const;
    mEmDataType ColDataType(std::int32_t col) const;
    void ColDataType(std::int32_t col, mEmDataType type);
    bool MergeCol(std::int32_t col) const;
    void MergeCol(std::int32_t col, bool merge);
    /// The column's last fixed cell bears a sign that rows are hidden by what stands in the column. False at first.
    bool ColFiltered(std::int32_t col) const;
    void ColFiltered(std::int32_t col, bool filtered);

    // --- Rows.
    std::int32_t RowHeight(std::int32_t row) const;
    void RowHeight(std::int32_t row, std::int32_t twips);
    bool RowHidden(std::int32_t row) const;
    void RowHidden(std::int32_t row, bool hidden);
    /// Hidden by a filter, which is a state of its own beside RowHidden; it goes with its row. New rows are not.
    bool RowFiltered(std::int32_t row) const;
    void RowFiltered(std::int32_t row, bool filtered);
    /// The same for the rows from `first` on, one for each flag, at once. When memory fails nothing has changed.
    void FilterRows(std::int32_t first, const std::vector<bool>& filtered);
    /// The same for single rows, from the first to the last one; where memory fails some may have changed. Takes a
    /// time that grows with their number, not with what lies between them.
    void FilterRows(const std::vector<std::pair<std::int32_t, bool>>& rows);
    /// How many rows of a range are hidden by a filter alone: those that RowHidden hides are not counted.
    std::int32_t FilteredRows(std::int32_t firstRow, std::int32_t lastRow) const;
    /// The row has a height and is neither hidden nor filtered.
    bool RowShown(std::int32_t row) const;
    /// Smaller rows are raised to this; 0 is none.
    std::int32_t RowHeightMin() const;
    void RowHeightMin(std::int32_t twips);
    bool MergeRow(std::int32_t row) const;
    void MergeRow(std::int32_t row, bool merge);

    /// Captions, widths and alignments: fields separated by '|' up to an optional ';', after which captions
    /// of column 0 follow. A field: optional '<' '^' '>', then the caption; an empty one changes nothing.
    /// More fields than columns raise the column count. Get returns the string as put; lowering Cols cuts it.
    std::string FormatString() const;
    void FormatString(std::string_view format);

    // --- The whole grid. Colours with the high bit set are system colours (window, button face, ...).
    std::uint32_t BackColor() const;
    void BackColor(std::uint32_t color);
    std::uint32_t BackColorBkg() const;  ///< the area beyond the cells
    void BackColorBkg(std::uint32_t color);
    std::uint32_t BackColorFixed() const;
    void BackColorFixed(std::uint32_t color);
    std::uint32_t ForeColor() const;
    void ForeColor(std::uint32_t color);
    std::uint32_t ForeColorFixed() const;
    void ForeColorFixed(std::uint32_t color);
    std::int32_t Appearance() const;  ///< 0 flat, 1 three-dimensional
    void Appearance(std::int32_t appearance);
    /// A ground of cells that is nobody's choice and gives way to a dark palette: it is drawn in FittedGrey.
    std::optional<std::uint32_t> FittedColor() const;
    void FittedColor(std::optional<std::uint32_t> color);
    /// How much darker than BackColor the cells of a column are drawn that have no colour of their own, in
    /// hundredths of black (of white where it is dark); asked with every picture. An empty function: not at
    /// all.
    const std::function<std::uint8_t(std::int32_t col)>& ColShade() const;
    void ColShade(std::function<std::uint8_t(std::int32_t col)> shade);
    /// What a data cell is tinted as: a cell that was found has a ground of its own in the place of its colour, a
    /// stronger one where the clerk is among those found. Asked for the cells in view with every picture. An empty
    /// function: none.
    enum class Tint : std::uint8_t { None, Found, FoundHere };
    const std::function<Tint(std::int32_t row, std::int32_t col)>& CellTint() const;
    void CellTint(std::function<Tint(std::int32_t row, std::int32_t col)> tint);
    /// A text too wide for its data cell is drawn over empty neighbours, away from the side that it is
    /// aligned to. For grids of few rows: each of them is drawn whole. False at first.
    bool TextsRunOver() const;
    void TextsRunOver(bool over);
    mEmflexMerge MergeCells() const;
    void MergeCells(mEmflexMerge merge);
    /// 0 painting is off, 1 on, 2 on and buffered.
    std::int32_t Redraw() const;
    void Redraw(std::int32_t drawing);
    /// False: no scroll bars ever. True (the start): shown when needed.
    bool ScrollBars() const;
    void ScrollBars(bool automatic);
    /// False: the current cell is not drawn as such (the total row).
    bool ShowCursor() const;
    void ShowCursor(bool show);
    /// True: the whole current row is highlighted, and Left and Right only scroll (pick-lists).
    bool SelectsRows() const;
    void SelectsRows(bool rows);

    /// Of the machine that shows the texts.
    const TextMetrics& Metrics() const;

    // --- The view.
    std::int32_t Width() const;
    std::int32_t Height() const;
    void Resize(std::int32_t width, std::int32_t height);
    /// A strip at the bottom of the cells that something else covers (the total row); rows can be scrolled
    /// clear of it.
    std::int32_t BottomStrip() const;
    void BottomStrip(std::int32_t twips);
    bool HorizontalBarShown() const;
    bool VerticalBarShown() const;
    /// The size without the scroll bars that are shown.
    std::int32_t ClientWidth() const;
    std::int32_t ClientHeight() const;
    /// First scrolled row and column shown, at least FixedRows and StillCols. A put is clamped, and shows them
    /// wholly; a change raises AfterScroll.
    std::int32_t TopRow() const;
    void TopRow(std::int32_t row);
    std::int32_t LeftCol() const;
    void LeftCol(std::int32_t col);
    /// Both at once, with one AfterScroll.
    void ScrollTo(std::int32_t topRow, std::int32_t leftCol);
    /// The same, with so much of them scrolled away; an offset that is not less than the row or column counts
    /// as none.
    void ScrollTo(std::int32_t topRow, std::int32_t leftCol, std::int32_t topOffset, std::int32_t leftOffset);
    /// Scrolls by twips, to the right and down, or back: as far as the start, and as far as the last column and
    /// row stand wholly in view, the row above the strip at the bottom.
    void ScrollBy(std::int32_t right, std::int32_t down);
    /// How much of the first scrolled row and column is scrolled away: 0 unless ScrollBy was used. They are
    /// headers or frozen columns that lie over it.
    std::int32_t TopOffset() const;
    std::int32_t LeftOffset() const;
    /// Goes back to where the view stood before it was scrolled last, as near as it may stand now.
    void ScrollBack();
    /// The largest values that puts are clamped to.
    std::int32_t MaxTopRow() const;
    std::int32_t MaxLeftCol() const;
    /// "In view": not hidden, and its rectangle overlaps the client area.
    bool RowIsVisible(std::int32_t row) const;
    bool ColIsVisible(std::int32_t col) const;
    /// Place of a cell in the view, also when it lies outside of it.
    Rect CellRect(std::int32_t row, std::int32_t col) const;
    /// Of the current cell.
    std::int32_t CellLeft() const;
    std::int32_t CellTop() const;
    std::int32_t CellWidth() const;
    std::int32_t CellHeight() const;
    GridHit HitTest(std::int32_t x, std::int32_t y) const;
    /// Sums of extents, hidden ones counting 0: of the whole grid, of the fixed area.
    std::int64_t TotalHeight() const;
    std::int64_t TotalWidth() const;
    std::int32_t FixedHeight() const;
    std::int32_t FixedWidth() const;
    /// Of the columns that do not scroll.
    std::int32_t StillWidth() const;
    /// Scrolls, as TopRowToShow says, and where the row is the first one and cut. Nothing where it is shown wholly.
    void BringRowIntoView(std::int32_t row, std::int32_t bottom);
    /// The same for a column and the right edge.
    void BringColIntoView(std::int32_t col, std::int32_t right);
    /// The top row that shows `row` wholly between the fixed area and `bottom` (twips from the view's top)
    /// with the least movement; the present one when it is shown already. A row taller than that space is
    /// shown from its top.
    std::int32_t TopRowToShow(std::int32_t row, std::int32_t bottom) const;
    /// The same for a column and the right edge. One that does not scroll is shown already.
    std::int32_t LeftColToShow(std::int32_t col, std::int32_t right) const;
    /// The `steps`-th row after `row` that is neither hidden nor without height, fixed ones included; the
    /// last one when there are fewer, -1 when there is none. Found at once, however many rows are passed.
    std::int32_t ShownRowAfter(std::int32_t row, std::int32_t steps = 1) const;
    /// The same before `row`.
    std::int32_t ShownRowBefore(std::int32_t row, std::int32_t steps = 1) const;

    // --- What the machine reports.
    /// Raises KeyDown; not zeroed, arrows, Home, End and pages move, except with Alt; with Shift they move
    /// the corner of the selection where the user selects. True when the key did something here: a listener
    /// zeroed it, or it moved, selected or scrolled.
    bool keyDown(std::int16_t code, std::int16_t shift);
    /// Raises CharacterTyped and KeyPress. The character may not fit into the 16 bits. Answers what is left
    /// of these: 0 when the key was used up.
    std::int16_t keyPress(std::int16_t ascii, std::string_view character = {});
    /// `leadsThere` False: what was pressed is there no more, and the press moves nothing. Where the user
    /// selects, Shift moves the corner to the pressed cell, headers take whole rows and columns, the corner
    /// between them everything; mouseMove extends, and goes one row or column on each time it is told of a
    /// place beside the data cells with the left button down, until mouseUp.
    void mouseDown(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y,
                   bool leadsThere = true);
    void mouseMove(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y);
    /// The last move of the mouse has scrolled; told again, it scrolls on. So a window repeats it.
    bool DragScrolls() const;
    void mouseUp(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y);
    /// The second press of a double click. Only the left button's raises DblClick; on a column's edge it drags
    /// nothing, and raises EdgeDblClick instead.
    void doubleClick(std::int16_t button, std::int16_t shift, std::int32_t x, std::int32_t y);
    /// Rows to scroll; positive is down. A first row that is cut counts as one on the way up.
    void wheel(std::int32_t rows);
    /// The user has given a column another width: raises BeforeUserResize, sets it, raises AfterUserResize.
    void userColWidth(std::int32_t col, std::int32_t twips);

    // --- Damage: what of the picture is no longer right.
    /// Called when a clean picture gets its first damage; a window then asks for a paint.
    void onDamage(std::function<void()> listener);
    struct Damage {
        bool all = false;
        std::vector<Rect> rects;  ///< in the view
    };
    /// What has been damaged since the last call; the picture counts as clean afterwards. None while Redraw
    /// is 0.
    Damage takeDamage();
    /// Marks the whole picture.
    void damageAll();
    /// Marks a cell: its computed text has become another one.
    void damageCell(std::int32_t row, std::int32_t col);

    /// Hears of a change of texts, formats or rows right before it happens: `col` is the column, -1 for all.
    class Watcher {
      public:
        virtual ~Watcher() = default;
        virtual void contentWillChange(std::int32_t col) = 0;
        /// Whether it wants to hear of a cell of the column now. It is asked at every write, also at those
        /// that change nothing.
        virtual bool awaits(std::int32_t) const { return true; }
        /// The quick answer: False proves that it awaits no cell of the column.
        bool mayAwait(std::int32_t col) const {
            return (heeded_ >> (static_cast<std::uint32_t>(col) % 64) & 1) != 0;
        }

      protected:
        /// It awaits cells of no column from now on, but of those that it names.
        void heedNone() { heeded_ = 0; }
        void heed(std::int32_t col) { heeded_ |= std::uint64_t{1} << (static_cast<std::uint32_t>(col) % 64); }

      private:
        std::uint64_t heeded_ = ~std::uint64_t{0};  ///< a bit for all columns that are alike modulo 64
    };
    /// One watcher at a time; nullptr for none. It must outlive the grid or be taken away.
    void watch(Watcher* watcher);
    /// Tells a listener of every change of the content, from now on and until it is removed.
    void AddListener(ChangeListener& listener);
    /// Does nothing for one that does not listen. Allowed while it is being told.
    void RemoveListener(ChangeListener& listener);
    /// Tells the listeners of the cells that were filled and are not told yet (ChangeListener::filled).
    void TellFilled();
    /// Tells the listeners of a step of changes, which somebody else keeps track of.
    void TellStepOpened(std::string_view name, Cause cause);
    void TellStepClosed(std::string_view name, Cause cause);
    /// A step was told as opened, and not as closed.
    bool StepOpen() const;
    /// Raises nothing any more, for an owner that is destroyed while the grid is still at work.
    void silence();

    // --- Events.
    Event<std::int32_t, std::int32_t, std::int32_t, std::int32_t, bool&> BeforeRowColChange;
    Event<> LeaveCell;
    Event<> EnterCell;
    Event<> RowColChange;
    Event<std::int32_t, std::int32_t, std::int32_t, std::int32_t> AfterRowColChange;
    /// The end of a move; something else is selected.
    Event<> SelChange;
    /// After every assignment of text or data that changes the stored value, one per slot.
    Event<std::int32_t, std::int32_t> CellChanged;
    Event<std::int16_t&, std::int16_t> KeyDown;
    /// A key press with its whole character, before KeyPress tells of the 16 bits; 0 says that somebody has
    /// used it up.
    Event<std::int16_t&, std::string_view> CharacterTyped;
    Event<std::int16_t&> KeyPress;
    Event<std::int16_t, std::int16_t, float, float> MouseDown;
    Event<std::int16_t, std::int16_t, float, float> MouseMove;
    Event<std::int16_t, std::int16_t, float, float> MouseUp;
    Event<> Click;
    Event<> DblClick;
    /// Old top row and left column, new ones.
    Event<std::int32_t, std::int32_t, std::int32_t, std::int32_t> AfterScroll;
    /// Only TopOffset or LeftOffset has changed: the old ones, the new ones. Where TopRow or LeftCol has changed,
    /// AfterScroll alone tells of it.
    Event<std::int32_t, std::int32_t, std::int32_t, std::int32_t> OffsetChanged;
    /// The edge of a column was grabbed, or the user gives it another width in another way; -1, the column.
    Event<std::int32_t, std::int32_t> BeforeUserResize;
    /// The user is done with it, whether or not the width is another one.
    Event<std::int32_t, std::int32_t> AfterUserResize;
    /// The second press of a double click on the right edge of a column, beside its header.
    Event<std::int32_t> EdgeDblClick;
    /// Raised only by code that reports the end of an edit of the grid's own; the engine edits no cells.
    Event<std::int32_t, std::int32_t> AfterEdit;
    /// The number of rows or columns was put; comes before the other events that this brings about.
    Event<> SizeChanged;
    /// A width, a height, a hidden state, the size or the fixed area has changed, and cells may have moved in
    /// the view. Scrolling, SizeChanged, RowMoved and RowsReordered tell of themselves.
    Event<> PlacesChanged;
    /// Mark or ClearMarks has changed something. Rows and columns that take marks along tell of themselves.
    Event<> MarksChanged;
    /// A row was inserted (true) or removed at a position; the engine's state is already the new one.
    Event<std::int32_t, bool> RowMoved;
    /// Rows from a position on have changed places (Reorder); which one, by its old place, stands at each of
    /// them now. The engine's state is already the new one.
    Event<std::int32_t, std::span<const std::int32_t>> RowsReordered;

  private:
    struct Impl;
    std::shared_ptr<Impl> held() const { return impl_; }
    std::shared_ptr<Impl> impl_;  // held by what goes on after an event, whose listener may destroy the grid
};
}  // namespace kxVsGrid
