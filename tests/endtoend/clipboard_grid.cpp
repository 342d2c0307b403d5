// A window with a grid whose cells come from a file, for tests that copy and paste between programs by keys:
//
//     clipboard_grid IN.json OUT.json
//
// IN has rows of texts: code, name, quantity, date, remark. After each paste or cut, and for F12, OUT is written as a
// whole: {"count": how many pastes and cuts there have been, "refused": of the last one, "looks": how often F12 was
// pressed, "cells": rows of texts}.
//
//     clipboard_grid --take TEXT
//
// takes the clipboard away again and again, with that text, until it is told to end.
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>

#include "kxVsGrid/qt/kxGridWidget.h"

using namespace kxVsGrid;

namespace {

constexpr int Cols = 5;
constexpr int Quantity = 2;
constexpr int Date = 3;
constexpr int Remark = 4;
constexpr int SpareRows = 20;

void describe(kxGrid& grid) {
    grid.FormatString(
        "<货号          |<品名            |>数量            |^日期            |<备注                  ");
    for (std::int16_t col = 0; col < Cols; ++col) {
        grid.VsCtrl(col)->iType(col == Quantity ? flexDTDouble : col == Date ? flexDTDate : flexDTString);
        grid.VsCtrl(col)->bIsEditable(true);
        grid.VsCtrl(col)->bIsVisible(true);
    }
    grid.FixedCols(0);
    grid.ColFormat(Quantity, "#,##0.00");
    grid.VsCtrl(Date)->i有效性判断(1);
    grid.VsCtrl(Date)->i字段有效性判断类型(ij日期型);
    grid.VsCtrl(Remark)->b是否编辑多行(true);
}

void load(kxGrid& grid, const QString& file) {
    QFile in(file);
    if (!in.open(QIODevice::ReadOnly)) qFatal("no file");
    const QJsonArray rows = QJsonDocument::fromJson(in.readAll()).array();
    grid.Rows(static_cast<std::int32_t>(rows.size()) + 1 + SpareRows);
    for (int row = 0; row < rows.size(); ++row)
        for (int col = 0; col < Cols; ++col)
            grid.SetCell(row + 1, static_cast<std::int16_t>(col),
                         rows[row].toArray()[col].toString().toStdString(), "");
    grid.ReDraw(true);
}

/// What there has been.
struct Acts {
    int count = 0;
    int looks = 0;
    qint64 refused = 0;
};

void tell(const kxGrid& grid, const QString& file, const Acts& acts) {
    QJsonArray rows;
    for (std::int32_t row = 1; row < grid.Rows(); ++row) {
        QJsonArray cells;
        for (int col = 0; col < Cols; ++col)
            cells << QString::fromStdString(grid.Grid().Text(row, static_cast<std::int32_t>(col)));
        rows << cells;
    }
    QSaveFile out(file);
    if (!out.open(QIODevice::WriteOnly)) qFatal("no file");
    const QJsonObject told{
        {"count", acts.count}, {"looks", acts.looks}, {"refused", acts.refused}, {"cells", rows}};
    out.write(QJsonDocument(told).toJson());
    out.commit();
}

int take(const QString& text) {
    QTimer again;
    QObject::connect(&again, &QTimer::timeout, [&] {
        if (!QApplication::clipboard()->ownsClipboard()) QApplication::clipboard()->setText(text);
    });
    again.start(1);
    return QApplication::exec();
}
}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 3) return 2;
    if (arguments[1] == "--take") return take(arguments[2]);
    QWidget window;
    window.setWindowTitle("clipboard grid");
    auto* layout = new QVBoxLayout(&window);
    auto* widget = new qt::kxGridWidget;
    layout->addWidget(widget);
    kxGrid& grid = widget->grid();
    describe(grid);
    load(grid, arguments[1]);
    Acts acts;
    grid.Commands().Reported.connect([&](const PasteReport& report) {
        ++acts.count;
        acts.refused = report.refused;
        tell(grid, arguments[2], acts);
    });
    const QShortcut look(Qt::Key_F12, &window);
    QObject::connect(&look, &QShortcut::activated, [&] {
        ++acts.looks;
        tell(grid, arguments[2], acts);
    });
    grid.Grid().Select(1, 0);
    window.resize(640, 380);
    window.show();
    widget->setFocus();
    return QApplication::exec();
}
