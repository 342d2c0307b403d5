// The words that the sample goods and customers are put together from, each with its pinyin initials.
#pragma once

#include <vector>

struct Word {
    const char16_t* text;
    const char16_t* initials;
};

/// A unit of measure and what goods cost in it, in cents.
struct PricedUnit {
    const char16_t* text;
    int lowestPrice;
    int highestPrice;
};

/// One family of goods: a material and a thing make the name; the specification is a pattern in which each
/// {a|b|c} stands for one of its alternatives.
struct GoodsFamily {
    std::vector<Word> materials;
    std::vector<Word> things;
    const char16_t* spec;
    std::vector<PricedUnit> units;
};

const std::vector<GoodsFamily>& goodsFamilies();

struct CustomerWords {
    struct Town {
        Word name;
        const char16_t* dialCode;
    };
    std::vector<Town> towns;
    std::vector<Word> firms;
    std::vector<Word> trades;
    std::vector<Word> forms;
    std::vector<const char16_t*> surnames;
    std::vector<const char16_t*> titles;
};

const CustomerWords& customerWords();
