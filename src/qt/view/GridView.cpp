#include "qt/view/GridView.h"

#include <QApplication>
#include <QInputMethod>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <utility>

#include "qt/KeyMap.h"
#include "qt/Stage.h"
#include "qt/Wording.h"
#include "qt/access/AccessibleGrid.h"
#include "qt/text/BoxParts.h"
#include "qt/text/Encoding.h"
#include "qt/view/MousePress.h"

namespace kxVsGrid::qt {
GridView::GridView(Stage& stage, QWidget* parent) : GridSurface(parent), stage_(stage), dragScroll_(this) {
    AccessibleGrid::install();  // before anything asks for this view
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    setContextMenuPolicy(Qt::PreventContextMenu);  // the press itself goes to the control
    setAccessibleName(wording::Grid);
}

Rect GridView::mainPlace() const {
    const CellGrid& grid = stage_.grid().Grid();
    return {0, 0, grid.Width(), grid.Height()};
}

// --- Painting

void GridView::lookChanged() {
    stage_.lookChanged();
}

void GridView::paintGrids(QPainter& painter, const QRegion& region) {
    if (!stage_.attempt([this] { stage_.fitRows(); })) return;
    partFailed_ = false;
    paintParts(painter, region, [&](const QRect& part) { paintPart(painter, part); });
    const bool all = region.rectCount() == 1 && region.boundingRect().contains(rect());
    if (!partFailed_ && all) toldFailure_ = false;
}

void GridView::paintPart(QPainter& painter, const QRect& part) {
    const kxGrid& grid = stage_.grid();
    paintGrid(painter, part, grid.Grid(), mainPlace(), mainFrame_);
    if (!grid.totalRowShown()) return;
    paintGrid(painter, part, grid.Grid_Sum(), grid.totalRowRect(), totalFrame_);
    paintTotalEdges(painter);
}

/// A line above the totals, and no slivers of a data row between them and the scroll bar.
void GridView::paintTotalEdges(QPainter& painter) {
    constexpr std::uint32_t Shadow = 0x80000010;
    const kxGrid& grid = stage_.grid();
    const Scale scale = stage_.scale();
    const QRect totals = scale.devicePixels(grid.totalRowRect());
    const int below = totals.bottom() + 1;
    const int end = scale.devicePixel(grid.Grid().ClientHeight());
    painter.save();
    useDevicePixels(painter, scale.ratio());
    painter.fillRect(QRect(totals.left(), totals.top(), totals.width(), 1),
                     QColor(painter_.colors().rgb(Shadow)));
    painter.fillRect(QRect(totals.left(), below, totals.width(), end - below),
                     QColor(painter_.colors().rgb(grid.Grid_Sum().BackColorBkg())));
    painter.restore();
}

void GridView::paintGrid(QPainter& painter, const QRect& part, const CellGrid& grid, const Rect& origin,
                         Frame& frame) {
    FrameState state;
    state.focused = stage_.focusShown();
    state.editorOpen = stage_.box().visible();
    state.flat = stage_.grid().Appearance() == 0;  // the total row has the main grid's look
    const QString failure =
        Stage::failureOf([&] { painter_.paint(painter, part, grid, origin, state, frame); });
    if (failure.isNull()) return;
    painter.fillRect(stage_.scale().pixels(origin) & part,
                     QColor(painter_.colors().rgb(grid.BackColorBkg())));
    paintFailed(failure);
}

/// A text that cannot be computed fails with every paint: it is told once, until all has been painted again.
void GridView::paintFailed(const QString& failure) {
    partFailed_ = true;
    if (std::exchange(toldFailure_, true)) return;
    QMetaObject::invokeMethod(
        this, [this, failure] { stage_.report(failure); }, Qt::QueuedConnection);
}

// --- Keys

bool GridView::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::FocusAboutToChange:
            stage_.endComposition();
            break;
        case QEvent::ShortcutOverride: {
            auto& key = static_cast<QKeyEvent&>(*event);
            const bool ours = claims(key, commandOf(key)) && key.key() != Qt::Key_Escape &&
                              (key.key() != Qt::Key_F2 || stage_.editsHere());
            if (!ours) break;
            event->accept();
            return true;
        }
        case QEvent::KeyPress: {
            auto& key = static_cast<QKeyEvent&>(*event);
            if (!isTab(key)) break;
            key.accept();
            bool used = stage_.box().composing();
            const bool forward = isForward(key);
            if (!used && !stage_.guarded([&](Input& input) { used = input.key(strokeOf(key)); })) return true;
            if (!used) stage_.leaveControl(forward);
            return true;
        }
        default:
            break;
    }
    return GridSurface::event(event);
}

