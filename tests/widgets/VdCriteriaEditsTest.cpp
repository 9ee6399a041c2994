// The criteria pages used as a person would: a statement is loaded through the builder, edited
// through the editor's own entry points, and then the model, the print, its reload and the rows
// must all tell the same story.

#include "VdCriterionTestSupport.h"
#include "VdFakeHost.h"

#include "../core/ModelCheck.h"

#include "builder/VdRecordingDialogService.h"
#include "builder/VdSQLVandor.h"
#include "builder/VdTableList.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"

#include <QLineEdit>
#include <QTest>

using namespace vd;
using namespace vd::test;

namespace {

class VdCriteriaEditsTest : public ::testing::Test
{
protected:
    VdCriteriaEditsTest()
    {
        TDataSet& customer = Host.Table(QStringLiteral("CUSTOMER"));
        customer.AddField(QStringLiteral("CUSTNO"), ftInteger);
        customer.AddField(QStringLiteral("NAME"), ftString);
        TDataSet& orders = Host.Table(QStringLiteral("ORDERS"));
        orders.AddField(QStringLiteral("ORDERNO"), ftInteger);
        orders.AddField(QStringLiteral("CUSTNO"), ftInteger);
        orders.AddField(QStringLiteral("AMOUNT"), ftCurrency);
        Host.Attach(Vandor);
        Vandor.SetQuoteIdentifiers(false);
        Vandor.resize(800, 600);
    }
    TVdWherePanel& W() { return *Vandor.WherePanel(); }
    TVdHavingPanel& H() { return *Vandor.HavingPanel(); }
    std::string Sql() { return Vandor.GetSQL().toStdString(); }

