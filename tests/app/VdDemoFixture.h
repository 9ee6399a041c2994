#pragma once

// A sample database in a temporary folder, opened under its own connection name, with its
// catalogue; the window tests build the demo's window over it.

#include "VdDemoDatabase.h"
#include "builder/VdSqlCatalog.h"

#include <QSqlDatabase>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>
#include <ostream>

// Readable QStrings in failure messages.
inline void PrintTo(const QString& text, std::ostream* os)
{
    *os << '"' << text.toStdString() << '"';
}

namespace vd::test {

class VdDemoFixture : public ::testing::Test
{
protected:
    static QString Connection() { return QStringLiteral("demo-test"); }
    QString Path() const { return Dir.filePath(QStringLiteral("business.sqlite")); }

    void SetUp() override
    {
        ASSERT_TRUE(Dir.isValid());
        QString error;
        ASSERT_TRUE(OpenDemoDatabase(QStringLiteral("sqlite:") + Path(), Connection(), error))
            << error.toStdString();
        Catalog = std::make_unique<TVdSqlCatalog>(QSqlDatabase::database(Connection()));
    }

    void TearDown() override
    {
        Catalog.reset();
        QSqlDatabase::database(Connection()).close();
        QSqlDatabase::removeDatabase(Connection());
    }

    QTemporaryDir Dir;
    std::unique_ptr<TVdSqlCatalog> Catalog;
};

} // namespace vd::test
