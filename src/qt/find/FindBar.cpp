#include "qt/find/FindBar.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <algorithm>

#include "qt/KeyMap.h"
#include "qt/Stage.h"
#include "qt/Wording.h"
#include "qt/text/BoxParts.h"
#include "qt/text/Encoding.h"
#include "qt/view/SystemColors.h"

namespace kxVsGrid::qt {
namespace {

/// What a slice of idle time takes; a key that comes meanwhile waits no longer.
constexpr qint64 SliceMs = 4;

bool isEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool is(const QKeyEvent& event, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    return event.key() == key && (event.modifiers() & ~Qt::KeypadModifier) == modifiers;
}

/// A text box has a use of its own for it.
bool isTextBoxs(Command command) {
    switch (command) {
        case Command::Undo:
        case Command::Redo:
        case Command::Copy:
        case Command::Cut:
        case Command::Paste:
        case Command::SelectAll:
            return true;
        default:
            return false;
    }
}
}  // namespace

FindBar::FindBar(Stage& stage, QWidget* parent)
    : QWidget(parent),
      stage_(stage),
      text_(addBox(wording::Find)),
      previous_(add<QToolButton>(wording::FindPrevious, wording::FindPrevious)),
      next_(add<QToolButton>(wording::FindNext, wording::FindNext)),
      whole_(add<QCheckBox>(wording::WholeCell, wording::WholeCell)),
      case_(add<QCheckBox>(wording::MatchCase, wording::MatchCase)),
      column_(add<QCheckBox>(wording::ThisColumn, wording::ThisColumn)),
      count_(*new QLabel(this)),
      close_(add<QToolButton>(QStringLiteral("×"), wording::Close)),
      with_(addBox(wording::ReplaceWith)),
      replace_(add<QToolButton>(wording::Replace, wording::Replace)),
      replaceAll_(add<QToolButton>(wording::ReplaceAll, wording::ReplaceAll)) {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Window);
    setAccessibleName(wording::Find);
    setCursor(Qt::ArrowCursor);
    count_.setTextFormat(Qt::PlainText);
    hide();
    connect(&text_, &QLineEdit::textChanged, this, [this] { look(); });
    for (QCheckBox* box : {&whole_, &case_, &column_})
        connect(box, &QCheckBox::toggled, this, [this] { look(); });
    connect(&previous_, &QToolButton::clicked, this, [this] { go(false); });
    connect(&next_, &QToolButton::clicked, this, [this] { go(true); });
    connect(&close_, &QToolButton::clicked, this, [this] { close(); });
    connect(&replace_, &QToolButton::clicked, this, [this] { replaceOne(); });
    connect(&replaceAll_, &QToolButton::clicked, this, [this] { replaceAll(); });
    connect(&idle_, &QTimer::timeout, this, [this] { work(); });
    stage_.grid().Find().OnWork([this] {
        if (isOpen() && !idle_.isActive()) idle_.start(0);
    });
}

/// A press with the mouse leaves the keyboard in the text.
template <class Button>
Button& FindBar::add(const QString& text, const QString& name) {
    auto* button = new Button(this);
    button->setText(text);
    button->setAccessibleName(name);
    if (text != name) button->setToolTip(name);
    button->setFocusPolicy(Qt::TabFocus);
    button->setContextMenuPolicy(Qt::NoContextMenu);
    if constexpr (std::is_same_v<Button, QToolButton>) button->setAutoRaise(true);
    button->installEventFilter(this);
    return *button;
}

QLineEdit& FindBar::addBox(const QString& name) {
    auto* box = new QLineEdit(this);
    box->setAccessibleName(name);
    box->setPlaceholderText(name);
    box->installEventFilter(this);
    return *box;
}

// --- Opening and closing

void FindBar::open(bool replace) {
    const bool fresh = isHidden();
    replaces_ = replace || (!fresh && replaces_);
    for (QWidget* part : {static_cast<QWidget*>(&with_), static_cast<QWidget*>(&replace_),
                          static_cast<QWidget*>(&replaceAll_)})
        part->setVisible(replaces_);
    if (fresh) {
        note_.clear();
        const QSignalBlocker quiet(text_);
        text_.setText(toQt(stage_.grid().Find().Rule().text));
    }
    show();
    raise();
    const QPointer<FindBar> alive(this);
    stage_.barChanged();
    if (!alive) return;
    const bool toReplacement = replace && !fresh && !text_.text().isEmpty();
    QLineEdit& box = toReplacement ? with_ : text_;
    box.setFocus(Qt::OtherFocusReason);
    if (!alive) return;
    box.selectAll();
    if (fresh) look();
}

/// The grid has the keyboard before the bar goes, as if the clerk had not left it.
void FindBar::close() {
    if (!isOpen()) return;
    stop();
    const QPointer<FindBar> alive(this);
    stage_.giveFocus(FocusPlace::Grid);
    if (!alive) return;
    hide();
    stage_.guarded([this](Input&) { stage_.grid().Find().End(); });
    if (alive) stage_.barChanged();
}

void FindBar::stop() {
    idle_.stop();
}

