// The data-entry grid: a clerk keys business documents row after row, a host describes columns and answers
// events.
//
//     kxVsGrid::kxGrid& grid = widget.grid();          // or desk.place() in a test
//     grid.Cols(4);
//     grid.FormatString("行号|<货号    |>数量    |>金额      ");
//     grid.VsCtrl(2)->iType(kxVsGrid::flexDTDouble);
//     grid.VsCtrl(2)->b是否合计数据(true);
//     grid.SumRow(true);
//     grid.AddVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
//     grid.ReDraw(true);                               // applies the definitions, keeps totals from here on
//
// Rows and columns count from 0, fixed ones included; sizes are twips; colours are 32-bit values, those with
// the high bit set name system colours. A property is a pair of overloads with the same name. Events are
// listed in GridEvents.h.
//
// A listener of any event may destroy the control: what was going on ends, and nothing more is raised.
//
// Errors: SetCell, Fill, ReadCell, RawText and ReadSum show a message box and go on, whatever a host threw; a cell
// outside the grid is ignored. The other members throw GridError when they are misused, and let a host
// handler's exception through.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Changes.h"
#include "kxVsGrid/ColumnLayout.h"
#include "kxVsGrid/ColumnOptions.h"
#include "kxVsGrid/Commands.h"
#include "kxVsGrid/Draft.h"
#include "kxVsGrid/Enumerations.h"
#include "kxVsGrid/Filters.h"
#include "kxVsGrid/Find.h"
#include "kxVsGrid/GridEvents.h"
#include "kxVsGrid/HelpTable.h"
#include "kxVsGrid/Members.h"
#include "kxVsGrid/Options.h"
#include "kxVsGrid/Platform.h"
#include "kxVsGrid/PropertyBag.h"
#include "kxVsGrid/cVsControl.h"

namespace kxVsGrid {

class kxGrid : public GridEvents {
  public:
    /// The bare control; follow with InitProperties (newly placed) or ReadProperties (loaded). The platform
    /// must outlive it.
    explicit kxGrid(Platform& platform);
    ~kxGrid();
    kxGrid(const kxGrid&) = delete;
    kxGrid& operator=(const kxGrid&) = delete;

    /// A newly placed control: Editable True, bIsShowZero False, SumRow False.
    void InitProperties();
    /// Loads the settings that a container kept (StoredKeys.h names them), applying each at once. An error of
    /// the bag or a value that does not fit shows a message box and ends the reading: what was applied stays,
    /// and from then on no control of the process saves, until one has read completely or is newly placed.
    void ReadProperties(PropertyBag& bag);
    /// Saves them; nothing while a control of the process is being loaded. An error shows a message box.
    void WriteProperties(PropertyBag& bag);

    /// Switches beyond what is stored; they take effect with the next act of the clerk.
    GridOptions& Options();
    const GridOptions& Options() const;
    /// The rules of a column (ColumnOptions.h). They belong to its number, as its definition does, and go
    /// when Cols becomes smaller. GridError outside 0 to Cols() - 1.
    ColumnOptions& Options(std::int32_t Col);

    // --- The way back (Changes.h).
    /// What can be undone and redone.
    kxVsGrid::History& History();
    /// What the steps have changed.
    kxVsGrid::Changes& Changes();
    /// Begins a step of the host's: what is written until it ends is undone at once. The name is for the
    /// clerk.
    [[nodiscard]] ChangeStep Step(std::string_view name);
    /// What is written while it lives is not to be undone, as with texts that follow from others.
    [[nodiscard]] UnrecordedSpan Unrecorded();

    /// Puts the control into the state that a draft of it has kept (Draft.h; recoverDraft says what `document`
    /// is and when it refuses). What is being typed is dropped, and nothing of it can be undone. Totals, row
    /// numbers and colours are made anew, bIsDirty is True, and Changes() counts it as changed since Saved().
    DraftInfo Recover(std::string_view draft, bool document);

    // --- Commands (Command.h).
    /// Does what a clerk's key for it would do on a closed cell; an open editor is committed first. False when
    /// it could not be done.
    bool Run(Command command);
    /// Whether there is anything that it could do.
    bool CanRun(Command command) const;
    kxVsGrid::Commands& Commands();
    const kxVsGrid::Commands& Commands() const;
    /// Finding texts in the cells, and replacing them (Find.h).
    Finder& Find();

    /// Which rows are hidden by the texts of their cells (Filters.h).
    kxVsGrid::Filters& Filters();
    const kxVsGrid::Filters& Filters() const;

    // --- The editor.
    /// Applies the current column's rules and commits an open editor. False when the input is refused.
    bool ValidTextData();
    /// The same, as a property.
    bool IsValid();
    /// The rule on empty and zero values that a cell breaks by its tag, in the words that the clerk would be
    /// told; empty when it breaks none, in the fixed area and outside the grid. Looks at the cell, not at an
    /// editor open over it, and does nothing else: no move, no box, no commit.
    std::string Problem(std::int32_t Row, std::int32_t Col) const;
    /// Text and tag of the editor. Hidden it mirrors the current cell, whoever writes there; what is put here
    /// meanwhile stands until then.
    std::string Text() const;
    void Text(std::string_view text);
    std::string TextTag() const;
    void TextTag(std::string_view tag);