void GridView::keyPressEvent(QKeyEvent* event) {
    event->accept();
    if (stage_.box().composing()) return;
    const auto command = commandOf(*event);
    const bool own = ownCommandOf(*event, stage_.grid(), CommandKey::Where::ClosedCell).has_value();
    if (command && !own && !stage_.box().visible()) {
        stage_.guarded([&](Input& input) { input.command(*command); });
        return;
    }
    KeyStroke stroke = strokeOf(*event);
    QString further;
    if (characters(event->text()) > 1 && !stroke.character.empty()) {
        const QString text = toQt(stroke.character);
        const qsizetype first = positionOf(text, 1, LineEnds::Single);
        further = text.mid(first);
        stroke.character = fromQt(text.left(first));
    }
    const bool wasOpen = stage_.box().visible();
    bool used = false;
    if (!stage_.guarded([&](Input& input) { used = input.key(stroke); })) return;
    if (!further.isEmpty() && stage_.box().visible()) stage_.box().insert(further);
    // Esc that opened nothing and toggled nothing: a dialog may have its use for it
    const bool idle =
        event->key() == Qt::Key_Escape && !wasOpen && !stage_.box().visible() && !stage_.togglesHere();
    event->setAccepted(used && !idle);
}

std::optional<Command> GridView::commandOf(const QKeyEvent& event) const {
    const auto where = stage_.box().visible() ? CommandKey::Where::EditorToo : CommandKey::Where::ClosedCell;
    const kxGrid& grid = stage_.grid();
    const auto command = qt::commandOf(event, grid, where);
    const bool looksOn = command == Command::FindNext || command == Command::FindPrevious;
    return looksOn && !grid.CanRun(*command) ? std::nullopt : command;
}

void GridView::keyReleaseEvent(QKeyEvent* event) {
    stage_.keyUp(*event);
}

void GridView::inputMethodEvent(QInputMethodEvent* event) {
    stage_.composeOnGrid(*event);
}

QVariant GridView::inputMethodQuery(Qt::InputMethodQuery query) const {
    switch (query) {
        case Qt::ImEnabled:
            return stage_.takesTyping();
        case Qt::ImHints:
            return static_cast<int>(stage_.readsDigits() ? Qt::ImhPreferNumbers : Qt::ImhNone);
        case Qt::ImFont:
            return font();
        default:
            return boxQuery(query);
    }
}

/// Of the editor, which composes for the grid; where it is closed, of the place where it would open.
QVariant GridView::boxQuery(Qt::InputMethodQuery query) const {
    const EditorBox& box = stage_.box();
    const bool place = query == Qt::ImCursorRectangle || query == Qt::ImAnchorRectangle;
    if (box.visible()) {
        QVariant answer = box.query(query);
        if (!place) return answer;
        const QPoint shift = box.widget().mapToGlobal(QPoint()) - mapToGlobal(QPoint());
        return answer.toRectF().translated(shift);
    }
    if (!place) return QWidget::inputMethodQuery(query);
    const CellGrid& grid = stage_.grid().Grid();
    if (grid.Row() < 0 || grid.Col() < 0) return QRectF();
    const QRect pixels = stage_.scale().pixels(grid.CellRect(grid.Row(), grid.Col()));
    return QRectF(pixels.left(), pixels.top(), 1, pixels.height());
}

// --- Mouse

void GridView::mousePressEvent(QMouseEvent* event) {
    stage_.endComposition();
    const BoxMeanwhile box(*this);
    if (takesKeyboard(event->position())) press(*event, box, &Input::mouseDown);
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    press(*event, BoxMeanwhile(*this), &Input::doubleClick);
}

void GridView::press(const QMouseEvent& event, const BoxMeanwhile& box, PressTold told) {
    dragScroll_.stop();
    const Touch touch = touchOf(event, event.button());
    const bool alive =
        stage_.guarded([&](Input& input) { (input.*told)(touch.buttons, touch.shift, touch.x, touch.y); });
    if (alive && box) makeUpForRelease(*this, event);
}

