// The code lookup, opened from a real editor and worked with real keys and mouse.
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTimer>
#include <stdexcept>

#include "qt/HelpWindow.h"
#include "qt/view/Scale.h"

namespace kxVsGrid::qt::testing {
namespace {

std::string chosen(const Dialog& d) {
    return list(d).Text(list(d).Row(), GoodCode);
}

const std::function<void(HelpWindow&)> openings[] = {
    [](HelpWindow& w) { w.press(Qt::Key_F2); },
    [](HelpWindow& w) { w.pressHelpButton(); },
};
}  // namespace

TEST(HelpLookup, OpensByF2AndByTheButtonWithTheTypedTextSelected) {
    for (const auto& open : openings) {
        HelpWindow w;
        Dialogs dialogs([&](Dialog& d) {
            EXPECT_EQ(d.window.windowTitle(), "编码帮助");
            EXPECT_EQ(d.window.parentWidget(), &w.window);
            EXPECT_TRUE(d.focused("CodeText"));
            EXPECT_EQ(d.part<QLineEdit>("CodeText").selectedText(), "B00");
            EXPECT_EQ(chosen(d), "B0002");
            EXPECT_EQ(list(d).TopRow(), 2);
            EXPECT_EQ(d.part<QLabel>("lblmessage").text(), "共 40 条");
            EXPECT_FALSE(d.part("Bjcommand").isVisible());
            d.press(Qt::Key_Escape);
        });
        w.write(2, Code, "B00");
        open(w);
        EXPECT_EQ(dialogs.count, 1);
        w.expectEditing("B00");
    }
}

TEST(HelpLookup, OpensOnAClosedCellThatMayBeEditedAndOnNoOther) {
    HelpWindow w;
    Dialogs dialogs([](Dialog& d) { d.press(Qt::Key_Escape); });
    w.focusCell(2, Name);
    w.press(Qt::Key_F2);
    EXPECT_EQ(dialogs.count, 0);
    EXPECT_FALSE(w.editorShown());
    w.focusCell(2, Code);
    w.press(Qt::Key_F2);
    EXPECT_EQ(dialogs.count, 1);
    w.expectEditing(w.text(2, Code).c_str());
}

TEST(HelpLookup, IsWorkedByKeysAlone) {
    HelpWindow w;
    Dialogs dialogs([&](Dialog& d) {
        d.type("B001");
        EXPECT_EQ(chosen(d), "B0010");
        EXPECT_TRUE(d.focused("CodeText"));
        d.press(Qt::Key_Return);
    });
    w.write(5, Code, "x");
    w.press(Qt::Key_F2);
    EXPECT_EQ(dialogs.count, 1);
    w.expectEditing("B0010");
    EXPECT_EQ(w.committed, 0);
    EXPECT_EQ(w.text(5, Code), "");
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.text(5, Code), "B0010");
    EXPECT_EQ(w.tag(5, Code), "苹果汁10");
    EXPECT_EQ(w.committed, 1);
}

TEST(HelpLookup, MovesTheHighlightFromTheSearchBox) {
    HelpWindow w;
    Dialogs dialogs([&](Dialog& d) {
        const struct {
            Qt::Key key;
            Qt::KeyboardModifiers modifiers;
        } keys[] = {{Qt::Key_Down, {}},     {Qt::Key_Down, Qt::KeypadModifier},
                    {Qt::Key_PageDown, {}}, {Qt::Key_Up, {}},
                    {Qt::Key_PageUp, {}},   {Qt::Key_Down, {}}};
        d.type("A0005");
        std::vector<std::int32_t> rows;
        for (const auto& key : keys) {
            d.press(key.key, key.modifiers);
            rows.push_back(list(d).Row());
            EXPECT_TRUE(list(d).RowIsVisible(rows.back()));
            EXPECT_TRUE(d.focused("CodeText"));
        }
        EXPECT_EQ(rows[0], 6);
        EXPECT_EQ(rows[1], 7);
        EXPECT_GT(rows[2], 10);
        EXPECT_EQ(rows[3], rows[2] - 1);
        EXPECT_LT(rows[4], rows[3]);
        EXPECT_EQ(rows[5], rows[4] + 1);
        d.press(Qt::Key_Left);  // these two are the text's
        d.type("x");
        EXPECT_EQ(d.part<QLineEdit>("CodeText").text(), "A000x5");
        d.press(Qt::Key_Enter, Qt::KeypadModifier);
    });
    w.write(2, Code, "x");
    w.press(Qt::Key_F2);
    EXPECT_EQ(dialogs.count, 1);
    EXPECT_TRUE(w.editorText().startsWith('A') || w.editorText().startsWith('B'));
}

