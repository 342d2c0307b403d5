#include "qt/text/EditorBox.h"

#include <algorithm>
#include <utility>

#include "qt/KeyMap.h"
#include "qt/Stage.h"
#include "qt/text/BoxParts.h"
#include "support/FlagSpan.h"

namespace kxVsGrid::qt {

using support::FlagSpan;

EditorBox::EditorBox(Stage& stage, QWidget& parent)
    : stage_(stage), line_(*new LineBox(*this, &parent)), port_(&line_) {
    line_.hide();
}

EditorBox::~EditorBox() = default;

// --- Mirroring

void EditorBox::choose(bool multiLine) {
    if (multiLine && lines_ == nullptr) {
        lines_ = new LinesBox(*this, line_.parentWidget());
        lines_->hide();
    }
    TextBoxPort* wanted = multiLine ? static_cast<TextBoxPort*>(lines_) : &line_;
    if (wanted == port_) return;
    hide();
    port_ = wanted;
    shown_ = {};
    known_ = {};
    port_->setText({});
}

void EditorBox::hide() {
    composition_.forget();
    QWidget& box = port_->widget();
    if (box.isHidden()) return;
    // a hidden widget's focus would go to the next control of the window, as if the clerk had left
    stage_.keepFocusFrom(box);
    box.hide();
}

void EditorBox::show(const EditorView& view) {
    const FlagSpan mirroring(mirroring_);
    const bool refusedBefore = view_.refused;
    view_ = view;
    if (!view.visible) {
        hide();
        return;
    }
    choose(view.multiLine);
    port_->takePlainSigns(view.plainSigns);
    if (!composing() || view.text != known_.text) {
        mirrorText(view);
        mirrorSelection(view);
    }
    port_->setAlignment(view.alignment);
    place();
    QWidget& box = port_->widget();
    box.setEnabled(view.enabled);
    box.setInputMethodHints((view.readsDigits ? Qt::ImhPreferNumbers : Qt::ImhNone) |
                            (view.multiLine ? Qt::ImhMultiLine : Qt::ImhNone));
    if (box.isHidden()) {
        box.show();
        box.raise();
    }
    box.setAccessibleDescription(tip());
    if (refusedBefore != view.refused) box.update();
}

void EditorBox::place() {
    if (!view_.visible) return;
    const QRect wanted = stage_.scale().pixels(view_.rect);
    if (port_->widget().geometry() != wanted) port_->widget().setGeometry(wanted);
}

void EditorBox::mirrorText(const EditorView& view) {
    if (view.text == known_.text) return;
    const bool carriage = view.multiLine && view.text.find("\r\n") != std::string::npos;
    lineEnds_ = carriage ? LineEnds::CarriageReturnAndLineFeed : LineEnds::Single;
    QString text = toQt(view.text);
    if (carriage) text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    put(text);
    shown_ = port_->state();
    known_ = known(shown_);
    known_.text = view.text;
}

void EditorBox::mirrorSelection(const EditorView& view) {
    if (view.selStart == known_.selStart && view.selLength == known_.selLength) return;
    const qsizetype start = positionOf(shown_.text, view.selStart, lineEnds_);
    const qsizetype end = positionOf(shown_.text, view.selStart + view.selLength, lineEnds_);
    port_->select(start, end - start);
    shown_ = port_->state();
    known_.selStart = view.selStart;
    known_.selLength = view.selLength;
}

// --- What the clerk changes

bool EditorBox::tell(const CoreText& told, bool sameText) {
    known_ = told;
    return stage_.guarded([&](Input& input) {
        if (sameText)
            input.selected(told.selStart, told.selLength);
        else
            input.edited(told.text, told.selStart, told.selLength);
    });
}

/// Takes back of what was put in whatever exceeds the limit. Texts set by code may be longer; then nothing
/// can be added.
void EditorBox::textChanging(const QString& before) {
    if (view_.limit <= 0) return;
    const QString now = port_->state().text;
    const auto limit = static_cast<std::size_t>(view_.limit);
    if (characters(now) <= limit) return;
    const qsizetype shorter = std::min(now.size(), before.size());
    qsizetype head = 0;
    while (head < shorter && now[head] == before[head]) ++head;
    qsizetype tail = 0;
    while (tail < shorter - head && now[now.size() - 1 - tail] == before[before.size() - 1 - tail]) ++tail;
    if (head > 0 && now[head - 1].isHighSurrogate()) --head;
    if (tail > 0 && now[now.size() - tail].isLowSurrogate()) --tail;
    const QString added = now.mid(head, now.size() - tail - head);
    const std::size_t kept = characters(now) - characters(added);
    const std::size_t room = limit > kept ? limit - kept : 0;
    const qsizetype fits = positionOf(added, room, LineEnds::Single);
    const FlagSpan mirroring(mirroring_);
    port_->select(head + fits, added.size() - fits);
    port_->insert({});
}

/// What is typed beyond the limit can be seen to do nothing; of a pasted text the end would be missing silently.
void EditorBox::pastes(const QString& text) {
    if (view_.limit <= 0) return;
    const auto limit = static_cast<std::size_t>(view_.limit);
    const BoxState now = port_->state();
    const std::size_t replaced = characters(now.text.mid(now.start, now.length));
    if (characters(now.text) - replaced + characters(text) <= limit) return;
    stage_.tellBeside("最多 " + std::to_string(limit) + " 个字，后面的没有粘贴。", view_.rect);
}

void EditorBox::insert(const QString& text) {
    asClerk(*this, port_->widget(), [&] { port_->insert(text); });
}

void EditorBox::carryOut(Command command) {
    asClerk(*this, port_->widget(), [&] {
        if (command == Command::Copy) port_->copy();
        if (command == Command::Cut) port_->cut();
        if (command == Command::Paste) port_->paste();
        if (command == Command::SelectAll) port_->selectAll();
    });
}

// --- Keys, focus, wheel

bool EditorBox::keyToCore(const QKeyEvent& event) {
    bool used = true;
    const bool alive = stage_.guarded([&](Input& input) { used = input.key(strokeOf(event)); });
    return used || !alive || undoOrRedo(event);
}

std::optional<Command> EditorBox::commandOf(const QKeyEvent& event) const {
    return kxVsGrid::qt::commandOf(event, stage_.grid(), CommandKey::Where::EditorToo);
}

/// What the box cannot take back or bring back any more is the grid's.
bool EditorBox::undoOrRedo(const QKeyEvent& event) {
    const std::optional<Command> command = commandOf(event);
    const bool undo = command == Command::Undo;
    if ((!undo && command != Command::Redo) || composing()) return false;
    if (undo ? port_->canUndo() : port_->canRedo())
        asClerk(*this, port_->widget(), [&] { undo ? port_->undo() : port_->redo(); });
    else
        stage_.guarded([&](Input& input) { input.command(*command); });
    return true;
}

void EditorBox::keyUp(const QKeyEvent& event) {
    stage_.keyUp(event);
}

void EditorBox::focusGained() {
    stage_.focusEntered(FocusPlace::Editor);
}

void EditorBox::focusLost(const QFocusEvent& event) {
    stage_.focusLeft(event);
}

bool EditorBox::leave(bool forward) {
    stage_.leaveControl(forward);
    return true;
}

void EditorBox::wheel(const QWheelEvent& event) {
    stage_.wheel(event);
}

// --- Input method

void EditorBox::compose(QInputMethodEvent& event) {
    inputMethod(event);
}

void EditorBox::composes(bool underway) {
    stage_.composing(underway);
}

QVariant EditorBox::query(Qt::InputMethodQuery query) const {
    return port_->query(query);
}
}  // namespace kxVsGrid::qt
