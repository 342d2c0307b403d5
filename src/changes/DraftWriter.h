// Writes a draft: hears what the engine tells, and gives whole steps away as lines.
//
// What fails for want of memory, and what cannot be told as changes of rows and texts (other columns or fixed
// rows), is made good by giving the whole content away anew.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "changes/DraftFrontier.h"
#include "changes/DraftLine.h"
#include "changes/Listening.h"
#include "kxVsGrid/Draft.h"

namespace kxVsGrid::changes {

class DraftWriter : private ChangeListener {
  public:
    DraftWriter(CellGrid& grid, Draft::Sink sink) : grid_(grid), sink_(std::move(sink)) {}
    DraftWriter(const DraftWriter&) = delete;
    DraftWriter& operator=(const DraftWriter&) = delete;

    void begin(std::string_view key, std::string_view version);
    void put(std::string_view name, std::string_view bytes);
    bool writeSlice();
    void flush();
    void end();
    bool whole() const { return whole_ && !lost_; }
    bool kept() const { return pending_.empty() && !lost_; }
    bool rewrite(const Draft::Sink& into);
    std::size_t contentBytes() const { return contentBytes_; }

  private:
    /// The grid and the document as a header tells of them.
    struct Header {
        std::string key;
        std::string version;
        std::int32_t rows = 0;  ///< when the draft began
        std::int32_t fixedRows = 0;
        std::vector<std::string> captions;  ///< of all columns
    };
    /// A draft in one piece.
    struct Whole {
        std::string lines;
        DraftPlace place;
        Header header;
    };

    // ChangeListener
    void written(std::int32_t row, std::int32_t col, CellPart part, std::string_view before,
                 std::string_view after) noexcept override;
    void added(std::int32_t at, std::int32_t count) noexcept override;
    void removing(std::int32_t at, std::int32_t count) noexcept override;
    void reordered(std::int32_t first, std::span<const std::int32_t> from) noexcept override;
    void cleared(std::int32_t first, std::int32_t last) noexcept override;
    void columnsChanged() noexcept override { giveUpChanges(); }
    void stepOpened(std::string_view name, Cause cause) noexcept override;
    void stepClosed(std::string_view name, Cause cause) noexcept override;

    template <class Work>
    void attempt(Work work) noexcept;
    void giveUpChanges() noexcept;
    void noteRows(const char* kind, std::int32_t at, std::int32_t count) noexcept;
    template <class Append>
    void noteRowChange(std::int32_t at, Append append) noexcept;
    void loseRows() noexcept;
    void noteStep(std::string_view name) noexcept;
    void closeLine(std::string_view name, Cause cause);

    void give(bool idle) noexcept;
    void giveAnew() noexcept;
    bool giveTo(const Draft::Sink& sink, std::string_view bytes) noexcept;
    void takeOver(Whole& whole) noexcept;

    Header headerNow(std::string_view key, std::string_view version) const;
    Whole wholeNow(bool again);
    void appendHeader(std::string& out, DraftPlace& place, const Header& header, bool again);
    void appendPuts(std::string& out, DraftPlace& place) const;
    void appendSlice(std::string& out, DraftPlace& place, std::int32_t first, std::int32_t count) const;
    bool fitsHeader() const;

    CellGrid& grid_;
    Draft::Sink sink_;
    Header header_;
    std::map<std::string, std::string, std::less<>> puts_;
    std::string changes_;  ///< the fields of what has changed since the last line
    std::string pending_;  ///< lines that the sink has not kept yet
    DraftPlace place_;
    DraftFrontier given_;
    std::string rowChanges_;  ///< the fields of rows that came and went since the draft began
    std::string lastStep_;
    std::int64_t steps_ = 0;
    std::int32_t headers_ = 0;  ///< written so far
    std::size_t contentBytes_ = 0;
    bool changed_ = false;  ///< something has, since the step was opened
    bool whole_ = false;
    bool failing_ = false;  ///< the sink did not keep what it was given last
    bool giving_ = false;
    bool lost_ = false;  ///< the draft lacks something: only all of it anew is right
    Listening listening_{grid_, *this};
};
}  // namespace kxVsGrid::changes
