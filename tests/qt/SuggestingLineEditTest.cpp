// The text field outside of grids that suggests as a grid's cells do.
#include "kxVsGrid/qt/SuggestingLineEdit.h"

#include <QDialog>
#include <QPushButton>
#include <QShortcut>
#include <QSignalSpy>
#include <stdexcept>

#include "qt/ScreenMouse.h"
#include "qt/Suggested.h"

namespace kxVsGrid::qt::testing {
namespace {

struct SuggestingForm {
    SuggestingForm() {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(field);
        layout->addWidget(after);
        layout->addStretch();
        field->suggest(someGoods());
        QObject::connect(field, &SuggestingLineEdit::taken, field,
                         [this](const Suggestion& one) { heard.push_back("taken " + one.text); });
        QObject::connect(field, &SuggestingLineEdit::accepted, field,
                         [this] { heard.push_back("accepted"); });
        QObject::connect(field, &QLineEdit::returnPressed, field, [this] { heard.push_back("return"); });
        window.resize(400, 300);
        window.show();
        QApplication::setActiveWindow(&window);
        field->setFocus();
        Window::settle();
    }
    void type(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    void compose(const QString& preedit, const QString& commit = {}) {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QApplication::sendEvent(field, &event);
    }
    QListView& list() { return *listOf(window); }
    QString highlighted() { return list().currentIndex().data().toString(); }

    QWidget window;
    SuggestingLineEdit* field = new SuggestingLineEdit(&window);
    QLineEdit* after = new QLineEdit(&window);
    std::vector<std::string> heard;
};
using Heard = std::vector<std::string>;
}  // namespace

TEST(SuggestingField, TakesWhatTheClerkWentToByEnter) {
    SuggestingForm f;
    f.type("lj");
    ASSERT_TRUE(f.field->listShown());
    EXPECT_TRUE(f.list().isVisible());
    f.press(Qt::Key_Down);
    f.press(Qt::Key_Down);
    EXPECT_EQ(f.highlighted(), "100002");
    EXPECT_EQ(f.field->text(), "lj");
    f.press(Qt::Key_Return);
    EXPECT_EQ(f.field->text(), "100002");
    EXPECT_FALSE(f.field->listShown());
    EXPECT_FALSE(f.list().isVisible());
    EXPECT_EQ(f.heard, (Heard{"taken 100002", "accepted", "return"}));
    f.field->undo();
    EXPECT_EQ(f.field->text(), "lj");
}

TEST(SuggestingField, TakesTheOnlyOneByEnterAndATextOfTheListAsItStands) {
    SuggestingForm f;
    f.type("ljls");
    f.press(Qt::Key_Return);
    EXPECT_EQ(f.field->text(), "100001");
    f.field->clear();
    f.heard.clear();
    f.type("100002");
    f.press(Qt::Key_Return);
    EXPECT_EQ(f.field->text(), "100002");
    EXPECT_EQ(f.heard, (Heard{"accepted", "return"}));
    f.field->clear();
    f.type("lj");
    f.press(Qt::Key_Return);
    EXPECT_EQ(f.field->text(), "lj");
}

TEST(SuggestingField, TakesByTabOnlyWhatTheClerkWentTo) {
    SuggestingForm f;
    f.type("ljls");
    f.press(Qt::Key_Tab);
    EXPECT_EQ(f.field->text(), "ljls");
    EXPECT_FALSE(f.field->listShown());
    EXPECT_TRUE(f.after->hasFocus());
    f.field->setFocus();
    f.field->clear();
    f.type("lj");
    f.press(Qt::Key_Down);
    f.press(Qt::Key_Tab);
    EXPECT_EQ(f.field->text(), "100001");
    EXPECT_EQ(f.heard, (Heard{"taken 100001"}));
    EXPECT_TRUE(f.after->hasFocus());
}

TEST(SuggestingField, ClosesTheListByEscUntilTheKeyboardHasLeft) {
    SuggestingForm f;
    QShortcut escapes(QKeySequence(Qt::Key_Escape), &f.window);
    const QSignalSpy reached(&escapes, &QShortcut::activated);
    f.type("l");
    f.press(Qt::Key_Escape);
    EXPECT_EQ(reached.count(), 0);
    EXPECT_FALSE(f.field->listShown());
    f.type("j");
    EXPECT_FALSE(f.field->listShown());
    EXPECT_EQ(f.field->text(), "lj");
    f.after->setFocus();
    f.field->setFocus();
    f.type("l");
    EXPECT_TRUE(f.field->listShown());
}

TEST(SuggestingField, GoesThroughTheListByPagesAndOutOfItByUp) {
    SuggestingForm f;
    f.type("pdq");
    f.press(Qt::Key_PageDown);
    f.press(Qt::Key_PageDown);
    EXPECT_EQ(f.highlighted(), "300020");
    f.press(Qt::Key_PageUp);
    EXPECT_EQ(f.highlighted(), "300010");
    f.press(Qt::Key_Up);
    EXPECT_EQ(f.highlighted(), "");
    EXPECT_TRUE(f.field->listShown());
}

TEST(SuggestingField, TakesAPressedOneAndKeepsTheKeyboard) {
    SuggestingForm f;
    f.type("lj");
    const QPoint second = f.list().visualRect(f.list().model()->index(1, 0)).center();
    screen::click(*f.list().viewport(), second);
    EXPECT_EQ(f.field->text(), "100002");
    EXPECT_TRUE(f.field->hasFocus());
    EXPECT_EQ(f.heard, (Heard{"taken 100002"}));
    EXPECT_FALSE(f.field->listShown());
}

TEST(SuggestingField, LeavesAllKeysToAnInputMethodThatComposes) {
    SuggestingForm f;
    f.type("l");
    ASSERT_TRUE(f.field->listShown());
    f.compose("jiao");
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Escape}) f.press(key);
    EXPECT_TRUE(f.field->listShown());
    EXPECT_EQ(f.highlighted(), "");
    EXPECT_EQ(f.heard, Heard{});
    f.compose("", "jls");
    EXPECT_EQ(f.field->text(), "ljls");
    EXPECT_EQ(f.list().model()->rowCount(), 1);
    f.press(Qt::Key_Return);
    EXPECT_EQ(f.field->text(), "100001");
}

