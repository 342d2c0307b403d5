// The list of stored keys: what loading and saving go by, as others may read it.
#include "kxVsGrid/StoredKeys.h"

#include <cstdint>
#include <string>

#include "kit/SettingsTest.h"

namespace kxVsGrid::testing {
namespace {

class StoredKeys : public SettingsTest {};

TEST_F(StoredKeys, AreThoseThatLoadingAsksForWithTheirDefaults) {
    read();
    Lines listed;
    for (const StoredKey& key : gridKeys())
        listed.push_back(std::string(key.read) + ": " +
                         (key.read == "Rows" ? std::string("Int32 6") : typed(key.fallback)));
    for (std::int32_t col = 0; col < 10; ++col)
        for (const StoredKey& key : columnKeys())
            listed.push_back(columnKey(col, key.read) + ": " + typed(key.fallback));
    EXPECT_EQ(bag.asked, listed);
}

TEST_F(StoredKeys, AreThoseThatSavingWritesWithTypesAndDefaults) {
    grid.WriteProperties(bag);
    Lines listed;
    const auto list = [&](const std::string& name, const StoredKey& key) {
        const Variant& value = bag.values.at(name);
        EXPECT_EQ(value.type(), key.type) << name;
        listed.push_back(name + " = " + typed(value) +
                         (key.hasWriteDefault ? ", default " + typed(key.fallback) : ", no default"));
    };
    for (const StoredKey& key : writtenGridKeys()) list(std::string(key.written), key);
    for (std::int32_t col = 0; col < 10; ++col)
        for (const StoredKey& key : columnKeys()) list(columnKey(col, key.written), key);
    EXPECT_EQ(bag.written, listed);
}

TEST_F(StoredKeys, NameThePropertiesThatHoldTheirValues) {
    for (const StoredKey& key : columnKeys()) EXPECT_NO_THROW(column(1).Get(key.member)) << key.read;
    for (const StoredKey& key : gridKeys()) EXPECT_NO_THROW(grid.Get(key.member)) << key.read;
    EXPECT_EQ(gridKeys().size(), 15u);
    EXPECT_EQ(writtenGridKeys().size(), 14u);
    EXPECT_EQ(columnKeys().size(), 19u);
}

TEST_F(StoredKeys, AreSpeltAlikeForReadingAndWritingButForThePrintFlag) {
    for (const StoredKey& key : columnKeys()) {
        if (key.written == "bIsPrint") {
            EXPECT_EQ(key.read, "bIsPint");
        } else {
            EXPECT_EQ(key.read, key.written);
        }
    }
    for (const StoredKey& key : gridKeys()) EXPECT_EQ(key.read, key.written);
}

TEST_F(StoredKeys, OfAColumnAreJoinedWithoutSeparators) {
    EXPECT_EQ(columnKey(3, "bIsEditable"), "SetVsControl3bIsEditable");
    EXPECT_EQ(columnKey(3, ""), "SetVsControl3");
    EXPECT_EQ(columnKey(0, "iType"), "SetVsControl0iType");
    EXPECT_EQ(columnKey(32765, "b是否提供帮助"), "SetVsControl32765b是否提供帮助");
}

TEST_F(StoredKeys, OfAColumnAreTakenApart) {
    for (const std::int32_t col : {0, 1, 9, 10, 11, 32765})
        for (const StoredKey& key : columnKeys()) {
            const std::string name = columnKey(col, key.written);
            const auto parts = columnKeyParts(name);
            ASSERT_TRUE(parts) << name;
            EXPECT_EQ(parts->col, col);
            EXPECT_EQ(parts->suffix, key.written);
        }
}

TEST_F(StoredKeys, OfNoColumnAreNotTakenApart) {
    for (const char* name : {"",
                             "SetVsControl",
                             "SetVsControlbIsEditable",
                             "SetVsControl-1",
                             "SetVsControl+1",
                             "SetVsControl01",
                             "SetVsControl00bIsEditable",
                             "SetVsControl 1",
                             "SetVsControl1 ",
                             "SetVsControl1bIsPint",
                             "SetVsControl1biseditable",
                             "SetVsControl1sName",
                             "SetVsControl1HelpWidth",
                             "setVsControl1",
                             "XSetVsControl1",
                             "SetVsControl1bIsEditable2",
                             "SetVsControl2147483648",
                             "SetVsControl99999999999999999999",
                             "Cols",
                             "FormatString"})
        EXPECT_FALSE(columnKeyParts(name)) << name;
}
}  // namespace
}  // namespace kxVsGrid::testing