    // --- Cells.
    /// Writes a cell's text and tag, after committing an open editor. Unless bIsShowZero, a zero in a number
    /// column and no date, or 1900-01-01, in a date column become empty; fixed cells are written as given. A
    /// cell outside the grid is ignored.
    void SetCell(std::int32_t Row, std::int32_t Col, std::string_view psDisplay, std::string_view psTag = {});
    /// Writes a cell as if the clerk had typed the text there and committed it: with all checks and what follows
    /// from it, as one step; an open editor is committed first. Answers in words for the clerk why the text was
    /// refused, where the cell stays as it was; empty when it stands. For values that come from elsewhere: a view
    /// beside the grid, a bar-code reader. Lets through what a listener throws.
    std::string Enter(std::int32_t Row, std::int32_t Col, std::string_view psText);
    /// SetCell for the cells of a column from `FirstRow` down, one for each text; without tags it empties them.
    /// An open editor is committed once, before. Much faster than single SetCells: for loading whole columns.
    /// Rows outside the grid are left out. A failure ends it with one message box and False; what was written stays.
    /// GridError when there are tags, but not as many as texts.
    bool Fill(std::int32_t Col, std::int32_t FirstRow, std::span<const std::string_view> psDisplays,
              std::span<const std::string_view> psTags = {});
    /// The cell's tag, or its displayed text when `piReturnTextorID` is True; empty outside the grid. Commits
    /// first.
    std::string ReadCell(std::int32_t Row, std::int32_t Col, bool piReturnTextorID = false);
    /// The cell's text as it is stored, whatever the column's format makes of it: "1234.5" where "1,234.50"
    /// is shown. Empty outside the grid. Commits first, and fails, as ReadCell does.
    std::string RawText(std::int32_t Row, std::int32_t Col);
    /// The displayed text of a column's total.
    std::string ReadSum(std::int32_t Col) const;
    /// Makes the totals of all columns anew, also while ReDraw is False: for a host that wrote through
    /// Grid(), after which totals stay as they were.
    void RecalculateTotals();
    /// Removes every data row, puts five empty ones back, also when a handler throws; drops what is being
    /// typed.
    void Clear();

    // --- Marks on cells (CellMark.h), as the engine has them; those of a Problem end with the commit that
    // writes their cell, and are no steps that undo would bring back.
    const CellMark* Mark(std::int32_t Row, std::int32_t Col) const;
    void Mark(std::int32_t Row, std::int32_t Col, std::optional<CellMark> mark);
    void ClearMarks(std::optional<CellMark::Kind> kind = std::nullopt);
    std::optional<MarkedCell> NextMark(std::int32_t Row, std::int32_t Col,
                                       std::optional<CellMark::Kind> kind = std::nullopt) const;

    // --- Column definitions.
    /// The definition of a column, created when there is none yet; VsCtrl(Cols()) is the spare one. GridError
    /// beyond.
    std::shared_ptr<cVsControl> VsCtrl(std::int16_t Col);
    /// The current column's definition. Putting stores the object itself; putting nothing empties the slot.
    std::shared_ptr<cVsControl> SetVsControl();
    void SetVsControl(std::shared_ptr<cVsControl> definition);

    // --- State.
    /// The clerk has committed something since loading or Unmodified(); always False while Editable is False.
    /// A refused expression empties its cell, but is no commit.
    bool bIsDirty() const;
    /// From here on bIsDirty is False until the next commit: the document was saved. What is being typed is
    /// neither committed nor forgotten; read a cell, or ask IsValid, before saving.
    void Unmodified();
    bool IsActive() const;
    bool Editable() const;
    void Editable(bool editable);
    /// True shows zeros and empty dates as they are instead of blanking them in SetCell.
    bool bIsShowZero() const;
    void bIsShowZero(bool show);
    /// True runs the set-up from the column definitions and keeps totals up to date from then on. Starts
    /// False.
    bool ReDraw() const;
    void ReDraw(bool redraw);
    bool SumRow() const;
    void SumRow(bool show);

