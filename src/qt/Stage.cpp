#include "qt/Stage.h"

#include <QApplication>
#include <QDebug>
#include <QFocusEvent>
#include <QInputMethod>
#include <QMenuBar>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "editing/BringIntoView.h"
#include "kxVsGrid/qt/kxGridWidget.h"
#include "qt/KeyMap.h"
#include "qt/access/AccessibleGrid.h"
#include "qt/text/Encoding.h"
#include "qt/text/KeysAfterComposition.h"
#include "support/FlagSpan.h"

namespace kxVsGrid::qt {

Stage::Stage(kxGridWidget& widget)
    : widget_(widget),
      machine_(std::make_shared<Machine>(*this)),
      area_(new ScrollArea(&widget,
                           [this](std::int32_t top, std::int32_t left) {
                               if (guarded([&](Input& input) { input.scrolled(top, left); }))
                                   area_->follow(grid().Grid(), scale());
                           })),
      view_(new GridView(*this, area_)),
      button_(new HelpButton(*this, &widget)),
      tip_(new EditorTip(widget)),
      box_(std::make_unique<EditorBox>(*this, widget)),
      suggestions_({[this](std::size_t index) { pressSuggestion(index); },
                    [this] { guarded([](Input& input) { input.suggestionsGone(); }); }}) {
    area_->hold(*view_);
    KeysAfterComposition::install();
    machine_->platform.widget(widget);
    machine_->grid = std::make_unique<kxGrid>(machine_->platform);
    repaint_.setSingleShot(true);
    QObject::connect(&repaint_, &QTimer::timeout, view_, [this] { repaintDamage(); });
    watchDamage();
    watchFocus();
}

/// Often in the middle of a paint or of showing the window, where no box may come up: it waits for its turn.
void Stage::firstLook() {
    {
        const support::FlagSpan waiting(machine_->platform.boxesWait);
        settings_.read(*machine_->grid);
    }
    fitRows();
}

bool Stage::setting(std::string_view name, const Variant& value) {
    return attempt([&] { settings_.put(*machine_->grid, name, value); });
}

Stage::~Stage() {
    close();
    machine_->grid.reset();  // whose seat keeps the machine
    delete tip_;
}

void Stage::close() {
    if (machine_->stage == nullptr) return;
    machine_->stage = nullptr;
    if (awaitedPress_) awaitedPress_->forget();
    repaint_.stop();
    suggestions_.end();
    if (findBar_) findBar_->stop();
    machine_->grid->Find().OnWork({});
    machine_->grid->Grid().onDamage({});
    machine_->grid->Grid_Sum().onDamage({});
}

Scale Stage::scale() const {
    return Scale(widget_);
}

// --- The way in

QString Stage::failureOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const std::exception& error) {
        const QString text = QString::fromUtf8(error.what());
        return text.isEmpty() ? QStringLiteral("an exception without a text") : text;
    } catch (...) {
        return QStringLiteral("an exception of an unknown type");
    }
    return {};
}

/// A listener of the signal may throw as well.
void Stage::report(const QString& failure) {
    qWarning().noquote() << "kxGridWidget: a handler failed:" << failure;
    const QString again = failureOf([&] { Q_EMIT widget_.handlerFailed(failure); });
    if (!again.isNull()) qWarning().noquote() << "kxGridWidget: handlerFailed failed:" << again;
}

bool Stage::attempt(const std::function<void()>& look) {
    const std::shared_ptr<Machine> machine = machine_;
    const QString failure = failureOf(look);
    if (machine->stage != nullptr && !failure.isNull()) report(failure);
    return machine->stage != nullptr;
}

