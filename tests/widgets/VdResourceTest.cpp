#include "resources/VdResource.h"

#include <QCoreApplication>
#include <QTranslator>

#include <gtest/gtest.h>

using vd::VdResource;

namespace {

// Answers every lookup of one context with a marked text, so a test can see which texts really
// go through the translation system and under which context.
class TMarkingTranslator : public QTranslator
{
public:
    QString translate(const char* context, const char* sourceText, const char* = nullptr,
                      int = -1) const override
    {
        if (QByteArray(context) != "VdResource")
            return QString();
        return QStringLiteral("<") + QString::fromUtf8(sourceText) + QStringLiteral(">");
    }
    bool isEmpty() const override { return false; }
};

} // namespace

TEST(VdResourceTest, PageCaptions)
{
    EXPECT_EQ(VdResource::CriteriaSheet(), QStringLiteral("Criteria"));
    EXPECT_EQ(VdResource::SelectionSheet(), QStringLiteral("Selection"));
    EXPECT_EQ(VdResource::GroupingCriteriaSheet(), QStringLiteral("Grouping criteria"));
    EXPECT_EQ(VdResource::SortingSheet(), QStringLiteral("Sorting"));
}

TEST(VdResourceTest, SelectionAndSortingTexts)
{
    EXPECT_EQ(VdResource::OutputFieldNameHeader(), QStringLiteral("Name of output field"));
    EXPECT_EQ(VdResource::AggregateHeader(), QStringLiteral("Aggregate"));
    EXPECT_EQ(VdResource::SourceFieldNameHeader(), QStringLiteral("Source field name"));
    EXPECT_EQ(VdResource::DeleteCurrentRowItem(), QStringLiteral("Delete current row"));
    EXPECT_EQ(VdResource::SelectUniqueRecordsBox(), QStringLiteral("Select only unique records"));
    EXPECT_EQ(VdResource::DeleteCurrentRowQuestion(),
              QStringLiteral("Are you sure you want to delete current row?"));
    EXPECT_EQ(VdResource::CantDeleteLastRow(), QStringLiteral("Can't delete last row!"));
    EXPECT_EQ(VdResource::InvalidSelectGridParent(),
              QStringLiteral("Invalid parent for SelectGrid"));
    EXPECT_EQ(VdResource::InvalidOrderPanelParent(),
              QStringLiteral("Invalid parent for OrderPanel"));
    EXPECT_EQ(VdResource::OutputFieldsLabel(), QStringLiteral("Output fields"));
    EXPECT_EQ(VdResource::SortedFieldsColumn(), QStringLiteral("Sorted fields"));
    EXPECT_EQ(VdResource::SortOrderColumn(), QStringLiteral("Sort order"));
    EXPECT_EQ(VdResource::AToZButton(), QStringLiteral("A..Z"));
    EXPECT_EQ(VdResource::ZToAButton(), QStringLiteral("Z..A"));
    EXPECT_EQ(VdResource::UpButton(), QStringLiteral("Up"));
    EXPECT_EQ(VdResource::DownButton(), QStringLiteral("Down"));
    EXPECT_EQ(VdResource::Ascending(), QStringLiteral("Ascending"));
    EXPECT_EQ(VdResource::Descending(), QStringLiteral("Descending"));
}

TEST(VdResourceTest, DiagramTexts)
{
    EXPECT_EQ(VdResource::InvalidWorkAreaParent(),
              QStringLiteral("Given parent is not valid for WorkArea!"));
    EXPECT_EQ(VdResource::InvalidTableParent(), QStringLiteral("Invalid parent for table object!"));
    EXPECT_EQ(VdResource::CollapseExpandTableHint(), QStringLiteral("Collapse/Expand table"));
    EXPECT_EQ(VdResource::UnlinkTableHint(), QStringLiteral("Unlink table"));
    EXPECT_EQ(VdResource::CloseTableHint(), QStringLiteral("Close table"));
    EXPECT_EQ(VdResource::UnselectAllFieldsHint(), QStringLiteral("Unselect all fields"));
    EXPECT_EQ(VdResource::SelectAllFieldsHint(), QStringLiteral("Select all fields"));
    EXPECT_EQ(VdResource::EditAliasHint(), QStringLiteral("Double click for edit alias"));
    EXPECT_EQ(VdResource::DeleteTableItem(), QStringLiteral("Delete table"));
    EXPECT_EQ(VdResource::RenameTableItem(), QStringLiteral("Rename table"));
    EXPECT_EQ(VdResource::DeletePointItem(), QStringLiteral("Delete point"));
    EXPECT_EQ(VdResource::InsertPointItem(), QStringLiteral("Insert point"));
    EXPECT_EQ(VdResource::DeleteLinkItem(), QStringLiteral("Delete link"));
    EXPECT_EQ(VdResource::PropertyItem(), QStringLiteral("Property"));
    EXPECT_EQ(VdResource::AttentionCaption(), QStringLiteral("Attention!"));
    EXPECT_EQ(VdResource::LinkPropertiesCaption(), QStringLiteral("Link properties"));
    EXPECT_EQ(VdResource::OkButton(), QStringLiteral("OK"));
    EXPECT_EQ(VdResource::CancelButton(), QStringLiteral("Cancel"));
    EXPECT_EQ(VdResource::InvalidLink(), QStringLiteral("Invalid link"));
    EXPECT_EQ(VdResource::DataTypedBinary(), QStringLiteral("Typed binary"));
    EXPECT_EQ(VdResource::DataDataSet(), QStringLiteral("Data set"));
    EXPECT_EQ(VdResource::DataOraClob(), QStringLiteral("Ora clob"));
}