    // Opens the in-place editor on the element, replaces its text (when given) and commits.
    void Edit(TVdCriterionPanel& panel, const QString& number, int place, const QString* text)
    {
        TVdCriterionRow* row = RowAt(panel, number);
        ASSERT_NE(row, nullptr) << number.toStdString();
        panel.TextClick(row->Controls(place), row->GetTopBound());
        ASSERT_TRUE(panel.Editor()->isVisibleTo(&panel));
        if (text) {
            QTest::keyClick(panel.Editor(), Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(panel.Editor(), *text);
        }
        QTest::keyClick(panel.Editor(), Qt::Key_Return);
    }

    // The model holds, the print reads back to itself, and the rows read what a reload shows.
    void ExpectConsistent()
    {
        EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
        const QString first = Vandor.GetSQL();
        const QString where = W().Text();
        const QString having = H().Text();
        Vandor.SetSQL(first);
        EXPECT_EQ(Vandor.GetSQL().toStdString(), first.toStdString());
        EXPECT_EQ(W().Text().toStdString(), where.toStdString());
        EXPECT_EQ(H().Text().toStdString(), having.toStdString());
    }

    TFakeHost Host;
    TSQLVandor Vandor;
    TVdRecordingDialogService Dialogs;
};

} // namespace

const char* const SumOverSum =
    "SELECT C.NAME, SUM(O.AMOUNT) AS TOTAL FROM CUSTOMER C, ORDERS O WHERE C.CUSTNO = O.CUSTNO "
    "GROUP BY C.NAME HAVING SUM(O.AMOUNT) > SUM(O.ORDERNO)";

const char* const SumOverSumPrint = "SELECT \r\n  C.NAME,\r\n  SUM(O.AMOUNT) AS TOTAL\r\n"
                                    "FROM\r\n  CUSTOMER C,\r\n  ORDERS O\r\n"
                                    "WHERE\r\n  (C.CUSTNO = O.CUSTNO)\r\n"
                                    "GROUP BY\r\n  C.NAME\r\n"
                                    "HAVING\r\n  (SUM(O.AMOUNT) > SUM(O.ORDERNO))\r\n";

// The second aggregate's operand is not listed, so its argument opens empty: leaving it as it
// opened must not empty the aggregate.
TEST_F(VdCriteriaEditsTest, CommittingUntouchedArgumentKeepsSecondAggregateOperand)
{
    Vandor.SetSQL(QString::fromUtf8(SumOverSum));
    ASSERT_EQ(Sql(), SumOverSumPrint);
    Edit(H(), QStringLiteral("1."), vdpFirstArgument, nullptr);
    EXPECT_EQ(Sql(), SumOverSumPrint);
    EXPECT_EQ(H().Text(), QStringLiteral("1. SUM O.AMOUNT > SUM"));
    ExpectConsistent();
    // Typing into it still sets the operand.
    const QString typed = QStringLiteral("O.CUSTNO");
    Edit(H(), QStringLiteral("1."), vdpFirstArgument, &typed);
    EXPECT_NE(Sql().find("(SUM(O.AMOUNT) > SUM(O.CUSTNO))"), std::string::npos) << Sql();
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
}

// A table shown under its own name gets an alias in the diagram: the FROM item and every
// condition that names the table follow, and taking the alias away again brings them back.
TEST_F(VdCriteriaEditsTest, AliasGivenToUnaliasedTableRenamesFromAndConditions)
{
    Vandor.SetSQL(QStringLiteral("SELECT CUSTOMER.NAME FROM CUSTOMER WHERE CUSTOMER.CUSTNO = 1 "
                                 "GROUP BY CUSTOMER.NAME HAVING COUNT(CUSTOMER.CUSTNO) > 1"));
    TVdTable* customer = Vandor.TableList()->FindByAlias(QStringLiteral("CUSTOMER"));
    ASSERT_NE(customer, nullptr);
    TVdWorkArea& area = *Vandor.WorkArea();
    const auto rename = [&](const QString& alias) {
        customer->HandleRenameTable();
        area.AliasEdit()->setText(alias);
        QTest::keyClick(area.AliasEdit(), Qt::Key_Return);
    };
    rename(QStringLiteral("K"));
    EXPECT_EQ(Sql(), "SELECT \r\n  K.NAME\r\nFROM\r\n  CUSTOMER K\r\n"
                     "WHERE\r\n  (K.CUSTNO = 1)\r\nGROUP BY\r\n  K.NAME\r\n"
                     "HAVING\r\n  (COUNT(K.CUSTNO) > 1)\r\n");
    EXPECT_EQ(W().Text(), QStringLiteral("1. K.CUSTNO = 1"));
    EXPECT_EQ(H().Text(), QStringLiteral("1. COUNT K.CUSTNO > 1"));
    ExpectConsistent();
    customer = Vandor.TableList()->FindByAlias(QStringLiteral("K"));
    ASSERT_NE(customer, nullptr);
    rename(QStringLiteral("CUSTOMER"));
    EXPECT_EQ(Sql(), "SELECT \r\n  CUSTOMER.NAME\r\nFROM\r\n  CUSTOMER\r\n"
                     "WHERE\r\n  (CUSTOMER.CUSTNO = 1)\r\nGROUP BY\r\n  CUSTOMER.NAME\r\n"
                     "HAVING\r\n  (COUNT(CUSTOMER.CUSTNO) > 1)\r\n");
    EXPECT_EQ(W().Text(), QStringLiteral("1. CUSTOMER.CUSTNO = 1"));
    ExpectConsistent();
}

// Composing moves the condition into the group's first child: deleting that child leaves an
// empty group, and the old condition must not come back in the statement.
TEST_F(VdCriteriaEditsTest, DeletingTheOnlyChildOfAComposedGroupLeavesNoCondition)
{
    Vandor.SetSQL(
        QStringLiteral("SELECT C.NAME FROM CUSTOMER C WHERE C.CUSTNO = 1 AND C.NAME = 'A'"));
    W().SetActiveElement(RowAt(W(), "1.")->Controls(vdpNumber));
    W().MakeCompositCondition();
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME\r\nFROM\r\n  CUSTOMER C\r\n"
                     "WHERE\r\n  ((C.CUSTNO = 1)) AND \r\n  (C.NAME = 'A')\r\n");
    W().SetActiveElement(RowAt(W(), "1.1.")->Controls(vdpNumber));
    W().DeleteCondition();
    EXPECT_EQ(W().Text(), QStringLiteral("1. All of following are met\n2. C.NAME = 'A'"));
    EXPECT_EQ(Sql().find("C.CUSTNO"), std::string::npos) << Sql();
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
    // Adding into the emptied group gives it a fresh condition only.
    W().SetActiveElement(RowAt(W(), "1.")->Controls(vdpNumber));
    W().AddCondition();
    const QString field = QStringLiteral("C.CUSTNO");
    Edit(W(), QStringLiteral("1.1."), vdpField, &field);
    const QString value = QStringLiteral("2");
    Edit(W(), QStringLiteral("1.1."), vdpFirstArgument, &value);
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME\r\nFROM\r\n  CUSTOMER C\r\n"
                     "WHERE\r\n  ((C.CUSTNO = 2)) AND \r\n  (C.NAME = 'A')\r\n");
    // (A one-condition group reads back as the condition itself, so no reload here.)
    EXPECT_TRUE(vdcheck::CheckModel(*Vandor.Parser()));
}

