#include "Texts.h"

#include <array>
#include <random>
#include <stdexcept>

namespace kxbench {
namespace {

constexpr std::size_t MostBytes = 24;

using Random = std::mt19937;

int number(Random& random, int from, int to) {
    // Not std::uniform_int_distribution, whose results depend on the library.
    return from + static_cast<int>(random() % static_cast<unsigned>(to - from + 1));
}

template <std::size_t N>
std::string oneOf(Random& random, const std::array<const char*, N>& words) {
    return words[random() % N];
}

std::string padded(int value, std::size_t digits) {
    std::string text = std::to_string(value);
    return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

std::string decimal(int cents) {
    return std::to_string(cents / 100) + "." + padded(cents % 100, 2);
}

constexpr std::array<const char*, 12> Brands{"青山", "晨光", "Nord",    "海源", "Ostra", "金禾",
                                             "Vela", "三江", "Bergamo", "明月", "Kite",  "百川"};
constexpr std::array<const char*, 12> Goods{"签字笔", "tea",  "酱油",   "biscuit", "矿泉水", "bolt M8",
                                            "打印纸", "tape", "洗衣粉", "coffee",  "毛巾",   "cable"};
constexpr std::array<const char*, 8> Units{"箱", "件", "kg", "只", "包", "m", "瓶", "box"};
constexpr std::array<const char*, 8> Remarks{
    "加急", "ok", "to be checked", "第二次送货", "送二楼", "fragile glass", "-", "paid in advance 30 %"};

std::string make(Kind kind, Random& random) {
    switch (kind) {
        case Kind::Code:
            return oneOf(random, std::array{"A", "B", "HX", "T-"}) + padded(number(random, 1, 9999), 4);
        case Kind::Name:
            return oneOf(random, Brands) + oneOf(random, Goods) + std::to_string(number(random, 1, 99));
        case Kind::Pack:
            return std::to_string(number(random, 1, 40) * 25) + oneOf(random, std::array{"ml", "g", "mm"}) +
                   "*" + std::to_string(number(random, 1, 48));
        case Kind::Unit:
            return oneOf(random, Units);
        case Kind::Quantity:
            return std::to_string(number(random, 1, 5000));
        case Kind::Price:
            return decimal(number(random, 5, 99999));
        case Kind::Amount:
            return decimal(number(random, 100, 99999999));
        case Kind::Date:
            return "2026-" + padded(number(random, 1, 12), 2) + "-" + padded(number(random, 1, 28), 2);
        case Kind::Warehouse:
            return "W" + std::to_string(number(random, 1, 30));
        case Kind::Remark:
            return oneOf(random, Remarks);
    }
    throw std::logic_error("no such kind of column");
}
}  // namespace

Texts::Pool::Pool(const std::vector<std::string>& texts) {
    for (const std::string& text : texts) {
        if (text.empty() || text.size() > MostBytes)
            throw std::logic_error("a text of the pool has a wrong length");
        qt.push_back(QString::fromStdString(text));
        bytes += text;
    }
    std::size_t start = 0;
    for (const std::string& text : texts) {
        utf8.push_back(std::string_view(bytes).substr(start, text.size()));
        start += text.size();
    }
}

std::vector<std::string> Texts::makeTexts() {
    Random random(20'260'101);
    std::vector<std::string> made;
    for (std::int32_t kind = 0; kind < KindCount; ++kind)
        for (std::size_t i = 0; i < PoolSize; ++i) made.push_back(make(static_cast<Kind>(kind), random));
    return made;
}

std::vector<std::string> Texts::makeTags() {
    Random random(4711);
    std::vector<std::string> made;
    for (std::size_t i = 0; i < PoolSize; ++i)
        made.push_back(std::to_string(number(random, 1, 99'999'999)).substr(random() % 4));
    return made;
}

Texts::Texts() : texts_(makeTexts()), tags_(makeTags()) {}

const Texts& Texts::instance() {
    static const Texts texts;
    return texts;
}
}  // namespace kxbench
