#include "qt/designer/DesignedGrid.h"

#include <QEvent>
#include <algorithm>
#include <utility>

#include "grid/Settings.h"
#include "qt/designer/FormSettings.h"
#include "qt/settings/PropertyValues.h"
#include "qt/text/Encoding.h"

namespace kxVsGrid::qt::designer {
namespace {

bool same(const MemoryBag& a, const MemoryBag& b) {
    if (a.size() != b.size()) return false;
    return std::all_of(a.entries().begin(), a.entries().end(), [&b](const MemoryBag::Entry& entry) {
        const Variant* other = b.find(entry.name);
        return other != nullptr && *other == entry.value;
    });
}

/// Remembers what it was asked for last: where a reading fails, that is what it cannot read.
class AskedBag : public MemoryBag {
  public:
    explicit AskedBag(const MemoryBag& settings) : MemoryBag(settings) {}
    Variant Read(std::string_view name, const Variant& fallback) override {
        asked = name;
        return MemoryBag::Read(name, fallback);
    }
    std::string asked;
};

/// The setting that a program cannot load, and what it is told; empty when nothing is wrong with them. The
/// designer knows then, and goes on: another grid of the process that could not read its own holds nothing up.
QString problemOf(const MemoryBag& settings) {
    AskedBag bag(settings);
    const std::string told = kxVsGrid::grid::faultOfReading(bag);
    kxVsGrid::grid::SettingsLoading::giveUp();
    return told.empty() ? QString() : toQt(bag.asked + "\n" + told);
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
        case QEvent::ShowToParent:
            watchForm();
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
    watchForm();
}

/// It may have been made before it came to its form, and may go to another one.
void DesignedGrid::watchForm() {
    auto* form = QDesignerFormWindowInterface::findFormWindow(this);
    if (form == form_) return;
    if (form_) disconnect(form_, nullptr, &changed_, nullptr);
    form_ = form;
    if (form != nullptr)
        connect(form, &QDesignerFormWindowInterface::changed, &changed_, qOverload<>(&QTimer::start));
}

void DesignedGrid::refresh() {
    if (!begun_) return;
    MemoryBag held = FormSettings(core_, *this).read();
    if (same(held, shown_)) return;
    problem_ = problemOf(held);
    if (problem_.isEmpty()) {
        grid().ReadProperties(held);
        grid().ReDraw(true);
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
    if (!holdsEveryKey()) return;
    FormSettings form(core_, *this);
    const MemoryBag held = form.read();
    MemoryBag whole;
    grid().WriteProperties(whole);
    takeBack(whole);
    for (const MemoryBag::Entry& entry : whole.entries()) {
        if (held.find(entry.name) != nullptr) continue;
        const QVariant value = toProperty(entry.value);
        form.put(entry.name, value);
        completed_.Write(entry.name, fromProperty(value));
    }
}

/// What was added for a column that is gone goes too, unless somebody has set it since.
void DesignedGrid::takeBack(const MemoryBag& whole) {
    FormSettings form(core_, *this);
    const MemoryBag held = form.read();
    const MemoryBag added = completed_;
    for (const MemoryBag::Entry& entry : added.entries()) {
        if (whole.find(entry.name) != nullptr) continue;
        const Variant* value = held.find(entry.name);
        if (value != nullptr && *value == entry.value) form.put(entry.name, {});
        completed_.erase(entry.name);
    }
}
}  // namespace kxVsGrid::qt::designer
