#include "builder/VdSqlCatalog.h"

#include "builder/VdSqlFieldTypes.h"

#include <QSqlDatabase>
#include <QSqlField>
#include <QSqlRecord>

namespace vd {

namespace {

// "name", `name` and [name] stand for name.
QString Unquoted(const QString& name)
{
    if (name.size() < 2)
        return name;
    const QChar first = name.front();
    const QChar last = name.back();
    if ((first == QLatin1Char('"') && last == QLatin1Char('"')) ||
        (first == QLatin1Char('`') && last == QLatin1Char('`')) ||
        (first == QLatin1Char('[') && last == QLatin1Char(']'))) {
        QString inner = name.mid(1, name.size() - 2);
        if (first != QLatin1Char('['))
            inner.replace(QString(2, first), QString(first));
        return inner;
    }
    return name;
}

QString FindIn(const QStringList& names, const QString& name, Qt::CaseSensitivity cs)
{
    for (const QString& candidate : names)
        if (candidate.compare(name, cs) == 0)
            return candidate;
    return QString();
}

const TVdDeclaredColumn* FindColumn(const QList<TVdDeclaredColumn>& columns, const QString& name)
{
    for (const TVdDeclaredColumn& column : columns)
        if (column.Name == name)
            return &column;
    for (const TVdDeclaredColumn& column : columns)
        if (column.Name.compare(name, Qt::CaseInsensitive) == 0)
            return &column;
    return nullptr;
}

TFieldType TypeOf(const QString& declared, QMetaType fallback)
{
    const TFieldType type = FieldTypeFromDeclared(declared);
    return type != ftUnknown ? type : FieldTypeFromMetaType(fallback);
}

// Characters of a character column: the catalogue's count, else the driver's (some drivers
// give bytes); 0 for every other type.
int CharacterLength(TFieldType type, const TVdDeclaredColumn* column, const QSqlField& field)
{
    if (type != ftString && type != ftFixedChar && type != ftWideString)
        return 0;
    if (column && column->Length > 0)
        return column->Length;
    return field.length() > 0 ? field.length() : 0;
}

} // namespace

TVdSqlCatalog::TVdSqlCatalog(const QSqlDatabase& db)
    : FConnection(db.connectionName()), FQueries(db)
{
    ReadLists();
}

TVdSqlCatalog::~TVdSqlCatalog() = default;

QSqlDatabase TVdSqlCatalog::Database() const { return QSqlDatabase::database(FConnection, false); }

void TVdSqlCatalog::ReadLists()
{
    const QSqlDatabase db = Database();
    FTables = db.tables(QSql::Tables);
    // SQLite lists its own bookkeeping (sqlite_sequence) among the user's tables.
    if (Engine() == TVdSqlEngine::SQLite)
        FTables.removeIf([](const QString& name) {
            return name.startsWith(QLatin1String("sqlite_"), Qt::CaseInsensitive);
        });
    FViews = db.tables(QSql::Views);
    FProcedures = FQueries.SelectableProcedures();
    FError = FQueries.LastError();
}

void TVdSqlCatalog::Refresh()
{
    ReadLists();
    for (auto& [name, entry] : FEntries) {
        TVdCatalogKind kind = TVdCatalogKind::ckNone;
        Resolve(name, &kind);
        Fill(name, kind, *entry);
    }
}

QString TVdSqlCatalog::Resolve(const QString& name, TVdCatalogKind* kind) const
{
    const QString unquoted = Unquoted(name);
    const struct {
        const QStringList& Names;
        TVdCatalogKind Kind;
    } lists[] = {{FTables, TVdCatalogKind::ckTable},
                 {FViews, TVdCatalogKind::ckView},
                 {FProcedures, TVdCatalogKind::ckProcedure}};
    for (const QString& wanted : {name, unquoted})
        for (const auto& list : lists)
            if (const QString found = FindIn(list.Names, wanted, Qt::CaseSensitive);
                !found.isEmpty()) {
                if (kind)
                    *kind = list.Kind;
                return found;
            }
    for (const auto& list : lists)
        if (const QString found = FindIn(list.Names, unquoted, Qt::CaseInsensitive);
            !found.isEmpty()) {
            if (kind)
                *kind = list.Kind;
            return found;
        }
    if (kind)
        *kind = TVdCatalogKind::ckNone;
    return QString();
}

TVdSqlCatalog::TEntry* TVdSqlCatalog::Entry(const QString& name)
{
    TVdCatalogKind kind = TVdCatalogKind::ckNone;
    const QString resolved = Resolve(name, &kind);
    if (kind == TVdCatalogKind::ckNone)
        return nullptr;
    auto found = FEntries.find(resolved);
    if (found != FEntries.end())
        return found->second.get();
    auto entry = std::make_unique<TEntry>();
    entry->DataSet = std::make_unique<TDataSet>(resolved);
    if (kind == TVdCatalogKind::ckProcedure)
        entry->Params = std::make_unique<TParams>();
    Fill(resolved, kind, *entry);
    return FEntries.emplace(resolved, std::move(entry)).first->second.get();
}

void TVdSqlCatalog::Fill(const QString& name, TVdCatalogKind kind, TEntry& entry)
{
    entry.DataSet->ClearFields();
    if (entry.Params)
        entry.Params->Clear();
    if (kind == TVdCatalogKind::ckProcedure && entry.Params)
        FillProcedure(name, *entry.DataSet, *entry.Params);
    else if (kind != TVdCatalogKind::ckNone)
        FillRelation(name, *entry.DataSet);
}

void TVdSqlCatalog::FillRelation(const QString& name, TDataSet& dataSet)
{
    // The driver's record gives the fields and their order; the catalogue's declared types
    // tell CHAR from VARCHAR, TEXT from BLOB, NUMERIC from DOUBLE and dates in SQLite,
    // which the driver's value types do not.
    const QSqlRecord record = Database().record(name);
    const QList<TVdDeclaredColumn> declared = FQueries.DeclaredColumns(name);
    FError = FQueries.LastError();
    for (int i = 0; i < record.count(); ++i) {
        const QSqlField field = record.field(i);
        const TVdDeclaredColumn* column = FindColumn(declared, field.name());
        const TFieldType type = TypeOf(column ? column->Declared : QString(), field.metaType());
        dataSet.AddField(field.name(), type, CharacterLength(type, column, field),
                         field.requiredStatus() == QSqlField::Required);
    }
}

void TVdSqlCatalog::FillProcedure(const QString& name, TDataSet& dataSet, TParams& params)
{
    const QList<TVdProcColumn> columns = FQueries.ProcedureColumns(name);
    FError = FQueries.LastError();
    for (const TVdProcColumn& column : columns) {
        const TFieldType type = TypeOf(column.Declared, QMetaType());
        if (column.Direction == ptOutput)
            dataSet.AddField(column.Name, type);
        else
            params.Add(TParam(column.Name, column.Direction, type));
    }
}

QList<TVdForeignKey> TVdSqlCatalog::ForeignKeys(const QString& table)
{
    TVdCatalogKind kind = TVdCatalogKind::ckNone;
    const QString resolved = Resolve(table, &kind);
    if (kind != TVdCatalogKind::ckTable)
        return {};
    QList<TVdForeignKey> keys = FQueries.ForeignKeys(resolved);
    FError = FQueries.LastError();
    return keys;
}

TDataSet* TVdSqlCatalog::DataSet(const QString& name)
{
    TEntry* entry = Entry(name);
    return entry ? entry->DataSet.get() : nullptr;
}

TParams* TVdSqlCatalog::Params(const QString& name)
{
    TEntry* entry = Entry(name);
    return entry ? entry->Params.get() : nullptr;
}

void TVdSqlCatalog::GetTableFields(const QString& NameOfTable, TDataSet*& ADataSet,
                                   TParams*& AParams)
{
    TEntry* entry = Entry(NameOfTable);
    ADataSet = entry ? entry->DataSet.get() : nullptr;
    AParams = entry ? entry->Params.get() : nullptr;
}

TVdSqlCatalog::TGetTableFields TVdSqlCatalog::Handler()
{
    return [this](const QString& name, TDataSet*& dataSet, TParams*& params) {
        GetTableFields(name, dataSet, params);
    };
}

} // namespace vd
