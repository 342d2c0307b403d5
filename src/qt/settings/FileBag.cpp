#include "kxVsGrid/qt/FileBag.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include "qt/settings/WriteAll.h"
#include "qt/text/Encoding.h"

namespace kxVsGrid::qt {
namespace {

[[noreturn]] void fail(const QString& path, const QString& reason) {
    throw BagError(fromQt(path) + ": " + fromQt(reason));
}

QByteArray contentOf(const QString& path) {
    const QFileInfo info(path);
    if (!info.exists()) return {};
    // a pipe or a device would be waited for
    if (!info.isFile()) fail(path, QStringLiteral("this is no file"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) fail(path, file.errorString());
    QByteArray content = file.read(FileBag::LongestFile + 1);
    if (file.error() != QFile::NoError) fail(path, file.errorString());
    if (content.size() > FileBag::LongestFile) fail(path, QStringLiteral("the file is too long"));
    return content;
}

TextBag textIn(const QString& path) {
    const QByteArray content = contentOf(path);
    if (content.isEmpty() && !QFileInfo::exists(path)) return {};
    return TextBag({content.constData(), static_cast<std::size_t>(content.size())}, fromQt(path));
}
}  // namespace

FileBag::FileBag(const QString& path) : path_(path), text_(textIn(path)) {}

Variant FileBag::Read(std::string_view name, const Variant& fallback) {
    return text_.Read(name, fallback);
}

void FileBag::Write(std::string_view name, const Variant& value, const Variant& fallback) {
    text_.Write(name, value, fallback);
}

void FileBag::Write(std::string_view name, const Variant& value) {
    text_.Write(name, value);
}

void FileBag::clear() {
    if (!damage().empty()) cleared_ = damage();
    text_.clear();
}

/// After the read that failed on the damage no control writes: what is empty then must not replace it.
void FileBag::save() const {
    if (!cleared_.empty() && text_.values().size() == 0) throw BagError(cleared_);
    const std::string text = text_.text();
    QSaveFile file(path_);
    const bool saved = file.open(QIODevice::WriteOnly) &&
                       writeAll(file, text.data(), static_cast<qint64>(text.size())) && file.commit();
    if (!saved) fail(path_, file.errorString());
}
}  // namespace kxVsGrid::qt
