#include "KeyPlayer.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include "kit/WhenOpen.h"

namespace {
class KeyScript : public testing::Test {
  protected:
    KeyScript() {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(first);
        layout->addWidget(second);
        window.show();
        QApplication::setActiveWindow(&window);
        first->setFocus();
    }

    QString play(const QStringList& script) {
        KeyPlayer player(window, script);
        QString error = "not finished";
        QObject::connect(&player, &KeyPlayer::finished, &player, [&](const QString& text) { error = text; });
        player.start();
        EXPECT_TRUE(kxVsGrid::kit::waitUntil([&] { return error != "not finished"; }));
        return error;
    }

    QWidget window;
    QLineEdit* first = new QLineEdit;
    QLineEdit* second = new QLineEdit;
};
}  // namespace

TEST_F(KeyScript, TypesIntoWhateverHasTheKeyboard) {
    EXPECT_EQ(play({"# a comment", "", "type Ab 1", "key Tab", "type 螺栓"}), QString());
    EXPECT_EQ(first->text(), QString("Ab 1"));
    EXPECT_EQ(second->text(), QString("螺栓"));
}

TEST_F(KeyScript, PressesKeysByName) {
    play({"type abc", "key Backspace", "key Home", "key Shift+Right", "key Delete"});
    EXPECT_EQ(first->text(), QString("b"));
}

TEST_F(KeyScript, ComposesAsAnInputMethodDoes) {
    play({"compose luo", "compose luo'shuan", "commit 螺栓", "compose x", "commit"});
    EXPECT_EQ(first->text(), QString("螺栓"));
}

TEST_F(KeyScript, NamesTheLineThatIsWrong) {
    EXPECT_TRUE(play({"type a", "jump"}).startsWith("2:"));
    EXPECT_TRUE(play({"key NoSuchKey"}).startsWith("1:"));
    EXPECT_TRUE(play({"picture /no/such/folder/p.png"}).startsWith("1:"));
    EXPECT_EQ(first->text(), QString("a"));
}
