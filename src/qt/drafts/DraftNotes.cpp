#include "qt/drafts/DraftNotes.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>
#include <algorithm>
#include <utility>

#include "qt/text/Encoding.h"

namespace kxVsGrid::qt::drafts {
namespace {

constexpr qsizetype ReadableLetters = 40;

std::string jsonText(const QJsonObject& object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

QJsonObject objectIn(const std::string& text) {
    return QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
}

std::string taken(DraftInfo& info, const char* name) {
    auto note = info.puts.extract(name);
    return note.empty() ? std::string() : std::move(note.mapped());
}
}  // namespace

QString nameOf(const QString& key, int number) {
    QString name = key.left(ReadableLetters);
    for (QChar& letter : name)
        if (!letter.isLetterOrNumber() && letter != u'-') letter = u'_';
    const QByteArray hash = QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Sha1).toHex().left(8);
    name += u'-' + QString::fromLatin1(hash);
    if (number > 1) name += u'-' + QString::number(number);
    return name + QStringLiteral(".draft");
}

QString nameBeside(const QString& path) {
    return path + u'.' + QString::number(QRandomGenerator::global()->generate(), 16) + QStringLiteral(".new");
}

QString replacedBy(const QString& beside) {
    return beside.section(u'.', 0, -3);
}

QString keptName(const QString& path) {
    QString name = path + QStringLiteral(".damaged");
    for (int number = 2; QFileInfo::exists(name) || QFileInfo(name).isSymLink(); ++number)
        name = path + QStringLiteral(".damaged-") + QString::number(number);
    return name;
}

std::string Before::text() const {
    return jsonText({{"changed", changed},
                     {"recovered", recovered},
                     {"steps", static_cast<qint64>(steps)},
                     {"last", toQt(lastStep)}});
}

Notes takeNotes(DraftInfo& info) {
    Notes notes;
    notes.editor = taken(info, EditorNote);
    const QJsonObject before = objectIn(taken(info, BeforeNote));
    notes.before = {before["changed"].toBool(), before["recovered"].toBool(),
                    static_cast<std::size_t>(std::max(before["steps"].toInteger(), qint64{0})),
                    fromQt(before["last"].toString())};
    if (info.steps == 0) info.lastStep = notes.before.lastStep;
    info.steps += notes.before.steps;
    return notes;
}

bool emptyDraft(const DraftInfo& info, const Notes& notes) {
    if (info.nothing) return true;
    return info.steps == 0 && !notes.before.changed && notes.editor.empty() && info.damage.empty() &&
           info.refusal.empty();
}

std::string noteOf(const DraftFile::EditorText& text) {
    return jsonText({{"row", text.row}, {"col", text.col}, {"text", toQt(text.text)}});
}

std::optional<DraftFile::EditorText> editorTextOf(const std::string& note) {
    const QJsonObject object = objectIn(note);
    if (!object.contains("text")) return {};
    return DraftFile::EditorText{object["row"].toInt(), object["col"].toInt(),
                                 fromQt(object["text"].toString())};
}
}  // namespace kxVsGrid::qt::drafts
