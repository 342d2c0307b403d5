// Files of drafts, as the machine has them. Each is its user's alone, and locked for as long as it is open.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <memory>
#include <string_view>
#include <utility>

namespace kxVsGrid::qt::drafts {

/// Why something could not be done, in words for the clerk; empty when it was.
using Failure = QString;

/// An open file. It closes, and the lock goes, at its end.
class StoredDraft {
  public:
    explicit StoredDraft(QString path) : path_(std::move(path)) {}
    virtual ~StoredDraft() = default;
    StoredDraft(const StoredDraft&) = delete;
    StoredDraft& operator=(const StoredDraft&) = delete;

    const QString& path() const { return path_; }
    /// Nobody has removed the file, or put another one into its place.
    virtual bool there() const = 0;
    virtual QDateTime time() const = 0;
    virtual Failure read(QByteArray& bytes) = 0;
    /// Gives all bytes to the system, behind those that stand; after a failure a part of them may stand.
    virtual Failure append(std::string_view bytes) = 0;
    virtual Failure cutTo(qint64 size) = 0;
    /// Until the disk has it. May be called on another thread.
    virtual Failure sync() = 0;
    /// To a name in the same folder that nothing has.
    virtual Failure moveTo(const QString& path) = 0;
    /// To the name of the other one, which is of no use any more.
    virtual Failure moveOver(StoredDraft& other) = 0;
    virtual Failure remove() = 0;

  protected:
    QString path_;
};

enum class Found {
    Open,
    InUse,  ///< by another program, or by this one
    Gone,
    Taken,  ///< there is a file of that name
    Failed
};

struct OpenedDraft {
    Found found = Found::Failed;
    std::shared_ptr<StoredDraft> draft;  ///< when it is open
    Failure why;
};

class DraftStore {
  public:
    virtual ~DraftStore() = default;
    /// A new file, and its folder where that is missing.
    virtual OpenedDraft create(const QString& path) = 0;
    /// One that exists.
    virtual OpenedDraft open(const QString& path) = 0;
    /// Why the folder cannot be used; empty when it can, and when there is none.
    virtual Failure folderFault(const QString& folder) = 0;
};

/// The machine's own disk.
std::shared_ptr<DraftStore> systemStore();

/// The longest file that is read, in bytes.
inline constexpr qint64 LongestDraft = qint64{1} << 30;
}  // namespace kxVsGrid::qt::drafts
