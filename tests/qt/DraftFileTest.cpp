// Drafts in files: what is kept, who is offered it, and what comes back.
#include "kxVsGrid/qt/DraftFile.h"

#include <sys/stat.h>

#include <QDir>
#include <QFileInfo>
#include <stdexcept>

#include "kxVsGrid/Members.h"
#include "qt/Drafts.h"

namespace kxVsGrid::qt::testing {
namespace {

class DraftFileTest : public DraftTest {};
constexpr auto MineAlone = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
}  // namespace

TEST_F(DraftFileTest, HoldsAStepAsSoonAsItHasClosed) {
    const auto draft = begun();
    w.focusCell(3, Code);
    w.type("new");
    EXPECT_EQ(look(*draft).steps, 0U);
    w.press(Qt::Key_Return);
    EXPECT_EQ(look(*draft).steps, 1U);
    EXPECT_EQ(look(*draft).lastStep, "录入");
}

TEST_F(DraftFileTest, TouchesNoDiskBeforeItIsBegun) {
    const auto draft = make();
    key(3, Code, "new");
    draft->put("remark", "x");
    draft->finish();
    EXPECT_FALSE(QFile::exists(place));
    EXPECT_EQ(draft->path(), "");
}

TEST_F(DraftFileTest, IsForItsUserAlone) {
    const auto draft = begun();
    EXPECT_EQ(QFile::permissions(draft->path()), MineAlone);
    EXPECT_EQ(QFile::permissions(place), MineAlone | QFile::ExeOwner | QFile::ExeUser);
}

TEST_F(DraftFileTest, TakesTheRightsOfOthersFromItsFolder) {
    ASSERT_TRUE(QDir().mkpath(place));
    ASSERT_TRUE(QFile::setPermissions(place, QFile::permissions(place) | QFile::ReadOther | QFile::ExeOther));
    const auto draft = begun();
    EXPECT_FALSE(QFile::permissions(place) & QFile::ReadOther);
}

TEST_F(DraftFileTest, IsRemovedWhenAllIsSaved) {
    const auto draft = begun();
    key(3, Code, "new");
    draft->finish();
    EXPECT_EQ(files(), QStringList());
    key(4, Code, "more");
    Window::settle();
    EXPECT_EQ(files(), QStringList());
}

TEST_F(DraftFileTest, LeftBehindIsListedWithWhatItSaysOfItself) {
    auto draft = make();
    draft->begin("单据/4711", "3");
    draft->put("remark", "before noon");
    ASSERT_TRUE(waitUntil([&] { return look(*draft).whole; }));
    key(3, Code, "new");
    const QDateTime begun = QDateTime::currentDateTime().addSecs(-60);
    draft.reset();
    const auto left = leftovers();
    ASSERT_EQ(left.size(), 1);
    EXPECT_EQ(left[0].info.key, "单据/4711");
    EXPECT_EQ(left[0].info.version, "3");
    EXPECT_EQ(left[0].info.steps, 1U);
    EXPECT_EQ(left[0].info.puts, (std::map<std::string, std::string>{{"remark", "before noon"}}));
    EXPECT_GT(left[0].time, begun);
    EXPECT_TRUE(QFileInfo(left[0].path).fileName().startsWith("单据_4711-")) << left[0].path.toStdString();
}

TEST_F(DraftFileTest, BringsBackWhatWasKeyedAndGoesOn) {
    auto draft = begun();
    key(3, Code, "new");
    key(4, Quantity, "12");
    w.grid().Grid().RemoveRow(2);
    const auto expected = contentOf(w.grid());
    ASSERT_TRUE(waitUntil([&] { return content(draft->path()).contains("\tr\t2\t1"); }));
    draft.reset();

    Window other;
    draft = make(*other.widget);
    const auto back = draft->recover(leftovers().at(0), false);
    EXPECT_EQ(contentOf(other.grid()), expected);
    EXPECT_EQ(back.steps, 2U);
    EXPECT_EQ(back.told().toStdString(), "“order 7”的草稿已恢复，共 2 步，最后一步是“录入”。");
    EXPECT_EQ(files().size(), 1);
    {
        const auto step = other.grid().Step("套用");
        other.grid().SetCell(5, Code, "later");
    }
    draft.reset();

    const auto again = leftovers();
    ASSERT_EQ(again.size(), 1);
    EXPECT_EQ(again[0].info.steps, 3U);
    EXPECT_EQ(again[0].info.lastStep, "套用");
    EXPECT_EQ(again[0].info.version, "3");
    EXPECT_EQ(recovered(again[0]), contentOf(other.grid()));
}

TEST_F(DraftFileTest, RecoveredAndNotTouchedSinceIsOfferedAgain) {
    auto draft = begun();
    key(3, Code, "new");
    draft.reset();
    EXPECT_EQ(recovered(leftovers().at(0)), contentOf(w.grid()));
    EXPECT_EQ(recovered(leftovers().at(0)), contentOf(w.grid()));
    EXPECT_EQ(leftovers().at(0).info.lastStep, "录入");
}

TEST_F(DraftFileTest, OverItsDocumentLeavesTheRowsWhoTheyAre) {
    Window document;
    auto draft = begun();
    w.grid().Grid().InsertRow(1);
    key(1, Code, "first");
    draft.reset();

    const RowId second = document.grid().Grid().IdOf(1);
    draft = make(*document.widget);
    EXPECT_TRUE(draft->recover(leftovers().at(0), true).overDocument);
    EXPECT_EQ(document.grid().Grid().RowOf(second), 2);
    draft.reset();

    Window again;  // the file tells no more of what became of the document's rows
    draft = make(*again.widget);
    const auto back = draft->recover(leftovers().at(0), true);
    EXPECT_EQ(back.refusal, "");
    EXPECT_FALSE(back.overDocument);
    EXPECT_EQ(contentOf(again.grid()), contentOf(w.grid()));
}

TEST_F(DraftFileTest, InWhichNothingWasChangedIsRemoved) {
    auto draft = make();
    draft->begin("order 7", "3");
    draft->put("remark", "as it was");
    ASSERT_TRUE(waitUntil([&] { return look(*draft).whole; }));
    draft->put("remark", "as it was");
    draft.reset();
    EXPECT_EQ(files().size(), 1);
    EXPECT_TRUE(leftovers().isEmpty());
    EXPECT_EQ(files(), QStringList());
}

TEST_F(DraftFileTest, InWhichSomethingWasPutLaterIsKept) {
    auto draft = begun();
    draft->put("remark", "changed");
    draft.reset();
    ASSERT_EQ(leftovers().size(), 1);
    EXPECT_EQ(leftovers()[0].info.puts.at("remark"), "changed");
}

TEST_F(DraftFileTest, HoldsWhatIsWrittenOutsideOfSteps) {
    auto draft = begun();
    w.grid().Grid().Text(5, Code, "by code");
    ASSERT_TRUE(waitUntil([&] { return content(draft->path()).contains("by code"); }));
    draft.reset();
    ASSERT_EQ(leftovers().size(), 1);
    EXPECT_EQ(leftovers()[0].info.steps, 0U);
    EXPECT_EQ(recovered(leftovers()[0]), contentOf(w.grid()));
}

TEST_F(DraftFileTest, OfTheNextDocumentTakesThePlaceOfTheOneBefore) {
    const auto draft = begun();
    key(3, Code, "new");
    const QString first = draft->path();
    draft->begin("order 7", "4");
    EXPECT_NE(draft->path(), first);
    EXPECT_EQ(files().size(), 1);
    EXPECT_EQ(look(*draft).version, "4");
    EXPECT_EQ(look(*draft).steps, 0U);
}

TEST_F(DraftFileTest, NeverTakesTheNameOfOneThatIsThere) {
    auto draft = begun();
    key(3, Code, "new");
    draft.reset();
    draft = begun();
    EXPECT_EQ(files().size(), 2);
    EXPECT_EQ(leftovers().size(), 1);
}

TEST_F(DraftFileTest, OfAnyKeyHasAName) {
    const auto draft = make();
    for (const QString& key : {QString(), QString("../../etc/passwd"), QString("a\nb\tc\\"), QString("..."),
                               QString(5000, u'长'), Rare, QString(QChar(u'\0'))}) {
        draft->begin(key, "1");
        EXPECT_EQ(QFileInfo(draft->path()).path(), place);
        EXPECT_EQ(look(*draft).key, key.toStdString());
    }
    EXPECT_EQ(files().size(), 1);
    EXPECT_TRUE(told.empty());
}

TEST_F(DraftFileTest, InUseIsNeitherListedNorRecovered) {
    const auto draft = begun();
    key(3, Code, "new");
    const DraftFile::Leftover seen{draft->path(), {}, {}};
    EXPECT_TRUE(leftovers().isEmpty());
    Window other;
    const auto before = contentOf(other.grid());
    const std::string refusal = make(*other.widget)->recover(seen, false).refusal;
    EXPECT_EQ(refusal, "草稿“" + draft->path().toStdString() + "”：正由另一个程序使用");
    EXPECT_EQ(contentOf(other.grid()), before);
    EXPECT_EQ(DraftFile::giveUp(seen).toStdString(), refusal);
    EXPECT_EQ(look(*draft).steps, 1U);
}

TEST_F(DraftFileTest, ThatTwoRecoverBelongsToTheFirst) {
    auto draft = begun();
    key(3, Code, "new");
    draft.reset();
    const auto left = leftovers().at(0);
    Window other;
    const auto first = make(*other.widget);
    EXPECT_EQ(first->recover(left, false).refusal, "");
    const auto second = make();
    EXPECT_NE(second->recover(left, false).refusal, "");
    EXPECT_EQ(second->path(), "");
    EXPECT_TRUE(leftovers().isEmpty());
}

TEST_F(DraftFileTest, ThatIsRefusedLeavesWhatIsWritten) {
    auto draft = begun();
    key(3, Code, "new");
    draft.reset();
    const auto left = leftovers().at(0);
    Window other;
    other.grid().FormatString("another|<heading");
    draft = make(*other.widget);
    draft->begin("order 8", "1");
    const QByteArray before = content(left.path);
    const auto back = draft->recover(left, false);
    EXPECT_NE(back.refusal, "");
    EXPECT_EQ(back.told(), "草稿没有恢复：" + QString::fromStdString(back.refusal));
    EXPECT_EQ(content(left.path), before);
    EXPECT_EQ(look(*draft).key, "order 8");
}

TEST_F(DraftFileTest, GivenUpIsRemoved) {
    auto draft = begun();
    key(3, Code, "new");
    draft.reset();
    EXPECT_EQ(DraftFile::giveUp(leftovers().at(0)), "");
    EXPECT_EQ(files(), QStringList());
}

TEST_F(DraftFileTest, ThatIsDamagedGivesWhatIsGoodAndIsKeptBeside) {
    auto draft = begun();
    key(3, Code, "good");
    const auto good = contentOf(w.grid());
    key(4, Code, "broken");
    key(5, Code, "behind");
    const QString path = draft->path();
    draft.reset();
    QByteArray bytes = content(path);
    bytes.replace("broken", "brOken");
    put(path, bytes);

    Window other;
    draft = make(*other.widget);
    const auto back = draft->recover(leftovers().at(0), false);
    EXPECT_EQ(contentOf(other.grid()), good);
    EXPECT_NE(back.damage, "");
    EXPECT_EQ(back.keptBeside, path + ".damaged");
    EXPECT_TRUE(back.told().endsWith("原来的文件保留为“" + back.keptBeside + "”。"))
        << back.told().toStdString();
    EXPECT_EQ(content(back.keptBeside), bytes);
    EXPECT_EQ(draft->path(), path);
    EXPECT_EQ(look(*draft).damage, "");
    draft->finish();
    EXPECT_EQ(files(), QStringList(QFileInfo(back.keptBeside).fileName()));
    EXPECT_TRUE(leftovers().isEmpty());
}

TEST_F(DraftFileTest, WhoseLastLineIsTornIsGood) {
    auto draft = begun();
    key(3, Code, "good");
    const QString path = draft->path();
    draft.reset();
    put(path, content(path) + "17 3f2a");
    EXPECT_EQ(leftovers().at(0).info.damage, "");
    EXPECT_EQ(recovered(leftovers().at(0)), contentOf(w.grid()));
}

TEST_F(DraftFileTest, ThatEndsWithinItsFirstLineGoes) {
    auto draft = make();
    draft->begin("order 7", "3");
    const QString path = draft->path();
    draft.reset();
    for (const QByteArray& part : {QByteArray("\n"), content(path).left(9), content(path).left(30)}) {
        put(path, part);
        EXPECT_TRUE(leftovers().isEmpty()) << part.toStdString();
        EXPECT_FALSE(QFile::exists(path)) << part.toStdString();
    }
}

TEST_F(DraftFileTest, ThatIsNoneIsRefusedAndNeverThrownAway) {
    ASSERT_TRUE(QDir().mkpath(place));
    const QString path = place + "/any.draft";
    put(path, "no draft at all");
    ASSERT_EQ(leftovers().size(), 1);
    EXPECT_NE(leftovers()[0].info.refusal, "");
    const auto draft = make();
    EXPECT_NE(draft->recover(leftovers()[0], false).refusal, "");
    EXPECT_EQ(DraftFile::giveUp(leftovers()[0]), "");
    EXPECT_TRUE(leftovers().isEmpty());
    EXPECT_EQ(content(path + ".damaged"), "no draft at all");
    put(path, "another one");
    EXPECT_EQ(DraftFile::giveUp(leftovers()[0]), "");
    EXPECT_EQ(content(path + ".damaged-2"), "another one");
}

TEST_F(DraftFileTest, ThatIsEmptyGoes) {
    ASSERT_TRUE(QDir().mkpath(place));
    put(place + "/any.draft", "");
    EXPECT_TRUE(leftovers().isEmpty());
    EXPECT_EQ(files(), QStringList());
}

TEST_F(DraftFileTest, IsNotFollowedThroughALink) {
    auto draft = begun();
    key(3, Code, "new");
    const QString path = draft->path();
    draft.reset();
    const QString elsewhere = folder.filePath("elsewhere");
    ASSERT_TRUE(QFile::rename(path, elsewhere));
    ASSERT_TRUE(QFile::link(elsewhere, path));
    ASSERT_EQ(leftovers().size(), 1);
    EXPECT_EQ(leftovers()[0].info.refusal, "草稿“" + path.toStdString() + "”：这是符号链接，不予使用");
    draft = make();
    EXPECT_EQ(draft->recover(leftovers()[0], false).refusal, leftovers()[0].info.refusal);
    EXPECT_TRUE(QFileInfo(path).isSymLink());
}

TEST_F(DraftFileTest, IsNotWrittenIntoAFolderThatIsALink) {
    ASSERT_TRUE(QDir().mkpath(folder.filePath("elsewhere")));
    ASSERT_TRUE(QFile::link(folder.filePath("elsewhere"), place));
    const auto draft = make();
    draft->begin("order 7", "3");
    ASSERT_TRUE(waitUntil([&] { return !told.empty(); }));
    EXPECT_EQ(told.at(0), "failed: 草稿“" + place.toStdString() + "”：这是符号链接，不予使用");
    EXPECT_TRUE(QDir(folder.filePath("elsewhere")).isEmpty());
    ASSERT_EQ(leftovers().size(), 1);
    EXPECT_EQ("failed: " + leftovers()[0].info.refusal, told.at(0));
}

TEST_F(DraftFileTest, IsNoPipeToWaitFor) {
    ASSERT_TRUE(QDir().mkpath(place));
    ASSERT_EQ(::mkfifo((place + "/any.draft").toStdString().c_str(), 0600), 0);
    ASSERT_EQ(leftovers().size(), 1);
    EXPECT_EQ(leftovers()[0].info.refusal, "草稿“" + place.toStdString() + "/any.draft”：这不是文件");
}

TEST_F(DraftFileTest, OfALaterTimeThanNowIsRecoveredLikeAnyOther) {
    auto draft = begun();
    key(3, Code, "new");
    const QString path = draft->path();
    draft.reset();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QDateTime later = QDateTime::currentDateTime().addYears(3);
    ASSERT_TRUE(file.setFileTime(later, QFileDevice::FileModificationTime));
    file.close();
    EXPECT_GT(leftovers().at(0).time, QDateTime::currentDateTime());
    EXPECT_EQ(recovered(leftovers()[0]), contentOf(w.grid()));
}

TEST_F(DraftFileTest, WritesAShortGridAtOnceThoughTheClerkTypes) {
    drafts::DraftTimes times = quick();
    times.typing = Never;
    const auto draft = make(times);
    draft->begin("order 7", "3");
    w.after->setFocus();
    QTest::keyClick(w.after, Qt::Key_A);
    Window::settle();
    EXPECT_TRUE(look(*draft).whole);
}

TEST_F(DraftFileTest, PausesWritingTheGridWhileTheClerkTypes) {
    drafts::DraftTimes times = quick();
    times.typing = Never;
    const auto draft = make(times);
    w.grid().Rows(2'000);
    draft->begin("order 7", "3");
    w.after->setFocus();
    QTest::keyClick(w.after, Qt::Key_A);
    Window::settle();
    EXPECT_FALSE(look(*draft).whole);
}

TEST_F(DraftFileTest, OffersWhatStoodInAnOpenEditor) {
    auto draft = begun();
    w.focusCell(3, Code);
    w.type("half a co");
    ASSERT_TRUE(waitUntil([&] { return content(draft->path()).contains("half a co"); }));
    draft.reset();
    w.press(Qt::Key_Escape);

    ASSERT_EQ(leftovers().size(), 1);
    EXPECT_TRUE(leftovers()[0].info.puts.empty());
    Window other;
    draft = make(*other.widget);
    draft->recover(leftovers()[0], false);
    const auto text = draft->editorText();
    ASSERT_TRUE(text);
    EXPECT_EQ(text->row, 3);
    EXPECT_EQ(text->col, Code);
    EXPECT_EQ(text->text, "half a co");
    other.grid().SetCell(3, Code, "half a co");
    EXPECT_FALSE(draft->editorText());
}

TEST_F(DraftFileTest, ForgetsAnEditorThatHasClosed) {
    for (const Qt::Key closes : {Qt::Key_Escape, Qt::Key_Return}) {
        auto draft = begun();
        w.focusCell(4, Code);
        w.type("typed");
        const auto kept = [&] { return look(*draft).puts["editor"]; };
        ASSERT_TRUE(waitUntil([&] { return !kept().empty(); }));
        w.press(closes);
        EXPECT_TRUE(waitUntil([&] { return kept().empty(); }));
        draft->finish();
    }
}

TEST_F(DraftFileTest, TakesNoPutsUnderItsOwnNames) {
    const auto draft = begun();
    EXPECT_THROW(draft->put("editor", "x"), GridError);
    EXPECT_THROW(draft->put("kxVsGrid.before", "x"), GridError);
}

TEST_F(DraftFileTest, EndsWithItsWidget) {
    auto other = std::make_unique<Window>();
    const auto draft = make(*other->widget);
    draft->begin("order 9", "1");
    other->grid().Grid().Text(1, Code, "by code");
    other.reset();
    ASSERT_EQ(leftovers().size(), 1) << "what was written last is flushed";
    draft->begin("order 10", "1");
    draft->put("remark", "x");
    EXPECT_NE(draft->recover(leftovers()[0], false).refusal, "");
    EXPECT_FALSE(draft->editorText());
    draft->finish();
    EXPECT_EQ(draft->path(), "");
    EXPECT_EQ(leftovers().size(), 1);
}

TEST_F(DraftFileTest, MayBeAChildOfItsWidget) {
    auto other = std::make_unique<Window>();
    auto* draft = make(*other->widget).release();
    draft->setParent(other->widget);
    draft->begin("order 9", "1");
    other->grid().Grid().Text(1, Code, "by code");
    other.reset();
    EXPECT_EQ(leftovers().size(), 1);
}

TEST_F(DraftFileTest, MayBeEndedByAHandlerWhileItRecovers) {
    auto draft = begun();
    key(3, Code, "new");
    const auto expected = contentOf(w.grid());
    draft.reset();
    Window other;
    draft = make(*other.widget);
    other.grid().CellChanged.connect([&](auto, auto) { draft.reset(); });
    EXPECT_EQ(draft->recover(leftovers().at(0), false).refusal, "");
    draft.reset();
    EXPECT_EQ(leftovers().size(), 1);
    EXPECT_EQ(recovered(leftovers()[0]), expected);
}

TEST_F(DraftFileTest, StandsAsItWasWhenAHandlerThrows) {
    auto draft = begun();
    key(3, Code, "new");
    draft.reset();
    const auto left = leftovers().at(0);
    const QByteArray before = content(left.path);
    Window other;
    draft = make(*other.widget);
    other.grid().Grid().Select(other.grid().Rows() - 1, Code);
    other.grid().RowColChange.connect([] { throw std::runtime_error("boom"); });
    EXPECT_THROW(draft->recover(left, false), std::runtime_error);
    EXPECT_EQ(content(left.path), before);
    EXPECT_EQ(leftovers().size(), 1);
}

TEST_F(DraftFileTest, ComesBackWithoutTellingOfEachCell) {
    auto draft = begun();
    key(3, Code, "new");
    draft.reset();
    const auto left = leftovers().at(0);
    Window other;
    draft = make(*other.widget);
    other.grid().CellChanged.connect([](auto, auto) { throw std::runtime_error("boom"); });
    EXPECT_EQ(draft->recover(left, false).refusal, "");
    EXPECT_EQ(other.text(3, Code), "new");
}

TEST_F(DraftFileTest, StandsInTheUsersOwnData) {
    const QString standard = DraftFile::standardFolder();
    EXPECT_TRUE(standard.startsWith(QDir::homePath())) << standard.toStdString();
    EXPECT_TRUE(standard.endsWith("/drafts"));
}
}  // namespace kxVsGrid::qt::testing
