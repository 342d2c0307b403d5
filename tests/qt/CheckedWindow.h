// The tests' window with columns that are checked: codes begin with A, dates are dates, remarks (of several
// lines) have no X. Below it stand a menu bar, a field and a button of the host's.
#pragma once

#include <QMenuBar>
#include <QPushButton>

#include "qt/Window.h"

namespace kxVsGrid::qt::testing {

class CheckedWindow : public Window {
  public:
    CheckedWindow();

    QMenuBar* menus;
    QPushButton* save;
    int asked = 0;   ///< how often the host was asked for a code
    int edited = 0;  ///< how often a commit was told
    int saved = 0;   ///< clicks on the button

    /// Opens a cell and replaces its text, without a commit.
    void fill(std::int32_t row, std::int32_t col, const QString& text);
    /// Types a code that is refused, and commits it by Enter.
    void refuseCode(const QString& text = QStringLiteral("B9"));
    /// The editor of the cell has the real keyboard, with all of its text selected and a red frame.
    void expectAllSelected(const QString& text);
};
}  // namespace kxVsGrid::qt::testing
