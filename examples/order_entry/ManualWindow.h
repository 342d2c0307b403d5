// 录单员手册: the clerk's page of the manual in a window beside the order, which goes on being keyed.
#pragma once

#include <QDialog>

class ManualWindow : public QDialog {
    Q_OBJECT

  public:
    explicit ManualWindow(QWidget* parent);
};
