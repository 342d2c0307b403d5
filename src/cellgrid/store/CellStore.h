// What the cells of a grid hold: texts, tags and styles, by row and column, and what each column is told
// about its cells. Knows nothing of places, events or the current cell; rows and columns passed in exist.
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

#include "cellgrid/format/CellFormat.h"
#include "cellgrid/store/CellStyle.h"
#include "cellgrid/store/HandlePages.h"
#include "cellgrid/store/RowOrder.h"
#include "cellgrid/store/RunList.h"
#include "cellgrid/store/TextArena.h"
#include "kxVsGrid/Enumerations.h"

namespace kxVsGrid::support {
class TextPattern;
}

namespace kxVsGrid::cellgrid {

struct GridColumn {
    CellPages cells;
    std::unique_ptr<NumberPages> numbers;  ///< what ColumnSum has read of the texts so far
    SparseRuns<StyleNumber> styles;
    std::unique_ptr<CellFormat> format;  ///< none while every text is shown as it is
    mEmflexAlign alignment = flexAlignGeneral;
    mEmflexAlign fixedAlignment = flexAlignGeneral;
    mEmDataType dataType = flexDTEmpty;
    bool merge = false;
    bool filtered = false;  ///< its header says so
};

class CellStore {
  public:
    /// Room for the text that a look at a cell answers.
    struct Scratch {
        slot::Buffer bytes;
        std::string text;
    };
    /// What writing a text does.
    enum class Effect {
        Nothing,
        Shown,    ///< the stored text stays (empty); something computed no longer shows
        Changed,  ///< the stored text changes
    };

    std::int32_t rows() const { return order_.rows(); }
    std::int32_t cols() const { return static_cast<std::int32_t>(columns_.size()); }
    GridColumn& column(std::int32_t col) { return columns_[static_cast<std::size_t>(col)]; }
    const GridColumn& column(std::int32_t col) const { return columns_[static_cast<std::size_t>(col)]; }

    /// When one of these fails, nothing has changed.
    void insertRows(std::int32_t row, std::int32_t n);
    /// Takes the memory that removing these rows needs: that then cannot fail.
    void prepareRemove(std::int32_t row, std::int32_t n) { order_.prepareRemove(row, n); }
    void removeRows(std::int32_t row, std::int32_t n);
    /// Data rows that shall change places, with all that belongs to them.
    struct Reordering {
        RowOrder::Reordering rows;
        std::vector<std::pair<std::size_t, SparseRuns<StyleNumber>::Replacement>> styles;  ///< by column
    };
    /// `from[i]` is the old place of the row that stands at first + i then. Takes the memory that it needs.
    Reordering prepareReorder(std::int32_t first, std::span<const std::int32_t> from);
    /// What was prepared, nothing else having changed since.
    void reorder(Reordering& prepared) noexcept;
    void setCols(std::int32_t count);
    /// Rows below this are fixed: not formatted, not numbered, not summed.
    std::int32_t fixedRows() const { return fixedRows_; }
    void setFixedRows(std::int32_t count) { fixedRows_ = count; }

    /// The cell's text, in `scratch` or in the store; good until either changes.
    std::string_view text(std::int32_t row, std::int32_t col, Scratch& scratch) const {
        return textOf(textSlot(row, col), row, col, scratch);
    }
    /// The text as the column's format shows it.
    std::string_view displayText(std::int32_t row, std::int32_t col, Scratch& scratch) const;
    /// What setText would do.
    Effect effectOfText(std::int32_t row, std::int32_t col, std::string_view text) const;
    Effect setText(std::int32_t row, std::int32_t col, std::string_view text);
    /// What was stored where a write has put something else: kept for those who are told of the write, until
    /// this goes. Nothing else may be done to the store meanwhile.
    class Replaced {
      public:
        explicit Replaced(CellStore& store) : store_(store) {}
        ~Replaced() { store_.releaseSlot(slot_); }
        Replaced(const Replaced&) = delete;
        Replaced& operator=(const Replaced&) = delete;
        /// Empty for a text that was computed.
        std::string_view text(slot::Buffer& buffer) const {
            return slot::isComputed(slot_) ? std::string_view{} : store_.arena_.text(slot_, buffer);
        }

