// The column page in its window, at run time: every property edited with real keys and a real mouse.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

#include "kxVsGrid/ControlPage.h"
#include "kxVsGrid/GridColumns.h"
#include "kxVsGrid/qt/ShowForm.h"
#include "qt/Dialogs.h"
#include "qt/Palettes.h"
#include "qt/view/Scale.h"

namespace kxVsGrid::qt::testing {
namespace {

/// The page over the grid of a host's window.
class ColumnPage : public ::testing::Test {
  protected:
    ColumnPage() {
        w.widget->setFont(w.window.font());
        page.select({&columns});
        page.loadColumns();
    }

    void show(const Dialogs::Act& act) {
        Dialogs dialogs(act);
        showForm(w.widget, page);
        EXPECT_EQ(dialogs.count, 1);
    }
    cVsControl& definition(Column col) { return *w.grid().VsCtrl(static_cast<std::int16_t>(col)); }

    /// The name of the text box or check box of a property.
    std::string of(std::string_view property) const {
        for (const auto& control : page.controls())
            if (control->caption == property &&
                (control->typeName == "TextBox" || control->typeName == "CheckBox"))
                return control->name;
        throw std::logic_error("no box of " + std::string(property));
    }
    static void choose(Dialog& d, const char* list, int index) {
        d.part(list).setFocus();
        d.press(Qt::Key_Home);
        for (int i = 0; i < index; ++i) d.press(Qt::Key_Down);
    }
    /// Clicks the box itself, not beside its caption.
    void tick(Dialog& d, std::string_view property) const {
        const QWidget& box = d.part(of(property).c_str());
        screen::click(box, {box.height() / 2, box.height() / 2});
    }
    void type(Dialog& d, std::string_view property, const QString& text) const {
        d.click(of(property).c_str());
        d.press(Qt::Key_A, Qt::ControlModifier);
        d.type(text);
    }
    /// To its own size, as on a screen that has the room.
    void grow(const Dialog& d) const {
        d.window.resize(Scale(d.window).pixels({0, 0, 2 * page.minWidth(), 2 * page.minHeight()}).size());
        Window::settle();
    }
    static QString problem(const Dialog& d) { return d.part<QLabel>("Problem").text(); }
    static bool canApply(const Dialog& d) { return d.part("YyCommand").isEnabled(); }

