// Qt's own types as members of a sheet's records: texts, days, moments to the second.
//
//     struct Line {
//         QString name;
//         QDate delivery;     // invalid: none
//         QDateTime entered;  // local; invalid: none
//     };
//     kxVsGrid::Sheet<Line> sheet(widget->grid());
//     sheet.text("name", "品名", &Line::name);
//     sheet.date("delivery", "交货日期", &Line::delivery);
//     sheet.moment("entered", "录入时间", &Line::entered);
//
// A day alone is no moment: nobody has said when. What a moment has beyond its second does not reach the cell.
#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

#ifndef Q_MOC_RUN  // whose scanner knows no names beyond ASCII
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
        FieldText<Date>::append(text, Date{value.year(), value.month(), value.day()});
    }
    static bool read(std::string_view text, QDate& value) {
        const std::optional<Date> day = Date::read(text);
        if (day) value = QDate(day->year, day->month, day->day);
        return day.has_value();
    }
};

template <>
struct kxVsGrid::FieldText<QDateTime> {
    static constexpr FieldKind Kind = FieldKind::Moment;
    static void append(std::string& text, const QDateTime& value) {
        const QDate day = value.date();
        const QTime time = value.time();
        FieldText<DateTime>::append(
            text, DateTime{day.year(), day.month(), day.day(), time.hour(), time.minute(), time.second()});
    }
    static bool read(std::string_view text, QDateTime& value) {
        const std::optional<DateTime> at = DateTime::read(text);
        const QDateTime known =
            at ? QDateTime(QDate(at->year, at->month, at->day), QTime(at->hour, at->minute, at->second))
               : QDateTime();
        if (known.isValid()) value = known;
        return known.isValid();
    }
};
#endif
