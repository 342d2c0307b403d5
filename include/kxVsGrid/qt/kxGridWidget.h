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
//
// Its stored settings are properties under the names that they are stored under: those of the whole grid are
// listed below; those of a column are dynamic, as in setProperty("SetVsControl3bIsEditable", false). Forms
// set them in any order. They are collected until something looks at the control (grid(), showing, painting,
// any event that goes into it); then they are read at once, in the control's own order. A widget with none of
// them set is a newly placed control; one with any of them set is a loaded one, for which the others have
// their stored defaults (a setting that is not stored is off: Editable is False). Read settings that are
// wrong show a message box as soon as the event loop runs, and the widget goes on.
//
// From then on a property set by name changes the live control; a column's goes into its definition. What the
// control refuses is given to handlerFailed. Asked for, the listed properties give the live value, before the
// first look what that look is going to give; asking is no look. Dynamic ones give what was set last by name.
#pragma once

#include <QByteArray>
#include <QWidget>
#include <memory>

#ifndef Q_MOC_RUN  // whose scanner knows no names beyond ASCII
#include "kxVsGrid/kxGrid.h"
#endif

namespace kxVsGrid::qt {

class kxGridWidget : public QWidget {
    Q_OBJECT
    // names that forms in use depend on; texts are QByteArray, so that no change of language sets them again
    Q_PROPERTY(bool Editable READ Editable WRITE setEditable)
    Q_PROPERTY(bool ShowZero READ ShowZero WRITE setShowZero)
    Q_PROPERTY(bool SumRow READ SumRow WRITE setSumRow)
    Q_PROPERTY(int Cols READ Cols WRITE setCols)
    Q_PROPERTY(int Rows READ Rows WRITE setRows)
    Q_PROPERTY(int FixedCols READ FixedCols WRITE setFixedCols)
    Q_PROPERTY(int FixedRows READ FixedRows WRITE setFixedRows)
    Q_PROPERTY(int Appearance READ Appearance WRITE setAppearance)
    Q_PROPERTY(int BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(int BackColorBkg READ BackColorBkg WRITE setBackColorBkg)
    Q_PROPERTY(int BackColorFixed READ BackColorFixed WRITE setBackColorFixed)
    Q_PROPERTY(int ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(int ForeColorFixe READ ForeColorFixe WRITE setForeColorFixe)
    Q_PROPERTY(QByteArray FormatString READ FormatString WRITE setFormatString)

  public:
    explicit kxGridWidget(QWidget* parent = nullptr);
    ~kxGridWidget() override;

    kxGrid& grid();
    const kxGrid& grid() const;

    // --- The stored settings of the whole grid. Colours are the 32 bits of the control's, as a signed
    // number.
    bool Editable() const;
    void setEditable(bool editable);
    bool ShowZero() const;
    void setShowZero(bool show);
    bool SumRow() const;
    void setSumRow(bool show);
    int Cols() const;
    void setCols(int count);
    int Rows() const;
    void setRows(int count);
    int FixedCols() const;
    void setFixedCols(int count);
    int FixedRows() const;
    void setFixedRows(int count);
    int Appearance() const;
    void setAppearance(int appearance);
    int BackColor() const;
    void setBackColor(int color);
    int BackColorBkg() const;
    void setBackColorBkg(int color);
    int BackColorFixed() const;
    void setBackColorFixed(int color);
    int ForeColor() const;
    void setForeColor(int color);
    int ForeColorFixe() const;
    void setForeColorFixe(int color);
    QByteArray FormatString() const;
    void setFormatString(const QByteArray& format);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  Q_SIGNALS:
    /// A persisted setting was changed by code; the name is the control's own.
    void settingChanged(const QString& name);
    /// A host handler threw out of an event that the clerk caused; the text is the exception's.
    void handlerFailed(const QString& description);

  protected:
    bool event(QEvent* event) override;
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