      private:
        friend class CellStore;
        CellStore& store_;
        TextSlot slot_ = slot::Empty;
    };
    Effect setText(std::int32_t row, std::int32_t col, std::string_view text, Replaced& replaced);
    /// The memory that writing a text takes, taken before something else is done. Written with it the text
    /// cannot fail, unless others took what the cell's page held meanwhile. It must not outlive the store.
    class TextRoom {
      public:
        TextRoom() = default;
        ~TextRoom();
        TextRoom(const TextRoom&) = delete;
        TextRoom& operator=(const TextRoom&) = delete;
        void take(CellStore& store, std::int32_t row, std::int32_t col, std::string_view text);

      private:
        friend class CellStore;
        CellStore* store_ = nullptr;  ///< none while nothing is taken
        TextSlot slot_ = slot::Empty;
    };
    /// setText of the text that `room` was taken for.
    Effect setText(std::int32_t row, std::int32_t col, std::string_view text, TextRoom& room,
                   Replaced* replaced = nullptr);
    void setComputed(std::int32_t row, std::int32_t col, std::function<std::string()> compute,
                     Replaced* replaced = nullptr);

    std::string_view tag(std::int32_t row, std::int32_t col, Scratch& scratch) const;
    /// What setTag would answer.
    bool changesTag(std::int32_t row, std::int32_t col, std::string_view tag) const {
        return changesTag(tagSlot(row, col), slot::ofShort(tag), tag);
    }
    /// Answers whether the stored tag changed.
    bool setTag(std::int32_t row, std::int32_t col, std::string_view tag, Replaced* replaced = nullptr);
    /// setTag and setText in one. Answers what became of the text; when it fails, both are the old ones.
    [[gnu::always_inline]] Effect setCell(std::int32_t row, std::int32_t col, std::string_view text,
                                          const std::string_view& tag) {
        // What filling a table does: both texts into a cell that holds nothing, in a page that is there.
        GridColumn& c = column(col);
        if (text.empty() || tag.empty() || c.numbers) [[unlikely]]
            return overwrite(row, col, text, tag);
        const RowHandle handle = order_.obtain(row);
        if (!c.cells.hasRoom(handle)) [[unlikely]]
            return overwrite(row, col, text, tag);
        const TextSlot freshTag = arena_.store(tag);
        const TextSlot freshText = arena_.storeAfter(freshTag, text);
        c.cells.fill(handle, freshText, freshTag);
        return Effect::Changed;
    }

    using Texts = std::span<const std::string_view>;
    /// setCell for the cells of a column from `row` down, one for each text; tags are as many, or none. When it
    /// fails, each cell holds what it held or what it was to hold.
    void fill(std::int32_t col, std::int32_t row, Texts texts, Texts tags);

    /// Neither a text nor a tag is there, nor is anything computed; in column 0 the row's number may show.
    bool holdsNothing(std::int32_t row, std::int32_t col) const {
        const RowHandle handle = order_.handle(row);
        if (handle == NoHandle) return true;
        const CellPages& cells = column(col).cells;
        return (cells.get(CellPages::Text, handle) | cells.get(CellPages::Tag, handle)) == slot::Empty;
    }

    /// visit(row, handle) for the rows [first, stop) that have a handle. Rows that were sorted lie anywhere: what is
    /// to be read soon is fetched ahead.
    template <class Visit>
    void forEachHandle(const CellPages& cells, std::int32_t first, std::int32_t stop, Visit visit) const {
        order_.forEachStretch(first, stop, [&](std::int32_t row, const RowHandle* handles, std::int32_t n) {
            for (std::int32_t i = 0; i < n; ++i) {
                if (i + support::StepsAhead < n)
                    cells.fetchAhead(CellPages::Text, handles[i + support::StepsAhead]);
                if (handles[i] != NoHandle) visit(row + i, handles[i]);
            }
        });
    }

