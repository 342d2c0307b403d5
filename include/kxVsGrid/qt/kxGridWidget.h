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

#include <QAction>
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

    /// A command for menus and toolbars: caption with the name of what it acts on, theme icon, keys, and
    /// enabled while it can be done. Its keys work in the grid and its editor alone. Asking for it looks at the
    /// control; the widget keeps it.
    QAction* action(Command command);

    /// Puts an action of the host's, or one of the commands', at the end of the grid's context menus, below the
    /// control's own items; not in those of headers. The host keeps it, and may delete it.
    void appendToMenu(QAction* action);

    // --- The stored settings of the whole grid. Colours are the 32 bits of the control's, as a signed
    // number.
    bool Editable() const { return truth("Editable"); }
    void setEditable(bool value) { setting("Editable", value); }
    bool ShowZero() const { return truth("ShowZero"); }
    void setShowZero(bool value) { setting("ShowZero", value); }
    bool SumRow() const { return truth("SumRow"); }
    void setSumRow(bool value) { setting("SumRow", value); }
    int Cols() const { return number("Cols"); }
    void setCols(int value) { setting("Cols", value); }
    int Rows() const { return number("Rows"); }
    void setRows(int value) { setting("Rows", value); }
    int FixedCols() const { return number("FixedCols"); }
    void setFixedCols(int value) { setting("FixedCols", value); }
    int FixedRows() const { return number("FixedRows"); }
    void setFixedRows(int value) { setting("FixedRows", value); }
    int Appearance() const { return number("Appearance"); }
    void setAppearance(int value) { setting("Appearance", value); }
    int BackColor() const { return number("BackColor"); }
    void setBackColor(int value) { setting("BackColor", value); }
    int BackColorBkg() const { return number("BackColorBkg"); }
    void setBackColorBkg(int value) { setting("BackColorBkg", value); }
    int BackColorFixed() const { return number("BackColorFixed"); }
    void setBackColorFixed(int value) { setting("BackColorFixed", value); }
    int ForeColor() const { return number("ForeColor"); }
    void setForeColor(int value) { setting("ForeColor", value); }
    int ForeColorFixe() const { return number("ForeColorFixe"); }
    void setForeColorFixe(int value) { setting("ForeColorFixe", value); }
    QByteArray FormatString() const { return text("FormatString"); }
    void setFormatString(const QByteArray& format) { setting("FormatString", format.toStdString()); }

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
    bool truth(std::string_view setting) const;
    int number(std::string_view setting) const;
    QByteArray text(std::string_view setting) const;
    void setting(std::string_view name, const Variant& value);

    class Parts;
    std::unique_ptr<Parts> parts_;
};
}  // namespace kxVsGrid::qt
