// Forms that carry the settings: compiled by uic, and loaded at run time.
#include <QBuffer>
#include <QUiLoader>
#include <QXmlStreamWriter>
#include <algorithm>
#include <memory>

#include "kxVsGrid/StoredKeys.h"
#include "qt/Settings.h"
#include "qt/Window.h"
#include "qt/settings/PropertyValues.h"
#include "ui_OrderLines.h"

namespace kxVsGrid::qt::testing {
namespace {

/// What a program does that loads forms without a designer's plugin.
class Loader : public QUiLoader {
  public:
    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override {
        if (className != QLatin1String(kxGridWidget::staticMetaObject.className()))
            return QUiLoader::createWidget(className, parent, name);
        auto* widget = new kxGridWidget(parent);
        widget->setObjectName(name);
        return widget;
    }
};

/// A loaded form and the grid in it.
struct Loaded {
    explicit Loaded(QIODevice& ui) : form(Loader().load(&ui)) {
        if (form == nullptr) throw std::runtime_error("the form does not load");
        lines = form->findChild<kxGridWidget*>("lines");
        if (lines == nullptr) lines = qobject_cast<kxGridWidget*>(form.get());
        if (lines == nullptr) throw std::runtime_error("the form has no grid");
    }

    std::unique_ptr<QWidget> form;
    kxGridWidget* lines = nullptr;
};

std::unique_ptr<QFile> orderLines() {
    auto file = std::make_unique<QFile>(QStringLiteral(KX_FORMS "/OrderLines.ui"));
    if (!file->open(QIODevice::ReadOnly)) throw std::runtime_error("OrderLines.ui is missing");
    return file;
}

struct Compiled {
    QWidget form;
    Ui::OrderLines ui;

    Compiled() { ui.setupUi(&form); }
};

/// A form of nothing but a grid with these settings, as a designer would write them.
QByteArray formOf(const std::vector<MemoryBag::Entry>& settings) {
    QByteArray text;
    QXmlStreamWriter xml(&text);
    xml.writeStartElement("ui");
    xml.writeAttribute("version", "4.0");
    xml.writeStartElement("widget");
    xml.writeAttribute("class", "kxVsGrid::qt::kxGridWidget");
    xml.writeAttribute("name", "lines");
    for (const MemoryBag::Entry& entry : settings) {
        xml.writeStartElement("property");
        xml.writeAttribute("name", QString::fromStdString(entry.name));
        const Variant& value = entry.value;
        if (value.type() == Variant::Type::Text)
            xml.writeTextElement("cstring", QString::fromStdString(value.toText()));
        else if (value.type() == Variant::Type::Boolean)
            xml.writeTextElement("bool", value.toBoolean() ? "true" : "false");
        else
            xml.writeTextElement("number", QString::number(value.toInt32()));
        xml.writeEndElement();
    }
    xml.writeEndDocument();
    return text;
}
}  // namespace

TEST(Form, OfTheTestsCarriesEveryStoredKeyByName) {
    const QByteArray text = orderLines()->readAll();
    std::vector<std::string> names;
    for (const StoredKey& key : gridKeys()) names.emplace_back(key.written);
    for (std::int32_t col = 0; col < 4; ++col)
        for (const StoredKey& key : columnKeys()) names.push_back(columnKey(col, key.written));
    for (const std::string& name : names)
        EXPECT_TRUE(text.contains("<property name=\"" + QByteArray::fromStdString(name) + "\"")) << name;
}

TEST(Form, CompiledGivesExactlyItsSettings) {
    Compiled form;
    EXPECT_EQ(settingsOf(form.ui.lines->grid()), loadedFrom(orderSettings()));
}

TEST(Form, LoadedGivesExactlyItsSettings) {
    const auto ui = orderLines();
    Loaded form(*ui);
    EXPECT_EQ(settingsOf(form.lines->grid()), loadedFrom(orderSettings()));
}

TEST(Form, GivesTheSameSettingsInAnyOrderOfItsProperties) {
    const std::string expected = loadedFrom(orderSettings());
    std::vector<MemoryBag::Entry> entries = orderSettings().entries();
    for (int turn = 0; turn < 10; ++turn) {
        std::ranges::rotate(entries, entries.begin() + 17);
        std::ranges::reverse(entries.begin(), entries.begin() + 40);
        QByteArray text = formOf(entries);
        QBuffer ui(&text);
        Loaded form(ui);
        EXPECT_EQ(settingsOf(form.lines->grid()), expected) << turn;
    }
}

TEST(Form, WithoutStoredSettingsPlacesANewControl) {
    QByteArray text = formOf({});
    QBuffer ui(&text);
    Loaded form(ui);
    EXPECT_TRUE(form.lines->grid().Editable());
    EXPECT_EQ(form.lines->grid().VsCtrl(1)->sName(), "");
}

TEST(Form, IsNotSetAgainWhenTheLanguageChanges) {
    Compiled compiled;
    const auto ui = orderLines();
    Loaded loaded(*ui);
    const auto check = [](QWidget& form, kxGridWidget& lines, auto retranslate) {
        form.show();
        lines.grid().FormatString("行号|<编码  |<名称  |<数量  ");
        lines.grid().Rows(40);
        lines.grid().VsCtrl(1)->s错误提示信息("其他");
        lines.grid().SetCell(3, 1, "A001");
        const std::string before = settingsOf(lines.grid());
        retranslate();
        QEvent language(QEvent::LanguageChange);
        QApplication::sendEvent(&form, &language);
        Window::settle();
        EXPECT_EQ(settingsOf(lines.grid()), before);
        EXPECT_EQ(lines.grid().Grid().Text(3, 1), "A001");
    };
    check(compiled.form, *compiled.ui.lines, [&] { compiled.ui.retranslateUi(&compiled.form); });
    check(*loaded.form, *loaded.lines, [] {});
}

TEST(Form, IsShownWithItsSettings) {
    Compiled compiled;
    compiled.form.resize(420, 260);
    compiled.form.show();
    Window::settle();
    EXPECT_EQ(compiled.ui.lines->grid().Cols(), 4);
    EXPECT_TRUE(compiled.ui.lines->grid().totalRowShown());
    EXPECT_EQ(compiled.ui.lines->grid().Grid().DisplayText(0, 2), "数量");
}
}  // namespace kxVsGrid::qt::testing
