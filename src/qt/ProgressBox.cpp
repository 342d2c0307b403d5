#include "qt/ProgressBox.h"

#include <QCoreApplication>
#include <QProgressBar>
#include <algorithm>
#include <utility>

#include "qt/Wording.h"

namespace kxVsGrid::qt {
namespace {

constexpr qint64 PatienceMs = 300;
constexpr qint64 BetweenLooksMs = 50;
constexpr int Steps = 1000;
}  // namespace

ProgressBox::ProgressBox(std::shared_ptr<Machine> machine, QWidget* widget, QString what, std::int64_t total)
    : machine_(std::move(machine)), widget_(widget), what_(std::move(what)), total_(total) {
    sinceStart_.start();
}

/// Hidden first: a box that is destroyed while it stands in front leaves nobody there.
ProgressBox::~ProgressBox() {
    if (box_ && *box_) box_->operator->()->hide();
}

void ProgressBox::show() {
    box_.emplace(widget_);
    QProgressDialog& box = *box_->operator->();
    // closed with its window, for example
    QObject::connect(&box, &QDialog::rejected, &box, &QProgressDialog::cancel);
    bar_ = new QProgressBar(&box);
    box.setBar(bar_);
    box.setWindowModality(Qt::WindowModal);
    box.setLabelText(what_);
    box.setCancelButtonText(wording::Cancel);
    box.setRange(0, Steps);
    box.setAutoClose(false);
    box.setAutoReset(false);
    box.setMinimumDuration(0);
    box.show();
}

/// Also when the box or the window was closed: nobody waits for it any more.
bool ProgressBox::cancelled() const {
    return machine_->stage == nullptr || !*box_ || box_->operator->()->wasCanceled();
}

bool ProgressBox::goOn(std::int64_t done) {
    const qint64 now = sinceStart_.elapsed();
    if (now < PatienceMs || now - looked_ < BetweenLooksMs) return true;
    looked_ = now;
    if (machine_->stage == nullptr) return false;
    if (!box_) show();
    if (cancelled() || !bar_) return false;
    const std::int64_t most = std::max<std::int64_t>(total_, 1);
    // on the bar itself: the box would let events be handled, and touch itself after them
    bar_->setValue(static_cast<int>(std::min(done, most) * Steps / most));
    QCoreApplication::processEvents();
    return !cancelled();
}
}  // namespace kxVsGrid::qt
