// The windows of forms that come up in the tests, and the clerk's hands at them.
#pragma once

#include <functional>

#include "qt/ScreenMouse.h"
#include "qt/Window.h"
#include "qt/forms/FormDialog.h"
#include "qt/forms/FormGrid.h"

namespace kxVsGrid::qt::testing {

/// A form's window that stands open.
class Dialog {
  public:
    explicit Dialog(FormDialog& dialog) : window(dialog) {}

    FormDialog& window;

    /// The native control of that name.
    template <class Widget = QWidget>
    Widget& part(const char* name) const {
        auto* found = window.findChild<QWidget*>(QString::fromUtf8(name), Qt::FindDirectChildrenOnly);
        auto* widget = dynamic_cast<Widget*>(found);
        if (widget == nullptr) throw std::logic_error(std::string("the dialog does not show ") + name);
        return *widget;
    }
    /// What of a control has the keyboard, or gets the mouse.
    QWidget& inner(const char* name) const {
        QWidget& outer = part(name);
        return outer.focusProxy() != nullptr ? *outer.focusProxy() : outer;
    }
    bool focused(const char* name) const { return QApplication::focusWidget() == &inner(name); }

    // --- Keys, as the screen delivers them.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void type(const QString& text) const;
    void compose(const QString& preedit, const QString& commit = {}) const;

    // --- Mouse.
    void click(const char* name) const { screen::click(inner(name)); }
    void closeByFrame() const { window.windowHandle()->close(); }
    /// Middle of a cell's visible part, in the view of the grid.
    QPoint cell(const CellGrid& grid, std::int32_t row, std::int32_t col) const;
    static void twice(QWidget& target, const QPoint& at);
    static void wheel(QWidget& target, int notches);

    /// The dialog's own picture.
    QImage picture(const QString& name) const;
};

/// No control of the window is smaller than what it shows, and none lies over another.
void expectWhole(const Dialog& d);

/// Works at every form window that comes up, from the event loop that it runs. One that stays open fails the
/// test and is closed.
class Dialogs : public QObject {
  public:
    using Act = std::function<void(Dialog&)>;
    explicit Dialogs(Act act);
    ~Dialogs() override;

    int count = 0;

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void opened(FormDialog& window);
    Act act_;
};

/// Shows the form before a host's window and works at it. What its code throws comes out.
void work(Form& form, const Dialogs::Act& act, const Rect& anchor = {});
}  // namespace kxVsGrid::qt::testing
