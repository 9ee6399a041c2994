#pragma once

#include "tests/engines/Engine.h"

#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace vdengine {

// The rows a statement returned, each row its values as text joined by '|'.
using TRows = std::vector<std::string>;

// One connection to an engine through QtSql. SQLite is opened in memory; a server engine
// is found through the file named by VD_ENGINE_ENV, which the engine scripts write when
// they start a private instance (VD_ENGINE_DRIVER, _HOST, _PORT, _DATABASE, _USER,
// _PASSWORD).
class TEngineDatabase
{
public:
    explicit TEngineDatabase(TEngine engine);
    ~TEngineDatabase();
    TEngineDatabase(const TEngineDatabase&) = delete;
    TEngineDatabase& operator=(const TEngineDatabase&) = delete;

    // False with Error() set when the engine cannot be reached.
    bool Open();
    TEngine Engine() const { return FEngine; }
    // The QtSql connection's name, for code that reads the database itself.
    const QString& ConnectionName() const { return FConnection; }

    // Runs one statement; false with Error() holding the engine's message.
    bool Exec(const std::string& sql);
    // Runs a query and collects its rows; false with Error() set on failure.
    bool Query(const std::string& sql, TRows& rows);
    // Binds the values to the statement's named parameters (":NAME") before running it.
    bool Query(const std::string& sql, const std::vector<std::pair<QString, QString>>& params,
               TRows& rows);

    // Runs a query and collects its rows as lists of values (NULL as "NULL").
    bool QueryValues(const std::string& sql, std::vector<std::vector<std::string>>& rows);

    const std::string& Error() const { return FError; }

private:
    bool Fail(const QString& what, const QString& detail);

    TEngine FEngine;
    QString FConnection;
    std::string FError;
};

} // namespace vdengine
