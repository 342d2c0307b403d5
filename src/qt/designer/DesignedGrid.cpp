#include "qt/designer/DesignedGrid.h"

#include <QDesignerFormWindowInterface>
#include <QEvent>
#include <algorithm>

#include "kxVsGrid/headless/Desk.h"
#include "qt/Encoding.h"
#include "qt/PropertyValues.h"
#include "qt/designer/FormSettings.h"

namespace kxVsGrid::qt::designer {
namespace {

/// The designer cannot cope with the settings of more columns; those have their stored defaults until they
/// are set.
constexpr std::int32_t MostCompletedColumns = 100;

bool same(const MemoryBag& a, const MemoryBag& b) {
    if (a.size() != b.size()) return false;
    return std::all_of(a.entries().begin(), a.entries().end(), [&b](const MemoryBag::Entry& entry) {
        const Variant* other = b.find(entry.name);
        return other != nullptr && *other == entry.value;
    });
}

/// What a program that loads these settings is told; empty when nothing is wrong with them. A failed reading
/// stops all saving in the process, until a control is newly placed.
QString problemOf(MemoryBag settings) {
    headless::Desk desk;
    desk.load(settings);
    QString problem;
    if (!desk.messages().empty()) problem = toQt(desk.messages().front().text);
    desk.place();
    return problem;
}
}  // namespace

DesignedGrid::DesignedGrid(QDesignerFormEditorInterface& core, QWidget* parent)
    : kxGridWidget(parent), core_(core) {
    changed_.setSingleShot(true);
    connect(&changed_, &QTimer::timeout, this, [this] { refresh(); });
}

bool DesignedGrid::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::Polish:  // before the first showing, when the form has given it what it holds
            begin();
            break;
        case QEvent::DynamicPropertyChange:
            if (begun_) changed_.start();
            break;
        default:
            break;
    }
    return kxGridWidget::event(event);
}

void DesignedGrid::begin() {
    if (std::exchange(begun_, true)) return;
    shown_ = FormSettings(core_, *this).read();
    problem_ = problemOf(shown_);
    grid().ReDraw(true);
    if (auto* form = QDesignerFormWindowInterface::findFormWindow(this))
        connect(form, &QDesignerFormWindowInterface::changed, &changed_, qOverload<>(&QTimer::start));
}

void DesignedGrid::refresh() {
    if (!begun_) return;
    MemoryBag held = FormSettings(core_, *this).read();
    if (same(held, shown_)) return;
    problem_ = problemOf(held);
    if (problem_.isEmpty()) {
        grid().ReDraw(true);
        grid().ReadProperties(held);
        complete();
    }
    shown_ = FormSettings(core_, *this).read();
}

void DesignedGrid::follow() {
    shown_ = FormSettings(core_, *this).read();
    problem_.clear();
}

/// A form that holds one key holds them all, also those of a column that has just been added.
void DesignedGrid::complete() {
    if (grid().Cols() > MostCompletedColumns) return;
    FormSettings form(core_, *this);
    const MemoryBag held = form.read();
    MemoryBag whole;
    grid().WriteProperties(whole);
    for (const MemoryBag::Entry& entry : whole.entries())
        if (held.find(entry.name) == nullptr) form.put(entry.name, toProperty(entry.value));
}
}  // namespace kxVsGrid::qt::designer