void FindBar::inTabOrder(bool in) {
    for (QWidget* part : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        const bool box = qobject_cast<QLineEdit*>(part) != nullptr;
        if (part == &count_) continue;
        part->setFocusPolicy(!in ? Qt::NoFocus : box ? Qt::StrongFocus : Qt::TabFocus);
    }
}

// --- Places

std::vector<std::vector<FindBar::Part>> FindBar::lines() const {
    std::vector<std::vector<Part>> all{{{&text_, true},
                                        {&previous_, false},
                                        {&next_, false},
                                        {&whole_, false},
                                        {&case_, false},
                                        {&column_, false},
                                        {&count_, false}}};
    if (replaces_) all.push_back({{&with_, true}, {&replace_, false}, {&replaceAll_, false}});
    return all;
}

/// Of a box what it needs at least.
int FindBar::widthOf(const Part& part) const {
    constexpr int FewestLetters = 8;
    if (part.box) return FewestLetters * fontMetrics().horizontalAdvance(u'字');
    const int wanted = part.widget->sizeHint().width();
    if (part.widget != &count_) return wanted;
    return std::max(wanted, fontMetrics().horizontalAdvance(QStringLiteral("88888/88888")));
}

/// Each line goes on below where there is no more room; the closing button stands at the end of the first one.
int FindBar::place(int width, bool move) const {
    const int gap = std::max(3, fontMetrics().height() / 4);
    const int most = 24 * fontMetrics().horizontalAdvance(u'字');
    const QSize ending = close_.sizeHint();
    int y = gap;
    int boxes = most;  // as wide as each other
    for (const std::vector<Part>& line : lines()) {
        std::size_t first = 0;
        while (first < line.size()) {
            const int room = std::max(1, width - 2 * gap - (y == gap ? ending.width() + gap : 0));
            std::size_t last = first;
            int used = widthOf(line[first]);
            while (last + 1 < line.size() && used + gap + widthOf(line[last + 1]) <= room)
                used += gap + widthOf(line[++last]);
            int height = y == gap ? ending.height() : 0;
            for (std::size_t i = first; i <= last; ++i)
                height = std::max(height, line[i].widget->sizeHint().height());
            int x = gap;
            for (std::size_t i = first; i <= last && move; ++i) {
                int own = std::min(widthOf(line[i]), room);
                if (line[i].box) boxes = own = std::min(std::max(boxes, own), own + std::max(0, room - used));
                const int tall = line[i].box ? line[i].widget->sizeHint().height() : height;
                line[i].widget->setGeometry(x, y + (height - tall) / 2, own, tall);
                x += own + gap;
            }
            if (move && y == gap)
                close_.setGeometry(width - gap - ending.width(), y + (height - ending.height()) / 2,
                                   ending.width(), ending.height());
            y += height + gap;
            first = last + 1;
        }
    }
    return y;
}

int FindBar::heightFor(int width) const {
    return place(width, width == this->width());
}

void FindBar::resizeEvent(QResizeEvent*) {
    place(width(), true);
}

void FindBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(QRect(0, 0, width(), 1), blend(palette().color(QPalette::Window).rgb(),
                                                    palette().color(QPalette::WindowText).rgb(), 0.35));
}

void FindBar::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) tint(missing_);
}

// --- Keys

/// Those that Tab goes through: from the text to what replaces it, whatever stands between them.
QList<QWidget*> FindBar::stops() const {
    QList<QWidget*> all{&text_};
    if (replaces_) all.append(&with_);
    for (const std::vector<Part>& line : lines())
        for (const Part& part : line)
            if (part.widget != &count_ && part.widget->isEnabled() && !all.contains(part.widget))
                all.append(part.widget);
    all.append(&close_);
    return all;
}

void FindBar::step(bool forward) {
    const QList<QWidget*> all = stops();
    const qsizetype at = all.indexOf(focusWidget());
    const qsizetype next = (at + (forward ? 1 : all.size() - 1)) % all.size();
    all[next]->setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    if (auto* box = qobject_cast<QLineEdit*>(all[next])) box->selectAll();
}

/// Keys that must not set off a shortcut: of a command of the grid's, which the clerk does not mean here.
bool FindBar::claims(const QKeyEvent& event) const {
    if (is(event, Qt::Key_Escape) || isEnter(event) || isTab(event)) return true;
    const auto command = commandOf(event, stage_.grid(), CommandKey::Where::ClosedCell);
    return command && *command != Command::FindNext && *command != Command::FindPrevious;
}

bool FindBar::pressEnter(QWidget& part, bool back) {
    if (auto* button = qobject_cast<QToolButton*>(&part))
        button->click();
    else if (&part == &with_ && !back)
        replaceOne();
    else
        go(!back);
    return true;
}