// ORDER BY names the table by its alias as well: it follows a rename made in the diagram.
TEST_F(VdCriteriaEditsTest, AliasRenamedInDiagramRenamesOrderByItems)
{
    Vandor.SetSQL(QStringLiteral("SELECT C.NAME FROM CUSTOMER C WHERE C.CUSTNO = 1 "
                                 "ORDER BY C.NAME DESC, UPPER(C.NAME)"));
    TVdTable* customer = Vandor.TableList()->FindByAlias(QStringLiteral("C"));
    ASSERT_NE(customer, nullptr);
    Vandor.WorkArea()->CommitAlias(customer, QStringLiteral("K"));
    EXPECT_EQ(Sql(), "SELECT \r\n  K.NAME\r\nFROM\r\n  CUSTOMER K\r\n"
                     "WHERE\r\n  (K.CUSTNO = 1)\r\n"
                     "ORDER BY\r\n  K.NAME DESC,\r\n  UPPER(K.NAME)\r\n");
    ExpectConsistent();
}

// A later argument that is an aggregate shows only its operand; editing that operand keeps
// the aggregate around it.
TEST_F(VdCriteriaEditsTest, EditingAnAggregatedLaterArgumentKeepsItsAggregate)
{
    Vandor.SetSQL(
        QStringLiteral("SELECT C.NAME, SUM(C.CUSTNO) AS TOTAL FROM CUSTOMER C "
                       "GROUP BY C.NAME HAVING SUM(C.CUSTNO) BETWEEN 1 AND MAX(C.CUSTNO)"));
    EXPECT_EQ(H().Text(), QStringLiteral("1. SUM C.CUSTNO BETWEEN 1 C.CUSTNO"));
    const QString typed = QStringLiteral("C.NAME");
    Edit(H(), QStringLiteral("1."), vdpFirstArgument + 1, &typed);
    EXPECT_EQ(H().Text(), QStringLiteral("1. SUM C.CUSTNO BETWEEN 1 C.NAME"));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME,\r\n  SUM(C.CUSTNO) AS TOTAL\r\n"
                     "FROM\r\n  CUSTOMER C\r\nGROUP BY\r\n  C.NAME\r\n"
                     "HAVING\r\n  (SUM(C.CUSTNO) BETWEEN 1 AND MAX(C.NAME))\r\n");
    ExpectConsistent();
}

