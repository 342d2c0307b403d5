// What has become of a sheet's lines since they were loaded or saved.
//
//     kxVsGrid::RecordChanges<Line> changes = sheet.changes();
//     for (auto& line : changes.added) line.record.id = insert(line.record);
//     for (auto& line : changes.changed) line.after.version = update(line.before, line.after);
//     for (auto& line : changes.removed) remove(line.before);
//     sheet.accept(changes);
#pragma once

#include <vector>

#include "kxVsGrid/RowId.h"

namespace kxVsGrid {

template <class Record>
struct RecordChanges {
    struct Added {
        RowId row;
        Record record;
    };
    struct Changed {
        RowId row;
        Record before;
        Record after;
    };
    struct Removed {
        RowId row;
        Record before;
    };
    std::vector<Added> added;      ///< as the rows stand
    std::vector<Changed> changed;  ///< as the rows stand
    std::vector<Removed> removed;

    bool empty() const { return added.empty() && changed.empty() && removed.empty(); }
};
}  // namespace kxVsGrid
