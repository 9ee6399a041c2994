#include "resources/VdResource.h"

namespace vd {

namespace {

// The resource texts keep their C-style placeholders (%s, %d) so that a translation keeps them
// too; only the first one is replaced.
QString ReplaceFirst(QString text, const QString& placeholder, const QString& value)
{
    const qsizetype at = text.indexOf(placeholder);
    if (at >= 0)
        text.replace(at, placeholder.size(), value);
    return text;
}

} // namespace

QString VdResource::CriteriaSheet()
{
    return QCoreApplication::translate("VdResource", "Criteria");
}

QString VdResource::SelectionSheet()
{
    return QCoreApplication::translate("VdResource", "Selection");
}

QString VdResource::GroupingCriteriaSheet()
{
    return QCoreApplication::translate("VdResource", "Grouping criteria");
}

QString VdResource::SortingSheet() { return QCoreApplication::translate("VdResource", "Sorting"); }

QString VdResource::ConfirmationCaption()
{
    return QCoreApplication::translate("VdResource", "Confirmation");
}

QString VdResource::AttentionCaption()
{
    return QCoreApplication::translate("VdResource", "Attention!");
}

QString VdResource::ErrorCaption() { return QCoreApplication::translate("VdResource", "Error!"); }

QString VdResource::UnknownError()
{
    return QCoreApplication::translate("VdResource", "Unknown error");
}

QString VdResource::OutputFieldNameHeader()
{
    return QCoreApplication::translate("VdResource", "Name of output field");
}

QString VdResource::AggregateHeader()
{
    return QCoreApplication::translate("VdResource", "Aggregate");
}

QString VdResource::SourceFieldNameHeader()
{
    return QCoreApplication::translate("VdResource", "Source field name");
}

QString VdResource::DeleteCurrentRowItem()
{
    return QCoreApplication::translate("VdResource", "Delete current row");
}

QString VdResource::SelectUniqueRecordsBox()
{
    return QCoreApplication::translate("VdResource", "Select only unique records");
}

QString VdResource::DeleteCurrentRowQuestion()
{
    return QCoreApplication::translate("VdResource",
                                       "Are you sure you want to delete current row?");
}

QString VdResource::CantDeleteLastRow()
{
    return QCoreApplication::translate("VdResource", "Can't delete last row!");
}

QString VdResource::InvalidSelectGridParent()
{
    return QCoreApplication::translate("VdResource", "Invalid parent for SelectGrid");
}

QString VdResource::InvalidOrderPanelParent()
{
    return QCoreApplication::translate("VdResource", "Invalid parent for OrderPanel");
}

QString VdResource::KeptGroupingLabel()
{
    return QCoreApplication::translate("VdResource", "Also grouped by:");
}

QString VdResource::RemoveKeptGroupingButton()
{
    return QCoreApplication::translate("VdResource", "Remove");
}

QString VdResource::RemoveKeptGroupingHint()
{
    return QCoreApplication::translate("VdResource", "Stop grouping by the selected item (Delete)");
}

QString VdResource::KeptGroupingPositionHint()
{
    return QCoreApplication::translate("VdResource", "Position in the select list");
}

QString VdResource::OutputFieldsLabel()
{
    return QCoreApplication::translate("VdResource", "Output fields");
}

QString VdResource::SortedFieldsColumn()
{
    return QCoreApplication::translate("VdResource", "Sorted fields");
}

QString VdResource::SortOrderColumn()
{
    return QCoreApplication::translate("VdResource", "Sort order");
}

QString VdResource::AToZButton() { return QCoreApplication::translate("VdResource", "A..Z"); }

QString VdResource::ZToAButton() { return QCoreApplication::translate("VdResource", "Z..A"); }

QString VdResource::UpButton() { return QCoreApplication::translate("VdResource", "Up"); }

QString VdResource::DownButton() { return QCoreApplication::translate("VdResource", "Down"); }

QString VdResource::Ascending() { return QCoreApplication::translate("VdResource", "Ascending"); }

QString VdResource::Descending() { return QCoreApplication::translate("VdResource", "Descending"); }

QString VdResource::AddSortHint()
{
    return QCoreApplication::translate("VdResource", "Sort by the selected field (Enter)");
}

QString VdResource::AddAllSortHint()
{
    return QCoreApplication::translate("VdResource", "Sort by all fields");
}

QString VdResource::RemoveSortHint()
{
    return QCoreApplication::translate("VdResource", "Stop sorting by the selected field (Delete)");
}

QString VdResource::RemoveAllSortHint()
{
    return QCoreApplication::translate("VdResource", "Stop sorting by any field");
}

QString VdResource::DirectionHint()
{
    return QCoreApplication::translate("VdResource", "Reverse the sort order (Space)");
}

QString VdResource::MoveUpHint()
{
    return QCoreApplication::translate("VdResource", "Sort by this field earlier (Ctrl+Up)");
}

QString VdResource::MoveDownHint()
{
    return QCoreApplication::translate("VdResource", "Sort by this field later (Ctrl+Down)");
}

QString VdResource::InvalidWorkAreaParent()
{
    return QCoreApplication::translate("VdResource", "Given parent is not valid for WorkArea!");
}

QString VdResource::TableWithAlias()
{
    return QCoreApplication::translate("VdResource", "Table with alias");
}

QString VdResource::AlreadyExist()
{
    return QCoreApplication::translate("VdResource", "already exist");
}

QString VdResource::InvalidTableParent()
{
    return QCoreApplication::translate("VdResource", "Invalid parent for table object!");
}

QString VdResource::CollapseExpandTableHint()
{
    return QCoreApplication::translate("VdResource", "Collapse/Expand table");
}

QString VdResource::UnlinkTableHint()
{
    return QCoreApplication::translate("VdResource", "Unlink table");
}

QString VdResource::CloseTableHint()
{
    return QCoreApplication::translate("VdResource", "Close table");
}

QString VdResource::UnselectAllFieldsHint()
{
    return QCoreApplication::translate("VdResource", "Unselect all fields");
}

QString VdResource::SelectAllFieldsHint()
{
    return QCoreApplication::translate("VdResource", "Select all fields");
}

QString VdResource::EditAliasHint()
{
    return QCoreApplication::translate("VdResource", "Double click for edit alias");
}

QString VdResource::DeleteTableItem()
{
    return QCoreApplication::translate("VdResource", "Delete table");
}

QString VdResource::RenameTableItem()
{
    return QCoreApplication::translate("VdResource", "Rename table");
}

QString VdResource::DataFloat() { return QCoreApplication::translate("VdResource", "Float"); }

QString VdResource::DataInteger() { return QCoreApplication::translate("VdResource", "Integer"); }

QString VdResource::DataString() { return QCoreApplication::translate("VdResource", "String"); }

QString VdResource::DataBoolean() { return QCoreApplication::translate("VdResource", "Boolean"); }

QString VdResource::DataBCD() { return QCoreApplication::translate("VdResource", "BCD"); }

QString VdResource::DataDate() { return QCoreApplication::translate("VdResource", "Date"); }

QString VdResource::DataTime() { return QCoreApplication::translate("VdResource", "Time"); }

QString VdResource::DataDateTime() { return QCoreApplication::translate("VdResource", "DateTime"); }

QString VdResource::DataBytes() { return QCoreApplication::translate("VdResource", "Bytes"); }

QString VdResource::DataVarBytes() { return QCoreApplication::translate("VdResource", "VarBytes"); }

QString VdResource::DataBlob() { return QCoreApplication::translate("VdResource", "Blob"); }

QString VdResource::DataGraphic() { return QCoreApplication::translate("VdResource", "Graphic"); }

QString VdResource::DataParadoxOle()
{
    return QCoreApplication::translate("VdResource", "ParadoxOle");
}

QString VdResource::DataDBaseOle() { return QCoreApplication::translate("VdResource", "DBaseOle"); }

QString VdResource::DataTypedBinary()
{
    return QCoreApplication::translate("VdResource", "Typed binary");
}

QString VdResource::DataCursor() { return QCoreApplication::translate("VdResource", "Cursor"); }

QString VdResource::DataADT() { return QCoreApplication::translate("VdResource", "ADT"); }

QString VdResource::DataArray() { return QCoreApplication::translate("VdResource", "Array"); }

QString VdResource::DataReference()
{
    return QCoreApplication::translate("VdResource", "Reference");
}

QString VdResource::DataDataSet() { return QCoreApplication::translate("VdResource", "Data set"); }

QString VdResource::DataOraBlob() { return QCoreApplication::translate("VdResource", "Ora blob"); }

QString VdResource::DataOraClob() { return QCoreApplication::translate("VdResource", "Ora clob"); }

QString VdResource::DataVariant() { return QCoreApplication::translate("VdResource", "Variant"); }

QString VdResource::DataInterface()
{
    return QCoreApplication::translate("VdResource", "Interface");
}

QString VdResource::DataIDispatch()
{
    return QCoreApplication::translate("VdResource", "IDispatch");
}

QString VdResource::DataGuid() { return QCoreApplication::translate("VdResource", "Guid"); }

QString VdResource::InvalidTableInLink()
{
    return QCoreApplication::translate("VdResource", "Invalid table %s in Link control");
}

QString VdResource::DeletePointItem()
{
    return QCoreApplication::translate("VdResource", "Delete point");
}

QString VdResource::InsertPointItem()
{
    return QCoreApplication::translate("VdResource", "Insert point");
}

QString VdResource::DeleteLinkItem()
{
    return QCoreApplication::translate("VdResource", "Delete link");
}

QString VdResource::PropertyItem() { return QCoreApplication::translate("VdResource", "Property"); }

QString VdResource::DeleteLinkQuestion()
{
    return QCoreApplication::translate("VdResource",
                                       "Do you really want to delete the link between ");
}

QString VdResource::And() { return QCoreApplication::translate("VdResource", "and"); }

QString VdResource::InvalidIndex()
{
    return QCoreApplication::translate("VdResource", "Invalid index = %d ");
}

QString VdResource::LinkPropertiesCaption()
{
    return QCoreApplication::translate("VdResource", "Link properties");
}

QString VdResource::OkButton() { return QCoreApplication::translate("VdResource", "OK"); }

QString VdResource::CancelButton() { return QCoreApplication::translate("VdResource", "Cancel"); }

QString VdResource::IncludeAllFrom()
{
    return QCoreApplication::translate("VdResource", "Include all from");
}

QString VdResource::InvalidLink()
{
    return QCoreApplication::translate("VdResource", "Invalid link");
}

QString VdResource::JoinTables()
{
    return QCoreApplication::translate("VdResource", "join tables: ");
}

QString VdResource::FilterAll() { return QCoreApplication::translate("VdResource", "All"); }

QString VdResource::FilterAny() { return QCoreApplication::translate("VdResource", "Any"); }

QString VdResource::FilterNone() { return QCoreApplication::translate("VdResource", "None"); }

QString VdResource::FilterNotAll() { return QCoreApplication::translate("VdResource", "Not all"); }

QString VdResource::OfFollowingAreMet()
{
    return QCoreApplication::translate("VdResource", " of following are met");
}

QString VdResource::AddConditionItem()
{
    return QCoreApplication::translate("VdResource", "Add condition");
}

QString VdResource::MakeComposeConditionItem()
{
    return QCoreApplication::translate("VdResource", "Make compose condition");
}

QString VdResource::DeleteConditionItem()
{
    return QCoreApplication::translate("VdResource", "Delete condition");
}

QString VdResource::ExpandConditionItem()
{
    return QCoreApplication::translate("VdResource", "Expand condition");
}

QString VdResource::CollapseConditionItem()
{
    return QCoreApplication::translate("VdResource", "Collapse condition");
}

QString VdResource::InsertFieldItem()
{
    return QCoreApplication::translate("VdResource", "Insert field");
}

QString VdResource::InsertFieldHint()
{
    return QCoreApplication::translate("VdResource", "Press Shift+Enter to insert field");
}

QString VdResource::InvalidConditionsPanelParent()
{
    return QCoreApplication::translate("VdResource", "Invalid parent for conditions panel");
}

QString VdResource::NoActiveButton()
{
    return QCoreApplication::translate("VdResource", "There is no active button");
}

QString VdResource::ConditionAlreadyComposed()
{
    return QCoreApplication::translate("VdResource", "Selected condition is already composed");
}

QString VdResource::CantDeleteFirstRow()
{
    return QCoreApplication::translate("VdResource", "Can't delete first row");
}

QString VdResource::CantExpandCollapseSimple()
{
    return QCoreApplication::translate("VdResource", "Can't expand/collapse simple condition");
}

QString VdResource::CantCollapseFirst()
{
    return QCoreApplication::translate("VdResource", "Can't collapse first condition");
}

QString VdResource::DeleteConditionQuestion()
{
    return QCoreApplication::translate("VdResource",
                                       "Are you sure you want to delete current condition(s)?");
}

QString VdResource::TypeMismatch()
{
    return QCoreApplication::translate("VdResource", "Type mismatch in expression");
}

QString VdResource::FirstLabel() { return QCoreApplication::translate("VdResource", "First"); }

QString VdResource::SkipLabel() { return QCoreApplication::translate("VdResource", "Skip"); }

QString VdResource::RowsLabel() { return QCoreApplication::translate("VdResource", "Rows"); }

QString VdResource::ToLabel() { return QCoreApplication::translate("VdResource", "To"); }

QString VdResource::ByLabel() { return QCoreApplication::translate("VdResource", "By"); }

QString VdResource::PercentBox() { return QCoreApplication::translate("VdResource", "Percent"); }

QString VdResource::WithTiesBox() { return QCoreApplication::translate("VdResource", "With ties"); }

QString VdResource::TableAliasExists(const QString& alias)
{
    return TableWithAlias() + QLatin1Char(' ') + alias + QLatin1Char(' ') + AlreadyExist();
}

QString VdResource::InvalidTableInLink(const QString& tableName)
{
    return ReplaceFirst(InvalidTableInLink(), QStringLiteral("%s"), tableName);
}

QString VdResource::InvalidIndex(int index)
{
    return ReplaceFirst(InvalidIndex(), QStringLiteral("%d"), QString::number(index));
}

QString VdResource::DeleteLinkQuestion(const QString& firstTable, const QString& secondTable)
{
    return DeleteLinkQuestion() + QStringLiteral("\r\n") + firstTable + QLatin1Char(' ') + And() +
           QLatin1Char(' ') + secondTable;
}

QString VdResource::JoinTables(const QString& firstTable, const QString& secondTable)
{
    return JoinTables() + firstTable + QLatin1Char(' ') + And() + QLatin1Char(' ') + secondTable;
}

QString VdResource::IncludeAllFrom(const QString& tableName)
{
    return IncludeAllFrom() + QLatin1Char(' ') + tableName;
}

QString VdResource::FilterText(TVdCriterionFilter filter)
{
    switch (filter) {
    case cfAll:
        return FilterAll();
    case cfAny:
        return FilterAny();
    case cfNone:
        return FilterNone();
    case cfNotAll:
        return FilterNotAll();
    }
    return QString();
}

} // namespace vd
