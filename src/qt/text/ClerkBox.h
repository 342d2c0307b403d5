// A text box of Qt's in which a clerk works: it tells its mirror what happens to it, leaves every decision to it,
// and runs Qt's own code for the rest.
#pragma once

#include <QContextMenuEvent>
#include <QWheelEvent>

#include "qt/Wording.h"
#include "qt/text/BoxParts.h"
#include "qt/text/Encoding.h"

namespace kxVsGrid::qt {

template <class Base>
class ClerkBox : public Base, public TextBoxPort {
  public:
    ClerkBox(BoxEvents& events, QWidget* parent) : Base(parent), events_(events) {
        this->setFocusPolicy(Qt::ClickFocus);
        this->setAccessibleName(wording::Editor);
    }

    QWidget& widget() override { return *this; }
    void takePlainSigns(bool plain) override { plainSigns_ = plain; }
    void applyInputMethod(QInputMethodEvent& event) override {
        if (!plainSigns_) return Base::inputMethodEvent(&event);
        QInputMethodEvent taken(event.preeditString(), event.attributes());
        taken.setCommitString(asTaken(event.commitString()), event.replacementStart(),
                              event.replacementLength());
        Base::inputMethodEvent(&taken);
    }
    QVariant query(Qt::InputMethodQuery query) const override { return Base::inputMethodQuery(query); }
    void undo() override { Base::undo(); }
    void redo() override { Base::redo(); }
    void cut() override { Base::cut(); }
    void copy() override { Base::copy(); }
    void paste() override { Base::paste(); }

  protected:
    /// Lets the mirror look at whatever changes in the box; called when the box has been made.
    void watch() {
        const auto look = [this] {
            events_.clerkActs(true);
            events_.clerkActs(false);
        };
        QObject::connect(this, &Base::textChanged, this, look);
        QObject::connect(this, &Base::cursorPositionChanged, this, look);
        QObject::connect(this, &Base::selectionChanged, this, look);
    }

    /// What the clerk enters, as it is to stand in the box: put in so at once, it can be undone like any other text.
    QString asTaken(const QString& text) const { return plainSigns_ ? inPlainSigns(text) : text; }

    void tellPaste(const QString& text) { events_.pastes(text); }

    // --- Where the two boxes differ
    /// A key that is the box's own. True when it is used up.
    virtual bool takeKey(QKeyEvent& key) {
        Base::keyPressEvent(&key);
        return true;
    }
    virtual void loseFocus(QFocusEvent& event) { Base::focusOutEvent(&event); }
    /// What is painted on.
    virtual QWidget& surface() { return *this; }

    bool event(QEvent* event) override { return beforeBox(events_, *this, *event) || Base::event(event); }
    void keyPressEvent(QKeyEvent* event) override {
        if (events_.keyDown(*event)) {
            event->accept();
            return;
        }
        QKeyEvent offered = asOffered(*event, asTaken(event->text()));
        bool used = true;
        asClerk(events_, *this, [&] { used = takeKey(offered); });
        event->setAccepted(used);
    }
    void keyReleaseEvent(QKeyEvent* event) override {
        events_.keyUp(*event);
        event->accept();
    }
    void inputMethodEvent(QInputMethodEvent* event) override { events_.inputMethod(*event); }
    void focusInEvent(QFocusEvent* event) override {
        asClerk(events_, *this, [&] { Base::focusInEvent(event); });
        events_.focusGained();
    }
    void focusOutEvent(QFocusEvent* event) override {
        asClerk(events_, *this, [&] { loseFocus(*event); });
        events_.focusLost(*event);
    }
    void mousePressEvent(QMouseEvent* event) override {
        events_.endComposition();
        asClerk(events_, *this, [&] { Base::mousePressEvent(event); });
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        asClerk(events_, *this, [&] { Base::mouseMoveEvent(event); });
    }
    void contextMenuEvent(QContextMenuEvent* event) override { events_.menu(event->globalPos()); }
    void wheelEvent(QWheelEvent* event) override {
        event->accept();
        events_.wheel(*event);
    }
    void paintEvent(QPaintEvent* event) override {
        Base::paintEvent(event);
        QWidget& painted = surface();
        QPainter painter(&painted);
        paintEdge(painter, *this, painted.rect(), events_.refused());
    }
    bool focusNextPrevChild(bool next) override { return events_.leave(next); }

  private:
    BoxEvents& events_;
    bool plainSigns_ = false;
};
}  // namespace kxVsGrid::qt
