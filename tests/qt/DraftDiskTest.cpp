// Drafts on disks that fail, and in programs that are killed.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <csignal>
#include <stdexcept>

#include "kit/Random.h"
#include "qt/Drafts.h"

namespace kxVsGrid::qt::testing {
namespace {

class DraftOnADisk : public DraftTest {
  protected:
    bool waitFor(const std::string& what) {
        return waitUntil([&] { return !told.empty() && told.back() == what; });
    }
    /// Enough steps to make the file long.
    void fillSteps(int count) {
        for (int i = 0; i < count; ++i) {
            const auto step = w.grid().Step("填充");
            w.grid().SetCell(1 + i % 20, Remark, std::to_string(i) + std::string(200, 'x'));
        }
    }
};

/// While it lives, no file can be written beyond `bytes`.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &room_);
        const rlimit less{bytes, room_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &less);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &room_);
        std::signal(SIGXFSZ, signal_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit room_{};
    void (*signal_)(int);
};

/// This program once more, which keys (keyADraft) until it is killed.
class KeyingProgram {
  public:
    explicit KeyingProgram(const QString& folder) {
        if (::pipe(ends_) != 0) throw std::runtime_error("no pipe");
        const std::string place = folder.toStdString();
        child_ = ::fork();
        if (child_ == 0) {
            ::dup2(ends_[1], STDOUT_FILENO);
            ::close(ends_[0]);
            ::execl("/proc/self/exe", "kx_test_qt", KeyADraft, place.c_str(), nullptr);
            ::_exit(2);
        }
        ::close(ends_[1]);
        if (child_ < 0) throw std::runtime_error("no process");
    }
    ~KeyingProgram() { ::close(ends_[0]); }
    KeyingProgram(const KeyingProgram&) = delete;
    KeyingProgram& operator=(const KeyingProgram&) = delete;

    /// Until it has reported so many steps.
    void waitFor(int steps) {
        char byte = 0;
        while (reported_ < steps && ::read(ends_[0], &byte, 1) == 1) ++reported_;
    }
    /// How many steps it has reported up to its end.
    int kill() {
        ::kill(child_, SIGKILL);
        char byte = 0;
        while (::read(ends_[0], &byte, 1) == 1) ++reported_;
        int status = 0;
        ::waitpid(child_, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status)) << "it ended by itself";
        return reported_;
    }

  private:
    int ends_[2] = {-1, -1};
    pid_t child_ = -1;
    int reported_ = 0;
};
}  // namespace

TEST_F(DraftOnADisk, ThatIsFullSaysSoOnceAndIsWrittenWhenThereIsRoomAgain) {
    auto draft = begun();
    troubles.room = 7;
    key(3, Code, "first");
    key(4, Code, "second");
    Window::settle();
    EXPECT_EQ(told, std::vector<std::string>{"failed: full"});
    EXPECT_EQ(look(*draft).steps, 0U);
    EXPECT_EQ(look(*draft).damage, "");
    troubles.room = -1;
    ASSERT_TRUE(waitFor("works"));
    EXPECT_EQ(told.size(), 2U);
    EXPECT_EQ(look(*draft).steps, 2U);
    draft.reset();
    EXPECT_EQ(recovered(leftovers().at(0)), contentOf(w.grid()));
}

TEST_F(DraftOnADisk, ThatHasRoomAgainIsWrittenWithTheNextStep) {
    drafts::DraftTimes times = quick();
    times.retry = Never;
    const auto draft = begun(times);
    troubles.room = 7;
    key(3, Code, "first");
    troubles.room = -1;
    key(4, Code, "second");
    EXPECT_EQ(look(*draft).steps, 2U);
    EXPECT_TRUE(waitFor("works"));
}

TEST_F(DraftOnADisk, OfOneMebibyteKeepsTheClerkKeying) {
    auto draft = begun();
    troubles.room = 1 << 20;
    troubles.staysAtNames = true;  // or the file would be made short in time
    fillSteps(6000);
    Window::settle();
    EXPECT_EQ(told, std::vector<std::string>{"failed: full"});
    troubles.room = -1;
    ASSERT_TRUE(waitFor("works"));
    draft.reset();
    EXPECT_EQ(recovered(leftovers().at(0)), contentOf(w.grid()));
}

TEST_F(DraftOnADisk, ThatIsReallyFullTellsThatItIs) {
    auto draft = begun();
    {
        const FullDisk full(static_cast<rlim_t>(content(draft->path()).size()) + 7);
        key(3, Code, "first");
        ASSERT_TRUE(waitUntil([&] { return !told.empty(); }));
        EXPECT_EQ(told.at(0), "failed: 草稿“" + draft->path().toStdString() + "”：磁盘已满");
        EXPECT_EQ(look(*draft).steps, 0U);
    }
    ASSERT_TRUE(waitFor("works"));
    EXPECT_EQ(look(*draft).steps, 1U);
}

