#include "qt/designer/GridTaskMenu.h"

#include "qt/designer/ColumnPage.h"

namespace kxVsGrid::qt::designer {

GridTaskMenu::GridTaskMenu(DesignedGrid& grid, QObject* parent)
    : QObject(parent), grid_(grid), columns_(new QAction(tr("列设置(&C)..."), this)) {
    columns_->setObjectName(QStringLiteral("kxGridColumns"));
    connect(columns_, &QAction::triggered, this, [this] { showColumnPage(grid_); });
}

QObject* GridTaskMenuFactory::createExtension(QObject* object, const QString& iid, QObject* parent) const {
    auto* grid = dynamic_cast<DesignedGrid*>(object);
    if (grid == nullptr || iid != Q_TYPEID(QDesignerTaskMenuExtension)) return nullptr;
    return new GridTaskMenu(*grid, parent);
}
}  // namespace kxVsGrid::qt::designer
