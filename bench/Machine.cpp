#include "Machine.h"

#include <sys/utsname.h>

#include <QDate>
#include <QtGlobal>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>

namespace kxbench {
namespace {

std::string firstLineWith(const char* file, const std::string& start) {
    std::ifstream in(file);
    for (std::string line; std::getline(in, line);) {
        if (line.rfind(start, 0) != 0) continue;
        if (start.back() == '"') return line.substr(start.size(), line.size() - start.size() - 1);
        const std::size_t colon = line.find(':');
        const std::size_t value = line.find_first_not_of(" \t", colon + 1);
        return value == std::string::npos ? "" : line.substr(value);
    }
    return "unknown";
}

std::string memory() {
    return std::to_string(std::atoll(firstLineWith("/proc/meminfo", "MemTotal").c_str()) / 1024) + " MiB";
}

std::string load() {
    std::ifstream in("/proc/loadavg");
    std::string one;
    return in >> one ? one : "unknown";
}

std::string compiler() {
#if defined(__clang__)
    return std::string("clang ") + __clang_version__;
#else
    return std::string("g++ ") + __VERSION__;
#endif
}

std::string system() {
    utsname names{};
    uname(&names);
    return firstLineWith("/etc/os-release", "PRETTY_NAME=\"") + ", Linux " + names.release;
}
}  // namespace

void writeMachine(std::ostream& out) {
    out << "- Date: " << QDate::currentDate().toString(Qt::ISODate).toStdString() << "\n"
        << "- Processor: " << firstLineWith("/proc/cpuinfo", "model name") << ", "
        << std::thread::hardware_concurrency() << " cores, " << memory() << "\n"
        << "- System: " << system() << "; load at the start " << load() << "\n"
        << "- Compiler: " << compiler() << ", " << KXBENCH_FLAGS << "\n"
        << "- Qt " << qVersion() << " (platform offscreen), Google Benchmark " << KXBENCH_BENCHMARK_VERSION
        << ", fparser " << KXBENCH_FPARSER_VERSION << ", kxVsGrid " << KXBENCH_VERSION << "\n";
}
}  // namespace kxbench
