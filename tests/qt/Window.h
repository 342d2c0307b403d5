// A host's window for the tests: a text field, the grid, another text field. Columns of the grid: row number,
// code (text), name (text, read only), quantity (number), paid (Boolean), date, remark (several lines).
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>
#include <string>
#include <vector>

#include "kit/WhenOpen.h"
#include "kxVsGrid/qt/kxGridWidget.h"

namespace kxVsGrid::qt::testing {

using kxVsGrid::kit::waitUntil;
using kxVsGrid::kit::waitUntilClosed;
using kxVsGrid::kit::whenOpen;

enum Column : std::int32_t { Number, Code, Name, Quantity, Paid, Date, Remark, Count };

/// U+20000, beyond the basic plane: two units of a QString.
inline const QString Rare = QString::fromUcs4(U"\U00020000");

class Window {
  public:
    Window();

    QWidget window;
    QLineEdit* before;
    kxGridWidget* widget;
    QLineEdit* after;

    kxGrid& grid() { return widget->grid(); }
    QWidget& view();
    QScrollBar& bar(Qt::Orientation orientation);
    /// The text box that is shown; fails the test when there is none.
    QWidget& editor();
    bool editorShown();
    QString editorText();
    /// Middle of a cell, in the view.
    QPoint at(std::int32_t row, std::int32_t col);
    QRect cell(std::int32_t row, std::int32_t col);
    std::string text(std::int32_t row, std::int32_t col) { return grid().Grid().Text(row, col); }
    std::string current();

    void focusCell(std::int32_t row, std::int32_t col);
    void click(std::int32_t row, std::int32_t col);
    void doubleClick(std::int32_t row, std::int32_t col);
    /// To whoever has the keyboard.
    void type(const QString& text);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void compose(const QString& preedit, const QString& commit = {});
    /// Lets waiting events be handled and the damage be painted.
    static void settle();
    /// Takes a picture of the window, and of the box in front of it, and keeps it.
    QImage picture(const QString& name, QWidget* box = nullptr);
    /// The same with menus in front, the first one lowest; of the window only what lies around them.
    QImage pictureAround(const QString& name, const QList<QWidget*>& menus);

  private:
    void keep(const QImage& image, const QString& name) const;
};

inline QWidget& focused() {
    QWidget* widget = QApplication::focusWidget();
    if (widget == nullptr) throw std::logic_error("nobody has the keyboard");
    return *widget;
}
}  // namespace kxVsGrid::qt::testing
