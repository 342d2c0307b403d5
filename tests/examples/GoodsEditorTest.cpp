#include "GoodsEditor.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWheelEvent>

#include "Initials.h"
#include "SampleData.h"
#include "Scratch.h"
#include "Typing.h"

namespace {
class GoodsBox : public Scratch {
  protected:
    GoodsBox() : database(madeDatabase()), catalogue(database) {
        box.show();
        QApplication::setActiveWindow(&box);
    }

    QLineEdit* field(const char* name) { return box.findChild<QLineEdit*>(name); }
    void type(const char* name, const QString& text) {
        field(name)->selectAll();
        typeInto(field(name), text);
    }
    void unit(const QString& text) {
        auto* line = box.findChild<QComboBox*>("unit")->lineEdit();
        line->selectAll();
        line->del();
        typeInto(line, text);
    }
    void fill() {
        type("code", "A-1");
        type("name", "黄铜球阀");
        unit("台");
        type("price", "12.5");
    }
    void enter() { QTest::keyClick(box.focusWidget(), Qt::Key_Return); }
    QString message() { return box.findChild<QLabel*>("message")->text(); }
    int goodsCount() { return value(database, "SELECT COUNT(*) FROM goods").toInt(); }

    Database database;
    Catalogue catalogue;
    GoodsEditor box{catalogue};
};
}  // namespace

TEST_F(GoodsBox, StoresTheGoodsWithTheInitialsOfTheirName) {
    fill();
    type("spec", "DN25");
    enter();
    EXPECT_EQ(box.result(), QDialog::Accepted);
    EXPECT_FALSE(box.isVisible());
    const auto stored = catalogue.goods("A-1");
    ASSERT_TRUE(stored);
    EXPECT_EQ(stored->name, QString("黄铜球阀"));
    EXPECT_EQ(stored->pinyin, QString("htqf"));
    EXPECT_EQ(stored->spec, QString("DN25"));
    EXPECT_EQ(stored->unit, QString("台"));
    EXPECT_EQ(stored->price, 1250);
}

TEST_F(GoodsBox, NeedsNoSpecification) {
    fill();
    enter();
    EXPECT_EQ(catalogue.goods("A-1")->spec, QString());
}

TEST_F(GoodsBox, KeepsTheInitialsThatTheClerkWrote) {
    type("initials", "abc");
    fill();
    EXPECT_EQ(field("initials")->text(), QString("abc"));
    enter();
    EXPECT_EQ(catalogue.goods("A-1")->pinyin, QString("abc"));
}

TEST_F(GoodsBox, NamesWhatIsMissingAndGoesThere) {
    const struct {
        const char* field;
        QString text;
        QString why;
    } cases[] = {
        {"code", " ", "请输入货号"},
        {"code", "A 1", "货号不能含有空格"},
        {"name", " ", "请输入品名"},
        {"price", " ", "请输入单价"},
        {"price", "dear", "单价不是有效的金额"},
        {"price", "-1", "单价不是有效的金额"},
    };
    for (const auto& one : cases) {
        fill();
        type(one.field, one.text);
        field("spec")->setFocus();
        enter();
        EXPECT_TRUE(box.isVisible());
        EXPECT_EQ(message(), one.why);
        EXPECT_EQ(box.focusWidget(), field(one.field)) << one.why.toStdString();
    }
    fill();
    unit(" ");
    enter();
    EXPECT_EQ(message(), QString("请输入单位"));
    EXPECT_EQ(goodsCount(), 5000);
}

TEST_F(GoodsBox, RefusesACodeThatIsThereAlready) {
    fill();
    type("code", "１００００１");  // full-width digits are the same code
    enter();
    EXPECT_TRUE(box.isVisible());
    EXPECT_EQ(message(), QString("货号 100001 已经存在"));
    EXPECT_EQ(box.focusWidget(), field("code"));
    type("code", "A-2");
    enter();
    EXPECT_FALSE(box.isVisible());
    EXPECT_TRUE(catalogue.goods("A-2"));
}

TEST_F(GoodsBox, StaysWhenTheDatabaseFails) {
    database.run("test",
                 "CREATE TRIGGER full BEFORE INSERT ON goods BEGIN SELECT RAISE(ABORT, 'disk is full'); END");
    fill();
    enter();
    EXPECT_TRUE(box.isVisible());
    EXPECT_TRUE(message().contains("disk is full")) << message().toStdString();
}

