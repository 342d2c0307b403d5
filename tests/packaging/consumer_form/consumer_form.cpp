// A program of a user with a form that was designed and saved: compiled into it, and loaded while it runs.
#include <QApplication>
#include <QFile>
#include <QPixmap>
#include <QUiLoader>
#include <iostream>
#include <memory>

#include "ui_order.h"

namespace {

int failures = 0;

void expect(bool holds, const char* what) {
    if (holds) return;
    std::cerr << what << "\n";
    ++failures;
}

/// The compiled form: its columns are what was designed.
void compiledForm() {
    QWidget window;
    Ui::OrderForm form;
    form.setupUi(&window);
    window.show();
    QApplication::processEvents();
    kxVsGrid::kxGrid& grid = form.grid->grid();
    expect(!window.grab().isNull(), "the window was not painted");
    expect(grid.Cols() == 5, "not five columns");
    expect(grid.SumRow(), "no total row");
    expect(grid.VsCtrl(1)->sName() == "货号", "column 1 has another name");
    expect(grid.VsCtrl(1)->s有效性判断基础() == "SELECT code FROM goods WHERE code = \"?\" && used < 1",
           "column 1 has another query");
    expect(grid.VsCtrl(2)->sHelp_Code() == "goods|A", "column 2 has another help");
    expect(grid.VsCtrl(2)->b是否提供帮助(), "column 2 has no help");
    expect(grid.VsCtrl(2)->iType() == kxVsGrid::flexDTDouble, "column 2 is none of numbers");
    expect(grid.VsCtrl(3)->b是否合计数据(), "column 3 is not summed");
    expect(!grid.VsCtrl(4)->bIsVisible(), "column 4 is visible");
    grid.ReDraw(true);
    expect(grid.ColHidden(4), "column 4 is shown");
    grid.SetCell(1, 3, "12.5", "");
    expect(grid.ReadSum(3) == "12.5", "the total is wrong");
}

/// The same form without a class of the program's own, through the plugin.
void loadedForm() {
    QUiLoader loader;
    loader.addPluginPath(QStringLiteral(PLUGINS));
    QFile file(QStringLiteral(FORM));
    expect(file.open(QIODevice::ReadOnly), "the form cannot be opened");
    const std::unique_ptr<QWidget> window(loader.load(&file));
    expect(window != nullptr, "the form was not loaded");
    if (window == nullptr) return;
    window->show();
    QApplication::processEvents();
    auto* grid = window->findChild<QWidget*>(QStringLiteral("grid"));
    expect(grid != nullptr && grid->inherits("kxVsGrid::qt::kxGridWidget"), "the form has no grid");
    if (grid == nullptr) return;
    expect(grid->property("Cols").toInt() == 5, "the loaded grid has other columns");
    expect(grid->property("SumRow").toBool(), "the loaded grid has no total row");
    expect(!grid->grab().isNull(), "the loaded grid was not painted");
}
}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    compiledForm();
    loadedForm();
    return failures == 0 ? 0 : 1;
}
