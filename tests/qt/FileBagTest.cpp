// Settings in a file: kept, opened by another process, and safe from what can go wrong with files.
#include "kxVsGrid/qt/FileBag.h"

#include <QTemporaryDir>

#include "kit/KeptFiles.h"
#include "kxVsGrid/headless/BagRules.h"
#include "qt/Boxes.h"
#include "qt/Child.h"
#include "qt/Settings.h"
#include "qt/Window.h"

namespace kxVsGrid::qt::testing {
namespace {

class FileBagTest : public kit::KeptFiles {
  protected:
    QString path = folder.filePath("设置.settings");

    /// "nothing" when it could be saved.
    static std::string savingTo(const QString& file) {
        return failure([&] {
            FileBag bag(file);
            bag.Write("Rows", std::int32_t{7});
            bag.save();
        });
    }
};

void expectNames(const std::string& message, const QString& file) {
    EXPECT_TRUE(message.starts_with(file.toStdString() + ": ")) << message;
    EXPECT_GT(message.size(), file.toStdString().size() + 5) << message << " has no reason";
}

struct Store : headless::BagStore {
    QTemporaryDir folder;
    QString path = folder.filePath("a.settings");

    std::unique_ptr<PropertyBag> fresh() override {
        QFile::remove(path);
        return std::make_unique<FileBag>(path);
    }
    std::unique_ptr<PropertyBag> reopened(std::unique_ptr<PropertyBag> bag) override {
        static_cast<FileBag&>(*bag).save();
        bag.reset();
        return std::make_unique<FileBag>(path);
    }
};
}  // namespace

TEST_F(FileBagTest, KeepsTheRulesOfBags) {
    Store store;
    EXPECT_EQ(headless::brokenBagRules(store), std::vector<std::string>{});
}

TEST_F(FileBagTest, WithoutItsFileIsEmpty) {
    FileBag bag(path);
    EXPECT_EQ(bag.Read("Rows", std::int32_t{6}), std::int32_t{6});
    EXPECT_EQ(bag.damage(), "");
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(FileBagTest, ChangesNothingUntilItIsSaved) {
    put(path, "kxVsGrid settings 1\nRows = Int32 5\nend\n");
    const QByteArray before = content(path);
    {
        FileBag bag(path);
        bag.Write("Rows", std::int32_t{9});
    }
    EXPECT_EQ(content(path), before);
}

TEST_F(FileBagTest, IsReadable) {
    FileBag bag(path);
    bag.Write("Cols", std::int32_t{5});
    bag.Write("SetVsControl1", "货号", "-1");
    bag.Write("SetVsControl1bIsEditable", true, true);
    bag.save();
    EXPECT_EQ(content(path), "kxVsGrid settings 1\nCols = Int32 5\nSetVsControl1 = Text \"货号\"\nend\n");
}

TEST_F(FileBagTest, SavedByOneProcessIsLoadedByAnother) {
    MemoryBag settings = orderSettings();
    Window w;
    w.grid().ReadProperties(settings);
    const std::string saved = inChild([&] {
        FileBag bag(path);
        w.grid().WriteProperties(bag);
        bag.save();
        return "saved";
    });
    EXPECT_EQ(saved, "saved");
    FileBag bag(path);
    kxGridWidget other;
    other.grid().ReadProperties(bag);
    EXPECT_EQ(settingsOf(other.grid()), settingsOf(w.grid()));
    EXPECT_EQ(other.grid().VsCtrl(1)->s错误提示信息(), "第 1 列\n有误");
}

TEST_F(FileBagTest, TellsWhereItCannotSave) {
    put(folder.filePath("file"), "kept");
    for (const QString& place : {folder.filePath("no such folder/a.settings"),
                                 folder.filePath("file/a.settings"), QString("/proc/a.settings"), QString()})
        expectNames(savingTo(place), place);
    EXPECT_EQ(content(folder.filePath("file")), "kept");
}

TEST_F(FileBagTest, TellsWhatItCannotRead) {
    expectNames(failure([&] { FileBag bag(folder.path()); }), folder.path());
    expectNames(failure([&] { FileBag bag("/dev/zero"); }), "/dev/zero");
}

TEST_F(FileBagTest, IsNotReadBeyondTheLongestFile) {
    put(path, "");
    ASSERT_TRUE(QFile::resize(path, FileBag::LongestFile + 1));
    expectNames(failure([&] { FileBag bag(path); }), path);
}

TEST_F(FileBagTest, OnAFullDiskTellsItAndLeavesTheOldSettings) {
    FileBag bag(path);
    bag.Write("Rows", std::int32_t{5});
    bag.save();
    const QByteArray before = content(path);
    const std::string told = inChild([&] {
        fillDisk(4096);
        bag.Write("FormatString", std::string(100'000, 'x'));
        return failure([&] { bag.save(); });
    });
    EXPECT_EQ(told, path.toStdString() + ": File too large");
    EXPECT_EQ(content(path), before);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1) << "something was left behind";
    EXPECT_EQ(FileBag(path).Read("Rows", Variant()), std::int32_t{5});
}

TEST_F(FileBagTest, OnADiskThatHasRoomAgainSavesAfterAll) {
    const std::string told = inChild([&] {
        FileBag bag(path);
        bag.Write("FormatString", std::string(100'000, 'x'));
        const rlimit room{4096, RLIM_INFINITY};
        const rlimit more{RLIM_INFINITY, RLIM_INFINITY};
        std::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &room);
        const std::string first = failure([&] { bag.save(); });
        ::setrlimit(RLIMIT_FSIZE, &more);
        return (first == "nothing" ? "no failure, " : "failure, ") + failure([&] { bag.save(); });
    });
    EXPECT_EQ(told, "failure, nothing");
    EXPECT_EQ(FileBag(path).Read("FormatString", "").toText().size(), 100'000U);
}

TEST_F(FileBagTest, ThatIsDamagedIsToldInTheBoxAndNotOverwritten) {
    put(path, "kxVsGrid settings 1\nRows = Int32 12\nCols = Int3");
    const QByteArray before = content(path);
    FileBag bag(path);
    EXPECT_TRUE(bag.damage().starts_with(path.toStdString() + ", line 3: ")) << bag.damage();
    {
        Boxes boxes;
        Window w;
        w.grid().ReadProperties(bag);
        ASSERT_EQ(boxes.count(), 1U);
        EXPECT_EQ(boxes.seen[0].text.toStdString(), "ReadProperError:" + bag.damage());
    }
    bag.Write("Cols", std::int32_t{3});
    EXPECT_EQ(failure([&] { bag.save(); }), bag.damage());
    EXPECT_EQ(content(path), before);
    const std::string damage = bag.damage();
    bag.clear();
    EXPECT_EQ(failure([&] { bag.save(); }), damage) << "nothing was written since";
    EXPECT_EQ(content(path), before);
    bag.Write("Cols", std::int32_t{3});
    bag.save();
    EXPECT_EQ(content(path), "kxVsGrid settings 1\nCols = Int32 3\nend\n");
    kxGridWidget().grid();  // a newly placed control lets settings be written again
}

TEST_F(FileBagTest, ThatIsCutOffAnywhereKeepsWhatStandsBeforeAndTellsTheRest) {
    Window w;
    MemoryBag settings = orderSettings();
    w.grid().ReadProperties(settings);
    FileBag whole(path);
    w.grid().WriteProperties(whole);
    whole.save();
    const QByteArray text = content(path);
    for (qsizetype size = text.size() - 5; size > 0; size -= 97) {
        put(path, text.left(size));
        EXPECT_NE(FileBag(path).damage(), "") << size;
    }
}
}  // namespace kxVsGrid::qt::testing