TEST_F(DraftOnADisk, ThatIsReadOnlyGetsTheDraftOnceItCanBeWritten) {
    troubles.readOnly = true;
    auto draft = make();
    draft->begin("order 7", "3");
    key(3, Code, "first");
    Window::settle();
    EXPECT_EQ(told, std::vector<std::string>{"failed: read-only"});
    EXPECT_EQ(draft->path(), "");
    troubles.readOnly = false;
    ASSERT_TRUE(waitUntil([&] { return !draft->path().isEmpty() && look(*draft).whole; }));
    ASSERT_TRUE(waitFor("works"));
    draft.reset();
    EXPECT_EQ(recovered(leftovers().at(0)), contentOf(w.grid()));
}

TEST_F(DraftOnADisk, TheOneBeforeGoesOnlyWhenTheNextOneStands) {
    const auto draft = begun();
    key(3, Code, "first");
    troubles.readOnly = true;
    draft->begin("order 8", "1");
    EXPECT_EQ(files().size(), 1);
    EXPECT_EQ(draft->path(), "");
    troubles.readOnly = false;
    ASSERT_TRUE(waitFor("works"));
    EXPECT_EQ(files(), QStringList(QFileInfo(draft->path()).fileName()));
}

TEST_F(DraftOnADisk, ThatCannotRemoveAFinishedDraftHoldsAnEmptyOne) {
    const auto draft = begun();
    key(3, Code, "first");
    troubles.readOnly = true;
    draft->finish();
    EXPECT_EQ(files().size(), 1);
    EXPECT_TRUE(waitUntil([&] { return leftovers().isEmpty() && files().isEmpty(); }));
}

TEST_F(DraftOnADisk, IsBroughtThereByAThread) {
    const auto draft = begun();
    ASSERT_TRUE(waitUntil([&] { return troubles.syncs > 0; }));
    const int before = troubles.syncs;
    key(3, Code, "first");
    EXPECT_TRUE(waitUntil([&] { return troubles.syncs > before; }));
}

TEST_F(DraftOnADisk, IsThereBeforeItIsClosed) {
    drafts::DraftTimes times = quick();
    times.sync = Never;
    auto draft = begun(times);
    key(3, Code, "first");
    EXPECT_EQ(troubles.syncs, 0);
    draft.reset();
    EXPECT_EQ(troubles.syncs, 1);
}

TEST_F(DraftOnADisk, ThatLosesWritesGetsAllOfItAnew) {
    auto draft = begun();
    troubles.losesWrites = true;
    key(3, Code, "first");
    ASSERT_TRUE(waitFor("failed: lost"));
    key(4, Code, "second");
    const int created = troubles.created;
    troubles.losesWrites = false;
    ASSERT_TRUE(waitFor("works"));
    EXPECT_GT(troubles.created, created);
    EXPECT_EQ(files().size(), 1);
    draft.reset();
    EXPECT_EQ(recovered(leftovers().at(0)), contentOf(w.grid()));
}

TEST_F(DraftOnADisk, WhoseFileWasTakenAwayIsWrittenAnew) {
    auto draft = begun();
    key(3, Code, "first");
    ASSERT_TRUE(QDir(place).removeRecursively());
    key(4, Code, "second");
    ASSERT_TRUE(waitUntil([&] { return QFile::exists(draft->path()); }));
    EXPECT_TRUE(told.empty());
    draft.reset();
    EXPECT_EQ(recovered(leftovers().at(0)), contentOf(w.grid()));
}

TEST_F(DraftOnADisk, RecoveredOnAFullDiskStandsUntilItCanBeWrittenAnew) {
    auto draft = begun();
    key(3, Code, "first");
    draft.reset();
    const auto left = leftovers().at(0);
    const QByteArray before = content(left.path);
    troubles.room = 100;
    Window other;
    draft = make(*other.widget);
    EXPECT_EQ(draft->recover(left, false).refusal, "");
    EXPECT_EQ(content(left.path), before);
    EXPECT_TRUE(leftovers().isEmpty()) << "it is in use";
    troubles.room = -1;
    ASSERT_TRUE(waitFor("works"));
    EXPECT_NE(content(left.path), before);
    draft.reset();
    EXPECT_EQ(files().size(), 1);
    EXPECT_EQ(recovered(leftovers().at(0)), contentOf(w.grid()));
}

TEST_F(DraftOnADisk, DamagedAndRecoveredWhereNothingCanBeRenamedStands) {
    auto draft = begun();
    key(3, Code, "first");
    key(4, Code, "second");
    const QString path = draft->path();
    draft.reset();
    QByteArray bytes = content(path);
    bytes.replace("second", "sEcond") += "no line\n";
    put(path, bytes);
    troubles.staysAtNames = true;
    draft = make();
    EXPECT_EQ(draft->recover(leftovers().at(0), false).keptBeside, "");
    draft->begin("order 8", "1");
    EXPECT_EQ(content(path), bytes);
}