// A function call shown as its text, replaced by typed text, leaves no call behind.
TEST_F(VdCriteriaEditsTest, TypingOverAFunctionCallReplacesTheWholeCall)
{
    Vandor.SetSQL(
        QStringLiteral("SELECT C.NAME FROM CUSTOMER C WHERE UPPER(C.NAME) = LOWER(C.NAME)"));
    EXPECT_EQ(W().Text(), QStringLiteral("1. UPPER(C.NAME) = LOWER(C.NAME)"));
    const QString field = QStringLiteral("C.NAME");
    Edit(W(), QStringLiteral("1."), vdpField, &field);
    const QString value = QStringLiteral("'x'");
    Edit(W(), QStringLiteral("1."), vdpFirstArgument, &value);
    EXPECT_EQ(W().Text(), QStringLiteral("1. C.NAME = 'x'"));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME\r\nFROM\r\n  CUSTOMER C\r\n"
                     "WHERE\r\n  (C.NAME = 'x')\r\n");
    ExpectConsistent();
}

// Taking the second aggregate away leaves its operand as the argument: the row shows it.
TEST_F(VdCriteriaEditsTest, RemovingSecondAggregateShowsItsOperandAsTheArgument)
{
    Vandor.SetSQL(QString::fromUtf8(SumOverSum));
    TVdCriterionRow* row = RowAt(H(), "1.");
    H().SetActiveElement(row->Controls(vdpAggregate2));
    H().AggregateMenu()->actions().at(0)->trigger();
    EXPECT_NE(Sql().find("HAVING\r\n  (SUM(O.AMOUNT) > O.ORDERNO)\r\n"), std::string::npos)
        << Sql();
    EXPECT_EQ(H().Text(), QStringLiteral("1. SUM O.AMOUNT > O.ORDERNO"));
    EXPECT_EQ(row->Controls(vdpFirstArgument)->Text(), QStringLiteral("O.ORDERNO"));
    ExpectConsistent();
    // And putting an aggregate back wraps what the row shows.
    row = RowAt(H(), "1.");
    H().SetActiveElement(row->Controls(vdpAggregate2));
    ActionNamed(H().AggregateMenu(), QStringLiteral("MAX"))->trigger();
    EXPECT_NE(Sql().find("HAVING\r\n  (SUM(O.AMOUNT) > MAX(O.ORDERNO))\r\n"), std::string::npos)
        << Sql();
    EXPECT_EQ(H().Text(), QStringLiteral("1. SUM O.AMOUNT > MAX O.ORDERNO"));
}

// With quoted names a field dropped from the diagram prints as the statement prints names: a
// name with a blank or in mixed case keeps naming that field.
TEST_F(VdCriteriaEditsTest, DroppedFieldNeedingQuotesIsWrittenQuoted)
{
    Host.Table(QStringLiteral("CUSTOMER")).AddField(QStringLiteral("City"), ftString);
    Host.Table(QStringLiteral("CUSTOMER")).AddField(QStringLiteral("ZIP CODE"), ftString);
    Vandor.SetQuoteIdentifiers(true);
    Vandor.SetSQL(QStringLiteral("SELECT C.\"City\" FROM CUSTOMER C WHERE C.CUSTNO = 1"));
    TVdTable* customer = Vandor.TableList()->FindByAlias(QStringLiteral("C"));
    ASSERT_NE(customer, nullptr);
    Vandor.WorkArea()->SetSelected(customer);
    TVdCriterionRow* row = RowAt(W(), "1.");
    const QPoint onField(row->Controls(vdpField)->Left + 2, row->GetTopBound() + 5);
    customer->SetCurrentItem(customer->FindItem(QStringLiteral("ZIP CODE")));
    W().HandleDragDrop(Vandor.WorkArea(), onField);
    const QPoint onArgument(row->Controls(vdpFirstArgument)->Left + 2, row->GetTopBound() + 5);
    customer->SetCurrentItem(customer->FindItem(QStringLiteral("City")));
    W().HandleDragDrop(Vandor.WorkArea(), onArgument);
    EXPECT_EQ(Sql(), "SELECT \r\n  \"C\".\"City\"\r\nFROM\r\n  \"CUSTOMER\" C\r\n"
                     "WHERE\r\n  (\"C\".\"ZIP CODE\" = \"C\".\"City\")\r\n");
    EXPECT_EQ(W().Text(), QStringLiteral("1. \"C\".\"ZIP CODE\" = \"C\".\"City\""));
    ExpectConsistent();
}

