#include <gtest/gtest.h>

#include <QApplication>
#include <QStandardPaths>
#include <QtPlugin>

Q_IMPORT_PLUGIN(DesignerPlugin)

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    QStandardPaths::setTestModeEnabled(true);  // nothing of the developer's own Qt Designer
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("kxVsGrid"));
    QApplication::setApplicationName(QStringLiteral("kx_test_designer"));
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setCursorFlashTime(0);
    return RUN_ALL_TESTS();
}
