#include "qt/settings/PropertyValues.h"

#include <QByteArray>
#include <QString>
#include <limits>

#include "qt/text/Encoding.h"

namespace kxVsGrid::qt {
namespace {

Variant wholeNumber(const QVariant& value) {
    const qlonglong number = value.toLongLong();
    using Limits = std::numeric_limits<std::int32_t>;
    if (number >= Limits::min() && number <= Limits::max()) return static_cast<std::int32_t>(number);
    return static_cast<double>(number);
}
}  // namespace

QVariant toProperty(const Variant& value) {
    switch (value.type()) {
        case Variant::Type::Boolean:
            return value.toBoolean();
        case Variant::Type::Int16:
        case Variant::Type::Int32:
            return static_cast<int>(value.toInt32());
        case Variant::Type::Double:
            return value.toDouble();
        case Variant::Type::Text:
            return QByteArray::fromStdString(value.toText());
        case Variant::Type::Null:
            return QVariant::fromValue(nullptr);
        case Variant::Type::Empty:
        case Variant::Type::Array:
            break;
    }
    return {};
}

Variant fromProperty(const QVariant& value) {
    switch (value.typeId()) {
        case QMetaType::UnknownType:
            return {};
        case QMetaType::Bool:
            return value.toBool();
        case QMetaType::Short:
            return static_cast<std::int16_t>(value.toInt());
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::UShort:
        case QMetaType::LongLong:
            return wholeNumber(value);
        case QMetaType::ULongLong:
        case QMetaType::Float:
        case QMetaType::Double:
            return value.toDouble();
        case QMetaType::QByteArray:
            return value.toByteArray().toStdString();
        case QMetaType::QString:
            return fromQt(value.toString());
        default:
            return Variant::null();
    }
}
}  // namespace kxVsGrid::qt
