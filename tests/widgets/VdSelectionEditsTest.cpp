// Edits on the Selection and Sorting pages and in the diagram, in sequence: after each the
// model holds together, the statement prints as the views show it, and its print reloads the
// same.

#include "VdSelectionFixture.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QTreeWidget>

using namespace vd;
using vd::test::SelectionFixture;

namespace {

class VdSelectionEditsTest : public SelectionFixture
{
protected:
    void TypeInCell(int row, int column, const QString& text)
    {
        Grid().setCurrentCell(row, column);
        QTest::keyClick(&Grid(), Qt::Key_Return);
        ASSERT_NE(Grid().ActiveEditor(), nullptr);
        QLineEdit* line = column == 0 ? Grid().TextEditor() : Grid().ComboEditor()->lineEdit();
        line->selectAll();
        QTest::keyClick(line, Qt::Key_Backspace);
        QTest::keyClicks(line, text);
        QTest::keyClick(line, Qt::Key_Return);
    }

    void RenameTable(const char* alias, const char* to)
    {
        Table(alias)->HandleRenameTable();
        Vandor->WorkArea()->AliasEdit()->setText(QString::fromUtf8(to));
        QTest::keyClick(Vandor->WorkArea()->AliasEdit(), Qt::Key_Return);
        QApplication::processEvents();
    }

    void CloseTable(const char* alias)
    {
        Vandor->WorkArea()->CMCloseTable(Table(alias));
        QApplication::processEvents();
    }

    // The model is whole and its print reloads to the same print.
    void ExpectSound()
    {
        EXPECT_TRUE(vdcheck::CheckModel(Parser()));
        const std::string once = Sql();
        TVdSelectParser again;
        again.Scanner().SetQuoteIdentifiers(false);
        again.SetExpression(Parser().GetExpression());
        EXPECT_EQ(again.GetExpression(), Parser().GetExpression());
        (void)once;
    }

    QStringList Sorted() const
    {
        QStringList out;
        for (int i = 0; i < Order().SortedList()->topLevelItemCount(); ++i)
            out << Order().SortedList()->topLevelItem(i)->text(0);
        return out;
    }
};

} // namespace

TEST_F(VdSelectionEditsTest, RenamingATableCarriesItsNewAliasIntoTheSortOrder)
{
    Load("SELECT C.NAME FROM CUSTOMER C ORDER BY C.CITY DESC, C.NAME", 3);
    RenameTable("C", "CU");
    ExpectSound();
    // The sort still names the table: the page shows it and the statement orders by it.
    EXPECT_EQ(Sorted(), QStringList({"CU.CITY", "CU.NAME"}));
    EXPECT_EQ(Sql(), "SELECT \r\n  CU.NAME\r\nFROM\r\n  CUSTOMER CU\r\nORDER BY\r\n  CU.CITY "
                     "DESC,\r\n  CU.NAME\r\n");
    // An edit on the page keeps the renamed entries.
    Order().UnsortedList()->setCurrentRow(0);
    Order().HandleAddClick();
    EXPECT_EQ(Sql(), "SELECT \r\n  CU.NAME\r\nFROM\r\n  CUSTOMER CU\r\nORDER BY\r\n  CU.CITY "
                     "DESC,\r\n  CU.NAME,\r\n  CU.CUSTNO\r\n");
    // Renamed back by hand, the statement is the one loaded.
    RenameTable("CU", "C");
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME\r\nFROM\r\n  CUSTOMER C\r\nORDER BY\r\n  C.CITY "
                     "DESC,\r\n  C.NAME,\r\n  C.CUSTNO\r\n");
    ExpectSound();
}

TEST_F(VdSelectionEditsTest, RenamingATableCarriesItsNewAliasIntoTheKeptGrouping)
{
    Load("SELECT C.CITY, COUNT(C.CUSTNO) AS N FROM CUSTOMER C GROUP BY C.CITY, C.NAME", 1);
    RenameTable("C", "CU");
    ExpectSound();
    EXPECT_EQ(Sql(), "SELECT \r\n  CU.CITY,\r\n  COUNT(CU.CUSTNO) AS N\r\nFROM\r\n  CUSTOMER "
                     "CU\r\nGROUP BY\r\n  CU.CITY,\r\n  CU.NAME\r\n");
}