    /// visit(row, col, text, tag) for the cells of the rows [row, row + n) that hold one of them, column by
    /// column. What is computed holds none.
    template <class Visit>
    void forEachCell(std::int32_t row, std::int32_t n, std::int32_t firstCol, std::int32_t lastCol,
                     Visit visit) const {
        slot::Buffer textBytes;
        slot::Buffer tagBytes;
        for (std::int32_t col = firstCol; col <= lastCol; ++col) {
            const CellPages& cells = column(col).cells;
            if (cells.unused()) continue;
            forEachHandle(cells, row, row + n, [&](std::int32_t r, RowHandle handle) {
                const TextSlot s = cells.get(CellPages::Text, handle);
                const std::string_view text =
                    slot::isComputed(s) ? std::string_view{} : arena_.text(s, textBytes);
                const std::string_view tag = arena_.text(cells.get(CellPages::Tag, handle), tagBytes);
                if (!text.empty() || !tag.empty()) visit(r, col, text, tag);
            });
        }
    }

    /// visit(row, text) for the cells of the rows [first, stop) of a column that were written and show a
    /// text, computed ones included, row numbers not.
    template <class Visit>
    void forEachText(std::int32_t col, std::int32_t first, std::int32_t stop, Visit visit) const {
        const CellPages& cells = column(col).cells;
        if (cells.used(CellPages::Text) == 0) return;
        Scratch scratch;
        forEachHandle(cells, first, stop, [&](std::int32_t row, RowHandle handle) {
            const TextSlot s = cells.get(CellPages::Text, handle);
            if (s != slot::Empty && s != slot::WrittenEmpty) visit(row, slotText(s, scratch));
        });
    }

    /// Adds the rows [first, stop) of a column to `found` whose displayed text has the pattern in it, and those whose
    /// text is computed to `computed`, both in order. Row numbers are no texts here; fixed rows show theirs as stored.
    void findTexts(const support::TextPattern& pattern, std::int32_t col, std::int32_t first,
                   std::int32_t stop, std::vector<std::int32_t>& found,
                   std::vector<std::int32_t>& computed) const;

    /// Empties texts and tags of the rows [row, row + n).
    void clearTexts(std::int32_t row, std::int32_t n);
    /// From now on column 0 answers the numbers of the data rows where no text is stored; those stored in
    /// data rows are dropped.
    void numberRows();
    /// Answers whether an empty text stood over the row's number, which shows again.
    bool showRowNumber(std::int32_t row);
    /// visit(row) for the data rows whose text in the column was written; it may empty that text.
    template <class Visit>
    void forEachDataText(std::int32_t col, Visit visit) const {
        const CellPages& cells = column(col).cells;
        if (!writtenInDataRows(col)) return;
        order_.forEach(fixedRows_, rows(), [&](std::int32_t row, RowHandle handle) {
            const TextSlot s = cells.get(CellPages::Text, handle);
            if (s != slot::Empty && s != slot::WrittenEmpty && !slot::isComputed(s)) visit(row);
        });
    }
    /// The first data row but `except` whose stored text is this one; -1 for none.
    std::int32_t rowWithText(std::int32_t col, std::string_view text, std::int32_t except) const;
    /// Column 0 answers what was written there again.
    void endRowNumbers();

    const CellStyle& style(std::int32_t row, std::int32_t col) const {
        return styles_[column(col).styles.at(row)];
    }
    /// Gives the cells of the rows [row, row + n) what `change(CellStyle&)` makes of their style. Answers
    /// whether any of them changed.
    template <class Change>
    bool changeStyle(std::int32_t col, std::int32_t row, std::int32_t n, Change change) {
        return column(col).styles.transform(row, n, [&](StyleNumber number) {
            CellStyle style = styles_[number];
            change(style);
            return styles_.number(style);
        });
    }