TEST(VdResourceTest, ComposedDiagramMessages)
{
    EXPECT_EQ(VdResource::TableAliasExists(QStringLiteral("C")),
              QStringLiteral("Table with alias C already exist"));
    EXPECT_EQ(VdResource::InvalidTableInLink(QStringLiteral("ORDERS")),
              QStringLiteral("Invalid table ORDERS in Link control"));
    EXPECT_EQ(VdResource::InvalidIndex(7), QStringLiteral("Invalid index = 7 "));
    EXPECT_EQ(VdResource::InvalidIndex(-1), QStringLiteral("Invalid index = -1 "));
    EXPECT_EQ(VdResource::DeleteLinkQuestion(QStringLiteral("A"), QStringLiteral("B")),
              QStringLiteral("Do you really want to delete the link between \r\nA and B"));
    EXPECT_EQ(VdResource::JoinTables(QStringLiteral("A"), QStringLiteral("B")),
              QStringLiteral("join tables: A and B"));
    EXPECT_EQ(VdResource::IncludeAllFrom(QStringLiteral("CUSTOMER")),
              QStringLiteral("Include all from CUSTOMER"));
}

TEST(VdResourceTest, PlaceholderInsideValueIsNotReplacedAgain)
{
    EXPECT_EQ(VdResource::InvalidTableInLink(QStringLiteral("%s")),
              QStringLiteral("Invalid table %s in Link control"));
}

TEST(VdResourceTest, CriteriaTexts)
{
    EXPECT_EQ(VdResource::FilterText(vd::cfAll), QStringLiteral("All"));
    EXPECT_EQ(VdResource::FilterText(vd::cfAny), QStringLiteral("Any"));
    EXPECT_EQ(VdResource::FilterText(vd::cfNone), QStringLiteral("None"));
    EXPECT_EQ(VdResource::FilterText(vd::cfNotAll), QStringLiteral("Not all"));
    EXPECT_EQ(VdResource::FilterText(vd::TVdCriterionFilter(9)), QString());
    EXPECT_EQ(VdResource::OfFollowingAreMet(), QStringLiteral(" of following are met"));
    EXPECT_EQ(VdResource::AddConditionItem(), QStringLiteral("Add condition"));
    EXPECT_EQ(VdResource::MakeComposeConditionItem(), QStringLiteral("Make compose condition"));
    EXPECT_EQ(VdResource::DeleteConditionItem(), QStringLiteral("Delete condition"));
    EXPECT_EQ(VdResource::ExpandConditionItem(), QStringLiteral("Expand condition"));
    EXPECT_EQ(VdResource::CollapseConditionItem(), QStringLiteral("Collapse condition"));
    EXPECT_EQ(VdResource::InsertFieldItem(), QStringLiteral("Insert field"));
    EXPECT_EQ(VdResource::InsertFieldHint(), QStringLiteral("Press Shift+Enter to insert field"));
    EXPECT_EQ(VdResource::InvalidConditionsPanelParent(),
              QStringLiteral("Invalid parent for conditions panel"));
    EXPECT_EQ(VdResource::NoActiveButton(), QStringLiteral("There is no active button"));
    EXPECT_EQ(VdResource::ConditionAlreadyComposed(),
              QStringLiteral("Selected condition is already composed"));
    EXPECT_EQ(VdResource::CantDeleteFirstRow(), QStringLiteral("Can't delete first row"));
    EXPECT_EQ(VdResource::CantExpandCollapseSimple(),
              QStringLiteral("Can't expand/collapse simple condition"));
    EXPECT_EQ(VdResource::CantCollapseFirst(), QStringLiteral("Can't collapse first condition"));
    EXPECT_EQ(VdResource::DeleteConditionQuestion(),
              QStringLiteral("Are you sure you want to delete current condition(s)?"));
    EXPECT_EQ(VdResource::ConfirmationCaption(), QStringLiteral("Confirmation"));
    EXPECT_EQ(VdResource::TypeMismatch(), QStringLiteral("Type mismatch in expression"));
    EXPECT_EQ(VdResource::ErrorCaption(), QStringLiteral("Error!"));
}

TEST(VdResourceTest, OptionPanelLabels)
{
    EXPECT_EQ(VdResource::FirstLabel(), QStringLiteral("First"));
    EXPECT_EQ(VdResource::SkipLabel(), QStringLiteral("Skip"));
}

TEST(VdResourceTest, TextsGoThroughOneTranslationContext)
{
    TMarkingTranslator translator;
    ASSERT_TRUE(QCoreApplication::installTranslator(&translator));
    const QString sheet = VdResource::SortingSheet();
    const QString composed = VdResource::TableAliasExists(QStringLiteral("C"));
    const QString formatted = VdResource::InvalidIndex(3);
    QCoreApplication::removeTranslator(&translator);

    EXPECT_EQ(sheet, QStringLiteral("<Sorting>"));
    EXPECT_EQ(composed, QStringLiteral("<Table with alias> C <already exist>"));
    EXPECT_EQ(formatted, QStringLiteral("<Invalid index = 3 >"));
    EXPECT_EQ(VdResource::SortingSheet(), QStringLiteral("Sorting"));
}
