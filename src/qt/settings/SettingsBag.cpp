#include "kxVsGrid/qt/SettingsBag.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryFile>
#include <algorithm>

#include "qt/settings/WriteAll.h"
#include "qt/text/Encoding.h"
#include "support/BagLine.h"
#include "support/Text.h"

namespace kxVsGrid::qt {
namespace {

/// Values are written as they stand in a settings text, after this.
constexpr std::string_view LineStart = "value = ";

bool isText(std::string_view character) {
    constexpr char32_t InvalidUtf8 = 0xFFFD;
    const char32_t codePoint = support::firstCodePoint(character);
    return codePoint >= ' ' && codePoint != 0x7F && codePoint != InvalidUtf8;
}

/// QSettings makes groups of slashes and knows no empty key.
QString keyOf(std::string_view name) {
    constexpr char Hex[] = "0123456789ABCDEF";
    constexpr std::string_view Marks = "/\\%";
    if (name.empty()) return QStringLiteral("%");
    std::string key;
    while (!name.empty()) {
        const std::string_view character = name.substr(0, support::byteOfCharacter(name, 1));
        name.remove_prefix(character.size());
        if (isText(character) && Marks.find(character) == std::string_view::npos) {
            key += character;
            continue;
        }
        for (const char byte : character) {
            const auto value = static_cast<unsigned char>(byte);
            key += {'%', Hex[value >> 4], Hex[value & 15]};
        }
    }
    return toQt(key);
}

Variant valueOf(const QVariant& stored) {
    if (stored.typeId() != QMetaType::QString) throw support::BadBagLine("the value names no type");
    return support::readBagLine(std::string(LineStart) + fromQt(stored.toString())).value;
}

const char* reasonOf(QSettings::Status status) {
    return status == QSettings::FormatError ? "its content is damaged"
                                            : "it, or its directory, cannot be used";
}

std::string trouble(const QSettings& settings, std::string_view what, QSettings::Status status) {
    return fromQt(settings.fileName()) + ": the settings cannot be " + std::string(what) + ", " +
           reasonOf(status);
}
/// At most, in any of the formats: a character is written as \x and four digits.
qint64 roomFor(const QMap<QString, QVariant>& changes) {
    constexpr qint64 CharacterSize = 6;
    constexpr qint64 LineSize = 64;
    qint64 size = 0;
    for (auto change = changes.cbegin(); change != changes.cend(); ++change)
        size += CharacterSize * (change.key().size() + change->toString().size()) + LineSize;
    return size;
}

/// Writes as much as the settings may need beside their file, and takes it away again. What goes wrong; empty
/// when nothing does, or where settings are in no file.
QString writingFails(const QSettings& settings, qint64 more) {
    const QFileInfo info(settings.fileName());
    if (!info.isAbsolute() || !QDir().mkpath(info.absolutePath())) return {};
    QTemporaryFile trial(settings.fileName() + QStringLiteral(".XXXXXX"));
    if (!trial.open()) return trial.errorString();
    const QByteArray block(1 << 16, ' ');
    for (qint64 left = info.size() + more; left > 0; left -= block.size())
        if (!writeAll(trial, block.constData(), std::min<qint64>(left, block.size())))
            return trial.errorString();
    return {};
}
}  // namespace

SettingsBag::SettingsBag(QSettings& settings) : settings_(settings) {
    if (settings.status() != QSettings::NoError) damage_ = trouble(settings, "read", settings.status());
}

Variant SettingsBag::Read(std::string_view name, const Variant& fallback) {
    const QString key = keyOf(name);
    const auto changed = changes_.constFind(key);
    const QVariant stored = changed != changes_.cend() ? *changed : settings_.value(key);
    if (stored.isValid()) {
        try {
            return valueOf(stored);
        } catch (const support::BadBagLine& error) {
            throw BagError(fromQt(settings_.fileName()) + ", " + std::string(name) + ": " + error.what());
        }
    }
    if (changed == changes_.cend() && !damage_.empty()) throw BagError(damage_);
    return fallback;
}

void SettingsBag::Write(std::string_view name, const Variant& value, const Variant& fallback) {
    if (value == fallback)
        changes_[keyOf(name)] = QVariant();
    else
        Write(name, value);
}

void SettingsBag::Write(std::string_view name, const Variant& value) {
    if (value.isArray())
        throw BagError("\"" + std::string(name) + "\" is an array, which no settings can hold");
    const std::string line = support::bagLineText("value", value);
    changes_[keyOf(name)] = toQt(line.substr(LineStart.size()));
}

void SettingsBag::sync() {
    const QString trial = writingFails(settings_, roomFor(changes_));
    if (!trial.isEmpty()) throw BagError(fromQt(settings_.fileName()) + ": " + fromQt(trial));
    for (auto change = changes_.cbegin(); change != changes_.cend(); ++change) {
        if (change->isValid())
            settings_.setValue(change.key(), *change);
        else
            settings_.remove(change.key());
    }
    // through a second QSettings, which shares what is to be written: the first would report an old failure
    // for ever
    QSettings now(settings_.fileName(), settings_.format());
    now.sync();
    if (now.status() != QSettings::NoError) throw BagError(trouble(settings_, "written", now.status()));
    changes_.clear();
}
}  // namespace kxVsGrid::qt
