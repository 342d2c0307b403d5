#include "qt/text/Collation.h"

#include <QCollator>
#include <QLocale>
#include <algorithm>
#include <numeric>

#include "qt/text/Encoding.h"

namespace kxVsGrid::qt {
namespace {

QLocale sortingLocale() {
    const QLocale locale;
    const bool hasNoChinese = locale.language() == QLocale::C || locale.language() == QLocale::English;
    return hasNoChinese ? QLocale(QLocale::Chinese, QLocale::China) : locale;
}
}  // namespace

std::vector<std::uint32_t> ranksOf(const std::vector<std::string_view>& texts) {
    const QCollator collator(sortingLocale());
    std::vector<QCollatorSortKey> keys;
    keys.reserve(texts.size());
    for (const std::string_view text : texts) keys.push_back(collator.sortKey(toQt(text)));
    std::vector<std::uint32_t> order(texts.size());
    std::iota(order.begin(), order.end(), 0U);
    std::sort(order.begin(), order.end(), [&](auto a, auto b) { return keys[a].compare(keys[b]) < 0; });
    std::vector<std::uint32_t> ranks(texts.size());
    std::uint32_t rank = 0;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (i > 0 && keys[order[i - 1]].compare(keys[order[i]]) != 0) ++rank;
        ranks[order[i]] = rank;
    }
    return ranks;
}
}  // namespace kxVsGrid::qt
