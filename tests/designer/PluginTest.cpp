// The plugin as Qt Designer sees it.
#include <gtest/gtest.h>

#include <QBuffer>
#include <QPluginLoader>
#include <QUiLoader>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include "designer/Workbench.h"
#include "kxVsGrid/MemoryBag.h"
#include "kxVsGrid/StoredKeys.h"
#include "kxVsGrid/headless/Desk.h"
#include "qt/text/Encoding.h"

namespace kxVsGrid::qt::testing {
namespace {

QDesignerCustomWidgetInterface& plugin() {
    for (QObject* instance : QPluginLoader::staticInstances())
        if (auto* found = qobject_cast<QDesignerCustomWidgetInterface*>(instance)) return *found;
    throw std::logic_error("there is no plugin");
}

/// A program's loader of forms.
class Loader : public QUiLoader {
  public:
    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override {
        if (className != plugin().name()) return QUiLoader::createWidget(className, parent, name);
        auto* widget = new kxGridWidget(parent);
        widget->setObjectName(name);
        return widget;
    }
    std::unique_ptr<QWidget> loaded(const QString& text) {
        QByteArray bytes = text.toUtf8();
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        return std::unique_ptr<QWidget>(load(&buffer));
    }
};

TEST(DesignerPlugin, IsTheWidgetItself) {
    EXPECT_EQ(plugin().name(), QStringLiteral("kxVsGrid::qt::kxGridWidget"));
    EXPECT_EQ(plugin().includeFile(), QStringLiteral("kxVsGrid/qt/kxGridWidget.h"));
    EXPECT_FALSE(plugin().isContainer());
    EXPECT_FALSE(plugin().icon().pixmap(32, 32).isNull());
}

TEST(DesignerPlugin, DescribesADroppedGridUnderEveryStoredKey) {
    const StoredTexts stored = storedTexts(plugin().domXml());
    for (const StoredKey& key : writtenGridKeys())
        EXPECT_TRUE(stored.count(toQt(key.written))) << key.written;
    ASSERT_TRUE(stored.count(QStringLiteral("Cols")));
    const int columns = stored.at(QStringLiteral("Cols")).mid(7).toInt();
    EXPECT_EQ(columns, stored.at(QStringLiteral("FormatString")).count(u'|') + 1) << "each has a heading";
    for (int col = 0; col < columns; ++col)
        for (const StoredKey& key : columnKeys())
            EXPECT_TRUE(stored.count(toQt(columnKey(col, key.written)))) << columnKey(col, key.written);
    EXPECT_EQ(stored.size(), writtenGridKeys().size() + columns * columnKeys().size());
}

TEST(DesignerPlugin, DescribesTextsAsByteStringsThatNoChangeOfLanguageSetsAgain) {
    const StoredTexts stored = storedTexts(plugin().domXml());
    EXPECT_EQ(stored.at(QStringLiteral("SetVsControl2")), QStringLiteral("cstring:品名"));
    EXPECT_TRUE(stored.at(QStringLiteral("FormatString")).startsWith(QStringLiteral("cstring:行号|")));
}

TEST(DesignerPlugin, DescribesSettingsThatAProgramLoadsAsTheyStand) {
    const auto form = Loader().loaded(formAround(plugin().domXml()));
    auto* widget = form->findChild<kxGridWidget*>();
    ASSERT_NE(widget, nullptr);
    EXPECT_FALSE(widget->grid().ReDraw()) << "the preview's ReDraw is none of the program's";
    MemoryBag loaded;
    widget->grid().WriteProperties(loaded);
    const StoredTexts stored = storedTexts(plugin().domXml());
    EXPECT_EQ(loaded.size(), stored.size());
    EXPECT_EQ(widget->grid().VsCtrl(3)->iType(), flexDTDouble);
    EXPECT_EQ(widget->grid().VsCtrl(2)->sName(), "品名");
    EXPECT_TRUE(widget->grid().VsCtrl(1)->b是否提供帮助());
    EXPECT_TRUE(widget->grid().SumRow());
}

TEST(DesignerPlugin, GivesAFormEveryStoredKeyOfAGridThatIsDroppedOnIt) {
    const Workbench bench(formAround(plugin().domXml()));
    EXPECT_EQ(bench.stored(), storedTexts(plugin().domXml()));
    EXPECT_TRUE(bench.grid().ReDraw());
    EXPECT_EQ(bench.grid().ReadCell(0, 2, true), "品名");
}
}  // namespace
}  // namespace kxVsGrid::qt::testing
