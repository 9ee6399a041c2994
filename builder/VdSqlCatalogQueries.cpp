#include "builder/VdSqlCatalogQueries.h"

#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

namespace vd {

namespace {

QString Text(const QVariant& value) { return value.toString().trimmed(); }

// "sales.orders" names table orders of schema sales; "orders" the schema in use.
void SplitSchema(const QString& name, QString& schema, QString& table)
{
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    schema = dot < 0 ? QString() : name.left(dot);
    table = dot < 0 ? name : name.mid(dot + 1);
}

// Rows of (constraint, column, referenced table, referenced column) in key order, folded
// into one key per constraint.
QList<TVdForeignKey> FoldForeignKeys(const QString& table, const QList<QVariantList>& rows)
{
    QList<TVdForeignKey> keys;
    for (const QVariantList& row : rows) {
        const QString name = Text(row.value(0));
        if (keys.isEmpty() || keys.last().Name != name)
            keys.append(TVdForeignKey{name, table, {}, Text(row.value(2)), {}});
        keys.last().Columns << Text(row.value(1));
        keys.last().RefColumns << Text(row.value(3));
    }
    return keys;
}

// VARCHAR(40) holds 40 characters; NUMERIC(10,2) gives no length.
int DeclaredLength(const QString& declared)
{
    static const QRegularExpression single(QStringLiteral("\\(\\s*(\\d+)\\s*\\)"));
    const QRegularExpressionMatch match = single.match(declared);
    return match.hasMatch() ? match.captured(1).toInt() : 0;
}

TParamType ProcDirection(const QString& mode)
{
    if (mode == QLatin1String("IN"))
        return ptInput;
    if (mode == QLatin1String("INOUT"))
        return ptInputOutput;
    return ptOutput;
}

} // namespace

QString FirebirdTypeName(int type, int subType, int scale)
{
    switch (type) {
    case 7:
        return scale < 0 ? QStringLiteral("NUMERIC") : QStringLiteral("SMALLINT");
    case 8:
        return scale < 0 ? QStringLiteral("NUMERIC") : QStringLiteral("INTEGER");
    case 16:
    case 26:
        return scale < 0 ? QStringLiteral("NUMERIC") : QStringLiteral("BIGINT");
    case 10:
        return QStringLiteral("FLOAT");
    case 27:
        return scale < 0 ? QStringLiteral("NUMERIC") : QStringLiteral("DOUBLE PRECISION");
    case 24:
    case 25:
        return QStringLiteral("DECFLOAT");
    case 12:
        return QStringLiteral("DATE");
    case 13:
    case 28:
        return QStringLiteral("TIME");
    case 35:
    case 29:
        return QStringLiteral("TIMESTAMP");
    case 14:
        return QStringLiteral("CHAR");
    case 37:
    case 40:
        return QStringLiteral("VARCHAR");
    case 23:
        return QStringLiteral("BOOLEAN");
    case 261:
        return subType == 1 ? QStringLiteral("BLOB SUB_TYPE TEXT") : QStringLiteral("BLOB");
    default:
        return QString();
    }
}

TVdCatalogQueries::TVdCatalogQueries(const QSqlDatabase& db)
    : FConnection(db.connectionName()), FEngine(SqlEngineOf(db))
{
}

QList<QVariantList> TVdCatalogQueries::Run(const QString& sql, const QStringList& values)
{
    QList<QVariantList> rows;
    QSqlQuery query(QSqlDatabase::database(FConnection, false));
    query.setForwardOnly(true);
    bool ran = false;
    if (values.isEmpty()) {
        ran = query.exec(sql);
    } else if (query.prepare(sql)) {
        for (const QString& value : values)
            query.addBindValue(value);
        ran = query.exec();
    }
    if (!ran) {
        FError = query.lastError().text();
        return rows;
    }
    FError.clear();
    while (query.next()) {
        QVariantList row;
        const QSqlRecord record = query.record();
        for (int i = 0; i < record.count(); ++i)
            row << record.value(i);
        rows << row;
    }
    return rows;
}

QList<TVdDeclaredColumn> TVdCatalogQueries::DeclaredColumns(const QString& table)
{
    switch (FEngine) {
    case TVdSqlEngine::SQLite:
        return SQLiteColumns(table);
    case TVdSqlEngine::PostgreSQL:
        return PostgreSQLColumns(table);
    case TVdSqlEngine::MySQL:
        return MySQLColumns(table);
    case TVdSqlEngine::Firebird:
        return FirebirdColumns(table);
    case TVdSqlEngine::Other:
        break;
    }
    return {};
}

QList<TVdDeclaredColumn> TVdCatalogQueries::SQLiteColumns(const QString& table)
{
    // Only AUTOINCREMENT makes a column count up for good; a bare INTEGER PRIMARY KEY
    // reuses the numbers of deleted rows.
    const QList<QVariantList> master = Run(
        QStringLiteral("SELECT sql FROM sqlite_master WHERE name = ? AND type = 'table'"), {table});
    const bool autoIncrement =
        !master.isEmpty() &&
        Text(master.first().value(0)).contains(QLatin1String("AUTOINCREMENT"), Qt::CaseInsensitive);
    QList<TVdDeclaredColumn> columns;
    const QList<QVariantList> rows =
        Run(QStringLiteral("PRAGMA table_info(%1)").arg(QuotedSqlName(FEngine, table)));
    for (const QVariantList& row : rows) {
        QString declared = Text(row.value(2));
        if (autoIncrement && row.value(5).toInt() == 1 &&
            declared.compare(QLatin1String("INTEGER"), Qt::CaseInsensitive) == 0)
            declared += QStringLiteral(" autoincrement");
        columns.append(TVdDeclaredColumn{Text(row.value(1)), declared, DeclaredLength(declared)});
    }
    return columns;
}

QList<TVdDeclaredColumn> TVdCatalogQueries::PostgreSQLColumns(const QString& table)
{
    QString schema, name;
    SplitSchema(table, schema, name);
    const QList<QVariantList> rows =
        Run(QStringLiteral("SELECT column_name, data_type, is_identity, column_default,"
                           " character_maximum_length"
                           " FROM information_schema.columns"
                           " WHERE table_schema = COALESCE(NULLIF(?, ''), current_schema())"
                           " AND table_name = ? ORDER BY ordinal_position"),
            {schema, name});
    QList<TVdDeclaredColumn> columns;
    for (const QVariantList& row : rows) {
        QString declared = Text(row.value(1));
        if (Text(row.value(2)) == QLatin1String("YES") ||
            Text(row.value(3)).startsWith(QLatin1String("nextval(")))
            declared += QStringLiteral(" identity");
        columns.append(TVdDeclaredColumn{Text(row.value(0)), declared, row.value(4).toInt()});
    }
    return columns;
}

QList<TVdDeclaredColumn> TVdCatalogQueries::MySQLColumns(const QString& table)
{
    const QList<QVariantList> rows =
        Run(QStringLiteral("SELECT column_name, column_type, extra FROM information_schema.columns"
                           " WHERE table_schema = DATABASE() AND table_name = ?"
                           " ORDER BY ordinal_position"),
            {table});
    QList<TVdDeclaredColumn> columns;
    for (const QVariantList& row : rows) {
        QString declared = Text(row.value(1));
        if (Text(row.value(2)).contains(QLatin1String("auto_increment"), Qt::CaseInsensitive))
            declared += QStringLiteral(" auto_increment");
        columns.append(TVdDeclaredColumn{Text(row.value(0)), declared, DeclaredLength(declared)});
    }
    return columns;
}

QList<TVdDeclaredColumn> TVdCatalogQueries::FirebirdColumns(const QString& table)
{
    const QList<QVariantList> rows =
        Run(QStringLiteral("SELECT TRIM(rf.RDB$FIELD_NAME), f.RDB$FIELD_TYPE, f.RDB$FIELD_SUB_TYPE,"
                           " f.RDB$FIELD_SCALE, rf.RDB$IDENTITY_TYPE, f.RDB$CHARACTER_LENGTH"
                           " FROM RDB$RELATION_FIELDS rf"
                           " JOIN RDB$FIELDS f ON f.RDB$FIELD_NAME = rf.RDB$FIELD_SOURCE"
                           " WHERE rf.RDB$RELATION_NAME = ? ORDER BY rf.RDB$FIELD_POSITION"),
            {table});
    QList<TVdDeclaredColumn> columns;
    for (const QVariantList& row : rows) {
        QString declared =
            FirebirdTypeName(row.value(1).toInt(), row.value(2).toInt(), row.value(3).toInt());
        if (!row.value(4).isNull())
            declared += QStringLiteral(" identity");
        columns.append(TVdDeclaredColumn{Text(row.value(0)), declared, row.value(5).toInt()});
    }
    return columns;
}

QList<TVdForeignKey> TVdCatalogQueries::ForeignKeys(const QString& table)
{
    switch (FEngine) {
    case TVdSqlEngine::SQLite:
        return SQLiteForeignKeys(table);
    case TVdSqlEngine::PostgreSQL: {
        QString schema, name;
        SplitSchema(table, schema, name);
        return ServerForeignKeys(
            QStringLiteral("SELECT k.constraint_name, k.column_name, u.table_name, u.column_name"
                           " FROM information_schema.referential_constraints r"
                           " JOIN information_schema.key_column_usage k"
                           "   ON k.constraint_schema = r.constraint_schema"
                           "  AND k.constraint_name = r.constraint_name"
                           " JOIN information_schema.key_column_usage u"
                           "   ON u.constraint_schema = r.unique_constraint_schema"
                           "  AND u.constraint_name = r.unique_constraint_name"
                           "  AND u.ordinal_position = k.position_in_unique_constraint"
                           " WHERE k.table_schema = COALESCE(NULLIF(?, ''), current_schema())"
                           " AND k.table_name = ? ORDER BY k.constraint_name, k.ordinal_position"),
            {schema, name}, table);
    }
    case TVdSqlEngine::MySQL:
        return ServerForeignKeys(
            QStringLiteral("SELECT constraint_name, column_name, referenced_table_name,"
                           " referenced_column_name FROM information_schema.key_column_usage"
                           " WHERE table_schema = DATABASE() AND table_name = ?"
                           " AND referenced_table_name IS NOT NULL"
                           " ORDER BY constraint_name, ordinal_position"),
            {table}, table);
    case TVdSqlEngine::Firebird:
        return ServerForeignKeys(
            QStringLiteral(
                "SELECT TRIM(c.RDB$CONSTRAINT_NAME), TRIM(s.RDB$FIELD_NAME),"
                " TRIM(u.RDB$RELATION_NAME), TRIM(us.RDB$FIELD_NAME)"
                " FROM RDB$RELATION_CONSTRAINTS c"
                " JOIN RDB$REF_CONSTRAINTS r ON r.RDB$CONSTRAINT_NAME = c.RDB$CONSTRAINT_NAME"
                " JOIN RDB$RELATION_CONSTRAINTS u ON u.RDB$CONSTRAINT_NAME = r.RDB$CONST_NAME_UQ"
                " JOIN RDB$INDEX_SEGMENTS s ON s.RDB$INDEX_NAME = c.RDB$INDEX_NAME"
                " JOIN RDB$INDEX_SEGMENTS us ON us.RDB$INDEX_NAME = u.RDB$INDEX_NAME"
                "  AND us.RDB$FIELD_POSITION = s.RDB$FIELD_POSITION"
                " WHERE c.RDB$CONSTRAINT_TYPE = 'FOREIGN KEY' AND c.RDB$RELATION_NAME = ?"
                " ORDER BY c.RDB$CONSTRAINT_NAME, s.RDB$FIELD_POSITION"),
            {table}, table);
    case TVdSqlEngine::Other:
        break;
    }
    return {};
}

QList<TVdForeignKey> TVdCatalogQueries::ServerForeignKeys(const QString& sql,
                                                          const QStringList& values,
                                                          const QString& table)
{
    return FoldForeignKeys(table, Run(sql, values));
}

QList<TVdForeignKey> TVdCatalogQueries::SQLiteForeignKeys(const QString& table)
{
    // PRAGMA foreign_key_list: id, seq, table, from, to, ... A key that names no column of
    // the referenced table means its primary key.
    QList<QVariantList> rows;
    for (const QVariantList& row :
         Run(QStringLiteral("PRAGMA foreign_key_list(%1)").arg(QuotedSqlName(FEngine, table))))
        rows << QVariantList{row.value(0), row.value(3), row.value(2), row.value(4)};
    QList<TVdForeignKey> keys = FoldForeignKeys(table, rows);
    for (TVdForeignKey& key : keys) {
        if (!key.RefColumns.join(QString()).isEmpty())
            continue;
        key.RefColumns.clear();
        for (const QVariantList& column :
             Run(QStringLiteral("PRAGMA table_info(%1)").arg(QuotedSqlName(FEngine, key.RefTable))))
            if (column.value(5).toInt() > 0)
                key.RefColumns << Text(column.value(1));
    }
    return keys;
}

QStringList TVdCatalogQueries::SelectableProcedures()
{
    QList<QVariantList> rows;
    if (FEngine == TVdSqlEngine::PostgreSQL)
        rows = Run(QStringLiteral("SELECT DISTINCT p.proname FROM pg_proc p"
                                  " JOIN pg_namespace n ON n.oid = p.pronamespace"
                                  " WHERE p.proretset AND p.prokind = 'f'"
                                  " AND n.nspname = ANY (current_schemas(false))"
                                  " ORDER BY p.proname"));
    else if (FEngine == TVdSqlEngine::Firebird)
        // Type 1 is selectable (SUSPEND), 2 executable; older databases leave it empty.
        rows = Run(QStringLiteral("SELECT TRIM(RDB$PROCEDURE_NAME) FROM RDB$PROCEDURES"
                                  " WHERE COALESCE(RDB$PROCEDURE_TYPE, 1) = 1"
                                  " AND COALESCE(RDB$SYSTEM_FLAG, 0) = 0"
                                  " AND RDB$PACKAGE_NAME IS NULL ORDER BY 1"));
    QStringList names;
    for (const QVariantList& row : rows)
        names << Text(row.value(0));
    return names;
}

QList<TVdProcColumn> TVdCatalogQueries::ProcedureColumns(const QString& procedure)
{
    if (FEngine == TVdSqlEngine::PostgreSQL)
        return PostgreSQLProcedureColumns(procedure);
    if (FEngine == TVdSqlEngine::Firebird)
        return FirebirdProcedureColumns(procedure);
    return {};
}

QList<TVdProcColumn> TVdCatalogQueries::PostgreSQLProcedureColumns(const QString& procedure)
{
    // Of overloaded functions the oldest is taken. RETURNS TABLE columns are OUT
    // parameters here; a function returning SETOF a table has that table's columns.
    const QList<QVariantList> rows = Run(
        QStringLiteral(
            "SELECT p.oid, x.parameter_name, x.parameter_mode, x.data_type, t.typrelid::regclass"
            " FROM pg_proc p JOIN pg_namespace n ON n.oid = p.pronamespace"
            " JOIN pg_type t ON t.oid = p.prorettype"
            " LEFT JOIN information_schema.parameters x"
            "   ON x.specific_schema = n.nspname AND x.specific_name = p.proname || '_' || p.oid"
            " WHERE p.proname = ? AND p.proretset AND n.nspname = ANY (current_schemas(false))"
            " ORDER BY p.oid, x.ordinal_position"),
        {procedure});
    QList<TVdProcColumn> columns;
    bool hasOutput = false;
    for (const QVariantList& row : rows) {
        if (row.value(0) != rows.first().value(0))
            break;
        if (row.value(2).isNull())
            continue;
        const TParamType direction = ProcDirection(Text(row.value(2)));
        hasOutput = hasOutput || direction != ptInput;
        columns.append(TVdProcColumn{Text(row.value(1)), Text(row.value(3)), direction});
    }
    const QString relation = rows.isEmpty() ? QString() : Text(rows.first().value(4));
    if (!hasOutput && !relation.isEmpty() && relation != QLatin1String("-"))
        for (const TVdDeclaredColumn& column : PostgreSQLColumns(relation))
            columns.append(TVdProcColumn{column.Name, column.Declared, ptOutput});
    return columns;
}

QList<TVdProcColumn> TVdCatalogQueries::FirebirdProcedureColumns(const QString& procedure)
{
    const QList<QVariantList> rows =
        Run(QStringLiteral("SELECT TRIM(p.RDB$PARAMETER_NAME), p.RDB$PARAMETER_TYPE,"
                           " f.RDB$FIELD_TYPE, f.RDB$FIELD_SUB_TYPE, f.RDB$FIELD_SCALE"
                           " FROM RDB$PROCEDURE_PARAMETERS p"
                           " JOIN RDB$FIELDS f ON f.RDB$FIELD_NAME = p.RDB$FIELD_SOURCE"
                           " WHERE p.RDB$PROCEDURE_NAME = ? AND p.RDB$PACKAGE_NAME IS NULL"
                           " ORDER BY p.RDB$PARAMETER_TYPE, p.RDB$PARAMETER_NUMBER"),
            {procedure});
    QList<TVdProcColumn> columns;
    for (const QVariantList& row : rows)
        columns.append(TVdProcColumn{
            Text(row.value(0)),
            FirebirdTypeName(row.value(2).toInt(), row.value(3).toInt(), row.value(4).toInt()),
            row.value(1).toInt() == 0 ? ptInput : ptOutput});
    return columns;
}

} // namespace vd
