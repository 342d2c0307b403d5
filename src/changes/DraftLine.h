// The lines of a draft: a number, a checksum, and fields.
//
//     17 3f2a91c0 T\t录入\t0\tw\t5\t2\t12.5
//
// Numbers count up from 1, the header's, without gaps. The checksum is that of the number and the fields; behind
// the header it goes on from the header's checksum, so that no line fits another draft. Fields are separated by
// tabs; a backslash stands before what would be taken for the end of a field or a line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kxVsGrid::changes {

/// Appends a field, with the tab before it.
void appendField(std::string& fields, std::string_view text);
void appendField(std::string& fields, std::int64_t number);

/// Where the lines of one draft have come to.
struct DraftPlace {
    std::uint64_t number = 0;    ///< of the last line
    std::uint32_t checksum = 0;  ///< the header's
};
/// Appends the line behind `place`, which moves on when that has been done. `fields` begins with the letter that
/// says what the line is.
void appendLine(std::string& out, DraftPlace& place, std::string_view fields);

struct DraftLine {
    std::uint64_t number = 0;
    std::string_view fields;
    std::uint32_t checksum = 0;
};
/// A line without its end, of the draft whose header has this checksum, or a header; nothing when it is torn or
/// altered.
std::optional<DraftLine> readLine(std::string_view line, std::uint32_t header);

/// What there is of a draft whose header was torn while it was written, with the end of line before it.
bool isTornHeader(std::string_view bytes);

/// The fields of a line, one after the other. Reading past the end, or a number that is none or out of its
/// range, gives 0 and makes good() False for good.
class FieldReader {
  public:
    explicit FieldReader(std::string_view fields) : rest_(fields) {}

    bool atEnd() const { return !more_; }
    bool good() const { return good_; }
    /// Valid until the next field is read.
    std::string_view text();
    std::int32_t number(std::int32_t least, std::int32_t most);

  private:
    std::string_view raw();

    std::string_view rest_;
    std::string unescaped_;
    bool more_ = true;
    bool good_ = true;
};
}  // namespace kxVsGrid::changes
