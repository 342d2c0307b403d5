// Choosing a customer: the keys end in the same place however fast they come, list or no list.
#include "CustomerBox.h"

#include <QListView>

#include "OrderEntry.h"

namespace {

class CustomerChoice : public OrderEntry {
  protected:
    CustomerChoice() { open(); }

    CustomerBox& box() { return *window->header().findChild<CustomerBox*>("customer"); }
    QListView* list() { return window->findChild<QListView*>("suggestions"); }
    bool listShown() { return list() != nullptr && list()->isVisible(); }
    QString highlighted() { return list()->currentIndex().data().toString(); }
    bool inTheLines() { return grid().IsActive(); }
    void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    void type(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }
};

TEST_F(CustomerChoice, AWholeCodeAndEnterLeadToTheLinesWithTheListShown) {
    type("K0002");
    EXPECT_TRUE(listShown());
    press(Qt::Key_Return);
    EXPECT_FALSE(listShown());
    EXPECT_EQ(box().customerId(), 2);
    EXPECT_TRUE(inTheLines());
}

TEST_F(CustomerChoice, AWholeCodeAndEnterLeadToTheLinesWithoutTheList) {
    type("K0002");
    press(Qt::Key_Escape);
    ASSERT_FALSE(listShown());
    press(Qt::Key_Return);
    EXPECT_EQ(box().customerId(), 2);
    EXPECT_TRUE(inTheLines());
}

TEST_F(CustomerChoice, EnterOnAChosenCustomerLeadsToTheLines) {
    box().setCustomerId(2);
    press(Qt::Key_Return);
    EXPECT_EQ(box().customerId(), 2);
    EXPECT_TRUE(inTheLines());
}

TEST_F(CustomerChoice, TheListNeverHasTheKeyboard) {
    type("K000");
    ASSERT_TRUE(listShown());
    EXPECT_EQ(QApplication::focusWidget(), &box());
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_FALSE(list()->isWindow());
}

TEST_F(CustomerChoice, KeysThatFollowTheCodeAtOnceEndInTheLines) {
    // No event loop runs between these.
    for (const char key : std::string("K0002\r100001")) {
        if (key == '\r')
            press(Qt::Key_Return);
        else
            type(QString(QChar::fromLatin1(key)));
    }
    EXPECT_EQ(box().customerId(), 2);
    EXPECT_EQ(grid().Text(), "100001");
}

TEST_F(CustomerChoice, EnterOffersThoseThatMayBeMeantTheFirstHighlighted) {
    type("K001");
    press(Qt::Key_Escape);
    press(Qt::Key_Return);
    ASSERT_TRUE(listShown());
    EXPECT_TRUE(highlighted().startsWith("K0010")) << highlighted().toStdString();
    EXPECT_EQ(list()->model()->rowCount(), 10);
    press(Qt::Key_Return);
    EXPECT_EQ(box().customerId(), 10);
    EXPECT_TRUE(inTheLines());
}

TEST_F(CustomerChoice, DownAndUpChooseInTheList) {
    type("K001");
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_TRUE(highlighted().startsWith("K0011"));
    press(Qt::Key_Up);
    EXPECT_TRUE(highlighted().startsWith("K0010"));
    press(Qt::Key_Up);
    EXPECT_EQ(highlighted(), "") << "out of the list, as in the cells of a grid";
    press(Qt::Key_Down);
    EXPECT_TRUE(highlighted().startsWith("K0010"));
    press(Qt::Key_PageDown);
    EXPECT_TRUE(highlighted().startsWith("K0019"));
    EXPECT_EQ(box().text(), "K001");
    press(Qt::Key_Return);
    EXPECT_EQ(box().customerId(), 19);
}

TEST_F(CustomerChoice, DownInAnEmptyFieldOffersAllCustomers) {
    press(Qt::Key_Down);
    ASSERT_TRUE(listShown());
    EXPECT_TRUE(highlighted().startsWith("K0001"));
    EXPECT_GT(list()->model()->rowCount(), 12);
}

TEST_F(CustomerChoice, TabTakesTheChosenOne) {
    type("K001");
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Tab);
    EXPECT_FALSE(listShown());
    EXPECT_EQ(box().customerId(), 11);
    EXPECT_TRUE(inTheLines());
}

TEST_F(CustomerChoice, EscClosesTheListAndKeepsTheText) {
    type("K001");
    press(Qt::Key_Down);
    press(Qt::Key_Escape);
    EXPECT_FALSE(listShown());
    EXPECT_EQ(box().text(), "K001");
    EXPECT_EQ(box().customerId(), 0);
}

TEST_F(CustomerChoice, APressInTheListTakesThatCustomerAndKeepsTheKeyboardInTheField) {
    type("K001");
    const QRect third = list()->visualRect(list()->model()->index(2, 0));
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, third.center());
    EXPECT_FALSE(listShown());
    EXPECT_EQ(box().customerId(), 12);
    EXPECT_EQ(QApplication::focusWidget(), &box());
}

TEST_F(CustomerChoice, ATextThatNobodyHasShowsNoList) {
    type("K001");
    ASSERT_TRUE(listShown());
    type("x");
    EXPECT_FALSE(listShown());
    press(Qt::Key_Return);
    EXPECT_FALSE(listShown());
    EXPECT_EQ(QApplication::focusWidget(), &box());
    EXPECT_EQ(box().text(), "K001x");
}

TEST_F(CustomerChoice, TheListStandsUnderTheFieldInsideTheWindow) {
    type("K");
    ASSERT_TRUE(listShown());
    const QPoint under = box().mapTo(window.get(), QPoint(0, box().height()));
    EXPECT_EQ(list()->geometry().topLeft(), under);
    EXPECT_EQ(list()->width(), box().width());
    EXPECT_TRUE(window->rect().contains(list()->geometry()));
    window->grab().save(path("customers.png"));
}

TEST_F(CustomerChoice, ALockedFieldOffersNothing) {
    box().setReadOnly(true);
    press(Qt::Key_Down);
    EXPECT_FALSE(listShown());
}
}  // namespace
