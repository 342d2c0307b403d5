#include "qt/drafts/SyncThread.h"

#include <QMutexLocker>
#include <algorithm>
#include <utility>

namespace kxVsGrid::qt::drafts {

SyncThread::SyncThread(std::chrono::milliseconds delay, Synced synced)
    : delay_(delay), synced_(std::move(synced)) {
    start();
}

SyncThread::~SyncThread() {
    {
        const QMutexLocker locker(&mutex_);
        ending_ = true;
        changed_.wakeAll();
    }
    wait();
}

void SyncThread::soon(const std::shared_ptr<StoredDraft>& draft) {
    add(draft, QDeadlineTimer(delay_));
}

void SyncThread::now(const std::shared_ptr<StoredDraft>& draft) {
    add(draft, QDeadlineTimer(0));
}

void SyncThread::add(const std::shared_ptr<StoredDraft>& draft, QDeadlineTimer due) {
    const QMutexLocker locker(&mutex_);
    const auto waiting =
        std::find_if(jobs_.begin(), jobs_.end(), [&](const Job& job) { return job.draft == draft; });
    if (waiting == jobs_.end())
        jobs_.push_back({draft, due});
    else if (due < waiting->due)
        waiting->due = due;
    else
        return;
    changed_.wakeAll();
}

std::shared_ptr<StoredDraft> SyncThread::next() {
    const QMutexLocker locker(&mutex_);
    for (;;) {
        const auto first = std::min_element(jobs_.begin(), jobs_.end(),
                                            [](const Job& a, const Job& b) { return a.due < b.due; });
        if (first == jobs_.end()) {
            if (ending_) return {};
            changed_.wait(&mutex_);
        } else if (ending_ || first->due.hasExpired()) {
            auto draft = first->draft;
            jobs_.erase(first);
            return draft;
        } else {
            changed_.wait(&mutex_, first->due);
        }
    }
}

void SyncThread::run() {
    while (const auto draft = next()) synced_(draft, draft->sync());
}
}  // namespace kxVsGrid::qt::drafts
