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

QString VdResource::CriteriaSheet() { return tr("Criteria"); }

QString VdResource::SelectionSheet() { return tr("Selection"); }

QString VdResource::GroupingCriteriaSheet() { return tr("Grouping criteria"); }

QString VdResource::SortingSheet() { return tr("Sorting"); }

QString VdResource::ConfirmationCaption() { return tr("Confirmation"); }

QString VdResource::AttentionCaption() { return tr("Attention!"); }

QString VdResource::ErrorCaption() { return tr("Error!"); }

QString VdResource::UnknownError() { return tr("Unknown error"); }

QString VdResource::OutputFieldNameHeader() { return tr("Name of output field"); }

QString VdResource::AggregateHeader() { return tr("Aggregate"); }

QString VdResource::SourceFieldNameHeader() { return tr("Source field name"); }

QString VdResource::DeleteCurrentRowItem() { return tr("Delete current row"); }

QString VdResource::SelectUniqueRecordsBox() { return tr("Select only unique records"); }

QString VdResource::DeleteCurrentRowQuestion()
{
    return tr("Are you sure you want to delete current row?");
}

QString VdResource::CantDeleteLastRow() { return tr("Can't delete last row!"); }

QString VdResource::InvalidSelectGridParent() { return tr("Invalid parent for SelectGrid"); }

QString VdResource::InvalidOrderPanelParent() { return tr("Invalid parent for OrderPanel"); }

QString VdResource::OutputFieldsLabel() { return tr("Output fields"); }

QString VdResource::SortedFieldsColumn() { return tr("Sorted fields"); }

QString VdResource::SortOrderColumn() { return tr("Sort order"); }

QString VdResource::AToZButton() { return tr("A..Z"); }

QString VdResource::ZToAButton() { return tr("Z..A"); }

QString VdResource::UpButton() { return tr("Up"); }

QString VdResource::DownButton() { return tr("Down"); }

QString VdResource::Ascending() { return tr("Ascending"); }

QString VdResource::Descending() { return tr("Descending"); }

QString VdResource::InvalidWorkAreaParent()
{
    return tr("Given parent is not valid for WorkArea!");
}

QString VdResource::TableWithAlias() { return tr("Table with alias"); }

QString VdResource::AlreadyExist() { return tr("already exist"); }

QString VdResource::InvalidTableParent() { return tr("Invalid parent for table object!"); }

QString VdResource::CollapseExpandTableHint() { return tr("Collapse/Expand table"); }

QString VdResource::UnlinkTableHint() { return tr("Unlink table"); }

QString VdResource::CloseTableHint() { return tr("Close table"); }

QString VdResource::UnselectAllFieldsHint() { return tr("Unselect all fields"); }

QString VdResource::SelectAllFieldsHint() { return tr("Select all fields"); }

QString VdResource::EditAliasHint() { return tr("Double click for edit alias"); }

QString VdResource::DeleteTableItem() { return tr("Delete table"); }

QString VdResource::RenameTableItem() { return tr("Rename table"); }

QString VdResource::DataFloat() { return tr("Float"); }

QString VdResource::DataInteger() { return tr("Integer"); }

QString VdResource::DataString() { return tr("String"); }

QString VdResource::DataBoolean() { return tr("Boolean"); }

QString VdResource::DataBCD() { return tr("BCD"); }

QString VdResource::DataDate() { return tr("Date"); }

QString VdResource::DataTime() { return tr("Time"); }

QString VdResource::DataDateTime() { return tr("DateTime"); }

QString VdResource::DataBytes() { return tr("Bytes"); }

QString VdResource::DataVarBytes() { return tr("VarBytes"); }

QString VdResource::DataBlob() { return tr("Blob"); }

QString VdResource::DataGraphic() { return tr("Graphic"); }

QString VdResource::DataParadoxOle() { return tr("ParadoxOle"); }

QString VdResource::DataDBaseOle() { return tr("DBaseOle"); }

