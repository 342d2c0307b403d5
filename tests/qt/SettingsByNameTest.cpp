// The stored settings as properties of the widget: collected, read at the first look, live afterwards.
#include <QMetaProperty>
#include <QSignalSpy>
#include <algorithm>
#include <memory>
#include <set>

#include "kxVsGrid/StoredKeys.h"
#include "qt/Boxes.h"
#include "qt/Settings.h"
#include "qt/Window.h"
#include "qt/settings/PropertyValues.h"

namespace kxVsGrid::qt::testing {
namespace {

/// A widget that nobody has looked at.
class Unseen {
  public:
    std::unique_ptr<kxGridWidget> widget = std::make_unique<kxGridWidget>();

    kxGrid& grid() { return widget->grid(); }
    void set(const char* name, const QVariant& value) { widget->setProperty(name, value); }
    void set(const MemoryBag& bag) {
        for (const MemoryBag::Entry& entry : bag.entries()) set(entry.name.c_str(), toProperty(entry.value));
    }
};

std::set<std::string> gridKeyNames() {
    std::set<std::string> names;
    for (const StoredKey& key : gridKeys()) names.emplace(key.written);
    return names;
}
}  // namespace

TEST(SettingsByName, AreAPropertyForEachStoredKeyOfTheGridAndNoMore) {
    std::set<std::string> names;
    const QMetaObject& meta = kxGridWidget::staticMetaObject;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) names.insert(meta.property(i).name());
    EXPECT_EQ(names, gridKeyNames());
}

TEST(SettingsByName, HaveTheTypesThatAreStored) {
    for (const StoredKey& key : gridKeys()) {
        const std::string name(key.written);
        const int index = kxGridWidget::staticMetaObject.indexOfProperty(name.c_str());
        const int type = kxGridWidget::staticMetaObject.property(index).typeId();
        const int stored = key.type == Variant::Type::Boolean ? QMetaType::Bool
                           : key.type == Variant::Type::Int32 ? QMetaType::Int
                                                              : QMetaType::QByteArray;
        EXPECT_EQ(type, stored) << name;
    }
}

TEST(SettingsByName, WhereNoneIsSetMakeANewlyPlacedControl) {
    Unseen u;
    u.set("objectName", "lines");
    u.set("hosts own", 5);
    EXPECT_TRUE(u.grid().Editable());
    EXPECT_EQ(u.grid().Cols(), 10);
    EXPECT_EQ(u.grid().VsCtrl(1)->iType(), flexDTString);
}

TEST(SettingsByName, WhereOneIsSetMakeALoadedControl) {
    Unseen u;
    u.set("SetVsControl2", QByteArray("数量"));
    EXPECT_FALSE(u.grid().Editable());
    EXPECT_EQ(u.grid().VsCtrl(2)->sName(), "数量");
    EXPECT_EQ(u.grid().VsCtrl(1)->sName(), "-1");
    MemoryBag bag;
    bag.Write("SetVsControl2", "数量");
    EXPECT_EQ(settingsOf(u.grid()), loadedFrom(bag));
}

TEST(SettingsByName, AreReadInTheControlsOrderWhateverTheirOwn) {
    const MemoryBag bag = orderSettings();
    const std::string expected = loadedFrom(bag);
    std::vector<MemoryBag::Entry> entries = bag.entries();
    for (const bool reversed : {false, true}) {
        if (reversed) std::ranges::reverse(entries);
        Unseen u;
        for (const MemoryBag::Entry& entry : entries) u.set(entry.name.c_str(), toProperty(entry.value));
        EXPECT_EQ(settingsOf(u.grid()), expected) << "reversed: " << reversed;
    }
}

TEST(SettingsByName, AreTakenAsQStringsToo) {
    Unseen u;
    u.set("FormatString", QString("行号|货号"));
    u.set("SetVsControl1", QString("货号"));
    u.set("SetVsControl1iType", QString("5"));
    u.set("SetVsControl1bIsEditable", QString("False"));
    EXPECT_EQ(u.grid().FormatString(), "行号|货号");
    EXPECT_EQ(u.grid().VsCtrl(1)->sName(), "货号");
    EXPECT_EQ(u.grid().VsCtrl(1)->iType(), 5);
    EXPECT_FALSE(u.grid().VsCtrl(1)->bIsEditable());
}

