// Inputs the fuzz targets found, each kept with the behaviour it showed broken: the exact text
// printed, and that this text reads back and prints again unchanged.
#include "tests/core/ParserSettings.h"

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>

using namespace vd;

namespace {

using vdtest::CreateParser;
using vdtest::TSetting;

std::string Print(TSetting setting, const std::string& text)
{
    const std::unique_ptr<TVdSelectParser> parser = CreateParser(setting);
    parser->SetExpression(text);
    return parser->GetExpression();
}

// What text prints as with names unquoted, where the print reads back to itself; otherwise
// what the print reads back as.
std::string PrintUnquoted(TSetting setting, const std::string& text)
{
    const std::unique_ptr<TVdSelectParser> parser = CreateParser(setting);
    parser->Scanner().SetQuoteIdentifiers(false);
    parser->SetExpression(text);
    const std::string printed = parser->GetExpression();
    parser->SetExpression(printed);
    const std::string reprinted = parser->GetExpression();
    return reprinted == printed ? printed : "read back as\n" + reprinted;
}

// The message a setting refuses text with, or what it printed when it accepted the text.
std::string Refusal(TSetting setting, const std::string& text)
{
    const std::unique_ptr<TVdSelectParser> parser = CreateParser(setting);
    try {
        parser->SetExpression(text);
        return "accepted, printed as\n" + parser->GetExpression();
    } catch (const EVdParserError& e) {
        return e.what();
    }
}

struct TCase {
    const char* Name;
    TSetting Setting;
    const char* Input;
    const char* Printed;
};

void PrintTo(const TCase& c, std::ostream* os) { *os << c.Input; }

class FuzzRegressionRoundTrip : public ::testing::TestWithParam<TCase>
{
};

} // namespace

// A name with a dot is kept in its quotes, and the alias made from it for a second column is
// that name with a counter behind the closing quote. The alias prints quoted as one name, not
// split at the dot inside the quotes (which printed a qualified alias that did not read back).
TEST(FuzzRegression, QuotedNameFollowedByTextIsQuotedWhole)
{
    TVdSQLScanner scanner;
    EXPECT_EQ(scanner.ProcessName("\"a.b\"1"), "\"\"\"a.b\"\"1\"");
    EXPECT_EQ(scanner.ProcessName("\"a.b\"x.c"), "\"\"\"a.b\"\"x\".\"c\"");
    // A quoted part followed by a dot still stands as a part of its own.
    EXPECT_EQ(scanner.ProcessName("\"a.b\".c"), "\"a.b\".\"c\"");
}

// An operator text the table does not hold (a partial match of NOT IN that an operand
// completed) printed in the keyword case: in lower case, where only upper-case letters make
// words, not in-# read back as other tokens.
TEST(FuzzRegression, OperatorOutsideTheTablePrintsAsRead)
{
    const auto print = [](const std::string& text) {
        const std::unique_ptr<TVdSelectParser> parser = CreateParser(TSetting::InterBase3);
        parser->ScriptFormat().KeywordsFormat = qfmLowerCase;
        parser->SetExpression(text);
        return parser->GetExpression();
    };
    const std::string printed = print("SELECT A FROM T WHERE B NOT IN-# C");
    EXPECT_EQ(printed, "select \r\n  T.A\r\nfrom\r\n  T\r\nwhere\r\n  (B NOT IN-# C)\r\n");
    EXPECT_EQ(print(printed), printed);
}

// An operator does not begin with a word the scanner reads as neither keyword nor comparison
// (like%) that only begins with a caption: printed as T like% 'a', it read back as one left
// side. (T) holds no condition; read as an operand it has no operator either. The word like
// still reads.
TEST(FuzzRegression, OperatorBeginningInsideAWordRefused)
{
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT T FROM N WHERE NOT(T)like%'a'"),
              "Invalid token ')' at position 28 of line 1.");
    EXPECT_EQ(Refusal(TSetting::Firebird1, "select COUNT,T From N GROUP BY T HAVING NOT(T)like%''"),
              "Invalid token ')' at position 46 of line 1.");
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT T FROM N WHERE (T like'a')"),
              "accepted, printed as\nSELECT \r\n  \"N\".\"T\"\r\nFROM\r\n  \"N\"\r\nWHERE\r\n  "
              "(\"T\" LIKE 'a')\r\n");
}

// NOT inside parentheses over one comparison is a negated group of that comparison, as it
// prints: (NOT ((A LIKE 'x'))). It never loses its NOT.
TEST(FuzzRegression, NotOverOneComparisonInParenthesesKeepsIt)
{
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A FROM T WHERE (NOT A LIKE 'x')"),
              "accepted, printed as\nSELECT \r\n  \"T\".\"A\"\r\nFROM\r\n  \"T\"\r\nWHERE\r\n  "
              "(NOT ((\"A\" LIKE 'x')))\r\n");
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A FROM T WHERE (B = 1) AND (NOT (A LIKE 'x'))"),
              "accepted, printed as\nSELECT \r\n  \"T\".\"A\"\r\nFROM\r\n  \"T\"\r\nWHERE\r\n  "
              "(\"B\" = 1) AND \r\n  (NOT ((\"A\" LIKE 'x')))\r\n");
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT T FROM N WHERE (NOT(T)like%'a')"),
              "Invalid token ')' at position 29 of line 1.");
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A FROM T WHERE (B = 1) AND (NOT ((A LIKE 'x')))"),
              "accepted, printed as\nSELECT \r\n  \"T\".\"A\"\r\nFROM\r\n  \"T\"\r\nWHERE\r\n  "
              "(\"B\" = 1) AND \r\n  (NOT ((\"A\" LIKE 'x')))\r\n");
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A FROM T WHERE NOT A LIKE 'x'"),
              "accepted, printed as\nSELECT \r\n  \"T\".\"A\"\r\nFROM\r\n  \"T\"\r\nWHERE\r\n  "
              "NOT ((\"A\" LIKE 'x'))\r\n");
}

// A select item does not begin with a comparison, as the first item cannot: ">>" before a
// blank is one token, printed last (a select list without FROM) it read back as two.
TEST(FuzzRegression, SelectItemBeginningWithComparisonRefused)
{
    EXPECT_EQ(Refusal(TSetting::MySQL, "select d,>> "),
              "Invalid token '>>' at position 10 of line 1.");
    EXPECT_EQ(Refusal(TSetting::MySQL, "select d,>>"),
              "Invalid token '>' at position 10 of line 1.");
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A, = B FROM T"),
              "Invalid token '=' at position 11 of line 1.");
}

// Where names are never quoted an empty quoted part of a dotted name printed as nothing (E.):
// it is refused, as an empty table name is.
TEST(FuzzRegression, EmptyPartOfDottedNameRefusedWhereNamesAreNotQuoted)
{
    for (const char* text : {"SELECT F FROM E.\"\"", "SELECT F FROM E.''",
                             "SELECT A.F FROM T A INNER JOIN E.\"\" B ON (A.X = B.Y)"})
        EXPECT_EQ(Refusal(TSetting::Firebird1, text), "Unexpected end of statement.") << text;
}

