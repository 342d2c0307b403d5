// The manual's page "Designing a grid": its table of the stored keys is the program's.
#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>

#include "kxVsGrid/StoredKeys.h"

using namespace kxVsGrid;

namespace {

constexpr std::string_view Begin = "<!-- stored keys -->\n";
constexpr std::string_view End = "<!-- end of stored keys -->\n";

std::string elementOf(Variant::Type type) {
    if (type == Variant::Type::Boolean) return "`<bool>`";
    return type == Variant::Type::Text ? "`<cstring>`" : "`<number>`";
}

std::string defaultOf(const StoredKey& key) {
    const Variant& value = key.fallback;
    if (value.isEmpty()) return "fixed rows + 5";
    if (value.type() == Variant::Type::Text) return "\"" + value.toText() + "\"";
    if (value.type() != Variant::Type::Int32 || value.toInt32() >= 0) return value.toText();
    std::ostringstream system;
    system << "&H" << std::uppercase << std::hex << static_cast<std::uint32_t>(value.toInt32());
    return system.str();
}

std::string lineOf(const StoredKey& key, const std::string& name, const std::string& owner) {
    return "| `" + name + "` | " + elementOf(key.type) + " | " + defaultOf(key) + " | `" + owner +
           std::string(key.member) + "` |\n";
}

std::string storedKeysTable() {
    std::string table = "| Stored key | In a form | Without it | Property |\n|---|---|---|---|\n";
    for (const StoredKey& key : writtenGridKeys()) table += lineOf(key, std::string(key.written), "kxGrid.");
    for (const StoredKey& key : columnKeys())
        table += lineOf(key, "SetVsControl3" + std::string(key.written), "cVsControl.");
    return table;
}

std::string page() {
    std::ifstream file(KX_DESIGNER_PAGE, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}
}  // namespace

TEST(DesignerPage, ListsTheStoredKeysAsTheProgramHasThem) {
    const std::string text = page();
    const std::size_t begin = text.find(Begin);
    const std::size_t end = text.find(End);
    ASSERT_NE(begin, std::string::npos);
    ASSERT_NE(end, std::string::npos);
    const std::string shown = text.substr(begin + Begin.size(), end - begin - Begin.size());
    EXPECT_EQ(shown, storedKeysTable()) << "the table that belongs there:\n" << storedKeysTable();
}
