// Random settings, saved, loaded into another control and saved again, are the same settings: save for the
// print flag, which the stored format loses, and for what is not stored at all.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "kit/Random.h"
#include "kit/SettingsTest.h"
#include "kxVsGrid/MemoryBag.h"
#include "kxVsGrid/TextBag.h"

namespace kxVsGrid::testing {
namespace {

using kit::Random;

class RoundTrip : public SettingsTest {
  protected:
    std::int32_t anyInt32() {
        if (random.oneIn(4))
            return std::array{INT32_MIN, -1, 0, INT32_MAX}[static_cast<std::size_t>(random.between(0, 3))];
        return static_cast<std::int32_t>(
            random.between(random.oneIn(2) ? 0 : INT32_MIN, random.oneIn(2) ? 12 : INT32_MAX));
    }
    std::int16_t anyInt16() { return static_cast<std::int16_t>(random.between(INT16_MIN, INT16_MAX)); }
    bool anyBool() { return random.oneIn(2); }
    template <class Enumeration>
    Enumeration any() {
        return static_cast<Enumeration>(anyInt32());
    }
    std::string anyText() {
        if (random.oneIn(8))
            return std::array<std::string, 4>{"-1", "Error", "0",
                                              StrayBytes}[static_cast<std::size_t>(random.between(0, 3))];
        static const std::array<std::string, 14> Pieces = {
            "a",    "单价", " ",  "\"", "\\", "\n", "\r\n", "\t", "#", "=", std::string(1, '\0'),
            "\xFF", "\x01", "end"};
        std::string made;
        for (auto pieces = random.between(0, 6); pieces > 0; --pieces)
            made += Pieces[static_cast<std::size_t>(random.between(0, Pieces.size() - 1))];
        return made;
    }
    std::string anyFormatString(std::int32_t cols) {
        std::string made;
        for (auto fields = random.between(0, cols); fields > 0; --fields)
            made += std::array<std::string, 5>{"|", "<货号  |", ">a|", "^ b c |",
                                               "x\"y|"}[static_cast<std::size_t>(random.between(0, 4))];
        return made;
    }

    void randomise(kxGrid& control) {
        const auto cols = static_cast<std::int32_t>(random.between(0, 14));
        control.FixedCols(0);
        control.Cols(cols);
        control.FixedCols(static_cast<std::int32_t>(random.between(0, cols)));
        control.Rows(20);
        control.FixedRows(static_cast<std::int32_t>(random.between(0, 6)));
        control.Rows(static_cast<std::int32_t>(random.between(0, 200)));
        control.FormatString(anyFormatString(cols));
        control.Editable(anyBool());
        control.bIsShowZero(anyBool());
        control.SumRow(anyBool());
        control.Appearance(static_cast<std::int32_t>(random.between(0, 1)));
        control.BackColor(static_cast<std::uint32_t>(random.bits()));
        control.BackColorBkg(static_cast<std::uint32_t>(random.bits()));
        control.BackColorFixed(static_cast<std::uint32_t>(random.bits()));
        control.ForeColor(static_cast<std::uint32_t>(random.bits()));
        control.ForeColorFixed(static_cast<std::uint32_t>(random.bits()));
        for (std::int32_t col = 0; col < control.Cols(); ++col)
            if (!random.oneIn(3)) randomise(*control.VsCtrl(static_cast<std::int16_t>(col)));
    }
    void randomise(cVsControl& definition) {
        definition.bIsEditable(anyBool());
        definition.bIsVisible(anyBool());
        definition.b是否提供帮助(anyBool());
        definition.iLimitLength(anyInt16());
        definition.iType(any<mEmDataType>());
        definition.i帮助返回值显示类型(any<gEmShowCodeName>());
        definition.i帮助类型(any<gEmHelpType>());
        definition.i是否允许为空(any<gEmNotAllowEmptyType>());
        definition.i字段有效性判断类型(any<gEmJudgeType>());
        definition.sHelp_Code(anyText());
        definition.sName(anyText());
        definition.s错误提示信息(anyText());
        definition.s文本框对应编码字段(anyText());
        definition.s文本框对应名称字段(anyText());
        definition.s有效性判断基础(anyText());
        definition.i有效性判断(anyInt16());
        definition.b是否合计数据(anyBool());
        definition.iColAlignment(static_cast<mEmflexAlign>(anyInt16()));
        definition.bIsPrint(anyBool());
        definition.b是否编辑多行(anyBool());
        definition.HelpWidth(anyInt32());
        definition.HelpHeight(anyInt32());
        definition.b是否设列颜色(anyBool());
        definition.d列前景色(0x112233);
        definition.d列背景色(0x445566);
        definition.sCellInput(anyText());
        definition.sDefaultText_Code(anyText());
        definition.sDefaultText_Name(anyText());
    }

