#include "qt/QtPlatform.h"

#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include "qt/ContextMenu.h"
#include "qt/CopiedCells.h"
#include "qt/Machine.h"
#include "qt/ModalBox.h"
#include "qt/ProgressBox.h"
#include "qt/QtSeat.h"
#include "qt/Tip.h"
#include "qt/Wording.h"
#include "qt/forms/FormDialog.h"
#include "qt/text/Collation.h"
#include "qt/text/Encoding.h"
#include "qt/view/Scale.h"

namespace kxVsGrid::qt {

void QtPlatform::widget(QWidget& widget) {
    widget_ = &widget;
    metrics_.use(widget);
}

std::unique_ptr<Seat> QtPlatform::seat(kxGrid&) {
    return std::make_unique<QtSeat>(machine_.shared_from_this());
}

DateTime QtPlatform::now() const {
    const QDateTime now = QDateTime::currentDateTime();
    const QDate date = now.date();
    const QTime time = now.time();
    return {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()};
}

void QtPlatform::showMessage(const MessageBox& box) {
    if (machine_.stage == nullptr) return;  // the host has ended the widget: nobody is left to be told
    if (boxesWait) return showMessageLater(box);
    ModalBox<QMessageBox> shown(widget_);
    shown->setIcon(box.style == MessageBox::Critical ? QMessageBox::Critical : QMessageBox::Information);
    shown->setWindowTitle(toQt(box.title));
    shown->setTextFormat(Qt::PlainText);
    shown->setText(toQt(box.text));
    QPushButton* ok = shown->addButton(wording::Ok, QMessageBox::AcceptRole);
    shown->setDefaultButton(ok);
    shown->setEscapeButton(ok);
    ok->installEventFilter(new NewKeysOnly(ok));
    shown->exec();
}

void QtPlatform::showMessageLater(const MessageBox& box) {
    QMetaObject::invokeMethod(
        widget_, [this, box] { showMessage(box); }, Qt::QueuedConnection);
}

/// As the painter draws it.
std::int32_t QtPlatform::checkBoxSide() const {
    return widget_ ? Scale(*widget_).twips(CheckBoxPixels) : Platform::checkBoxSide();
}

void QtPlatform::showTip(std::string_view text, const Rect& anchor) {
    if (machine_.stage == nullptr || !widget_) return;
    delete tip_;
    tip_ = new Tip(*widget_, Scale(*widget_).pixels(anchor), toQt(text));
}

std::optional<std::string> QtPlatform::askText(const InputBox& box) {
    if (machine_.stage == nullptr) return std::nullopt;
    ModalBox<QInputDialog> shown(widget_);
    shown->setInputMode(QInputDialog::TextInput);
    shown->setWindowTitle(toQt(box.title));
    shown->setLabelText(toQt(box.prompt));
    for (QLabel* label : shown->findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
    shown->setTextValue(toQt(box.preset));
    shown->setOkButtonText(wording::Ok);
    shown->setCancelButtonText(wording::Cancel);
    if (shown->exec() != QDialog::Accepted || !shown) return std::nullopt;
    return fromQt(shown->textValue());
}

void QtPlatform::showForm(Form& form, const Rect& anchor) {
    if (machine_.stage == nullptr) return;  // the host has ended the widget: nobody is left to choose
    runForm(widget_, form, anchor);
}

MenuChoice QtPlatform::popUp(const Menu& menu, const Rect& anchor) {
    if (machine_.stage == nullptr || !widget_) return std::nullopt;
    return chooseFrom(menu, menu.ofCells ? hostsMenuActions : QList<QPointer<QAction>>(), widget_,
                      Scale(*widget_).pixels(anchor).topLeft());
}

void QtPlatform::waitCursor(bool on) {
    if (on)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

std::vector<std::uint32_t> QtPlatform::collationRanks(const std::vector<std::string_view>& texts) const {
    return ranksOf(texts);
}

void QtPlatform::copyToClipboard(const ClipboardContent& content) {
    QApplication::clipboard()->setMimeData(new CopiedCells(content));
}

ClipboardContent QtPlatform::clipboardContent() const {
    return contentOf(QApplication::clipboard()->mimeData());
}

std::unique_ptr<Progress> QtPlatform::progress(std::string_view what, std::int64_t total) {
    return std::make_unique<ProgressBox>(machine_.shared_from_this(), widget_, toQt(what), total);
}

/// A typed character reaches the text box by a call, not through the queue: nothing has to be waited for, and
/// keys typed ahead come in their order after this one.
void QtPlatform::processPendingInput() {}
}  // namespace kxVsGrid::qt
