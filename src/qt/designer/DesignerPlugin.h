// The grid in Qt Designer's widget box.
#pragma once

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace kxVsGrid::qt::designer {

class DesignerPlugin : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetInterface")
    Q_INTERFACES(QDesignerCustomWidgetInterface)

  public:
    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override { return false; }
    QString domXml() const override;

    bool isInitialized() const override { return core_ != nullptr; }
    /// Not called by a program that loads its forms with this plugin: it gets the grid as it is.
    void initialize(QDesignerFormEditorInterface* core) override;
    QWidget* createWidget(QWidget* parent) override;

  private:
    QDesignerFormEditorInterface* core_ = nullptr;
};
}  // namespace kxVsGrid::qt::designer
