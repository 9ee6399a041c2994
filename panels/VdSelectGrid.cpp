#include "panels/VdSelectGrid.h"

#include "builder/VdQtText.h"
#include "core/VdFieldDef.h"
#include "core/VdSelectParser.h"
#include "resources/VdResource.h"

#include <QHeaderView>

namespace vd {

TVdSelectGrid::TVdSelectGrid(QWidget* parent) : QTableWidget(1, 3, parent)
{
    setHorizontalHeaderLabels({VdResource::OutputFieldNameHeader(), VdResource::AggregateHeader(),
                               VdResource::SourceFieldNameHeader()});
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(20);
    horizontalHeader()->setStretchLastSection(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    Clear();
}

void TVdSelectGrid::SetCell(int row, int column, const QString& text)
{
    QTableWidgetItem* cell = item(row, column);
    if (!cell) {
        cell = new QTableWidgetItem;
        setItem(row, column, cell);
    }
    cell->setText(text);
}

QString TVdSelectGrid::CellText(int row, int column) const
{
    const QTableWidgetItem* cell = item(row, column);
    return cell ? cell->text() : QString();
}

void TVdSelectGrid::Clear()
{
    setRowCount(1);
    for (int column = 0; column < 3; ++column)
        SetCell(0, column, QString());
}

void TVdSelectGrid::CheckField(const TVdFieldDef& field)
{
    if (field.IsInputParam())
        return;
    const QString table = ToQString(field.GetTableAlias());
    QString aggregate;
    QString source;
    const TVdSelectParser* parser = field.Parser();
    const bool aggregated = field.Kind() == fkFunction && field.ArgumentCount() == 1 &&
                            field.Argument(0)->Kind() == fkIdentifier && parser &&
                            parser->Aggregates().Contains(field.Name());
    if (field.Kind() == fkIdentifier) {
        source = table + QLatin1Char('.') + ToQString(field.Name());
    } else if (aggregated) {
        aggregate = ToQString(field.Name());
        source = table + QLatin1Char('.') + ToQString(field.Argument(0)->Name());
    } else {
        source = ToQString(field.GetScript());
    }
    // The blank new row stays last.
    const int row = rowCount() - 1;
    insertRow(row);
    SetCell(row, 0, ToQString(field.Alias()));
    SetCell(row, 1, aggregate);
    SetCell(row, 2, source);
}

void TVdSelectGrid::ChangeAlias(const QString& newAlias, const QString& oldAlias)
{
    if (newAlias == oldAlias)
        return;
    const QString from = oldAlias + QLatin1Char('.');
    const QString to = newAlias + QLatin1Char('.');
    for (int row = 0; row < rowCount(); ++row) {
        QString text = CellText(row, 2);
        const QString before = text;
        // Search again from the start after each replacement.
        for (qsizetype at = text.indexOf(from); at >= 0; at = text.indexOf(from))
            text.replace(at, from.size(), to);
        if (text != before)
            SetCell(row, 2, text);
    }
    viewport()->update();
}

QString TVdSelectGrid::GetFieldAlias(const QString& sourceFieldName) const
{
    for (int row = 0; row < DataRowCount(); ++row)
        if (CellText(row, 2) == sourceFieldName)
            return CellText(row, 0);
    return QString();
}

int TVdSelectGrid::CurrentDataRow() const
{
    const int row = currentRow();
    return row >= 0 ? row : rowCount() - 1;
}

void TVdSelectGrid::SetCurrentAliasCell(const QString& text) { SetCell(CurrentDataRow(), 0, text); }

} // namespace vd
