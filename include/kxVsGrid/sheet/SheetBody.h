// What a sheet does whatever its records are: Sheet<Record> (Sheet.h) puts the types around it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/kxGrid.h"
#include "kxVsGrid/sheet/ColumnPlan.h"
#include "kxVsGrid/sheet/Fault.h"

namespace kxVsGrid::sheet {

using AnyRecord = std::shared_ptr<void>;
using KeptRecord = std::shared_ptr<const void>;

/// A new record, or a copy of one.
using MakeRecord = AnyRecord (*)(const void* original);

struct AnyChange {
    RowId row;
    KeptRecord before;  ///< none: added
    KeptRecord after;   ///< none: removed
};

struct Rule {
    std::int32_t column;  ///< counted among the sheet's
    std::function<bool(const void* record)> holds;
    std::string reason;
    bool whenTyped = true;  ///< a typed text that breaks it is refused
};

/// A cell that the clerk has changed.
struct Edited {
    std::int32_t row = 0;
    std::string_view column;  ///< its name
    bool filled = false;      ///< by a fill of the menu
};

/// What becomes of a text that is no value of its column, where lines are read.
enum class Unreadable {
    Refused,  ///< its row is a line, and reading it throws UnreadableCell
    Blank     ///< the member is that of a new record
};

/// Asked now and then; False ends the work.
using Progress = std::function<bool(std::size_t done, std::size_t total)>;

/// What says which line a record is, and in which version.
struct Identity {
    std::function<bool(const void* record)> known;
    std::function<bool(const void* one, const void* other)> alike;
};

/// The member that numbers the lines.
struct Position {
    std::function<void(void* record, std::int64_t number)> put;
    std::function<std::int64_t(const void* record)> get;
};

class SheetBody {
  public:
    SheetBody(kxGrid& grid, MakeRecord make, bool computesTwice);
    ~SheetBody();
    SheetBody(const SheetBody&) = delete;
    SheetBody& operator=(const SheetBody&) = delete;

    // --- What the host says before it loads. A column is refused afterwards with GridError.
    ColumnPlan& column(std::string_view name, std::string_view caption, std::unique_ptr<Field> field);
    void rule(std::string_view name, std::function<bool(const void*)> holds, std::string_view reason,
              bool whenTyped);
    void inUse(std::function<bool(const void*)> says);
    void identity(Identity identity);
    void version(Identity version);
    void position(Position position);
    void edited(std::function<void(void*, const Edited&)> follow);
    void enterToNextRow(std::string_view name);
    void copied(std::function<bool(void*)> adapt);
    void failed(std::function<void(const std::string&)> told);
    void wording(std::function<std::string(const Fault&)> says);
    void mayDelete(std::function<bool(const std::vector<std::int32_t>&)> asks);
    void unreadable(Unreadable how);
    void leastRows(std::int32_t rows);
    void together(std::function<std::string(const std::vector<KeptRecord>&)> why);

    // --- Loading
    /// Texts of records, until they become the grid's at once.
    class Loading {
      public:
        Loading(SheetBody& body, std::size_t total, Progress progress);
        ~Loading();
        Loading(const Loading&) = delete;
        Loading& operator=(const Loading&) = delete;
        /// False: cancelled.
        bool add(AnyRecord record);
        /// The same; the last look at the progress comes before anything is touched.
        bool finish();

      private:
        bool goesOn() const;

        struct Texts;
        std::unique_ptr<Texts> texts_;
    };

    // --- Lines
    std::int32_t columnOf(std::string_view name) const;
    bool isInUse(std::int32_t row) const;
    std::int32_t endRow() const;
    KeptRecord record(std::int32_t row) const;
    KeptRecord recordOf(RowId row) const;
    std::vector<KeptRecord> records() const;
    void put(std::int32_t row, const void* record);
    std::vector<std::int32_t> append(const std::vector<KeptRecord>& records);
    void recompute();
    Decimal sum(std::string_view name) const;
    void preset(std::string_view name, std::string_view text);

    // --- The clerk
    bool commit();
    void complete();
    void goTo(std::int32_t row, std::string_view name);
    std::string hint() const;

    // --- What is to be saved
    std::vector<AnyChange> changes() const;
    void accept(const std::vector<AnyChange>& changes);
    void storedAs(RowId row, KeptRecord record);
    bool modified() const;
    bool moved() const;
    void saved(std::vector<KeptRecord> records);
    Connection onModified(std::function<void(bool)> told);
    Connection onChanged(std::function<void()> told);
    /// Gets the changes, and puts ids and versions into them.
    using Write = std::function<void(std::vector<AnyChange>&)>;
    std::optional<Fault> save(const Write& write);

    // --- What is wrong
    std::optional<Fault> firstFault() const;
    std::vector<Fault> faults() const;
    int markFaults();
    void clearMarks();

    kxGrid& grid();

  private:
    struct Impl;
    std::shared_ptr<Impl> impl_;
};
}  // namespace kxVsGrid::sheet
