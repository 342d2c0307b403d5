// The bar above the lines that says what has come back after a crash, and asks what shall become of it. The clerk
// may as well go on keying.
#pragma once

#include <QFrame>

class QLabel;

class RecoveryBar : public QFrame {
    Q_OBJECT

  public:
    /// Not shown until there is something to tell.
    explicit RecoveryBar(QWidget* parent = nullptr);

    void tell(const QString& text);
    QString text() const;

  signals:
    void goesOn();
    void givesUp();

  private:
    QLabel* text_;
};
