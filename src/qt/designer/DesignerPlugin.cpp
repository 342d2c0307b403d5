#include "qt/designer/DesignerPlugin.h"

#include <QDesignerFormEditorInterface>
#include <QExtensionManager>

#include "kxVsGrid/qt/kxGridWidget.h"
#include "qt/designer/DesignedGrid.h"
#include "qt/designer/GridTaskMenu.h"
#include "qt/designer/Icon.h"
#include "qt/designer/SampleGrid.h"

namespace kxVsGrid::qt::designer {

QString DesignerPlugin::name() const {
    return QString::fromLatin1(kxGridWidget::staticMetaObject.className());
}

QString DesignerPlugin::group() const {
    return QStringLiteral("kxVsGrid");
}

QString DesignerPlugin::toolTip() const {
    return tr("数据录入表格");
}

QString DesignerPlugin::whatsThis() const {
    return tr("逐行录入业务单据的表格；各列在任务菜单的“列设置”中定义。");
}

QString DesignerPlugin::includeFile() const {
    return QStringLiteral("kxVsGrid/qt/kxGridWidget.h");
}

QIcon DesignerPlugin::icon() const {
    return gridIcon();
}

QString DesignerPlugin::domXml() const {
    return sampleGridXml(name());
}

void DesignerPlugin::initialize(QDesignerFormEditorInterface* core) {
    if (isInitialized() || core == nullptr) return;
    core_ = core;
    QExtensionManager* manager = core->extensionManager();
    manager->registerExtensions(new GridTaskMenuFactory(manager), Q_TYPEID(QDesignerTaskMenuExtension));
}

QWidget* DesignerPlugin::createWidget(QWidget* parent) {
    if (core_ == nullptr) return new kxGridWidget(parent);
    return new DesignedGrid(*core_, parent);
}
}  // namespace kxVsGrid::qt::designer