// A table copied through Assign passed through its name as alias on the way to its own alias,
// and the join of another table that named that alias followed it (to A1 H instead of U A1).
TEST(FuzzRegression, CopiedTablesKeepTheJoinsOfOtherTables)
{
    TVdSelectParser source;
    source.SetExpression("SELECT F FROM C FULL JOIN U A1 ON (C.N = A1.D), A1 H");
    ASSERT_EQ(source.TableDefs().Count(), 3);
    const std::string join =
        "  \"C\" \r\n  FULL OUTER JOIN \"U\" A1 ON (\"C\".\"N\" = \"A1\".\"D\")";
    EXPECT_EQ(source.TableDefs().Items(0)->GetScript(), join);
    TVdSelectParser copy;
    copy.TableDefs().Assign(source.TableDefs());
    ASSERT_EQ(copy.TableDefs().Count(), 3);
    EXPECT_EQ(copy.TableDefs().Items(0)->GetScript(), join);
    EXPECT_EQ(copy.TableDefs().Items(0)->JoinDefs().Items(0)->JoinTable, "A1");
    EXPECT_EQ(copy.TableDefs().Items(2)->Name(), "A1");
    EXPECT_EQ(copy.TableDefs().Items(2)->Alias(), "H");
}

// A join on an empty or blank field prints nothing, so it was lost in print, along with the
// joined table's place in FROM: such a join is refused at the field (an empty token reports
// the end-of-statement error, as every refusal at an empty token does).
TEST(FuzzRegression, JoinOnBlankFieldRefused)
{
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A FROM T INNER JOIN U ON (T.A = U.\" \")"),
              "Invalid token ' ' at position 43 of line 1.");
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A FROM T INNER JOIN U ON (T.A = U.\"\t\")"),
              "Invalid token '\t' at position 43 of line 1.");
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A FROM T INNER JOIN U ON (U.\" \" = T.A)"),
              "Invalid token ' ' at position 37 of line 1.");
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A FROM T INNER JOIN U ON (T.A = U.\"\")"),
              "Unexpected end of statement.");
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A FROM T INNER JOIN U ON (T.\"\" = U.B)"),
              "Unexpected end of statement.");
    // A blank field of the owning side prints, as its quotes are kept: the join stands.
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A FROM T INNER JOIN U ON (T.\" \" = U.B)"),
              "accepted, printed as\nSELECT \r\n  \"T\".\"A\",\r\n  \"U\".\"A\" AS A1\r\nFROM\r\n"
              "  \"T\" \r\n  INNER JOIN \"U\" ON (\"T\".\" \" = \"U\".\"B\")\r\n");
}

// 2.5 at the very end of the text is the name of the parts 2 and 5. Where names print
// unquoted it prints as it stands, with a line break after it, and reads as a number: refused.
TEST(FuzzRegression, IntegerPartsOfOrderByNameRefusedWhereNamesAreNotQuoted)
{
    EXPECT_EQ(Refusal(TSetting::InterBase1, "SELECT A FROM T ORDER BY 2.5"),
              "Invalid token '5' at position 28 of line 1.");
    EXPECT_EQ(Refusal(TSetting::Firebird1, "SELECT A FROM T GROUP BY 1.2.5"),
              "Invalid token '5' at position 30 of line 1.");
    const std::unique_ptr<TVdSelectParser> parser = CreateParser(TSetting::MySQL);
    parser->Scanner().SetQuoteIdentifiers(false);
    EXPECT_THROW(parser->SetExpression("SELECT A FROM T ORDER BY 2.5"), EVdParserError);
    EXPECT_EQ(Refusal(TSetting::InterBase1, "SELECT A FROM T ORDER BY x.2.5"),
              "Invalid token '5' at position 30 of line 1.");
    // A number after a part that is none prints as it stands; quoted, the parts print as names.
    EXPECT_EQ(Print(TSetting::InterBase1, "SELECT A FROM T ORDER BY x.2"),
              "SELECT \r\n  T.A\r\nFROM\r\n  T\r\nORDER BY\r\n  X.2\r\n");
    EXPECT_EQ(Print(TSetting::Generic, "SELECT A FROM T ORDER BY 2.5"),
              "SELECT \r\n  \"T\".\"A\"\r\nFROM\r\n  \"T\"\r\nORDER BY\r\n  \"2\".\"5\"\r\n");
}

// An empty quoted name ('' in the generic dialect) prints nothing where names print unquoted:
// as an operand it is refused, as it is in FROM (the error of an empty token).
TEST(FuzzRegression, EmptyNameOperandRefusedWhereNamesAreNotQuoted)
{
    for (const TSetting setting : {TSetting::Generic, TSetting::MySQL}) {
        const std::unique_ptr<TVdSelectParser> parser = CreateParser(setting);
        parser->Scanner().SetQuoteIdentifiers(false);
        const char* text = setting == TSetting::MySQL ? "SELECT d FROM T WHERE `` IS NULL"
                                                      : "SELECT d FROM T WHERE '' IS NULL";
        try {
            parser->SetExpression(text);
            ADD_FAILURE() << "accepted: " << text;
        } catch (const EVdParserError& e) {
            EXPECT_STREQ(e.what(), "Unexpected end of statement.") << text;
        }
    }
    EXPECT_EQ(Print(TSetting::Generic, "SELECT d FROM T WHERE '' IS NULL"),
              "SELECT \r\n  \"T\".\"d\"\r\nFROM\r\n  \"T\"\r\nWHERE\r\n  (\"\" IS NULL)\r\n");
}

// A quoted name "*" printed as the star: beside other items it did not read back, and
// with a table it read back as all its columns. Refused, as a name and as a qualified name.
TEST(FuzzRegression, QuotedStarNameRefused)
{
    EXPECT_EQ(Refusal(TSetting::MySQL, "SELECT `*`, \"x\""),
              "Invalid token '*' at position 9 of line 1.");
    EXPECT_EQ(Refusal(TSetting::MySQL, "SELECT t.`*` FROM t"),
              "Invalid token '*' at position 11 of line 1.");
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT \"*\", A FROM t"),
              "Invalid token '*' at position 9 of line 1.");
    // An empty qualifier names the table of the unqualified columns: "".* printed as a bare
    // star, which beside other items did not read back.
    EXPECT_EQ(Refusal(TSetting::InterBase3, "SELECT\"\".*, ;.U"), "Unexpected end of statement.");
    EXPECT_EQ(Print(TSetting::Generic, "SELECT \"\".A FROM T"),
              "SELECT \r\n  \"T\".\"A\"\r\nFROM\r\n  \"T\"\r\n");
    // A string "*" is a string, the star a star.
    EXPECT_EQ(Print(TSetting::MySQL, "SELECT \"*\" FROM t"),
              "SELECT \r\n  '*'\r\nFROM\r\n  `t`\r\n");
    EXPECT_EQ(Print(TSetting::MySQL, "SELECT t.* FROM t"),
              "SELECT \r\n  `t`.*\r\nFROM\r\n  `t`\r\n");
    // In a condition the star prints quoted as a name, and so reads back.
    EXPECT_EQ(Print(TSetting::InterBase3, "SELECT A FROM t WHERE T.\"*\" IS NULL"),
              "SELECT \r\n  T.A\r\nFROM\r\n  T\r\nWHERE\r\n  (T.\"*\" IS NULL)\r\n");
}

// A table alias given as a string with a dot in it ('..') qualifies the table's columns in
// the select list, where it printed split at its dots and named another table: refused.
TEST(FuzzRegression, TableAliasStringWithDotRefused)
{
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A FROM K'..',R"),
              "Invalid token '..' at position 17 of line 1.");
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A FROM K 'a.b'"),
              "Invalid token 'a.b' at position 18 of line 1.");
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A FROM P(1) 'a.b'"),
              "Invalid token 'a.b' at position 21 of line 1.");
}

