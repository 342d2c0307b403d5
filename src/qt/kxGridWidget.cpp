#include "kxVsGrid/qt/kxGridWidget.h"

#include <QDynamicPropertyChangeEvent>
#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include "qt/KeyMap.h"
#include "qt/Stage.h"
#include "qt/drafts/DraftKeeper.h"
#include "qt/settings/PropertyValues.h"

namespace kxVsGrid::qt {

class kxGridWidget::Parts : public Stage {
  public:
    using Stage::Stage;
};

kxGridWidget::kxGridWidget(QWidget* parent) : QWidget(parent), parts_(std::make_unique<Parts>(*this)) {
    setFocusProxy(&parts_->view());
    setFocusPolicy(Qt::TabFocus);
    setMouseTracking(true);
}

/// The children tell of their end (focus, hiding), and drafts look at the grid: they go before what they would
/// tell or look at.
kxGridWidget::~kxGridWidget() {
    for (QObject* child : QObjectList(children())) delete dynamic_cast<drafts::DraftKeeper*>(child);
    parts_->close();
    qDeleteAll(findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
}

kxGrid& kxGridWidget::grid() {
    return parts_->grid();
}

const kxGrid& kxGridWidget::grid() const {
    return parts_->grid();
}

QAction* kxGridWidget::action(Command command) {
    return parts_->action(command);
}

void kxGridWidget::appendToMenu(QAction* action) {
    parts_->appendToMenu(action);
}

QSize kxGridWidget::sizeHint() const {
    const Rect hint{0, 0, 9000, 4500};
    return parts_->scale().pixels(hint).size();
}

QSize kxGridWidget::minimumSizeHint() const {
    const Rect hint{0, 0, 1500, 900};
    return parts_->scale().pixels(hint).size();
}

void kxGridWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    switch (event->type()) {
        case QEvent::FontChange:
        case QEvent::PaletteChange:
        case QEvent::StyleChange:
        case QEvent::EnabledChange:
            parts_->lookChanged();
            break;
        default:
            break;
    }
}

void kxGridWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    parts_->resized();
}

void kxGridWidget::wheelEvent(QWheelEvent* event) {
    event->accept();
    parts_->wheel(*event);
}

// --- The surface: only while the widget itself has the keyboard, which it passes on unless a host takes the
// focus proxy away.

void kxGridWidget::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    parts_->focusEntered(FocusPlace::Surface);
}

void kxGridWidget::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    parts_->focusLeft(*event);
}

void kxGridWidget::keyPressEvent(QKeyEvent* event) {
    event->ignore();
    if (!hasFocus() || focusProxy() != nullptr) return;
    bool used = false;
    if (parts_->guarded([&](Input& input) { used = input.key(strokeOf(*event)); })) event->setAccepted(used);
}

void kxGridWidget::keyReleaseEvent(QKeyEvent* event) {
    event->ignore();
    if (hasFocus() && focusProxy() == nullptr) parts_->keyUp(*event);
}

void kxGridWidget::mouseMoveEvent(QMouseEvent* event) {
    const Scale scale = parts_->scale();
    const QPointF at = event->position();
    parts_->guarded([&](Input& input) {
        input.surfaceMouseMove(buttonsOf(event->buttons()), shiftOf(event->modifiers()),
                               static_cast<float>(scale.twips(at.x())),
                               static_cast<float>(scale.twips(at.y())));
    });
}

// --- The stored settings

bool kxGridWidget::truth(std::string_view setting) const {
    return parts_->setting(setting).toBoolean();
}

int kxGridWidget::number(std::string_view setting) const {
    return parts_->setting(setting).toInt32();
}

QByteArray kxGridWidget::text(std::string_view setting) const {
    return QByteArray::fromStdString(parts_->setting(setting).toText());
}

void kxGridWidget::setting(std::string_view name, const Variant& value) {
    parts_->setting(name, value);
}

/// The settings of columns come as dynamic properties.
bool kxGridWidget::event(QEvent* event) {
    if (event->type() == QEvent::DynamicPropertyChange) {
        const QByteArray name = static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName();
        const bool stored = StoredSettings::names(name.toStdString());
        if (stored && !parts_->setting(name.toStdString(), fromProperty(property(name)))) return true;
    }
    return QWidget::event(event);
}
}  // namespace kxVsGrid::qt
