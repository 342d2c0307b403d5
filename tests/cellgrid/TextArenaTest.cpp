// The arena and the slots of texts against a plain map.
#include "cellgrid/store/TextArena.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "kit/Dice.h"

namespace kxVsGrid::cellgrid {
namespace {

std::string textOf(const TextArena& arena, TextSlot s) {
    slot::Buffer buffer;
    return std::string(arena.text(s, buffer));
}

TEST(TextArena, AgreesWithPlainStringsUnderRandomStoresAndReleases) {
    kit::Dice dice;
    TextArena arena;
    std::vector<std::pair<TextSlot, std::string>> twin;
    for (int operation = 0; operation < 100'000; ++operation) {
        if (twin.size() < 2000 && (twin.empty() || dice.oneIn(2))) {
            const std::string text = dice.text();
            twin.emplace_back(arena.store(text), text);
        } else {
            auto& victim = twin[static_cast<std::size_t>(dice.between(0, static_cast<int>(twin.size()) - 1))];
            ASSERT_EQ(textOf(arena, victim.first), victim.second) << "operation " << operation;
            arena.release(victim.first);
            std::swap(victim, twin.back());
            twin.pop_back();
        }
    }
    std::size_t inArena = 0;
    for (const auto& [s, text] : twin) {
        ASSERT_EQ(textOf(arena, s), text);
        if (slot::hasBlock(s)) inArena += text.size();
    }
    EXPECT_EQ(arena.used(), inArena);
}

TEST(TextSlot, HoldsEveryShortTextItself) {
    TextArena arena;
    std::string text;
    for (const char c : std::string("abcdefg")) {
        text += c;
        EXPECT_EQ(textOf(arena, arena.store(text)), text);
    }
    for (const char* const given : {"", "\xff\xff\xff\xff\xff\xff\xff", "2026-11-20", "-12345.67",
                                    "1,234,567.89", "23:59:59,+1/2:", "01234567890123"}) {
        const TextSlot s = arena.store(given);
        EXPECT_FALSE(slot::hasBlock(s)) << given;
        EXPECT_EQ(textOf(arena, s), given);
    }
    EXPECT_EQ(arena.footprint(), 0U);
}

TEST(TextSlot, PacksFromEightToFourteenCharactersOfNumbersAndDatesAndNoOthers) {
    TextArena arena;
    const std::string packed = "+,-./0123456789:";
    for (std::size_t size = 8; size <= 15; ++size) {
        for (std::size_t at = 0; at < size; ++at) {
            for (int byte = 0; byte < 256; ++byte) {
                std::string text = packed.substr(0, size);
                text[at] = static_cast<char>(byte);
                const TextSlot s = arena.store(text);
                const bool fits = size <= 14 && packed.find(static_cast<char>(byte)) != std::string::npos;
                ASSERT_EQ(slot::isShort(s), fits) << text;
                ASSERT_EQ(textOf(arena, s), text);
                arena.release(s);
            }
        }
    }
}

TEST(TextArena, CopiesTextsOfEverySizeWhole) {
    TextArena arena;
    for (std::size_t size = 8; size < 80; ++size) {
        std::string text;
        for (std::size_t i = 0; i < size; ++i) text += static_cast<char>('a' + i % 26);
        EXPECT_EQ(textOf(arena, arena.store(text)), text);
    }
}

TEST(TextSlot, KeepsBytesOfZero) {
    TextArena arena;
    const std::string zeros("\0a\0", 3);
    EXPECT_EQ(textOf(arena, arena.store(zeros)), zeros);
    EXPECT_NE(arena.store(std::string("\0", 1)), arena.store(""));
}

TEST(TextArena, UsesFreedSpaceAgain) {
    TextArena arena;
    std::vector<TextSlot> slots;
    for (int i = 0; i < 10'000; ++i)
        slots.push_back(arena.store("text number " + std::to_string(i + 10'000)));
    const std::size_t footprint = arena.footprint();
    for (int round = 0; round < 5; ++round) {
        for (TextSlot& s : slots) arena.release(s);
        for (TextSlot& s : slots) s = arena.store("another text " + std::to_string(round));
    }
    EXPECT_EQ(arena.footprint(), footprint);
}

TEST(TextArena, CutsFreedLargeBlocksForSmallTexts) {
    TextArena arena;
    std::vector<TextSlot> slots;
    for (int i = 0; i < 100; ++i) slots.push_back(arena.store(std::string(1000, 'x')));
    const std::size_t footprint = arena.footprint();
    for (const TextSlot s : slots) arena.release(s);
    for (int i = 0; i < 5000; ++i) arena.store("twenty bytes of text");
    EXPECT_EQ(arena.footprint(), footprint);
}

TEST(TextArena, GivesTheBlockOfABigTextBack) {
    TextArena arena;
    const TextSlot s = arena.store(std::string(1'000'000, 'x'));
    EXPECT_EQ(arena.footprint(), 1'000'000U);
    arena.release(s);
    EXPECT_EQ(arena.footprint(), 0U);
}
}  // namespace
}  // namespace kxVsGrid::cellgrid
