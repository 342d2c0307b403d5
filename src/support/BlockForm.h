// Blocks of cells in the control's own form, with what plain text cannot carry: tags, and where the cells were.
//
//     kxVsGrid block 1
//     4:key12:0:6:货号1:4:name...   7a31f0c2
//
// Behind the line that names form and version: the grid's key, how many columns there are, index and name of
// each; then, row by row, text and tag of each cell. A number is its decimal digits and a colon; a text is its
// size in bytes as such a number, and the bytes. At the end stands the checksum of all before it, as eight
// hexadecimal digits. How many rows there are follows from the cells.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kxVsGrid::support {

/// Under which a clipboard keeps a block.
inline constexpr std::string_view BlockMimeType = "application/x-kxvsgrid-block";

/// The key of the column that cells were taken from.
struct BlockColumn {
    std::int32_t index = 0;  ///< not negative
    std::string name;

    bool operator==(const BlockColumn&) const = default;
};

/// Appends a block to a text. Any bytes may stand in the texts and come back unchanged.
class BlockWriter {
  public:
    /// `grid` names the one grid that the cells are of, unlike any other there is. `out` has to outlive the
    /// writer. A block without columns is written, but not read.
    BlockWriter(std::string& out, std::string_view grid, const std::vector<BlockColumn>& columns);

    /// The next cell of the row, or the first of the next row. Incomplete rows, or none, are not read.
    void cell(std::string_view text, std::string_view tag);
    /// Ends the block. Nothing may be written behind it.
    void finish();

  private:
    std::string& out_;
    std::size_t start_;
};

/// Reads what BlockWriter wrote, and nothing else.
///
///     if (auto block = BlockReader::open(bytes))
///         while (block->next()) put(block->row(), block->col(), block->text(), block->tag());
class BlockReader {
  public:
    /// Nothing when the bytes are not exactly a block of this version, whole and unaltered: all of it has been
    /// looked through then, but only keys of columns were copied. The bytes have to outlive the reader.
    static std::optional<BlockReader> open(std::string_view bytes);

    std::string_view grid() const { return grid_; }
    /// At least one.
    const std::vector<BlockColumn>& columns() const { return columns_; }
    /// At least one.
    std::int64_t rows() const { return rows_; }
    bool isOneCell() const { return rows_ == 1 && columns_.size() == 1; }

    /// Goes to the next cell, at first to the first one; False behind the last one.
    bool next();
    /// Where in the block the cell stands, from 0: `col` is an index of columns().
    std::int64_t row() const { return row_; }
    std::int32_t col() const { return col_; }
    std::string_view text() const { return text_; }
    std::string_view tag() const { return tag_; }

  private:
    BlockReader() = default;
    bool readHead();
    bool countRows();

    std::string_view rest_;
    std::string_view grid_;
    std::vector<BlockColumn> columns_;
    std::int64_t rows_ = 0;
    std::int64_t row_ = -1;
    std::int32_t col_ = -1;
    std::string_view text_;
    std::string_view tag_;
};
}  // namespace kxVsGrid::support
