#pragma once

// The system-catalogue questions behind TVdSqlCatalog, one answer per engine: the declared
// type of each column, the foreign keys of a table, the procedures that FROM can name and
// their parameters. Every function answers empty when the engine has no such thing or the
// catalogue refuses the question; LastError() then tells why.

#include "builder/VdSqlEngine.h"
#include "core/VdFieldDef.h" // TParamType

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantList>

class QSqlDatabase;

namespace vd {

// A column as the catalogue declares it. Declared is the type in SQL spelling
// ("VARCHAR(40)", "numeric", "BLOB SUB_TYPE TEXT"); an auto-increment or identity column
// says so after it ("integer identity").
struct TVdDeclaredColumn {
    QString Name;
    QString Declared;
    int Length = 0; // characters of a character column, where the catalogue says
};

struct TVdForeignKey {
    QString Name;
    QString Table;
    QStringList Columns;
    QString RefTable;
    QStringList RefColumns;
};

// A parameter or result column of a procedure, in the catalogue's order.
struct TVdProcColumn {
    QString Name;
    QString Declared;
    TParamType Direction = ptUnknown; // ptInput, ptInputOutput or ptOutput
};

class TVdCatalogQueries
{
public:
    explicit TVdCatalogQueries(const QSqlDatabase& db);

    TVdSqlEngine Engine() const { return FEngine; }
    QList<TVdDeclaredColumn> DeclaredColumns(const QString& table);
    QList<TVdForeignKey> ForeignKeys(const QString& table);
    // Firebird selectable procedures, PostgreSQL set-returning functions.
    QStringList SelectableProcedures();
    QList<TVdProcColumn> ProcedureColumns(const QString& procedure);
    // The engine's message for the last question it refused; empty after a success.
    const QString& LastError() const { return FError; }

private:
    // The rows of a query, each its values in column order; empty with FError set when the
    // engine refuses it.
    QList<QVariantList> Run(const QString& sql, const QStringList& values = {});

    QList<TVdDeclaredColumn> SQLiteColumns(const QString& table);
    QList<TVdDeclaredColumn> PostgreSQLColumns(const QString& table);
    QList<TVdDeclaredColumn> MySQLColumns(const QString& table);
    QList<TVdDeclaredColumn> FirebirdColumns(const QString& table);
    QList<TVdForeignKey> SQLiteForeignKeys(const QString& table);
    QList<TVdForeignKey> ServerForeignKeys(const QString& sql, const QStringList& values,
                                           const QString& table);
    QList<TVdProcColumn> PostgreSQLProcedureColumns(const QString& procedure);
    QList<TVdProcColumn> FirebirdProcedureColumns(const QString& procedure);

    QString FConnection;
    TVdSqlEngine FEngine;
    QString FError;
};

// The type name a Firebird catalogue code stands for (RDB$FIELD_TYPE, _SUB_TYPE, _SCALE).
QString FirebirdTypeName(int type, int subType, int scale);

} // namespace vd