TEST(HelpLookup, IsWorkedByMouseAlone) {
    for (const bool byDoubleClick : {false, true}) {
        HelpWindow w;
        Dialogs dialogs([&](Dialog& d) {
            QWidget& view = d.inner("CzxsGrid");
            Dialog::wheel(view, 1);
            EXPECT_EQ(list(d).TopRow(), 4);
            if (byDoubleClick) {
                Dialog::twice(view, d.cell(list(d), 6, GoodName));
            } else {
                screen::click(view, d.cell(list(d), 6, GoodName));
                d.click("QdCommand");
            }
        });
        w.doubleClick(5, Code);
        w.pressHelpButton();
        EXPECT_EQ(dialogs.count, 1);
        w.expectEditing("B0006");
        screen::click(w.view(), w.at(4, Quantity));
        EXPECT_EQ(w.text(5, Code), "B0006");
        EXPECT_EQ(w.committed, 1);
    }
}

TEST(HelpLookup, ShowsTheNameWhereTheColumnDoes) {
    HelpWindow w;
    w.grid().VsCtrl(Code)->i帮助返回值显示类型(iText记Name);
    Dialogs dialogs([&](Dialog& d) {
        d.type("B0002");
        d.press(Qt::Key_Return);
    });
    w.write(5, Code, "x");
    w.press(Qt::Key_F2);
    w.expectEditing("打印纸2");
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.tag(5, Code), "B0002");
}

TEST(HelpLookup, LeavesTheEditorAsItWasWhenItIsCancelled) {
    const std::function<void(Dialog&)> cancels[] = {
        [](Dialog& d) { d.press(Qt::Key_Escape); },
        [](Dialog& d) { d.click("QxCommand"); },
        [](Dialog& d) { d.closeByFrame(); },
        [](Dialog& d) {
            screen::click(d.inner("CzxsGrid"), d.cell(list(d), 4, 0));
            d.press(Qt::Key_Escape);
        },
    };
    for (const auto& cancel : cancels) {
        for (const auto& open : openings) {
            HelpWindow w;
            Dialogs dialogs([&](Dialog& d) {
                d.type("B00");
                cancel(d);
            });
            w.write(2, Code, "A1");
            open(w);
            EXPECT_EQ(dialogs.count, 1);
            w.expectEditing("A1");
            EXPECT_EQ(w.committed, 0);
            w.type("7");  // the editor goes on where it was
            w.press(Qt::Key_Return);
            EXPECT_EQ(w.text(2, Code), "A17");
        }
    }
}

TEST(HelpLookup, IsNoLossOfTheKeyboardForTheEditor) {
    HelpWindow w;
    int asked = 0;
    w.grid().VsCtrl(Code)->i有效性判断(1);
    w.grid().TxtValidBmS.connect([&](const std::string&, const std::string&, const std::string&,
                                     const std::string&, std::string&, std::string&) { ++asked; });
    Dialogs dialogs([&](Dialog& d) {
        EXPECT_TRUE(w.grid().IsActive());
        EXPECT_TRUE(w.editorShown());
        d.press(Qt::Key_Return);
    });
    w.write(2, Code, "B00");
    w.press(Qt::Key_F2);
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(w.committed, 0);
    w.expectEditing("B0002");
}

TEST(HelpLookup, OpensAgainAsOftenAsItIsAskedFor) {
    HelpWindow w;
    Dialogs dialogs([&](Dialog& d) { d.press(Qt::Key_Return); });
    w.write(2, Code, "B00");
    for (int i = 0; i < 3; ++i) {
        w.press(Qt::Key_F2);
        w.pressHelpButton();
    }
    EXPECT_EQ(dialogs.count, 6);
    w.expectEditing("B0002");
}

// --- Search

