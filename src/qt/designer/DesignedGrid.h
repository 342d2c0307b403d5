// The grid as it stands on a form in the designer: with its definitions applied (ReDraw True), as it will
// look in the program. What the form holds is what counts; the grid reads it again whenever it has changed,
// from the property editor, by undoing, or from the column page.
#pragma once

#include <QDesignerFormEditorInterface>
#include <QDesignerFormWindowInterface>
#include <QPointer>
#include <QString>
#include <QTimer>

#include "kxVsGrid/MemoryBag.h"
#include "kxVsGrid/qt/kxGridWidget.h"

namespace kxVsGrid::qt::designer {

/// Has no meta object of its own: the designer writes the name of the class into its files.
class DesignedGrid : public kxGridWidget {
  public:
    DesignedGrid(QDesignerFormEditorInterface& core, QWidget* parent);

    /// Shows what the form holds now.
    void refresh();
    /// The grid has been put into the state that the form holds now.
    void follow();
    /// The form gets every key of every column; the designer cannot cope with those of very many columns.
    bool holdsEveryKey() { return grid().Cols() <= MostCompletedColumns; }
    /// Why the settings of the form cannot be read; empty when they can be.
    const QString& problem() const { return problem_; }
    QDesignerFormEditorInterface& core() const { return core_; }

  protected:
    bool event(QEvent* event) override;

  private:
    static constexpr std::int32_t MostCompletedColumns = 100;

    void begin();
    void watchForm();
    void complete();
    void takeBack(const MemoryBag& whole);

    QDesignerFormEditorInterface& core_;
    QPointer<QDesignerFormWindowInterface> form_;
    bool begun_ = false;
    MemoryBag shown_;      ///< the form's settings that the grid shows
    MemoryBag completed_;  ///< what was added to it so that it holds every key
    QString problem_;
    QTimer changed_;
};
}  // namespace kxVsGrid::qt::designer
