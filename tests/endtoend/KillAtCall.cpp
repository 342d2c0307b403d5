// Loaded into a program before its libraries (LD_PRELOAD): counts the calls that change a folder or its files, and
// kills the program at one of them.
//
//     KX_CALLS_FOLDER  the folder, without links in its path
//     KX_CALLS_LOG     a file that gets a line for each call: its name
//     KX_KILL_AT       "write:12" is the twelfth write
//     KX_KILL_HOW      before; after; of a write also half, or most: all bytes but the last one
//     KX_FULL_AT       of this write half is done, and the one after it finds the disk full
//
// It asks the system itself, so that it needs no other library's functions, and is not built with sanitizers.
#include <dirent.h>
#include <fcntl.h>
#include <linux/limits.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

enum Kind { MakeFolder, Create, Rights, Lock, Write, Cut, SyncData, Sync, Rename, Remove, Kinds };
constexpr std::string_view Names[Kinds] = {"mkdir",     "openat",    "fchmod", "flock",    "write",
                                           "ftruncate", "fdatasync", "fsync",  "renameat", "unlinkat"};

std::string setting(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

struct Plan {
    std::string folder = setting("KX_CALLS_FOLDER");
    std::string how = setting("KX_KILL_HOW");
    std::string kind;
    int at = 0;
    int fullAt = std::atoi(setting("KX_FULL_AT").c_str());
    int log = -1;

    Plan() {
        const std::string where = setting("KX_KILL_AT");
        const auto colon = where.find(':');
        if (colon != std::string::npos) {
            kind = where.substr(0, colon);
            at = std::atoi(where.c_str() + colon + 1);
        }
        if (const std::string file = setting("KX_CALLS_LOG"); !file.empty())
            log = static_cast<int>(::syscall(SYS_openat, AT_FDCWD, file.c_str(),
                                             O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600));
    }
};

const Plan& plan() {
    static const Plan plan;
    return plan;
}

bool inFolder(std::string_view path) {
    const std::string& folder = plan().folder;
    return !folder.empty() && path.substr(0, folder.size()) == folder &&
           (path.size() == folder.size() || path[folder.size()] == '/');
}

/// A file that has been removed still counts: its old path is what the system says of it.
bool inFolder(int file) {
    const int error = errno;
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    char path[PATH_MAX];
    const ssize_t length = ::readlink(link.c_str(), path, sizeof path);
    errno = error;
    return length > 0 && inFolder(std::string_view(path, static_cast<std::size_t>(length)));
}

bool inFolder(int folder, const char* path) {
    return path[0] == '/' ? inFolder(std::string_view(path)) : folder != AT_FDCWD && inFolder(folder);
}

[[noreturn]] void die() {
    ::kill(::getpid(), SIGKILL);
    for (;;) ::pause();
}

/// A call that is counted. It returns what the system answers, and dies on the way when it is its turn.
class Call {
  public:
    explicit Call(Kind kind) {
        static std::atomic<int> counts[Kinds];
        number_ = ++counts[kind];
        if (plan().log >= 0) {
            const std::string line = std::string(Names[kind]) + '\n';
            (void)!::syscall(SYS_write, plan().log, line.data(), line.size());
        }
        mine_ = plan().at == number_ && plan().kind == Names[kind];
        if (mine_ && plan().how == "before") die();
    }
    int number() const { return number_; }
    bool torn() const { return mine_ && (plan().how == "half" || plan().how == "most"); }
    template <class Answer>
    Answer done(Answer answer) const {
        if (mine_) die();
        return answer;
    }

  private:
    int number_ = 0;
    bool mine_ = false;
};

int openAt(int folder, const char* path, int flags, mode_t mode) {
    const auto open = [&] { return static_cast<int>(::syscall(SYS_openat, folder, path, flags, mode)); };
    if ((flags & O_CREAT) == 0 || !inFolder(folder, path)) return open();
    const Call call(Create);
    return call.done(open());
}

mode_t modeIn(int flags, va_list arguments) {
    return (flags & O_CREAT) != 0 ? static_cast<mode_t>(va_arg(arguments, int)) : 0;
}
}  // namespace

extern "C" {

int openat(int folder, const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeIn(flags, arguments);
    va_end(arguments);
    return openAt(folder, path, flags, mode);
}

int openat64(int folder, const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeIn(flags, arguments);
    va_end(arguments);
    return openAt(folder, path, flags, mode);
}

int mkdir(const char* path, mode_t mode) noexcept {
    const auto make = [&] { return static_cast<int>(::syscall(SYS_mkdirat, AT_FDCWD, path, mode)); };
    if (!inFolder(AT_FDCWD, path)) return make();
    const Call call(MakeFolder);
    return call.done(make());
}

int fchmod(int file, mode_t mode) noexcept {
    const auto change = [&] { return static_cast<int>(::syscall(SYS_fchmod, file, mode)); };
    if (!inFolder(file)) return change();
    const Call call(Rights);
    return call.done(change());
}

// There is a struct of that name as well.
int lockFile(int file, int operation) noexcept __asm__("flock");
int lockFile(int file, int operation) noexcept {
    const auto lock = [&] { return static_cast<int>(::syscall(SYS_flock, file, operation)); };
    if (!inFolder(file)) return lock();
    const Call call(Lock);
    return call.done(lock());
}

ssize_t write(int file, const void* bytes, size_t size) {
    const auto put = [&](size_t count) {
        return static_cast<ssize_t>(::syscall(SYS_write, file, bytes, count));
    };
    if (!inFolder(file)) return put(size);
    const Call call(Write);
    if (call.torn()) return call.done(put(plan().how == "half" ? size / 2 : size - 1));
    if (plan().fullAt != 0 && call.number() == plan().fullAt) return call.done(put(size / 2));
    if (plan().fullAt != 0 && call.number() == plan().fullAt + 1) {
        errno = ENOSPC;
        return call.done(ssize_t{-1});
    }
    return call.done(put(size));
}

int ftruncate(int file, off_t size) noexcept {
    const auto cut = [&] { return static_cast<int>(::syscall(SYS_ftruncate, file, size)); };
    if (!inFolder(file)) return cut();
    const Call call(Cut);
    return call.done(cut());
}

int fdatasync(int file) {
    const auto sync = [&] { return static_cast<int>(::syscall(SYS_fdatasync, file)); };
    if (!inFolder(file)) return sync();
    const Call call(SyncData);
    return call.done(sync());
}

int fsync(int file) {
    const auto sync = [&] { return static_cast<int>(::syscall(SYS_fsync, file)); };
    if (!inFolder(file)) return sync();
    const Call call(Sync);
    return call.done(sync());
}

int renameat(int from, const char* name, int to, const char* other) noexcept {
    const auto move = [&] { return static_cast<int>(::syscall(SYS_renameat2, from, name, to, other, 0)); };
    if (!inFolder(from, name) && !inFolder(to, other)) return move();
    const Call call(Rename);
    return call.done(move());
}

int unlinkat(int folder, const char* path, int flags) noexcept {
    const auto remove = [&] { return static_cast<int>(::syscall(SYS_unlinkat, folder, path, flags)); };
    if (!inFolder(folder, path)) return remove();
    const Call call(Remove);
    return call.done(remove());
}
}