QString VdResource::DataTypedBinary() { return tr("Typed binary"); }

QString VdResource::DataCursor() { return tr("Cursor"); }

QString VdResource::DataADT() { return tr("ADT"); }

QString VdResource::DataArray() { return tr("Array"); }

QString VdResource::DataReference() { return tr("Reference"); }

QString VdResource::DataDataSet() { return tr("Data set"); }

QString VdResource::DataOraBlob() { return tr("Ora blob"); }

QString VdResource::DataOraClob() { return tr("Ora clob"); }

QString VdResource::DataVariant() { return tr("Variant"); }

QString VdResource::DataInterface() { return tr("Interface"); }

QString VdResource::DataIDispatch() { return tr("IDispatch"); }

QString VdResource::DataGuid() { return tr("Guid"); }

QString VdResource::InvalidTableInLink() { return tr("Invalid table %s in Link control"); }

QString VdResource::DeletePointItem() { return tr("Delete point"); }

QString VdResource::InsertPointItem() { return tr("Insert point"); }

QString VdResource::DeleteLinkItem() { return tr("Delete link"); }

QString VdResource::PropertyItem() { return tr("Property"); }

QString VdResource::DeleteLinkQuestion()
{
    return tr("Do you really want to delete the link between ");
}

QString VdResource::And() { return tr("and"); }

QString VdResource::InvalidIndex() { return tr("Invalid index = %d "); }

QString VdResource::LinkPropertiesCaption() { return tr("Link properties"); }

QString VdResource::OkButton() { return tr("OK"); }

QString VdResource::CancelButton() { return tr("Cancel"); }

QString VdResource::IncludeAllFrom() { return tr("Include all from"); }

QString VdResource::InvalidLink() { return tr("Invalid link"); }

QString VdResource::JoinTables() { return tr("join tables: "); }

QString VdResource::FilterAll() { return tr("All"); }

QString VdResource::FilterAny() { return tr("Any"); }

QString VdResource::FilterNone() { return tr("None"); }

QString VdResource::FilterNotAll() { return tr("Not all"); }

QString VdResource::OfFollowingAreMet() { return tr(" of following are met"); }

QString VdResource::AddConditionItem() { return tr("Add condition"); }

QString VdResource::MakeComposeConditionItem() { return tr("Make compose condition"); }

QString VdResource::DeleteConditionItem() { return tr("Delete condition"); }

QString VdResource::ExpandConditionItem() { return tr("Expand condition"); }

QString VdResource::CollapseConditionItem() { return tr("Collapse condition"); }

QString VdResource::InsertFieldItem() { return tr("Insert field"); }

QString VdResource::InsertFieldHint() { return tr("Press Shift+Enter to insert field"); }

QString VdResource::InvalidConditionsPanelParent()
{
    return tr("Invalid parent for conditions panel");
}

QString VdResource::NoActiveButton() { return tr("There is no active button"); }

QString VdResource::ConditionAlreadyComposed()
{
    return tr("Selected condition is already composed");
}

QString VdResource::CantDeleteFirstRow() { return tr("Can't delete first row"); }

QString VdResource::CantExpandCollapseSimple()
{
    return tr("Can't expand/collapse simple condition");
}

QString VdResource::CantCollapseFirst() { return tr("Can't collapse first condition"); }

QString VdResource::DeleteConditionQuestion()
{
    return tr("Are you sure you want to delete current condition(s)?");
}

QString VdResource::TypeMismatch() { return tr("Type mismatch in expression"); }

QString VdResource::FirstLabel() { return tr("First"); }

QString VdResource::SkipLabel() { return tr("Skip"); }

QString VdResource::RowsLabel() { return tr("Rows"); }

QString VdResource::ToLabel() { return tr("To"); }

QString VdResource::ByLabel() { return tr("By"); }

QString VdResource::PercentBox() { return tr("Percent"); }

QString VdResource::WithTiesBox() { return tr("With ties"); }

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
