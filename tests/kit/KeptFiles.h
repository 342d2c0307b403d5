// A folder in which bags keep their files, for the length of a test.
#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <string>

#include "kxVsGrid/TextBag.h"

namespace kxVsGrid::kit {

class KeptFiles : public ::testing::Test {
  protected:
    QTemporaryDir folder;

    static QByteArray content(const QString& file) {
        QFile opened(file);
        return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray("cannot be opened");
    }
    static void put(const QString& file, const QByteArray& bytes) {
        QFile opened(file);
        ASSERT_TRUE(opened.open(QIODevice::WriteOnly));
        ASSERT_EQ(opened.write(bytes), bytes.size());
    }
    /// What the work throws; "nothing" when it does not.
    template <class Work>
    static std::string failure(Work work) {
        try {
            work();
        } catch (const BagError& error) {
            return error.what();
        }
        return "nothing";
    }
};
}  // namespace kxVsGrid::kit
