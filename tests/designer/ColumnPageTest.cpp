// The column page before a form in Qt Designer.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "designer/Workbench.h"
#include "kxVsGrid/StoredKeys.h"
#include "qt/text/Encoding.h"

namespace kxVsGrid::qt::testing {
namespace {

constexpr int Name = 2;  // a column of the form

/// The keys whose values differ, or that only one has.
QStringList difference(const StoredTexts& a, const StoredTexts& b) {
    QStringList names;
    for (const auto& [name, text] : a)
        if (!b.count(name) || b.at(name) != text) names << name;
    for (const auto& entry : b)
        if (!a.count(entry.first)) names << entry.first;
    names.sort();
    return names;
}

/// Reads and closes message boxes.
class BoxClerk {
  public:
    BoxClerk() {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr) return;
            texts << box->text();
            box->accept();
        });
        timer_.start(10);
    }
    QStringList texts;

  private:
    QTimer timer_;
};

TEST(ColumnPageOfAForm, ComesUpFromTheTaskMenuWithItsListsFilled) {
    Workbench bench(formNamed("order.ui"));
    ASSERT_TRUE(bench.atThePage([&](QDialog& page) {
        EXPECT_EQ(page.objectName(), QStringLiteral("ControlPage"));
        EXPECT_EQ(part<QComboBox>(page, "Combo1").count(), bench.grid().Cols());
        EXPECT_EQ(part<QComboBox>(page, "Combo2").count(), 3);
        EXPECT_EQ(part<QComboBox>(page, "Combo3").count(), 5);
        EXPECT_FALSE(part<QPushButton>(page, "YyCommand").isEnabled()) << "nothing has been changed";
    }));
    EXPECT_FALSE(bench.form().isDirty());
}

TEST(ColumnPageOfAForm, ShowsOnTheFormWhatItApplies) {
    Workbench bench(formNamed("order.ui"));
    ASSERT_TRUE(bench.atThePage([&](QDialog& page) {
        choose(page, "Combo1", Name);
        tick(page, QStringLiteral("bIsVisible"));
        EXPECT_TRUE(part<QPushButton>(page, "YyCommand").isEnabled());
        EXPECT_FALSE(bench.grid().ColHidden(Name));
        press(page, "YyCommand");
        EXPECT_TRUE(bench.grid().ColHidden(Name)) << "at once, while the page stands open";
        EXPECT_FALSE(part<QPushButton>(page, "YyCommand").isEnabled());
    }));
    EXPECT_TRUE(bench.grid().ReDraw());
}

TEST(ColumnPageOfAForm, ChangesTheKeysAloneThatWereEdited) {
    Workbench bench(formNamed("order.ui"));
    const StoredTexts before = bench.stored();
    ASSERT_TRUE(bench.atThePage([&](QDialog& page) {
        choose(page, "Combo1", Name);
        tick(page, QStringLiteral("b是否提供帮助"));
        type(page, QStringLiteral("sHelp_Code"), QStringLiteral("goods|a"));
        type(page, QStringLiteral("i帮助类型"), QStringLiteral("2"));
        choose(page, "Combo3", 2);
        press(page, "QdCommand");
    }));
    const StoredTexts after = bench.stored();
    QStringList expected{key(Name, "b是否提供帮助"), key(Name, "sHelp_Code"), key(Name, "i帮助类型"),
                         key(Name, "iType")};
    expected.sort();
    EXPECT_EQ(difference(before, after), expected);
    EXPECT_EQ(after.at(key(Name, "b是否提供帮助")), QStringLiteral("bool:true"));
    EXPECT_EQ(after.at(key(Name, "sHelp_Code")), QStringLiteral("cstring:goods|a"));
    EXPECT_EQ(after.at(key(Name, "i帮助类型")), QStringLiteral("number:2"));
    EXPECT_EQ(after.at(key(Name, "iType")), QStringLiteral("number:5"));
    EXPECT_TRUE(bench.form().isDirty());
}