TEST(SuggestingField, OffersWhatItIsGivenWithTheClerkAtTheFirst) {
    SuggestingForm f;
    f.field->offer({{"a", "", ""}, {"b", "", ""}});
    EXPECT_TRUE(f.field->listShown());
    EXPECT_EQ(f.highlighted(), "a");
    f.field->closeList();
    EXPECT_FALSE(f.list().isVisible());
    f.field->setReadOnly(true);
    f.field->offer({{"a", "", ""}});
    EXPECT_FALSE(f.field->listShown());
}

TEST(SuggestingField, TellsWhatItsSourceThrowsAndKeepsTheText) {
    SuggestingForm f;
    QStringList failures;
    QObject::connect(f.field, &SuggestingLineEdit::sourceFailed, f.field,
                     [&](const QString& text) { failures.append(text); });
    f.field->suggest([](const SuggestionRequest&) { throw std::runtime_error("no server"); });
    f.type("l");
    EXPECT_EQ(failures, QStringList{"no server"});
    EXPECT_EQ(f.field->text(), "l");
    EXPECT_FALSE(f.field->listShown());
}

TEST(SuggestingField, GoesWithItsListWhoeverEndsIt) {
    for (const char* how : {"taken", "accepted", "pressed", "shown"}) {
        SuggestingForm f;
        const auto end = [&] { delete f.field; };
        if (how == std::string("accepted"))
            QObject::connect(f.field, &SuggestingLineEdit::accepted, &f.window, end);
        else
            QObject::connect(f.field, &SuggestingLineEdit::taken, &f.window, end);
        f.type("lj");
        if (how == std::string("shown")) {
            end();
        } else if (how == std::string("pressed")) {
            screen::press(*f.list().viewport(), QPoint(5, 5));
        } else {
            f.press(Qt::Key_Down);
            f.press(Qt::Key_Return);
        }
        EXPECT_TRUE(listOf(f.window) == nullptr || listOf(f.window)->isHidden());
    }
    auto w = std::make_unique<SuggestingForm>();
    w->type("lj");
    w.reset();
}

TEST(SuggestingField, AnswersThatComeAfterItsEndAreNobodys) {
    SuggestionAnswer answer;
    {
        SuggestingForm f;
        f.field->suggest([&](const SuggestionRequest& request) {
            EXPECT_EQ(request.row, -1);
            answer = request.answer;
        });
        f.type("l");
    }
    answer({{"a", "", ""}});
}
}  // namespace kxVsGrid::qt::testing