/// After every call: the input method works at another place, or in a cell that is not typed into.
void Stage::settle() {
    actions_.refreshWaysBack();
    const CellGrid& cells = grid().Grid();
    bool editable = false;
    if (!attempt([&] { editable = grid().cellEditable(cells.Row(), cells.Col()); })) return;
    editable_ = editable;
    TypingPlace now{takesTyping() || composingOnGrid_, cells.Row(), cells.Col(), 0, 0};
    if (now.row >= 0 && now.col >= 0) {
        now.left = cells.CellLeft();
        now.top = cells.CellTop();
    }
    if (now == typingPlace_) return;
    const bool moved = now.row != typingPlace_.row || now.col != typingPlace_.col;
    typingPlace_ = now;
    view_->setAttribute(Qt::WA_InputMethodEnabled, now.typing);
    if (view_->hasFocus() && now.typing)
        QGuiApplication::inputMethod()->update(Qt::ImQueryInput | Qt::ImHints);
    if (moved) AccessibleGrid::tellCurrentCell(*view_);
}

mEmDataType Stage::currentType() {
    const std::int32_t col = grid().Grid().Col();
    return col < 0 ? flexDTEmpty : grid().VsCtrl(static_cast<std::int16_t>(col))->iType();
}

/// A host that is asked whether the cell is locked may throw, or destroy the widget, which Qt does not bear in
/// the events that ask this: there it counts what was answered last.
bool Stage::editsHere() {
    const CellGrid& cells = grid().Grid();
    if (grid().Options().CellLocked.heard()) return editable_;
    return grid().cellEditable(cells.Row(), cells.Col());
}

bool Stage::takesTyping() {
    return editsHere() && currentType() != flexDTBoolean;
}

bool Stage::readsDigits() {
    return currentType() == flexDTDouble || currentType() == flexDTDate;
}

// --- What the control asks for

void Stage::giveFocus(FocusPlace place) {
    switch (place) {
        case FocusPlace::Grid:
            editorWaitsForFocus_ = false;
            view_->setFocus(Qt::OtherFocusReason);
            break;
        case FocusPlace::Editor:
            // moving the keyboard would end what is being composed
            editorWaitsForFocus_ = composingOnGrid_;
            if (!composingOnGrid_ && box_->visible()) box_->widget().setFocus(Qt::OtherFocusReason);
            break;
        case FocusPlace::HelpButton:
            button_->setFocus(Qt::OtherFocusReason);
            break;
        case FocusPlace::Surface:
        case FocusPlace::Elsewhere:
            break;  // the grid covers the surface
    }
}

void Stage::leaveControl(bool forward) {
    const QPointer<FindBar> bar = findBar_;
    if (bar) bar->inTabOrder(false);
    view_->leave(forward);
    if (bar) bar->inTabOrder(true);
}

void Stage::showEditor(const EditorView& view) {
    box_->show(view);
    const bool help = view.visible && view.helpButton;
    if (help) button_->setGeometry(scale().pixels(view.helpRect));
    if (help && button_->isHidden()) button_->raise();
    button_->setVisible(help);
    showTip();
}

/// While the keyboard is elsewhere nobody needs it.
void Stage::showTip() {
    if (!tip_) return;  // went with its window
    if (box_->visible() && focusShown_)
        tip_->showFor(box_->widget(), box_->tip());
    else
        tip_->hide();
}

void Stage::showSuggestions(const SuggestionView& suggestions) {
    suggestions_.show(box_->widget(), suggestions);
}

/// What is being composed is typed first, and may bring other suggestions: the one that was pressed counts.
void Stage::pressSuggestion(std::size_t index) {
    const Suggestion* const candidate = suggestions_.at(index);
    if (candidate == nullptr) return;
    const Suggestion pressed = *candidate;
    const std::shared_ptr<Machine> machine = machine_;
    endComposition();
    if (machine->stage == nullptr) return;
    const Suggestion* const now = suggestions_.at(index);
    const auto place = now && *now == pressed ? std::optional(index) : suggestions_.find(pressed);
    if (place) guarded([place](Input& input) { input.suggestionPressed(*place); });
}

void Stage::showFindBar(bool replace) {
    if (!findBar_) findBar_ = new FindBar(*this, &widget_);
    findBar_->open(replace);
}

