#include "qt/Drafts.h"

#include <unistd.h>

#include <QDir>
#include <algorithm>

namespace kxVsGrid::qt::testing {
namespace {

using drafts::Failure;
using drafts::StoredDraft;

class TroubledDraft : public StoredDraft {
  public:
    TroubledDraft(std::shared_ptr<TroubledDisk::Troubles> troubles, std::shared_ptr<StoredDraft> draft)
        : StoredDraft(draft->path()), troubles_(std::move(troubles)), draft_(std::move(draft)) {}

    bool there() const override { return draft_->there(); }
    QDateTime time() const override { return draft_->time(); }
    Failure read(QByteArray& bytes) override { return draft_->read(bytes); }
    Failure append(std::string_view bytes) override {
        if (troubles_->room < 0) return draft_->append(bytes);
        const auto part = std::min(bytes.size(), static_cast<std::size_t>(troubles_->room));
        troubles_->room -= static_cast<qint64>(part);
        Failure why = draft_->append(bytes.substr(0, part));
        if (why.isEmpty() && part < bytes.size()) why = QStringLiteral("full");
        return why;
    }
    Failure cutTo(qint64 size) override { return draft_->cutTo(size); }
    Failure sync() override {
        ++troubles_->syncs;
        return troubles_->losesWrites ? QStringLiteral("lost") : draft_->sync();
    }
    Failure moveTo(const QString& path) override {
        return troubles_->staysAtNames ? QStringLiteral("stays") : moved(draft_->moveTo(path));
    }
    Failure moveOver(StoredDraft& other) override {
        if (troubles_->staysAtNames) return QStringLiteral("stays");
        return moved(draft_->moveOver(*static_cast<TroubledDraft&>(other).draft_));
    }
    Failure remove() override { return troubles_->readOnly ? QStringLiteral("read-only") : draft_->remove(); }

  private:
    Failure moved(Failure why) {
        path_ = draft_->path();
        return why;
    }
    std::shared_ptr<TroubledDisk::Troubles> troubles_;
    std::shared_ptr<StoredDraft> draft_;
};
}  // namespace

drafts::OpenedDraft TroubledDisk::troubled(drafts::OpenedDraft opened) {
    if (opened.draft) opened.draft = std::make_shared<TroubledDraft>(troubles, std::move(opened.draft));
    return opened;
}

drafts::OpenedDraft TroubledDisk::create(const QString& path) {
    if (troubles->readOnly) return {drafts::Found::Failed, {}, QStringLiteral("read-only")};
    ++troubles->created;
    return troubled(disk_->create(path));
}

drafts::OpenedDraft TroubledDisk::open(const QString& path) {
    return troubled(disk_->open(path));
}

int keyADraft(const QString& folder) {
    Window w;
    DraftFile draft(*w.widget, folder);
    draft.begin("order 7", "3");
    for (int i = 0;; ++i) {
        w.focusCell(1 + i % KeyedRows, Quantity);
        w.type(QString::number(i + 1));
        w.press(Qt::Key_Return);
        if (::write(STDOUT_FILENO, "s", 1) != 1) return 1;
    }
}

std::unique_ptr<DraftFile> DraftTest::make(kxGridWidget& widget, const drafts::DraftTimes& times) {
    auto draft = std::make_unique<DraftFile>(widget, place, disk, times);
    QObject::connect(draft.get(), &DraftFile::failed, draft.get(),
                     [this](const QString& why) { told.push_back("failed: " + why.toStdString()); });
    QObject::connect(draft.get(), &DraftFile::works, draft.get(), [this] { told.emplace_back("works"); });
    return draft;
}

std::unique_ptr<DraftFile> DraftTest::begun(const drafts::DraftTimes& times) {
    auto draft = make(times);
    draft->begin("order 7", "3");
    EXPECT_TRUE(waitUntil([&] { return look(*draft).whole; }));
    return draft;
}

void DraftTest::key(std::int32_t row, std::int32_t col, const QString& typed) {
    w.focusCell(row, col);
    w.type(typed);
    w.press(Qt::Key_Return);
}

QStringList DraftTest::files() const {
    return QDir(place).entryList(QDir::Files | QDir::System | QDir::Hidden);
}

std::vector<std::string> DraftTest::contentOf(kxGrid& grid) {
    std::vector<std::string> content;
    const CellGrid& cells = grid.Grid();
    for (std::int32_t row = cells.FixedRows(); row < cells.Rows(); ++row) {
        std::string line;
        for (std::int32_t col = 1; col < cells.Cols(); ++col)
            line += cells.Text(row, col) + "/" + cells.Data(row, col) + "|";
        content.push_back(line);
    }
    return content;
}

std::vector<std::string> DraftTest::recovered(const DraftFile::Leftover& leftover) {
    Window other;
    other.grid().Clear();
    const auto draft = make(*other.widget);
    EXPECT_EQ(draft->recover(leftover, false).refusal, "");
    return contentOf(other.grid());
}
}  // namespace kxVsGrid::qt::testing
