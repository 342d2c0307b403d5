// Settings in QSettings: with their exact types, in any group, and told when they could not be kept.
#include "kxVsGrid/qt/SettingsBag.h"

#include <QTemporaryDir>

#include "kit/KeptFiles.h"
#include "kxVsGrid/headless/BagRules.h"
#include "qt/Boxes.h"
#include "qt/Child.h"
#include "qt/Settings.h"
#include "qt/Window.h"

namespace kxVsGrid::qt::testing {
namespace {

class SettingsBagTest : public kit::KeptFiles {
  protected:
    QString path = folder.filePath("user.ini");

    static std::string savingTo(const QString& file) {
        QSettings settings(file, QSettings::IniFormat);
        SettingsBag bag(settings);
        bag.Write("Rows", std::int32_t{7});
        return failure([&] { bag.sync(); });
    }
};

void expectNames(const std::string& message, const QString& file) {
    EXPECT_TRUE(message.starts_with(file.toStdString() + ": ")) << message;
}

struct Store : headless::BagStore {
    QTemporaryDir folder;
    QString group;
    std::unique_ptr<QSettings> settings;

    explicit Store(const QString& place) : group(place) {}
    void open() {
        settings.reset();
        settings = std::make_unique<QSettings>(folder.filePath("a.ini"), QSettings::IniFormat);
        if (!group.isEmpty()) settings->beginGroup(group);
    }
    std::unique_ptr<PropertyBag> fresh() override {
        open();
        settings->remove("");
        return std::make_unique<SettingsBag>(*settings);
    }
    std::unique_ptr<PropertyBag> reopened(std::unique_ptr<PropertyBag> bag) override {
        static_cast<SettingsBag&>(*bag).sync();
        bag.reset();
        open();
        return std::make_unique<SettingsBag>(*settings);
    }
};
}  // namespace

TEST_F(SettingsBagTest, KeepsTheRulesOfBags) {
    for (const char* group : {"", "order/lines", "订单"}) {
        Store store(group);
        EXPECT_EQ(headless::brokenBagRules(store), std::vector<std::string>{}) << group;
    }
}

TEST_F(SettingsBagTest, TellsApartNamesThatQSettingsWouldNot) {
    const std::string names[] = {"", "%", "a/b", "a\\b", "a%2Fb", "a", "General", "\xFF", "\xFE", "\n"};
    for (const bool again : {false, true}) {
        QSettings settings(path, QSettings::IniFormat);
        SettingsBag bag(settings);
        if (!again)
            for (const std::string& name : names) bag.Write(name, "value of " + name);
        bag.sync();
        for (const std::string& name : names)
            EXPECT_EQ(bag.Read(name, ""), Variant("value of " + name)) << name << " " << again;
    }
}

TEST_F(SettingsBagTest, WritesTypesByName) {
    QSettings settings(path, QSettings::IniFormat);
    settings.beginGroup("lines");
    SettingsBag bag(settings);
    bag.Write("Rows", std::int32_t{12});
    bag.Write("SetVsControl3b是否提供帮助", true, "0");
    bag.sync();
    EXPECT_EQ(settings.value("Rows").toString(), "Int32 12");
    EXPECT_EQ(settings.value("SetVsControl3b是否提供帮助").toString(), "Boolean True");
}

TEST_F(SettingsBagTest, LeavesOutWhatEqualsItsDefaultInTypeAndValue) {
    QSettings settings(path, QSettings::IniFormat);
    SettingsBag bag(settings);
    bag.Write("SetVsControl1iType", std::int32_t{1}, std::int32_t{1});
    bag.Write("SetVsControl1iLimitLength", std::int16_t{0}, "0");
    bag.sync();
    EXPECT_EQ(settings.allKeys(), QStringList{"SetVsControl1iLimitLength"});
    bag.Write("SetVsControl1iLimitLength", "0", "0");
    bag.sync();
    EXPECT_EQ(settings.allKeys(), QStringList{});
}

TEST_F(SettingsBagTest, ChangesNothingUntilItIsSynced) {
    ASSERT_EQ(savingTo(path), "nothing");
    const QByteArray before = content(path);
    {
        QSettings settings(path, QSettings::IniFormat);
        SettingsBag bag(settings);
        bag.Write("Rows", std::int32_t{9});
        EXPECT_EQ(bag.Read("Rows", Variant()), std::int32_t{9});
    }
    EXPECT_EQ(content(path), before);
}

TEST_F(SettingsBagTest, MakesItsFolder) {
    const QString place = folder.filePath("new/folder/user.ini");
    EXPECT_EQ(savingTo(place), "nothing");
    EXPECT_EQ(QDir(folder.filePath("new/folder")).entryList(QDir::Files), QStringList{"user.ini"});
}

TEST_F(SettingsBagTest, RefusesAnArray) {
    QSettings settings(path, QSettings::IniFormat);
    SettingsBag bag(settings);
    EXPECT_THROW(bag.Write("Rows", Variant(Table(0, 2))), BagError);
    EXPECT_TRUE(settings.allKeys().isEmpty());
}

TEST_F(SettingsBagTest, SavedByOneProcessIsLoadedByAnother) {
    MemoryBag wanted = orderSettings();
    Window w;
    w.grid().ReadProperties(wanted);
    const std::string saved = inChild([&] {
        QSettings settings(path, QSettings::IniFormat);
        SettingsBag bag(settings);
        w.grid().WriteProperties(bag);
        bag.sync();
        return "saved";
    });
    EXPECT_EQ(saved, "saved");
    QSettings settings(path, QSettings::IniFormat);
    SettingsBag bag(settings);
    kxGridWidget other;
    other.grid().ReadProperties(bag);
    EXPECT_EQ(settingsOf(other.grid()), settingsOf(w.grid()));
}

TEST_F(SettingsBagTest, TellsAValueThatSomebodyElseWrote) {
    for (const char* value : {"12", "Int32 many", "Text \"open", "a, list", "@ByteArray(x)"}) {
        put(path, QByteArray("[General]\nRows=") + value + "\n");
        QSettings settings(path, QSettings::IniFormat);
        SettingsBag bag(settings);
        const std::string told = failure([&] { bag.Read("Rows", std::int32_t{5}); });
        EXPECT_TRUE(told.starts_with(path.toStdString() + ", Rows: ")) << told;
        QFile::remove(path);
    }
}

TEST_F(SettingsBagTest, TellsSettingsThatCannotBeRead) {
    put(path, "[General\nno settings at all");
    Boxes boxes;
    for (const QString& place : {path, folder.path()}) {
        QSettings settings(place, QSettings::IniFormat);
        SettingsBag bag(settings);
        expectNames(failure([&] { bag.Read("Rows", std::int32_t{5}); }), place);
        kxGridWidget widget;
        widget.grid().ReadProperties(bag);
    }
    ASSERT_EQ(boxes.count(), 2U);
    EXPECT_TRUE(boxes.texts()[0].startsWith("ReadProperError:" + path)) << boxes.texts()[0].toStdString();
    kxGridWidget().grid();  // a newly placed control lets settings be written again
}

TEST_F(SettingsBagTest, TellsWhereItCannotSave) {
    put(folder.filePath("file"), "kept");
    for (const QString& place : {folder.filePath("file/a.ini"), QString("/proc/none/a.ini")})
        expectNames(savingTo(place), place);
    EXPECT_EQ(content(folder.filePath("file")), "kept");
}

TEST_F(SettingsBagTest, OnAFullDiskTellsItLeavesTheOldSettingsAndSavesWhenThereIsRoom) {
    ASSERT_EQ(savingTo(path), "nothing");
    const QByteArray before = content(path);
    const std::string told = inChild([&] {
        QSettings settings(path, QSettings::IniFormat);
        SettingsBag bag(settings);
        bag.Write("FormatString", std::string(100'000, 'x'));
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit full{4096, RLIM_INFINITY};
        const rlimit room{RLIM_INFINITY, RLIM_INFINITY};
        ::setrlimit(RLIMIT_FSIZE, &full);
        std::string answer = failure([&] { bag.sync(); });
        ::setrlimit(RLIMIT_FSIZE, &room);
        if (content(path) != before) answer += " and the old settings are lost";
        return answer + ", then " + failure([&] { bag.sync(); });
    });
    expectNames(told, path);
    EXPECT_TRUE(told.ends_with(", then nothing")) << told;
    EXPECT_EQ(told.find("lost"), std::string::npos) << told;
    EXPECT_NE(told.find("File too large"), std::string::npos) << told;
    QSettings settings(path, QSettings::IniFormat);
    EXPECT_EQ(SettingsBag(settings).Read("FormatString", "").toText().size(), 100'000U);
}
}  // namespace kxVsGrid::qt::testing