void Stage::barChanged() {
    if (!resized()) return;
    guarded([this](Input&) {
        CellGrid& cells = grid().Grid();
        if (cells.Row() >= 0 && cells.Col() >= 0) editing::bringCurrentCellIntoView(cells);
    });
}

void Stage::typeIntoEditor(std::string_view character) {
    if (box_->visible()) box_->insert(toQt(character));
}

void Stage::layoutChanged() {
    area_->follow(grid().Grid(), scale());
    const Rect totals = grid().totalRowShown() ? grid().totalRowRect() : Rect{};
    if (totals == totalsShown_) return;
    totalsShown_ = totals;
    view_->update();
}

Rect Stage::onScreen(const Rect& place) const {
    const Scale now = scale();
    const QRect pixels = now.pixels(place).translated(view_->mapToGlobal(QPoint()));
    const std::int32_t left = now.twips(pixels.left());
    const std::int32_t top = now.twips(pixels.top());
    return {left, top, now.twips(pixels.left() + pixels.width()) - left,
            now.twips(pixels.top() + pixels.height()) - top};
}

void Stage::tellBeside(std::string_view text, const Rect& place) {
    machine_->platform.showTip(text, onScreen(place));
}

void Stage::settingChanged(std::string_view name) {
    Q_EMIT widget_.settingChanged(toQt(name));
}

// --- Focus

bool Stage::owns(const QWidget* widget) const {
    return widget != nullptr && (widget == &widget_ || widget_.isAncestorOf(widget));
}

void Stage::showFocus(bool focused) {
    if (focused == focusShown_) return;
    focusShown_ = focused;
    showTip();
    view_->update();
}

void Stage::focusEntered(FocusPlace place) {
    away_ = false;
    if (awaitedPress_) awaitedPress_->forget();
    showFocus(true);
    const bool waits = editorWaitsForFocus_ && !composingOnGrid_;
    if (place == FocusPlace::Editor) editorWaitsForFocus_ = false;
    if (!guarded([&](Input& input) { input.focusMoved(place); })) return;
    if (waits && place == FocusPlace::Grid) giveFocus(FocusPlace::Editor);
}

/// A text that is refused opens a box, which must not come up while Qt moves the keyboard.
void Stage::barEntered(const QFocusEvent& event) {
    away_ = event.reason() == Qt::ActiveWindowFocusReason && away_;
    if (awaitedPress_) awaitedPress_->forget();
    showFocus(false);
    const auto tell = [this] { guarded([](Input& input) { input.focusMoved(FocusPlace::Grid); }); };
    if (box_->visible())
        QTimer::singleShot(0, findBar_, [this, tell] {
            if (findBar_ && findBar_->isAncestorOf(QApplication::focusWidget())) tell();
        });
    else
        tell();
}

void Stage::focusLeft(const QFocusEvent& event) {
    const bool ours = owns(QApplication::focusWidget());
    if (!ours) showFocus(false);
    switch (event.reason()) {
        case Qt::ActiveWindowFocusReason:
        case Qt::PopupFocusReason:
        case Qt::MenuBarFocusReason:
            away_ = true;
            return;
        default:
            break;
    }
    if (ours) return;  // it reports itself
    if (event.reason() != Qt::MouseFocusReason) {
        loseKeyboard();
        return;
    }
    if (awaitedPress_) awaitedPress_->forget();
    awaitedPress_ = new AwaitedPress([this](const QWidget* pressed) {
        if (!owns(pressed)) return loseKeyboard();
        // what holds the grid has taken the keyboard for a press inside the grid, which is no loss
        (box_->visible() ? box_->widget() : *view_).setFocus(Qt::OtherFocusReason);
        return true;
    });
}

/// False when a refused text has taken the keyboard back.
bool Stage::loseKeyboard() {
    const bool alive = guarded([&](Input& input) {
        // what was composed on the grid is the editor's: it is the editor that is left
        if (std::exchange(editorWaitsForFocus_, false)) input.focusMoved(FocusPlace::Editor);
        input.focusMoved(FocusPlace::Elsewhere);
    });
    return !alive || !box_->visible() || widget_.window()->focusWidget() != &box_->widget();
}

