// What the date forms have to make of a text, found another way than the code under test does: by the outline
// of the text, in which every run of digits is one mark.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kxVsGrid::testing {

class DateOracle {
  public:
    enum class Form { Date, HalfDay, Time };
    /// That the clock of the tests shows.
    static constexpr int ThisYear = 2026;

    /// The text as it has to be stored; nothing when it has to be refused.
    static std::optional<std::string> stored(Form form, std::string text) {
        text = trimmed(text);
        if (text.empty()) return "";
        if (form == Form::Date) return anyDay(text);
        const std::size_t blank = text.find(' ');
        if (blank == std::string::npos) return {};
        const auto date = anyDay(text.substr(0, blank));
        const std::string rest = text.substr(blank + 1);
        const auto suffix = form == Form::HalfDay ? half(rest) : time(rest);
        if (!date || !suffix) return {};
        return *date + " " + *suffix;
    }

  private:
    static std::string trimmed(const std::string& text) {
        const std::size_t first = text.find_first_not_of(' ');
        if (first == std::string::npos) return "";
        return text.substr(first, text.find_last_not_of(' ') - first + 1);
    }

    static std::string digits(int value, int count) {
        std::string text = std::to_string(value);
        while (static_cast<int>(text.size()) < count) text.insert(0, "0");
        return text;
    }

    /// The text with # for each run of digits; the runs themselves.
    static std::string outline(std::string_view text, std::vector<std::string>& runs) {
        std::string marks;
        bool inRun = false;
        for (const char c : text) {
            const bool digit = c >= '0' && c <= '9';
            if (digit && !inRun) {
                marks += '#';
                runs.emplace_back();
            }
            if (digit)
                runs.back() += c;
            else
                marks += c;
            inRun = digit;
        }
        return marks;
    }

    /// How many days the month has.
    static int daysOf(int year, int month) {
        static constexpr int Days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        const bool leap = year % 400 == 0 || (year % 100 != 0 && year % 4 == 0);
        return Days[month - 1] + (month == 2 && leap ? 1 : 0);
    }

    static std::optional<std::string> day(const std::string& text) {
        static const char* const Outlines[] = {"#-#-#", "#/#/#", "#.#.#", "#年#月#日"};
        std::vector<std::string> runs;
        std::string marks = outline(text, runs);
        for (const std::string clock : {" #:#:#", " #:#"})
            if (marks.size() > clock.size() && marks.ends_with(clock)) {
                marks.resize(marks.size() - clock.size());
                break;
            }
        if (std::find(std::begin(Outlines), std::end(Outlines), marks) == std::end(Outlines)) return {};
        // One or two digits each, but for the year and the two that minutes and seconds always have.
        for (std::size_t i = 0; i < runs.size(); ++i) {
            const std::size_t length = runs[i].size();
            if (i == 0 ? length != 2 && length != 4 : length > 2 || (i > 3 && length < 2)) return {};
            if (i == 3 && std::stoi(runs[i]) > 23) return {};
            if (i > 3 && std::stoi(runs[i]) > 59) return {};
        }
        int year = std::stoi(runs[0]);
        if (runs[0].size() == 2) year += year < 30 ? 2000 : 1900;
        const int month = std::stoi(runs[1]);
        const int dayOfMonth = std::stoi(runs[2]);
        if (year < 100 || month < 1 || month > 12 || dayOfMonth < 1 || dayOfMonth > daysOf(year, month))
            return {};
        return digits(year, 4) + "-" + digits(month, 2) + "-" + digits(dayOfMonth, 2);
    }

    /// Also one of this year, or of eight digits.
    static std::optional<std::string> anyDay(const std::string& text) {
        std::vector<std::string> runs;
        const std::string marks = outline(text, runs);
        if (marks == "#" && text.size() == 8)
            return day(text.substr(0, 4) + "/" + text.substr(4, 2) + "/" + text.substr(6));
        if (marks == "#-#" || marks == "#/#" || marks == "#月#日")
            return day(std::to_string(ThisYear) + "/" + runs[0] + "/" + runs[1]);
        return day(text);
    }

    static std::optional<std::string> half(const std::string& word) {
        if (word == "上午" || word == "下午") return word;
        return {};
    }

    /// The number that a text starts with: blanks, a sign, digits and one point, an exponent.
    static double leadingNumber(const std::string& text) {
        std::size_t end = text.find_first_not_of(' ');
        if (end == std::string::npos) return 0;
        const std::size_t start = end;
        const auto eatDigits = [&] {
            const std::size_t from = end;
            while (end < text.size() && text[end] >= '0' && text[end] <= '9') ++end;
            return end - from;
        };
        if (end < text.size() && (text[end] == '+' || text[end] == '-')) ++end;
        std::size_t count = eatDigits();
        if (end < text.size() && text[end] == '.') {
            ++end;
            count += eatDigits();
        }
        if (count == 0) return 0;
        const std::size_t mantissa = end;
        if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
            ++end;
            if (end < text.size() && (text[end] == '+' || text[end] == '-')) ++end;
            if (eatDigits() == 0) end = mantissa;
        }
        return std::strtod(text.substr(start, end - start).c_str(), nullptr);
    }

    static std::optional<std::string> time(const std::string& text) {
        const std::size_t first = text.find(':');
        const std::size_t second = first == std::string::npos ? first : text.find(':', first + 1);
        if (second == std::string::npos) return {};
        const double hour = leadingNumber(text.substr(0, first));
        const double minute = leadingNumber(text.substr(first + 1, second - first - 1));
        const double seconds = leadingNumber(text.substr(second + 1));
        if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || seconds < 0 || seconds > 59) return {};
        return digits(static_cast<int>(hour), 2) + ":" + digits(static_cast<int>(minute), 2) + ":" +
               digits(static_cast<int>(seconds), 2);
    }
};
}  // namespace kxVsGrid::testing
