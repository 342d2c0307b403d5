// A modal box of ours in front of the host's window.
#pragma once

#include <QDialog>
#include <QEvent>
#include <QPointer>

namespace kxVsGrid::qt {

/// Closes a box when the window that it stands before is closed: nobody is left to be asked.
class ClosesWithWindow : public QObject {
  public:
    explicit ClosesWithWindow(QDialog& box) : QObject(&box), box_(box) {
        if (QWidget* window = box.parentWidget()) window->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Hide && !event->spontaneous()) box_.reject();
        return QObject::eventFilter(object, event);
    }

  private:
    QDialog& box_;
};

/// Drops the repetitions of a key that is held down: the key that brought a box up must not close it unread.
class NewKeysOnly : public QObject {
  public:
    using QObject::QObject;

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    quint64 released_ = 0;  // when a key came up last
};

/// A box on the heap: its parent, the host's window, may be destroyed while it is open.
template <class Box>
class ModalBox {
  public:
    explicit ModalBox(const QWidget* widget)
        : box_(new InFront(widget != nullptr ? widget->window() : nullptr)) {
        box_->setAttribute(Qt::WA_WindowPropagation);  // it wears the window's palette and font
        new ClosesWithWindow(*box_);
    }
    ~ModalBox() { delete box_; }
    ModalBox(const ModalBox&) = delete;
    ModalBox& operator=(const ModalBox&) = delete;
    Box* operator->() const { return box_; }
    explicit operator bool() const { return !box_.isNull(); }

  private:
    /// Gives its place in front back to the window. Not every desktop does so by itself.
    class InFront : public Box {
      public:
        using Box::Box;

        void setVisible(bool visible) override {
            const bool closes = !visible && this->isActiveWindow();
            const QPointer<QWidget> window(this->parentWidget());
            Box::setVisible(visible);
            if (closes && window && window->isVisible()) window->activateWindow();
        }
    };

    QPointer<InFront> box_;
};
}  // namespace kxVsGrid::qt
