// The window and the cells that are selected: what they add up to, and what has become of those that were written at
// once.
#include <QLabel>
#include <QLocale>

#include "OrderGrid.h"
#include "OrderWindow.h"
#include "RefusedList.h"
#include "kxVsGrid/qt/kxGridWidget.h"

using namespace Qt::StringLiterals;

namespace {
/// At most as many decimals as a quantity has, without zeros at the end.
QString sumText(double value) {
    QLocale plain = QLocale::c();
    plain.setNumberOptions(QLocale::DefaultNumberOptions);  // with signs between the thousands
    QString text = plain.toString(value, 'f', QuantityDecimals);
    while (text.endsWith(u'0')) text.chop(1);
    if (text.endsWith(u'.')) text.chop(1);
    return text == u"-0" ? u"0"_s : text;
}

QString selectionText(const kxVsGrid::CellGrid& cells) {
    const kxVsGrid::CellRange range = cells.Selected();
    const kxVsGrid::RangeSummary sums = cells.Summary(range);
    QString text = u"选中 %1 格,有内容 %2 格"_s.arg(qint64{range.rows()} * range.cols()).arg(sums.filled);
    if (sums.numbers == 0) return text;
    return text + u"    数字 %1 个  合计 %2  平均 %3  最小 %4  最大 %5"_s.arg(
                      QString::number(sums.numbers), sumText(sums.sum), sumText(sums.average),
                      sumText(sums.smallest), sumText(sums.largest));
}
}  // namespace

/// Of the selected cells while there are several, else of the order.
void OrderWindow::showTotals() {
    const kxVsGrid::CellGrid& cells = widget_->grid().Grid();
    totals_->setText(cells.SelectsOneCell() || cells.Selected().empty() ? orderTotals_
                                                                        : selectionText(cells));
}

/// Read-only cells are passed over in every block: that alone is nothing to warn of.
void OrderWindow::tellReport(const kxVsGrid::PasteReport& report) {
    using kxVsGrid::Command;
    const QString summary = QString::fromStdString(report.summary());
    const bool clears = report.command == Command::Cut || report.command == Command::ClearCells;
    if (!summary.isEmpty())
        say(summary, report.refused > 0 || report.cutShort);
    else if (report.written > 1)
        say((clears ? u"已清除 %1 格"_s : u"已写入 %1 格"_s).arg(report.written));
    saysReport_ = !summary.isEmpty() || report.written > 1;
    refused_->tell(report);
}

/// What became of a block is not so any more once something has been taken back.
void OrderWindow::forgetReport(const kxVsGrid::StepChanges& step) {
    if (saysReport_ && step.cause == kxVsGrid::Cause::Undo) say({});
}

/// The list stays open for as long as there is something in it; the next problem is a cell's.
void OrderWindow::runFromList(kxVsGrid::Command command) {
    if (command == kxVsGrid::Command::NextProblem) enterLines();
    widget_->action(command)->trigger();
}
