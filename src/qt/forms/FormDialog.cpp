#include "qt/forms/FormDialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <utility>

#include "qt/KeyMap.h"
#include "qt/ModalBox.h"
#include "qt/forms/FormPlace.h"
#include "qt/text/Encoding.h"
#include "qt/view/Scale.h"

namespace kxVsGrid::qt {
namespace {

QMargins frameOf(const QWidget& window) {
    const QRect outer = window.frameGeometry();
    const QRect inner = window.geometry();
    return {inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
            outer.bottom() - inner.bottom()};
}

/// A button needs its text alone; labels and check boxes keep their size.
QSize leastSizeOf(const QWidget& widget) {
    constexpr int Edges = 12;
    const bool moves = qobject_cast<const QLabel*>(&widget) || qobject_cast<const QCheckBox*>(&widget);
    if (moves) return {0, widget.minimumSizeHint().height()};
    const auto* button = qobject_cast<const QPushButton*>(&widget);
    if (button == nullptr) return widget.minimumSizeHint();
    return {button->fontMetrics().horizontalAdvance(button->text()) + Edges,
            button->minimumSizeHint().height()};
}

bool isEnter(const KeyStroke& stroke) {
    return stroke.code == static_cast<std::int16_t>(Key::Enter);
}
}  // namespace

/// What the form asks of its window.
struct FormDialog::Port : FormWindow {
    explicit Port(FormDialog& window) : dialog(window) {}

    void changed(const FormControl& control) override {
        if (const FormPart* part = dialog.partOf(control)) dialog.mirror(*part);
    }
    void giveFocus(const FormControl& control) override {
        if (const FormPart* part = dialog.partOf(control)) part->widget->setFocus(Qt::OtherFocusReason);
    }
    void close() override { dialog.done(Accepted); }
    void whenIdle(std::function<bool()> slice) override {
        dialog.slices_.push_back(std::move(slice));
        dialog.idle_.start();
    }

