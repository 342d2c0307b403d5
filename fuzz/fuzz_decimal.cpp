// Any text as a decimal number, and two of them worked out: what is read is written as the same number, and every
// result is the one that is found on paper.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

#include "../tests/support/DecimalTwin.h"
#include "kxVsGrid/support/Decimal.h"

namespace {

using kxVsGrid::Decimal;
using kxVsGrid::DecimalError;
namespace twin = kxVsGrid::twin;

void require(bool condition, const char* what, std::string_view text) {
    if (condition) return;
    std::cerr << what << ": \"" << text << "\"\n";
    std::abort();
}

std::optional<std::string> textOf(auto work) {
    try {
        return work().text();
    } catch (const DecimalError&) {
        return std::nullopt;
    }
}

std::optional<Decimal> readChecked(std::string_view text) {
    const std::optional<Decimal> number = Decimal::read(text);
    require(textOf([&] { return Decimal(text); }).has_value() == number.has_value(),
            "read and taken differently", text);
    if (!number) return number;
    require(number->text() == twin::shortest(twin::numberOf(text)).text(), "read as another number", text);
    require(Decimal::read(number->text()) == number, "its text is another number", text);
    std::string appended;
    number->appendTo(appended);
    require(appended == number->text(), "appended as another text", text);
    for (int decimals = 0; decimals <= Decimal::MostDecimals; ++decimals) {
        require(
            twin::shortest(twin::numberOf(number->text(decimals))).text() == number->rounded(decimals).text(),
            "shown as another number than it is rounded to", text);
    }
    return number;
}

void checkWork(const Decimal& a, const Decimal& b, std::string_view text) {
    const twin::Number first = twin::numberOf(a.text());
    const twin::Number second = twin::numberOf(b.text());
    const twin::Number negative = {!second.negative, second.digits, second.decimals};
    const bool zero = second.digits.empty();
    require(textOf([&] { return a + b; }) == whatFits(plus(first, second)), "a wrong sum", text);
    require(textOf([&] { return a - b; }) == whatFits(plus(first, negative)), "a wrong difference", text);
    require(textOf([&] { return a * b; }) == whatFitsWithFewerDecimals(times(first, second)),
            "a wrong product", text);
    require(textOf([&] { return a / b; }) == (zero ? std::nullopt : quotientThatFits(first, second)),
            "a wrong quotient", text);
    require((a > b) - (a < b) == order(first, second), "a wrong order", text);
    for (int decimals = 0; decimals <= Decimal::MostDecimals; ++decimals)
        require(textOf([&] { return a.divided(b, decimals); }) ==
                    (zero ? std::nullopt : whatFits(over(first, second, decimals))),
                "a wrong rounded quotient", text);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    const std::size_t blank = std::min(text.find(' '), size);
    const std::optional<Decimal> first = readChecked(std::string_view(text).substr(0, blank));
    const std::optional<Decimal> second =
        readChecked(blank < size ? std::string_view(text).substr(blank + 1) : std::string_view());
    if (first && second) checkWork(*first, *second, text);
    return 0;
}
