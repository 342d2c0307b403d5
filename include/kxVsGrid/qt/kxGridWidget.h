// The data-entry grid as a Qt 6 widget.
//
//     auto* widget = new kxVsGrid::qt::kxGridWidget(this);
//     kxVsGrid::kxGrid& grid = widget->grid();
//     grid.FormatString("行号|<货号    |>数量    ");
//     grid.ReDraw(true);
//
// The widget owns the control, paints its frames, and turns Qt's events into calls. It takes the keyboard by
// Tab and by a press of the mouse. Colours that the host did not set follow the palette, texts the widget's
// font, sizes the screen. No exception leaves the widget into Qt's event loop: one that a host handler throws
// is given to handlerFailed.
#pragma once

#include <QWidget>
#include <memory>

#ifndef Q_MOC_RUN  // whose scanner knows no names beyond ASCII
#include "kxVsGrid/kxGrid.h"
#endif

namespace kxVsGrid::qt {

class kxGridWidget : public QWidget {
    Q_OBJECT

  public:
    explicit kxGridWidget(QWidget* parent = nullptr);
    ~kxGridWidget() override;

    kxGrid& grid();
    const kxGrid& grid() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  Q_SIGNALS:
    /// A persisted setting was changed by code; the name is the control's own.
    void settingChanged(const QString& name);
    /// A host handler threw out of an event that the clerk caused; the text is the exception's.
    void handlerFailed(const QString& description);

  protected:
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    class Parts;
    std::unique_ptr<Parts> parts_;
};
}  // namespace kxVsGrid::qt
