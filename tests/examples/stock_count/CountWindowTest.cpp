// The window of the count: its title, and what it asks before it closes.
#include "CountWindow.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>

#include "kit/WhenOpen.h"

namespace stock_count {
namespace {

class CountWindowTest : public testing::Test {
  protected:
    CountWindowTest() {
        window.show();
        window.load();
    }
    void count(std::string_view number) {
        window.count().sheet().edit(1, [&](CountLine& line) { line.counted = Decimal(number); });
    }
    /// Closes it, and answers its question by the button of that text.
    bool closes(const QString& answer) {
        kxVsGrid::kit::whenOpen<QMessageBox>([answer](QMessageBox& box) {
            for (QAbstractButton* button : box.buttons())
                if (button->text() == answer) return button->click();
        });
        return window.close();
    }

    CountStore store{":memory:", 400, 30};
    CountWindow window{store, {2026, 11, 23}};
};

TEST_F(CountWindowTest, MarksItsTitleWhileSomethingIsToBeSaved) {
    EXPECT_FALSE(window.isWindowModified());
    count("4");
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_TRUE(window.save());
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(window.message(), "已保存");
}

TEST_F(CountWindowTest, TellsWhyItDoesNotSave) {
    window.count().sheet().edit(1, [](CountLine& line) { line.bin.clear(); });
    EXPECT_FALSE(window.save());
    EXPECT_EQ(window.message().toStdString(), "没有保存：第 1 行的库位：不能为空");
}

TEST_F(CountWindowTest, ClosesWithoutAWordWhenNothingIsToBeSaved) {
    EXPECT_TRUE(window.close());
}

TEST_F(CountWindowTest, AsksBeforeItClosesOverWhatIsNotSaved) {
    count("4");
    EXPECT_FALSE(closes("取消"));
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(closes("保存"));
    EXPECT_FALSE(window.count().sheet().modified());
}

TEST_F(CountWindowTest, DropsWhatIsNotSavedWhenTheClerkSaysSo) {
    count("4");
    EXPECT_TRUE(closes("不保存"));
    EXPECT_EQ(store.database().number("SELECT count(*) FROM count_line WHERE version > 1"), 0);
}
}  // namespace
}  // namespace stock_count
