// Writes a draft: hears what the engine tells, and gives whole steps away as lines.
//
// What fails for want of memory, and what cannot be told as changes of rows and texts (other columns, other
// fixed rows), is made good by giving the whole content away anew as soon as that is possible.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>

#include "changes/DraftFrontier.h"
#include "kxVsGrid/Draft.h"

namespace kxVsGrid::changes {

class DraftWriter : private ChangeListener {
  public:
    DraftWriter(CellGrid& grid, Draft::Sink sink) : grid_(grid), sink_(std::move(sink)) {}
    ~DraftWriter() override { end(); }
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
    /// They are told by the whole alone.
    void giveUpChanges() noexcept;
    void closeLine(std::string_view name, Cause cause);
    void give() noexcept;
    void giveAnew();
    bool giveTo(const Draft::Sink& sink, std::string_view bytes) const noexcept;

    void appendHeader(std::string& out, bool again);
    void appendPuts(std::string& out);
    void appendSlice(std::string& out, std::int32_t first, std::int32_t count);
    void appendEnd(std::string& out);
    std::string allAnew(bool again);
    bool fitsHeader() const { return grid_.FixedRows() == fixedRows_ && grid_.Cols() == cols_; }

    CellGrid& grid_;
    Draft::Sink sink_;
    std::string key_;
    std::string version_;
    std::map<std::string, std::string, std::less<>> puts_;
    std::string changes_;  ///< the fields of what has changed since the last line
    std::string pending_;  ///< lines that the sink has not kept yet
    std::uint64_t number_ = 0;
    DraftFrontier frontier_;
    std::size_t contentBytes_ = 0;
    std::int32_t fixedRows_ = 0;
    std::int32_t cols_ = 0;
    bool begun_ = false;
    bool stepOpen_ = false;
    bool whole_ = false;
    bool lost_ = false;  ///< the draft lacks something: only all of it anew is right
};
}  // namespace kxVsGrid::changes
