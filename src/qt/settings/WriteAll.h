// Writing that notices a disk which runs full in the middle.
#pragma once

#include <QFileDevice>

namespace kxVsGrid::qt {

/// False when not everything could be written; the file's error says why. A file takes what there is room for
/// and calls that a success: the reason shows when the rest is written.
inline bool writeAll(QFileDevice& file, const char* data, qint64 size) {
    while (size > 0) {
        const qint64 written = file.write(data, size);
        if (written <= 0) return false;
        data += written;
        size -= written;
    }
    return file.flush();
}
}  // namespace kxVsGrid::qt
