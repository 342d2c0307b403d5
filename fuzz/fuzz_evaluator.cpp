// Any text for the evaluator: it must neither crash nor hang, and what it answers must hang together.
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <string>
#include <string_view>

#include "kxVsGrid/mbasTxt.h"

namespace {

void require(bool condition, const char* what, std::string_view text) {
    if (condition) return;
    std::cerr << what << ": \"" << text << "\"\n";
    std::abort();
}

bool gives(const std::string& text, double expected) {
    double result = std::numeric_limits<double>::quiet_NaN();
    return kxVsGrid::bEvaluateExp(text, result) &&
           std::bit_cast<std::uint64_t>(result) == std::bit_cast<std::uint64_t>(expected);
}

void checkFailure(std::string_view text, double result) {
    require(std::isfinite(result), "a failure left no finite result", text);
    const bool hasSum = text.find_first_of("+-") != std::string_view::npos;
    require(result == 0 || hasSum, "a failure without a sum left a result", text);
}

void checkSuccess(std::string_view text, double result) {
    require(std::isfinite(result), "the result is not finite", text);
    std::string plain(text);
    plain.erase(std::remove(plain.begin(), plain.end(), ' '), plain.end());
    require(gives(plain, result), "blanks change the result", text);
    require(gives("(" + plain + ")", result), "parentheses around the whole change the result", text);
    require(gives("-(" + plain + ")", -result), "a sign before the whole does not change the result's", text);
    std::string spread;
    for (const char c : plain) spread += {c, ' '};
    require(gives(spread, result), "blanks between all characters change the result", text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    double result = std::numeric_limits<double>::quiet_NaN();
    if (kxVsGrid::bEvaluateExp(text, result))
        checkSuccess(text, result);
    else
        checkFailure(text, result);
    return 0;
}
