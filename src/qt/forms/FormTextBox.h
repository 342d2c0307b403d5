// A form's text box: shows the control's text and selection, and reports what the clerk changes.
//
// A selection shows while the box has the keyboard.
#pragma once

#include "qt/text/BoxMirror.h"
#include "qt/text/TextBoxes.h"

namespace kxVsGrid {
struct FormControl;
}

namespace kxVsGrid::qt {

class FormDialog;

class FormTextBox : private BoxMirror, public LineBox {
  public:
    FormTextBox(FormDialog& dialog, FormControl& control);

    void mirror();

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    TextBoxPort& port() override { return *this; }
    bool tell(const CoreText& told, bool sameText) override;
    const std::string& coreText() const override;
    bool keyToCore(const QKeyEvent& event) override;
    void keyUp(const QKeyEvent&) override {}
    void focusGained() override {}
    void focusLost(const QFocusEvent& event) override;
    bool leave(bool forward) override;
    void wheel(const QWheelEvent&) override {}
    bool refused() const override { return false; }

    void showSelection();

    FormDialog& dialog_;
    FormControl& control_;
};
}  // namespace kxVsGrid::qt
