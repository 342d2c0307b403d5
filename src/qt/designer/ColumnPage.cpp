#include "qt/designer/ColumnPage.h"

#include <QCoreApplication>
#include <QDesignerFormWindowInterface>
#include <QUndoStack>
#include <memory>
#include <optional>

#include "kxVsGrid/ControlPage.h"
#include "kxVsGrid/GridColumns.h"
#include "kxVsGrid/qt/ShowForm.h"
#include "qt/designer/SettingsCommand.h"
#include "qt/text/Encoding.h"

namespace kxVsGrid::qt::designer {
namespace {

/// The columns of a grid on a form. What the page applies goes into the form's history.
class FormColumns : public GridColumns {
  public:
    FormColumns(DesignedGrid& grid, QDesignerFormWindowInterface& form)
        : GridColumns(grid.grid()), grid_(grid), form_(form), before_(stateOf(grid.grid())) {}

    void applied() override {
        GridColumns::applied();
        GridState after = stateOf(grid_.grid());
        auto command = std::make_unique<SettingsCommand>(grid_, before_, after);
        if (!command->isEmpty()) form_.commandHistory()->push(command.release());
        before_ = std::move(after);
    }

  private:
    DesignedGrid& grid_;
    QDesignerFormWindowInterface& form_;
    GridState before_;
};
}  // namespace

void showColumnPage(DesignedGrid& grid) {
    auto* form = QDesignerFormWindowInterface::findFormWindow(&grid);
    if (form == nullptr) return;
    grid.refresh();
    ControlPage page;
    std::optional<FormColumns> columns;
    if (grid.problem().isEmpty()) {
        columns.emplace(grid, *form);
        page.select({&*columns});
        page.loadColumns();
    } else {
        page.select({});
        page.explain(fromQt(QCoreApplication::translate("kxVsGrid::qt::designer", "无法读取窗体中的设置：%1")
                                .arg(grid.problem())));
    }
    showForm(form, page);
}
}  // namespace kxVsGrid::qt::designer
