// What SetCell and Fill make of texts. Errors, also those of other types than std::exception, end in a message box,
// never in the host.
#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "grid/CellPlace.h"
#include "grid/Parts.h"
#include "support/CurrentError.h"
#include "support/Dates.h"
#include "support/Numbers.h"
#include "support/ReadDecimal.h"

namespace kxVsGrid {
namespace {

using support::isDigit;

// Most texts of a number or date column are settled by a short look, which a million writes notice.

/// None of the characters is a letter. There are four or more.
bool hasNoLetter(std::string_view text) {
    const auto word = [text](std::size_t at, auto bytes) {
        std::memcpy(&bytes, text.data() + at, sizeof bytes);
        return bytes;
    };
    constexpr std::uint64_t LetterBits = 0x4040'4040'4040'4040U;
    const std::size_t n = text.size();
    if (n < 8) return ((word(0, std::uint32_t{}) | word(n - 4, std::uint32_t{})) & LetterBits) == 0;
    std::uint64_t all = word(n - 8, std::uint64_t{});
    for (std::size_t at = 0; at + 8 < n; at += 8) all |= word(at, std::uint64_t{});
    return (all & LetterBits) == 0;
}

/// A number above 0; other answers prove nothing.
inline bool isPlainlyNotZero(std::string_view text) {
    constexpr std::size_t TooShortForZero = 5;  // "1e-324" is as good as 0
    if (text.empty() || text[0] == '0' || !isDigit(text[0])) return false;
    return text.size() <= TooShortForZero || hasNoLetter(text);
}

/// A day of this century or a later one as yyyy-mm-dd, which every month has: other answers prove nothing.
bool isPlainlyADay(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') return false;
    for (const std::size_t i : {0U, 1U, 2U, 3U, 5U, 6U, 8U, 9U})
        if (!isDigit(text[i])) return false;
    const auto pair = [text](std::size_t i) { return (text[i] - '0') * 10 + (text[i + 1] - '0'); };
    return pair(0) >= 20 && pair(5) >= 1 && pair(5) <= 12 && pair(8) >= 1 && pair(8) <= 28;
}

bool isNoDate(std::string_view text) {
    if (isPlainlyADay(text)) return false;
    const auto date = support::parseDate(text);
    return !date || support::isNoDay(*date);
}

bool isZero(const CellGrid& grid, std::int32_t col, std::string_view text) {
    if (support::leadingNumber(text) != 0) return false;
    const bool groups = col >= 0 && col < grid.Cols() && grid.ColGroups(col);  // "0,123" is no zero there
    return !groups || support::leadingNumber(support::withoutGroups(text, groups)) == 0;
}

/// Zeros of number columns, and what is no date in date columns, are not shown.
inline bool isBlanked(const CellGrid& grid, mEmDataType type, std::int32_t col, std::string_view text) {
    if (type == flexDTDouble) return !isPlainlyNotZero(text) && isZero(grid, col, text);
    return type == flexDTDate && isNoDate(text);
}

bool blanksZeros(ColumnOptions::Zero ofColumn, bool gridShows) {
    return ofColumn == ColumnOptions::Zero::AsGrid ? !gridShows : ofColumn == ColumnOptions::Zero::Blank;
}
}  // namespace

inline bool kxGrid::Parts::goesStraight(std::int32_t col, std::string_view text) const {
    if (!editor.hidden() || main.CellChanged.heard() || defaulted.mayHold(col)) return false;
    const cVsControl* const column = columns.there(col);
    if (!column || (flags.ReDraw && column->b是否合计数据())) return false;
    const mEmDataType type = column->iType();
    return type == flexDTDouble ? isPlainlyNotZero(text) : type != flexDTDate || isPlainlyADay(text);
}

void kxGrid::SetCell(std::int32_t Row, std::int32_t Col, std::string_view psDisplay, std::string_view psTag) {
    Parts& p = *parts_;
    if (!p.goesStraight(Col, psDisplay)) {
        p.set(Row, Col, psDisplay, psTag);
        return;
    }
    try {
        p.main.Cell(Row, Col, psDisplay, psTag);
    } catch (...) {
        p.failedToSet();
    }
}

bool kxGrid::Fill(std::int32_t Col, std::int32_t FirstRow, std::span<const std::string_view> psDisplays,
                  std::span<const std::string_view> psTags) {
    if (!psTags.empty() && psTags.size() != psDisplays.size())
        throw GridError("Fill: " + std::to_string(psTags.size()) + " tags for " +
                        std::to_string(psDisplays.size()) + " texts");
    return parts_->fill(Col, FirstRow, psDisplays, psTags);
}

bool kxGrid::Parts::set(std::int32_t row, std::int32_t col, std::string_view text,
                        const std::string_view& tag) {
    std::shared_ptr<Parts> kept;  // only where a listener is called: the other writes do not pay for it
    try {
        if (editor.visible()) {
            kept = shared_from_this();
            editor.commitUnlessLocked();
        }
        if (main.CellChanged.heard()) kept = shared_from_this();
        setPlainly(row, col, text, tag);
        return true;
    } catch (...) {
        return failedToSet();
    }
}

bool kxGrid::Parts::failedToSet() {
    showError("SetCell Error::" + support::currentError(), "错误");
    return false;
}

inline void kxGrid::Parts::setPlainly(std::int32_t row, std::int32_t col, std::string_view text,
                                      const std::string_view& tag) {
    const cVsControl* column = columns.find(col);
    if (!column) return;
    defaulted.written(row, col);
    if (blanks(row, col, column->iType(), text)) text = {};
    if ((flags.ReDraw && column->b是否合计数据()) || main.CellChanged.heard())
        writeCell(row, col, text, tag);
    else
        main.Cell(row, col, text, tag);
}

inline bool kxGrid::Parts::blanks(std::int32_t row, std::int32_t col, mEmDataType type,
                                  std::string_view text) const {
    return isBlanked(main, type, col, text) && blanksZeros(columns.zero(col), flags.bIsShowZero) &&
           !grid::isFixed(main, row, col);
}

bool kxGrid::Parts::fill(std::int32_t col, std::int32_t firstRow, Texts texts, Texts tags) {
    const std::shared_ptr<Parts> kept = shared_from_this();
    try {
        if (editor.visible()) editor.commitUnlessLocked();
        if (firstRow < 0) {
            const auto outside = std::min(texts.size(), static_cast<std::size_t>(-std::int64_t{firstRow}));
            texts = texts.subspan(outside);
            if (!tags.empty()) tags = tags.subspan(outside);
            firstRow = 0;
        }
        if (main.CellChanged.heard())
            fillHeard(col, firstRow, texts, tags);
        else
            fillUnheard(col, firstRow, texts, tags);
        return true;
    } catch (...) {
        showError("Fill Error::" + support::currentError(), "错误");
        return false;
    }
}

void kxGrid::Parts::fillHeard(std::int32_t col, std::int32_t firstRow, Texts texts, Texts tags) {
    for (std::size_t i = 0; i < texts.size() && host.there(); ++i) {
        const std::int64_t row = std::int64_t{firstRow} + static_cast<std::int64_t>(i);
        if (row >= main.Rows()) return;
        setPlainly(static_cast<std::int32_t>(row), col, texts[i],
                   tags.empty() ? std::string_view{} : tags[i]);
    }
}

/// What was written before a failure counts in the total, too.
void kxGrid::Parts::fillUnheard(std::int32_t col, std::int32_t firstRow, Texts texts, Texts tags) {
    const cVsControl* column = columns.find(col);
    if (!column || texts.empty() || !grid::holds(main, firstRow, col)) return;
    const auto write = [&] {
        try {
            fillShown(col, firstRow, texts, tags);
        } catch (...) {
            if (host.there() && flags.ReDraw) totals.recalculate(col);
            throw;
        }
    };
    if (flags.ReDraw && column->b是否合计数据())
        totals.around(firstRow, col, false, write, [this] { return flags.ReDraw; });
    else
        write();
}

void kxGrid::Parts::fillShown(std::int32_t col, std::int32_t firstRow, Texts texts, Texts tags) {
    if (!host.there() || !grid::holds(main, firstRow, col)) return;  // who computes texts may do anything
    const auto count = std::min(texts.size(), static_cast<std::size_t>(main.Rows() - firstRow));
    texts = texts.first(count);
    if (!tags.empty()) tags = tags.first(count);
    defaulted.written(firstRow, static_cast<std::int32_t>(count), col);
    const mEmDataType type = columns.at(col).iType();
    const bool blanking = blanksZeros(columns.zero(col), flags.bIsShowZero);
    if (!blanking || (type != flexDTDouble && type != flexDTDate))
        return main.Fill(col, firstRow, texts, tags);
    std::vector<std::string_view> shown;  // only where something is blanked
    for (std::size_t i = 0; i < count; ++i) {
        if (!blanks(firstRow + static_cast<std::int32_t>(i), col, type, texts[i])) continue;
        if (shown.empty()) shown.assign(texts.begin(), texts.end());
        shown[i] = {};
    }
    main.Fill(col, firstRow, shown.empty() ? texts : Texts(shown), tags);
}

void kxGrid::Parts::writeCell(std::int32_t row, std::int32_t col, std::string_view text,
                              const std::string_view& tag) {
    if (!grid::holds(main, row, col)) return;
    const auto write = [&] { main.Cell(row, col, text, tag); };
    totals.around(row, col, main.CellChanged.heard(), write, [this] { return flags.ReDraw; });
}

/// As a commit, it keeps totals whether the grid redraws or not.
void kxGrid::Parts::putCell(std::int32_t row, std::int32_t col, std::string_view text,
                            const std::string_view& tag) {
    const auto write = [&] { main.Cell(row, col, text, tag); };
    const bool heard = main.CellChanged.heard();
    if (!heard && !columns.at(col).b是否合计数据()) return write();
    totals.around(row, col, heard, write, [] { return true; });
}
}  // namespace kxVsGrid
