#include "designer/Workbench.h"

#include <gtest/gtest.h>
#include <qdesigner_components.h>

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDesignerActionEditorInterface>
#include <QDesignerFormWindowManagerInterface>
#include <QDesignerIntegration>
#include <QDesignerObjectInspectorInterface>
#include <QDesignerPropertyEditorInterface>
#include <QDesignerTaskMenuExtension>
#include <QDesignerWidgetBoxInterface>
#include <QDir>
#include <QExtensionManager>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QXmlStreamReader>
#include <stdexcept>

#include "kxVsGrid/StoredKeys.h"
#include "qt/text/Encoding.h"

namespace kxVsGrid::qt::testing {
namespace {

bool isStored(const QString& name) {
    const std::string key = fromQt(name);
    for (const StoredKey& grid : writtenGridKeys())
        if (grid.written == key) return true;
    return columnKeyParts(key).has_value();
}

/// One for all tests: setting it up takes longer than most of them.
struct Engine {
    Engine() : core(QDesignerComponents::createFormEditor(nullptr)) {
        core->setWidgetBox(QDesignerComponents::createWidgetBox(core.get(), &desk));
        core->setPropertyEditor(QDesignerComponents::createPropertyEditor(core.get(), &desk));
        core->setObjectInspector(QDesignerComponents::createObjectInspector(core.get(), &desk));
        core->setActionEditor(QDesignerComponents::createActionEditor(core.get(), &desk));
        new QDesignerIntegration(core.get(), core.get());
        QDesignerComponents::initializeResources();
        QDesignerComponents::initializePlugins(core.get());
    }
    std::unique_ptr<QDesignerFormEditorInterface> core;
    QWidget desk;  // its parts go before what they belong to
};
std::unique_ptr<Engine> engine;

/// It goes before the application does.
class EngineEnds : public ::testing::Environment {
  public:
    void TearDown() override { engine.reset(); }
};
const ::testing::Environment* const engineEnds = ::testing::AddGlobalTestEnvironment(new EngineEnds);
}  // namespace

QString key(int col, const char* suffix) {
    return toQt(columnKey(col, suffix));
}

StoredTexts storedTexts(const QString& form) {
    StoredTexts texts;
    QXmlStreamReader xml(form);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement || xml.name() != QLatin1String("property"))
            continue;
        const QString name = xml.attributes().value(QLatin1String("name")).toString();
        if (!isStored(name) || !xml.readNextStartElement()) continue;
        const QString type = xml.name().toString();
        texts[name] = type + u':' + xml.readElementText();
    }
    if (xml.hasError()) throw std::logic_error("the form is no XML: " + xml.errorString().toStdString());
    return texts;
}

QString formAround(const QString& widgetXml) {
    const qsizetype begin = widgetXml.indexOf(QLatin1String("<widget"));
    const qsizetype end = widgetXml.lastIndexOf(QLatin1String("</widget>"));
    return QStringLiteral(
               "<ui version=\"4.0\"><class>Form</class><widget class=\"QWidget\" name=\"Form\">"
               "<property "
               "name=\"geometry\"><rect><x>0</x><y>0</y><width>700</width><height>400</height></rect>"
               "</property>%1</widget></widget></ui>")
        .arg(widgetXml.mid(begin, end - begin));
}

QString formNamed(const char* name) {
    QFile file(QStringLiteral(KX_FORMS "/") + QString::fromLatin1(name));
    if (!file.open(QIODevice::ReadOnly)) throw std::logic_error(std::string("no form ") + name);
    return QString::fromUtf8(file.readAll());
}

QDesignerFormEditorInterface& Workbench::core() {
    if (!engine) engine = std::make_unique<Engine>();
    return *engine->core;
}

Workbench::Workbench(const QString& formText) : form_(core().formWindowManager()->createFormWindow()) {
    if (!form_->setContents(formText)) throw std::logic_error("the designer does not take the form");
    const QSize size = form_->mainContainer()->size();
    core().formWindowManager()->setActiveFormWindow(form_);
    form_->editWidgets();
    form_->setParent(&window_);  // the designer expects a form to stand in a window
    window_.resize(size);
    form_->resize(size);
    form_->show();
    window_.show();
    settle();
    form_->clearSelection();
    form_->selectWidget(&widget());
    settle();
}

Workbench::~Workbench() {
    core().formWindowManager()->removeFormWindow(form_);
    delete form_;
    settle();
}

kxGridWidget& Workbench::widget() const {
    auto* found = form_->mainContainer()->findChild<kxGridWidget*>();
    if (found == nullptr) throw std::logic_error("there is no grid on the form");
    return *found;
}

void Workbench::edit(const char* name, const QVariant& value) {
    core().propertyEditor()->setObject(&widget());
    Q_EMIT core().propertyEditor()->propertyChanged(QString::fromUtf8(name), value);
    settle();
}

void Workbench::deleteGrid() {
    core().formWindowManager()->action(QDesignerFormWindowManagerInterface::DeleteAction)->trigger();
    settle();
}

void Workbench::undo() {
    history().undo();
    settle();
}

void Workbench::redo() {
    history().redo();
    settle();
}

bool Workbench::atThePage(const std::function<void(QDialog& page)>& work) {
    auto* menu = qt_extension<QDesignerTaskMenuExtension*>(core().extensionManager(), &widget());
    if (menu == nullptr) return false;
    bool worked = false;
    QTimer::singleShot(0, &widget(), [&] {
        auto* page = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (page == nullptr) return;
        worked = true;
        try {
            work(*page);
        } catch (...) {
            page->reject();
            throw;
        }
        if (page->isVisible()) page->reject();
    });
    menu->preferredEditAction()->trigger();
    settle();
    return worked;
}

void Workbench::settle() {
    for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// --- At the page

void press(QDialog& page, const char* button) {
    QTest::mouseClick(&part<QPushButton>(page, button), Qt::LeftButton);
}

void tick(QDialog& page, const QString& caption) {
    for (QCheckBox* box : page.findChildren<QCheckBox*>())
        if (box->text() == caption) return QTest::keyClick(box, Qt::Key_Space);
    throw std::logic_error("the page has no check box " + caption.toStdString());
}

void choose(QDialog& page, const char* list, int index) {
    auto& box = part<QComboBox>(page, list);
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Home);
    for (int i = 0; i < index; ++i) QTest::keyClick(&box, Qt::Key_Down);
}

void keepPicture(QWidget& shown, const char* name) {
    const QString folder = QStringLiteral(KX_PICTURES);
    QDir().mkpath(folder);
    EXPECT_TRUE(shown.grab().save(QStringLiteral("%1/%2.png").arg(folder, QString::fromLatin1(name))));
}

void type(QDialog& page, const QString& caption, const QString& text) {
    for (QWidget* box : page.findChildren<QWidget*>()) {
        if (box->accessibleName() != caption || !box->objectName().startsWith(QLatin1String("Txt(")))
            continue;
        box->setFocus();
        QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(box, text);
        return;
    }
    throw std::logic_error("the page has no text box " + caption.toStdString());
}
}  // namespace kxVsGrid::qt::testing
