// The machine: boxes, clipboard, clock and text widths of Qt.
#pragma once

#include <QAction>
#include <QList>
#include <QPointer>
#include <QWidget>

#include "kxVsGrid/Platform.h"
#include "qt/view/QtMetrics.h"

namespace kxVsGrid::qt {

struct Machine;

class QtPlatform : public Platform {
  public:
    explicit QtPlatform(Machine& machine) : machine_(machine) {}

    /// The widget that boxes stand before, and whose font texts are measured in.
    void widget(QWidget& widget);
    const QtMetrics& metrics() const { return metrics_; }

    /// While True, message boxes are not shown at once but when Qt's event loop comes to it.
    bool boxesWait = false;
    /// They stand at the end of the grid's menus.
    QList<QPointer<QAction>> hostsMenuActions;

    std::unique_ptr<Seat> seat(kxGrid& control) override;
    const TextMetrics& textMetrics() const override { return metrics_; }
    DateTime now() const override;
    void showMessage(const MessageBox& box) override;
    std::int32_t checkBoxSide() const override;
    void showTip(std::string_view text, const Rect& anchor) override;
    std::optional<std::string> askText(const InputBox& box) override;
    void showForm(Form& form, const Rect& anchor) override;
    MenuChoice popUp(const Menu& menu, const Rect& anchor) override;
    void waitCursor(bool on) override;
    std::vector<std::uint32_t> collationRanks(const std::vector<std::string_view>& texts) const override;
    void copyToClipboard(const ClipboardContent& content) override;
    ClipboardContent clipboardContent() const override;
    std::unique_ptr<Progress> progress(std::string_view what, std::int64_t total) override;
    void processPendingInput() override;

  private:
    void showMessageLater(const MessageBox& box);

    Machine& machine_;
    QPointer<QWidget> widget_;
    QPointer<QWidget> tip_;  ///< the one that is shown
    QtMetrics metrics_;
};
}  // namespace kxVsGrid::qt
