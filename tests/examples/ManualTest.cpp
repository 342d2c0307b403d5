// The clerk's page of the manual, which F1 opens beside the order.
#include <QTextBlock>
#include <QTextBrowser>

#include "ManualWindow.h"
#include "OrderEntry.h"

namespace {
class Manual : public OrderEntry {
  protected:
    ManualWindow* manual() const { return window->findChild<ManualWindow*>(); }
    QTextBrowser* page() const { return manual()->findChild<QTextBrowser*>("page"); }
    bool isShown() const { return manual() && manual()->isVisible(); }
    void waitUntilActive(QWidget* wanted) {
        EXPECT_TRUE(kxVsGrid::kit::waitUntil([&] { return QApplication::activeWindow() == wanted; }));
    }

    QStringList pictures() const {
        QStringList result;
        for (QTextBlock block = page()->document()->begin(); block.isValid(); block = block.next())
            for (auto part = block.begin(); !part.atEnd(); ++part)
                if (part.fragment().charFormat().isImageFormat())
                    result << part.fragment().charFormat().toImageFormat().name();
        return result;
    }
};
}  // namespace

TEST_F(Manual, OpensByF1AndGivesTheKeyboardBackToTheCellByEsc) {
    open();
    play({"type K0002", "key Enter", "key F1"});
    ASSERT_TRUE(isShown());
    waitUntilActive(manual());
    EXPECT_FALSE(manual()->isModal());
    EXPECT_TRUE(page()->toPlainText().startsWith("录单员手册"))
        << page()->toPlainText().left(80).toStdString();
    play({"key Esc"});
    EXPECT_FALSE(isShown());
    waitUntilActive(window.get());
    play({"type 100001", "key Enter"});
    EXPECT_EQ(cell(1, OrderColumn::Code), QString("100001"));
}

TEST_F(Manual, HasEveryPictureThatItNames) {
    open();
    play({"key F1"});
    ASSERT_TRUE(isShown());
    const QStringList named = pictures();
    EXPECT_GE(named.size(), 12);
    for (const QString& name : named) {
        const QVariant picture = page()->document()->resource(QTextDocument::ImageResource, QUrl(name));
        EXPECT_FALSE(picture.value<QImage>().isNull()) << name.toStdString();
        EXPECT_LE(picture.value<QImage>().width(), page()->viewport()->width()) << name.toStdString();
    }
}

TEST_F(Manual, LeavesWhatIsBeingTypedInTheOpenEditor) {
    open();
    play({"type K0002", "key Enter", "type 1000", "key F1"});
    ASSERT_TRUE(isShown());
    play({"key Esc"});
    waitUntilActive(window.get());
    EXPECT_TRUE(grid().editorView().visible);
    play({"type 01", "key Enter"});
    EXPECT_EQ(cell(1, OrderColumn::Code), QString("100001"));
}

TEST_F(Manual, IsOneWindowHoweverOftenF1IsPressed) {
    open();
    play({"key F1"});
    ManualWindow* const first = manual();
    window->activateWindow();
    waitUntilActive(window.get());
    play({"key F1"});
    EXPECT_EQ(window->findChildren<ManualWindow*>().size(), 1);
    waitUntilActive(first);
    play({"key Esc", "key F1"});
    EXPECT_EQ(window->findChildren<ManualWindow*>().size(), 1);
    EXPECT_TRUE(isShown());
}

TEST_F(Manual, LetsTheOrderBeKeyedMeanwhile) {
    open();
    play({"type K0002", "key Enter", "key F1"});
    window->activateWindow();
    waitUntilActive(window.get());
    play({"type 100001", "key Enter", "type 3", "key Enter"});
    EXPECT_TRUE(isShown());
    EXPECT_EQ(window->onScreen().lines.size(), 1u);
}
