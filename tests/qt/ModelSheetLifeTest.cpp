// A sheet, its grid or its model goes in the middle of something.
#include <functional>

#include "ModelSheets.h"

namespace kxVsGrid::qt::testing {
namespace {

/// Knows whether it is at work, where nobody may destroy it.
class BusyModel : public QStandardItemModel {
  public:
    using QStandardItemModel::QStandardItemModel;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override {
        return during([&] { return value != "no" && QStandardItemModel::setData(index, value, role); });
    }
    bool insertRows(int row, int count, const QModelIndex& parent) override {
        return during([&] { return QStandardItemModel::insertRows(row, count, parent); });
    }
    bool removeRows(int row, int count, const QModelIndex& parent) override {
        return during([&] { return QStandardItemModel::removeRows(row, count, parent); });
    }
    template <class Work>
    bool during(Work work) {
        ++*busy_;
        const auto busy = busy_;
        const bool done = work();
        --*busy;
        return done;
    }
    bool busy() const { return *busy_ > 0; }

  private:
    std::shared_ptr<int> busy_ = std::make_shared<int>(0);
};

class ModelSheetLife : public ::testing::TestWithParam<int> {
  protected:
    enum Victim { Sheet, Grid, Model, Victims };

    /// Destroys it at the n-th of all events. False when there were not so many.
    bool run(Victim victim, int n) {
        headless::Desk desk;
        kxGrid* grid = &desk.place();
        auto model = std::make_unique<BusyModel>(40, 3);
        for (int row = 0; row < 40; ++row)
            model->setData(model->index(row, 0), QString("A%1").arg(row), Qt::EditRole);
        auto sheet = std::make_unique<ModelSheet>(*grid, *model);
        int left = n;
        const auto tick = [&] {
            if (left == 0 || (victim == Model && model && model->busy())) return;
            if (--left > 0) return;
            if (victim == Sheet) sheet.reset();
            if (victim == Grid) desk.remove(*std::exchange(grid, nullptr));
            if (victim == Model) model.reset();
        };
        grid->CellChanged.connect([&](std::int32_t, std::int32_t) { tick(); });
        grid->AfterEdit.connect([&](std::int32_t, std::int32_t) { tick(); });
        grid->Grid().RowMoved.connect([&](std::int32_t, bool) { tick(); });
        grid->Grid().SizeChanged.connect(tick);
        grid->Grid().RowsReordered.connect([&](std::int32_t, std::span<const std::int32_t>) { tick(); });
        grid->Grid().MarksChanged.connect(tick);
        grid->Changes().After.connect([&](const StepChanges&) { tick(); });
        QObject scope;
        QObject::connect(model.get(), &QAbstractItemModel::dataChanged, &scope, tick);
        QObject::connect(model.get(), &QAbstractItemModel::rowsInserted, &scope, tick);
        QObject::connect(model.get(), &QAbstractItemModel::rowsRemoved, &scope, tick);
        QObject::connect(model.get(), &QAbstractItemModel::layoutChanged, &scope, tick);
        QObject::connect(sheet.get(), &ModelSheet::refused, &scope, tick);
        QObject::connect(sheet.get(), &ModelSheet::fetched, &scope, tick);

        const auto at = [&](std::int32_t row, std::int32_t col, const std::function<void()>& act) {
            if (!grid) return;
            grid->Grid().Select(std::min(row, grid->Rows() - 1), col);
            if (grid) act();
        };
        const auto type = [&](const char* text) {
            return [&, text] {
                for (const char* letter = text; grid && *letter != 0; ++letter) desk.type({letter, 1});
                if (grid) desk.press(Key::Enter);
            };
        };
        const auto run = [&](Command command) { return [&desk, command] { desk.run(command); }; };
        const auto inModel = [&](const std::function<void()>& act) {
            if (model)
                model->during([&] {
                    act();
                    return true;
                });
        };
        desk.focusGrid();
        at(2, 1, type("x"));
        at(3, 2, type("no"));
        if (grid) at(grid->Rows() - 1, 1, type("new"));
        at(1, 1, [] {});
        at(5, 1, run(Command::DeleteRows));
        if (grid) grid->Run(Command::Undo);
        desk.clipboard("p\tq\nr\ts\n");
        if (grid) at(grid->Rows() - 1, 1, run(Command::Paste));
        inModel([&] { model->insertRow(2); });
        inModel([&] { model->setData(model->index(1, 1), "y", Qt::EditRole); });
        inModel([&] { model->sort(0, Qt::DescendingOrder); });
        inModel([&] { model->removeRows(1, 35, {}); });
        inModel([&] { model->insertColumn(1); });
        inModel([&] { model->clear(); });
        if (sheet) sheet->submit();
        if (sheet) sheet->fetchAll();
        QCoreApplication::processEvents();
        return left == 0;
    }
};

INSTANTIATE_TEST_SUITE_P(Victims, ModelSheetLife, ::testing::Range(0, 3));

TEST_P(ModelSheetLife, EndsWellWhereverItGoes) {
    int n = 1;
    while (run(static_cast<Victim>(GetParam()), n)) ++n;
    EXPECT_GT(n, 30);
}
}  // namespace
}  // namespace kxVsGrid::qt::testing
