// How a sheet of the grid shows the types of this program.
#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

#include "Decimal.h"
#include "Order.h"
#ifndef Q_MOC_RUN  // moc reads no Chinese identifiers
#include "kxVsGrid/sheet/FieldText.h"

template <>
struct kxVsGrid::FieldText<QString> {
    static constexpr FieldKind Kind = FieldKind::Text;
    static void append(std::string& text, const QString& value) { text += value.toStdString(); }
    static bool read(std::string_view text, QString& value) {
        value = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
        return true;
    }
};

template <>
struct kxVsGrid::FieldText<QDate> {
    static constexpr FieldKind Kind = FieldKind::Date;
    static void append(std::string& text, const QDate& value) {
        text += value.toString(Qt::ISODate).toStdString();
    }
    static bool read(std::string_view text, QDate& value) {
        const QDate known = QDate::fromString(
            QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())), Qt::ISODate);
        if (known.isValid()) value = known;
        return known.isValid();
    }
};

template <>
struct kxVsGrid::FieldText<QDateTime> {
    static constexpr FieldKind Kind = FieldKind::Moment;
    static void append(std::string& text, const QDateTime& value) { text += timeText(value).toStdString(); }
    static bool read(std::string_view text, QDateTime& value) {
        const QDateTime known = timeOf(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
        if (known.isValid()) value = known;
        return known.isValid();
    }
};

template <int Decimals>
struct kxVsGrid::FieldText<Scaled<Decimals>> {
    static constexpr FieldKind Kind = FieldKind::Number;
    static void append(std::string& text, Scaled<Decimals> value) { text += plainText(value, Decimals); }
    static bool read(std::string_view text, Scaled<Decimals>& value) {
        const std::optional<std::int64_t> known = scaledNumber(text, Decimals);
        if (known) value = *known;
        return known.has_value();
    }
};
#endif
