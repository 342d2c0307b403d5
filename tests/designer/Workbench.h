// Qt Designer's engine with a form open that has a grid, and a designer's hands at both.
#pragma once

#include <QAction>
#include <QDesignerFormEditorInterface>
#include <QDesignerFormWindowInterface>
#include <QDialog>
#include <QUndoStack>
#include <functional>
#include <map>
#include <memory>

#include "kxVsGrid/qt/kxGridWidget.h"

namespace kxVsGrid::qt::testing {

/// The stored keys of a form's grid as they stand in its text: name to element, as in "bool:true".
using StoredTexts = std::map<QString, QString>;
StoredTexts storedTexts(const QString& form);

/// A form around the description of one widget.
QString formAround(const QString& widgetXml);
/// The form of this name in the folder of the tests.
QString formNamed(const char* name);

class Workbench {
  public:
    explicit Workbench(const QString& formText);
    ~Workbench();
    Workbench(const Workbench&) = delete;
    Workbench& operator=(const Workbench&) = delete;

    QDesignerFormWindowInterface& form() const { return *form_; }
    kxGridWidget& widget() const;
    kxGrid& grid() const { return widget().grid(); }
    QUndoStack& history() const { return *form_->commandHistory(); }
    QString text() const { return form_->contents(); }
    StoredTexts stored() const { return storedTexts(text()); }

    /// Sets a property as the property editor does.
    void edit(const char* name, const QVariant& value);
    /// Deletes the grid, which is selected, as the Delete key does.
    void deleteGrid();
    void undo();
    void redo();
    /// Opens the column page by the task menu and works at it; true when it has come up.
    bool atThePage(const std::function<void(QDialog& page)>& work);

    /// Everything that waits is carried out.
    static void settle();

  private:
    static QDesignerFormEditorInterface& core();
    QWidget window_;
    QDesignerFormWindowInterface* form_ = nullptr;
};

/// The stored key of a column's setting, as the property sheet names it.
QString key(int col, const char* suffix);

// --- At the page, with real keys and a real mouse.
template <class Widget>
Widget& part(QDialog& page, const char* name) {
    auto* widget = page.findChild<Widget*>(QString::fromUtf8(name));
    if (widget == nullptr) throw std::logic_error(std::string("the page does not show ") + name);
    return *widget;
}
void press(QDialog& page, const char* button);
void tick(QDialog& page, const QString& caption);
void choose(QDialog& page, const char* list, int index);
/// For people to look at, beside the build.
void keepPicture(QWidget& shown, const char* name);
/// Replaces the text of the box beside which that word stands.
void type(QDialog& page, const QString& caption, const QString& text);
}  // namespace kxVsGrid::qt::testing