TEST_F(GoodsBox, ShowsTheGoodsOfItsCodeAndStoresWhatWasChanged) {
    catalogue.add({"A-7", "黄铜球阀", "DN25", "台", 1250, "abc"});
    GoodsEditor changed(catalogue, "A-7");
    changed.show();
    EXPECT_EQ(changed.windowTitle(), QString("修改商品 A-7"));
    const auto in = [&](const char* name) { return changed.findChild<QLineEdit*>(name); };
    EXPECT_EQ(in("name")->text() + in("spec")->text() + in("price")->text(), QString("黄铜球阀DN2512.5"));
    EXPECT_EQ(changed.findChild<QComboBox*>("unit")->currentText(), QString("台"));
    in("name")->setText("不锈钢球阀");
    EXPECT_EQ(in("initials")->text(), QString("abc")) << "the clerk's own";
    in("price")->setText("13");
    changed.accept();
    EXPECT_EQ(changed.stored(), QString("A-7"));
    EXPECT_EQ(catalogue.goods("A-7")->name, QString("不锈钢球阀"));
    EXPECT_EQ(catalogue.goods("A-7")->price, 1300);
    EXPECT_EQ(goodsCount(), 5001);
}

TEST_F(GoodsBox, MakesNewGoodsUnderAnotherCodeOrFromEmptyFields) {
    GoodsEditor changed(catalogue, "100001");
    changed.show();
    changed.findChild<QLineEdit*>("code")->setText("A-8");
    EXPECT_EQ(changed.windowTitle(), QString("新增商品"));
    changed.accept();
    EXPECT_EQ(changed.stored(), QString("A-8"));
    EXPECT_EQ(catalogue.goods("A-8")->name, catalogue.goods("100001")->name);
    GoodsEditor emptied(catalogue, "100001");
    emptied.show();
    for (QPushButton* button : emptied.findChildren<QPushButton*>())
        if (button->text().startsWith("新增")) button->click();
    EXPECT_EQ(emptied.findChild<QLineEdit*>("name")->text(), QString());
    emptied.accept();
    EXPECT_TRUE(emptied.isVisible());
    EXPECT_EQ(goodsCount(), 5001);
}

TEST_F(GoodsBox, TheWheelOverTheUnitChangesNothingWithoutTheKeyboard) {
    auto* units = box.findChild<QComboBox*>("unit");
    field("code")->setFocus();
    QWheelEvent wheel(QPointF(5, 5), units->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(units, &wheel);
    EXPECT_EQ(units->currentText(), QString("个"));
    EXPECT_EQ(box.focusWidget(), field("code"));
}

TEST_F(GoodsBox, EscStoresNothing) {
    fill();
    QTest::keyClick(box.focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(box.isVisible());
    EXPECT_EQ(box.result(), QDialog::Rejected);
    EXPECT_EQ(goodsCount(), 5000);
}

TEST(Initials, OfEverySampleGoodsAreThoseInItsRecordButForCharactersWithSeveralReadings) {
    const QString several = QStringLiteral("弹调轧");  // tan, tiao and zha in these names
    for (const SampleGoods& goods : sampleGoods()) {
        ASSERT_EQ(initialsOf(goods.name).size(), goods.pinyin.size()) << goods.name.toStdString();
        const bool plain =
            std::none_of(several.begin(), several.end(), [&](QChar one) { return goods.name.contains(one); });
        if (!plain) continue;
        ASSERT_EQ(initialsOf(goods.name), goods.pinyin) << goods.name.toStdString();
    }
}

TEST(Initials, KnowEveryChineseCharacter) {
    EXPECT_EQ(initialsOf("钢龘管"), QString("gdg"));
    EXPECT_EQ(initialsOf(QString::fromUcs4(U"\U00020087\u963F\u5415")).right(2), QString("al"));
    EXPECT_EQ(initialsOf("重庆"), QString("zq")) << "the most usual reading, whatever the word";
    EXPECT_EQ(initialsOf(""), QString());
}

TEST(Initials, LeaveOutWhatIsNeitherChineseNorALetterOrADigit) {
    EXPECT_EQ(initialsOf("钢·管（Φ、～）"), QString("gg"));
}

TEST(Initials, KeepLettersAndDigitsInLowerCase) {
    EXPECT_EQ(initialsOf("LED 灯 ３号-A"), QString("ledd3ha"));
}
