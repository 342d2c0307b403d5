// Texts as clerks type them into date columns, most of them nearly right: for random tests.
#pragma once

#include <string>
#include <string_view>

#include "kit/Random.h"

namespace kxVsGrid::testing {

class DateTexts {
  public:
    explicit DateTexts(kit::Random& random) : random_(random) {}

    std::string next() {
        switch (random_.between(0, 15)) {
            case 0:
                return noise("0123456789-/.: ", 24);
            case 1:
                return noise("0123456789-: \r\n\t+eE.年", 24);
            case 2:
                return chinese();
            case 3:
                return bytes(12);
            case 4:
                return std::string(static_cast<std::size_t>(random_.between(0, 3)), ' ');
            case 5:
                return random_.oneIn(20) ? longText() : noise("0123456789-/.: ", 200);
            case 6:
            case 7:
            case 8:
                return damaged(likely());
            default:
                return likely();
        }
    }

  private:
    template <std::size_t N>
    std::string oneOf(const char* const (&choices)[N]) {
        return choices[random_.between(0, N - 1)];
    }

    std::string number(std::int64_t first, std::int64_t last, std::size_t digits) {
        std::string text = std::to_string(random_.between(first, last));
        if (random_.oneIn(2) && text.size() < digits) text.insert(0, digits - text.size(), '0');
        return text;
    }

    /// A date in one of the ways to write it, now and then one that the calendar does not have.
    std::string date() {
        static constexpr const char* Ways[][3] = {
            {"-", "-", ""}, {"/", "/", ""}, {".", ".", ""}, {"年", "月", "日"}};
        const auto& way = Ways[random_.between(0, 3)];
        if (random_.oneIn(3)) return shortDate();
        const std::string year =
            random_.oneIn(5) ? number(0, 99, 2) : number(random_.oneIn(9) ? 0 : 100, 9999, 4);
        const bool odd = random_.oneIn(8);
        return year + way[0] + number(odd ? 0 : 1, odd ? 14 : 12, 2) + way[1] +
               number(odd ? 0 : 1, random_.oneIn(3) ? 33 : 28, 2) + way[2];
    }

    /// Of eight digits, or without its year.
    std::string shortDate() {
        const std::string month = number(random_.oneIn(8) ? 0 : 1, random_.oneIn(8) ? 14 : 12, 2);
        const std::string day = number(1, random_.oneIn(4) ? 33 : 28, 2);
        switch (random_.between(0, 4)) {
            case 0:
                return month + "-" + day;
            case 1:
                return month + "/" + day;
            case 2:
                return month + "月" + day + "日";
            case 3:
                return month + oneOf({".", "月", "--", "年"}) + day;
            default:
                return std::to_string(random_.between(random_.oneIn(9) ? 0 : 1000, 9999) * 10000 +
                                      random_.between(1, 12) * 100 + random_.between(1, 31));
        }
    }

    std::string time() {
        const bool odd = random_.oneIn(6);
        std::string text =
            number(odd ? -1 : 0, odd ? 26 : 23, 2) + ":" + number(odd ? -1 : 0, odd ? 62 : 59, 2);
        if (!random_.oneIn(6)) text += ":" + number(odd ? -1 : 0, odd ? 62 : 59, 2);
        if (random_.oneIn(8)) text += oneOf({".5", "e0", "x", " ", ":", "秒", "e1"});
        return text;
    }

    std::string likely() {
        std::string text = date();
        if (random_.oneIn(10)) text.insert(0, " ");
        switch (random_.between(0, 4)) {
            case 0:
                break;
            case 1:
            case 2:
                text += (random_.oneIn(12) ? "" : " ") +
                        oneOf({"上午", "下午", "上午", "下午", "晚上", "上", "am"});
                break;
            default:
                text += (random_.oneIn(12) ? "  " : " ") + time();
        }
        if (random_.oneIn(10)) text += " ";
        return text;
    }

    /// A few bytes changed, gone, or more.
    std::string damaged(std::string text) {
        for (auto n = random_.between(1, 3); n > 0; --n) {
            const auto at =
                static_cast<std::size_t>(random_.between(0, static_cast<std::int64_t>(text.size())));
            switch (random_.between(0, 3)) {
                case 0:
                    text.erase(at, 1);
                    break;
                case 1:
                    text.insert(at, 1, random_.anyOf("0123456789-/.: \n\r\t\xe5\x88x"));
                    break;
                case 2:
                    text.insert(at, oneOf({"年", "月", "日", "０", "：", "上午", "\r\n", "  "}));
                    break;
                default:
                    if (at < text.size()) text[at] = static_cast<char>(random_.between(1, 255));
            }
        }
        return text;
    }

    std::string noise(std::string_view characters, std::int64_t most) {
        std::string text;
        for (auto n = random_.between(0, most); n > 0; --n) text += random_.anyOf(characters);
        return text;
    }
    std::string chinese() {
        std::string text;
        for (auto n = random_.between(1, 8); n > 0; --n)
            text += oneOf(
                {"年", "月", "日", "上午", "下午", "晚上", "二〇一一", "2011", "2", "3", " ", "货", "😀"});
        return text;
    }
    std::string bytes(std::int64_t most) {
        std::string text;
        for (auto n = random_.between(0, most); n > 0; --n)
            text += static_cast<char>(random_.between(0, 255));
        return text;
    }
    std::string longText() {
        std::string text = likely();
        text.append(static_cast<std::size_t>(random_.between(1, 5000)), random_.anyOf(" 09:x"));
        return random_.oneIn(2) ? text : text + likely();
    }

    kit::Random& random_;
};
}  // namespace kxVsGrid::testing