TEST(HelpLookup, SearchesWhatAnInputMethodCommits) {
    HelpWindow w;
    w.goods[6][GoodInitials] = "打印";
    Dialogs dialogs([&](Dialog& d) {
        d.compose("dayin");
        EXPECT_EQ(chosen(d), "A0001");
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return, Qt::Key_Escape}) d.press(key);
        EXPECT_TRUE(d.window.isVisible());
        EXPECT_EQ(chosen(d), "A0001");
        d.compose("", "打印");
        EXPECT_EQ(chosen(d), "A0007");
        EXPECT_TRUE(d.focused("CodeText"));
        d.press(Qt::Key_Return);
    });
    w.write(2, Code, "A");
    w.press(Qt::Key_F2);
    w.expectEditing("A0007");
}

TEST(HelpLookup, StaysLiveWhileItsIndexIsBuilt) {
    HelpWindow w;
    w.goods = HelpWindow::manyGoods(9000);
    Dialogs dialogs([&](Dialog& d) {
        for (const QString text : {"B8", "qzb", "A0005", "kqs"}) {
            d.part<QLineEdit>("CodeText").selectAll();
            d.type(text);
            Window::settle();
            const std::string hit = list(d).Text(list(d).Row(), GoodCode);
            const std::string initials = list(d).Text(list(d).Row(), GoodInitials);
            EXPECT_TRUE(hit.starts_with(text.toStdString()) || initials.starts_with(text.toStdString()));
        }
        QTest::qWait(50);
        d.part<QLineEdit>("CodeText").selectAll();
        d.type("B9000");
        EXPECT_EQ(list(d).Row(), 9000);
        d.press(Qt::Key_Return);
    });
    w.write(2, Code, "x");
    w.press(Qt::Key_F2);
    EXPECT_EQ(dialogs.count, 1);
    w.expectEditing("B9000");
}

// --- The edit button

TEST(HelpLookup, LetsTheHostEditTheListAndShowsItsAnswer) {
    HelpWindow w;
    w.editable = true;
    std::vector<std::string> asked;
    w.grid().GetHelpEdit.connect([&](const std::string& component, Variant& GridData) {
        asked.push_back(component);
        QDialog editor(QApplication::activeWindow());  // the host's own window in front of the lookup
        QTimer::singleShot(0, &editor, [&] {
            EXPECT_EQ(QApplication::activeModalWidget(), &editor);
            editor.accept();
        });
        editor.exec();
        w.goods.push_back({"C9", "新货", "xh", 1.0});
        GridData = w.table().GridData();
    });
    Dialogs dialogs([&](Dialog& d) {
        ASSERT_TRUE(d.part("Bjcommand").isVisible());
        d.click("Bjcommand");
        EXPECT_EQ(list(d).Rows(), 42);
        EXPECT_EQ(d.part<QLabel>("lblmessage").text(), "共 41 条");
        screen::click(d.part("CodeText"));
        d.part<QLineEdit>("CodeText").selectAll();
        d.type("xh");
        d.press(Qt::Key_Return);
    });
    w.write(2, Code, "x");
    w.press(Qt::Key_F2);
    EXPECT_EQ(asked, std::vector<std::string>{"goods.editor"});
    w.expectEditing("C9");
}

TEST(HelpLookup, ReportsAHandlerThatThrowsAndLeavesTheEditor) {
    for (const bool inTheDialog : {false, true}) {
        HelpWindow w;
        w.editable = true;
        QSignalSpy failed(w.widget, &kxGridWidget::handlerFailed);
        const auto fail = [] { throw std::runtime_error("数据库已断开"); };
        if (inTheDialog)
            w.grid().GetHelpEdit.connect([&](const std::string&, Variant&) { fail(); });
        else
            w.grid().GetHelpCodeInfo.connect([&](const Variant&, Variant&, Variant&, Variant&) { fail(); });
        Dialogs dialogs([&](Dialog& d) { d.click("Bjcommand"); });
        w.write(2, Code, "A1");
        w.press(Qt::Key_F2);
        EXPECT_EQ(dialogs.count, inTheDialog ? 1 : 0);
        ASSERT_EQ(failed.size(), 1);
        EXPECT_EQ(failed[0][0].toString(), "数据库已断开");
        EXPECT_EQ(w.editorText(), "A1");
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        w.type("7");
        w.press(Qt::Key_Return);
        EXPECT_EQ(w.text(2, Code), "A17");
    }
}

