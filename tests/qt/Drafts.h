// A clerk's window whose draft is kept in a folder of the test, on a disk that can fail.
#pragma once

#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "kit/KeptFiles.h"
#include "kxVsGrid/qt/DraftFile.h"
#include "qt/Window.h"
#include "qt/drafts/DraftKeeper.h"
#include "qt/drafts/DraftStore.h"

namespace kxVsGrid::qt::testing {

/// The machine's disk, with what can go wrong.
class TroubledDisk : public drafts::DraftStore {
  public:
    struct Troubles {
        qint64 room = -1;  ///< bytes until it is full; -1: more than enough
        bool readOnly = false;
        bool staysAtNames = false;  ///< nothing can be renamed
        std::atomic<bool> losesWrites = false;
        std::atomic<int> syncs = 0;
        int created = 0;
    };
    drafts::OpenedDraft create(const QString& path) override;
    drafts::OpenedDraft open(const QString& path) override;
    drafts::Failure folderFault(const QString& folder) override { return disk_->folderFault(folder); }

    const std::shared_ptr<Troubles> troubles = std::make_shared<Troubles>();

  private:
    drafts::OpenedDraft troubled(drafts::OpenedDraft opened);
    std::shared_ptr<drafts::DraftStore> disk_ = drafts::systemStore();
};

/// As fast as can be; what a test shall never see comes in an hour.
inline drafts::DraftTimes quick() {
    using std::chrono::milliseconds;
    return {milliseconds(1), milliseconds(1), milliseconds(1), milliseconds(1), milliseconds(1)};
}
inline constexpr std::chrono::hours Never{1};

/// What this program is started with to key into a grid with a draft in the folder that follows, line by line,
/// until it is killed. It writes a byte for each step that has closed.
inline constexpr const char* KeyADraft = "--key-a-draft";
inline constexpr int KeyedRows = 25;
int keyADraft(const QString& folder);

class DraftTest : public kit::KeptFiles {
  protected:
    QString place = folder.filePath("drafts");
    Window w;
    std::shared_ptr<TroubledDisk> disk = std::make_shared<TroubledDisk>();
    TroubledDisk::Troubles& troubles = *disk->troubles;
    std::vector<std::string> told;  ///< by the signals

    std::unique_ptr<DraftFile> make(kxGridWidget& widget, const drafts::DraftTimes& times = quick());
    std::unique_ptr<DraftFile> make(const drafts::DraftTimes& times = quick()) {
        return make(*w.widget, times);
    }
    /// Begun, and all that the grid holds has been written.
    std::unique_ptr<DraftFile> begun(const drafts::DraftTimes& times = quick());
    static DraftInfo look(const DraftFile& draft) { return lookAtDraft(content(draft.path()).toStdString()); }
    /// The clerk keys it in and presses Enter.
    void key(std::int32_t row, std::int32_t col, const QString& typed);
    QStringList files() const;
    QList<DraftFile::Leftover> leftovers() const { return DraftFile::leftovers(place); }
    static std::vector<std::string> contentOf(kxGrid& grid);
    /// What comes back into a window that holds nothing of it.
    std::vector<std::string> recovered(const DraftFile::Leftover& leftover);
};
}  // namespace kxVsGrid::qt::testing
