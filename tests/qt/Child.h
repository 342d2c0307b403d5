// Work in a process of its own.
#pragma once

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QByteArray>
#include <QFile>
#include <csignal>
#include <functional>
#include <stdexcept>
#include <string>

namespace kxVsGrid::qt::testing {

/// What the work answers there; the text of what it throws after "threw: ".
inline std::string inChild(const std::function<std::string()>& work) {
    int ends[2];
    if (::pipe(ends) != 0) throw std::runtime_error("no pipe");
    const pid_t child = ::fork();
    if (child < 0) throw std::runtime_error("no process");
    if (child == 0) {
        std::string answer;
        try {
            answer = work();
        } catch (const std::exception& error) {
            answer = std::string("threw: ") + error.what();
        }
        const auto written = ::write(ends[1], answer.data(), answer.size());
        ::_exit(written == static_cast<ssize_t>(answer.size()) ? 0 : 1);
    }
    ::close(ends[1]);
    QFile pipe;
    const bool open = pipe.open(ends[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
    const std::string answer = open ? pipe.readAll().toStdString() : "";
    int status = 0;
    ::waitpid(child, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) throw std::runtime_error("the process crashed");
    return answer;
}

/// From now on this process can write no file beyond `bytes`, as on a full disk.
inline void fillDisk(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{bytes, bytes};
    if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) throw std::runtime_error("no limit");
}
}  // namespace kxVsGrid::qt::testing
