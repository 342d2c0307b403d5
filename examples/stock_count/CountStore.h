// The count and its goods in the database. Everything throws DatabaseError.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "Sqlite.h"
#include "kxVsGrid/sheet/RecordChanges.h"

namespace stock_count {
using kxVsGrid::Date;
using kxVsGrid::Decimal;

struct Goods {
    std::string code, name, pinyin, spec, unit;
    Decimal price;
};

/// A batch of goods at a place: how much of it there is by the books, and how much was counted.
struct CountLine {
    std::int64_t id = 0, version = 0;
    std::string goods, name, spec, unit, bin, batch;
    Decimal book;
    std::optional<Decimal> counted, difference;
    Decimal price;
    std::optional<Decimal> differenceAmount;
    std::optional<Date> countedOn;
    std::string remark;

    friend bool operator==(const CountLine&, const CountLine&) = default;
};

class CountStore {
  public:
    static constexpr int SampleGoods = 50'000;
    static constexpr int SampleLines = 5'000;

    /// A database that is new gets so many goods and lines.
    explicit CountStore(const QString& file, int goods = SampleGoods, int lines = SampleLines);

    std::vector<Goods> goods();
    /// Answers the lines one by one, each read when its turn comes.
    std::function<std::optional<CountLine>()> lines();
    std::size_t size();
    /// All of it or nothing; writes ids and versions into the changes.
    void save(kxVsGrid::RecordChanges<CountLine>& changes);

    Sqlite& database() { return database_; }

  private:
    Sqlite database_;
};
}  // namespace stock_count
