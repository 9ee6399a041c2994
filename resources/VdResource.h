#pragma once

// Every text the builder shows a user, in one place and translated through
// QCoreApplication::translate under the one context "VdResource", written out in each call so
// that lupdate files every text under exactly the context used at run time. The English texts are
// the library's own wording and are compared as text in a few places (the sort order column), so a
// translation must translate them consistently.

#include "core/VdCriteria.h" // TVdCriterionFilter

#include <QCoreApplication>
#include <QString>

namespace vd {

class VdResource
{
public:
    // The four pages of the builder
    static QString CriteriaSheet();
    static QString SelectionSheet();
    static QString GroupingCriteriaSheet();
    static QString SortingSheet();

    // Message box captions
    static QString ConfirmationCaption();
    static QString AttentionCaption();
    static QString ErrorCaption();
    // Shown for a failure that carries no text of its own
    static QString UnknownError();

    // Selection page
    static QString OutputFieldNameHeader();
    static QString AggregateHeader();
    static QString SourceFieldNameHeader();
    static QString DeleteCurrentRowItem();
    static QString SelectUniqueRecordsBox();
    static QString DeleteCurrentRowQuestion();
    static QString CantDeleteLastRow();
    static QString InvalidSelectGridParent();
    static QString InvalidOrderPanelParent();
    // The grouping kept beyond the output fields, under the grid
    static QString KeptGroupingLabel();
    static QString RemoveKeptGroupingButton();
    static QString RemoveKeptGroupingHint();
    static QString KeptGroupingPositionHint();

    // Sorting page; Ascending and Descending are also compared as the sort-order column's text
    static QString OutputFieldsLabel();
    static QString SortedFieldsColumn();
    static QString SortOrderColumn();
    static QString AToZButton();
    static QString ZToAButton();
    static QString UpButton();
    static QString DownButton();
    static QString Ascending();
    static QString Descending();
    // Hints of the sorting page's buttons
    static QString AddSortHint();
    static QString AddAllSortHint();
    static QString RemoveSortHint();
    static QString RemoveAllSortHint();
    static QString DirectionHint();
    static QString MoveUpHint();
    static QString MoveDownHint();

    // Work area
    static QString InvalidWorkAreaParent();
    static QString TableWithAlias();
    static QString AlreadyExist();

    // Table objects
    static QString InvalidTableParent();
    static QString CollapseExpandTableHint();
    static QString UnlinkTableHint();
    static QString CloseTableHint();
    static QString UnselectAllFieldsHint();
    static QString SelectAllFieldsHint();
    static QString EditAliasHint();
    static QString DeleteTableItem();
    static QString RenameTableItem();

    // Data type names a table object shows beside its fields
    static QString DataFloat();
    static QString DataInteger();
    static QString DataString();
    static QString DataBoolean();
    static QString DataBCD();
    static QString DataDate();
    static QString DataTime();
    static QString DataDateTime();
    static QString DataBytes();
    static QString DataVarBytes();
    static QString DataBlob();
    static QString DataGraphic();
    static QString DataParadoxOle();
    static QString DataDBaseOle();
    static QString DataTypedBinary();
    static QString DataCursor();
    static QString DataADT();
    static QString DataArray();
    static QString DataReference();
    static QString DataDataSet();
    static QString DataOraBlob();
    static QString DataOraClob();
    static QString DataVariant();
    static QString DataInterface();
    static QString DataIDispatch();
    static QString DataGuid();

    // Links
    static QString InvalidTableInLink();
    static QString DeletePointItem();
    static QString InsertPointItem();
    static QString DeleteLinkItem();
    static QString PropertyItem();
    static QString DeleteLinkQuestion();
    static QString And();
    static QString InvalidIndex();

    // Link properties dialog
    static QString LinkPropertiesCaption();
    static QString OkButton();
    static QString CancelButton();
    static QString IncludeAllFrom();
    static QString InvalidLink();
    static QString JoinTables();

    // Criteria panels
    static QString FilterAll();
    static QString FilterAny();
    static QString FilterNone();
    static QString FilterNotAll();
    static QString OfFollowingAreMet();
    static QString AddConditionItem();
    static QString MakeComposeConditionItem();
    static QString DeleteConditionItem();
    static QString ExpandConditionItem();
    static QString CollapseConditionItem();
    static QString InsertFieldItem();
    static QString InsertFieldHint();
    static QString InvalidConditionsPanelParent();
    static QString NoActiveButton();
    static QString ConditionAlreadyComposed();
    static QString CantDeleteFirstRow();
    static QString CantExpandCollapseSimple();
    static QString CantCollapseFirst();
    static QString DeleteConditionQuestion();
    static QString TypeMismatch();

    // Dialect option panels
    static QString FirstLabel();
    static QString SkipLabel();
    static QString RowsLabel();
    static QString ToLabel();
    static QString ByLabel();
    static QString PercentBox();
    static QString WithTiesBox();

    // Composed messages. The parts stay separate resources so a translation can reorder them
    // only as far as the original composition allows.

    // "Table with alias" + " " + alias + " " + "already exist"
    static QString TableAliasExists(const QString& alias);
    // "Invalid table %s in Link control" with the table's name
    static QString InvalidTableInLink(const QString& tableName);
    // "Invalid index = %d " with the index
    static QString InvalidIndex(int index);
    // The delete-link question: its first text, CR LF, first table, " and ", second table
    static QString DeleteLinkQuestion(const QString& firstTable, const QString& secondTable);
    // "join tables: " + first table + " and " + second table
    static QString JoinTables(const QString& firstTable, const QString& secondTable);
    // "Include all from" + " " + table
    static QString IncludeAllFrom(const QString& tableName);
    // The filter's text as the criteria panels show it; empty for an unknown value
    static QString FilterText(TVdCriterionFilter filter);
};

} // namespace vd
