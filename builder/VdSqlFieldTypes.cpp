#include "builder/VdSqlFieldTypes.h"

#include <QRegularExpression>

#include <utility>

namespace vd {

namespace {

// The base name in lower case and blanks collapsed, without its length or precision:
// "DOUBLE  PRECISION" -> "double precision", "VARCHAR(40)" -> "varchar".
QString BaseTypeName(const QString& declared, QString& arguments)
{
    QString text = declared.trimmed().toLower();
    const qsizetype open = text.indexOf(QLatin1Char('('));
    if (open >= 0) {
        const qsizetype close = text.indexOf(QLatin1Char(')'), open);
        arguments = text.mid(open + 1, close < 0 ? -1 : close - open - 1).trimmed();
        text = text.left(open) + (close < 0 ? QString() : text.mid(close + 1));
    }
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    return text.replace(blanks, QStringLiteral(" ")).trimmed();
}

bool StartsWithAny(const QString& text, std::initializer_list<const char*> prefixes)
{
    for (const char* prefix : prefixes)
        if (text.startsWith(QLatin1String(prefix)))
            return true;
    return false;
}

TFieldType IntegerType(const QString& name, const QString& arguments)
{
    // MySQL writes BOOLEAN as TINYINT(1).
    if (name.startsWith(QLatin1String("tinyint")))
        return arguments == QLatin1String("1") ? ftBoolean : ftSmallint;
    if (StartsWithAny(name, {"smallint", "int2"}))
        return ftSmallint;
    if (StartsWithAny(name, {"bigint", "int8"}))
        return ftLargeint;
    return ftInteger;
}

TFieldType CharacterType(const QString& name)
{
    if (StartsWithAny(name, {"varchar", "character varying", "nvarchar", "varchar2", "char varying",
                             "national character varying"}))
        return ftString;
    if (StartsWithAny(name, {"char", "character", "nchar", "bpchar", "national char"}))
        return ftFixedChar;
    return ftString;
}

TFieldType TemporalType(const QString& name)
{
    if (StartsWithAny(name, {"timestamp", "datetime"}))
        return ftDateTime;
    if (name.startsWith(QLatin1String("date")))
        return ftDate;
    return ftTime;
}

} // namespace

TFieldType FieldTypeFromDeclared(const QString& declared)
{
    QString arguments;
    const QString name = BaseTypeName(declared, arguments);
    // "interval" would read as an integer below.
    if (name.isEmpty() || name.startsWith(QLatin1String("interval")))
        return ftUnknown;
    if (name.contains(QLatin1String("serial")) || name.contains(QLatin1String("identity")) ||
        name.contains(QLatin1String("auto_increment")) ||
        name.contains(QLatin1String("autoincrement")))
        return ftAutoInc;
    if (StartsWithAny(name, {"bool"}))
        return ftBoolean;
    if (StartsWithAny(name, {"tinyint", "smallint", "mediumint", "bigint", "integer", "int"}))
        return IntegerType(name, arguments);
    if (StartsWithAny(name, {"numeric", "decimal", "dec", "number"}))
        return ftBCD;
    if (StartsWithAny(name, {"money", "smallmoney"}))
        return ftCurrency;
    if (StartsWithAny(name, {"double", "float", "real"}))
        return ftFloat;
    if (StartsWithAny(name, {"timestamp", "datetime", "date", "time"}))
        return TemporalType(name);
    if (StartsWithAny(name, {"blob sub_type text", "blob sub_type 1", "text", "tinytext",
                             "mediumtext", "longtext", "clob", "memo"}))
        return ftMemo;
    if (StartsWithAny(name, {"blob", "bytea", "tinyblob", "mediumblob", "longblob", "binary",
                             "varbinary", "image"}))
        return ftBlob;
    if (StartsWithAny(name, {"uuid", "uniqueidentifier"}))
        return ftGuid;
    if (StartsWithAny(name, {"char", "character", "varchar", "nvarchar", "nchar", "bpchar",
                             "varchar2", "national", "string"}))
        return CharacterType(name);
    return ftUnknown;
}

TFieldType FieldTypeFromMetaType(QMetaType type)
{
    switch (type.id()) {
    case QMetaType::Bool:
        return ftBoolean;
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
        return ftSmallint;
    case QMetaType::Int:
    case QMetaType::UInt:
        return ftInteger;
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return ftLargeint;
    case QMetaType::Float:
    case QMetaType::Double:
        return ftFloat;
    case QMetaType::QDate:
        return ftDate;
    case QMetaType::QTime:
        return ftTime;
    case QMetaType::QDateTime:
        return ftDateTime;
    case QMetaType::QByteArray:
        return ftBlob;
    case QMetaType::QString:
        return ftString;
    case QMetaType::QUuid:
        return ftGuid;
    default:
        return ftUnknown;
    }
}

} // namespace vd
