#include "qt/forms/FormGrid.h"

#include <QKeyEvent>

#include "qt/KeyMap.h"
#include "qt/forms/FormDialog.h"

namespace kxVsGrid::qt {
namespace {

constexpr std::int32_t RowsPerNotch = 3;
}  // namespace

FormGrid::FormGrid(FormDialog& dialog, FormControl& control)
    : ScrollArea(&dialog,
                 [&dialog, &control](std::int32_t top, std::int32_t left) {
                     dialog.act([&](Form&) { control.grid->ScrollTo(top, left); });
                 }),
      control_(control) {
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    auto* view = new FormGridView(dialog, control, *this);
    hold(*view);
    setFocusProxy(view);
}

FormGridView::FormGridView(FormDialog& dialog, FormControl& control, FormGrid& area)
    : GridSurface(&area), dialog_(dialog), control_(control), grid_(*control.grid), area_(area) {
    setFocusPolicy(Qt::StrongFocus);
    repaint_.setSingleShot(true);
    connect(&repaint_, &QTimer::timeout, this, [this] { followDamage(); });
    grid_.takeDamage();
    grid_.onDamage([this] {
        if (!repaint_.isActive()) repaint_.start(0);
    });
}

FormGridView::~FormGridView() {
    grid_.onDamage({});
}

// --- Look

/// A row that cannot hold its text is made higher, never the text smaller. A current row that is in view
/// stays there.
void FormGridView::fit() {
    metrics_.use(*this);
    const std::int32_t needed = metrics_.rowHeight();
    if (needed > std::max(CellGrid::DefaultRowHeight, grid_.RowHeightMin())) grid_.RowHeightMin(needed);
    const Scale scale(*this);
    const bool rowSeen = grid_.Row() >= grid_.FixedRows() && grid_.RowIsVisible(grid_.Row());
    const QRect room = area_.contentsRect();
    grid_.Resize(scale.twips(room.width()), scale.twips(room.height()));
    if (rowSeen) grid_.BringRowIntoView(grid_.Row(), grid_.ClientHeight());
    area_.follow(grid_, scale);
}

void FormGridView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) fit();
}

void FormGridView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fit();
}

void FormGridView::paintGrids(QPainter& painter, const QRegion& region) {
    const QBrush ground = palette().brush(QPalette::Window);
    try {
        paintParts(painter, region, [&](const QRect& part) {
            painter_.paint(painter, part, grid_, {0, 0, grid_.Width(), grid_.Height()}, {}, frame_);
        });
    } catch (...) {
        painter.fillRect(region.boundingRect(), ground);
        fail(std::current_exception());
    }
}

/// Closes the dialog, but not in the middle of a paint.
void FormGridView::fail(const std::exception_ptr& failure) {
    QMetaObject::invokeMethod(
        this, [this, failure] { dialog_.act([&](Form&) { std::rethrow_exception(failure); }); },
        Qt::QueuedConnection);
}

void FormGridView::followDamage() {
    area_.follow(grid_, Scale(*this));
    repaintDamage(grid_.takeDamage(), {});
}

// --- Keys, mouse and wheel

/// What the form has no use for.
void FormGridView::keyPressEvent(QKeyEvent* event) {
    const KeyStroke stroke = strokeOf(*event);
    bool used = false;
    dialog_.act([&](Form&) { used = grid_.keyDown(stroke.code, stroke.shift); });
    event->setAccepted(used);
}

void FormGridView::mousePressEvent(QMouseEvent* event) {
    const Touch touch = touchOf(*event, event->button());
    onRow_ =
        event->button() == Qt::LeftButton && hit(grid_, {}, event->position()).part == GridHit::Part::Cell;
    dialog_.act([&](Form&) { grid_.mouseDown(touch.buttons, touch.shift, touch.x, touch.y); });
}

void FormGridView::mouseReleaseEvent(QMouseEvent* event) {
    const Touch touch = touchOf(*event, event->button());
    dialog_.act([&](Form&) { grid_.mouseUp(touch.buttons, touch.shift, touch.x, touch.y); });
}

/// Chooses the row of the first press, also when the grid has scrolled by it.
void FormGridView::mouseDoubleClickEvent(QMouseEvent* event) {
    const bool chooses = event->button() == Qt::LeftButton && std::exchange(onRow_, false);
    if (chooses) dialog_.act([&](Form& form) { form.doubleClick(control_); });
}

void FormGridView::mouseMoveEvent(QMouseEvent* event) {
    const Touch touch = touchOf(*event, event->buttons());
    if (event->buttons() == Qt::NoButton)
        showCursor(hit(grid_, {}, event->position()).part == GridHit::Part::ColumnEdge);
    dialog_.act([&](Form&) { grid_.mouseMove(touch.buttons, touch.shift, touch.x, touch.y); });
}

void FormGridView::wheelEvent(QWheelEvent* event) {
    event->accept();
    const QPoint notches = notches_.add(*event);
    dialog_.act([&](Form&) {
        grid_.wheel(notches.y() * RowsPerNotch);
        if (notches.x() != 0) grid_.LeftCol(grid_.LeftCol() + notches.x());
    });
}

void FormGridView::showWholeText(const QHelpEvent& event) {
    showTip(event, cutText(grid_, hit(grid_, {}, event.pos()), metrics_));
}
}  // namespace kxVsGrid::qt
