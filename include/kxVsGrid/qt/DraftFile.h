// What has been keyed into a grid and not saved yet, in a file of its user's own, so that neither a crash nor a
// power cut loses it: the draft (Draft.h) of one document on the disk.
//
//     auto* draft = new kxVsGrid::qt::DraftFile(*widget);
//     draft->setParent(widget);  // or a member of the window
//     QObject::connect(draft, &kxVsGrid::qt::DraftFile::failed, widget, [](const QString& why) {
//         qWarning() << why;  // say it once; keying goes on
//     });
//     bool recovered = false;
//     for (const auto& leftover : kxVsGrid::qt::DraftFile::leftovers()) {
//         if (leftover.info.key != "order 4711") continue;
//         recovered = draft->recover(leftover, leftover.info.version == "3").refusal.empty();
//     }
//     if (!recovered) draft->begin("order 4711", "3");
//     draft->put("remark", "call before noon");
//     // ... and when the order has been saved, or the clerk has given it up:
//     draft->finish();
//
// Each step of changes is given to the system whole as it closes: no crash of the program loses one. It is on
// the disk at most 200 ms later, which is all that a power cut can take; a thread sees to that, so that nobody
// waits for the disk. What is written outside of steps follows within 200 ms. A file ten times as long as what it
// holds is written anew. While the disk is full, slow or read-only the clerk keys on, failed() says so once, and
// all of it is written as soon as that is possible.
//
// Files are readable and writable for their user alone, and locked while they are written: a second program
// neither lists nor recovers them. Symbolic links are not followed.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#ifndef Q_MOC_RUN  // whose scanner knows no names beyond ASCII
#include "kxVsGrid/Draft.h"
#endif

namespace kxVsGrid::qt {

class kxGridWidget;

namespace drafts {
class DraftKeeper;
class DraftStore;
struct DraftTimes;
}  // namespace drafts

/// To be used on the thread of its widget.
class DraftFile : public QObject {
    Q_OBJECT

  public:
    /// A draft that its program has left behind.
    struct Leftover {
        QString path;
        /// What it says of itself. `refusal`, when it cannot be recovered at all, in words for the clerk where
        /// the file itself is at fault (a symbolic link, somebody else's). `puts` without those of this class.
        DraftInfo info;
        QDateTime time;  ///< of its last change, by the clock of that moment
    };
    /// What came back.
    struct Recovery : DraftInfo {
        /// Where a draft that was damaged is kept, all of it; empty while it stands where it stood.
        QString keptBeside;
        /// False where all rows were put anew, with ids of their own, although the grid held the document: a
        /// draft that was recovered before begins with what was recovered, not with the document.
        bool overDocument = false;
        /// All of it in words for the clerk.
        QString told() const;
    };
    /// What stood in an editor that was open for more than five seconds.
    struct EditorText {
        std::int32_t row;
        std::int32_t col;
        std::string text;
    };

    /// The folder "drafts" in the user's own data folder of this program.
    static QString standardFolder();
    /// The newest first. Those that a program has in use are left out, and those in which nothing was changed
    /// are removed. Reads all of them: a time that grows with their lengths.
    static QList<Leftover> leftovers(const QString& folder = standardFolder());
    /// The clerk does not want it: it is removed. One that is damaged or no draft is kept beside, under another
    /// name, and not listed any more. Answers why that could not be done, in words for the clerk; empty when it
    /// was.
    static QString giveUp(const Leftover& leftover);

    /// Touches no file yet. It and the widget may go in any order; without the widget it does nothing any more.
    /// A draft that was not finished is left behind then.
    explicit DraftFile(kxGridWidget& widget, QString folder = standardFolder());
    /// The same with another disk and at another pace: for tests.
    DraftFile(kxGridWidget& widget, QString folder, std::shared_ptr<drafts::DraftStore> store,
              const drafts::DraftTimes& times);
    /// Waits until the disk has what was given to it.
    ~DraftFile() override;

    /// A new document, or the same one when it has been saved: what the grid holds now is `version` of the
    /// document `key`. A new file; the one that this object wrote before goes as soon as the new one stands.
    /// What the grid holds follows in idle time, which pauses while the clerk types once the first slice is written.
    void begin(const QString& key, const QString& version);
    /// What the host has beside the grid, by name; the last one holds. What is put before the event loop runs
    /// again after begin() belongs to the document; a change of it later on makes the draft worth keeping.
    /// GridError for the names "editor" and "kxVsGrid.before", which are taken.
    void put(const QString& name, const QByteArray& bytes);
    /// Puts the grid into the state of the draft (kxGrid::Recover says what `document` is), and goes on writing
    /// it, anew and in one piece. The answer says in `refusal` why that could not be; then nothing has changed,
    /// the file neither. A damaged draft gives what is good in it and is kept beside. An exception of the
    /// host's handlers comes through; the file stands as it was then, and is not written.
    Recovery recover(const Leftover& leftover, bool document);
    /// What the clerk had in the editor when the draft recovered last was left behind, for the host to put there
    /// again; nothing when the cell holds it, or when there was none.
    std::optional<EditorText> editorText() const;
    /// All is saved, or given up: the file is removed, and nothing is recorded until begin().
    void finish();

    /// Of the file that is written; empty when there is none.
    QString path() const;

  Q_SIGNALS:
    /// The draft cannot be written, and why, in words for the clerk. Said once, until works(); keying goes on,
    /// and writing is tried again.
    void failed(const QString& why);
    /// All that was keyed is in the file again.
    void works();

  private:
    QPointer<drafts::DraftKeeper> keeper_;  ///< the widget's
};
}  // namespace kxVsGrid::qt
