#include <gtest/gtest.h>

#include <QApplication>
#include <QLocale>
#include <string_view>

#include "qt/Drafts.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setCursorFlashTime(0);  // pictures do not depend on the moment
    using namespace kxVsGrid::qt::testing;
    if (argc == 3 && std::string_view(argv[1]) == KeyADraft)
        return keyADraft(QString::fromLocal8Bit(argv[2]));
    return RUN_ALL_TESTS();
}