// The quoted qualifier of a dropped field follows a rename of the table's alias.
TEST_F(VdCriteriaEditsTest, DroppedQuotedFieldFollowsAliasRename)
{
    Host.Table(QStringLiteral("CUSTOMER")).AddField(QStringLiteral("ZIP CODE"), ftString);
    Vandor.SetQuoteIdentifiers(true);
    Vandor.SetSQL(QStringLiteral("SELECT C.NAME FROM CUSTOMER C WHERE C.CUSTNO = 1"));
    TVdTable* customer = Vandor.TableList()->FindByAlias(QStringLiteral("C"));
    ASSERT_NE(customer, nullptr);
    Vandor.WorkArea()->SetSelected(customer);
    TVdCriterionRow* row = RowAt(W(), "1.");
    const QPoint onField(row->Controls(vdpField)->Left + 2, row->GetTopBound() + 5);
    customer->SetCurrentItem(customer->FindItem(QStringLiteral("ZIP CODE")));
    W().HandleDragDrop(Vandor.WorkArea(), onField);
    Vandor.WorkArea()->CommitAlias(customer, QStringLiteral("K"));
    EXPECT_EQ(Sql(), "SELECT \r\n  \"K\".\"NAME\"\r\nFROM\r\n  \"CUSTOMER\" K\r\n"
                     "WHERE\r\n  (\"K\".\"ZIP CODE\" = 1)\r\n");
    ExpectConsistent();
}

// Renaming an alias renames names, never the text of a string literal that looks like one.
TEST_F(VdCriteriaEditsTest, AliasRenameLeavesStringLiteralsAlone)
{
    Vandor.SetSQL(QStringLiteral("SELECT C.NAME FROM CUSTOMER C WHERE C.NAME = 'x'"));
    const QString typed = QStringLiteral("'C.D' || C.NAME");
    Edit(W(), QStringLiteral("1."), vdpFirstArgument, &typed);
    TVdTable* customer = Vandor.TableList()->FindByAlias(QStringLiteral("C"));
    ASSERT_NE(customer, nullptr);
    Vandor.WorkArea()->CommitAlias(customer, QStringLiteral("K"));
    EXPECT_EQ(Sql(), "SELECT \r\n  K.NAME\r\nFROM\r\n  CUSTOMER K\r\n"
                     "WHERE\r\n  (K.NAME = 'C.D' || K.NAME)\r\n");
    EXPECT_EQ(W().Text(), QStringLiteral("1. K.NAME = 'C.D' || K.NAME"));
    ExpectConsistent();
}

// With the table twice, naming the unaliased one renames that one, not its aliased twin.
TEST_F(VdCriteriaEditsTest, AliasGivenToUnaliasedTwinOfASelfJoinRenamesThatTwin)
{
    Vandor.SetSQL(QStringLiteral("SELECT C.NAME FROM CUSTOMER C, CUSTOMER "
                                 "WHERE C.CUSTNO = CUSTOMER.CUSTNO"));
    TVdTable* twin = Vandor.TableList()->FindByAlias(QStringLiteral("CUSTOMER"));
    ASSERT_NE(twin, nullptr);
    Vandor.WorkArea()->CommitAlias(twin, QStringLiteral("K"));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME\r\nFROM\r\n  CUSTOMER C,\r\n  CUSTOMER K\r\n"
                     "WHERE\r\n  (C.CUSTNO = K.CUSTNO)\r\n");
    EXPECT_EQ(W().Text(), QStringLiteral("1. C.CUSTNO = K.CUSTNO"));
    ExpectConsistent();
}
