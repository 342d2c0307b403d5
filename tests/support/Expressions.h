// Random expressions: mostly good ones, of every form that a clerk may type, and spoilt ones.
#pragma once

#include <string>

#include "kit/Random.h"

namespace kxVsGrid::test {

class Expressions {
  public:
    explicit Expressions(kit::Random& random) : random_(random) {}

    std::string any() {
        if (random_.oneIn(8)) return noise();
        nearTheLimit_ = random_.oneIn(40);
        std::string text = sum(static_cast<int>(random_.between(0, 3)));
        while (random_.oneIn(3)) spoil(text);
        return text;
    }

  private:
    std::string sum(int depth) {
        std::string text = product(depth);
        while (random_.oneIn(2)) text += blanks() + random_.anyOf("+-") + product(depth);
        return text;
    }

    std::string product(int depth) {
        std::string text = power(depth);
        while (random_.oneIn(2)) {
            if (depth > 0 && random_.oneIn(4))
                text += group(depth - 1);
            else
                text += blanks() + random_.anyOf("**/") + power(depth);
        }
        return text;
    }

    std::string power(int depth) {
        std::string text = operand(depth);
        while (random_.oneIn(4)) text += blanks() + "^" + operand(depth);
        return text;
    }

    std::string operand(int depth) {
        std::string text = blanks();
        while (random_.oneIn(5)) text += random_.anyOf("--+");
        text += depth > 0 && random_.oneIn(3) ? group(depth - 1) : number();
        if (text.back() == ')' && random_.oneIn(6)) text += number();
        return text;
    }

    std::string group(int depth) { return "(" + sum(depth) + blanks() + ")"; }

    std::string number() {
        if (nearTheLimit_ && random_.oneIn(2)) return std::string(308, '9');  // two of them overflow
        if (random_.oneIn(100)) return std::string(static_cast<std::size_t>(random_.between(290, 320)), '9');
        if (random_.oneIn(100))
            return "." + std::string(static_cast<std::size_t>(random_.between(1, 400)), '0') + "7";
        if (random_.oneIn(100)) return ".";
        std::string text = digits();
        if (random_.oneIn(4)) text += "." + digits();
        if (random_.oneIn(20)) text += '.';
        if (random_.oneIn(20)) text.insert(0, 1, '.');
        return text;
    }

    std::string digits() {
        std::string text(1, random_.anyOf("0123456789"));
        while (random_.oneIn(3)) text += random_.anyOf("0123456789");
        return random_.oneIn(50) ? text + "1234567890123456789" : text;
    }

    std::string blanks() { return std::string(random_.oneIn(10) ? 1 : 0, ' '); }

    std::string noise() {
        std::string text;
        for (auto length = random_.between(0, 12); length > 0; --length)
            text += random_.anyOf("0123.+-*/^()() ");
        return text;
    }

    void spoil(std::string& text) {
        const auto at = static_cast<std::size_t>(random_.between(0, static_cast<std::int64_t>(text.size())));
        if (random_.oneIn(2) && at < text.size())
            text.erase(at, 1);
        else
            text.insert(at, 1, random_.anyOf("0123456789.+-*/^()()()  a,e\t\xE5"));
    }

    kit::Random& random_;
    bool nearTheLimit_ = false;
};
}  // namespace kxVsGrid::test
