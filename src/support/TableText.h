// Tables as plain text, the way spreadsheets put them on the clipboard and take them from there: a tab between
// cells, a line end behind each row, quotes around a cell that has tabs or line ends of its own.
//
// A cell that begins with a quote is quoted: up to its closing quote, tabs and line ends belong to it and a
// doubled quote is one quote; what stands between the closing quote and the next tab or line end is appended
// as it is. A quote anywhere else is an ordinary character. So is one at the start of a cell that is never
// closed: nothing is lost, the cell ends with its line, and those behind it are read as ever.
//
// Rows end with \n, \r\n or \r. One line end at the very end closes the last row and begins none; an empty line
// is a row of one empty cell; no text at all is no row. Line ends inside cells are read and written as \n.
//
// What is no text does not come through: a byte order mark at the start and NULs at the end, which some programs
// put there, are taken off first; any other NUL is left out of its cell; a byte that is no part of valid UTF-8
// is read and written as U+FFFD.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kxVsGrid::support {

/// Reads a table cell by cell, from left to right and from the top down, in a time that grows with the size of
/// the text alone. Nothing of the text is copied but a cell that reads otherwise than it is written.
///
///     for (TableReader reader(text); reader.next();) put(reader.row(), reader.col(), reader.text());
class TableReader {
  public:
    /// The text has to outlive the reader.
    explicit TableReader(std::string_view text);

    /// Goes to the next cell, at first to the first one; False behind the last one.
    bool next();

    /// Where the cell stands, from 0. Rows may differ in length.
    std::int64_t row() const { return row_; }
    std::int64_t col() const { return col_; }
    /// True for the last cell of its row.
    bool endsRow() const { return endsRow_; }

    /// What the cell says, without quotes. Valid until the reader is asked for a text again or is gone; most
    /// often it points into the text that is read, but no caller can tell.
    std::string_view text();

  private:
    void readQuotes();
    void readBare();

    std::string_view text_;
    std::size_t at_ = 0;
    std::int64_t row_ = -1;
    std::int64_t col_ = -1;
    bool endsRow_ = true;
    std::string_view quoted_;  // what stands between the quotes of the cell
    std::string_view bare_;    // all of a cell without quotes; what follows behind the closing one
    unsigned bareKinds_ = 0;   // which kinds of bytes that has
    std::string cleaned_;
};

struct TableShape {
    std::int64_t rows = 0;
    std::int64_t cols = 0;  ///< of the widest row

    bool operator==(const TableShape&) const = default;
};
/// How large the table is; takes less time than reading it, and no memory.
TableShape tableShape(std::string_view text);

/// Appends a table to a text. What is read from it is what was written, but for line ends (\n, whichever they
/// were), NULs and invalid UTF-8 (see above), and rows of no cell, which are read as rows of one empty cell.
///
/// Only what needs quotes gets them. Rows are separated by \n, which all spreadsheets and editors read on every
/// system, and which the clipboard of a system with other line ends is given by its toolkit in that form; a
/// carriage return would stay in what is pasted elsewhere. Behind the last row there is none, so that a single
/// cell is its text and can be pasted into any box, unless that row is one empty cell, which no text would be.
class TableWriter {
  public:
    /// `out` has to outlive the writer; what it holds already should be nothing or end with a row's \n.
    explicit TableWriter(std::string& out) : out_(out) {}

    void cell(std::string_view text);
    void endRow();
    /// Ends the table, and the row if that is still open. Nothing may be written behind it.
    void finish();

  private:
    void beginRow();
    void write(std::string_view valid, unsigned kinds);

    std::string& out_;
    std::size_t rowStart_ = 0;
    bool anyRow_ = false;    // a row has been ended
    bool rowOpen_ = false;   // the row has a cell
    bool emptyRow_ = false;  // nothing stands in the row that was ended last
};
}  // namespace kxVsGrid::support
