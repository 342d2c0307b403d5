// How far something has come that takes its time: nothing at first, then a box in front of the window, whose
// button cancels it.
#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QProgressBar>
#include <QProgressDialog>
#include <memory>
#include <optional>

#include "kxVsGrid/Platform.h"
#include "qt/Machine.h"
#include "qt/ModalBox.h"

namespace kxVsGrid::qt {

class ProgressBox : public Progress {
  public:
    ProgressBox(std::shared_ptr<Machine> machine, QWidget* widget, QString what, std::int64_t total);
    ~ProgressBox() override;
    ProgressBox(const ProgressBox&) = delete;
    ProgressBox& operator=(const ProgressBox&) = delete;

    bool goOn(std::int64_t done) override;

  private:
    void show();
    bool cancelled() const;

    std::shared_ptr<Machine> machine_;
    QPointer<QWidget> widget_;
    QString what_;
    std::int64_t total_;
    QElapsedTimer sinceStart_;
    qint64 looked_ = 0;  ///< when the box was brought up to date last
    std::optional<ModalBox<QProgressDialog>> box_;
    QPointer<QProgressBar> bar_;
};
}  // namespace kxVsGrid::qt