// A string alias whose halves each print as a string ('''.''', the text '.') printed as
// written, but the qualifier it printed as read back as a part of a dotted name, "'.'", and
// made a table of its own. Refused where names print quoted; unquoted, the qualifier reads
// back as written.
TEST(FuzzRegression, TableAliasStringWithDotBetweenStringsRefused)
{
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A FROM \" \" '''.'''"),
              "Invalid token '''.''' at position 20 of line 1.");
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A FROM P(1) '''.'''"),
              "Invalid token '''.''' at position 21 of line 1.");
    EXPECT_EQ(PrintUnquoted(TSetting::Generic, "SELECT A FROM T '''.'''"),
              "SELECT \r\n  '''.'''.A\r\nFROM\r\n  T '''.'''\r\n");
}

// A FROM entry whose alias, or name where it has none, is the alias of an earlier entry of
// another table would qualify two tables: FROM M t, t printed both tables' columns as t.i and
// read back as one. Refused at that name or alias; the same table twice (FROM T, T) is one.
TEST(FuzzRegression, NameThatQualifiesTwoTablesRefused)
{
    EXPECT_EQ(Refusal(TSetting::MySQL, "select i FROM M t,t,O"),
              "Invalid token 't' at position 19 of line 1.");
    EXPECT_EQ(Refusal(TSetting::Firebird3, "SELECT A.FROM A\tE,E,A"),
              "Invalid token 'E' at position 19 of line 1.");
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A FROM A E, B E"),
              "Invalid token 'E' at position 22 of line 1.");
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A FROM P(1) X, Q(2) X"),
              "Invalid token 'Q' at position 23 of line 1.");
    // The quoted spelling of another table's alias is that alias.
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A FROM A X, B \"X\""),
              "Invalid token 'X' at position 23 of line 1.");
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A FROM A \"X\", B X"),
              "Invalid token 'X' at position 24 of line 1.");
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT I FROM '1' \"a\\\", \"a\\\""),
              "Invalid token 'a\\' at position 26 of line 1.");
    // A name of dots only is no dotted name: '.' is the other spelling of the alias ".".
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT \".\".* AS x, b FROM \"a\" \".\", '.', a.\"a\""),
              "Invalid token '.' at position 37 of line 1.");
    // The quoted spelling of the alias of the same table is that table (as T, T is one).
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT N FROM T \"T\", T"),
              "accepted, printed as\nSELECT \r\n  \"T\".\"N\"\r\nFROM\r\n  \"T\" \"T\"\r\n");
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A FROM T, T"),
              "accepted, printed as\nSELECT \r\n  \"T\".\"A\"\r\nFROM\r\n  \"T\"\r\n");
}

// The side of a join condition after the owning table's is the joined table's: a qualifier
// that names another table there printed as the joined table's, which changed the condition
// (Y1.T2 became "ON".T2) or the order of FROM, whose print then did not read back.
TEST(FuzzRegression, JoinConditionWithoutTheJoinedTableRefused)
{
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A.X FROM A, B INNER JOIN C ON (A.X = B.Y)"),
              "Invalid token 'B' at position 45 of line 1.");
    EXPECT_EQ(Refusal(TSetting::InterBase3, "SELECT 'a\\'.*, 'X', 'a\\'.`a\\` FROM Y1 INNER JOIN "
                                            "\"a\\\" \"ON\" ON (Y1.X = Y1.T2), 'a\\'"),
              "Invalid token 'Y1' at position 71 of line 1.");
    EXPECT_EQ(Refusal(TSetting::MySQL, "SELECT x.\"K\".T2, U.A1 AS a FROM U, x.\"K\" LEFT JOIN "
                                       "U('s') Y1 ON (x.\"K\".x = U.T)"),
              "Invalid token 'U' at position 76 of line 1.");
    // The joined table may come first.
    const char* const joined = "accepted, printed as\nSELECT \r\n  \"A\".\"X\"\r\nFROM\r\n  \"A\" "
                               "\r\n  INNER JOIN \"C\" ON (\"A\".\"X\" = \"C\".\"Y\")\r\n";
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A.X FROM A INNER JOIN C ON (C.Y = A.X)"), joined);
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A.X FROM A INNER JOIN C ON (A.X = C.Y)"), joined);
}

// A join whose table reaches the owner through joins closes a ring: FROM prints the tables no
// join reaches, so the statement printed no FROM at all. Refused at the joined table.
TEST(FuzzRegression, JoinClosingARingRefused)
{
    EXPECT_EQ(Refusal(TSetting::Generic,
                      "SELECT x FROM A INNER JOIN B ON (A.x = B.y) INNER JOIN A ON (B.x = A.y)"),
              "Invalid token 'A' at position 56 of line 1.");
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT x FROM A INNER JOIN B ON (A.x = B.y) INNER JOIN "
                                         "C ON (B.x = C.y) INNER JOIN A ON (C.x = A.y)"),
              "Invalid token 'A' at position 84 of line 1.");
    // The procedure t(...) names the table 't' again (an entry named twice is one table).
    EXPECT_EQ(Refusal(TSetting::MySQL,
                      "SELECT x FROM 't' RIGHT JOIN K.Name `U` ON (`U`.\"T2\" = 't'.FIELD_1) "
                      "FULL OUTER JOIN t(1, FIELD_1) ON (t.FIELD_1 = `U`.`x`)"),
              "Invalid token 't' at position 85 of line 1.");
    // A table joined from two tables is no ring: it is named once, the other table comes in
    // through it.
    EXPECT_EQ(Refusal(TSetting::Generic, "SELECT A.x FROM A INNER JOIN C ON (A.x = C.y), B "
                                         "INNER JOIN C ON (B.x = C.y)"),
              "accepted, printed as\nSELECT \r\n  \"A\".\"x\"\r\nFROM\r\n  \"A\" \r\n  INNER "
              "JOIN \"C\" ON (\"A\".\"x\" = \"C\".\"y\") \r\n  INNER JOIN \"B\" ON "
              "(\"C\".\"y\" = \"B\".\"x\")\r\n");
}

// Names printed unquoted: the procedure joined after the entry its name qualifies prints before
// it (the tables stand in the order of the select list). Read back, it took the qualifier's
// table by its name and refused to give it to that entry.
TEST(FuzzRegression, ProcedureJoinedBeforeTheEntryItsNameQualifiesReadsBack)
{
    EXPECT_EQ(
        PrintUnquoted(TSetting::Generic,
                      "SELECT a.\"b\".b, MIN(AVG(U.\"FIELD_1\", U.\"x\")), a.\"b\".'JOIN', U.\"b\" "
                      "FROM b(1, \"1\") U, a.\"b\" LEFT OUTER JOIN U(1) A1 ON (a.\"b\".T2 = "
                      "A1.FIELD_1)"),
        "SELECT \r\n  a.b.b,\r\n  MIN(AVG(U.FIELD_1, U.x)) AS FIELD_1,\r\n  "
        "a.b.'JOIN',\r\n  U.b AS b1\r\nFROM\r\n  a.b \r\n  LEFT OUTER JOIN U(:1) A1 "
        "ON (a.b.T2 = A1.FIELD_1),\r\n  b(:1, :\"1\") U\r\nGROUP BY\r\n  a.b.b,\r\n  "
        "a.b.'JOIN',\r\n  U.b\r\n");
}

