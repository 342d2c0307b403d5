// Any settings text read into a control: it never crashes, a failure shows one box and is told from success,
// and what was read completely comes back the same when it is saved and read again.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

#include "kxVsGrid/TextBag.h"
#include "kxVsGrid/headless/Desk.h"

namespace {

using namespace kxVsGrid;

void require(bool condition, const char* what, std::string_view text) {
    if (condition) return;
    std::cerr << what << ": " << text << '\n';
    std::abort();
}

/// Half of the inputs are lines of a sound text: the title alone is hard to guess.
std::string settingsText(std::string_view input) {
    if (input.empty() || (input.front() & 1) == 0) return std::string(input);
    return "kxVsGrid settings 1\n" + std::string(input.substr(1)) + "\nend\n";
}

void saveAndLoadAgain(headless::Desk& desk, kxGrid& grid, std::string_view input) {
    TextBag saved;
    grid.WriteProperties(saved);
    TextBag opened(saved.text());
    require(opened.damage().empty(), "what was written is damaged", opened.damage());
    kxGrid& again = desk.load(opened);
    TextBag savedAgain;
    again.WriteProperties(savedAgain);
    for (const MemoryBag::Entry& entry : saved.values().entries()) {
        if (entry.name.ends_with("bIsPrint")) continue;
        const Variant* value = savedAgain.values().find(entry.name);
        require(value != nullptr && *value == entry.value, entry.name.c_str(), input);
    }
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    TextBag bag(settingsText(input));
    headless::Desk desk;
    kxGrid& grid = desk.load(bag);
    const auto& boxes = desk.messages();
    require(boxes.size() <= 1, "more than one box", input);
    if (boxes.empty()) {
        saveAndLoadAgain(desk, grid, input);
        require(desk.messages().empty(), "saving or loading again failed", input);
    } else {
        require(boxes[0].text.starts_with("ReadProperError:") && boxes[0].title == "错误:", "another box",
                input);
        TextBag nothing;
        grid.WriteProperties(nothing);
        require(nothing.values().size() == 0, "half read settings were saved", input);
        desk.place();
    }
    return 0;
}