TEST_F(DraftOnADisk, IsWrittenAnewWhenItIsTenTimesItsContent) {
    auto draft = begun();
    fillSteps(300);
    const qsizetype longest = content(draft->path()).size();
    const QStringList name(QFileInfo(draft->path()).fileName());
    ASSERT_TRUE(waitUntil([&] { return content(draft->path()).size() < longest / 2 && files() == name; }));
    key(3, Code, "first");
    EXPECT_EQ(look(*draft).lastStep, "录入");
    draft.reset();
    ASSERT_EQ(leftovers().size(), 1);
    EXPECT_EQ(recovered(leftovers()[0]), contentOf(w.grid()));
}

TEST_F(DraftOnADisk, WrittenAnewAndNotThereYetLosesNoStep) {
    auto draft = begun();
    troubles.staysAtNames = true;
    fillSteps(300);
    ASSERT_TRUE(waitUntil([&] { return draft->path().endsWith(".new"); }));
    key(3, Code, "first");
    draft.reset();
    EXPECT_TRUE(told.empty());
    EXPECT_EQ(files().size(), 2);
    ASSERT_EQ(leftovers().size(), 1);
    EXPECT_EQ(files().size(), 1);
    EXPECT_EQ(recovered(leftovers()[0]), contentOf(w.grid()));
}

TEST_F(DraftOnADisk, ThatLosesTheOneWrittenAnewGetsItOnceMore) {
    auto draft = begun();
    const QStringList name(QFileInfo(draft->path()).fileName());
    troubles.losesWrites = true;
    fillSteps(300);
    ASSERT_TRUE(waitFor("failed: lost"));
    troubles.losesWrites = false;
    ASSERT_TRUE(waitUntil([&] { return files() == name && told.back() == "works"; }));
    draft.reset();
    EXPECT_EQ(recovered(leftovers().at(0)), contentOf(w.grid()));
}

TEST_F(DraftOnADisk, OfAProgramThatEndedWhileWritingAnewIsOneDraft) {
    auto draft = begun();
    key(3, Code, "first");
    const QString path = draft->path();
    draft.reset();
    const QByteArray bytes = content(path);
    put(path + ".1a2b.new", bytes.left(bytes.size() / 2));
    EXPECT_EQ(leftovers().size(), 1);
    EXPECT_EQ(files(), QStringList(QFileInfo(path).fileName()));
    ASSERT_TRUE(QFile::rename(path, path + ".1a2b.new"));
    ASSERT_EQ(leftovers().size(), 1);
    EXPECT_EQ(leftovers()[0].path, path);
    EXPECT_EQ(leftovers()[0].info.steps, 1U);
}

TEST_F(DraftOnADisk, WhoHearsOfAFailureMayEndTheDraft) {
    troubles.readOnly = true;
    auto draft = make();
    QObject::connect(draft.get(), &DraftFile::failed, &w.window, [&] { draft.reset(); });
    draft->begin("order 7", "3");
    EXPECT_TRUE(waitUntil([&] { return !draft; }));
}

TEST_F(DraftOnADisk, OfALivingProgramIsInUse) {
    KeyingProgram program(place);
    program.waitFor(1);
    EXPECT_TRUE(leftovers().isEmpty());
    const QStringList drafts = QDir(place).entryList({"*.draft"});
    ASSERT_EQ(drafts.size(), 1);
    const DraftFile::Leftover seen{place + '/' + drafts[0], {}, {}};
    const std::string refusal = make()->recover(seen, false).refusal;
    EXPECT_TRUE(refusal.ends_with("”：正由另一个程序使用")) << refusal;
    program.kill();
    EXPECT_EQ(leftovers().size(), 1);
}

TEST_F(DraftOnADisk, OfAKilledProgramHoldsEachStepThatItReportedOnce) {
    kit::Random random;
    for (int round = 0; round < 50; ++round) {
        KeyingProgram program(place);
        program.waitFor(static_cast<int>(random.between(0, 12)));
        ::usleep(static_cast<unsigned>(random.between(0, 8000)));
        const int reported = program.kill();
        const auto left = leftovers();
        if (reported == 0 && left.isEmpty()) continue;
        ASSERT_EQ(left.size(), 1);
        const int steps = static_cast<int>(left[0].info.steps);
        EXPECT_GE(steps, reported);
        EXPECT_LE(steps, reported + 1);
        EXPECT_EQ(left[0].info.damage, "");

        Window other;
        const auto draft = make(*other.widget);
        ASSERT_EQ(draft->recover(left[0], true).refusal, "");
        for (int i = std::max(steps - KeyedRows, 0); i < steps; ++i)
            EXPECT_EQ(other.text(1 + i % KeyedRows, Quantity), std::to_string(i + 1));
        for (int i = steps; i < KeyedRows; ++i)
            EXPECT_EQ(other.text(1 + i, Quantity), w.text(1 + i, Quantity));
        draft->finish();
        ASSERT_EQ(files(), QStringList());
    }
}
}  // namespace kxVsGrid::qt::testing