/// True when the key was used up.
bool FindBar::press(QWidget& part, QKeyEvent& event) {
    if (is(event, Qt::Key_Escape)) {
        close();
        return true;
    }
    if (isEnter(event)) return pressEnter(part, event.modifiers().testFlag(Qt::ShiftModifier));
    if (isTab(event)) {
        step(isForward(event));
        return true;
    }
    const auto command = commandOf(event, stage_.grid(), CommandKey::Where::ClosedCell);
    if (!command) return false;
    if (isTextBoxs(*command)) return qobject_cast<QLineEdit*>(&part) == nullptr;
    if (*command == Command::FindNext || *command == Command::FindPrevious) go(*command == Command::FindNext);
    if (*command == Command::Find) open(false);
    if (*command == Command::Replace && stage_.grid().CanRun(*command)) open(true);
    return true;
}

bool FindBar::eventFilter(QObject* object, QEvent* event) {
    auto* part = qobject_cast<QWidget*>(object);
    switch (event->type()) {
        case QEvent::ShortcutOverride:
            if (!claims(static_cast<QKeyEvent&>(*event))) break;
            event->accept();
            return true;
        case QEvent::KeyPress: {
            event->accept();
            const QPointer<FindBar> alive(this);
            if (press(*part, static_cast<QKeyEvent&>(*event)) || !alive) return true;
            break;
        }
        case QEvent::FocusIn:
            stage_.barEntered(static_cast<QFocusEvent&>(*event));
            break;
        case QEvent::FocusOut:
            stage_.focusLeft(static_cast<QFocusEvent&>(*event));
            break;
        default:
            break;
    }
    return false;
}

// --- Looking

FindRule FindBar::rule() const {
    return {fromQt(text_.text()), whole_.isChecked(), case_.isChecked(), column_.isChecked()};
}

void FindBar::look() {
    if (!isOpen()) return;
    note_.clear();
    forward_ = true;
    if (!stage_.guarded([this](Input&) { stage_.grid().Find().Rule(rule()); })) return;
    idle_.start(0);
    refresh();
}

/// What a host's text throws is told, and the rest looked through.
void FindBar::work() {
    bool more = true;
    QElapsedTimer since;
    since.start();
    const bool alive = stage_.guarded([&](Input&) {
        while (more && since.elapsed() < SliceMs) more = stage_.grid().Find().Work();
    });
    if (!alive) return;
    if (!more) idle_.stop();
    refresh();
}

void FindBar::go(bool forward) {
    note_.clear();
    forward_ = forward;
    const bool alive = stage_.guarded([&](Input&) {
        Finder& find = stage_.grid().Find();
        forward ? find.Next() : find.Previous();
    });
    if (alive) refresh();
}

void FindBar::replaceOne() {
    note_.clear();
    forward_ = true;
    const std::string with = fromQt(with_.text());
    if (stage_.guarded([&](Input&) { stage_.grid().Find().Replace(with); })) refresh();
}

void FindBar::replaceAll() {
    const std::string with = fromQt(with_.text());
    PasteReport report;
    if (!stage_.guarded([&](Input&) { report = stage_.grid().Find().ReplaceAll(with); })) return;
    note_ = toQt(report.summary());
    if (note_.isEmpty()) note_ = QStringLiteral("已替换 %1 格").arg(report.written);
    refresh();
}

// --- What is said

QString FindBar::told(const FindState& state) const {
    if (!note_.isEmpty()) return note_;
    if (text_.text().isEmpty()) return {};
    if (state.count == 0) return state.complete ? wording::NotFound : QStringLiteral("…");
    QString text = QString::number(state.count);
    if (!state.match)
        text = QStringLiteral("共 %1 处").arg(text);
    else
        text = (state.number > 0 ? QString::number(state.number) : QStringLiteral("…")) + u'/' + text;
    if (!state.complete && state.number > 0) text += u'…';
    if (state.refused) return text + QStringLiteral("  未能移到那里");
    if (state.wrapped) text += forward_ ? QStringLiteral("  已从头继续") : QStringLiteral("  已从末尾继续");
    return text;
}

void FindBar::refresh() {
    FindState state;
    if (!stage_.attempt([&] { state = stage_.grid().Find().State(); })) return;
    for (QWidget* part : {static_cast<QWidget*>(&replace_), static_cast<QWidget*>(&replaceAll_)})
        part->setEnabled(stage_.grid().Editable());
    tint(!text_.text().isEmpty() && state.complete && state.count == 0 && note_.isEmpty());
    const QString text = told(state);
    if (text == count_.text()) return;
    count_.setText(text);
    // The bar gives no room back by itself: with another height of the grid all is counted anew, and a text that is
    // shorter when that is done would make it come and go for ever.
    const int before = height();
    if (heightFor(width()) > before) stage_.barChanged();
}

/// The ground of the box says that there is nothing.
void FindBar::tint(bool missing) {
    if (missing_ == missing && !missing) return;
    missing_ = missing;
    QPalette own;  // of it only what is put here counts; the rest goes on following the window's
    if (missing)
        own.setColor(QPalette::Base,
                     blend(palette().color(QPalette::Base).rgb(), qRgb(0xE0, 0x30, 0x30), 0.28));
    if (!missing || own.color(QPalette::Base) != text_.palette().color(QPalette::Base)) text_.setPalette(own);
}
}  // namespace kxVsGrid::qt
