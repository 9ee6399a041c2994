#include "panels/VdSelectGrid.h"

#include "builder/VdAliasText.h"
#include "builder/VdQtText.h"
#include "core/VdError.h"
#include "core/VdFieldDef.h"
#include "core/VdSelectParser.h"
#include "panels/VdSelectPanel.h"
#include "resources/VdResource.h"

#include <QHeaderView>
#include <QResizeEvent>

#include <cmath>

namespace vd {

namespace {

// The first identifier of an expression, the node itself first, then its arguments in order.
const TVdFunctionDef* FirstIdentifier(const TVdFunctionDef& node)
{
    if (node.Kind() == fkIdentifier)
        return &node;
    for (int i = 0; i < node.ArgumentCount(); ++i)
        if (const TVdFunctionDef* found = FirstIdentifier(*node.Argument(i)))
            return found;
    return nullptr;
}

} // namespace

TVdSelectGrid::TVdSelectGrid(QWidget* parent) : QTableWidget(1, 3, parent)
{
    if (!parent)
        throw EVdError(ToStdString(VdResource::InvalidSelectGridParent()));
    setHorizontalHeaderLabels({VdResource::OutputFieldNameHeader(), VdResource::AggregateHeader(),
                               VdResource::SourceFieldNameHeader()});
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(DefaultRowHeight);
    verticalHeader()->setMinimumSectionSize(DefaultRowHeight);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setWordWrap(false);
    setTextElideMode(Qt::ElideRight);
    setAcceptDrops(true);
    viewport()->setAcceptDrops(true);
    // Drags over the header reach the grid too, so it can refuse them there.
    horizontalHeader()->viewport()->setAcceptDrops(true);
    horizontalHeader()->viewport()->installEventFilter(this);
    setDragDropMode(QAbstractItemView::DropOnly);
    CreateEditors();
    CreatePopupMenu();
    Clear();
}

void TVdSelectGrid::SetCell(int row, int column, const QString& text)
{
    QTableWidgetItem* cell = item(row, column);
    if (!cell) {
        cell = new QTableWidgetItem;
        cell->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        setItem(row, column, cell);
    }
    cell->setText(text);
    cell->setToolTip(fontMetrics().horizontalAdvance(text) > columnWidth(column) - 6 ? text
                                                                                     : QString());
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

void TVdSelectGrid::resizeEvent(QResizeEvent* event)
{
    QTableWidget::resizeEvent(event);
    const int width = viewport()->width();
    const int name = int(std::lround(width * 0.4));
    const int aggregate = int(std::lround(width * 0.1));
    setColumnWidth(0, name);
    setColumnWidth(1, aggregate);
    setColumnWidth(2, width - name - aggregate - 2);
}

void TVdSelectGrid::CheckField(const TVdFieldDef& field)
{
    // A procedure's input parameters are its arguments, never output columns.
    if (field.IsInputParam())
        return;
    // The blank row moves down one; the row it leaves takes the field.
    const int row = LastRow();
    insertRow(row);
    for (int column = 0; column < 3; ++column)
        SetCell(row, column, QString());
    QString prefix = ToQString(field.GetTableAlias()).trimmed();
    if (!prefix.isEmpty())
        prefix += QLatin1Char('.');
    const auto* panel = qobject_cast<const TVdSelectPanel*>(parentWidget());
    const TVdSelectParser* parser = panel ? panel->Parser() : nullptr;
    QString source;
    if (field.Kind() == fkFunction && parser && parser->Aggregates().Contains(field.Name())) {
        SetCell(row, 1, ToQString(field.Name()));
        // COUNT(*) and SUM(1 + 2) name no column and show none; the whole call is the hint.
        if (const TVdFunctionDef* column = FirstIdentifier(field))
            source = prefix + ToQString(column->Name());
    } else if (field.Kind() == fkIdentifier) {
        source = prefix + ToQString(field.Name());
    } else {
        // The expression without the output name, which column 0 shows.
        source = ToQString(field.TVdFunctionDef::GetScript());
    }
    SetCell(row, 2, source);
    SetCell(row, 0, field.Alias().empty() ? source : ToQString(field.Alias()));
    if (field.Kind() == fkFunction && source.isEmpty())
        item(row, 2)->setToolTip(ToQString(field.TVdFunctionDef::GetScript()));
}

void TVdSelectGrid::UnCheckField(const TVdFieldDef& field)
{
    if (field.Kind() != fkIdentifier)
        return;
    const QString alias = ToQString(field.GetTableAlias());
    const QString key =
        (alias.isEmpty() ? QString() : alias + QLatin1Char('.')) + ToQString(field.Name());
    for (int row = LastRow() - 1; row >= 0; --row)
        if (CellText(row, 2) == key)
            removeRow(row);
}

void TVdSelectGrid::ChangeAlias(const QString& newAlias, const QString& oldAlias)
{
    if (newAlias == oldAlias)
        return;
    for (int row = 0; row < rowCount(); ++row) {
        const QString text = CellText(row, 2);
        const QString renamed = RenameQualifierInText(text, newAlias, oldAlias);
        if (renamed != text)
            SetCell(row, 2, renamed);
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

void TVdSelectGrid::SetCurrentAliasCell(const QString& text)
{
    const int row = currentRow();
    SetCell(row >= 0 ? row : LastRow(), 0, text);
}

void TVdSelectGrid::RaiseSelectEvent(const TVdSelectEvent& event, int row) const
{
    if (event)
        event(CellText(row, 2), CellText(row, 1), CellText(row, 0));
}

} // namespace vd
