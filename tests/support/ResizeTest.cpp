// The helper that keeps the controls of a form in proportion: what of each type of control follows the form.
#include <gtest/gtest.h>

#include <cctype>
#include <string>
#include <vector>

#include "kit/PrintTo.h"
#include "kxVsGrid/cResize.h"

namespace kxVsGrid {
namespace {

constexpr Rect Place{120, 240, 600, 300};

/// A form of one control for each name of a type.
class Board : public Form {
  public:
    explicit Board(const std::vector<std::string>& types, std::int32_t width = 4000,
                   std::int32_t height = 3000)
        : Form("Board", "", width, height) {
        for (const std::string& type : types) add(type, type, "", Place);
    }
    const Rect& place(const std::string& name) const { return control(name).place; }
};

struct Row {
    const char* type;
    Rect doubled;  ///< at twice the width and three times the height
};

/// The whole table, and types that it does not name.
const Row Rows[] = {
    {"ComboBox", {240, 720, 1200, 300}},
    {"Label", {240, 720, 600, 300}},
    {"TextBox", {240, 720, 1200, 300}},
    {"CheckBox", {240, 720, 600, 300}},
    {"OptionButton", {240, 720, 600, 300}},
    {"Shape", {240, 720, 600, 300}},
    {"DTPicker", {240, 720, 1200, 300}},
    {"VscrollBar", {240, 720, 1200, 300}},
    {"CommandButton", {240, 720, 1200, 300}},
    {"CellGrid", {240, 720, 1200, 900}},
    {"MonthView", {240, 720, 1200, 900}},
    {"kxButton", {240, 720, 1200, 900}},
    {"Frame", {240, 720, 1200, 900}},
    {"PictureBox", {240, 720, 1200, 900}},
    {"HscrollBar", {240, 720, 1200, 900}},
    {"Labels", {240, 720, 1200, 900}},
    {"", {240, 720, 1200, 900}},
    {"控件", {240, 720, 1200, 900}},
};

TEST(cResize, MovesAndStretchesEachTypeOfControlInItsWay) {
    for (const Row& row : Rows) {
        Board board({row.type});
        cResize resize;
        resize.py_Init(board);
        board.resize(8000, 9000);
        resize.ResizeForm(board);
        EXPECT_EQ(board.place(row.type), row.doubled) << row.type;
    }
}

TEST(cResize, LooksAtTheTypeNameWithoutItsCase) {
    const auto inCase = [](std::string name, int (*change)(int)) {
        for (char& c : name) c = static_cast<char>(change(static_cast<unsigned char>(c)));
        return name;
    };
    for (const Row& row : Rows) {
        if (static_cast<unsigned char>(row.type[0]) >= 0x80) continue;
        for (const std::string& name : {inCase(row.type, std::toupper), inCase(row.type, std::tolower)}) {
            Board board({name});
            cResize resize;
            resize.py_Init(board);
            board.resize(8000, 9000);
            resize.ResizeForm(board);
            EXPECT_EQ(board.place(name), row.doubled) << name;
        }
    }
}

TEST(cResize, MovesBothEndsOfALine) {
    for (const char* type : {"Line", "LINE", "line"}) {
        Board board({type});
        board.control(type).place = {100, 200, -60, 90};  // from (100, 200) to (40, 290)
        cResize resize;
        resize.py_Init(board);
        EXPECT_EQ(board.control(type).Tag, "100 200 40 290");
        board.resize(8000, 9000);
        resize.ResizeForm(board);
        EXPECT_EQ(board.place(type), (Rect{200, 600, -120, 270}));
    }
}

TEST(cResize, AButtonInGraphicalStyleStretchesBothWays) {
    for (const auto& [style, height] : {std::pair(0, 300), std::pair(1, 900), std::pair(2, 300)}) {
        Board board({"CommandButton"});
        board.control("CommandButton").Style = static_cast<std::int16_t>(style);
        cResize resize;
        resize.py_Init(board);
        board.resize(8000, 9000);
        resize.ResizeForm(board);
        EXPECT_EQ(board.place("CommandButton"), (Rect{240, 720, 1200, height})) << "style " << style;
    }
}

TEST(cResize, KeepsEachPlaceInTheTagWhateverItHeld) {
    Board board({"Label", "CellGrid"});
    board.control("Label").Tag = "something of the dialog's own";
    cResize().py_Init(board);
    EXPECT_EQ(board.control("Label").Tag, "120 240 600 300");
    EXPECT_EQ(board.control("CellGrid").Tag, "120 240 600 300");
    EXPECT_EQ(board.place("Label"), Place) << "recording moves nothing";
}

TEST(cResize, GoesBackToTheSamePlaces) {
    std::vector<std::string> types;
    for (const Row& row : Rows) types.push_back(row.type);
    Board board(types);
    cResize resize;
    resize.py_Init(board);
    for (const auto& [width, height] : {std::pair(8000, 9000), std::pair(1, 1), std::pair(2333, 5001),
                                        std::pair(0, 0), std::pair(4000, 3000)}) {
        board.resize(width, height);
        resize.ResizeForm(board);
    }
    for (const std::string& type : types) EXPECT_EQ(board.place(type), Place) << type;
}

TEST(cResize, StartsFromTheTagNotFromThePresentPlace) {
    Board board({"CellGrid", "Label"});
    cResize resize;
    resize.py_Init(board);
    board.control("CellGrid").place = {1, 1, 1, 1};
    board.control("Label").place = {1, 1, 77, 88};
    board.resize(8000, 3000);
    resize.ResizeForm(board);
    EXPECT_EQ(board.place("CellGrid"), (Rect{240, 240, 1200, 300}));
    EXPECT_EQ(board.place("Label"), (Rect{240, 240, 77, 88})) << "a size that does not follow is left";
}

TEST(cResize, RoundsToWholeTwips) {
    Board board({"CellGrid"}, 1000, 1000);
    board.control("CellGrid").place = {10, 11, 12, 13};
    cResize resize;
    resize.py_Init(board);
    board.resize(1049, 1051);
    resize.ResizeForm(board);
    EXPECT_EQ(board.place("CellGrid"), (Rect{10, 12, 13, 14}));  // 10.49, 11.561, 12.588, 13.663
}

TEST(cResize, DoesNothingWhileItIsSwitchedOff) {
    Board board({"CellGrid"});
    cResize resize;
    EXPECT_TRUE(resize.py_bIsCanResize()) << "on from the start";
    resize.py_Init(board);
    EXPECT_TRUE(resize.py_bIsCanResize());
    resize.py_bIsCanResize(false);
    board.resize(8000, 9000);
    resize.ResizeForm(board);
    EXPECT_EQ(board.place("CellGrid"), Place);
    resize.py_bIsCanResize(true);
    resize.ResizeForm(board);
    EXPECT_EQ(board.place("CellGrid"), (Rect{240, 720, 1200, 900}));
}

TEST(cResize, RecordingLeavesTheSwitchAsItWas) {
    Board board({"CellGrid"});
    cResize resize;
    resize.py_bIsCanResize(false);
    resize.py_Init(board);
    EXPECT_FALSE(resize.py_bIsCanResize());
    EXPECT_EQ(board.control("CellGrid").Tag, "120 240 600 300");
}

TEST(cResize, DoesNothingBeforeItHasRecordedASize) {
    Board board({"CellGrid"});
    board.control("CellGrid").Tag = "1 2 3 4";
    cResize().ResizeForm(board);
    EXPECT_EQ(board.place("CellGrid"), Place);
    for (const auto& [width, height] : {std::pair(0, 3000), std::pair(4000, 0)}) {
        Board flat({"CellGrid"}, width, height);
        cResize resize;
        resize.py_Init(flat);
        flat.resize(8000, 9000);
        resize.ResizeForm(flat);
        EXPECT_EQ(flat.place("CellGrid"), Place);
    }
}

TEST(cResize, TakesARecordedSizeFromItsCaller) {
    Board board({"CellGrid"});
    cResize resize;
    resize.py_Init(board, 1500, 1000);
    resize.ResizeForm(board);
    EXPECT_EQ(board.place("CellGrid"), (Rect{480, 480, 2400, 600}));
    Board own({"CellGrid"});
    resize.py_Init(own, 1500);
    resize.ResizeForm(own);
    EXPECT_EQ(own.place("CellGrid"), (Rect{120, 480, 600, 600})) << "0 takes the form's own width";
    Board wide({"CellGrid"});
    resize.py_Init(wide, 0, 2000);
    resize.ResizeForm(wide);
    EXPECT_EQ(wide.place("CellGrid"), (Rect{240, 240, 1200, 300}));
}

TEST(cResize, SkipsATagThatDoesNotParse) {
    for (const char* tag : {"", " ", "a b c d", "120", "120 240 600", "120,240,600,300", "120  240 600 300",
                            "1e999 2 3 4", "nan 1 2 3", "99999999999 1 1 1"}) {
        Board board({"CellGrid", "Frame"});
        cResize resize;
        resize.py_Init(board);
        board.control("CellGrid").Tag = tag;
        board.resize(8000, 9000);
        resize.ResizeForm(board);
        EXPECT_EQ(board.place("CellGrid"), Place) << tag;
        EXPECT_EQ(board.place("Frame"), (Rect{240, 720, 1200, 900})) << "the next one follows";
    }
}

TEST(cResize, UnselectsTheTextOfAComboBoxAlone) {
    Board board({"ComboBox", "TextBox"});
    for (const char* name : {"ComboBox", "TextBox"}) board.control(name).selLength = 3;
    cResize resize;
    resize.py_Init(board);
    resize.ResizeForm(board);
    EXPECT_EQ(board.control("ComboBox").selLength, 0);
    EXPECT_EQ(board.control("TextBox").selLength, 3);
}

TEST(cResize, RecordsAnewWhenItIsInitialisedAgain) {
    Board board({"CellGrid"});
    cResize resize;
    resize.py_Init(board);
    board.resize(8000, 6000);
    board.control("CellGrid").place = {10, 20, 30, 40};
    resize.py_Init(board);
    board.resize(16000, 6000);
    resize.ResizeForm(board);
    EXPECT_EQ(board.place("CellGrid"), (Rect{20, 20, 60, 40}));
}

TEST(cResize, CentresAFormOnTheScreen) {
    const Rect screen{1000, 500, 20000, 15000};
    EXPECT_EQ(cResize::sbFormCenter(4000, 3000, screen), (Rect{9000, 6500, 4000, 3000}));
    EXPECT_EQ(cResize::sbFormCenter(20000, 15000, screen), screen);
    EXPECT_EQ(cResize::sbFormCenter(30000, 3000, screen), (Rect{1000, 6500, 30000, 3000}));
    EXPECT_EQ(cResize::sbFormCenter(4000, 30000, screen), (Rect{9000, 500, 4000, 30000}));
}
}  // namespace
}  // namespace kxVsGrid
