#include "qt/model/ModelPlan.h"

#include <QDateTime>
#include <cmath>

#include "qt/model/Moments.h"
#include "sheet/ColumnLook.h"

namespace kxVsGrid::qt {
namespace {

using Kind = FieldKind;
using namespace Qt::StringLiterals;

const QString Day = u"yyyy-MM-dd"_s;
const QString DayAndTime = u"yyyy-MM-dd HH:mm:ss"_s;

std::optional<Kind> kindOf(QMetaType type) {
    switch (type.id()) {
        case QMetaType::Bool:
            return Kind::Flag;
        case QMetaType::Short:
        case QMetaType::UShort:
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::Long:
        case QMetaType::ULong:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
        case QMetaType::Float:
        case QMetaType::Double:
            return Kind::Number;
        case QMetaType::QDate:
            return Kind::Date;
        case QMetaType::QDateTime:
            return Kind::Moment;
        case QMetaType::UnknownType:
            return std::nullopt;
        default:
            return Kind::Text;
    }
}

bool isFloating(QMetaType type) {
    return type.id() == QMetaType::Double || type.id() == QMetaType::Float;
}

/// Without an exponent where it would not be longer than that.
QString numberText(double value) {
    constexpr double Long = 1e15;
    const bool plain = value == 0 || (std::abs(value) < Long && std::abs(value) >= 1e-9);
    return QString::number(value, plain ? 'f' : 'g', QLocale::FloatingPointShortest);
}

QString momentText(const QVariant& value, const QString& pattern) {
    if (value.metaType().id() == QMetaType::QDate) return value.toDate().toString(Day);
    if (value.metaType().id() == QMetaType::QDateTime) return value.toDateTime().toString(pattern);
    const QString text = value.toString();
    const QDateTime read = QDateTime::fromString(text, Qt::ISODate);
    return read.isValid() ? read.toString(pattern) : text;
}
}  // namespace

bool ModelPlan::guess(const QVariant& value) {
    const auto found = kindOf(value.metaType());
    // A driver may say of what is null that it is a text, whatever the column holds.
    if (!found || (value.isNull() && *found == Kind::Text)) return false;
    valueType = value.metaType();
    if (!typed) kind = *found;
    return true;
}

std::string ModelPlan::text(const QVariant& value) const {
    if (!value.isValid() || value.isNull()) return {};
    switch (kind) {
        case Kind::Flag:
            return value.toBool() ? "1" : "0";
        case Kind::Number:
            if (isFloating(value.metaType())) return numberText(value.toDouble()).toStdString();
            return value.toString().trimmed().toStdString();
        case Kind::Date:
            return momentText(value, Day).toStdString();
        case Kind::Moment:
            return momentText(value, DayAndTime).toStdString();
        default:
            return value.toString().toStdString();
    }
}

/// Whole numbers stay whole, texts keep every digit.
QVariant ModelPlan::number(const QString& text) const {
    if (valueType.id() == QMetaType::QString) return text;
    bool whole = false;
    const qlonglong exact = text.toLongLong(&whole);
    if (whole && !isFloating(valueType)) {
        QVariant value(exact);
        if (valueType.isValid() && kindOf(valueType) == Kind::Number && value.convert(valueType) &&
            value.toString() == text)
            return value;
        return exact;
    }
    bool ok = false;
    const double value = text.toDouble(&ok);
    return ok ? QVariant(value) : QVariant(text);
}

QVariant ModelPlan::value(std::string_view text, const QVariant& now) const {
    const QString given = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    if (text.empty()) return keepsEmpty && kind == Kind::Text ? QVariant(QString(u""_s)) : QVariant();
    const bool asText = valueType.id() == QMetaType::QString;
    switch (kind) {
        case Kind::Flag: {
            const bool on = given != "0"_L1;
            return kindOf(valueType) == Kind::Number ? QVariant(on ? 1 : 0) : QVariant(on);
        }
        case Kind::Number: {
            const auto exact = decimals ? Decimal::read(text) : std::nullopt;
            return number(exact ? QString::fromStdString(exact->rounded(*decimals).text()) : given);
        }
        case Kind::Date:
        case Kind::Moment: {
            QDateTime moment = momentOf(text);
            if (!moment.isValid() || (asText && kind == Kind::Date)) return given;
            if (asText) return moment.toString(Qt::ISODate);
            if (valueType.id() == QMetaType::QDate || (kind == Kind::Date && !valueType.isValid()))
                return moment.date();
            if (now.metaType().id() == QMetaType::QDateTime && now.toDateTime().isValid()) {
                QDateTime kept = now.toDateTime();
                kept.setDate(moment.date());
                kept.setTime(moment.time());
                return kept;
            }
            return moment;
        }
        default:
            return given;
    }
}

/// A column of which the host has said nothing is as wide as this or its caption.
std::string_view ModelPlan::usualText() const {
    if (kind != Kind::Number) return sheet::usualText(kind);
    return decimals.value_or(2) > 0 ? "-100,000.00" : "-1,000,000";
}

void ModelPlan::allow(kxGrid& grid, std::int32_t col, bool whole) const {
    grid.Options(col).sortable(whole);
    grid.Options(col).filterable(whole);
    grid.VsCtrl(static_cast<std::int16_t>(col))->b是否合计数据(total && whole);
}

void ModelPlan::define(kxGrid& grid, std::int32_t col) const {
    const auto definition = grid.VsCtrl(static_cast<std::int16_t>(col));
    definition->sName(caption);
    definition->iType(sheet::typeOf(kind));
    definition->iColAlignment(alignment.value_or(sheet::alignmentOf(kind)));
    definition->bIsEditable(!readOnly);
    definition->bIsVisible(!hidden);
    definition->iLimitLength(limit);
    const bool dated = kind == Kind::Date || kind == Kind::Moment;
    const bool day = kind == Kind::Date;
    definition->i有效性判断(dated ? 1 : 0);
    definition->i字段有效性判断类型(!dated ? gEmJudgeType{} : day ? ij日期型 : ij时间型);
    definition->b是否提供帮助(dated && !readOnly);
    if (dated) definition->i帮助类型(day ? ih日期型 : ih时间型);

    ColumnOptions& options = grid.Options(col);
    options.exact(true);
    options.zero(ColumnOptions::Zero::Keep);
    options.smallest(least);

    grid.ColFormat(col, format.empty() ? sheet::formatOf(kind, decimals) : format);
    if (width)
        grid.ColWidth(col, *width);
    else if (!sample.empty())
        grid.ColSample(col, sample);
    else
        grid.ColSample(col, sheet::sampleOf(grid, usualText(), caption));
}
}  // namespace kxVsGrid::qt
