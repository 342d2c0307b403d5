// What a grid looks like that was just dropped on a form: a few columns that show what there is to set. The
// text holds every stored setting by its name, so that the file of the form does from the start.
#pragma once

#include <QString>

namespace kxVsGrid::qt::designer {

/// The description of the widget as Qt Designer's files hold it.
QString sampleGridXml(const QString& className);
}  // namespace kxVsGrid::qt::designer
