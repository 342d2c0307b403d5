#include "qt/drafts/DraftKeeper.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <algorithm>
#include <exception>
#include <utility>

#include "kxVsGrid/qt/kxGridWidget.h"
#include "qt/text/Encoding.h"
#include "support/FlagSpan.h"

namespace kxVsGrid::qt::drafts {
namespace {

constexpr std::size_t MostTimes = 10;
/// A file that fits one block of a disk is not written anew.
constexpr std::size_t ShortFile = 4096;
constexpr int MostOfOneName = 10'000;

std::size_t hashOf(std::string_view bytes) {
    return std::hash<std::string_view>{}(bytes);
}
}  // namespace

DraftKeeper::DraftKeeper(kxGridWidget& widget, QString folder, std::shared_ptr<DraftStore> store,
                         const DraftTimes& times, Told told)
    : QObject(&widget),
      grid_(widget.grid()),
      folder_(std::move(folder)),
      store_(std::move(store)),
      times_(times),
      told_(std::move(told)) {
    whenDue(sliceTimer_, [this] { slice(); });
    whenDue(flushTimer_, [this] { flush(); });
    whenDue(retryTimer_, [this] { retry(); });
    whenDue(compactTimer_, [this] { compact(); });
    whenDue(editorTimer_, [this] { lookAtEditor(); });
    editorOpens_ = grid_.BeforeTextEdit.connect([this] {
        if (begun_) editorTimer_.start(times_.editor);
    });
}

DraftKeeper::~DraftKeeper() {
    if (!begun_) return;
    try {
        if (flushTimer_.isActive()) noteChanged();
        if (!anew_) draft_->flush();
    } catch (const std::exception&) {
        // For want of memory: the steps are in the file.
    }
    stop();
    syncing_.reset();
    if (longer_ && file_->sync().isEmpty()) file_->moveOver(*longer_);
}

/// No exception may get into Qt's event loop: what memory did not suffice for is tried again.
template <class Work>
void DraftKeeper::whenDue(QTimer& timer, Work work) {
    timer.setSingleShot(true);
    connect(&timer, &QTimer::timeout, this, [this, work] {
        if (!begun_) return;
        try {
            work();
        } catch (const std::exception& error) {
            failed(QString::fromUtf8(error.what()));
        }
    });
}

// --- What the host asks

void DraftKeeper::begin(const QString& key, const QString& version) {
    startOver(key);
    opening_ = true;
    draft_->begin(fromQt(key), fromQt(version));
    goOn();
}

void DraftKeeper::put(const std::string& name, std::string_view bytes) {
    if (!begun_) return;
    const std::size_t hash = hashOf(bytes);
    const auto [known, isNew] = puts_.try_emplace(name, hash);
    if (!opening_ && (isNew || known->second != hash)) noteChanged();
    known->second = hash;
    draft_->put(name, bytes);
}

/// Handlers of the host may end this.
DraftFile::Recovery DraftKeeper::recover(const QString& path, bool document) {
    DraftFile::Recovery back;
    const OpenedDraft opened = store_->open(path);
    QByteArray bytes;
    const Failure why = opened.draft ? opened.draft->read(bytes) : opened.why;
    if (!why.isEmpty()) {
        back.refusal = fromQt(why);
        return back;
    }
    const std::string_view draft(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    DraftInfo look = lookAtDraft(draft);
    back.overDocument = document && !takeNotes(look).before.recovered;
    const QPointer<DraftKeeper> here(this);
    static_cast<DraftInfo&>(back) = grid_.Recover(draft, back.overDocument);
    const Notes notes = takeNotes(back);
    if (!here || !back.refusal.empty()) return back;

    startOver(toQt(back.key));
    file_ = opened.draft;
    damaged_ = !back.damage.empty();
    before_ = {true, true, back.steps, back.lastStep};
    anew_ = true;
    {
        const support::FlagSpan muted(muted_);
        draft_->begin(back.key, back.version);
        for (const auto& [name, value] : back.puts) put(name, value);
        draft_->put(EditorNote, notes.editor);
        draft_->put(BeforeNote, before_.text());
    }
    editorNote_ = recoveredNote_ = notes.editor;
    writeAnew();
    back.keptBeside = keptBeside_;
    goOn();
    return back;
}

std::optional<DraftFile::EditorText> DraftKeeper::editorText() const {
    auto text = editorTextOf(recoveredNote_);
    const CellGrid& cells = grid_.Grid();
    const bool inside = text && text->row >= cells.FixedRows() && text->row < cells.Rows() &&
                        text->col >= cells.FixedCols() && text->col < cells.Cols();
    if (!inside || cells.Text(text->row, text->col) == text->text) return {};
    return text;
}

void DraftKeeper::finish() {
    if (!begun_) return;
    stop();
    letGo();
    removeFormer();
    recoveredNote_.clear();
}

void DraftKeeper::startOver(const QString& key) {
    stop();
    letGo();
    key_ = key;
    size_ = compactAt_ = 0;
    before_ = {};
    puts_.clear();
    editorNote_.clear();
    recoveredNote_.clear();
    keptBeside_.clear();
    opening_ = stepChanged_ = sliced_ = false;
    if (!draft_)
        draft_ =
            std::make_unique<Draft>(grid_.Grid(), [this](std::string_view bytes) { return keep(bytes); });
    if (!syncing_)
        syncing_ = std::make_unique<SyncThread>(times_.sync, [this](const auto& draft, const Failure& why) {
            QMetaObject::invokeMethod(
                this, [this, draft, why] { synced(draft, why); }, Qt::QueuedConnection);
        });
    grid_.Grid().AddListener(*this);
    begun_ = true;
}

void DraftKeeper::goOn() {
    if (grid_.editorView().visible) editorTimer_.start(times_.editor);
    if (draft_->whole()) return;
    QCoreApplication::instance()->installEventFilter(this);
    sliceTimer_.start(0);
}

/// Nothing is recorded any more. The file stands as it is.
void DraftKeeper::stop() {
    for (QTimer* timer : {&sliceTimer_, &flushTimer_, &retryTimer_, &compactTimer_, &editorTimer_})
        timer->stop();
    if (!std::exchange(begun_, false)) return;
    grid_.Grid().RemoveListener(*this);
    if (auto* program = QCoreApplication::instance()) program->removeEventFilter(this);
    draft_->end();
    anew_ = failing_ = false;
}

// --- What the engine tells

void DraftKeeper::changed() noexcept {
    if (grid_.Grid().StepOpen())
        stepChanged_ = true;
    else if (!flushTimer_.isActive())
        flushTimer_.start(times_.flush);
}

void DraftKeeper::stepOpened(std::string_view, Cause) noexcept {
    stepChanged_ = false;
}

void DraftKeeper::stepClosed(std::string_view, Cause) noexcept {
    if (!stepChanged_) return;
    flushTimer_.start(0);  // a long one may wait for it
    if (!editorNote_.empty()) editorTimer_.start(0);
}

// --- The file

/// Where the draft gives its bytes, also from the midst of a clerk's act: nobody is told anything here.
bool DraftKeeper::keep(std::string_view bytes) {
    if (muted_) return true;
    if (anew_) return false;
    if (file_ && !file_->there()) {
        anew_ = true;
        retryTimer_.start(0);
        return false;
    }
    if (!file_ && !openFile()) return false;
    if (const Failure why = file_->append(bytes); !why.isEmpty()) {
        file_->cutTo(static_cast<qint64>(size_));
        failed(why);
        return false;
    }
    size_ += bytes.size();
    syncing_->soon(file_);
    removeFormer();
    worked();
    compactSoon();
    return true;
}

bool DraftKeeper::openFile() {
    OpenedDraft opened = createNamed();
    if (!opened.draft) {
        failed(opened.why);
        return false;
    }
    file_ = std::move(opened.draft);
    size_ = 0;
    return true;
}

OpenedDraft DraftKeeper::createNamed() {
    OpenedDraft opened;
    for (int number = 1; number <= MostOfOneName; ++number) {
        opened = store_->create(folder_ + u'/' + nameOf(key_, number));
        if (opened.found != Found::Taken) break;
    }
    return opened;
}

OpenedDraft DraftKeeper::createBeside() {
    return store_->create(nameBeside(standing().path()));
}

/// The file under the draft's own name.
StoredDraft& DraftKeeper::standing() const {
    return longer_ ? *longer_ : *file_;
}

/// The file is of no use any more once another one stands.
void DraftKeeper::letGo() {
    if (longer_) former_.push_back(std::move(longer_));
    longer_.reset();
    if (!file_) return;
    if (std::exchange(damaged_, false))
        file_->moveTo(keptName(file_->path()));
    else
        former_.push_back(file_);
    file_.reset();
}

/// One that cannot be removed is emptied, so that nobody is offered it.
void DraftKeeper::removeFormer() {
    for (const auto& former : std::exchange(former_, {})) {
        const Failure why = former->remove();
        if (!why.isEmpty() && !former->cutTo(0).isEmpty()) failed(why);
    }
}

void DraftKeeper::goOnIn(const std::shared_ptr<StoredDraft>& draft, std::size_t size) {
    file_ = draft;
    size_ = size;
    compactAt_ = 0;
    anew_ = false;
    syncing_->now(file_);
    removeFormer();
    worked();
}

// --- Failures

void DraftKeeper::failed(const Failure& why) {
    if (begun_) retryTimer_.start(times_.retry);
    if (std::exchange(failing_, begun_)) return;
    QMetaObject::invokeMethod(
        this, [tell = told_.failed, why] { tell(why); }, Qt::QueuedConnection);
}

void DraftKeeper::worked() {
    if (!std::exchange(failing_, false)) return;
    retryTimer_.stop();
    QMetaObject::invokeMethod(
        this, [tell = told_.works] { tell(); }, Qt::QueuedConnection);
}

void DraftKeeper::retry() {
    const bool done = anew_ ? writeAnew() : (draft_->flush(), draft_->kept());
    if (!done) retryTimer_.start(times_.retry);
}

/// All of it, into a file of its own that takes the place of the one that stands: when that has gone, is not
/// known to be on the disk, or was left behind by another program.
bool DraftKeeper::writeAnew() {
    if (grid_.Grid().StepOpen()) return false;
    {
        const support::FlagSpan muted(muted_);
        noteChanged();
    }
    const bool inPlace = file_ && standing().there();
    OpenedDraft next;
    Failure why;
    std::size_t size = 0;
    const bool done = draft_->rewrite([&](std::string_view bytes) {
        size = bytes.size();
        next = inPlace ? createBeside() : createNamed();
        why = next.draft ? next.draft->append(bytes) : next.why;
        if (why.isEmpty()) why = next.draft->sync();
        if (why.isEmpty() && inPlace) why = putInPlace(*next.draft);
        if (!why.isEmpty() && next.draft) next.draft->remove();
        return why.isEmpty();
    });
    if (done) {
        if (longer_) former_.push_back(file_);  // which had not moved over it
        longer_.reset();
        goOnIn(next.draft, size);
    } else {
        failed(why.isEmpty() ? QStringLiteral("内存不足") : why);
    }
    return done;
}

Failure DraftKeeper::putInPlace(StoredDraft& next) {
    if (!damaged_) return next.moveOver(standing());
    const QString path = file_->path();
    const QString kept = keptName(path);
    if (Failure why = file_->moveTo(kept); !why.isEmpty()) return why;
    damaged_ = false;
    keptBeside_ = kept;
    file_.reset();
    return next.moveTo(path);
}

// --- In idle time

void DraftKeeper::slice() {
    opening_ = false;
    if (failing_ || anew_) return sliceTimer_.start(times_.retry);
    sliced_ = true;
    const bool more = draft_->writeSlice();
    if (!more && !draft_->whole()) draft_->flush();
    if (draft_->whole())
        QCoreApplication::instance()->removeEventFilter(this);
    else
        sliceTimer_.start(more ? DraftTimes::Time(0) : times_.typing);
}

/// Sees all that comes to the program while slices are written: they pause for the clerk. The first one does not: a
/// document that fits it can be recovered without its host's copy from the first key on.
bool DraftKeeper::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::InputMethod:
        case QEvent::MouseButtonPress:
        case QEvent::Wheel:
            opening_ = false;
            if (sliced_ && sliceTimer_.isActive()) sliceTimer_.start(times_.typing);
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

void DraftKeeper::flush() {
    if (grid_.Grid().StepOpen()) return flushTimer_.start(times_.flush);
    noteChanged();
    draft_->flush();
}

/// A file in which nothing was changed goes when it is listed: this one shall not.
void DraftKeeper::noteChanged() {
    if (before_.changed) return;
    before_.changed = true;
    draft_->put(BeforeNote, before_.text());
}

// --- A shorter file takes over at once, under another name. It gets the name of the longer one when the disk has
// it: of what a program leaves behind then, the shorter one counts if it is whole.

bool DraftKeeper::tooLong() const {
    return size_ > std::max({MostTimes * draft_->contentBytes(), ShortFile, compactAt_});
}

void DraftKeeper::compactSoon() {
    if (tooLong() && !longer_ && !compactTimer_.isActive()) compactTimer_.start(0);
}

void DraftKeeper::compact() {
    if (!tooLong() || longer_ || anew_ || failing_ || !draft_->whole()) return;
    if (grid_.Grid().StepOpen()) return compactTimer_.start(times_.flush);
    noteChanged();
    if (!file_ || !file_->there()) return;
    OpenedDraft next;
    std::size_t size = 0;
    const bool done = draft_->rewrite([&](std::string_view bytes) {
        size = bytes.size();
        next = createBeside();
        if (next.draft && next.draft->append(bytes).isEmpty()) return true;
        if (next.draft) next.draft->remove();
        return false;
    });
    if (!done) {
        compactAt_ = 2 * size_;
        return;
    }
    longer_ = file_;
    goOnIn(next.draft, size);
}

void DraftKeeper::synced(const std::shared_ptr<StoredDraft>& draft, const Failure& why) {
    if (!begun_ || draft != file_ || anew_) return;
    if (!why.isEmpty()) {
        anew_ = true;
        failed(why);
    } else if (longer_ && file_->moveOver(*longer_).isEmpty()) {
        longer_.reset();
        syncing_->soon(file_);  // the name
    }
}

// --- The open editor

std::optional<DraftFile::EditorText> DraftKeeper::openEditor() const {
    const EditorView& view = grid_.editorView();
    const std::int32_t row = grid_.Row();
    const std::int32_t col = grid_.Col();
    const CellGrid& cells = grid_.Grid();
    if (!view.visible || row < 0 || row >= cells.Rows() || col < 0 || col >= cells.Cols()) return {};
    if (cells.Text(row, col) == view.text) return {};
    return DraftFile::EditorText{row, col, view.text};
}

void DraftKeeper::lookAtEditor() {
    const auto text = openEditor();
    const std::string note = text ? noteOf(*text) : std::string();
    if (note != editorNote_) {
        editorNote_ = note;
        draft_->put(EditorNote, note);
    }
    if (grid_.editorView().visible) editorTimer_.start(note.empty() ? times_.editor : times_.editor / 5);
}
}  // namespace kxVsGrid::qt::drafts
