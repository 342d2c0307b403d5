// A host's handler deletes the widget, in a call of the host's own or in an event of Qt's.
#include <QPointer>

#include "kit/Life.h"
#include "qt/Window.h"

namespace kxVsGrid::qt::testing {
namespace {

using kit::consenting;
using kit::to;
using kit::toEngine;
using End = kit::End<kxGrid, Window>;

void typed(Window& w) {
    w.focusCell(1, Code);
    w.type("x");
}
void typedOnTheLastRow(Window& w) {
    w.focusCell(29, Code);
    w.type("x");
}
void typedCode(Window& w) {
    w.grid().VsCtrl(Code)->i有效性判断(1);
    w.grid().VsCtrl(Code)->i字段有效性判断类型(ij编码型);
    typed(w);
}
void moveByCode(Window& w) {
    w.grid().Row(3);
}
void validate(Window& w) {
    w.grid().ValidTextData();
}
void pressAt(Window& w, std::int32_t row) {
    QTest::mousePress(&w.view(), Qt::LeftButton, Qt::NoModifier, w.at(row, Code));
}
void releaseAt(Window& w, std::int32_t row) {
    QTest::mouseRelease(&w.view(), Qt::LeftButton, Qt::NoModifier, w.at(row, Code));
}
void down(Window& w) {
    w.press(Qt::Key_Down);
}
void enter(Window& w) {
    w.press(Qt::Key_Return);
}

const End Ends[] = {
    {"BeforeRowColChangeByCode", to(&GridEvents::BeforeRowColChange), moveByCode},
    {"EnterCellByCode", to(&GridEvents::EnterCell), moveByCode},
    {"ValidDataByCode", to(&GridEvents::ValidData), moveByCode},
    {"RowColChangeByCode", to(&GridEvents::RowColChange), moveByCode},
    {"AfterRowColChangeByCode", to(&GridEvents::AfterRowColChange), moveByCode},
    {"SelChangeByCode", to(&GridEvents::SelChange), moveByCode},
    {"EngineRowColChangeByCode", toEngine(&CellGrid::RowColChange), moveByCode},
    {"AfterEditByCode", to(&GridEvents::AfterEdit), validate, typed},
    {"AfterEditByLeavingByCode", to(&GridEvents::AfterEdit), moveByCode, typed},
    {"CellChangedByCode", to(&GridEvents::CellChanged), validate, typed},
    {"TxtValidBmSByCode", to(&GridEvents::TxtValidBmS), validate, typedCode},
    {"AddVsRowByCode", consenting(&GridEvents::AddVsRow), validate, typedOnTheLastRow},
    {"AfterAddRowByCode", to(&GridEvents::AfterAddRow), [](Window& w) { w.grid().AddRow(3, true, false); }},
    {"ForcedMoveByCode", to(&GridEvents::EnterCell), [](Window& w) { w.grid().Rows(6); },
     [](Window& w) { w.focusCell(20, Code); }},
    {"ClearByCode", to(&GridEvents::EnterCell), [](Window& w) { w.grid().Clear(); }, typed},
    {"ScrollByCode", toEngine(&CellGrid::AfterScroll), [](Window& w) { w.grid().Grid().TopRow(9); }},
    {"BeforeRowColChange", to(&GridEvents::BeforeRowColChange), down},
    {"EnterCell", to(&GridEvents::EnterCell), down},
    {"ValidData", to(&GridEvents::ValidData), down},
    {"RowColChange", to(&GridEvents::RowColChange), down},
    {"AfterRowColChange", to(&GridEvents::AfterRowColChange), down},
    {"SelChange", to(&GridEvents::SelChange), down},
    {"EngineKeyDown", toEngine(&CellGrid::KeyDown), down},
    {"BeforeTextEdit", to(&GridEvents::BeforeTextEdit), [](Window& w) { w.type("x"); }},
    {"CellChanged", to(&GridEvents::CellChanged), enter, typed},
    {"AfterEdit", to(&GridEvents::AfterEdit), enter, typed},
    {"AfterEditByTab", to(&GridEvents::AfterEdit), [](Window& w) { w.press(Qt::Key_Tab); }, typed},
    {"AfterEditByFocus", to(&GridEvents::AfterEdit), [](Window& w) { w.after->setFocus(); }, typed},
    {"TxtValidBmS", to(&GridEvents::TxtValidBmS), enter, typedCode},
    {"AddVsRow", consenting(&GridEvents::AddVsRow), enter, typedOnTheLastRow},
    {"AddVsRowByInsert", consenting(&GridEvents::AddVsRow), [](Window& w) { w.press(Qt::Key_Insert); }},
    {"DeleteVsRow", consenting(&GridEvents::DeleteVsRow), [](Window& w) { w.press(Qt::Key_Delete); }},
    {"MouseDown", to(&GridEvents::MouseDown), [](Window& w) { pressAt(w, 3); }},
    {"Click", to(&GridEvents::Click), [](Window& w) { releaseAt(w, 3); }, [](Window& w) { pressAt(w, 3); }},
    {"MoveByPress", to(&GridEvents::RowColChange), [](Window& w) { pressAt(w, 3); }},
    {"CommitByPress", to(&GridEvents::AfterEdit), [](Window& w) { pressAt(w, 3); }, typed},
    {"DblClick", to(&GridEvents::DblClick),
     [](Window& w) { QTest::mouseDClick(&w.view(), Qt::LeftButton, Qt::NoModifier, w.at(1, Code)); },
     [](Window& w) { w.click(1, Code); }},
    {"MouseMove", to(&GridEvents::MouseMove), [](Window& w) { QTest::mouseMove(&w.view(), w.at(2, Code)); }},
    {"Composition", to(&GridEvents::BeforeTextEdit), [](Window& w) { w.compose("pin"); }},
};

class WidgetThatGoes : public ::testing::TestWithParam<End> {};

TEST_P(WidgetThatGoes, TellsNobodyElse) {
    Window w;
    if (!GetParam().before) w.focusCell(1, Code);
    GetParam().prepare(w);
    QPointer<kxGridWidget> widget(w.widget);
    int later = 0;
    GetParam().listen(w.grid(), [widget] { delete widget; });
    GetParam().listen(w.grid(), [&] { ++later; });
    GetParam().act(w);
    EXPECT_TRUE(widget.isNull());
    EXPECT_EQ(later, 0);
    w.settle();
}

INSTANTIATE_TEST_SUITE_P(In, WidgetThatGoes, ::testing::ValuesIn(Ends),
                         [](const auto& tested) { return std::string(tested.param.name); });
}  // namespace
}  // namespace kxVsGrid::qt::testing
