#include "qt/drafts/DraftStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#if (defined(__unix__) || defined(__APPLE__)) && !defined(KX_DRAFTS_PLAIN)
#define KX_DRAFTS_ON_UNIX
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QThread>
#include <atomic>
#include <cerrno>
#include <system_error>
#else
#include <QLockFile>
#endif

namespace kxVsGrid::qt::drafts {
namespace {

Failure failure(const QString& path, const QString& reason) {
    return QStringLiteral("草稿“%1”：%2").arg(QDir::toNativeSeparators(path), reason);
}

OpenedDraft notOpened(Found found, const QString& path, const QString& reason) {
    return {found, {}, failure(path, reason)};
}

OpenedDraft inUse(const QString& path) {
    return notOpened(Found::InUse, path, QStringLiteral("正由另一个程序使用"));
}

#ifdef KX_DRAFTS_ON_UNIX

QString reasonOf(int error) {
    switch (error) {
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return QStringLiteral("磁盘已满");
        case EROFS:
            return QStringLiteral("磁盘只读");
        case EACCES:
        case EPERM:
            return QStringLiteral("没有权限");
        case ENOENT:
            return QStringLiteral("已不存在");
        case ELOOP:
            return QStringLiteral("这是符号链接，不予使用");
        default:
            return QString::fromStdString(std::generic_category().message(error));
    }
}

/// A descriptor that is closed at its end.
class Handle {
  public:
    explicit Handle(int number = -1) : number_(number) {}
    Handle(Handle&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Handle& operator=(Handle&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Handle() {
        if (number_ >= 0) ::close(number_);
    }
    int number() const { return number_; }
    bool open() const { return number_ >= 0; }

  private:
    int number_;
};

struct Folder {
    Handle handle;
    int error = 0;
    QString why;
};

QByteArray folderNameOf(const QString& path) {
    return QFile::encodeName(QFileInfo(path).path());
}

QByteArray fileNameOf(const QString& path) {
    return QFile::encodeName(QFileInfo(path).fileName());
}

/// The folder itself and nothing that a link names; nobody else can look into it.
Folder openFolder(const QByteArray& name) {
    Folder folder{Handle(::open(name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)), 0, {}};
    struct stat status {};
    if (!folder.handle.open()) {
        folder.error = errno;
        struct stat link {};
        // which error a link gives depends on the system
        if (::lstat(name.constData(), &link) == 0 && S_ISLNK(link.st_mode)) folder.error = ELOOP;
        folder.why = reasonOf(folder.error);
    } else if (::fstat(folder.handle.number(), &status) != 0 || status.st_uid != ::geteuid()) {
        folder.error = EPERM;
        folder.why = QStringLiteral("文件夹不属于当前用户");
    } else if ((status.st_mode & 077) != 0 && ::fchmod(folder.handle.number(), 0700) != 0) {
        folder.error = errno;
        folder.why = reasonOf(folder.error);
    }
    return folder;
}

Folder makeFolder(const QString& path) {
    const QByteArray name = folderNameOf(path);
    Folder folder = openFolder(name);
    if (folder.error != ENOENT) return folder;
    QDir().mkpath(QFileInfo(QFileInfo(path).path()).path());
    if (::mkdir(name.constData(), 0700) != 0 && errno != EEXIST) {
        folder.error = errno;
        folder.why = reasonOf(folder.error);
        return folder;
    }
    return openFolder(name);
}

class UnixDraft : public StoredDraft {
  public:
    UnixDraft(const QString& path, Handle folder, Handle file)
        : StoredDraft(path), folder_(std::move(folder)), file_(std::move(file)) {}

    bool there() const override {
        struct stat named {};
        struct stat opened {};
        return ::fstatat(folder_.number(), fileNameOf(path_).constData(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
               ::fstat(file_.number(), &opened) == 0 && named.st_ino == opened.st_ino &&
               named.st_dev == opened.st_dev;
    }

    QDateTime time() const override {
        struct stat status {};
        if (::fstat(file_.number(), &status) != 0) return {};
        return QDateTime::fromSecsSinceEpoch(status.st_mtime);
    }

    Failure read(QByteArray& bytes) override {
        struct stat status {};
        if (::fstat(file_.number(), &status) != 0) return failed();
        if (status.st_size > LongestDraft) return failure(path_, QStringLiteral("文件太长"));
        bytes.resize(static_cast<qsizetype>(status.st_size));
        qsizetype at = 0;
        while (at < bytes.size()) {
            const ssize_t got = ::pread(file_.number(), bytes.data() + at,
                                        static_cast<std::size_t>(bytes.size() - at), static_cast<off_t>(at));
            if (got < 0 && errno == EINTR) continue;
            if (got < 0) return failed();
            if (got == 0) break;
            at += got;
        }
        bytes.resize(at);
        return {};
    }

    Failure append(std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t written = ::write(file_.number(), bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR) continue;
            if (written <= 0) return failed();
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return {};
    }

    Failure cutTo(qint64 size) override {
        return ::ftruncate(file_.number(), static_cast<off_t>(size)) == 0 ? Failure() : failed();
    }

    /// The name has to be on the disk as well.
    Failure sync() override {
        const bool named = named_.exchange(true);
#ifdef __APPLE__
        const int synced = ::fsync(file_.number());
#else
        const int synced = ::fdatasync(file_.number());
#endif
        if (synced != 0 || (!named && ::fsync(folder_.number()) != 0 && errno != EINVAL)) {
            named_ = false;
            return QStringLiteral("草稿写不到磁盘上：") + reasonOf(errno);
        }
        return {};
    }

    Failure moveTo(const QString& path) override {
        if (!there()) return failure(path_, QStringLiteral("已被移走"));
        if (::renameat(folder_.number(), fileNameOf(path_).constData(), folder_.number(),
                       fileNameOf(path).constData()) != 0)
            return failed();
        path_ = path;
        named_ = false;
        return {};
    }

    Failure moveOver(StoredDraft& other) override {
        return moveTo(other.path());
    }

    Failure remove() override {
        if (!there()) return {};
        return ::unlinkat(folder_.number(), fileNameOf(path_).constData(), 0) == 0 ? Failure() : failed();
    }

  private:
    Failure failed() const {
        return failure(path_, reasonOf(errno));
    }

    Handle folder_;
    Handle file_;
    std::atomic<bool> named_ = false;  ///< its name is on the disk
};

constexpr int Tries = 10;

/// Others hold a lock for the length of a look as well.
bool lock(const Handle& file) {
    for (int tries = 0; tries < Tries; ++tries) {
        if (::flock(file.number(), LOCK_EX | LOCK_NB) == 0) return true;
        if (errno != EWOULDBLOCK && errno != EINTR) return false;
        QThread::msleep(10);
    }
    return false;
}

class UnixStore : public DraftStore {
  public:
    /// One who lists drafts may lock and remove the new file before it is locked: it is taken then.
    OpenedDraft create(const QString& path) override {
        Folder folder = makeFolder(path);
        if (!folder.why.isEmpty()) return notOpened(Found::Failed, QFileInfo(path).path(), folder.why);
        Handle file(::openat(folder.handle.number(), fileNameOf(path).constData(),
                             O_RDWR | O_APPEND | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
        if (!file.open())
            return notOpened(errno == EEXIST ? Found::Taken : Found::Failed, path, reasonOf(errno));
        if (::flock(file.number(), LOCK_EX | LOCK_NB) != 0) {
            const int error = errno;
            if (error == EWOULDBLOCK) return notOpened(Found::Taken, path, reasonOf(error));
            ::unlinkat(folder.handle.number(), fileNameOf(path).constData(), 0);
            return notOpened(Found::Failed, path, reasonOf(error));
        }
        auto draft = std::make_shared<UnixDraft>(path, std::move(folder.handle), std::move(file));
        if (!draft->there()) return notOpened(Found::Taken, path, reasonOf(ENOENT));
        return {Found::Open, std::move(draft), {}};
    }

    /// Its program may replace the file while its lock is waited for: what counts is the one that stands then.
    OpenedDraft open(const QString& path) override {
        OpenedDraft opened = openOnce(path);
        for (int tries = 1; tries < Tries && opened.found == Found::Gone; ++tries) opened = openOnce(path);
        return opened;
    }

    Failure folderFault(const QString& folder) override {
        const Folder opened = openFolder(QFile::encodeName(folder));
        return opened.error == ENOENT || opened.why.isEmpty() ? Failure() : failure(folder, opened.why);
    }

  private:
    static OpenedDraft openOnce(const QString& path) {
        Folder folder = openFolder(folderNameOf(path));
        if (folder.error == ENOENT) return notOpened(Found::Gone, path, reasonOf(ENOENT));
        if (!folder.why.isEmpty()) return notOpened(Found::Failed, QFileInfo(path).path(), folder.why);
        // without O_NONBLOCK a pipe would be waited for
        Handle file(::openat(folder.handle.number(), fileNameOf(path).constData(),
                             O_RDWR | O_APPEND | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK));
        if (!file.open())
            return notOpened(errno == ENOENT ? Found::Gone : Found::Failed, path, reasonOf(errno));
        struct stat status {};
        if (::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode))
            return notOpened(Found::Failed, path, QStringLiteral("这不是文件"));
        if (status.st_uid != ::geteuid())
            return notOpened(Found::Failed, path, QStringLiteral("文件不属于当前用户"));
        if (!lock(file)) return inUse(path);
        auto draft = std::make_shared<UnixDraft>(path, std::move(folder.handle), std::move(file));
        if (!draft->there()) return notOpened(Found::Gone, path, reasonOf(ENOENT));
        return {Found::Open, std::move(draft), {}};
    }
};

using SystemStore = UnixStore;

#else

/// What Qt has for every machine: rights are those of the folder, a lock is a file beside.
class PlainDraft : public StoredDraft {
  public:
    explicit PlainDraft(const QString& path) : StoredDraft(path), file_(path) {}
    bool lock() {
        lock_ = lockOf(path_);
        return lock_ != nullptr;
    }
    bool open(QIODevice::OpenMode mode) {
        return file_.open(mode | QIODevice::ReadWrite | QIODevice::Append | QIODevice::Unbuffered);
    }
    QString reason() const { return file_.errorString(); }

    bool there() const override { return file_.exists(); }
    QDateTime time() const override { return QFileInfo(path_).lastModified(); }
    Failure read(QByteArray& bytes) override {
        if (file_.size() > LongestDraft) return failure(path_, QStringLiteral("文件太长"));
        if (!file_.seek(0)) return failed();
        bytes = file_.readAll();
        return file_.error() == QFile::NoError ? Failure() : failed();
    }
    Failure append(std::string_view bytes) override {
        while (!bytes.empty()) {
            const qint64 written = file_.write(bytes.data(), static_cast<qint64>(bytes.size()));
            if (written <= 0) return failed();
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return {};
    }
    Failure cutTo(qint64 size) override { return file_.resize(size) ? Failure() : failed(); }
    Failure sync() override { return {}; }
    Failure moveTo(const QString& path) override {
        auto lock = lockOf(path);
        if (!lock) return failure(path, QStringLiteral("正由另一个程序使用"));
        const Failure why = renameTo(path);
        if (why.isEmpty()) lock_ = std::move(lock);
        return why;
    }
    Failure moveOver(StoredDraft& other) override {
        auto& replaced = static_cast<PlainDraft&>(other);
        if (Failure why = replaced.remove(); !why.isEmpty()) return why;
        const Failure why = renameTo(replaced.path());
        if (why.isEmpty()) lock_ = std::move(replaced.lock_);
        return why;
    }
    Failure remove() override { return !file_.exists() || file_.remove() ? Failure() : failed(); }

  private:
    static std::unique_ptr<QLockFile> lockOf(const QString& path) {
        auto lock = std::make_unique<QLockFile>(path + QStringLiteral(".lock"));
        lock->setStaleLockTime(0);
        if (!lock->tryLock(100)) lock.reset();
        return lock;
    }
    Failure failed() const { return failure(path_, reason()); }
    /// Not every machine renames an open file: it is closed for that moment.
    Failure renameTo(const QString& path) {
        file_.close();
        Failure why = file_.rename(path) ? Failure() : failed();
        if (why.isEmpty()) path_ = path;
        if (!open(QIODevice::ExistingOnly) && why.isEmpty()) why = failed();
        return why;
    }

    QFile file_;
    std::unique_ptr<QLockFile> lock_;
};

class PlainStore : public DraftStore {
  public:
    OpenedDraft create(const QString& path) override {
        QDir().mkpath(QFileInfo(path).path());
        if (QFileInfo::exists(path)) return notOpened(Found::Taken, path, QString());
        return opened(path, QIODevice::NewOnly);
    }
    OpenedDraft open(const QString& path) override {
        const QFileInfo info(path);
        if (!info.exists() && !info.isSymLink()) return notOpened(Found::Gone, path, QString());
        if (info.isSymLink() || !info.isFile())
            return notOpened(Found::Failed, path, QStringLiteral("这是符号链接，或不是文件"));
        return opened(path, QIODevice::ExistingOnly);
    }
    Failure folderFault(const QString& folder) override {
        const bool link = QFileInfo(folder).isSymLink();
        return link ? failure(folder, QStringLiteral("这是符号链接，不予使用")) : Failure();
    }

  private:
    static OpenedDraft opened(const QString& path, QIODevice::OpenMode mode) {
        auto draft = std::make_shared<PlainDraft>(path);
        if (!draft->lock()) return inUse(path);
        if (!draft->open(mode)) return notOpened(Found::Failed, path, draft->reason());
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        return {Found::Open, std::move(draft), {}};
    }
};

using SystemStore = PlainStore;

#endif
}  // namespace

std::shared_ptr<DraftStore> systemStore() {
    return std::make_shared<SystemStore>();
}
}  // namespace kxVsGrid::qt::drafts
