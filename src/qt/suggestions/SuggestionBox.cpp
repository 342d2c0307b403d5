#include "qt/suggestions/SuggestionBox.h"

#include <QAccessible>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "qt/Wording.h"

namespace kxVsGrid::qt {

SuggestionBox::SuggestionBox(QWidget& window, Acts acts) : QListView(&window), acts_(std::move(acts)) {
    setObjectName(QStringLiteral("suggestions"));
    setAccessibleName(wording::Suggestions);
    setFocusPolicy(Qt::NoFocus);
    setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);  // or each of a million rows would be measured
    setItemDelegate(&painter_);
    setModel(&rows_);
    hide();
}

void SuggestionBox::showAt(QWidget& editor, const SuggestionView& view) {
    if (view.candidates.empty()) return putAway();
    const bool another = isHidden() || editor_ != &editor || !rows_.holds(view.candidates);
    if (another) {
        watch(nullptr);
        rows_.put(view.candidates);
        // what waits to be laid out in the window is laid out now, and moves the editor before it is looked at
        show();
        raise();
        watch(&editor);
        adoptLook();
        scrollToTop();
    }
    moveTo(view.current);
}

void SuggestionBox::putAway() {
    watch(nullptr);
    const bool told = selectionModel()->hasSelection();
    hide();
    rows_.put({});
    if (!told || !QAccessible::isActive() || !window()->focusWidget()) return;
    QAccessibleEvent back(window()->focusWidget(), QAccessible::Focus);
    QAccessible::updateAccessibility(&back);
}

/// The one that the clerk is at counts as selected, which Qt tells of, and is told as what he works at: the
/// keyboard stays in the editor.
void SuggestionBox::moveTo(std::ptrdiff_t current) {
    const QModelIndex index = rows_.index(static_cast<int>(current), 0);
    if (index == currentIndex()) return;
    setCurrentIndex(index);
    if (!index.isValid() || !QAccessible::isActive() || hasFocus()) return;  // else Qt has told it
    QAccessibleEvent told(this, QAccessible::Focus);
    told.setChild(index.row());
    QAccessible::updateAccessibility(&told);
}

// --- Look and place

void SuggestionBox::adoptLook() {
    setFont(editor_->font());
    setPalette(editor_->palette());
    painter_.measure(rows_, QFontMetricsF(font()));
    place();
}

void SuggestionBox::place() {
    const QRect room = parentWidget()->rect();
    const QRect at(editor_->mapTo(parentWidget(), QPoint()), editor_->size());
    const int edges = 2 * frameWidth();
    const int row = SuggestionPainter::rowHeight(fontMetrics());
    const int count = rows_.rowCount();
    const int below = room.height() - (at.bottom() + 1);
    const int above = at.top();
    const int most = std::min(count, MostRowsShown);
    const bool under = most * row + edges <= below || below >= above;
    const int fit = std::clamp(((under ? below : above) - edges) / row, 1, most);
    const int height = std::min(fit * row + edges, room.height());
    const int bar = count > fit ? verticalScrollBar()->sizeHint().width() : 0;
    const int width = std::min(std::max(at.width(), painter_.width() + bar + edges), room.width());
    const int top = under ? at.bottom() + 1 : at.top() - height;
    setGeometry(std::clamp(at.left(), 0, room.width() - width), std::clamp(top, 0, room.height() - height),
                width, height);
}

// --- When it goes

void SuggestionBox::watch(QWidget* editor) {
    for (const QPointer<QWidget>& one : std::as_const(watched_))
        if (one) one->removeEventFilter(this);
    watched_.clear();
    editor_ = editor;
    // What stands for another has the keyboard where that has it. So a press goes no further in search of
    // somebody who would take it, and screen readers see that the list is worked in.
    setFocusProxy(editor);
    for (QWidget* at = editor; at != nullptr; at = at->isWindow() ? nullptr : at->parentWidget()) {
        at->installEventFilter(this);
        watched_.append(at);
    }
}

bool SuggestionBox::endsAt(const QObject& object, QEvent::Type type) const {
    const bool window = &object == parentWidget();
    switch (type) {
        case QEvent::Move:
        case QEvent::Hide:
        case QEvent::ParentChange:
            return true;
        case QEvent::Resize:
        case QEvent::WindowDeactivate:
            return window;
        default:
            return false;
    }
}

bool SuggestionBox::eventFilter(QObject* object, QEvent* event) {
    const QEvent::Type type = event->type();
    // Qt has this object look at parts of its own as well
    const bool outside = object->isWidgetType() && watched_.contains(static_cast<QWidget*>(object));
    if (!editor_ || !outside) return QListView::eventFilter(object, event);
    if (endsAt(*object, type))
        end();
    else if (object == editor_ && type == QEvent::Resize)
        place();
    else if (object == editor_ && (type == QEvent::PaletteChange || type == QEvent::FontChange))
        adoptLook();
    return QListView::eventFilter(object, event);
}

void SuggestionBox::end() {
    putAway();
    const auto gone = acts_.gone;
    if (gone) gone();
}

// --- The mouse

/// A press takes one; nothing is chosen by dragging, and what the mouse does in the list is no other widget's.
bool SuggestionBox::viewportEvent(QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            press(static_cast<QMouseEvent&>(*event));
            return true;
        case QEvent::MouseButtonRelease:
        case QEvent::MouseMove:
        case QEvent::ContextMenu:
            event->accept();
            return true;
        case QEvent::Wheel:
            QListView::viewportEvent(event);
            event->accept();
            return true;
        default:
            return QListView::viewportEvent(event);
    }
}

/// Who hears of it may end the list.
void SuggestionBox::press(const QMouseEvent& event) {
    const QModelIndex index = indexAt(event.position().toPoint());
    if (event.button() != Qt::LeftButton || !index.isValid() || !acts_.pressed) return;
    const auto pressed = acts_.pressed;
    pressed(static_cast<std::size_t>(index.row()));
}
}  // namespace kxVsGrid::qt
