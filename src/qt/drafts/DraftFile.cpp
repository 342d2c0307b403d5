#include "kxVsGrid/qt/DraftFile.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>
#include <utility>

#include "kxVsGrid/Members.h"
#include "kxVsGrid/qt/kxGridWidget.h"
#include "qt/drafts/DraftKeeper.h"
#include "qt/drafts/DraftNotes.h"
#include "qt/drafts/DraftStore.h"
#include "qt/text/Encoding.h"

namespace kxVsGrid::qt {
namespace {

using drafts::DraftStore;
using drafts::Failure;
using drafts::Found;
using drafts::OpenedDraft;

QStringList filesIn(const QString& folder, const QString& pattern) {
    constexpr auto Any = QDir::Files | QDir::Dirs | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot;
    QStringList files;
    for (const QString& name : QDir(folder).entryList({pattern}, Any)) files += folder + u'/' + name;
    return files;
}

/// Whether it stands for itself: then it is newer than the one that it was to replace.
bool whole(drafts::StoredDraft& draft) {
    QByteArray bytes;
    if (!draft.read(bytes).isEmpty()) return false;
    return lookAtDraft({bytes.constData(), static_cast<std::size_t>(bytes.size())}).whole;
}

/// A program that was ended while it wrote a draft anew has left both behind, or the new one alone.
void tidy(DraftStore& store, const QString& folder) {
    for (const QString& path : filesIn(folder, QStringLiteral("*.draft.*.new"))) {
        const OpenedDraft opened = store.open(path);
        if (!opened.draft) continue;
        const OpenedDraft replaced = store.open(drafts::replacedBy(path));
        if (replaced.found == Found::Gone)
            opened.draft->moveTo(drafts::replacedBy(path));
        else if (replaced.draft && whole(*opened.draft))
            opened.draft->moveOver(*replaced.draft);
        else if (replaced.draft)
            opened.draft->remove();
    }
}

DraftInfo refusedFor(const Failure& why) {
    DraftInfo info;
    info.refusal = fromQt(why);
    return info;
}

/// Nothing for one that is in use, has gone, or went now because nothing was in it.
std::optional<DraftFile::Leftover> leftoverAt(DraftStore& store, const QString& path) {
    const OpenedDraft opened = store.open(path);
    if (opened.found == Found::InUse || opened.found == Found::Gone) return {};
    if (!opened.draft) return DraftFile::Leftover{path, refusedFor(opened.why), {}};
    QByteArray bytes;
    const Failure why = opened.draft->read(bytes);
    if (!why.isEmpty()) return DraftFile::Leftover{path, refusedFor(why), opened.draft->time()};
    DraftInfo info = lookAtDraft({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    const drafts::Notes notes = drafts::takeNotes(info);
    if (!drafts::emptyDraft(info, notes))
        return DraftFile::Leftover{path, std::move(info), opened.draft->time()};
    opened.draft->remove();
    return {};
}
}  // namespace

QString DraftFile::standardFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/drafts");
}

QList<DraftFile::Leftover> DraftFile::leftovers(const QString& folder) {
    const auto store = drafts::systemStore();
    QList<Leftover> all;
    if (const Failure why = store->folderFault(folder); !why.isEmpty()) {
        all.append({folder, refusedFor(why), {}});
        return all;
    }
    tidy(*store, folder);
    for (const QString& path : filesIn(folder, QStringLiteral("*.draft")))
        if (auto leftover = leftoverAt(*store, path)) all.append(std::move(*leftover));
    std::stable_sort(all.begin(), all.end(),
                     [](const Leftover& a, const Leftover& b) { return a.time > b.time; });
    return all;
}

QString DraftFile::giveUp(const Leftover& leftover) {
    const OpenedDraft opened = drafts::systemStore()->open(leftover.path);
    if (opened.found == Found::Gone) return {};
    if (!opened.draft) return opened.why;
    QByteArray bytes;
    if (Failure why = opened.draft->read(bytes); !why.isEmpty()) return why;
    const DraftInfo info = lookAtDraft({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    if (info.damage.empty() && info.refusal.empty()) return opened.draft->remove();
    return opened.draft->moveTo(drafts::keptName(leftover.path));
}

QString DraftFile::Recovery::told() const {
    if (!refusal.empty()) return QStringLiteral("草稿没有恢复：%1").arg(toQt(refusal));
    QString text = QStringLiteral("“%1”的草稿已恢复，共 %2 步").arg(toQt(key)).arg(steps);
    if (!lastStep.empty()) text += QStringLiteral("，最后一步是“%1”").arg(toQt(lastStep));
    text += u'。';
    if (damage.empty()) return text;
    text += QStringLiteral("草稿有损坏，损坏的部分没有恢复（%1）。").arg(toQt(damage));
    if (!keptBeside.isEmpty())
        text += QStringLiteral("原来的文件保留为“%1”。").arg(QDir::toNativeSeparators(keptBeside));
    return text;
}

DraftFile::DraftFile(kxGridWidget& widget, QString folder)
    : DraftFile(widget, std::move(folder), drafts::systemStore(), {}) {}

DraftFile::DraftFile(kxGridWidget& widget, QString folder, std::shared_ptr<DraftStore> store,
                     const drafts::DraftTimes& times)
    : keeper_(new drafts::DraftKeeper(
          widget, std::move(folder), std::move(store), times,
          drafts::DraftKeeper::Told{[this](const QString& why) { Q_EMIT failed(why); },
                                    [this] { Q_EMIT works(); }})) {}

DraftFile::~DraftFile() {
    delete keeper_.data();
}

void DraftFile::begin(const QString& key, const QString& version) {
    if (keeper_) keeper_->begin(key, version);
}

void DraftFile::put(const QString& name, const QByteArray& bytes) {
    const std::string named = fromQt(name);
    if (named == drafts::EditorNote || named == drafts::BeforeNote)
        throw GridError("put: the name \"" + named + "\" is taken");
    if (keeper_) keeper_->put(named, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

DraftFile::Recovery DraftFile::recover(const Leftover& leftover, bool document) {
    if (keeper_) return keeper_->recover(leftover.path, document);
    Recovery none;
    none.refusal = fromQt(QStringLiteral("表格已关闭"));
    return none;
}

std::optional<DraftFile::EditorText> DraftFile::editorText() const {
    return keeper_ ? keeper_->editorText() : std::nullopt;
}

void DraftFile::finish() {
    if (keeper_) keeper_->finish();
}

QString DraftFile::path() const {
    return keeper_ ? keeper_->path() : QString();
}
}  // namespace kxVsGrid::qt
