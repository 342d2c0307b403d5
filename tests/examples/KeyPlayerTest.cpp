#include "KeyPlayer.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QTemporaryDir>
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

    static void write(const QString& name, const char* text) {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QTemporaryDir folder;
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
    for (const char* line : {"size 300", "size 0 200", "play /no/such/file.keys", "picture p.png 1 2 3",
                             "picture p.png 1 2 0 4"})
        EXPECT_TRUE(play({line}).startsWith("1:")) << line;
}

TEST_F(KeyScript, MakesTheWindowAsLargeAsItSays) {
    EXPECT_EQ(play({"size 320 240"}), QString());
    EXPECT_EQ(window.size(), QSize(320, 240));
}

TEST_F(KeyScript, PlaysAnotherScriptAndGoesOn) {
    const QString other = folder.filePath("other.keys");
    write(other, "type b\ntype c\n");
    EXPECT_EQ(play({"type a", "play " + other, "type d"}), QString());
    EXPECT_EQ(first->text(), QString("abcd"));
}

TEST_F(KeyScript, NamesTheWrongLineOfAnotherScript) {
    const QString other = folder.filePath("other.keys");
    write(other, "type b\njump\n");
    EXPECT_TRUE(play({"play " + other, "type d"}).startsWith("1: " + other + ":2:"));
    EXPECT_EQ(first->text(), QString("b"));
}

TEST_F(KeyScript, TakesPicturesOfTheWindowAndOfPartsOfIt) {
    const QString file = folder.filePath("p.png");
    EXPECT_EQ(play({"size 320 240", "picture " + file}), QString());
    const QImage all(file);
    EXPECT_EQ(all.size(), QSize(320, 240));
    EXPECT_EQ(play({"picture " + file + " 10 20 100 50"}), QString());
    EXPECT_EQ(QImage(file), all.copy(10, 20, 100, 50));
}

TEST_F(KeyScript, TakesThePictureAroundTheFieldThatHasTheKeyboard) {
    const QString file = folder.filePath("p.png");
    EXPECT_EQ(play({"picture " + file + " around 5"}), QString());
    EXPECT_EQ(QImage(file).size(), first->size() + QSize(10, 10));
}

TEST_F(KeyScript, TakesBoxesInFrontOfTheWindowIntoThePicture) {
    QDialog box(&window);
    QPalette red(Qt::red);
    box.setPalette(red);
    box.resize(60, 40);
    box.move(window.mapToGlobal(QPoint(20, 60)));
    box.show();
    const QString file = folder.filePath("p.png");
    EXPECT_EQ(play({"size 320 240", "picture " + file}), QString());
    const QPoint middle = box.mapToGlobal(box.rect().center()) - window.mapToGlobal(QPoint());
    EXPECT_EQ(QImage(file).pixelColor(middle), QColor(Qt::red));
}
