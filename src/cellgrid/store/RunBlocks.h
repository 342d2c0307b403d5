// A long sequence of runs, each standing for `count` elements in a row, kept in blocks so that the run of an
// element is found in logarithmic time and a run is put in or taken out by moving one block's worth of runs.
//
// A Run has a public `std::int32_t count` and `std::int64_t extent() const`, the length of its elements on
// whatever the sequence measures (0 where it measures nothing). Moving a run cannot fail.
//
// Only `insert` and `prepareReplace` take memory, all of it before they change anything: when one of them
// fails, nothing has happened.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <new>
#include <utility>
#include <vector>

#include "support/Room.h"

namespace kxVsGrid::cellgrid {

template <class Run, std::size_t Capacity = 64>
class RunBlocks {
  public:
    /// A run, together with the number of elements and the extent before it. Any change of the sequence makes
    /// places stale, except those that the changing call returns.
    struct Place {
        std::size_t block = 0;
        std::size_t run = 0;
        std::int64_t first = 0;
        std::int64_t position = 0;
    };

    std::int64_t count() const { return count_; }
    std::int64_t extent() const { return extent_; }

    /// The run that holds an element; the end for the element after the last.
    Place find(std::int64_t index) const {
        if (index >= count_) return end();
        sumUp();
        const auto after = std::upper_bound(starts_.begin(), starts_.end(), index,
                                            [](std::int64_t i, const Start& s) { return i < s.first; });
        Place place = blockPlace(after);
        for (const Run* run = blocks_[place.block].runs.data(); index >= place.first + run->count; ++run)
            stepOver(place, *run);
        return place;
    }

    /// The run over a position, which lies in [0, extent()); runs without extent lie over none.
    Place findPosition(std::int64_t position) const {
        sumUp();
        const auto after = std::upper_bound(starts_.begin(), starts_.end(), position,
                                            [](std::int64_t p, const Start& s) { return p < s.position; });
        Place place = blockPlace(after);
        for (const Run* run = blocks_[place.block].runs.data(); position >= place.position + run->extent();
             ++run)
            stepOver(place, *run);
        return place;
    }

    Place begin() const { return Place{}; }
    Place end() const { return Place{blocks_.size(), 0, count_, extent_}; }
    bool atEnd(const Place& place) const { return place.block == blocks_.size(); }
    bool atBegin(const Place& place) const { return place.block == 0 && place.run == 0; }

    const Run& operator[](const Place& place) const { return blocks_[place.block].runs[place.run]; }

    Place next(Place place) const {
        stepOver(place, (*this)[place]);
        if (place.run == blocks_[place.block].runs.size()) {
            ++place.block;
            place.run = 0;
        }
        return place;
    }

    Place previous(Place place) const {
        if (place.run == 0) {
            --place.block;
            place.run = blocks_[place.block].runs.size();
        }
        --place.run;
        const Run& run = (*this)[place];
        place.first -= run.count;
        place.position -= run.extent();
        return place;
    }

    /// Lets `edit` change the run; the place stays good.
    template <class Edit>
    void change(const Place& place, Edit edit) {
        Run& run = blocks_[place.block].runs[place.run];
        const std::int64_t count = run.count;
        const std::int64_t extent = run.extent();
        edit(run);
        add(place.block, run.count - count, run.extent() - extent);
    }

    /// Puts a run before `place` and returns where it is.
    Place insert(Place place, Run run) {
        if (place.block == blocks_.size()) {
            if (blocks_.empty() || blocks_.back().runs.size() == Capacity) addBlock();
            place.block = blocks_.size() - 1;
            place.run = blocks_.back().runs.size();
        } else if (blocks_[place.block].runs.size() == Capacity) {
            splitBlock(place);
        }
        Block& block = blocks_[place.block];
        support::makeRoom(block.runs);
        add(place.block, run.count, run.extent());
        block.runs.insert(block.runs.begin() + static_cast<std::ptrdiff_t>(place.run), std::move(run));
        return place;
    }

    /// Takes a run out and returns the place of the one after it.
    Place erase(Place place) {
        Block& block = blocks_[place.block];
        const Run& run = block.runs[place.run];
        add(place.block, -std::int64_t{run.count}, -run.extent());
        block.runs.erase(block.runs.begin() + static_cast<std::ptrdiff_t>(place.run));
        if (block.runs.empty())
            eraseBlock(place.block);
        else if (place.block + 1 < blocks_.size() &&
                 block.runs.size() + blocks_[place.block + 1].runs.size() <= Capacity / 2)
            joinNext(place.block);
        if (place.block < blocks_.size() && place.run == blocks_[place.block].runs.size()) {
            ++place.block;
            place.run = 0;
        }
        return place;
    }

    /// Where the block begins that holds the run before `place`, or `place` where there is none before it.
    Place blockBefore(Place place) const {
        return blockStart(place.run == 0 && place.block > 0 ? place.block - 1 : place.block);
    }
    /// Where the block after that of `place` begins.
    Place blockAfter(const Place& place) const {
        return blockStart(std::min(place.block + 1, blocks_.size()));
    }

  private:
    struct Block {
        std::vector<Run> runs;
        std::int64_t count = 0;
        std::int64_t extent = 0;
    };