    /// Both were written, but for the print flags.
    static void expectSame(const Lines& written, const Lines& expected) {
        ASSERT_EQ(written.size(), expected.size());
        for (std::size_t i = 0; i < written.size(); ++i)
            if (expected[i].find("bIsPrint = ") == std::string::npos) {
                EXPECT_EQ(written[i], expected[i]);
            }
    }

    Random random;
};

TEST_F(RoundTrip, GivesTheSameBagAgain) {
    for (int round = 0; round < 200 && !HasFailure(); ++round) {
        randomise(grid);
        RecordingBag first;
        grid.WriteProperties(first);
        headless::Desk other;
        kxGrid& loaded = other.load(first);
        ASSERT_TRUE(other.messages().empty()) << other.messages()[0].text;
        RecordingBag second;
        loaded.WriteProperties(second);
        ASSERT_EQ(second.writtenNames, first.writtenNames);
        for (const auto& [name, value] : first.values) {
            if (name.ends_with("bIsPrint")) {
                EXPECT_EQ(second.values.at(name), Variant(true)) << name;
            } else {
                EXPECT_EQ(typed(second.values.at(name)), typed(value)) << name;
            }
        }
    }
}

TEST_F(RoundTrip, GivesFreshDefaultsForWhatIsNotStored) {
    for (int round = 0; round < 20 && !HasFailure(); ++round) {
        randomise(grid);
        MemoryBag stored;
        grid.WriteProperties(stored);
        headless::Desk other;
        kxGrid& loaded = other.load(stored);
        for (std::int16_t col = 0; col < loaded.Cols(); ++col) {
            const auto made = loaded.VsCtrl(col);
            const cVsControl fresh;
            for (const char* name : {"b是否编辑多行", "HelpWidth", "HelpHeight", "b是否设列颜色", "d列前景色",
                                     "d列背景色", "sCellInput", "sDefaultText_Code", "sDefaultText_Name"})
                EXPECT_EQ(made->Get(name), fresh.Get(name)) << name;
        }
        EXPECT_FALSE(loaded.ReDraw());
    }
}

TEST_F(RoundTrip, ThroughATextGivesTheSameSettings) {
    for (int round = 0; round < 100 && !HasFailure(); ++round) {
        randomise(grid);
        RecordingBag direct;
        TextBag text;
        grid.WriteProperties(direct);
        grid.WriteProperties(text);
        TextBag reopened(text.text());
        ASSERT_EQ(reopened.damage(), "") << text.text();
        headless::Desk other;
        kxGrid& loaded = other.load(reopened);
        ASSERT_TRUE(other.messages().empty()) << other.messages()[0].text;
        expectSame(saved(loaded), direct.written);
        TextBag again;
        loaded.WriteProperties(again);
        headless::Desk third;
        TextBag last;
        third.load(again).WriteProperties(last);
        EXPECT_EQ(last.text(), again.text());
    }
}

TEST_F(RoundTrip, OfTheSameControlChangesNothing) {
    for (int round = 0; round < 50 && !HasFailure(); ++round) {
        randomise(grid);
        RecordingBag first;
        grid.WriteProperties(first);
        grid.ReadProperties(first);
        ASSERT_EQ(boxes(), Nothing);
        expectSame(saved(grid), first.written);
    }
}
}  // namespace
}  // namespace kxVsGrid::testing