TEST(ColumnPageOfAForm, MakesOneStepOfTheHistoryOfEachApply) {
    Workbench bench(formNamed("order.ui"));
    const QString text = bench.text();
    const int steps = bench.history().count();
    ASSERT_TRUE(bench.atThePage([&](QDialog& page) {
        choose(page, "Combo1", Name);
        tick(page, QStringLiteral("bIsVisible"));
        tick(page, QStringLiteral("bIsEditable"));
        press(page, "YyCommand");
        tick(page, QStringLiteral("bIsVisible"));
        press(page, "QdCommand");
    }));
    EXPECT_EQ(bench.history().count(), steps + 2);
    EXPECT_FALSE(bench.grid().ColHidden(Name));
    bench.undo();
    EXPECT_TRUE(bench.grid().ColHidden(Name));
    bench.undo();
    EXPECT_FALSE(bench.grid().ColHidden(Name));
    EXPECT_TRUE(bench.grid().VsCtrl(Name)->bIsEditable());
    EXPECT_EQ(bench.text(), text);
    EXPECT_FALSE(bench.form().isDirty());
    bench.redo();
    EXPECT_TRUE(bench.grid().ColHidden(Name));
    EXPECT_FALSE(bench.grid().VsCtrl(Name)->bIsEditable());
    EXPECT_EQ(bench.stored()[key(Name, "bIsVisible")], QStringLiteral("bool:false"));
}

TEST(ColumnPageOfAForm, ShowsWhatIsNotStoredUntilTheFormIsClosed) {
    Workbench bench(formNamed("order.ui"));
    const QString text = bench.text();
    ASSERT_TRUE(bench.atThePage([&](QDialog& page) {
        choose(page, "Combo1", Name);
        tick(page, QStringLiteral("b是否设列颜色"));
        type(page, QStringLiteral("d列背景色"), QStringLiteral("65535"));
        press(page, "QdCommand");
    }));
    EXPECT_EQ(bench.text(), text);
    EXPECT_TRUE(bench.grid().VsCtrl(Name)->b是否设列颜色());
    EXPECT_EQ(bench.grid().VsCtrl(Name)->d列背景色(), 65535);
    bench.edit("SumRow", false);
    EXPECT_TRUE(bench.grid().VsCtrl(Name)->b是否设列颜色()) << "another setting does not undo it";
    bench.undo();
    bench.undo();
    EXPECT_FALSE(bench.grid().VsCtrl(Name)->b是否设列颜色());
}

TEST(ColumnPageOfAForm, IsUndoneAndDoneAgainOnAGridThatWasDeletedMeanwhileAndCameBack) {
    Workbench bench(formNamed("order.ui"));
    const QString text = bench.text();
    ASSERT_TRUE(bench.atThePage([&](QDialog& page) {
        choose(page, "Combo1", Name);
        tick(page, QStringLiteral("bIsVisible"));
        press(page, "QdCommand");
    }));
    bench.deleteGrid();
    EXPECT_TRUE(bench.stored().empty());
    bench.undo();
    EXPECT_TRUE(bench.grid().ColHidden(Name));
    bench.undo();
    EXPECT_EQ(bench.text(), text);
    EXPECT_FALSE(bench.grid().ColHidden(Name));
    bench.redo();
    EXPECT_TRUE(bench.grid().ColHidden(Name));
    bench.redo();
    EXPECT_TRUE(bench.stored().empty());
    bench.undo();
    ASSERT_TRUE(bench.atThePage([&](QDialog& page) {
        choose(page, "Combo1", Name);
        tick(page, QStringLiteral("bIsVisible"));
        press(page, "QdCommand");
    }));
    EXPECT_EQ(bench.text(), text);
}

TEST(ColumnPageOfAForm, LeavesTheFormAsItIsWhenItIsCancelled) {
    Workbench bench(formNamed("order.ui"));
    const QString text = bench.text();
    ASSERT_TRUE(bench.atThePage([&](QDialog& page) {
        choose(page, "Combo1", Name);
        tick(page, QStringLiteral("bIsVisible"));
        press(page, "QxCommand");
    }));
    EXPECT_EQ(bench.text(), text);
    EXPECT_FALSE(bench.form().isDirty());
    EXPECT_FALSE(bench.grid().ColHidden(Name));
}