// --- Size and place

TEST(HelpLookup, TakesTheColumnsHelpSize) {
    HelpWindow w;
    w.grid().VsCtrl(Code)->HelpWidth(4500);
    w.grid().VsCtrl(Code)->HelpHeight(3900);
    Dialogs dialogs([&](Dialog& d) {
        const Scale scale(d.window);
        EXPECT_EQ(d.window.size(), QSize(scale.pixel(4500), scale.pixel(3900)));
        const QRect text = d.part("CodeText").geometry();
        EXPECT_LE(text.right(), d.window.width());
        EXPECT_GT(d.part("CzxsGrid").y(), text.bottom() - 10);
        d.press(Qt::Key_Escape);
    });
    w.write(2, Code, "x");
    w.press(Qt::Key_F2);
    EXPECT_EQ(dialogs.count, 1);
}

TEST(HelpLookup, KeepsItsProportionsWhenItIsResized) {
    HelpWindow w;
    w.editable = true;
    Dialogs dialogs([&](Dialog& d) {
        const auto place = [&](const char* name) { return d.part(name).geometry(); };
        d.window.setMinimumSize(1, 1);
        d.window.resize(480, 340);
        const QRect text = place("CodeText");
        const QRect grid = place("CzxsGrid");
        const QRect edit = place("Bjcommand");
        const QRect ok = place("QdCommand");
        const QRect count = place("lblmessage");
        d.window.resize(960, 680);
        EXPECT_EQ(place("CodeText"), QRect(text.topLeft() * 2, QSize(text.width() * 2, text.height())));
        EXPECT_EQ(place("CzxsGrid"), QRect(grid.topLeft() * 2, grid.size() * 2));
        EXPECT_EQ(place("Bjcommand"), QRect(edit.topLeft() * 2, edit.size() * 2));
        EXPECT_EQ(place("QdCommand"), QRect(ok.topLeft() * 2, QSize(ok.width() * 2, ok.height())));
        EXPECT_EQ(place("lblmessage"), QRect(count.topLeft() * 2, count.size()));
        EXPECT_GT(list(d).ClientHeight(), 6000);
        d.press(Qt::Key_Escape);
    });
    w.write(2, Code, "x");
    w.press(Qt::Key_F2);
    EXPECT_EQ(dialogs.count, 1);
}

TEST(HelpLookup, StandsUnderItsCellAndOnTheScreen) {
    HelpWindow w;
    w.grid().VsCtrl(Code)->HelpWidth(3600);
    w.grid().VsCtrl(Code)->HelpHeight(2550);
    w.window.move(20, 10);
    Window::settle();
    Dialogs dialogs([&](Dialog& d) {
        const QRect cell = w.cell(2, Code).translated(w.view().mapToGlobal(QPoint()));
        EXPECT_LE((d.window.frameGeometry().topLeft() - cell.bottomLeft() - QPoint(0, 1)).manhattanLength(),
                  1);
        EXPECT_TRUE(d.window.screen()->availableGeometry().contains(d.window.frameGeometry()));
        d.press(Qt::Key_Escape);
    });
    w.write(2, Code, "x");
    w.press(Qt::Key_F2);
    EXPECT_EQ(dialogs.count, 1);
}

TEST(HelpLookup, TellsTheHostsOwnHelpWhereTheCellIsOnTheScreen) {
    HelpWindow w;
    w.window.move(33, 44);
    Window::settle();
    QPoint told;
    w.grid().UserHelpEvent.connect([&](std::int32_t x, std::int32_t y, std::string& text, Variant& value) {
        const Scale scale(*w.widget);
        told = {scale.pixel(x), scale.pixel(y)};
        text = "十二";
        value = "12";
    });
    w.write(2, Quantity, "7");
    w.press(Qt::Key_F2);
    const QRect cell = w.cell(2, Quantity).translated(w.view().mapToGlobal(QPoint()));
    EXPECT_EQ(told, QPoint(cell.left(), cell.top() + cell.height()));
    w.expectEditing("12");
}
}  // namespace kxVsGrid::qt::testing