/// Before a press: another grid of the window may refuse its text as it loses the keyboard. Then it keeps the
/// keyboard, and the press reaches nobody. The editor of this grid is asked by the control itself.
bool GridView::takesKeyboard(const QPointF& at) {
    const QPointer<QWidget> holder(window()->focusWidget());
    if (stage_.box().visible() || holder.isNull() || holder == this || overTotals(at)) return true;
    const QPointer<GridView> alive(this);
    setFocus(Qt::OtherFocusReason);
    return alive && (holder.isNull() || window()->focusWidget() != holder);
}

bool GridView::overTotals(const QPointF& at) const {
    const Scale scale = stage_.scale();
    const kxGrid& grid = stage_.grid();
    return grid.totalRowShown() && grid.totalRowRect().contains(middle(scale, at.x()), middle(scale, at.y()));
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
    dragScroll_.stop();
    const Touch touch = touchOf(*event, event->button());
    stage_.guarded([&](Input& input) { input.mouseUp(touch.buttons, touch.shift, touch.x, touch.y); });
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
    const QPointF at = event->position();
    if (event->buttons() == Qt::NoButton)
        showCursor(!overTotals(at) && hit(stage_.grid().Grid(), {}, at).part == GridHit::Part::ColumnEdge);
    mouseMoved(touchOf(*event, event->buttons()));
}

void GridView::mouseMoved(const Touch& touch) {
    const bool alive =
        stage_.guarded([&](Input& input) { input.mouseMove(touch.buttons, touch.shift, touch.x, touch.y); });
    if (alive) dragScroll_.moved(stage_.grid().Grid().DragScrolls(), [this, touch] { dragOn(touch); });
}

/// A box in front has taken the mouse.
void GridView::dragOn(const Touch& touch) {
    const QWidget* box = QApplication::activeModalWidget();
    const bool hears = isVisible() && (box == nullptr || box->isAncestorOf(this));
    if (!hears || QApplication::activePopupWidget() != nullptr) return dragScroll_.stop();
    mouseMoved(touch);
}

void GridView::showWholeText(const QHelpEvent& event) {
    stage_.attempt([&] { showTextUnder(event); });
}

/// What the mark on a cell says, empty for none.
std::string GridView::markUnder(const CellGrid& cells, const GridHit& under) {
    if (under.part != GridHit::Part::Cell && under.part != GridHit::Part::FixedCell) return {};
    const CellMark* const mark = cells.Mark(under.row, under.col);
    return mark ? mark->text : std::string();
}

/// A check box has no text to be shown. What a mark says stands before the text.
void GridView::showTextUnder(const QHelpEvent& event) {
    const kxGrid& grid = stage_.grid();
    const bool totals = overTotals(event.pos());
    const CellGrid& cells = totals ? grid.Grid_Sum() : grid.Grid();
    const Rect origin = totals ? grid.totalRowRect() : Rect{};
    const GridHit under = hit(cells, origin, event.pos());
    const bool checkBox =
        !totals && under.part == GridHit::Part::Cell && cells.ColDataType(under.col) == flexDTBoolean;
    std::string tip = markUnder(cells, under);
    const std::string cut = checkBox ? std::string() : cutText(cells, under, stage_.metrics());
    if (!tip.empty() && !cut.empty()) tip += '\n';
    showTip(event, tip + cut);
}

void GridView::wheelEvent(QWheelEvent* event) {
    event->accept();
    stage_.wheel(*event);
}

// --- Focus

void GridView::focusInEvent(QFocusEvent*) {
    stage_.focusEntered(FocusPlace::Grid);
}

void GridView::focusOutEvent(QFocusEvent* event) {
    stage_.focusLeft(*event);
}

bool GridView::focusNextPrevChild(bool next) {
    stage_.leaveControl(next);
    return true;
}

bool GridView::leave(bool forward) {
    // The view itself must not be the next stop on the way out.
    setFocusPolicy(Qt::NoFocus);
    const bool left = QWidget::focusNextPrevChild(forward);
    setFocusPolicy(Qt::TabFocus);
    return left;
}
}  // namespace kxVsGrid::qt