/// While another window is in front, code may give the keyboard to another control of ours; no focus-out
/// tells.
void Stage::watchFocus() {
    QObject::connect(qApp, &QApplication::focusChanged, view_, [this](QWidget*, QWidget* now) {
        if (!away_ || now == nullptr || owns(now) || now->window() != widget_.window()) return;
        if (qobject_cast<QMenuBar*>(now) != nullptr) return;
        away_ = false;
        guarded([](Input& input) { input.focusMoved(FocusPlace::Elsewhere); });
    });
}

void Stage::keepFocusFrom(const QWidget& box) {
    const QWidget* window = widget_.window();
    const QWidget* holder = window->isActiveWindow() ? QApplication::focusWidget() : window->focusWidget();
    if (holder == &box) view_->setFocus(Qt::OtherFocusReason);
}

// --- Keys and wheel

void Stage::keyUp(const QKeyEvent& event) {
    if (event.isAutoRepeat() || box_->composing()) return;
    const KeyStroke stroke = strokeOf(event);
    guarded([&](Input& input) { input.keyUp(stroke.code, stroke.shift); });
}

void Stage::wheel(const QWheelEvent& event) {
    if (scrollsByPixels(event)) {
        const QPoint pixels = -event.pixelDelta();
        const Scale now = scale();
        guarded([&](Input& input) { input.scrolledBy(now.twips(pixels.x()), now.twips(pixels.y())); });
        return;
    }
    const QPoint notches = notches_.add(event);
    const std::int32_t right = notches.x();
    if (notches.y() != 0 && !guarded([&](Input& input) { input.wheel(notches.y()); })) return;
    const CellGrid& cells = grid().Grid();
    if (right != 0) guarded([&](Input& input) { input.scrolled(cells.TopRow(), cells.LeftCol() + right); });
}

void Stage::editText(Command command) {
    box_->carryOut(command);
}

// --- Look

void Stage::fitRows() {
    const std::int32_t needed = machine_->platform.metrics().rowHeight();
    mainRows_.fit(grid().Grid(), needed);
    totalRows_.fit(grid().Grid_Sum(), needed);
}

void Stage::lookChanged() {
    machine_->platform.widget(widget_);
    if (settings_.collecting()) return;
    if (!attempt([this] { fitRows(); })) return;
    if (!guarded([this](Input&) { grid().MeasureCols(); })) return;
    view_->update();
    resized();
}

bool Stage::resized() {
    QRect cells = widget_.rect();
    if (findBar_ && findBar_->isOpen()) {
        const int height = std::min(findBar_->heightFor(cells.width()), cells.height());
        cells.setHeight(cells.height() - height);
        findBar_->setGeometry(0, cells.height(), cells.width(), height);
    }
    area_->setGeometry(cells);
    const Scale now = scale();
    return guarded([&](Input& input) { input.resized(now.twips(cells.width()), now.twips(cells.height())); });
}

void Stage::watchDamage() {
    for (CellGrid* cells : {&machine_->grid->Grid(), &machine_->grid->Grid_Sum()}) {
        cells->takeDamage();
        cells->onDamage([this] { damaged(); });
    }
}

/// However much is damaged in one turn of the event loop, it is painted once.
void Stage::damaged() {
    if (!repaint_.isActive()) repaint_.start(0);
}

void Stage::repaintDamage() {
    if (!attempt([this] { fitRows(); })) return;
    area_->follow(grid().Grid(), scale());
    view_->repaintDamage(grid().Grid().takeDamage(), view_->mainPlace());
    view_->repaintDamage(grid().Grid_Sum().takeDamage(), grid().totalRowRect());
    attempt([this] { settle(); });
}
}  // namespace kxVsGrid::qt