TEST_F(VdSelectionEditsTest, RenamingOneTableLeavesAnotherTablesSortEntriesAlone)
{
    Load("SELECT C.NAME, O.ORDERNO FROM CUSTOMER C INNER JOIN ORDERS O ON (C.CUSTNO = "
         "O.CUSTNO) ORDER BY O.ORDERNO, C.NAME",
         3);
    RenameTable("O", "OR1");
    ExpectSound();
    EXPECT_EQ(Sorted(), QStringList({"OR1.ORDERNO", "C.NAME"}));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME,\r\n  OR1.ORDERNO\r\nFROM\r\n  CUSTOMER C \r\n  INNER "
                     "JOIN ORDERS OR1 ON (C.CUSTNO = OR1.CUSTNO)\r\nORDER BY\r\n  OR1.ORDERNO,\r\n"
                     "  C.NAME\r\n");
}

TEST_F(VdSelectionEditsTest, AnOutputNameTakenByAnotherRowIsMadeUnique)
{
    Load("SELECT C.NAME, C.CITY FROM CUSTOMER C", 1);
    TypeInCell(0, 0, QStringLiteral("CITY"));
    ExpectSound();
    // Two columns named CITY would read back as CITY and CITY1: the row shows the name the
    // statement gives it.
    EXPECT_EQ(Row(0), QStringList({"CITY1", "", "C.NAME"}));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME AS CITY1,\r\n  C.CITY\r\nFROM\r\n  CUSTOMER C\r\n");
    // Back by hand, then the same name committed again: nothing more changes.
    TypeInCell(0, 0, QStringLiteral("NAME"));
    EXPECT_EQ(Row(0), QStringList({"NAME", "", "C.NAME"}));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME,\r\n  C.CITY\r\nFROM\r\n  CUSTOMER C\r\n");
    Changed->clear();
    TypeInCell(0, 0, QStringLiteral("NAME"));
    EXPECT_EQ(Row(0), QStringList({"NAME", "", "C.NAME"}));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME,\r\n  C.CITY\r\nFROM\r\n  CUSTOMER C\r\n");
    EXPECT_EQ(Changed->count(), 0);
    ExpectSound();
}

TEST_F(VdSelectionEditsTest, AnOutputNameTakenInAnotherTableIsMadeUniqueToo)
{
    Load("SELECT C.NAME, O.ORDERNO FROM CUSTOMER C INNER JOIN ORDERS O ON (C.CUSTNO = "
         "O.CUSTNO)",
         1);
    TypeInCell(1, 0, QStringLiteral("NAME"));
    ExpectSound();
    EXPECT_EQ(Row(1), QStringList({"NAME1", "", "O.ORDERNO"}));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME,\r\n  O.ORDERNO AS NAME1\r\nFROM\r\n  CUSTOMER C \r\n  "
                     "INNER JOIN ORDERS O ON (C.CUSTNO = O.CUSTNO)\r\n");
}

TEST_F(VdSelectionEditsTest, NamingATableThatHadNoAliasPrintsTheAliasEverywhere)
{
    Load("SELECT CUSTOMER.NAME FROM CUSTOMER ORDER BY CUSTOMER.CITY", 1);
    RenameTable("CUSTOMER", "C");
    ExpectSound();
    EXPECT_EQ(Row(0), QStringList({"NAME", "", "C.NAME"}));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME\r\nFROM\r\n  CUSTOMER C\r\nORDER BY\r\n  C.CITY\r\n");
    // Given its own name again, it goes back to no alias.
    RenameTable("C", "CUSTOMER");
    ExpectSound();
    EXPECT_EQ(Row(0), QStringList({"NAME", "", "CUSTOMER.NAME"}));
    EXPECT_EQ(Sql(), "SELECT \r\n  CUSTOMER.NAME\r\nFROM\r\n  CUSTOMER\r\nORDER BY\r\n  "
                     "CUSTOMER.CITY\r\n");
}

TEST_F(VdSelectionEditsTest, ClearingAnOutputNameKeepsTheNameTheColumnHad)
{
    Load("SELECT C.NAME AS N, C.CITY FROM CUSTOMER C", 1);
    TypeInCell(0, 0, QString());
    ExpectSound();
    // A column always has a name: the blank cell would show one the statement does not have.
    EXPECT_EQ(Row(0), QStringList({"N", "", "C.NAME"}));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME AS N,\r\n  C.CITY\r\nFROM\r\n  CUSTOMER C\r\n");
    TypeInCell(1, 0, QString());
    EXPECT_EQ(Row(1), QStringList({"CITY", "", "C.CITY"}));
    EXPECT_EQ(Sql(), "SELECT \r\n  C.NAME AS N,\r\n  C.CITY\r\nFROM\r\n  CUSTOMER C\r\n");
    ExpectSound();
}
