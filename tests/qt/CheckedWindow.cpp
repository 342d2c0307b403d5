#include "qt/CheckedWindow.h"

namespace kxVsGrid::qt::testing {

CheckedWindow::CheckedWindow()
    : menus(new QMenuBar(&window)), save(new QPushButton(QStringLiteral("保存(&S)"))) {
    menus->addMenu(QStringLiteral("单据(&D)"))->addAction(QStringLiteral("保存"));
    window.layout()->setMenuBar(menus);
    window.layout()->addWidget(save);
    QObject::connect(save, &QPushButton::clicked, save, [this] { ++saved; });
    for (const std::int16_t col : {Code, Remark}) {
        auto column = grid().VsCtrl(col);
        column->i有效性判断(1);
        column->i字段有效性判断类型(ij编码型);
        column->s错误提示信息(col == Code ? "没有这个货号！" : "备注里不能有 X！");
    }
    grid().VsCtrl(Code)->sName("货号");
    grid().VsCtrl(Date)->i有效性判断(1);
    grid().VsCtrl(Date)->i字段有效性判断类型(ij日期型);
    grid().TxtValidBmS.connect([this](const std::string&, const std::string&, const std::string&,
                                      const std::string& typed, std::string& code, std::string& name) {
        ++asked;
        const bool remark = grid().Col() == Remark;
        if (remark ? typed.find('X') != std::string::npos : !typed.starts_with("A")) return;
        code = typed;
        name = "货 " + typed;
    });
    grid().AfterEdit.connect([this](std::int32_t, std::int32_t) { ++edited; });
    settle();
}

void CheckedWindow::fill(std::int32_t row, std::int32_t col, const QString& text) {
    focusCell(row, col);
    type(text);
    ASSERT_TRUE(editorShown());
    ASSERT_EQ(editorText(), text);
}

void CheckedWindow::refuseCode(const QString& text) {
    fill(1, Code, text);
    press(Qt::Key_Return);
    settle();
}

void CheckedWindow::expectAllSelected(const QString& text) {
    ASSERT_TRUE(editorShown());
    EXPECT_EQ(QApplication::focusWidget(), &editor());
    EXPECT_EQ(editorText(), text);
    if (auto* line = qobject_cast<QLineEdit*>(&editor()))
        EXPECT_EQ(line->selectedText(), text);
    else
        EXPECT_EQ(qobject_cast<QPlainTextEdit*>(&editor())->textCursor().selectedText(), text);
    EXPECT_EQ(grid().editorView().selStart, 0U);
    EXPECT_EQ(grid().editorView().selLength, static_cast<std::size_t>(text.size()));
    EXPECT_TRUE(grid().editorView().refused);
    EXPECT_EQ(grid().input()->focus(), FocusPlace::Editor);
    EXPECT_TRUE(grid().IsActive());
}
}  // namespace kxVsGrid::qt::testing
