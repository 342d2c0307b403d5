// The count and its goods in the database. Everything throws DatabaseError.
#pragma once

#include <cstddef>
#include <iterator>
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

/// The lines of the count, each read when its turn comes.
class CountLines {
  public:
    class Iterator {
      public:
        explicit Iterator(QSqlQuery& query) : query_(&query), more_(next(query)) {}
        CountLine operator*() const;
        Iterator& operator++() {
            more_ = next(*query_);
            return *this;
        }
        bool operator!=(std::default_sentinel_t) const { return more_; }

      private:
        QSqlQuery* query_;
        bool more_;
    };

    CountLines(QSqlQuery query, std::size_t size) : query_(std::move(query)), size_(size) {}
    std::size_t size() const { return size_; }
    Iterator begin() const { return Iterator(query_); }
    std::default_sentinel_t end() const { return {}; }

  private:
    mutable QSqlQuery query_;
    std::size_t size_;
};

class CountStore {
  public:
    static constexpr int SampleGoods = 50'000;
    static constexpr int SampleLines = 5'000;

    /// A database that is new gets so many goods and lines.
    explicit CountStore(const QString& file, int goods = SampleGoods, int lines = SampleLines);

    std::vector<Goods> goods();
    CountLines lines();
    /// All of it or nothing; writes ids and versions into the changes.
    void save(kxVsGrid::RecordChanges<CountLine>& changes);

    Sqlite& database() { return database_; }

  private:
    Sqlite database_;
};
}  // namespace stock_count
