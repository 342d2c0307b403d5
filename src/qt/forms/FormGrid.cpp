#include "qt/forms/FormGrid.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QToolTip>
#include <QVBoxLayout>

#include "qt/KeyMap.h"
#include "qt/forms/FormDialog.h"
#include "qt/text/Encoding.h"
#include "qt/view/Tips.h"

namespace kxVsGrid::qt {
namespace {

constexpr std::int32_t RowsPerNotch = 3;
}  // namespace

FormGrid::FormGrid(FormDialog& dialog, FormControl& control) : QFrame(&dialog), control_(control) {
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    auto* view = new FormGridView(dialog, control, this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view);
    setFocusProxy(view);
}

FormGridView::FormGridView(FormDialog& dialog, FormControl& control, QWidget* parent)
    : QWidget(parent),
      dialog_(dialog),
      control_(control),
      grid_(*control.grid),
      bars_(*this, [this](std::int32_t top, std::int32_t left) {
          dialog_.act([&](Form&) { grid_.ScrollTo(top, left); });
      }) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    repaint_.setSingleShot(true);
    connect(&repaint_, &QTimer::timeout, this, [this] { repaintDamage(); });
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
    grid_.Resize(scale.twips(width()), scale.twips(height()));
    if (rowSeen) grid_.TopRow(grid_.TopRowToShow(grid_.Row(), grid_.ClientHeight()));
    bars_.follow(grid_, scale);
}

void FormGridView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) fit();
}

void FormGridView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fit();
}

void FormGridView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (painter_.follow(*this))
        QMetaObject::invokeMethod(
            this, [this] { fit(); }, Qt::QueuedConnection);
    const QBrush ground = palette().brush(QPalette::Window);
    try {
        paintParts(painter, event->region(), [&](const QRect& part) {
            painter_.paint(painter, part, grid_, {0, 0, grid_.Width(), grid_.Height()}, {}, frame_);
            painter.fillRect(bars_.corner() & part, ground);
        });
    } catch (...) {
        painter.fillRect(event->rect(), ground);
        fail(std::current_exception());
    }
}

/// Closes the dialog, but not in the middle of a paint.
void FormGridView::fail(const std::exception_ptr& failure) {
    QMetaObject::invokeMethod(
        this, [this, failure] { dialog_.act([&](Form&) { std::rethrow_exception(failure); }); },
        Qt::QueuedConnection);
}

void FormGridView::repaintDamage() {
    const Scale scale(*this);
    bars_.follow(grid_, scale);
    const CellGrid::Damage damage = grid_.takeDamage();
    if (damage.all)
        update();
    else if (const QRegion region = pixelsOf(damage, {}, scale); !region.isEmpty())
        update(region);
}

// --- Keys, mouse and wheel

/// What the form has no use for.
void FormGridView::keyPressEvent(QKeyEvent* event) {
    const KeyStroke stroke = strokeOf(*event);
    bool used = false;
    dialog_.act([&](Form&) { used = grid_.keyDown(stroke.code, stroke.shift); });
    event->setAccepted(used);
}

GridHit FormGridView::hit(const QPointF& at) const {
    const Scale scale(*this);
    return grid_.HitTest(middle(scale, at.x()), middle(scale, at.y()));
}

void FormGridView::mousePressEvent(QMouseEvent* event) {
    const Scale scale(*this);
    const QPointF at = event->position();
    onRow_ = event->button() == Qt::LeftButton && hit(at).part == GridHit::Part::Cell;
    dialog_.act([&](Form&) {
        grid_.mouseDown(buttonsOf(event->button()), shiftOf(event->modifiers()), middle(scale, at.x()),
                        middle(scale, at.y()));
    });
}

void FormGridView::mouseReleaseEvent(QMouseEvent* event) {
    const Scale scale(*this);
    const QPointF at = event->position();
    dialog_.act([&](Form&) {
        grid_.mouseUp(buttonsOf(event->button()), shiftOf(event->modifiers()), middle(scale, at.x()),
                      middle(scale, at.y()));
    });
}

/// Chooses the row of the first press, also when the grid has scrolled by it.
void FormGridView::mouseDoubleClickEvent(QMouseEvent* event) {
    const bool chooses = event->button() == Qt::LeftButton && std::exchange(onRow_, false);
    if (chooses) dialog_.act([&](Form& form) { form.doubleClick(control_); });
}

void FormGridView::mouseMoveEvent(QMouseEvent* event) {
    const Scale scale(*this);
    const QPointF at = event->position();
    if (event->buttons() == Qt::NoButton)
        setCursor(hit(at).part == GridHit::Part::ColumnEdge ? Qt::SplitHCursor : Qt::ArrowCursor);
    dialog_.act([&](Form&) {
        grid_.mouseMove(buttonsOf(event->buttons()), shiftOf(event->modifiers()), middle(scale, at.x()),
                        middle(scale, at.y()));
    });
}

void FormGridView::wheelEvent(QWheelEvent* event) {
    event->accept();
    const QPoint notches = notches_.add(*event);
    dialog_.act([&](Form&) {
        grid_.wheel(notches.y() * RowsPerNotch);
        if (notches.x() != 0) grid_.LeftCol(grid_.LeftCol() + notches.x());
    });
}

bool FormGridView::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    showWholeText(static_cast<QHelpEvent&>(*event));
    return true;
}

void FormGridView::showWholeText(const QHelpEvent& event) {
    const QString text = toQt(cutText(grid_, hit(event.pos()), metrics_));
    QToolTip::showText(event.globalPos(), plainTip(text), this);
}
}  // namespace kxVsGrid::qt
