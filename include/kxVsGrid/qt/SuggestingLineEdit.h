// A text field outside of a grid that suggests while the clerk types, with the list and the keys that a grid's
// cells have.
//
//     kxVsGrid::SuggestionList towns;
//     towns.add({"济南", "", "0531"}, {"jn"});
//     towns.add({"青岛", "", "0532"}, {"qd"});
//     auto* town = new kxVsGrid::qt::SuggestingLineEdit(this);
//     town->suggest(towns);
//     connect(town, &kxVsGrid::qt::SuggestingLineEdit::taken, this,
//             [](const kxVsGrid::Suggestion& taken) { qInfo() << "Code:" << taken.note.c_str(); });
//
// Down goes into the list; Down, Up, PageDown and PageUp go on in it, Up leaves it from the first one. Enter and
// Tab take the one that the clerk went to; Enter else the only one, unless the text is one of the suggested texts
// already. A press takes one and leaves the keyboard in the field. Esc closes the list, which stays closed until
// the keyboard has left. While an input method composes, all keys are its own.
#pragma once

#include <QLineEdit>
#include <memory>
#include <vector>

#ifndef Q_MOC_RUN  // whose scanner knows no names beyond ASCII
#include "kxVsGrid/Suggestions.h"
#endif

namespace kxVsGrid::qt {

class SuggestingLineEdit : public QLineEdit {
    Q_OBJECT

  public:
    explicit SuggestingLineEdit(QWidget* parent = nullptr);
    ~SuggestingLineEdit() override;

    /// Who is asked while the clerk types; an empty function for nobody. The requests have row -1.
    const SuggestionSource& suggest() const;
    void suggest(SuggestionSource source);

    /// Shows these whatever stands in the field, with the clerk at the first of them. Nothing in a field that is
    /// read only.
    void offer(std::vector<Suggestion> candidates);
    bool listShown() const;
    /// The next text opens one again.
    void closeList();

  Q_SIGNALS:
    /// A suggestion was taken, by a key or by the mouse, and its text stands in the field.
    void taken(const kxVsGrid::Suggestion& suggestion);
    /// Enter, which has taken what it takes. returnPressed() comes after it.
    void accepted();
    /// The source has thrown this; the text stays.
    void sourceFailed(const QString& message);

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    class Parts;
    std::unique_ptr<Parts> parts_;
};
}  // namespace kxVsGrid::qt