TEST(ColumnPageOfAForm, AddsTheKeysThatAnOldFormLacks) {
    Workbench bench(
        formAround(QStringLiteral("<widget class=\"kxVsGrid::qt::kxGridWidget\" name=\"kxGrid\">"
                                  "<property name=\"Cols\"><number>3</number></property></widget>")));
    ASSERT_TRUE(bench.atThePage([&](QDialog& page) {
        choose(page, "Combo1", Name);
        tick(page, QStringLiteral("bIsVisible"));
        press(page, "QdCommand");
    }));
    EXPECT_EQ(bench.stored().size(), writtenGridKeys().size() + 3 * columnKeys().size());
    bench.undo();
    EXPECT_EQ(bench.stored().size(), 1U);
}

TEST(ColumnPageOfAForm, SaysThatTheSettingsOfTheFormCannotBeRead) {
    QString form = formNamed("order.ui");
    const QString name = key(Name, "iLimitLength");
    const qsizetype place = form.indexOf(QStringLiteral("\"%1\"").arg(name));
    const qsizetype number = form.indexOf(QLatin1String("<number>"), place);
    form.replace(number, form.indexOf(QLatin1String("</number>"), place) + 9 - number,
                 QStringLiteral("<cstring>many</cstring>"));
    const BoxClerk clerk;
    Workbench bench(form);
    ASSERT_EQ(clerk.texts.size(), 1) << "what the program would show";
    const QString text = bench.text();
    ASSERT_TRUE(bench.atThePage([&](QDialog& page) {
        const QString problem = part<QLabel>(page, "Problem").text();
        EXPECT_TRUE(problem.contains(name)) << problem.toStdString();
        EXPECT_TRUE(problem.contains(QStringLiteral("many"))) << problem.toStdString();
        EXPECT_FALSE(part<QComboBox>(page, "Combo1").isEnabled());
        keepPicture(page, "page-of-an-unreadable-form");
    }));
    EXPECT_EQ(bench.text(), text) << "what cannot be read stays as it is";
    bench.edit(fromQt(name).c_str(), QByteArray("12"));
    ASSERT_TRUE(bench.atThePage([&](QDialog& page) {
        EXPECT_TRUE(part<QLabel>(page, "Problem").text().isEmpty());
        EXPECT_TRUE(part<QComboBox>(page, "Combo1").isEnabled());
    }));
}

TEST(ColumnPageOfAForm, WorksBesideAGridWhoseSettingsCannotBeRead) {
    QString form = formNamed("order.ui");
    const QString end = QStringLiteral("  </widget>\n");
    form.insert(form.indexOf(end) + end.size(),
                QStringLiteral("<widget class=\"kxVsGrid::qt::kxGridWidget\" name=\"other\">"
                               "<property name=\"SetVsControl0iType\" stdset=\"0\"><cstring>many</cstring>"
                               "</property></widget>"));
    const BoxClerk clerk;
    Workbench bench(form);
    ASSERT_EQ(clerk.texts.size(), 1);
    ASSERT_TRUE(bench.atThePage([&](QDialog& page) {
        choose(page, "Combo1", Name);
        tick(page, QStringLiteral("bIsEditable"));
        press(page, "QdCommand");
    }));
    EXPECT_EQ(bench.stored()[key(Name, "bIsEditable")], QStringLiteral("bool:false"));
    bench.undo();
    EXPECT_EQ(bench.stored()[key(Name, "bIsEditable")], QStringLiteral("bool:true"));
}

TEST(ColumnPageOfAForm, AddsNothingButTheChangedKeysToAGridOfVeryManyColumns) {
    Workbench bench(formNamed("order.ui"));
    bench.edit("Cols", 2000);
    const StoredTexts before = bench.stored();
    ASSERT_TRUE(bench.atThePage([&](QDialog& page) {
        choose(page, "Combo1", Name);
        tick(page, QStringLiteral("bIsEditable"));
        press(page, "QdCommand");
    }));
    EXPECT_EQ(difference(before, bench.stored()), QStringList(key(Name, "bIsEditable")));
}
}  // namespace
}  // namespace kxVsGrid::qt::testing
