// Brings drafts to the disk where nobody waits for it.
#pragma once

#include <QDeadlineTimer>
#include <QMutex>
#include <QThread>
#include <QWaitCondition>
#include <chrono>
#include <functional>
#include <memory>
#include <vector>

#include "qt/drafts/DraftStore.h"

namespace kxVsGrid::qt::drafts {

class SyncThread : private QThread {
  public:
    /// Told on the thread.
    using Synced = std::function<void(const std::shared_ptr<StoredDraft>& draft, const Failure& why)>;
    SyncThread(std::chrono::milliseconds delay, Synced synced);
    /// What waits is brought to the disk first.
    ~SyncThread() override;

    /// So long after the first of the writes that wait for it.
    void soon(const std::shared_ptr<StoredDraft>& draft);
    void now(const std::shared_ptr<StoredDraft>& draft);

  private:
    struct Job {
        std::shared_ptr<StoredDraft> draft;
        QDeadlineTimer due;
    };
    void run() override;
    /// The next one whose time has come; none when it is the end.
    std::shared_ptr<StoredDraft> next();
    void add(const std::shared_ptr<StoredDraft>& draft, QDeadlineTimer due);

    const std::chrono::milliseconds delay_;
    const Synced synced_;
    QMutex mutex_;
    QWaitCondition changed_;
    std::vector<Job> jobs_;
    bool ending_ = false;
};
}  // namespace kxVsGrid::qt::drafts