  public:
    /// Blocks that shall stand in place of others.
    class Replacement {
        friend class RunBlocks;
        std::size_t first = 0;
        std::size_t stop = 0;
        std::vector<Block> blocks;
    };
    /// `runs` shall stand in place of those of [from, to), both of which begin blocks. Takes memory.
    Replacement prepareReplace(const Place& from, const Place& to, const std::vector<Run>& runs) {
        Replacement with;
        with.first = from.block;
        with.stop = to.block;
        constexpr std::size_t Filled = Capacity * 3 / 4;  // so that the next run does not split them
        with.blocks.reserve((runs.size() + Filled - 1) / Filled);
        for (std::size_t i = 0; i < runs.size(); i += Filled) {
            Block block;
            const auto begin = runs.begin() + static_cast<std::ptrdiff_t>(i);
            block.runs.assign(begin, begin + static_cast<std::ptrdiff_t>(std::min(Filled, runs.size() - i)));
            for (const Run& run : block.runs) {
                block.count += run.count;
                block.extent += run.extent();
            }
            with.blocks.push_back(std::move(block));
        }
        const std::size_t gone = with.stop - with.first;
        const std::size_t more = with.blocks.size() - std::min(gone, with.blocks.size());
        support::makeRoom(blocks_, more);
        support::makeRoom(starts_, more);
        return with;
    }
    /// What was prepared, nothing else having changed since.
    void replace(Replacement& with) noexcept {
        for (std::size_t i = with.first; i < with.stop; ++i) {
            count_ -= blocks_[i].count;
            extent_ -= blocks_[i].extent;
        }
        for (const Block& block : with.blocks) {
            count_ += block.count;
            extent_ += block.extent;
        }
        const auto begin = blocks_.begin() + static_cast<std::ptrdiff_t>(with.first);
        const auto end = blocks_.begin() + static_cast<std::ptrdiff_t>(with.stop);
        const auto kept = static_cast<std::ptrdiff_t>(std::min(with.stop - with.first, with.blocks.size()));
        const auto rest = std::make_move_iterator(with.blocks.begin() + kept);
        std::move(with.blocks.begin(), with.blocks.begin() + kept, begin);
        if (begin + kept < end)
            blocks_.erase(begin + kept, end);
        else
            blocks_.insert(end, rest, std::make_move_iterator(with.blocks.end()));
        starts_.resize(blocks_.size());
        stale_ = std::min(stale_, with.first);
    }

  private:
    struct Start {
        std::int64_t first;
        std::int64_t position;
    };

    static void stepOver(Place& place, const Run& run) {
        ++place.run;
        place.first += run.count;
        place.position += run.extent();
    }

    Place blockStart(std::size_t block) const {
        sumUp();
        if (block == blocks_.size()) return end();
        return Place{block, 0, starts_[block].first, starts_[block].position};
    }

    Place blockPlace(typename std::vector<Start>::const_iterator after) const {
        const auto block = static_cast<std::size_t>(after - starts_.begin()) - 1;
        return Place{block, 0, starts_[block].first, starts_[block].position};
    }

    void add(std::size_t block, std::int64_t count, std::int64_t extent) {
        blocks_[block].count += count;
        blocks_[block].extent += extent;
        count_ += count;
        extent_ += extent;
        stale_ = std::min(stale_, block + 1);
    }

    /// Brings the starts of the blocks from the first stale one on up to date.
    void sumUp() const {
        for (; stale_ < blocks_.size(); ++stale_) {
            if (stale_ == 0)
                starts_[0] = {0, 0};
            else
                starts_[stale_] = {starts_[stale_ - 1].first + blocks_[stale_ - 1].count,
                                   starts_[stale_ - 1].position + blocks_[stale_ - 1].extent};
        }
    }

    /// Room for one block more, before anything is put into it.
    void makeRoomForBlock() {
        support::makeRoom(blocks_);
        support::makeRoom(starts_);
    }

    /// An empty block at the end, with room for its first run: it is not left without one.
    void addBlock() {
        makeRoomForBlock();
        Block fresh;
        support::makeRoom(fresh.runs);
        blocks_.push_back(std::move(fresh));
        starts_.push_back({count_, extent_});
        stale_ = std::min(stale_, blocks_.size() - 1);
    }

    void splitBlock(Place& place) {
        constexpr std::size_t keep = Capacity / 2;
        makeRoomForBlock();
        Block fresh;
        fresh.runs.reserve(Capacity);
        Block& full = blocks_[place.block];
        std::move(full.runs.begin() + static_cast<std::ptrdiff_t>(keep), full.runs.end(),
                  std::back_inserter(fresh.runs));
        full.runs.erase(full.runs.begin() + static_cast<std::ptrdiff_t>(keep), full.runs.end());
        for (const Run& run : fresh.runs) {
            fresh.count += run.count;
            fresh.extent += run.extent();
        }
        full.count -= fresh.count;
        full.extent -= fresh.extent;
        blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(place.block) + 1, std::move(fresh));
        starts_.push_back({});
        stale_ = std::min(stale_, place.block + 1);
        if (place.run > keep) {
            ++place.block;
            place.run -= keep;
        }
    }

    void eraseBlock(std::size_t block) {
        blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(block));
        starts_.pop_back();
        stale_ = std::min(stale_, block);
    }

    /// Joining only saves memory: where there is none for it, the blocks stay apart.
    void joinNext(std::size_t block) {
        Block& here = blocks_[block];
        Block& gone = blocks_[block + 1];
        try {
            support::makeRoom(here.runs, gone.runs.size());
        } catch (const std::bad_alloc&) {
            return;
        }
        std::move(gone.runs.begin(), gone.runs.end(), std::back_inserter(here.runs));
        here.count += gone.count;
        here.extent += gone.extent;
        eraseBlock(block + 1);
    }

    std::vector<Block> blocks_;
    mutable std::vector<Start> starts_;  ///< of each block; good below stale_
    mutable std::size_t stale_ = 0;
    std::int64_t count_ = 0;
    std::int64_t extent_ = 0;
};
}  // namespace kxVsGrid::cellgrid