// Names printed unquoted: the table "a".b prints a.b, which is not the procedure "a.b" in its
// other spelling ("a.b" is one name, a.b two). Read back, a.b was refused as a second entry
// of the procedure's alias.
TEST(FuzzRegression, DottedNameIsNotTheQuotedNameWithADot)
{
    EXPECT_EQ(
        PrintUnquoted(TSetting::Generic, "SELECT \"a.b\".c * \"a\".b.d FROM \"a\".b, \"a.b\"(1)"),
        "SELECT \r\n  \"a.b\".c * \"a\".b.d AS FIELD_1\r\nFROM\r\n  \"a.b\"(:1),\r\n"
        "  a.b\r\n");
}

TEST_P(FuzzRegressionRoundTrip, PrintsAndReadsBack)
{
    const TCase& c = GetParam();
    const std::string printed = Print(c.Setting, c.Input);
    EXPECT_EQ(printed, c.Printed);
    EXPECT_EQ(Print(c.Setting, printed), printed);
}

INSTANTIATE_TEST_SUITE_P(
    FuzzRegression, FuzzRegressionRoundTrip,
    ::testing::Values(
        TCase{"InterBase3DottedNameCopiedToSecondTable", TSetting::InterBase3,
              "SELECT \"a.b\" FROM T, E",
              "SELECT \r\n  T.\"a.b\",\r\n  E.\"a.b\" AS \"\"\"a.b\"\"1\"\r\nFROM\r\n  T,\r\n  "
              "E\r\n"},
        TCase{"InterBase3DottedNameTwice", TSetting::InterBase3, "SELECT \"a.b\", \"a.b\" FROM T",
              "SELECT \r\n  T.\"a.b\",\r\n  T.\"a.b\" AS \"\"\"a.b\"\"1\"\r\nFROM\r\n  T\r\n"},
        TCase{
            "MySQLDottedNameCopiedToSecondTable", TSetting::MySQL, "SELECT `a.b` FROM T, E",
            "SELECT \r\n  `T`.`a.b`,\r\n  `E`.`a.b` AS ```a.b``1`\r\nFROM\r\n  `T`,\r\n  `E`\r\n"},
        TCase{"MySQLDottedNameAfterExpression", TSetting::MySQL, "SELECT `m.`,t.FROM E",
              "SELECT \r\n  `t`.`m.`,\r\n  t. AS `FIELD_1`,\r\n  `E`.`m.` AS ```m.``1`\r\nFROM\r\n"
              "  `E`\r\n"},
        // Dialect 1 never quotes a name: an alias made from a word that is no identifier (#1)
        // did not read back, so such a column is given an alias as an expression is.
        TCase{"InterBase1UnknownWordTwice", TSetting::InterBase1, "select A,#,# from T",
              "SELECT \r\n  T.A,\r\n  #,\r\n  # AS FIELD_1\r\nFROM\r\n  T\r\n"},
        // GROUP BY names a column as the select list prints it: a qualifier with a dot inside
        // was split anew at its dots together with the name, which named another column and
        // did not print the same once read back.
        TCase{"GenericDottedQualifierInGroupBy", TSetting::Generic,
              "SELECT A.C.A.I, COUNT(*) FROM T",
              "SELECT \r\n  \"A.C\".\"A\".\"I\",\r\n  COUNT(*) AS FIELD_1\r\nFROM\r\n  \"T\"\r\n"
              "GROUP BY\r\n  \"A.C\".\"A\".\"I\"\r\n"},
        TCase{"MySQLDottedQualifierInGroupBy", TSetting::MySQL, "SELECT MIN,A.C.A.I FROM T",
              "SELECT \r\n  MIN() AS `FIELD_1`,\r\n  `A.C`.`A`.`I`\r\nFROM\r\n  `T`\r\n"
              "GROUP BY\r\n  `A.C`.`A`.`I`\r\n"},
        // Beside a part kept in its quotes ("a.b") the parts of a dotted name print as they
        // stand: a lower-case part read from quotes ("x") lost them and read back upper-case.
        TCase{"InterBase3LowerCasePartOfDottedNames", TSetting::InterBase3,
              "SELECT \"a.b\".\"x\".\"y\".C FROM \"a.b\".\"x\".\"y\"",
              "SELECT \r\n  \"a.b\".\"x\".\"y\".C\r\nFROM\r\n  \"a.b\".\"x\".\"y\"\r\n"},
        TCase{"InterBase3LowerCasePartOfDottedNameInWhere", TSetting::InterBase3,
              "SELECT T.A FROM T WHERE \"a.b\".\"x\".\"y\".C = 1",
              "SELECT \r\n  T.A\r\nFROM\r\n  T\r\nWHERE\r\n  (\"a.b\".\"x\".\"y\".C = 1)\r\n"},
        TCase{"InterBase3LowerCasePartOfDottedNameInJoin", TSetting::InterBase3,
              "SELECT A.C FROM \"a.b\".\"x\".\"y\" A INNER JOIN U ON (\"a.b\".\"x\".\"y\".C = U.D)",
              "SELECT \r\n  A.C\r\nFROM\r\n  \"a.b\".\"x\".\"y\" A \r\n  INNER JOIN U ON (A.C = "
              "U.D)\r\n"},
        TCase{"Firebird3LowerCasePartBeforeEmptyPart", TSetting::Firebird3,
              "SELECT\"{.\".\"x\".\"\".\"y\"", "SELECT \r\n  \"{.\".\"x\".\"\".\"y\""},
        // A backslash escapes a back quote inside back quotes, so a name holding \` printed
        // with its back quote doubled did not end where it should: that back quote is
        // written once, in names and in the aliases made from them.
        TCase{"MySQLBackslashQuoteInQualifier", TSetting::MySQL, "SELECT `\\``.U",
              "SELECT \r\n  `\\``.`U`"},
        TCase{"MySQLBackslashQuoteInTableName", TSetting::MySQL, "SELECT U FROM `\\``",
              "SELECT \r\n  `\\``.`U`\r\nFROM\r\n  `\\``\r\n"},
        TCase{"MySQLBackslashQuoteInAlias", TSetting::MySQL, "SELECT A AS `\\`` FROM T",
              "SELECT \r\n  `T`.`A` AS `\\``\r\nFROM\r\n  `T`\r\n"},
        TCase{"MySQLBackslashQuoteNameTwice", TSetting::MySQL, "SELECT `\\``,`\\`` FROM T",
              "SELECT \r\n  `T`.`\\``,\r\n  `T`.`\\`` AS `\\`1`\r\nFROM\r\n  `T`\r\n"},
        // A procedure's argument prints as written after its ":": a qualified one lost the
        // quotes of its parts (A."'" printed :A.' and opened a string).
        TCase{"GenericQuotedPartOfProcedureArgument", TSetting::Generic, "SELECT P FROM O(A.\"'\")",
              "SELECT \r\n  \"O\".\"P\"\r\nFROM\r\n  \"O\"(:A.\"'\")\r\n"},
        TCase{"InterBase3QuotedPartsOfProcedureArguments", TSetting::InterBase3,
              "SELECT P FROM O(A.\"'\", a.\"b\")",
              "SELECT \r\n  O.P\r\nFROM\r\n  O(:A.\"'\", :A.\"b\")\r\n"},
        TCase{"Firebird1EmptyPartOfQualifierKeptAsWritten", TSetting::Firebird1,
              "SELECT E.\"\".F FROM T", "SELECT \r\n  E.\"\".F AS FIELD_1\r\nFROM\r\n  T\r\n"},
        // A part that is a lone quote (""""), kept bare, was taken for the opening quote of a
        // part kept in its quotes, so the parts after it lost theirs.
        TCase{"InterBase3QuoteCharacterAsPartOfDottedName", TSetting::InterBase3,
              "SELECT \"\"\"\".\"x\".T", "SELECT \r\n  \"\"\"\".\"x\".T"},
        // A procedure joined twice prints its call at each join; reading the same call again
        // added its arguments once more, so they doubled at every round trip. Different
        // arguments in two calls are still all kept.
        TCase{"GenericProcedureJoinedTwice", TSetting::Generic,
              "SELECT T.A FROM T INNER JOIN P(1) ON (T.A = P.B) INNER JOIN P ON (T.C = P.D)",
              // One procedure call, joined on both conditions (named twice, FROM was an error).
              "SELECT \r\n  \"T\".\"A\"\r\nFROM\r\n  \"T\" \r\n  INNER JOIN \"P\"(:1) ON "
              "(\"T\".\"A\" = \"P\".\"B\" AND \"T\".\"C\" = \"P\".\"D\")\r\n"},
        TCase{"GenericProcedureCalledTwiceWithOtherArguments", TSetting::Generic,
              "SELECT P.X FROM P(1) P, P(2) P",
              "SELECT \r\n  \"P\".\"X\"\r\nFROM\r\n  \"P\"(:1, :2)\r\n"},
        // An alias equal to the name does not print, so X AS X beside another X read back
        // with a generated alias: it names the column as X alone does.
        TCase{"GenericAliasEqualToNameBesideSameColumn", TSetting::Generic, "SELECT X, X AS X",
              "SELECT \r\n  \"X\",\r\n  \"X\" AS X1"},
        TCase{"GenericAliasEqualToNameCopiedToEveryTable", TSetting::Generic,
              "SELECT X AS X FROM T1, T2",
              "SELECT \r\n  \"T1\".\"X\",\r\n  \"T2\".\"X\" AS X1\r\nFROM\r\n  \"T1\",\r\n  "
              "\"T2\"\r\n"},
        TCase{"Firebird1AliasEqualToNameAfterThatAlias", TSetting::Firebird1,
              "SELECT A AS X, X AS X FROM T",
              "SELECT \r\n  T.A AS X,\r\n  T.X AS X1\r\nFROM\r\n  T\r\n"},
        // A table joined from two tables prints its own joins after each; reading the same
        // join again added it once more, so it doubled at every round trip.
        TCase{"GenericTableJoinedFromTwoTables", TSetting::Generic,
              "SELECT A1.X FROM A1 LEFT JOIN A3 ON (A1.O > A3.C), A2 RIGHT JOIN A3 ON (A2.S > "
              "A3.C) LEFT JOIN A4 ON (A3.S < A4.D)",
              // A3 is named once; A2 comes in through it, its right join turned round.
              "SELECT \r\n  \"A1\".\"X\"\r\nFROM\r\n  \"A1\" \r\n  LEFT OUTER JOIN \"A3\" ON "
              "(\"A1\".\"O\" > \"A3\".\"C\") \r\n  LEFT OUTER JOIN \"A2\" ON (\"A3\".\"C\" < "
              "\"A2\".\"S\")\r\n  LEFT OUTER JOIN \"A4\" ON (\"A3\".\"S\" < \"A4\".\"D\")\r\n"},
        // A name holding ".db" is quoted whole, as a file name; one kept in its quotes
        // already was quoted a second time and read back as other tokens.
        TCase{"Firebird3QuotedNameWithDbKeptInItsQuotes", TSetting::Firebird3, "SELECT\".db\"\"\"",
              "SELECT \r\n  \".db\"\"\""},
        TCase{"GenericQuotedTableNameWithDb", TSetting::Generic, "SELECT A FROM \".db\"\"\"",
              "SELECT \r\n  \".db\"\"\".\"A\"\r\nFROM\r\n  \".db\"\"\"\r\n"},
        // S.T.U prints as "S.T"."U", which reads back as another name than S.T.U: two tables
        // that print alike became one, and a qualifier stopped naming the table of a call.
        TCase{"GenericThreePartNameAndItsPrintNameOneTable", TSetting::Generic,
              "SELECT M FROM A0.UNIT.X,\"A0.UNIT\".X",
              "SELECT \r\n  \"A0.UNIT\".\"X\".\"M\"\r\nFROM\r\n  \"A0.UNIT\".\"X\"\r\n"},
        TCase{"MySQLThreePartQualifierInCall", TSetting::MySQL, "SELECT L,MIN(M,W.S.e.)FROM T",
              "SELECT \r\n  `W.S`.`e`.`L`,\r\n  MIN(`W.S`.`e`.`M`, W.S.e.) AS `FIELD_1`,\r\n  "
              "`T`.`L` AS `L1`\r\nFROM\r\n  `T`\r\nGROUP BY\r\n  `W.S`.`e`.`L`,\r\n  "
              "`T`.`L`\r\n"},
        // A FROM entry whose name an earlier entry uses as alias (T2 WZB, then WZB W) took
        // that table over instead of adding its own.
        TCase{"GenericNameUsedAsAliasByEarlierEntry", TSetting::Generic,
              "SELECT T2.X FROM WZB W,T2 WZB",
              "SELECT \r\n  \"WZB\".\"X\"\r\nFROM\r\n  \"T2\" WZB,\r\n  \"WZB\" W\r\n"},
        // A string whose text is an operation ('/') reaches the parser as tkOperation: it was
        // read as a name, which prints as nothing where names are never quoted.
        TCase{"InterBase1StringHoldingAnOperation", TSetting::InterBase1,
              "SELECT A FROM T WHERE A='/'",
              "SELECT \r\n  T.A\r\nFROM\r\n  T\r\nWHERE\r\n  (A = '/')\r\n"},
        TCase{"InterBase3StringHoldingAnOperation", TSetting::InterBase3,
              "SELECT A FROM T WHERE A='+' OR B='*'",
              "SELECT \r\n  T.A\r\nFROM\r\n  T\r\nWHERE\r\n  (A = '+') OR \r\n  (B = '*')\r\n"},
        // A dotted name with a part that holds ".db" was quoted whole as a file name, quotes
        // of its parts and all.
        TCase{"Firebird3DbPartKeptInQuotesBeforeMore", TSetting::Firebird3, "SELECT\".db\"\"\".M.M",
              "SELECT \r\n  \".db\"\"\".M.M"},
        TCase{"MySQLDbStringAsQualifierPart", TSetting::MySQL, "SELECT\".db\"\"\".M.M",
              "SELECT \r\n  `.db\"`.`M`.`M`"},
        // In a condition a qualifier and its field print as one name, where the qualifier's
        // last part stands in the middle: a lower-case part read from quotes lost them.
        TCase{"InterBase3LowerCaseLastQualifierPartInWhere", TSetting::InterBase3,
              "SELECT T.A FROM T WHERE \"E.\".\"y\".C=1",
              "SELECT \r\n  T.A\r\nFROM\r\n  T\r\nWHERE\r\n  (\"E.\".\"y\".C = 1)\r\n"},
        TCase{"InterBase3EmptyFirstPartOfDottedName", TSetting::InterBase3,
              "SELECT \"\".J.\"x\".a.D", "SELECT \r\n  \"\".J.\"x\".A.D"},
        // A back quote after a backslash is escaped by it already: doubled as well, the
        // name closed early and the rest of the statement read as something else.
        TCase{"MySQLBackQuoteAfterBackslashInName", TSetting::MySQL,
              "SELECT `\\`\"my A1.*, 2, `,`x`", "SELECT \r\n  `\\`\"my A1.*, 2, `,\r\n  `x`"},
        // A string part of a dotted qualifier ('.') holds a dot: the plain text Q.. named the
        // table "Q."."" once its print was read back.
        // A string part ('''.''', which holds '.') split at its dot all the same: its two
        // halves each printed as written, and the print read back as an open string.
        TCase{"GenericStringPartWithQuotesAndDotInQualifier", TSetting::Generic,
              "SELECT K.'''.'''.x", "SELECT \r\n  \"K\".\"'.'\".\"x\""},
        TCase{"GenericStringPartWithDotInQualifier", TSetting::Generic, "SELECT Q.'.'.c",
              "SELECT \r\n  \"Q\".\".\".\"c\""},
        // A table name whose last part begins with a dot (".''", K..'' unquoted) prints split
        // after K, as two parts; the model quoted K. as if it were the prefix of three parts
        // and the print named the table "K.".'' (another table, read back as "K."."").
        TCase{"GenericQuotedLastPartBeginningWithDot", TSetting::Generic, "SELECT A FROM K.\".''\"",
              "SELECT \r\n  \"K\".\".''\".\"A\"\r\nFROM\r\n  \"K\".\".''\"\r\n"},
        // A table aliased by a string that reads as an operation ('/') is named so in the
        // select list: the list may start with it.
        TCase{"GenericOperationStringAsTableAlias", TSetting::Generic, "SELECT\tA FROM K'/'",
              "SELECT \r\n  '/'.\"A\"\r\nFROM\r\n  \"K\" '/'\r\n"},
        // A qualifier that names a table twice in FROM, once aliased: the aliased entry took
        // the qualifier's table by its name, where the expression still printed T2 and read
        // back named the other entry, so FROM changed its order. The entry without alias is
        // what the qualifier means.
        TCase{"Firebird1QualifierOfTableNamedTwice", TSetting::Firebird1,
              "SELECT T2.,B FROM T2 V,T2",
              "SELECT \r\n  T2. AS FIELD_1,\r\n  T2.B,\r\n  V.B AS B1\r\nFROM\r\n  T2,\r\n  T2 "
              "V\r\n"},
        TCase{"MySQLDottedQualifierOfTableNamedTwice", TSetting::MySQL,
              "SELECT MIN(A1.ID.),A FROM A1.ID H,A1.ID",
              "SELECT \r\n  MIN(A1.ID.) AS `FIELD_1`,\r\n  `A1`.`ID`.`A`,\r\n  `H`.`A` AS `A1`\r\n"
              "FROM\r\n  `A1`.`ID`,\r\n  `A1`.`ID` `H`\r\nGROUP BY\r\n  `A1`.`ID`.`A`,\r\n  "
              "`H`.`A`\r\n"},
        TCase{"GenericExpressionOfTableNamedTwice", TSetting::Generic, "SELECT T.A + 1 FROM T X, T",
              "SELECT \r\n  T.A + 1 AS FIELD_1\r\nFROM\r\n  \"T\",\r\n  \"T\" X\r\n"},
        // T T names T without alias, as its print does.
        TCase{"InterBase3QualifierOfTableNamedTwiceAliasedByItsName", TSetting::InterBase3,
              "select A.From A R,A A", "SELECT \r\n  A. AS FIELD_1\r\nFROM\r\n  A,\r\n  A R\r\n"},
        // A qualifier A that A R took by its name means the later entry aliased A.
        TCase{"Firebird1QualifierOfLaterAlias", TSetting::Firebird1, "select t,A.From A R,X,J A",
              "SELECT \r\n  A.T,\r\n  A. AS FIELD_1,\r\n  X.T AS T1,\r\n  R.T AS T2\r\nFROM\r\n  "
              "J A,\r\n  X,\r\n  A R\r\n"},
        // With a join in the statement the table goes to the later entry as well, and the
        // join it owns stays with the entry that wrote it (joins name their tables by alias).
        TCase{"GenericExpressionOfTableNamedTwiceWithJoin", TSetting::Generic,
              "SELECT T.A + 1 FROM T X INNER JOIN U ON (X.A = U.A), T",
              "SELECT \r\n  T.A + 1 AS FIELD_1\r\nFROM\r\n  \"T\",\r\n  \"T\" X \r\n  INNER JOIN "
              "\"U\" "
              "ON (\"X\".\"A\" = \"U\".\"A\")\r\n"},
        // A string that prints in identifier quotes ('.' gives ".") was kept as "." where
        // "." itself reads as the plain ".": beside a column named . it then needed an alias
        // only once read back.
        TCase{"GenericStringDotBesideDot", TSetting::Generic, "select'.',.",
              "SELECT \r\n  '.' AS FIELD_1,\r\n  ."},
        // A procedure called twice in FROM: the second call's arguments went to the first
        // entry of that name, and its call then printed arguments that read otherwise.
        TCase{"GenericProcedureCalledTwice", TSetting::Generic, "SELECT A FROM P(1) X, P(2)",
              "SELECT \r\n  \"X\".\"A\",\r\n  \"P\".\"A\" AS A1\r\nFROM\r\n  \"P\"(:1) X,\r\n"
              "  \"P\"(:2)\r\n"},
        TCase{"InterBase3ProcedureCalledTwice", TSetting::InterBase3, "select b from t(.)z,t(()",
              "SELECT \r\n  Z.B,\r\n  T.B AS B1\r\nFROM\r\n  T(:.) Z,\r\n  T(:()\r\n"},
        // A dotted qualifier with a quoted part ("".K) prints as ""."K": kept as written, it
        // was another alias text than its own print, which read back as a second table.
        TCase{"GenericQuotedPartOfDottedQualifierKeptAsPrinted", TSetting::Generic,
              "SELECT Y,MIN(M,\"\".K.)FROM K",
              "SELECT \r\n  \"\".\"K\".\"Y\",\r\n  MIN(\"\".\"K\".\"M\", \"\".K.) AS FIELD_1,\r\n  "
              "\"K\".\"Y\" AS Y1\r\nFROM\r\n  \"K\"\r\nGROUP BY\r\n  \"\".\"K\".\"Y\",\r\n  "
              "\"K\".\"Y\"\r\n"},
        // ORDER BY and GROUP BY names are weighed against their parts kept in quotes, as the
        // select list's are: "select" kept bare beside the quoted "a.b" did not read back.
        TCase{"GenericOrderByKeywordPartBesideQuotedDot", TSetting::Generic,
              "SELECT A FROM T ORDER BY \"select\".\"a.b\".X",
              "SELECT \r\n  \"T\".\"A\"\r\nFROM\r\n  \"T\"\r\nORDER BY\r\n  "
              "\"select\".\"a.b\".\"X\"\r\n"},
        // Three parts stay three: the prefix was quoted whole ("select.a").
        TCase{"GenericOrderByQuotedPartsStayParts", TSetting::Generic,
              "SELECT A FROM T ORDER BY \"select\".\"a\".'X'",
              "SELECT \r\n  \"T\".\"A\"\r\nFROM\r\n  \"T\"\r\nORDER BY\r\n  "
              "\"select\".\"a\".'X'\r\n"},
        TCase{"MySQLOrderByKeywordPartBesideQuotedDot", TSetting::MySQL,
              "SELECT b FROM `a.b`.\"JOIN\" ORDER BY `a.b`.\"JOIN\".`A` ASC",
              "SELECT \r\n  `a.b`.`JOIN`.`b`\r\nFROM\r\n  `a.b`.`JOIN`\r\nORDER BY\r\n  "
              "`a.b`.`JOIN`.`A`\r\n"},
        // A quoted alias is the alias a qualifier of the select list named: it is found before
        // the table a qualifier made under the entry's name. Both qualifiers are that table,
        // so the call over them is a call.
        TCase{"GenericQuotedAliasBeforeNameAsAlias", TSetting::Generic,
              "SELECT MAX(\"MIN\".a, \"x\".a), \"x\".b FROM \"MIN\" \"x\"",
              "SELECT \r\n  MAX(\"x\".\"a\", \"x\".\"a\") AS FIELD_1,\r\n  \"x\".\"b\"\r\nFROM\r\n"
              "  \"MIN\" \"x\"\r\nGROUP BY\r\n  \"x\".\"b\"\r\n"},
        // The same with the alias quoted in FROM only: the table the qualifier of the name made
        // is the entry's too.
        TCase{"GenericCallOverNameAndQuotedAliasOfOneTable", TSetting::Generic,
              "SELECT \"count\".a, COUNT(\"count\".b, Y1.c + 1) FROM \"Y1\" \"count\"",
              "SELECT \r\n  \"count\".\"a\",\r\n  COUNT(\"count\".\"b\", Y1.c + 1) AS FIELD_1\r\n"
              "FROM\r\n  \"Y1\" \"count\"\r\nGROUP BY\r\n  \"count\".\"a\"\r\n"},
        // A call with arguments of two tables is kept as text with the table its arguments
        // name first: the unqualified argument of the call around it prints with that table,
        // which is then named first on reading back too (FROM kept its order).
        TCase{"MySQLCallOfTwoTablesKeepsTheTableNamedFirst", TSetting::MySQL,
              "SELECT MAX(b, MIN(\"select\".''''., A.)) FROM \"select\".'''', 'b'.\"\" A",
              "SELECT \r\n  MAX(`select`.`'`.`b`, MIN(\"select\".''''., A.)) AS "
              "`FIELD_1`\r\nFROM\r\n  "
              "`select`.`'`,\r\n  `b`.`` `A`\r\n"},
        // FROM T X, T "X": the quoted spelling of the alias is that table again.
        TCase{"GenericQuotedSpellingOfAliasOfSameTable", TSetting::Generic,
              "SELECT a FROM T X, T \"X\"",
              "SELECT \r\n  \"X\".\"a\"\r\nFROM\r\n  \"T\" \"X\"\r\n"},
        // SELECT d., A., D FROM A, d O: the qualifier d made a table that d O took by its name;
        // its columns print with O, which made a table of its own on reading back, after A:
        // the two are one table once FROM is read, where the first of them stood.
        TCase{"Firebird1ExpressionAndColumnOfTableTakenByName", TSetting::Firebird1,
              "select d.,A.,D FROM A,d O",
              "SELECT \r\n  d. AS FIELD_1,\r\n  A. AS FIELD_2,\r\n  O.D,\r\n  A.D AS D1\r\nFROM\r\n"
              "  D O,\r\n  A\r\n"},
        // A call over the name and the alias of one table (MAX(A.X, S.Y) ... FROM A S) is a
        // call: the qualifiers made two tables, which FROM made one. Read as text, the print
        // of such a call (its columns qualified by S, an expression in it as written) read
        // back without the GROUP BY the call called for.
        TCase{"GenericCallOverNameAndAliasOfOneTable", TSetting::Generic,
              "SELECT N, MAX(A.X, S.Y) FROM A S",
              "SELECT \r\n  \"S\".\"N\",\r\n  MAX(\"S\".\"X\", \"S\".\"Y\") AS FIELD_1\r\nFROM\r\n"
              "  \"A\" S\r\nGROUP BY\r\n  \"S\".\"N\"\r\n"},
        TCase{"GenericCallOverExpressionAndColumnOfOneTable", TSetting::Generic,
              "SELECT N,MAX(A.,Y)FROM A S",
              "SELECT \r\n  \"S\".\"N\",\r\n  MAX(A., \"S\".\"Y\") AS FIELD_1\r\nFROM\r\n  \"A\" "
              "S\r\n"
              "GROUP BY\r\n  \"S\".\"N\"\r\n"},
        TCase{"GenericCallOverQuotedAliasAndNameBesideJoin", TSetting::Generic,
              "SELECT 's', Y1.K, MIN(X, A1._x) FROM A1 \"my t\" INNER JOIN \"1\" Y1 ON "
              "(A1.A = Y1.x)",
              "SELECT \r\n  's' AS FIELD_1,\r\n  \"Y1\".\"K\",\r\n  MIN(\"my t\".\"X\", A1._x) AS "
              "FIELD_2\r\nFROM\r\n  \"A1\" \"my t\" \r\n  INNER JOIN \"1\" Y1 ON (\"my t\".\"A\" = "
              "\"Y1\".\"x\")\r\nGROUP BY\r\n  \"Y1\".\"K\"\r\n"},
        // A procedure entry that took the qualifier's table by its name gives it to the later
        // entry the qualifier names, as a table entry does, and its call goes with it to the
        // end of FROM (the later entry was refused). Also by the quoted spelling of the alias.
        TCase{"GenericProcedureGivesTheQualifierTableToTheLaterEntry", TSetting::Generic,
              "SELECT U.x, N FROM U(1) A1, b U",
              "SELECT \r\n  \"U\".\"x\",\r\n  \"U\".\"N\",\r\n  \"A1\".\"N\" AS N1\r\nFROM\r\n"
              "  \"b\" U,\r\n  \"U\"(:1) A1\r\n"},
        TCase{
            "GenericProcedureGivesBackWithItsJoins", TSetting::Generic,
            "SELECT N, U.x FROM U(1) A1 LEFT OUTER JOIN C ON (A1.q = C.q), b U",
            "SELECT \r\n  \"U\".\"N\",\r\n  \"U\".\"x\",\r\n  \"C\".\"N\" AS N1,\r\n  \"A1\".\"N\" "
            "AS N2\r\nFROM\r\n  \"b\" U,\r\n  \"U\"(:1) A1 \r\n  LEFT OUTER JOIN \"C\" ON "
            "(\"A1\".\"q\" = \"C\".\"q\")\r\n"},
        TCase{"GenericProcedureGivesBackToTheSameProcedure", TSetting::Generic,
              "SELECT N, U.x FROM U(1) A1, U(2)",
              "SELECT \r\n  \"U\".\"N\",\r\n  \"U\".\"x\",\r\n  \"A1\".\"N\" AS N1\r\nFROM\r\n"
              "  \"U\"(:2),\r\n  \"U\"(:1) A1\r\n"},
        TCase{"GenericProcedureGivesBackByQuotedAlias", TSetting::Generic,
              "SELECT COUNT(\"T2\".T2) + 1, N FROM T2(:p) 'ORDER', 'a' \"T2\"",
              "SELECT \r\n  COUNT(\"T2\".T2) + 1 AS FIELD_1,\r\n  \"T2\".\"N\",\r\n  'ORDER'.\"N\" "
              "AS "
              "N1\r\nFROM\r\n  'a' \"T2\",\r\n  \"T2\"(:p) 'ORDER'\r\n"},
        // The entry that gave the qualifier's table back stands where its print reads back:
        // before the tables only FROM named after it (it stood last, so that T I, written
        // after it, took the table on reading back and the join moved).
        TCase{"GenericGivenBackEntryBeforeLaterEntriesWithJoin", TSetting::Generic,
              "SELECT T.a FROM T X, T I RIGHT OUTER JOIN B T ON (X.r = T.q)",
              "SELECT \r\n  \"T\".\"a\"\r\nFROM\r\n  \"T\" X \r\n  RIGHT OUTER JOIN \"B\" T ON "
              "(\"X\".\"r\" = \"T\".\"q\"),\r\n  \"T\" I\r\n"},
        TCase{"GenericGivenBackEntryBeforeLaterEntries", TSetting::Generic,
              "SELECT T.a FROM T X, T I, B T",
              "SELECT \r\n  \"T\".\"a\"\r\nFROM\r\n  \"B\" T,\r\n  \"T\" X,\r\n  \"T\" I\r\n"},
        // A table a qualifier made holds no column here (b.* is inside the expression), yet
        // it is read back first: the entry that gave a table back goes after it.
        TCase{
            "GenericGivenBackEntryAfterTablesTheSelectListNames", TSetting::Generic,
            "SELECT MIN(U.x, b.*) + 1 FROM U X, A(1) b, B U",
            "SELECT \r\n  MIN(U.x, b.*) + 1 AS FIELD_1\r\nFROM\r\n  \"B\" U,\r\n  \"A\"(:1) b,\r\n"
            "  \"U\" X\r\n"},
        // With unqualified columns every table holds some: it is named last.
        TCase{"GenericGivenBackEntryWithUnqualifiedColumnsLast", TSetting::Generic,
              "SELECT N, T.a FROM T X, T I, B T",
              "SELECT \r\n  \"T\".\"N\",\r\n  \"T\".\"a\",\r\n  \"I\".\"N\" AS N1,\r\n  "
              "\"X\".\"N\" AS "
              "N2\r\nFROM\r\n  \"B\" T,\r\n  \"T\" I,\r\n  \"T\" X\r\n"},
        // SELECT A1., A1.S FROM A1 E, A1 P printed E.S and read back: A1 E is found by its
        // alias and merges the table the qualifier A1 made, which the later A1 P took by its
        // name first, before A1 E in FROM.
        TCase{"InterBase1LaterEntryLeavesTheTableAnEarlierEntryMerges", TSetting::InterBase1,
              "select A1.,A1.S FROM A1 E,A1 P",
              "SELECT \r\n  A1. AS FIELD_1,\r\n  E.S\r\nFROM\r\n  A1 E,\r\n  A1 P\r\n"},
        // FROM U a, V, U K: U K, found by its alias, stands for the table the qualifier U made
        // though U a took it by its name first: printed after K, U a had taken the table on
        // reading back only in this order (the print puts K first).
        TCase{"GenericEntryFoundByAliasReclaimsTheTableOfItsName", TSetting::Generic,
              "SELECT K.y, U.x + 1, V.z FROM U a, V, U K",
              "SELECT \r\n  \"K\".\"y\",\r\n  U.x + 1 AS FIELD_1,\r\n  \"V\".\"z\"\r\nFROM\r\n"
              "  \"U\" K,\r\n  \"V\",\r\n  \"U\" a\r\n"},
        // With unqualified columns a table FROM adds holds copies of them, printed qualified by
        // its alias, so that read back the entry is found by it: A "my t" reclaims the table
        // the qualifier A (in F(a.Y1...)) made from A FIELD_1 here as well.
        TCase{
            "InterBase1EntryHoldingUnqualifiedColumnsReclaimsTheTableOfItsName",
            TSetting::InterBase1,
            "SELECT a.Y1.x, MIN(Name), COUNT(F(a.Y1.'\"')) FROM a FIELD_1, a.Y1('s'), a \"my t\"",
            "SELECT \r\n  A.Y1.X,\r\n  MIN(A.Y1.NAME) AS FIELD_1,\r\n  COUNT(F(a.Y1.'\"')) AS "
            "FIELD_2,\r\n  MIN(MY_T.NAME) AS FIELD_4,\r\n  MIN(FIELD_1.NAME) AS FIELD_5\r\nFROM\r\n"
            "  A.Y1(:'s'),\r\n  A MY_T,\r\n  A FIELD_1\r\nGROUP BY\r\n  A.Y1.X\r\n"},
        // Of two tables it stays text, also around a call over one table.
        TCase{"GenericCallOverTwoTablesStaysText", TSetting::Generic,
              "SELECT N, MAX(A.X, B.Y) FROM A, B",
              "SELECT \r\n  \"A\".\"N\",\r\n  MAX(A.X, B.Y) AS FIELD_1\r\nFROM\r\n  \"A\",\r\n"
              "  \"B\"\r\n"},
        TCase{"GenericCallOverOneTableInCallOverTwo", TSetting::Generic,
              "SELECT N, MAX(MIN(A.X, S.Y), B.Z) FROM A S, B",
              "SELECT \r\n  \"S\".\"N\",\r\n  MAX(MIN(A.X, S.Y), B.Z) AS FIELD_1\r\nFROM\r\n"
              "  \"A\" S,\r\n  \"B\"\r\n"},
        // SELECT B.*, Y.A FROM Y X, B Y: the table Y X took by its name goes back to B Y, and
        // the table the qualifier B made is that entry's too. It stayed a table without a
        // FROM entry, whose B.* read back as B Y's.
        TCase{"GenericTableGivenBackTakesTheTableOfItsName", TSetting::Generic,
              "SELECT B.*, Y.A FROM Y X, B Y",
              "SELECT \r\n  \"Y\".*,\r\n  \"Y\".\"A\"\r\nFROM\r\n  \"B\" Y,\r\n  \"Y\" X\r\n"},
        TCase{"Firebird3TableGivenBackBesideDottedName", TSetting::Firebird3,
              "SELECT Y1.\"A\".T, Y1._x AS 'Name', B.*, Y1.* FROM Y1.\"A\", 'Y1' \"a\", B Y1",
              "SELECT \r\n  Y1.A.T,\r\n  Y1._x AS \"Name\",\r\n  Y1.*,\r\n  Y1.*\r\nFROM\r\n"
              "  Y1.A,\r\n  B Y1,\r\n  Y1 \"a\"\r\n"},
        // Every entry below holds a copy of o, printed qualified by its alias, so read back
        // each is found by it and the first of them in the print (A1, which the select list
        // names first) stands for the table the qualifier A0 made. It went to A0 a, the first
        // that FROM as written named, and the print read back with the tables in another
        // order.
        TCase{"InterBase1EntryStandingFirstTakesTheTableOfItsName", TSetting::InterBase1,
              "select A1.,o,X(A0.)FROM C,A0 E,A0 a,A0 a1",
              "SELECT \r\n  A1. AS FIELD_1,\r\n  A1.O,\r\n  X(A0.) AS FIELD_2,\r\n  C.O AS "
              "O1,\r\n  A.O AS O2,\r\n  E.O AS O3\r\nFROM\r\n  A0 A1,\r\n  C,\r\n  A0 A,\r\n"
              "  A0 E\r\n"},
        TCase{"Firebird1NonAsciiWordTwice", TSetting::Firebird1, "select 1,\xC1,\xC1",
              "SELECT \r\n  1 AS FIELD_1,\r\n  \xC1,\r\n  \xC1 AS FIELD_2"}),
    [](const ::testing::TestParamInfo<TCase>& info) { return std::string(info.param.Name); });