    Window w;
    GridColumns columns{w.grid()};
    ControlPage page;
};

TEST_F(ColumnPage, ShowsTheCurrentColumnWithEveryPropertysName) {
    show([&](Dialog& d) {
        EXPECT_EQ(d.part<QComboBox>("Combo1").count(), w.grid().Cols());
        EXPECT_EQ(d.part<QComboBox>("Combo1").currentIndex(), w.grid().Col());
        for (const auto& control : page.controls()) {
            const bool holds = control->typeName == "TextBox" || control->typeName == "CheckBox";
            EXPECT_TRUE(!holds || d.part(control->name.c_str()).isVisible()) << control->caption;
        }
        EXPECT_FALSE(canApply(d));
        d.press(Qt::Key_Escape);
    });
}

TEST_F(ColumnPage, WritesEveryTextAndNumberThatIsTyped) {
    const std::pair<const char*, const char*> values[] = {
        {"sHelp_Code", "goods|A"},       {"s文本框对应编码字段", "code"},
        {"s文本框对应名称字段", "名称"}, {"s有效性判断基础", "code = 1"},
        {"s错误提示信息", "没有"},       {"i帮助类型", "3"},
        {"i帮助返回值显示类型", "1"},    {"i字段有效性判断类型", "2"},
        {"i有效性判断", "-1"},           {"d列前景色", "255"},
        {"d列背景色", "65535"},
    };
    show([&](Dialog& d) {
        choose(d, "Combo1", Quantity);
        for (const auto& [property, text] : values) type(d, property, QString::fromUtf8(text));
        EXPECT_TRUE(canApply(d));
        d.click("YyCommand");
        EXPECT_FALSE(canApply(d));
        EXPECT_EQ(problem(d), QString());
        d.press(Qt::Key_Escape);
    });
    for (const auto& [property, text] : values)
        EXPECT_EQ(definition(Quantity).Get(property).toText(), text) << property;
}

TEST_F(ColumnPage, TurnsEveryCheckBoxByMouseAndByTheSpaceBar) {
    const char* const properties[] = {"b是否提供帮助", "bIsEditable",   "bIsVisible",
                                      "b是否合计数据", "b是否编辑多行", "b是否设列颜色"};
    std::vector<bool> before;
    for (const char* property : properties) before.push_back(definition(Code).Get(property).toBoolean());
    show([&](Dialog& d) {
        choose(d, "Combo1", Code);
        for (const char* property : properties) tick(d, property);
        EXPECT_TRUE(canApply(d));
        d.click("YyCommand");
        for (std::size_t i = 0; i < before.size(); ++i)
            EXPECT_EQ(definition(Code).Get(properties[i]).toBoolean(), !before[i]) << properties[i];
        for (const char* property : properties) {
            d.part(of(property).c_str()).setFocus();
            d.press(Qt::Key_Space);
        }
        EXPECT_TRUE(canApply(d));
        d.click("QdCommand");
    });
    for (std::size_t i = 0; i < before.size(); ++i)
        EXPECT_EQ(definition(Code).Get(properties[i]).toBoolean(), before[i]) << properties[i];
}

TEST_F(ColumnPage, WritesTheChosenAlignmentAndKindOfData) {
    show([&](Dialog& d) {
        choose(d, "Combo1", Remark);
        EXPECT_FALSE(canApply(d)) << "choosing a column changes nothing";
        choose(d, "Combo2", 2);
        EXPECT_TRUE(canApply(d));
        choose(d, "Combo3", 4);
        d.press(Qt::Key_Return);
    });
    EXPECT_EQ(definition(Remark).iColAlignment(), flexAlignRightCenter);
    EXPECT_EQ(definition(Remark).iType(), flexDTDate);
}

TEST_F(ColumnPage, ShowsOnTheGridBehindWhatIsApplied) {
    show([&](Dialog& d) {
        choose(d, "Combo1", Code);
        EXPECT_FALSE(w.grid().ColHidden(Code));
        tick(d, "bIsVisible");
        d.click("YyCommand");
        EXPECT_TRUE(w.grid().ColHidden(Code));
        d.press(Qt::Key_Escape);
    });
}

TEST_F(ColumnPage, DropsWhatIsCancelled) {
    for (const bool byFrame : {false, true}) {
        show([&](Dialog& d) {
            choose(d, "Combo1", Code);
            type(d, "sHelp_Code", "dropped");
            if (byFrame)
                d.closeByFrame();
            else
                d.click("QxCommand");
        });
        EXPECT_EQ(definition(Code).sHelp_Code(), "");
    }
}

TEST_F(ColumnPage, SaysWhichNumberIsNoneAndWritesNothing) {
    show([&](Dialog& d) {
        choose(d, "Combo1", Code);
        type(d, "sHelp_Code", "kept in the box");
        type(d, "i有效性判断", "40000");
        d.click("QdCommand");
        EXPECT_TRUE(d.window.isVisible());
        EXPECT_TRUE(problem(d).contains(QStringLiteral("i有效性判断"))) << problem(d).toStdString();
        EXPECT_TRUE(d.focused(of("i有效性判断").c_str()));
        EXPECT_EQ(definition(Code).sHelp_Code(), "");
        EXPECT_TRUE(canApply(d));
        type(d, "i有效性判断", "4");
        d.click("QdCommand");
    });
    EXPECT_EQ(definition(Code).sHelp_Code(), "kept in the box");
    EXPECT_EQ(definition(Code).i有效性判断(), 4);
}

TEST_F(ColumnPage, GoesThroughItsBoxesByTabAsTheyStand) {
    show([&](Dialog& d) {
        d.part("Combo1").setFocus();
        QPoint before = d.part("Combo2").pos();
        d.press(Qt::Key_Tab);
        EXPECT_TRUE(d.focused("Command1"));
        for (const char* name : {"Combo2", "Combo3", "Txt(0)", "Txt(1)", "Txt(2)", "Txt(3)", "Txt(4)"}) {
            d.press(Qt::Key_Tab);
            EXPECT_TRUE(d.focused(name)) << name;
            EXPECT_GE(d.part(name).y(), before.y()) << name;
            before = d.part(name).pos();
        }
        d.press(Qt::Key_Tab);
        EXPECT_TRUE(d.focused("Txt(5)"));
        d.press(Qt::Key_Escape);
    });
}

TEST_F(ColumnPage, ShowsASelectionOnlyWhereTheKeyboardIs) {
    definition(Code).sHelp_Code("goods");
    definition(Code).s文本框对应编码字段("code");
    show([&](Dialog& d) {
        choose(d, "Combo1", Code);
        auto& help = d.part<QLineEdit>(of("sHelp_Code").c_str());
        auto& code = d.part<QLineEdit>(of("s文本框对应编码字段").c_str());
        help.setFocus(Qt::TabFocusReason);
        EXPECT_EQ(help.selectedText(), QStringLiteral("goods"));
        d.press(Qt::Key_Tab);
        EXPECT_EQ(help.selectedText(), QString());
        EXPECT_EQ(code.selectedText(), QStringLiteral("code"));
        EXPECT_FALSE(canApply(d)) << "selecting changes nothing";
        d.press(Qt::Key_Escape);
    });
}

// --- Pictures, kept beside the build for people to look at

TEST_F(ColumnPage, IsShownWholeInLightAndDark) {
    for (const bool dark : {false, true}) {
        if (dark) w.window.setPalette(darkPalette());
        const QString suffix = dark ? QStringLiteral("-dark") : QString();
        show([&](Dialog& d) {
            grow(d);
            choose(d, "Combo1", Quantity);
            d.picture(QStringLiteral("column-page") + suffix);
            expectWhole(d);
            type(d, "i帮助类型", "every");
            d.click("YyCommand");
            d.picture(QStringLiteral("column-page-problem") + suffix);
            expectWhole(d);
            d.press(Qt::Key_Escape);
        });
    }
}

TEST_F(ColumnPage, IsShownWholeWithoutAGrid) {
    page.select({});
    page.explain("ReadProperError:无法读取");
    show([&](Dialog& d) {
        grow(d);
        d.picture(QStringLiteral("column-page-empty"));
        expectWhole(d);
        EXPECT_FALSE(d.part("Combo1").isEnabled());
        EXPECT_FALSE(d.part(of("sHelp_Code").c_str()).isEnabled());
        d.press(Qt::Key_Escape);
    });
}
}  // namespace
}  // namespace kxVsGrid::qt::testing
