#include "qt/HelpWindow.h"

#include <QPointer>
#include <QToolButton>

namespace kxVsGrid::qt::testing {

HelpWindow::HelpWindow() : goods(manyGoods(40)) {
    const struct {
        std::int16_t col;
        gEmHelpType type;
        const char* code;
    } helps[] = {{Code, ih通用型, "goods"},
                 {Date, ih日期型, ""},
                 {Remark, ih常量型, "现金;1|转账;2|支票;3|赊销"},
                 {Quantity, ih特殊型, "own"}};
    for (const auto& help : helps) {
        const auto column = grid().VsCtrl(help.col);
        column->b是否提供帮助(true);
        column->i帮助类型(help.type);
        column->sHelp_Code(help.code);
        column->i字段有效性判断类型(static_cast<gEmJudgeType>(0));
        column->i有效性判断(0);
    }
    grid().GetHelpCodeInfo.connect(
        [this](const Variant&, Variant& Grid_code, Variant& GridInfo, Variant& GridData) {
            table().answer(Grid_code, GridInfo, GridData);
        });
    grid().AfterEdit.connect([this](std::int32_t, std::int32_t) { ++committed; });
}

std::vector<std::vector<Variant>> HelpWindow::manyGoods(int count) {
    const char* const names[] = {"苹果汁", "矿泉水", "打印纸", "签字笔", "文件夹"};
    const char* const initials[] = {"pgz", "kqs", "dyz", "qzb", "wjj"};
    std::vector<std::vector<Variant>> goods;
    for (int i = 1; i <= count; ++i) {
        const std::string number = std::to_string(i);
        const std::string code = (i % 2 == 0 ? "B" : "A") + std::string(4 - number.size(), '0') + number;
        goods.push_back({code, std::string(names[i % 5]) + number, std::string(initials[i % 5]), 1.25 * i});
    }
    return goods;
}

HelpTable HelpWindow::table() const {
    HelpTable table("货号");
    table.field("code", "货号", 1200).field("name", "品名", 2400).field("initials", "简码", 1000);
    table.field("price", "单价", 1500, HelpKind::Number, 2);
    table.result("code", "name").search({"code", "initials"});
    if (editable) table.editable("goods.editor");
    for (const auto& good : goods) table.row(good);
    return table;
}

void HelpWindow::write(std::int32_t row, std::int32_t col, const QString& text) {
    focusCell(row, col);
    press(Qt::Key_Backspace);
    type(text);
}

void HelpWindow::expectEditing(const QString& text) {
    ASSERT_TRUE(editorShown());
    EXPECT_EQ(editorText(), text);
    // a desktop gives the keyboard back in its own time
    EXPECT_TRUE(waitUntil([&] { return QApplication::focusWidget() == &editor(); }));
    EXPECT_EQ(grid().input()->focus(), FocusPlace::Editor);
    EXPECT_TRUE(window.isActiveWindow());
}

void HelpWindow::pressHelpButton() {
    const QPointer<QToolButton> button(widget->findChild<QToolButton*>());
    const QPoint middle = button->rect().center();
    screen::press(*button, middle);
    if (button && button->isVisible()) return screen::release(*button, middle);
    QWidget elsewhere;  // the window has gone meanwhile: where the clerk lets go of the button
    elsewhere.show();
    screen::release(elsewhere, {});
}
}  // namespace kxVsGrid::qt::testing
