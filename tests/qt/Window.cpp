#include "qt/Window.h"

#include <QAbstractScrollArea>
#include <QDir>
#include <QPainter>
#include <stdexcept>

#include "qt/view/GridView.h"
#include "qt/view/Scale.h"

namespace kxVsGrid::qt::testing {
namespace {

void describe(kxGrid& grid, std::int16_t col, mEmDataType type, bool editable = true) {
    auto column = grid.VsCtrl(col);
    column->iType(type);
    column->bIsEditable(editable);
    column->bIsVisible(true);
}
}  // namespace

Window::Window() : before(new QLineEdit), widget(new kxGridWidget), after(new QLineEdit) {
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(before);
    layout->addWidget(widget, 1);
    layout->addWidget(after);
    kxGrid& g = grid();
    g.FormatString(
        "行号|<货号          |<品名              |>数量            |^已付|^日期              |<备注          "
        "      ");
    g.Rows(30);
    for (std::int16_t col = 0; col < Count; ++col) describe(g, col, flexDTString);
    describe(g, Name, flexDTString, false);
    describe(g, Quantity, flexDTDouble);
    describe(g, Paid, flexDTBoolean);
    describe(g, Date, flexDTDate);
    g.VsCtrl(Quantity)->iColAlignment(flexAlignRightCenter);
    g.VsCtrl(Paid)->iColAlignment(flexAlignCenterCenter);
    g.VsCtrl(Date)->iColAlignment(flexAlignCenterCenter);
    g.VsCtrl(Quantity)->b是否合计数据(true);
    g.VsCtrl(Remark)->b是否编辑多行(true);
    g.ColFormat(Quantity, "#,##0.00");
    g.SumRow(true);
    g.ReDraw(true);
    g.SetCell(1, Code, "A001", "1");
    g.SetCell(1, Name, "苹果汁", "");
    g.SetCell(1, Quantity, "1234.5", "");
    g.SetCell(1, Paid, "-1", "");
    g.SetCell(1, Date, "2026-11-20", "");
    g.SetCell(2, Code, "A002", "2");
    g.SetCell(2, Name, "矿泉水", "");
    g.SetCell(2, Quantity, "12", "");
    window.resize(640, 360);
    window.show();
    window.activateWindow();
    QApplication::setActiveWindow(&window);
    before->setFocus();
    settle();
}

QWidget& Window::view() {
    for (QWidget* child : widget->findChildren<QWidget*>())
        if (auto* found = dynamic_cast<GridView*>(child)) return *found;
    throw std::logic_error("the widget has no view");
}

QScrollBar& Window::bar(Qt::Orientation orientation) {
    const auto& area = *widget->findChild<QAbstractScrollArea*>(QString(), Qt::FindDirectChildrenOnly);
    return orientation == Qt::Vertical ? *area.verticalScrollBar() : *area.horizontalScrollBar();
}

QWidget& Window::editor() {
    for (auto* box : widget->findChildren<QLineEdit*>())
        if (box->isVisible()) return *box;
    for (auto* box : widget->findChildren<QPlainTextEdit*>())
        if (box->isVisible()) return *box;
    throw std::logic_error("the editor is not shown");
}

bool Window::editorShown() {
    return grid().editorView().visible;
}

QString Window::editorText() {
    if (auto* line = qobject_cast<QLineEdit*>(&editor())) return line->text();
    return qobject_cast<QPlainTextEdit*>(&editor())->toPlainText();
}

QRect Window::cell(std::int32_t row, std::int32_t col) {
    return Scale(*widget).pixels(grid().Grid().CellRect(row, col));
}

QPoint Window::at(std::int32_t row, std::int32_t col) {
    return cell(row, col).center();
}

std::string Window::current() {
    return std::to_string(grid().Row()) + "," + std::to_string(grid().Col());
}

void Window::focusCell(std::int32_t row, std::int32_t col) {
    grid().Grid().Select(row, col);
    widget->setFocus();
    settle();
}

void Window::click(std::int32_t row, std::int32_t col) {
    QTest::mouseClick(&view(), Qt::LeftButton, Qt::NoModifier, at(row, col));
}

void Window::doubleClick(std::int32_t row, std::int32_t col) {
    QTest::mouseClick(&view(), Qt::LeftButton, Qt::NoModifier, at(row, col));
    QTest::mouseDClick(&view(), Qt::LeftButton, Qt::NoModifier, at(row, col));
}

void Window::type(const QString& text) {
    for (const QChar character : text) {
        const bool ascii = character.unicode() < 0x80;
        const Qt::Key key = ascii ? QTest::asciiToKey(character.toLatin1()) : Qt::Key_unknown;
        QTest::sendKeyEvent(QTest::Click, &focused(), key, QString(character), Qt::NoModifier);
    }
}

void Window::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&focused(), key, modifiers);
}

void Window::compose(const QString& preedit, const QString& commit) {
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit);
    QApplication::sendEvent(&focused(), &event);
}

void Window::settle() {
    for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
}

QImage Window::picture(const QString& name, QWidget* box) {
    settle();
    QImage image = window.grab().toImage();
    if (box != nullptr) {
        QPainter painter(&image);
        const QRect place(box->mapToGlobal(QPoint()) - window.mapToGlobal(QPoint()), box->size());
        painter.drawPixmap(place.topLeft(), box->grab());
        painter.setPen(window.palette().color(QPalette::WindowText));
        painter.drawRect(place.adjusted(-1, -1, 0, 0));
    }
    keep(image, name);
    return image;
}

QImage Window::pictureAround(const QString& name, const QList<QWidget*>& menus) {
    constexpr int Margin = 24;
    settle();
    const QPixmap behind = window.grab();
    QRect around;
    for (const QWidget* menu : menus) around |= QRect(menu->mapToGlobal(QPoint()), menu->size());
    around.adjust(-Margin, -Margin, Margin, Margin);
    const double ratio = window.devicePixelRatioF();
    QImage image((QSizeF(around.size()) * ratio).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(window.palette().color(QPalette::Window));
    QPainter painter(&image);
    painter.drawPixmap(window.mapToGlobal(QPoint()) - around.topLeft(), behind);
    for (QWidget* menu : menus)
        painter.drawPixmap(menu->mapToGlobal(QPoint()) - around.topLeft(), menu->grab());
    painter.end();
    keep(image, name);
    return image;
}

/// The scale is a part of the file's name.
void Window::keep(const QImage& image, const QString& name) const {
    const QString folder = QStringLiteral(KX_PICTURES);
    QDir().mkpath(folder);
    const int percent = qRound(window.devicePixelRatioF() * 100);
    EXPECT_TRUE(image.save(QStringLiteral("%1/%2-%3.png").arg(folder, name).arg(percent)));
}
}  // namespace kxVsGrid::qt::testing