TEST(SettingsByName, KeepBytesThatAreNoText) {
    Unseen u;
    const QByteArray bytes("\xFF\x80 \0 end", 8);
    u.set("SetVsControl1", bytes);
    EXPECT_EQ(u.grid().VsCtrl(1)->sName(), bytes.toStdString());
}

TEST(SettingsByName, CanBeTakenBackBeforeTheFirstLook) {
    Unseen u;
    u.set("SetVsControl1iType", "nonsense");
    u.set("SetVsControl1iType", QVariant());
    EXPECT_TRUE(u.grid().Editable());
}

TEST(SettingsByName, AreReadAtTheFirstLookOfAnyKind) {
    const struct {
        const char* name;
        void (*look)(kxGridWidget&);
    } looks[] = {{"grid()", [](kxGridWidget& w) { w.grid(); }},
                 {"grid() const", [](kxGridWidget& w) { std::as_const(w).grid(); }},
                 {"show", [](kxGridWidget& w) { w.show(); }},
                 {"grab", [](kxGridWidget& w) { w.grab(); }},
                 {"mouse", [](kxGridWidget& w) {
                      QMouseEvent move(QEvent::MouseMove, QPointF(5, 5), QPointF(5, 5), Qt::NoButton,
                                       Qt::NoButton, Qt::NoModifier);
                      QApplication::sendEvent(&w, &move);
                  }}};
    for (const auto& look : looks) {
        Unseen u;
        u.set("Rows", 3);
        look.look(*u.widget);
        EXPECT_EQ(u.widget->Rows(), 3) << look.name;
        u.set("Rows", 4);  // the live control keeps five data rows, a read would not
        EXPECT_EQ(u.widget->Rows(), 6) << look.name;
    }
}

TEST(SettingsByName, AreNotReadByWhatIsNoLook) {
    Unseen u;
    u.set("Rows", 3);
    u.widget->resize(300, 200);
    u.widget->setFont(QFont("WenQuanYi Micro Hei", 20));
    u.widget->setEnabled(false);
    u.widget->setPalette(QPalette(Qt::darkGray));
    u.widget->sizeHint();
    u.widget->ensurePolished();
    QEvent language(QEvent::LanguageChange);
    QApplication::sendEvent(u.widget.get(), &language);
    Window::settle();
    for (const std::string& name : gridKeyNames()) u.widget->property(name.c_str());
    u.set("Rows", 4);
    EXPECT_EQ(u.grid().Rows(), 4);
}

TEST(SettingsByName, TellBeforeTheFirstLookWhatItIsGoingToGive) {
    MemoryBag one;
    one.Write("FixedRows", std::int32_t{2});
    for (const MemoryBag& bag : {MemoryBag(), one, orderSettings()}) {
        Unseen u;
        u.set(bag);
        std::vector<QVariant> before;
        for (const std::string& name : gridKeyNames()) before.push_back(u.widget->property(name.c_str()));
        u.grid();
        std::size_t i = 0;
        for (const std::string& name : gridKeyNames())
            EXPECT_EQ(before[i++], u.widget->property(name.c_str())) << name << " of " << bag.size();
    }
}

TEST(SettingsByName, OfTheGridAreLiveAfterTheFirstLook) {
    Unseen u;
    u.grid();
    QSignalSpy changed(u.widget.get(), &kxGridWidget::settingChanged);
    u.set("BackColor", static_cast<int>(0x80000018));
    EXPECT_EQ(u.grid().BackColor(), 0x80000018);
    EXPECT_EQ(changed.size(), 1);
    u.set("ShowZero", true);
    EXPECT_TRUE(u.grid().bIsShowZero());
    u.set("ForeColorFixe", 0x112233);
    EXPECT_EQ(u.grid().ForeColorFixed(), 0x112233U);
    u.grid().FormatString("行号|品名");
    EXPECT_EQ(u.widget->property("FormatString").toByteArray(), "行号|品名");
    u.grid().Cols(3);
    EXPECT_EQ(u.widget->property("Cols").toInt(), 3);
}