    // --- Rows and columns
    // Putting a number of rows or columns, FormatString or ColHidden commits an open editor first. A refused
    // text stays in it for as long as there is its cell and its column is shown.
    std::int32_t Rows() const;
    /// Never leaves fewer than five data rows.
    void Rows(std::int32_t count);
    std::int32_t Cols() const;
    void Cols(std::int32_t count);
    std::int32_t FixedRows() const;
    void FixedRows(std::int32_t count);
    std::int32_t FixedCols() const;
    void FixedCols(std::int32_t count);
    /// Columns after the fixed ones that do not scroll, in the total row alike (CellGrid::FrozenCols); not
    /// stored.
    std::int32_t FrozenCols() const;
    void FrozenCols(std::int32_t count);
    /// What the clerk has made of the columns (ColumnLayout.h), to be kept for him.
    ColumnLayout& Layout();
    const ColumnLayout& Layout() const;
    std::int32_t Row() const;
    void Row(std::int32_t row);
    std::int32_t Col() const;
    void Col(std::int32_t col);
    std::string FormatString() const;
    void FormatString(std::string_view format);
    bool ColHidden(std::int32_t Col) const;
    void ColHidden(std::int32_t Col, bool hidden);
    /// How the column shows its numbers or dates: "#,##0.00", "0%", "yyyy-mm-dd"; empty shows texts as they
    /// are. GridError for a text that is no format.
    std::string ColFormat(std::int32_t Col) const;
    void ColFormat(std::int32_t Col, std::string_view format);
    std::int32_t ColWidth(std::int32_t Col) const;
    void ColWidth(std::int32_t Col, std::int32_t twips);
    /// A text that the column is as wide as in the font that shows it, also when that changes, until a width
    /// is put or the clerk drags one; empty for none. FormatString's captions, blanks included, are such
    /// texts.
    std::string ColSample(std::int32_t Col) const;
    void ColSample(std::int32_t Col, std::string_view sample);
    mEmflexAlign ColAlignment(std::int32_t Col) const;
    void ColAlignment(std::int32_t Col, mEmflexAlign alignment);
    std::int32_t RowHeight(std::int32_t Row) const;
    void RowHeight(std::int32_t Row, std::int32_t twips);
    std::int32_t SumRowHeight() const;
    void SumRowHeight(std::int32_t twips);
    mEmflexMerge MergeCells() const;
    void MergeCells(mEmflexMerge merge);
    bool MergeCol(std::int32_t Col) const;
    void MergeCol(std::int32_t Col, bool merge);
    bool MergeRow(std::int32_t Row) const;
    void MergeRow(std::int32_t Row, bool merge);

    // --- Look.
    std::uint32_t BackColor() const;
    void BackColor(std::uint32_t color);
    std::uint32_t BackColorBkg() const;
    void BackColorBkg(std::uint32_t color);
    std::uint32_t BackColorFixed() const;
    void BackColorFixed(std::uint32_t color);
    std::uint32_t ForeColor() const;
    void ForeColor(std::uint32_t color);
    std::uint32_t ForeColorFixed() const;
    void ForeColorFixed(std::uint32_t color);
    /// 1: fixed cells are drawn raised; 0: flat.
    std::int32_t Appearance() const;
    void Appearance(std::int32_t appearance);
    /// Colour of the total row's cells, until its next set-up makes them light grey again. The light grey is
    /// drawn darker in a dark palette; a colour that is put here stays as it is.
    void VsSumCellBackColor(std::uint32_t color);

    // --- The grids themselves, for what is not forwarded.
    CellGrid& Grid();
    const CellGrid& Grid() const;
    CellGrid& Grid_Sum();
    const CellGrid& Grid_Sum() const;

    // --- The members above by name
    // In interface order. Get and Put serve properties without arguments; GridError for a name that is none,
    // ConversionError for a value that does not fit.
    static std::span<const Member> members();
    Variant Get(std::string_view name);
    void Put(std::string_view name, const Variant& value);

    /// Makes an owner of the columns and lines, who describes them all (Sheet.h), for as long as he lives. False
    /// while there is another one.
    bool Own(const std::weak_ptr<const void>& owner);

    // --- For the machine.
    /// The way into the control. It keeps what is behind the control until it is let go of: a machine holds
    /// it for the length of a call, in which a listener may destroy the control.
    std::shared_ptr<Input> input();
    /// Expires when the control is destroyed, also while a call of it is still underway: for who follows it from
    /// outside.
    std::weak_ptr<const void> life() const;
    const EditorView& editorView() const;
    /// Whether the clerk may change a cell: the grid is editable, so is the cell's column, and the host does
    /// not lock the cell. False in the fixed area and outside the grid. Lets through what a listener of
    /// CellLocked throws.
    bool cellEditable(std::int32_t Row, std::int32_t Col) const;
    /// Where the two grids lie in the control.
    Rect gridRect() const;
    Rect totalRowRect() const;
    bool totalRowShown() const;
    /// The font that shows the texts is another one: columns with a sample get the width that it needs.
    void MeasureCols();
    /// Adds a row through the row commands' routine; `Position` Rows() is after the last row.
    void AddRow(std::int32_t Position, bool WithDefaults, bool CopyData);

  private:
    struct Parts;
    using CellReader = std::string (CellGrid::*)(std::int32_t, std::int32_t) const;
    std::string read(std::int32_t Row, std::int32_t Col, CellReader reader);
    std::shared_ptr<Parts> held() const { return parts_; }
    std::shared_ptr<Parts> parts_;  // held by what goes on after an event
    std::shared_ptr<const void> life_ = std::make_shared<const char>();
};
}  // namespace kxVsGrid
