#pragma once

// The grid of output fields: name of output field, aggregate, source field. It reports edits
// through its four events and never writes the model itself. For now its rows are filled
// from the model read-only; the in-place editors extend this class.

#include <QStringList>
#include <QTableWidget>

#include <functional>

namespace vd {

class TVdFieldDef;

using TVdSelectEvent = std::function<void(const QString& FieldValue, const QString& AggregateValue,
                                          const QString& AliasValue)>;
using TVdChangeFieldAliasEvent =
    std::function<void(const QString& FieldName, const QString& Alias, QString& NewAlias)>;

class TVdSelectGrid : public QTableWidget
{
    Q_OBJECT

public:
    explicit TVdSelectGrid(QWidget* parent = nullptr);

    // Back to the header and one blank new row.
    void Clear();
    // Appends a row for a field definition of the model.
    void CheckField(const TVdFieldDef& field);
    // Column 2 of every row: "old." becomes "new.".
    void ChangeAlias(const QString& newAlias, const QString& oldAlias);
    // Column 0 of the first data row whose column 2 is the name.
    QString GetFieldAlias(const QString& sourceFieldName) const;

    const QStringList& Aggregates() const { return FAggregates; }
    void SetAggregates(const QStringList& list) { FAggregates = list; }
    // The choices of the source field column: "alias.field" lines.
    QStringList& Fields() { return FFields; }
    const QStringList& Fields() const { return FFields; }
    void SetFields(const QStringList& list) { FFields = list; }

    // Column 0 of the current row (the data row being edited, else the last data row).
    void SetCurrentAliasCell(const QString& text);
    QString CellText(int row, int column) const;
    // Data rows, without the blank new row.
    int DataRowCount() const { return rowCount() - 1; }

    TVdSelectEvent OnSelectField;
    TVdSelectEvent OnUnselectField;
    TVdSelectEvent OnDeleteField;
    TVdChangeFieldAliasEvent OnChangeAlias;

private:
    void SetCell(int row, int column, const QString& text);
    int CurrentDataRow() const;

    QStringList FAggregates;
    QStringList FFields;
};

} // namespace vd
