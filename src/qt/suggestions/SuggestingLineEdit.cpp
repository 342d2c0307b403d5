#include "kxVsGrid/qt/SuggestingLineEdit.h"

#include <QDebug>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPointer>
#include <optional>
#include <utility>

#include "qt/suggestions/SuggestionsAt.h"
#include "qt/text/BoxParts.h"
#include "qt/text/Encoding.h"
#include "qt/text/KeysAfterComposition.h"
#include "suggest/SuggestionChoice.h"

namespace kxVsGrid::qt {

using suggest::SuggestionChoice;

class SuggestingLineEdit::Parts {
  public:
    explicit Parts(SuggestingLineEdit& field)
        : field_(field),
          list_({[this](std::size_t index) { press(index); }, [this] { choice.close(); }}),
          choice([this] { list_.show(field_, choice.view()); }) {}
    ~Parts() { list_.end(); }  // which shows what the choice holds
    Parts(const Parts&) = delete;
    Parts& operator=(const Parts&) = delete;

    /// By the text, unless an input method composes it, or it was taken from the list.
    void ask();
    void ask(const SuggestionSource& asked, const std::string& text);
    /// False when the field was destroyed by who heard of it.
    bool takeBy(SuggestionChoice::By key) { return take(choice.chosen(key, fromQt(field_.text()))); }
    /// True when the key is used up.
    bool move(int key);

    SuggestionSource source;
    bool composing = false;
    bool taking = false;

  private:
    bool take(const std::optional<Suggestion>& chosen);
    void press(std::size_t index);

    SuggestingLineEdit& field_;
    SuggestionsAt list_;

  public:
    SuggestionChoice choice;
};

void SuggestingLineEdit::Parts::ask() {
    if (!composing && !taking) ask(source, fromQt(field_.text()));
}

void SuggestingLineEdit::Parts::ask(const SuggestionSource& asked, const std::string& text) {
    QString failure;
    const QPointer<SuggestingLineEdit> field = &field_;
    try {
        choice.typed(asked, -1, text);
        return;
    } catch (const std::exception& error) {
        failure = QString::fromUtf8(error.what());
    } catch (...) {
        failure = QStringLiteral("an exception of an unknown type");
    }
    qWarning().noquote() << "SuggestingLineEdit: the source failed:" << failure;
    if (field) Q_EMIT field->sourceFailed(failure);
}

bool SuggestingLineEdit::Parts::move(int key) {
    switch (key) {
        case Qt::Key_Down:
            return choice.move(1);
        case Qt::Key_Up:
            return choice.move(-1);
        case Qt::Key_PageDown:
            return choice.move(SuggestionBox::MostRowsShown);
        case Qt::Key_PageUp:
            return choice.move(-SuggestionBox::MostRowsShown);
        case Qt::Key_Escape:
            return choice.dismiss();
        default:
            return false;
    }
}

/// As if the clerk had typed it in place of the text, who can take it back.
bool SuggestingLineEdit::Parts::take(const std::optional<Suggestion>& chosen) {
    const QPointer<SuggestingLineEdit> field = &field_;
    choice.close();
    if (!chosen || field->isReadOnly()) return true;
    taking = true;
    field->selectAll();
    field->insert(toQt(chosen->text));
    if (!field) return false;  // and the flag with it
    taking = false;
    Q_EMIT field->taken(*chosen);
    return !field.isNull();
}

/// What is being composed is typed first, and may bring other suggestions: the one that was pressed counts.
void SuggestingLineEdit::Parts::press(std::size_t index) {
    const std::optional<Suggestion> pressed = choice.at(index);
    const QPointer<SuggestingLineEdit> field = &field_;
    if (composing) QGuiApplication::inputMethod()->commit();
    if (field && pressed && list_.find(*pressed)) take(pressed);
}

// --- The field

SuggestingLineEdit::SuggestingLineEdit(QWidget* parent)
    : QLineEdit(parent), parts_(std::make_unique<Parts>(*this)) {
    KeysAfterComposition::install();
    QObject::connect(this, &QLineEdit::textEdited, this, [this] { parts_->ask(); });
}

SuggestingLineEdit::~SuggestingLineEdit() = default;

const SuggestionSource& SuggestingLineEdit::suggest() const {
    return parts_->source;
}

void SuggestingLineEdit::suggest(SuggestionSource source) {
    parts_->choice.close();
    parts_->source = std::move(source);
}

void SuggestingLineEdit::offer(std::vector<Suggestion> candidates) {
    if (isReadOnly()) return;
    parts_->choice.begin();
    const auto answer = [&](const SuggestionRequest& request) { request.answer(std::move(candidates)); };
    parts_->ask(answer, "offered");  // whatever stands in the field, be it nothing
    parts_->choice.move(1);
}

bool SuggestingLineEdit::listShown() const {
    return parts_->choice.shown();
}

void SuggestingLineEdit::closeList() {
    parts_->choice.close();
}

/// The list's keys set off no shortcut of the window; Tab takes before the keyboard leaves.
bool SuggestingLineEdit::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && listShown() &&
        claims(static_cast<QKeyEvent&>(*event), std::nullopt)) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::KeyPress && isTab(static_cast<QKeyEvent&>(*event))) {
        if (parts_->composing) return true;
        if (!parts_->takeBy(SuggestionChoice::By::Tab)) return true;
    }
    return QLineEdit::event(event);
}

void SuggestingLineEdit::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
    event->accept();
    if (parts_->composing) return;
    if (modifiers == Qt::NoModifier && parts_->move(event->key())) return;
    if (enter) {
        const QPointer<SuggestingLineEdit> field = this;
        if (!parts_->takeBy(SuggestionChoice::By::Enter)) return;
        Q_EMIT accepted();
        if (!field) return;
    }
    QLineEdit::keyPressEvent(event);
}

void SuggestingLineEdit::inputMethodEvent(QInputMethodEvent* event) {
    const QPointer<SuggestingLineEdit> field = this;
    const bool was = std::exchange(parts_->composing, !event->preeditString().isEmpty());
    const QString before = text();
    QLineEdit::inputMethodEvent(event);
    // what began with a selection has taken that away
    if (field && was && !parts_->composing && text() == before) parts_->ask();
}

void SuggestingLineEdit::focusInEvent(QFocusEvent* event) {
    const bool comesBack =
        event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason;
    if (!comesBack) parts_->choice.begin();
    QLineEdit::focusInEvent(event);
}

void SuggestingLineEdit::focusOutEvent(QFocusEvent* event) {
    parts_->choice.close();
    QLineEdit::focusOutEvent(event);
}
}  // namespace kxVsGrid::qt
