// The examples at the heads of the Qt headers, compiled as they stand there.
#include <QDebug>
#include <QSettings>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTableView>
#include <QWidget>

#include "kxVsGrid/kxVsGrid.h"
#include "kxVsGrid/qt/DraftFile.h"
#include "kxVsGrid/qt/FileBag.h"
#include "kxVsGrid/qt/GridModel.h"
#include "kxVsGrid/qt/ModelSheet.h"
#include "kxVsGrid/qt/QtFields.h"
#include "kxVsGrid/qt/SettingsBag.h"
#include "kxVsGrid/qt/ShowForm.h"
#include "kxVsGrid/qt/SuggestingLineEdit.h"
#include "kxVsGrid/qt/kxGridWidget.h"
#include "kxVsGrid/sheet/Sheet.h"

/// A window of a host, in whose members the examples stand.
class WindowWithAGrid : public QWidget {
  public:
    void makeGrid() {
#include "examples/qt/kxGridWidget.inc"
    }
    void keepADraft() {
#include "examples/qt/DraftFile.inc"
    }
    void keepInAFile() {
#include "examples/qt/FileBag.inc"
    }
    void keepInSettings() {
#include "examples/qt/SettingsBag.inc"
    }
    void lookAtCells() {
#include "examples/qt/GridModel.inc"
    }
    void editAModel() {
#include "examples/qt/ModelSheet.inc"
    }
    void askForATown() {
#include "examples/qt/SuggestingLineEdit.inc"
    }
    void declareASheet() {
#include "examples/qt/QtFields.inc"
    }
    void showPage() {
#include "examples/qt/ShowForm.inc"
    }

  private:
    QString whyTheModelRefused() const {
        return model->objectName();
    }

    QAbstractItemModel* model = new QStandardItemModel(this);
    QTableView* view = new QTableView(this);
    kxVsGrid::qt::kxGridWidget* widget = new kxVsGrid::qt::kxGridWidget(this);
};

/// Makes the compiler look at all of it.
void useTheExamples(WindowWithAGrid& window) {
    window.makeGrid();
    window.keepADraft();
    window.keepInAFile();
    window.keepInSettings();
    window.lookAtCells();
    window.editAModel();
    window.askForATown();
    window.declareASheet();
    window.showPage();
}
