// Values between Qt's properties and settings.
#pragma once

#include <QVariant>

#include "kxVsGrid/Variant.h"

namespace kxVsGrid::qt {

/// As forms keep it: texts are QByteArray (<cstring>), whole numbers int. Invalid for an empty value and for
/// an array, which is no setting.
QVariant toProperty(const Variant& value);

/// Texts come from QByteArray and QString; whole numbers beyond 32 bits become Double. What no setting can
/// be (a font, a list) becomes Null, which no setting accepts: the read says so.
Variant fromProperty(const QVariant& value);
}  // namespace kxVsGrid::qt
