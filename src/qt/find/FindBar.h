// The bar under the grid in which a clerk looks for texts, and replaces them. What is found is the control's
// (kxGrid::Find); here are the boxes, their keys, and the idle time in which the control looks.
//
// The bar is a part of the widget: while it has the keyboard the control counts as having it.
#pragma once

#include <QCheckBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPaintEvent>
#include <QTimer>
#include <QToolButton>
#include <QWidget>
#include <vector>

#include "kxVsGrid/Command.h"
#include "kxVsGrid/Find.h"

namespace kxVsGrid::qt {

class Stage;

class FindBar : public QWidget {
  public:
    FindBar(Stage& stage, QWidget* parent);

    /// Shows it with the text that was looked for last, selected, and gives it the keyboard.
    void open(bool replace);
    /// The widget goes: nothing is looked for any more.
    void stop();
    /// It is shown, or shall be with the widget.
    bool isOpen() const { return !isHidden(); }
    /// So high it has to be with that width; lays its parts out anew where it is as wide already.
    int heightFor(int width) const;
    /// Whether Tab from another widget may lead into it.
    void inTabOrder(bool in);

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    /// What stands in a line, one after the other.
    struct Part {
        QWidget* widget;
        bool box;  ///< takes what room there is
    };
    template <class Button>
    Button& add(const QString& text, const QString& name);
    QLineEdit& addBox(const QString& name);
    std::vector<std::vector<Part>> lines() const;
    int place(int width, bool move) const;
    int widthOf(const Part& part) const;
    QList<QWidget*> stops() const;

    bool claims(const QKeyEvent& event) const;
    bool press(QWidget& part, QKeyEvent& event);
    bool pressEnter(QWidget& part, bool back);
    void step(bool forward);
    void close();

    void look();
    void work();
    void go(bool forward);
    void replaceOne();
    void replaceAll();
    void refresh();
    QString told(const FindState& state) const;
    void tint(bool missing);
    FindRule rule() const;

    Stage& stage_;
    QLineEdit& text_;
    QToolButton& previous_;
    QToolButton& next_;
    QCheckBox& whole_;
    QCheckBox& case_;
    QCheckBox& column_;
    QLabel& count_;
    QToolButton& close_;
    QLineEdit& with_;
    QToolButton& replace_;
    QToolButton& replaceAll_;
    QTimer idle_;
    QString note_;  ///< what was done last; until something else is looked for
    bool forward_ = true;
    bool replaces_ = false;
    bool missing_ = false;
};
}  // namespace kxVsGrid::qt