    /// The numbers of the displayed texts of the data rows, added up in row order.
    double sum(std::int32_t col);
    /// What one cell counts in the sum.
    double number(std::int32_t row, std::int32_t col) const;
    /// The same for a text of the column's that is a number as a whole; none for any other, and for dates.
    std::optional<double> completeNumber(std::int32_t col, std::string_view text) const;
    /// The column's format puts separators between groups of digits.
    bool groups(std::int32_t col) const { return column(col).format && column(col).format->groups(); }
    /// The column's format shows numbers as percent.
    bool percent(std::int32_t col) const { return column(col).format && column(col).format->percent(); }
    /// The format decides what the texts count.
    void setFormat(std::int32_t col, std::string_view pattern);

  private:
    using Computer = std::shared_ptr<const std::function<std::string()>>;

    TextSlot textSlot(std::int32_t row, std::int32_t col) const {
        const RowHandle handle = order_.handle(row);
        return handle == NoHandle ? slot::Empty : column(col).cells.get(CellPages::Text, handle);
    }
    TextSlot tagSlot(std::int32_t row, std::int32_t col) const {
        const RowHandle handle = order_.handle(row);
        return handle == NoHandle ? slot::Empty : column(col).cells.get(CellPages::Tag, handle);
    }
    bool numbered(std::int32_t row, std::int32_t col) const {
        return numbered_ && col == 0 && row >= fixedRows_;
    }
    std::string_view slotText(TextSlot s, Scratch& scratch) const;
    std::string_view textOf(TextSlot s, std::int32_t row, std::int32_t col, Scratch& scratch) const;
    Effect effect(std::int32_t col, TextSlot old, TextSlot fresh, std::string_view text) const;
    Effect effectOfEmpty(std::int32_t col, TextSlot old) const;
    struct Spot;
    Spot spot(std::int32_t row, std::int32_t col);
    void provide(Spot& at, std::int32_t row, CellPages::Kind kind);
    Effect overwrite(std::int32_t row, std::int32_t col, std::string_view text, const std::string_view& tag);
    Effect putText(Spot& at, std::int32_t row, std::int32_t col, std::string_view text, TextSlot& ready,
                   Replaced* replaced = nullptr);
    /// `fresh` is the tag's slot if it fits into one.
    bool changesTag(TextSlot old, TextSlot fresh, std::string_view tag) const {
        if (fresh != slot::Empty || tag.empty()) return fresh != old;
        slot::Buffer buffer;
        return !slot::hasBlock(old) || arena_.text(old, buffer) != tag;
    }
    /// What fill does in the rows of a single page (ColumnFill.cpp).
    std::size_t fillPage(std::int32_t col, std::int32_t row, Texts texts, Texts tags);
    struct Stretch;
    template <bool Tagged>
    void fillEmpty(Stretch& at, Texts texts, Texts tags);
    TextSlot writtenEmpty(std::int32_t col) const {
        return numbered_ && col == 0 ? slot::WrittenEmpty : slot::Empty;
    }
    void putTagSlot(Spot& at, TextSlot s, Replaced* replaced = nullptr);
    void putTextSlot(GridColumn& column, CellPages::Page& page, RowHandle handle, TextSlot s,
                     Replaced* replaced = nullptr);
    void releaseSlot(TextSlot s) {
        if (!slot::isShort(s)) releaseLongSlot(s);
    }
    void releaseLongSlot(TextSlot s);
    void clearColumn(GridColumn& column, std::int32_t row, std::int32_t n);
    static double numberOf(const GridColumn& column, std::string_view text);
    double readNumber(GridColumn& column, RowHandle handle);
    double sumOfRowNumbers() const;
    bool writtenInDataRows(std::int32_t col) const;
    void compact();
    void pack();

    RowOrder order_;
    std::vector<GridColumn> columns_;
    TextArena arena_;
    CellStyles styles_;
    std::vector<Computer> computed_;           ///< by number, as the slots name them
    std::vector<std::uint32_t> freeComputed_;  ///< numbers whose cells have another text now; room for all
    std::int32_t fixedRows_ = 0;
    int textRooms_ = 0;  ///< texts in the arena that no cell holds yet
    bool numbered_ = false;
};
}  // namespace kxVsGrid::cellgrid
