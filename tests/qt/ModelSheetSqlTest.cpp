// A table of a database in a grid.
#include <QSignalSpy>
#include <array>

#include "ModelSheets.h"

namespace kxVsGrid::qt::testing {
namespace {

using Strategy = QSqlTableModel::EditStrategy;

/// id, code, name, price, arrived.
class SqlSheet : public SheetDesk {
  protected:
    enum Column : std::int32_t { Number, Id, Code, Name, Price, Arrived };

    void open(Strategy strategy) {
        model = table.model(strategy);
        show(*model).setReason([this] { return model->lastError().databaseText(); });
        sheet->column("price").decimals(2);
        sheet->column("arrived").date();
    }
    ~SqlSheet() override {
        sheet.reset();
        tester.reset();
        model.reset();
    }

    GoodsTable table;
    std::unique_ptr<QSqlTableModel> model;
};

class SqlSheetOfAnyStrategy : public SqlSheet, public ::testing::WithParamInterface<Strategy> {
  protected:
    SqlSheetOfAnyStrategy() { open(GetParam()); }
    void store() {
        ASSERT_TRUE(sheet->submit());
        ASSERT_TRUE(model->submitAll()) << model->lastError().text().toStdString();
    }
};

INSTANTIATE_TEST_SUITE_P(Strategies, SqlSheetOfAnyStrategy,
                         ::testing::Values(QSqlTableModel::OnFieldChange, QSqlTableModel::OnRowChange,
                                           QSqlTableModel::OnManualSubmit));

TEST_P(SqlSheetOfAnyStrategy, TypedCellsComeIntoTheTable) {
    type(2, Name, "typed");
    type(2, Price, "9.999");
    EXPECT_EQ(text(2, Price), "10");
    type(3, Arrived, "2026-12-24");
    type(1, Name, "");
    store();
    EXPECT_EQ(table.ask("SELECT name FROM goods ORDER BY id"), "|typed|name 3");
    EXPECT_EQ(table.ask("SELECT count(*) FROM goods WHERE name IS NULL"), "1");
    EXPECT_EQ(table.ask("SELECT price FROM goods ORDER BY id"), "1.5|10|3.5");
    EXPECT_EQ(table.ask("SELECT arrived FROM goods ORDER BY id"), "2026-11-02|2026-11-03|2026-12-24");
    EXPECT_EQ(differenceOf(*sheet, *model, grid), "");
    EXPECT_TRUE(refusals.empty());
}

TEST_P(SqlSheetOfAnyStrategy, RowsComeAndGo) {
    type(4, Code, "N1");
    type(4, Price, "7");
    grid.Grid().Select(5, Code);
    desk.clipboard("P1\tpasted\t1\nP2\tpasted\t2\n");
    ASSERT_TRUE(desk.run(Command::Paste));
    grid.Grid().Select(1, Code);
    ASSERT_TRUE(desk.run(Command::DeleteRows));
    EXPECT_EQ(column(Code), "A2|A3|N1|P1|P2|");
    store();
    EXPECT_EQ(table.ask("SELECT code FROM goods ORDER BY code"), "A2|A3|N1|P1|P2");
    EXPECT_EQ(column(Code).substr(0, 6), "A2|A3|");
    EXPECT_EQ(column(Code).size(), std::string("A2|A3|N1|P1|P2|").size());
    EXPECT_TRUE(refusals.empty());
}

TEST_P(SqlSheetOfAnyStrategy, UndoOfADeletionPutsTheRecordBack) {
    grid.Grid().Select(2, Code);
    ASSERT_TRUE(desk.run(Command::DeleteRows));
    grid.History().Undo();
    EXPECT_EQ(column(Code), "A1|A2|A3|");
    store();
    EXPECT_EQ(table.ask("SELECT id || code || name FROM goods ORDER BY id"), "1A1name 1|2A2name 2|3A3name 3");
}

TEST_P(SqlSheetOfAnyStrategy, UndoAndRedoGoThroughToTheTable) {
    type(1, Name, "one");
    type(1, Name, "two");
    grid.History().Undo();
    EXPECT_EQ(model->index(0, 2).data().toString(), "one");
    grid.History().Undo();
    grid.History().Redo();
    store();
    EXPECT_EQ(table.ask("SELECT name FROM goods WHERE id = 1"), "one");
}

TEST_F(SqlSheet, AFieldThatTheTableRefusesIsPutBackWithTheReason) {
    open(QSqlTableModel::OnFieldChange);
    type(2, Code, "A1");
    EXPECT_EQ(text(2, Code), "A2");
    EXPECT_EQ(markOf(2, Code), "UNIQUE constraint failed: goods.code");
    EXPECT_EQ(refusals, std::vector<std::string>{"2,2 UNIQUE constraint failed: goods.code"});
    EXPECT_FALSE(model->isDirty());
    type(2, Code, "X");
    EXPECT_EQ(markOf(2, Code), "");
    EXPECT_EQ(table.ask("SELECT code FROM goods ORDER BY id"), "A1|X|A3");
}

TEST_F(SqlSheet, ARowIsSubmittedWhenItIsLeft) {
    open(QSqlTableModel::OnRowChange);
    type(2, Code, "X");
    EXPECT_TRUE(model->isDirty());
    EXPECT_EQ(table.ask("SELECT code FROM goods WHERE id = 2"), "A2");
    grid.Grid().Select(3, Code);
    EXPECT_FALSE(model->isDirty());
    EXPECT_EQ(table.ask("SELECT code FROM goods WHERE id = 2"), "X");
    type(3, Code, "X");
    EXPECT_EQ(text(3, Code), "X");
    desk.press(Key::Up);
    EXPECT_EQ(text(3, Code), "A3");
    EXPECT_NE(markOf(3, Code), "");
    EXPECT_FALSE(model->isDirty());
}

TEST_F(SqlSheet, EnterGoesOnToTheNextRowWhileTheModelLocksAllOthers) {
    open(QSqlTableModel::OnRowChange);
    type(1, Arrived, "2026-12-01");
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_FALSE(model->isDirty());
}

TEST_F(SqlSheet, ANewRowThatIsRefusedStaysAsItWasTypedAndIsTriedAgain) {
    for (const Strategy strategy : {QSqlTableModel::OnFieldChange, QSqlTableModel::OnRowChange}) {
        open(strategy);
        refusals.clear();
        type(4, Code, "bad");
        type(4, Name, "kept");
        grid.Grid().Select(1, Code);
        EXPECT_EQ(model->rowCount(), 3);
        EXPECT_FALSE(model->isDirty());
        EXPECT_EQ(column(Name), "name 1|name 2|name 3|kept|");
        EXPECT_NE(markOf(4, Code), "");
        EXPECT_EQ(refusals.size(), 1U);
        EXPECT_TRUE(sheet->hasUnsent());
        grid.Grid().Select(2, Code);
        EXPECT_EQ(refusals.size(), 1U) << "not told again and again";
        EXPECT_FALSE(sheet->submit());
        EXPECT_EQ(refusals.size(), 2U);
        type(4, Code, "good");
        EXPECT_TRUE(sheet->submit());
        EXPECT_EQ(markOf(4, Code), "");
        EXPECT_EQ(table.ask("SELECT code || name FROM goods WHERE id > 3"), "goodkept");
        EXPECT_EQ(text(4, Id), "4") << "read back";
        table.run("DELETE FROM goods WHERE id > 3");
        sheet.reset();
        tester.reset();
    }
}

TEST_F(SqlSheet, ARequiredColumnIsAskedForBeforeTheModelIs) {
    open(QSqlTableModel::OnFieldChange);
    sheet->column("name").required();
    type(4, Code, "N");
    grid.Grid().Select(1, Code);
    EXPECT_EQ(model->rowCount(), 3);
    EXPECT_EQ(markOf(4, Name), "不能为空。");
    type(4, Name, "n");
    grid.Grid().Select(1, Code);
    EXPECT_EQ(model->rowCount(), 4);
    type(1, Name, "");
    EXPECT_EQ(text(1, Name), "name 1");
}

TEST_F(SqlSheet, ARemovalThatTheTableRefusesPutsTheRowBack) {
    table.run(
        "CREATE TRIGGER stays BEFORE DELETE ON goods WHEN old.code = 'A2' "
        "BEGIN SELECT RAISE(ABORT, 'A2 stays'); END");
    open(QSqlTableModel::OnFieldChange);
    grid.Grid().SelectRows(1, 3);
    ASSERT_TRUE(desk.run(Command::DeleteRows));
    EXPECT_EQ(table.ask("SELECT code FROM goods"), "A2");
    ASSERT_EQ(refusals.size(), 1U);
    EXPECT_NE(refusals[0].find("A2 stays"), std::string::npos);
    EXPECT_NE(column(Code).find("A2"), std::string::npos);
    grid.History().Undo();
    EXPECT_EQ(table.ask("SELECT code FROM goods ORDER BY code"), "A1|A2|A3");
}

TEST_F(SqlSheet, ARowThatIsOnlyMarkedAsRemovedComesBackWithRevert) {
    open(QSqlTableModel::OnManualSubmit);
    type(1, Name, "typed");
    grid.Grid().Select(2, Code);
    ASSERT_TRUE(desk.run(Command::DeleteRows));
    EXPECT_EQ(model->rowCount(), 3);
    EXPECT_EQ(column(Code).substr(0, 6), "A1|A3|");
    EXPECT_EQ(sheet->gridRow(model->index(1, 0)), -1);
    model->revertAll();
    EXPECT_EQ(column(Code).substr(0, 9), "A1|A2|A3|");
    EXPECT_EQ(text(1, Name), "name 1");
    grid.History().Undo();
    EXPECT_EQ(column(Code).substr(0, 9), "A1|A2|A3|") << "it is there already";
}

TEST_F(SqlSheet, SubmitAllReadsAnewAndKeepsWhatIsBeingTyped) {
    open(QSqlTableModel::OnManualSubmit);
    type(1, Name, "typed");
    type(4, Name, "no code yet");
    ASSERT_TRUE(model->submitAll());
    EXPECT_EQ(table.ask("SELECT name FROM goods WHERE id = 1"), "typed");
    EXPECT_EQ(column(Name), "typed|name 2|name 3|no code yet|");
    EXPECT_FALSE(grid.History().CanUndo());
    type(4, Code, "N");
    EXPECT_TRUE(sheet->submit());
    ASSERT_TRUE(model->submitAll()) << model->lastError().text().toStdString();
    EXPECT_EQ(column(Code), "A1|A2|A3|N|");
}

TEST_F(SqlSheet, AnEditorInTheSpareRowStaysOpenWhileTheTableIsReadAnew) {
    open(QSqlTableModel::OnFieldChange);
    grid.Grid().Select(4, Code);
    desk.type("typing");
    table.run("INSERT INTO goods (code) VALUES ('other')");
    model->select();
    EXPECT_EQ(desk.editor().text, "typing");
    EXPECT_TRUE(desk.editor().visible);
    desk.press(Key::Enter);
    EXPECT_TRUE(sheet->submit());
    EXPECT_EQ(column(Code), "A1|A2|A3|other|typing|");
    EXPECT_EQ(table.ask("SELECT code FROM goods WHERE id > 3 ORDER BY id"), "other|typing");
}

TEST_F(SqlSheet, RowsThatTheModelFetchesLaterFollowInIdleTime) {
    table.run(
        "WITH RECURSIVE n(i) AS (SELECT 4 UNION ALL SELECT i + 1 FROM n WHERE i < 2000) "
        "INSERT INTO goods SELECT i, 'A' || i, 'name', i, '2026-01-01' FROM n");
    open(QSqlTableModel::OnFieldChange);
    EXPECT_LT(model->rowCount(), 2000);
    EXPECT_FALSE(sheet->whole());
    EXPECT_FALSE(grid.Options(Code).sortable());
    QSignalSpy fetched(sheet.get(), &ModelSheet::fetched);
    EXPECT_TRUE(kit::waitUntil([&] { return sheet->whole(); }));
    EXPECT_EQ(fetched.count(), 1);
    EXPECT_EQ(grid.Rows(), 2002);
    EXPECT_TRUE(grid.Options(Code).sortable());
    EXPECT_EQ(text(2000, Code), "A2000");
}

TEST_F(SqlSheet, ANewRowStandsBehindAllThatTheModelHadNotFetchedYet) {
    table.run(
        "WITH RECURSIVE n(i) AS (SELECT 4 UNION ALL SELECT i + 1 FROM n WHERE i < 1000) "
        "INSERT INTO goods SELECT i, 'A' || i, 'name', i, '2026-01-01' FROM n");
    open(QSqlTableModel::OnRowChange);
    const std::int32_t spare = grid.Rows() - 1;
    type(spare, Code, "N");
    grid.Grid().Select(1, Code);
    EXPECT_EQ(model->rowCount(), 1001);
    EXPECT_EQ(text(1001, Code), "N");
    EXPECT_EQ(table.ask("SELECT count(*) FROM goods"), "1001");
    sheet->fetchAll();
    EXPECT_EQ(text(1000, Code), "A1000");
}

TEST_F(SqlSheet, AnotherTableIsAnotherSetOfColumns) {
    table.run("CREATE TABLE towns (town TEXT, people INTEGER)");
    table.run("INSERT INTO towns VALUES ('北京', 21), ('上海', 24)");
    open(QSqlTableModel::OnFieldChange);
    model->setTable("towns");
    model->select();
    EXPECT_EQ(grid.Cols(), 3);
    EXPECT_EQ(grid.Grid().Text(0, 1), "town");
    EXPECT_EQ(column(1), "北京|上海|");
    EXPECT_EQ(grid.Grid().ColDataType(2), flexDTDouble);
}
}  // namespace
}  // namespace kxVsGrid::qt::testing
