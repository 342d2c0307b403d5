// The texts that every contestant is given: order data with codes, names, quantities, prices and dates, 1 to
// 24 bytes long, the same in every run. They exist before a measurement starts, as QStrings for the peers
// (which share them) and as UTF-8 for the grid (which copies the bytes).
#pragma once

#include <QString>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kxbench {

/// What the columns hold; column 10 starts over.
enum class Kind { Code, Name, Pack, Unit, Quantity, Price, Amount, Date, Warehouse, Remark };
constexpr std::int32_t KindCount = 10;

constexpr Kind kindOf(std::int32_t col) {
    return static_cast<Kind>(col % KindCount);
}

class Texts {
  public:
    static const Texts& instance();

    /// Texts and tags of data cell (row, col), both from 0.
    const QString& text(std::int32_t row, std::int32_t col) const { return texts_.qt[place(row, col)]; }
    const QString& tag(std::int32_t row, std::int32_t col) const { return tags_.qt[pick(row, col)]; }
    std::string_view utf8(std::int32_t row, std::int32_t col) const { return texts_.utf8[place(row, col)]; }
    std::string_view utf8Tag(std::int32_t row, std::int32_t col) const { return tags_.utf8[pick(row, col)]; }

    /// The texts, or tags, of a column from a row down that lie side by side: at most `most`. So a host has them
    /// whose data come in blocks of columns.
    std::span<const std::string_view> block(std::int32_t row, std::int32_t col, std::int32_t most) const {
        return blockOf(texts_.utf8, place(row, col), pick(row, col), most);
    }
    std::span<const std::string_view> tagBlock(std::int32_t row, std::int32_t col, std::int32_t most) const {
        return blockOf(tags_.utf8, pick(row, col), pick(row, col), most);
    }
    std::span<const QString> qtBlock(std::int32_t row, std::int32_t col, std::int32_t most) const {
        return blockOf(texts_.qt, place(row, col), pick(row, col), most);
    }
    std::span<const QString> qtTagBlock(std::int32_t row, std::int32_t col, std::int32_t most) const {
        return blockOf(tags_.qt, pick(row, col), pick(row, col), most);
    }

  private:
    static constexpr std::size_t PoolSize = 1024;
    struct Pool {
        std::vector<QString> qt;
        std::vector<std::string_view> utf8;
        std::string bytes;  ///< of all texts, one after the other
        explicit Pool(const std::vector<std::string>& texts);
    };
    Texts();
    template <class Text>
    static std::span<const Text> blockOf(const std::vector<Text>& pool, std::size_t first, std::size_t picked,
                                         std::int32_t most) {
        return std::span(pool).subspan(first, std::min(PoolSize - picked, static_cast<std::size_t>(most)));
    }
    static std::vector<std::string> makeTexts();
    static std::vector<std::string> makeTags();
    /// The texts of a kind repeat themselves after so many rows; the columns are out of step.
    static std::size_t pick(std::int32_t row, std::int32_t col) {
        return static_cast<std::size_t>(row + 37 * col) % PoolSize;
    }
    static std::size_t place(std::int32_t row, std::int32_t col) {
        return static_cast<std::size_t>(kindOf(col)) * PoolSize + pick(row, col);
    }

    Pool texts_;
    Pool tags_;
};
}  // namespace kxbench