TEST(SettingsByName, OfAColumnGoIntoItsDefinitionAfterTheFirstLook) {
    Unseen u;
    u.grid();
    const auto column = u.grid().VsCtrl(3);
    u.set("SetVsControl3b是否提供帮助", true);
    u.set("SetVsControl3", QByteArray("单价"));
    u.set("SetVsControl3iLimitLength", 12);
    u.set("SetVsControl3bIsPrint", false);
    EXPECT_TRUE(column->b是否提供帮助());
    EXPECT_EQ(column->sName(), "单价");
    EXPECT_EQ(column->iLimitLength(), 12);
    EXPECT_FALSE(column->bIsPrint());
    u.set("SetVsControl10", QByteArray("beyond"));
    EXPECT_NE(u.grid().VsCtrl(10)->sName(), "beyond");
}

TEST(SettingsByName, ThatTheLiveControlRefusesAreReportedAndChangeNothing) {
    Unseen u;
    u.grid();
    QSignalSpy failed(u.widget.get(), &kxGridWidget::handlerFailed);
    u.set("Cols", 2'000'000'000);
    u.set("SetVsControl1iType", QByteArray("text"));
    u.set("SetVsControl1iLimitLength", 70000);
    u.set("SetVsControl1bIsEditable", QVariant::fromValue(QFont()));
    EXPECT_EQ(failed.size(), 4);
    EXPECT_EQ(u.grid().Cols(), 10);
    EXPECT_EQ(u.grid().VsCtrl(1)->iType(), flexDTString);
}

TEST(SettingsByName, ThatAreRefusedMayEndTheWidget) {
    for (const char* name : {"Cols", "SetVsControl1iLimitLength"}) {
        Unseen u;
        u.grid();
        QObject::connect(u.widget.get(), &kxGridWidget::handlerFailed, u.widget.get(),
                         [&u] { u.widget.reset(); });
        u.set(name, 2'000'000'000);
        EXPECT_EQ(u.widget, nullptr) << name;
    }
}

TEST(SettingsByName, ThatCannotBeReadAreToldInABoxWhenTheEventLoopRuns) {
    Boxes boxes;
    Window w;
    auto* broken = new kxGridWidget(&w.window);
    broken->setProperty("Rows", 4);
    broken->setProperty("SetVsControl1iType", QByteArray("no number"));
    broken->setGeometry(0, 0, 200, 100);
    broken->show();
    broken->grab();
    EXPECT_EQ(boxes.count(), 0U);
    Window::settle();
    ASSERT_EQ(boxes.count(), 1U);
    EXPECT_EQ(boxes.seen[0].title, "错误:");
    EXPECT_TRUE(boxes.seen[0].text.startsWith("ReadProperError:")) << boxes.seen[0].text.toStdString();
    EXPECT_EQ(boxes.seen[0].icon, QMessageBox::Critical);
    EXPECT_EQ(broken->Rows(), 4);
    broken->grid().SetCell(1, 1, "goes on");
    EXPECT_EQ(broken->grid().Grid().Text(1, 1), "goes on");
    Window::settle();
    EXPECT_EQ(boxes.count(), 1U);
    kxGridWidget().grid();  // a newly placed control lets settings be written again
}

TEST(SettingsByName, ThatCannotBeReadInAWidgetThatIsGoneAreToldToNobody) {
    Boxes boxes;
    {
        Unseen u;
        u.set("Cols", -1);
        u.grid();
    }
    Window::settle();
    EXPECT_EQ(boxes.count(), 0U);
    kxGridWidget().grid();
}

TEST(SettingsByName, OfAnySizeAndTypeAreAnsweredByTheControlsLimits) {
    for (const QVariant& cols : {QVariant(-1), QVariant(2'000'000'000), QVariant(0)}) {
        Boxes boxes;
        Unseen u;
        u.set("Cols", cols);
        u.set("SetVsControl2000000000", QByteArray("far"));
        u.set("SetVsControl1", QByteArray(10'000'000, 'x'));
        u.grid();
        Window::settle();
        EXPECT_LE(boxes.count(), 1U);
        EXPECT_LE(u.grid().Cols(), 10);
        kxGridWidget().grid();
    }
}
}  // namespace kxVsGrid::qt::testing
