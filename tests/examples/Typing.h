// The characters of a text into a widget, Chinese ones included.
#pragma once

#include <QTest>

inline void typeInto(QWidget* widget, const QString& text) {
    for (const QChar c : text)
        QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, QString(c), Qt::NoModifier);
}
