// The grid's picture in the widget box and the object tree.
#pragma once

#include <QIcon>

namespace kxVsGrid::qt::designer {

QIcon gridIcon();
}  // namespace kxVsGrid::qt::designer