    FormDialog& dialog;
};

FormDialog::FormDialog(QWidget* parent) : QDialog(parent), port_(std::make_unique<Port>(*this)) {
    idle_.setInterval(0);  // when no event waits
    connect(&idle_, &QTimer::timeout, this, [this] { runSlice(); });
}

/// The children tell of their end (focus, hiding): they go before what they would tell.
FormDialog::~FormDialog() {
    finish();
    qDeleteAll(findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
}

// --- Opening and closing

void FormDialog::start(Form& form, const Rect& anchor, std::exception_ptr& failure) {
    form_ = &form;
    failure_ = &failure;
    anchor_ = anchor;
    setObjectName(toQt(form.name()));
    setWindowTitle(toQt(form.caption()));
    build();
    if (!act([this](Form& opened) { opened.open(*port_); }) || !showing()) return;
    for (const FormPart& part : parts_) mirror(part);
    const Scale scale(*this);
    setMinimumSize(leastSize().expandedTo({scale.pixel(form.minWidth()), scale.pixel(form.minHeight())}));
    resize(scale.pixel(form.ScaleWidth()), scale.pixel(form.ScaleHeight()));
    takePlace(parentWidget() != nullptr ? frameOf(*parentWidget()) : QMargins());
}

void FormDialog::done(int result) {
    finish();
    QDialog::done(result);
}

/// A window of the host's stood in front. Not every desktop gives the place back by itself.
void FormDialog::comeBack() {
    if (showing() && !isActiveWindow() && QApplication::activeModalWidget() == this) activateWindow();
}

/// The form hears of the window's end, once, whoever has brought it about.
void FormDialog::finish() {
    idle_.stop();
    slices_.clear();
    Form* form = std::exchange(form_, nullptr);
    if (form == nullptr) return;
    try {
        form->closed();
    } catch (...) {
        if (!*failure_) *failure_ = std::current_exception();
    }
}

void runForm(const QWidget* widget, Form& form, const Rect& anchor) {
    std::exception_ptr failure;
    {
        ModalBox<FormDialog> shown(widget);
        if (widget != nullptr) shown->setFont(widget->font());
        shown->start(form, anchor, failure);
        if (shown && shown->showing()) shown->exec();
    }
    if (failure) std::rethrow_exception(failure);
}

// --- Controls

void FormDialog::build() {
    for (const auto& control : form_->controls()) {
        FormPart part = makePart(*this, *control);
        if (part.widget == nullptr) continue;
        part.widget->setObjectName(toQt(control->name));
        if (part.keys != nullptr) part.keys->installEventFilter(this);
        place(part);
        parts_.push_back(std::move(part));
    }
    orderTabs();
}

/// The keyboard goes round in the order of the controls. A label that has a mnemonic stands for the next one.
void FormDialog::orderTabs() {
    QWidget* before = nullptr;
    QLabel* label = nullptr;
    for (const FormPart& part : parts_) {
        if (auto* found = qobject_cast<QLabel*>(part.widget)) {
            label = part.control->caption.find('&') != std::string::npos ? found : nullptr;
        } else if (part.widget->focusPolicy() != Qt::NoFocus || part.widget->focusProxy() != nullptr) {
            if (before != nullptr) setTabOrder(before, part.widget);
            if (label != nullptr) label->setBuddy(part.widget);
            before = part.widget;
            label = nullptr;
        }
    }
}

const FormPart* FormDialog::partOf(const FormControl& control) const {
    const auto found =
        std::find_if(parts_.begin(), parts_.end(), [&](const FormPart& p) { return p.control == &control; });
    return found == parts_.end() ? nullptr : &*found;
}

const FormPart* FormDialog::partAround(const QWidget* widget) const {
    const auto found = std::find_if(parts_.begin(), parts_.end(), [&](const FormPart& p) {
        return widget != nullptr && (p.widget == widget || p.widget->isAncestorOf(widget));
    });
    return found == parts_.end() ? nullptr : &*found;
}

void FormDialog::mirror(const FormPart& part) {
    const FormControl& control = *part.control;
    part.mirror();
    part.widget->setAccessibleName(toQt(control.caption).remove(u'&'));
    part.widget->setEnabled(control.enabled);
    const bool line = control.typeName == "Line";
    part.widget->setVisible(control.visible && (line || !control.place.empty()));
    place(part);
}

/// Controls that take their height from the font are as high as they must be.
void FormDialog::place(const FormPart& part) {
    const FormControl& control = *part.control;
    QRect place = Scale(*this).pixels(control.place).normalized();
    if (control.typeName == "Line") place.setSize(place.size().expandedTo({2, 2}));
    const bool free = control.typeName == "CellGrid" || control.typeName == "MonthView";
    const int missing = free ? 0 : part.widget->minimumSizeHint().height() - place.height();
    if (missing > 0) place.setHeight(place.height() + missing);
    part.widget->setGeometry(place);
}

void FormDialog::placeAll() {
    for (const FormPart& part : parts_) place(part);
}

// --- Size and place

void FormDialog::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    takeSize();
}

void FormDialog::takeSize() {
    if (!showing()) return;
    const Scale scale(*this);
    const QSize known(scale.pixel(form_->ScaleWidth()), scale.pixel(form_->ScaleHeight()));
    const auto resized = [&](Form& form) { form.resize(scale.twips(width()), scale.twips(height())); };
    if (size() == known || act(resized)) placeAll();
}

/// The smallest size in proportion at which every control can still show what it is.
QSize FormDialog::leastSize() const {
    const Scale scale(*this);
    const QSize now(scale.pixel(form_->ScaleWidth()), scale.pixel(form_->ScaleHeight()));
    double across = 0;
    double down = 0;
    for (const FormPart& part : parts_) {
        const QRect place = scale.pixels(part.control->place);
        if (part.widget->isHidden() || place.isEmpty()) continue;
        const QSize least = leastSizeOf(*part.widget);
        const bool stretches = part.control->typeName == "MonthView";
        const int room = stretches ? place.height() : now.height() - place.top();
        across = std::max(across, 1.0 * least.width() / place.width());
        down = std::max(down, 1.0 * least.height() / std::max(1, room));
    }
    return {static_cast<int>(std::ceil(now.width() * across)),
            static_cast<int>(std::ceil(now.height() * down))};
}

void FormDialog::takePlace(const QMargins& frame) {
    frame_ = frame;
    const QRect cell = Scale(*this).pixels(anchor_);
    const QWidget* window = parentWidget();
    const QScreen* on = anchor_.empty() ? nullptr : QGuiApplication::screenAt(cell.center());
    if (on == nullptr) on = window != nullptr ? window->screen() : screen();
    const QRect room = on->availableGeometry();
    const QSize outer = size().grownBy(frame);
    const QRect middle = window != nullptr ? window->frameGeometry() : room;
    const QRect place = anchor_.empty() ? placeInMiddle(middle, outer, room) : placeNear(cell, outer, room);
    const QSize inner = place.size().shrunkBy(frame);
    setMinimumSize(minimumSize().boundedTo(inner));
    move(place.topLeft());
    resize(inner);
    // Qt tells a hidden window of its size while it is being shown, when the form must not close it any more
    takeSize();
}

/// How wide the window's own frame is shows only when it stands on the screen.
void FormDialog::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || !isActiveWindow() || std::exchange(placed_, true))
        return;
    if (frameOf(*this) != frame_) takePlace(frameOf(*this));
}

// --- Keys

bool FormDialog::key(FormControl& focused, const QKeyEvent& event) {
    const KeyStroke stroke = strokeOf(event);
    bool used = false;
    const bool alive = act([&](Form& form) { used = form.key(focused, stroke.code, stroke.shift); });
    return used || !alive || !showing();
}

bool FormDialog::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(object, event);
    const auto part =
        std::find_if(parts_.begin(), parts_.end(), [&](const FormPart& p) { return p.keys == object; });
    if (part == parts_.end()) return QDialog::eventFilter(object, event);
    const auto& stroke = static_cast<const QKeyEvent&>(*event);
    if (isEnter(strokeOf(stroke))) part->takeTyped();
    return key(*part->control, stroke);
}

/// What nobody has used. Enter ends here: it may be meant for an inner box, as that of a calendar's year.
void FormDialog::keyPressEvent(QKeyEvent* event) {
    event->accept();
    if (event->key() != Qt::Key_Escape) return;
    const FormPart* part = partAround(focusWidget());
    if (part == nullptr)
        reject();
    else
        key(*part->control, *event);
}

// --- Idle time

/// One slice at each turn of the event loop in which nothing else was to be done.
void FormDialog::runSlice() {
    if (slices_.empty()) {
        idle_.stop();
        return;
    }
    auto slice = std::move(slices_.front());
    slices_.erase(slices_.begin());
    bool more = false;
    if (!act([&](Form&) { more = slice(); }) || !showing()) return;
    if (more) slices_.push_back(std::move(slice));
}
}  // namespace kxVsGrid::qt
