// The window of a form: a native control for each of the form's, at its place. What the clerk does there goes
// to the form; what the form changes is shown.
//
// Nothing that the form's code throws gets into the event loop: it closes the window and is kept for the one
// who opened it. The window may be destroyed with its parent while it is open; the form hears that it closed.
#pragma once

#include <QDialog>
#include <QPointer>
#include <QTimer>
#include <exception>
#include <memory>
#include <vector>

#include "kxVsGrid/Form.h"
#include "qt/forms/FormPart.h"

namespace kxVsGrid::qt {

class FormDialog : public QDialog {
  public:
    explicit FormDialog(QWidget* parent);
    ~FormDialog() override;

    /// Opens the form in this window, which stands near `anchor` (twips of the screen; an empty one is
    /// nowhere in particular) and is not yet visible. `failure` gets what the form's code throws from now on.
    void start(Form& form, const Rect& anchor, std::exception_ptr& failure);
    /// The form has not closed.
    bool showing() const { return form_ != nullptr; }

    /// Every way into the form. Does nothing once it has closed. False when the window was destroyed
    /// meanwhile: the caller must not touch it any more.
    template <class Work>
    bool act(Work work) {
        if (form_ == nullptr) return true;
        std::exception_ptr& failure = *failure_;
        const QPointer<FormDialog> alive(this);
        const bool inFront = isActiveWindow();
        try {
            work(*form_);
        } catch (...) {
            if (!failure) failure = std::current_exception();
            if (alive) done(Rejected);
        }
        if (alive && inFront) comeBack();
        return !alive.isNull();
    }
    /// Offers a key of the control that has the keyboard to the form. True when nothing is left to do.
    bool key(FormControl& focused, const QKeyEvent& event);

    void done(int result) override;

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    struct Port;

    void build();
    void orderTabs();
    void mirror(const FormPart& part);
    void place(const FormPart& part);
    void placeAll();
    QSize leastSize() const;
    void takeSize();
    void takePlace(const QMargins& frame);
    void comeBack();
    void finish();
    void runSlice();
    const FormPart* partOf(const FormControl& control) const;
    const FormPart* partAround(const QWidget* widget) const;

    std::unique_ptr<Port> port_;
    Form* form_ = nullptr;
    std::exception_ptr* failure_ = nullptr;
    Rect anchor_;
    QMargins frame_;       // of the window, as it was placed
    bool placed_ = false;  // where it stands on the screen now
    std::vector<FormPart> parts_;
    QTimer idle_;
    std::vector<std::function<bool()>> slices_;
};

/// Shows the form before the window of `widget`, in the widget's font, and returns when it has closed. What
/// its code has thrown goes on to the caller.
void runForm(const QWidget* widget, Form& form, const Rect& anchor);
}  // namespace kxVsGrid::qt
