// The wheel over a field that does not have the keyboard changes nothing in it.
#pragma once

#include <QWidget>

class FocusedWheel : public QObject {
  public:
    /// The wheel does not give the field the keyboard either.
    static void keep(QWidget& field);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    using QObject::QObject;
};
