#include "kxVsGrid/qt/kxGridWidget.h"

#include <QDynamicPropertyChangeEvent>
#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include "qt/KeyMap.h"
#include "qt/PropertyValues.h"
#include "qt/Stage.h"

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

/// The children tell of their end (focus, hiding): they go before what they would tell.
kxGridWidget::~kxGridWidget() {
    parts_->close();
    qDeleteAll(findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
}

kxGrid& kxGridWidget::grid() {
    return parts_->grid();
}

const kxGrid& kxGridWidget::grid() const {
    return parts_->grid();
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
// -------------------------------------------------------------------------------------------------------

bool kxGridWidget::Editable() const {
    return parts_->setting("Editable").toBoolean();
}

void kxGridWidget::setEditable(bool editable) {
    parts_->setting("Editable", editable);
}

bool kxGridWidget::ShowZero() const {
    return parts_->setting("ShowZero").toBoolean();
}

void kxGridWidget::setShowZero(bool show) {
    parts_->setting("ShowZero", show);
}

bool kxGridWidget::SumRow() const {
    return parts_->setting("SumRow").toBoolean();
}

void kxGridWidget::setSumRow(bool show) {
    parts_->setting("SumRow", show);
}

int kxGridWidget::Cols() const {
    return parts_->setting("Cols").toInt32();
}

void kxGridWidget::setCols(int count) {
    parts_->setting("Cols", count);
}

int kxGridWidget::Rows() const {
    return parts_->setting("Rows").toInt32();
}

void kxGridWidget::setRows(int count) {
    parts_->setting("Rows", count);
}

int kxGridWidget::FixedCols() const {
    return parts_->setting("FixedCols").toInt32();
}

void kxGridWidget::setFixedCols(int count) {
    parts_->setting("FixedCols", count);
}

int kxGridWidget::FixedRows() const {
    return parts_->setting("FixedRows").toInt32();
}

void kxGridWidget::setFixedRows(int count) {
    parts_->setting("FixedRows", count);
}

int kxGridWidget::Appearance() const {
    return parts_->setting("Appearance").toInt32();
}

void kxGridWidget::setAppearance(int appearance) {
    parts_->setting("Appearance", appearance);
}

int kxGridWidget::BackColor() const {
    return parts_->setting("BackColor").toInt32();
}

void kxGridWidget::setBackColor(int color) {
    parts_->setting("BackColor", color);
}

int kxGridWidget::BackColorBkg() const {
    return parts_->setting("BackColorBkg").toInt32();
}

void kxGridWidget::setBackColorBkg(int color) {
    parts_->setting("BackColorBkg", color);
}

int kxGridWidget::BackColorFixed() const {
    return parts_->setting("BackColorFixed").toInt32();
}

void kxGridWidget::setBackColorFixed(int color) {
    parts_->setting("BackColorFixed", color);
}

int kxGridWidget::ForeColor() const {
    return parts_->setting("ForeColor").toInt32();
}

void kxGridWidget::setForeColor(int color) {
    parts_->setting("ForeColor", color);
}

int kxGridWidget::ForeColorFixe() const {
    return parts_->setting("ForeColorFixe").toInt32();
}

void kxGridWidget::setForeColorFixe(int color) {
    parts_->setting("ForeColorFixe", color);
}

QByteArray kxGridWidget::FormatString() const {
    return QByteArray::fromStdString(parts_->setting("FormatString").toText());
}

void kxGridWidget::setFormatString(const QByteArray& format) {
    parts_->setting("FormatString", format.toStdString());
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
