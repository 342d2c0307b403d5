// What the pieces of one widget share: the control, the way into it, and the acts that the control asks for.
#pragma once

#include <QInputMethodEvent>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <functional>
#include <memory>

#include "qt/Machine.h"
#include "qt/actions/CommandActions.h"
#include "qt/find/FindBar.h"
#include "qt/settings/StoredSettings.h"
#include "qt/suggestions/SuggestionsAt.h"
#include "qt/text/EditorBox.h"
#include "qt/text/EditorTip.h"
#include "qt/text/HelpButton.h"
#include "qt/view/GridView.h"
#include "qt/view/MousePress.h"
#include "qt/view/RowFit.h"
#include "qt/view/Scale.h"
#include "qt/view/ScrollArea.h"
#include "qt/view/WheelNotches.h"

namespace kxVsGrid::qt {

class kxGridWidget;

class Stage {
  public:
    explicit Stage(kxGridWidget& widget);
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;
    /// The widget is going: nothing is told any more.
    void close();

    /// The control. Whoever asks looks at it: the first time, its settings are read.
    kxGrid& grid() {
        if (settings_.collecting()) firstLook();
        return *machine_->grid;
    }
    /// A setting by the name that it is stored under, without looking at the control.
    Variant setting(std::string_view name) const { return settings_.get(*machine_->grid, name); }
    /// What the control refuses is reported, and changes nothing. False when the widget was destroyed
    /// meanwhile.
    bool setting(std::string_view name, const Variant& value);
    kxGridWidget& widget() const { return widget_; }
    /// Outlives the stage where it is held.
    std::shared_ptr<Machine> machine() const { return machine_; }
    EditorBox& box() const { return *box_; }
    GridView& view() const { return *view_; }
    QAction* action(Command command) { return actions_.action(command); }
    void appendToMenu(QAction* action) { machine_->platform.hostsMenuActions.append(action); }
    Scale scale() const;
    const TextMetrics& metrics() const { return machine_->platform.textMetrics(); }

    /// Every way from an event of Qt's into the control. What a host handler throws is reported and goes no
    /// further. False when the widget was destroyed meanwhile: the caller must not touch it any more.
    template <class Work>
    bool guarded(Work work) {
        const std::shared_ptr<Machine> machine = machine_;
        if (machine->stage == nullptr) return false;
        if (!machine->grid) return true;
        const std::shared_ptr<Input> input = grid().input();
        return attempt([&] { work(*input); }) && attempt([&] { settle(); });
    }
    /// The same for looks at the control and its grids: their texts may be a host's to compute.
    bool attempt(const std::function<void()>& look);
    /// What the work threw, as a text; null when it threw nothing.
    static QString failureOf(const std::function<void()>& work);
    void report(const QString& failure);

    // --- What the control asks for.
    void giveFocus(FocusPlace place);
    void leaveControl(bool forward);
    void showEditor(const EditorView& view);
    void showSuggestions(const SuggestionView& suggestions);
    void showFindBar(bool replace);
    void typeIntoEditor(std::string_view character);
    void editText(Command command);
    void layoutChanged();
    Rect onScreen(const Rect& place) const;
    void settingChanged(std::string_view name);
    /// A line of text beside a place in the control, for a while.
    void tellBeside(std::string_view text, const Rect& place);

    // --- What the pieces tell.
    void focusEntered(FocusPlace place);
    void focusLeft(const QFocusEvent& event);
    /// The find bar has the keyboard: for the control that is still the grid.
    void barEntered(const QFocusEvent& event);
    /// The find bar has come or gone, or has another height: the grid is laid out anew, with the current cell in view.
    void barChanged();
    /// The box is about to be hidden: the grid takes the keyboard over from it.
    void keepFocusFrom(const QWidget& box);
    void keyUp(const QKeyEvent& event);
    void wheel(const QWheelEvent& event);
    void composing(bool underway);
    /// An input method at work while the grid has the keyboard.
    void composeOnGrid(QInputMethodEvent& event);
    /// Commits what is being composed, exactly once; before a press, and before the keyboard leaves.
    void endComposition();
    void lookChanged();
    /// The grid or its editor is painted as having the keyboard.
    bool focusShown() const { return focusShown_; }
    /// False when a host that heard of it has ended the widget.
    bool resized();
    /// Before anybody sees them: rows are as high as the widget's font needs.
    void fitRows();

    /// Whether the current cell can be edited; whether it is typed into, and what is expected there.
    bool takesTyping();
    bool readsDigits();
    bool editsHere();
    bool togglesHere() { return currentType() == flexDTBoolean; }

  private:
    /// What an input method has to know of the closed grid.
    struct TypingPlace {
        bool typing = true;
        std::int32_t row = -1;
        std::int32_t col = -1;
        std::int32_t left = 0;
        std::int32_t top = 0;
        friend bool operator==(const TypingPlace&, const TypingPlace&) = default;
    };

    void firstLook();
    void handleComposition(QInputMethodEvent& event);
    void settle();
    bool loseKeyboard();
    void watchFocus();
    void showFocus(bool focused);
    void showTip();
    void pressSuggestion(std::size_t index);
    void watchDamage();
    void damaged();
    void repaintDamage();
    bool owns(const QWidget* widget) const;
    mEmDataType currentType();

    kxGridWidget& widget_;
    std::shared_ptr<Machine> machine_;
    StoredSettings settings_;
    CommandActions actions_{*this};
    ScrollArea* area_;
    GridView* view_;
    HelpButton* button_;
    QPointer<EditorTip> tip_;  // it may be its window's
    std::unique_ptr<EditorBox> box_;
    SuggestionsAt suggestions_;
    QPointer<FindBar> findBar_;  // made when it is first asked for
    QTimer repaint_;
    QPointer<AwaitedPress> awaitedPress_;
    bool editable_ = false;  ///< the current cell was, after the last call
    TypingPlace typingPlace_;
    Rect totalsShown_;
    RowFit mainRows_;
    RowFit totalRows_;
    WheelNotches notches_;
    bool focusShown_ = false;
    bool away_ = false;  // the keyboard is with another window, a menu or a popup
    bool composingOnGrid_ = false;
    bool handlingComposition_ = false;
    bool editorWaitsForFocus_ = false;
};
}  // namespace kxVsGrid::qt
