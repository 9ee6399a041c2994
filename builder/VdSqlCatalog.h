#pragma once

// Database knowledge for a builder, read from a QtSql connection: the tables, views and
// procedures that FROM can name, their fields with field types, the input parameters of the
// procedures and the foreign keys between tables. Its GetTableFields answers a builder's
// OnGetTableFields question:
//
//     vd::TVdSqlCatalog catalog(QSqlDatabase::database());
//     builder->OnGetTableFields = catalog.Handler();
//
// The catalogue owns every data set and parameter list it hands out; they stay valid (and
// at the same address) as long as the catalogue lives, also across Refresh.

#include "builder/VdDataSet.h"
#include "builder/VdSqlCatalogQueries.h"
#include "builder/VdSqlEngine.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <memory>

class QSqlDatabase;

namespace vd {

enum class TVdCatalogKind : std::uint8_t { ckNone, ckTable, ckView, ckProcedure };

class TVdSqlCatalog
{
public:
    using TGetTableFields =
        std::function<void(const QString& NameOfTable, TDataSet*& ADataSet, TParams*& AParams)>;

    explicit TVdSqlCatalog(const QSqlDatabase& db);
    ~TVdSqlCatalog();
    TVdSqlCatalog(const TVdSqlCatalog&) = delete;
    TVdSqlCatalog& operator=(const TVdSqlCatalog&) = delete;

    QSqlDatabase Database() const;
    TVdSqlEngine Engine() const { return FQueries.Engine(); }

    // In the engine's letter case, sorted as the driver lists them.
    const QStringList& Tables() const { return FTables; }
    const QStringList& Views() const { return FViews; }
    const QStringList& Procedures() const { return FProcedures; }
    // The foreign keys that the table holds (pointing from it to other tables).
    QList<TVdForeignKey> ForeignKeys(const QString& table);

    // The object a name stands for: exactly, else without its identifier quotes, else
    // ignoring letter case (first match in table, view, procedure order). Empty and
    // ckNone when nothing matches.
    QString Resolve(const QString& name, TVdCatalogKind* kind = nullptr) const;

    // The fields of a table, view or procedure result; null for an unknown name.
    TDataSet* DataSet(const QString& name);
    // A procedure's parameters (inputs first, as the catalogue orders them); null for
    // anything but a procedure.
    TParams* Params(const QString& name);

    // The builder's question: ADataSet (and AParams for a procedure) set, or left null for
    // a name the database does not know.
    void GetTableFields(const QString& NameOfTable, TDataSet*& ADataSet, TParams*& AParams);
    TGetTableFields Handler();

    // Reads the object lists again and refills the data sets already handed out.
    void Refresh();
    // Why the last catalogue question failed; empty when it did not.
    const QString& LastError() const { return FError; }

private:
    struct TEntry {
        std::unique_ptr<TDataSet> DataSet;
        std::unique_ptr<TParams> Params;
    };

    void ReadLists();
    void Fill(const QString& name, TVdCatalogKind kind, TEntry& entry);
    void FillRelation(const QString& name, TDataSet& dataSet);
    void FillProcedure(const QString& name, TDataSet& dataSet, TParams& params);
    TEntry* Entry(const QString& name);

    QString FConnection;
    TVdCatalogQueries FQueries;
    QStringList FTables;
    QStringList FViews;
    QStringList FProcedures;
    std::map<QString, std::unique_ptr<TEntry>> FEntries;
    QString FError;
};

} // namespace vd
