// Forms with a grid in Qt Designer: what they hold, and what the designer sees.
#include <gtest/gtest.h>

#include "designer/Workbench.h"
#include "kxVsGrid/StoredKeys.h"
#include "qt/text/Encoding.h"

namespace kxVsGrid::qt::testing {
namespace {

TEST(DesignedForm, IsSavedAsItWasLoaded) {
    const QString form = formNamed("order.ui");
    const Workbench bench(form);
    EXPECT_EQ(bench.text().toStdString(), form.toStdString());
}

TEST(DesignedForm, ShowsTheGridWithItsDefinitionsApplied) {
    Workbench bench(formNamed("order.ui"));
    EXPECT_TRUE(bench.grid().ReDraw());
    EXPECT_EQ(bench.grid().VsCtrl(1)->sName(), "货号");
    EXPECT_TRUE(bench.grid().ColHidden(4)) << "the column that the form hides";
    EXPECT_FALSE(bench.form().isDirty());
}

TEST(DesignedForm, ShowsAtOnceWhatIsSetForTheWholeGrid) {
    Workbench bench(formNamed("order.ui"));
    bench.edit("SumRow", false);
    EXPECT_FALSE(bench.grid().SumRow());
    bench.edit("FormatString", QByteArray("甲|乙|丙"));
    EXPECT_EQ(bench.grid().ReadCell(0, 1, true), "乙");
    EXPECT_TRUE(bench.form().isDirty());
    bench.undo();
    bench.undo();
    EXPECT_TRUE(bench.grid().SumRow());
    EXPECT_EQ(bench.grid().ReadSum(3), "0") << "totals too, as after ReDraw";
    EXPECT_EQ(bench.grid().ReadCell(0, 1, true), "货号");
    EXPECT_FALSE(bench.form().isDirty());
}

TEST(DesignedForm, ShowsAtOnceWhatIsSetForAColumn) {
    Workbench bench(formNamed("order.ui"));
    bench.edit("SetVsControl2bIsVisible", false);
    EXPECT_TRUE(bench.grid().ColHidden(2));
    EXPECT_EQ(bench.stored()[key(2, "bIsVisible")], QStringLiteral("bool:false"));
    bench.undo();
    EXPECT_FALSE(bench.grid().ColHidden(2));
    EXPECT_EQ(bench.stored()[key(2, "bIsVisible")], QStringLiteral("bool:true"));
}

TEST(DesignedForm, HoldsEveryKeyOfAColumnThatIsAdded) {
    Workbench bench(formNamed("order.ui"));
    const QString text = bench.text();
    const int columns = bench.grid().Cols();
    bench.edit("Cols", columns + 2);
    const StoredTexts stored = bench.stored();
    for (const StoredKey& each : columnKeys())
        EXPECT_TRUE(stored.count(toQt(columnKey(columns + 1, each.written)))) << each.written;
    EXPECT_EQ(stored.at(key(columns, "")), QStringLiteral("cstring:-1")) << "as a program loads it";
    EXPECT_EQ(bench.grid().VsCtrl(static_cast<std::int16_t>(columns))->sName(), "-1");
    bench.undo();
    EXPECT_EQ(bench.text().toStdString(), text.toStdString()) << "what was added for the column goes with it";
}

TEST(DesignedForm, KeepsWhatWasSetForAColumnThatIsGone) {
    Workbench bench(formNamed("order.ui"));
    const int columns = bench.grid().Cols();
    bench.edit("Cols", columns + 1);
    bench.edit(fromQt(key(columns, "")).c_str(), QByteArray("new"));
    bench.edit("Cols", columns);
    EXPECT_EQ(bench.stored()[key(columns, "")], QStringLiteral("cstring:new"));
    EXPECT_FALSE(bench.stored().count(key(columns, "iType")));
    bench.edit("Cols", columns + 1);
    EXPECT_EQ(bench.grid().VsCtrl(static_cast<std::int16_t>(columns))->sName(), "new");
    EXPECT_TRUE(bench.stored().count(key(columns, "iType")));
}

TEST(DesignedForm, KeepsAGridNewlyPlacedForWhichNothingIsStored) {
    Workbench bench(
        formAround(QStringLiteral("<widget class=\"kxVsGrid::qt::kxGridWidget\" name=\"kxGrid\"></widget>")));
    EXPECT_TRUE(bench.grid().Editable()) << "a loaded grid without keys is not editable";
    EXPECT_TRUE(bench.stored().empty());
}
}  // namespace
}  // namespace kxVsGrid::qt::testing
