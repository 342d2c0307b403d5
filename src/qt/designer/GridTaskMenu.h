// "Columns..." in the context menu of a grid on a form; a double click on the grid does the same.
#pragma once

#include <QAction>
#include <QDesignerTaskMenuExtension>
#include <QExtensionFactory>
#include <QObject>

#include "qt/designer/DesignedGrid.h"

namespace kxVsGrid::qt::designer {

class GridTaskMenu : public QObject, public QDesignerTaskMenuExtension {
    Q_OBJECT
    Q_INTERFACES(QDesignerTaskMenuExtension)

  public:
    GridTaskMenu(DesignedGrid& grid, QObject* parent);

    QAction* preferredEditAction() const override { return columns_; }
    QList<QAction*> taskActions() const override { return {columns_}; }

  private:
    DesignedGrid& grid_;
    QAction* columns_;
};

class GridTaskMenuFactory : public QExtensionFactory {
  public:
    using QExtensionFactory::QExtensionFactory;

  protected:
    QObject* createExtension(QObject* object, const QString& iid, QObject* parent) const override;
};
}  // namespace kxVsGrid::qt::designer
