// Writes the draft of a widget's grid into a file: when, and what becomes of what cannot be written.
//
// Bytes are given to the system as they come, by who writes them; a thread brings them to the disk. A file that
// has grown too long, is gone, or is not known to be on the disk, is written anew beside and moves over.
#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Draft.h"
#include "kxVsGrid/Event.h"
#include "kxVsGrid/kxGrid.h"
#include "kxVsGrid/qt/DraftFile.h"
#include "qt/drafts/DraftNotes.h"
#include "qt/drafts/DraftStore.h"
#include "qt/drafts/SyncThread.h"

namespace kxVsGrid::qt::drafts {

struct DraftTimes {
    using Time = std::chrono::milliseconds;
    Time flush{200};    ///< after a write outside of steps
    Time sync{100};     ///< after a write to the file; the disk has another 100 for it
    Time retry{3000};   ///< after a failure
    Time editor{5000};  ///< until what an open editor holds is kept
    Time typing{300};   ///< slices behind the first one pause so long after a key
};

/// A child of its widget, which ends it before its grid goes.
class DraftKeeper : public QObject, private ChangeListener {
  public:
    struct Told {
        std::function<void(const Failure& why)> failed;
        std::function<void()> works;
    };
    DraftKeeper(kxGridWidget& widget, QString folder, std::shared_ptr<DraftStore> store,
                const DraftTimes& times, Told told);
    ~DraftKeeper() override;

    void begin(const QString& key, const QString& version);
    void put(const std::string& name, std::string_view bytes);
    DraftFile::Recovery recover(const QString& path, bool document);
    std::optional<DraftFile::EditorText> editorText() const;
    void finish();
    QString path() const { return file_ ? file_->path() : QString(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // ChangeListener
    void written(std::int32_t, std::int32_t, CellPart, std::string_view, std::string_view) noexcept override {
        changed();
    }
    void added(std::int32_t, std::int32_t) noexcept override { changed(); }
    void removing(std::int32_t, std::int32_t) noexcept override { changed(); }
    void reordered(std::int32_t, std::span<const std::int32_t>) noexcept override { changed(); }
    void cleared(std::int32_t, std::int32_t) noexcept override { changed(); }
    void columnsChanged() noexcept override { changed(); }
    void stepOpened(std::string_view name, Cause cause) noexcept override;
    void stepClosed(std::string_view name, Cause cause) noexcept override;
    void changed() noexcept;

    template <class Work>
    void whenDue(QTimer& timer, Work work);
    void startOver(const QString& key);
    void goOn();
    void stop();
    bool keep(std::string_view bytes);
    bool openFile();
    OpenedDraft createNamed();
    OpenedDraft createBeside();
    StoredDraft& standing() const;
    void letGo();
    void removeFormer();

    void failed(const Failure& why);
    void worked();
    void retry();
    bool writeAnew();
    Failure putInPlace(StoredDraft& next);

    void slice();
    void flush();
    void noteChanged();

    bool tooLong() const;
    void compactSoon();
    void compact();
    void synced(const std::shared_ptr<StoredDraft>& draft, const Failure& why);
    void goOnIn(const std::shared_ptr<StoredDraft>& draft, std::size_t size);

    void lookAtEditor();
    std::optional<DraftFile::EditorText> openEditor() const;

    kxGrid& grid_;
    QString folder_;
    std::shared_ptr<DraftStore> store_;
    const DraftTimes times_;
    Told told_;

    QString key_;
    std::shared_ptr<StoredDraft> file_;
    std::shared_ptr<StoredDraft> longer_;               ///< whose name it gets when the disk has it
    std::vector<std::shared_ptr<StoredDraft>> former_;  ///< go as soon as the new one stands
    std::size_t size_ = 0;
    std::size_t compactAt_ = 0;
    bool begun_ = false;
    bool muted_ = false;  ///< what is written is in the file that is about to come
    bool anew_ = false;   ///< the file lacks something: only all of it anew is right
    bool failing_ = false;
    bool damaged_ = false;  ///< the file is to be kept beside
    bool opening_ = false;  ///< what is put belongs to the document
    bool sliced_ = false;   ///< the first slice has been written
    QString keptBeside_;

    Before before_;  ///< as it stands in the file
    bool stepChanged_ = false;

    std::map<std::string, std::size_t> puts_;  ///< hashes
    std::string editorNote_;                   ///< as it stands in the file
    std::string recoveredNote_;

    QTimer sliceTimer_;
    QTimer flushTimer_;
    QTimer retryTimer_;
    QTimer compactTimer_;
    QTimer editorTimer_;
    ScopedConnection editorOpens_;
    std::unique_ptr<Draft> draft_;
    std::unique_ptr<SyncThread> syncing_;
};
}  // namespace kxVsGrid::qt::drafts
