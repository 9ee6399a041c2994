// The InterBase/Firebird scanner: character classes, quoting by dialect, word lists, and the
// option objects of the ROWS and FIRST/SKIP clauses.
#include "dialects/VdIBScanner.h"
#include "dialects/VdIBOptions.h"

#include "core/VdError.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

using namespace vd;

namespace {

// The server's reserved words, in the order the scanner hands them out.
const std::vector<std::string> kKeywords = {
    "ACTION",
    "ACTIVE",
    "ADD",
    "ADMIN",
    "AFTER",
    "ALL",
    "ALTER",
    "AND",
    "OR",
    "ANY",
    "AS",
    "ASC",
    "ASCENDING",
    "AT",
    "AUTO",
    "AUTODDL",
    "AVG",
    "BASED",
    "BASENAME",
    "BASE_NAME",
    "BEFORE",
    "BEGIN",
    "BETWEEN",
    "BLOB",
    "BLOBEDIT",
    "BREAK",
    "BUFFER",
    "BY",
    "CACHE",
    "CASCADE",
    "CAST",
    "CHAR",
    "CHARACTER",
    "CHARACTER_LENGTH",
    "CHAR_LENGTH",
    "CHECK",
    "CHECK_POINT_LEN",
    "CHECK_POINT_LENGTH",
    "COLLATE",
    "COLLATION",
    "COLUMN",
    "COMMIT",
    "COMMITTED",
    "COMPILETIME",
    "COMPUTED",
    "CLOSE",
    "CONDITIONAL",
    "CONNECT",
    "CONSTRAINT",
    "CONTAINING",
    "CONTINUE",
    "COUNT",
    "CREATE",
    "CSTRING",
    "CURRENT",
    "CURRENT_DATE",
    "CURRENT_ROLE",
    "CURRENT_TIME",
    "CURRENT_TIMESTAMP",
    "CURRENT_USER",
    "CURSOR",
    "DATABASE",
    "DATE",
    "DAY",
    "DB_KEY",
    "DEBUG",
    "DEC",
    "DECIMAL",
    "DECLARE",
    "DEFAULT",
    "DELETE",
    "DESC",
    "DESCENDING",
    "DESCRIBE",
    "DESCRIPTOR",
    "DISCONNECT",
    "DISPLAY",
    "DISTINCT",
    "DO",
    "DOMAIN",
    "DOUBLE",
    "DROP",
    "ECHO",
    "EDIT",
    "ELSE",
    "END",
    "ENTRY_POINT",
    "ESCAPE",
    "EVENT",
    "EXCEPTION",
    "EXECUTE",
    "EXISTS",
    "EXIT",
    "EXTERN",
    "EXTERNAL",
    "EXTRACT",
    "FETCH",
    "FILE",
    "FILTER",
    "FIRST",
    "FLOAT",
    "FOR",
    "FOREIGN",
    "FOUND",
    "FREE_IT",
    "FROM",
    "FULL",
    "FUNCTION",
    "GDSCODE",
    "GENERATOR",
    "GEN_ID",
    "GLOBAL",
    "GOTO",
    "GRANT",
    "GROUP",
    "GROUP_COMMIT_WAIT",
    "GROUP_COMMIT_WAIT_TIME",
    "HAVING",
    "HELP",
    "HOUR",
    "IF",
    "IMMEDIATE",
    "IN",
    "INACTIVE",
    "INDEX",
    "INDICATOR",
    "INIT",
    "INNER",
    "INPUT",
    "INPUT_TYPE",
    "INSERT",
    "INT",
    "INTEGER",
    "INTO",
    "IS",
    "ISOLATION",
    "ISQL",
    "JOIN",
    "KEY",
    "LC_MESSAGES",
    "LC_TYPE",
    "LEFT",
    "LENGTH",
    "LEV",
    "LEVEL",
    "LIKE",
    "LOGFILE",
    "LOG_BUFFER_SIZE",
    "LOG_BUF_SIZE",
    "LONG",
    "MANUAL",
    "MAX",
    "MAXIMUM",
    "MAXIMUM_SEGMENT",
    "MAX_SEGMENT",
    "MERGE",
    "MESSAGE",
    "MIN",
    "MINIMUM",
    "MINUTE",
    "MODULE_NAME",
    "MONTH",
    "NAMES",
    "NATIONAL",
    "NATURAL",
    "NCHAR",
    "NO",
    "NOAUTO",
    "NOT",
    "NULL",
    "NUMERIC",
    "NUM_LOG_BUFS",
    "NUM_LOG_BUFFERS",
    "OCTET_LENGTH",
    "OF",
    "ON",
    "ONLY",
    "OPEN",
    "OPTIONOR",
    "ORDER",
    "OUTER",
    "OUTPUT",
    "OUTPUT_TYPE",
    "OVERFLOW",
    "PAGE",
    "PAGELENGTH",
    "PAGES",
    "PAGE_SIZE",
    "PARAMETER",
    "PASSWORD",
    "PLAN",
    "POSITION",
    "POST_EVENT",
    "PRECISION",
    "PREPARE",
    "PROCEDURE",
    "PROTECTED",
    "PRIMARY",
    "PRIVILEGES",
    "PUBLIC",
    "QUIT",
    "RAW_PARTITIONS",
    "RDB$DB_KEY",
    "READ",
    "REAL",
    "RECORD_VERSION",
    "RECREATE",
    "REFERENCES",
    "RELEASE",
    "RESERV",
    "RESERVING",
    "RESTRICT",
    "RETAIN",
    "RETURN",
    "RETURNING_VALUES",
    "RETURNS",
    "REVOKE",
    "RIGHT",
    "ROLE",
    "ROLLBACK",
    "RUNTIME",
    "SCHEMA",
    "SECOND",
    "SEGMENT",
    "SELECT",
    "SET",
    "SHADOW",
    "SHARED",
    "SHELL",
    "SHOW",
    "SINGULAR",
    "SIZE",
    "SKIP",
    "SMALLINT",
    "SNAPSHOT",
    "SOME",
    "SORT",
    "SQLCODE",
    "SQLERROR",
    "SQLWARNING",
    "STABILITY",
    "STARTING",
    "STARTS",
    "STATEMENT",
    "STATIC",
    "STATISTICS",
    "SUBSTRING",
    "SUB_TYPE",
    "SUM",
    "SUSPEND",
    "TABLE",
    "TERMINATOR",
    "THEN",
    "TIME",
    "TIMESTAMP",
    "TO",
    "TRANSACTION",
    "TRANSLATE",
    "TRANSLATION",
    "TRIGGER",
    "TRIM",
    "TYPE",
    "UNCOMMITTED",
    "UNION",
    "UNIQUE",
    "UPDATE",
    "UPPER",
    "USER",
    "USING",
    "VALUE",
    "VALUES",
    "VARCHAR",
    "VARIABLE",
    "VARYING",
    "VERSION",
    "VIEW",
    "WAIT",
    "WEEKDAY",
    "WHEN",
    "WHENEVER",
    "WHERE",
    "WHILE",
    "WITH",
    "WORK",
    "WRITE",
    "YEAR",
    "YEARDAY",
    "ROWS",
    "PERCENT",
    "TIES",
};

const std::vector<std::string> kFunctions = {"AVG", "CAST", "COUNT", "GEN_ID",
                                             "MAX", "MIN",  "SUM",   "UPPER"};

std::vector<std::string> SplitCommas(const std::string& text)
{
    std::vector<std::string> result;
    std::string item;
    for (char c : text) {
        if (c == ',') {
            result.push_back(item);
            item.clear();
        } else {
            item += c;
        }
    }
    result.push_back(item);
    return result;
}

struct Tok {
    TTokenKind Kind;
    std::string Text;
};

bool operator==(const Tok& a, const Tok& b) { return a.Kind == b.Kind && a.Text == b.Text; }

void PrintTo(const Tok& t, std::ostream* os)
{
    *os << "{" << TokenKindName(t.Kind) << ", \"" << t.Text << "\"}";
}

// Every token of text up to (without) the end token.
std::vector<Tok> Tokens(TVdIBScanner& scanner, const std::string& text)
{
    std::vector<Tok> result;
    scanner.SetExpression(text);
    for (int i = 0; i < 100 && scanner.TokenKind() != tkEnd; ++i) {
        result.push_back({scanner.TokenKind(), scanner.Token()});
        scanner.GetNextToken();
    }
    return result;
}

std::vector<Tok> Tokens(const std::string& text, TVdSQLDialect dialect = qibDialect3)
{
    TVdIBScanner scanner;
    scanner.SetDialect(dialect);
    return Tokens(scanner, text);
}

} // namespace

// ---- word lists ----

TEST(IBKeywords, CommaTextHoldsTheServersWordsInOrder)
{
    TVdIBScanner scanner;
    const std::vector<std::string> words = SplitCommas(scanner.GetCommaKeywords());
    ASSERT_EQ(kKeywords.size(), 290u);
    EXPECT_EQ(words.size(), 290u);
    EXPECT_EQ(words, kKeywords);
}

TEST(IBKeywords, OptionorStandsWhereOptionWouldBe)
{
    TVdIBScanner scanner;
    const std::vector<std::string> words = SplitCommas(scanner.GetCommaKeywords());
    ASSERT_EQ(words.size(), 290u);
    EXPECT_EQ(words[177], "OPEN");
    EXPECT_EQ(words[178], "OPTIONOR");
    EXPECT_EQ(words[179], "ORDER");
    EXPECT_TRUE(scanner.IsKeyword("OPTIONOR"));
    EXPECT_FALSE(scanner.IsKeyword("OPTION"));
}

TEST(IBKeywords, RowsPercentTiesComeLast)
{
    TVdIBScanner scanner;
    const std::vector<std::string> words = SplitCommas(scanner.GetCommaKeywords());
    ASSERT_EQ(words.size(), 290u);
    EXPECT_EQ(words[286], "YEARDAY");
    EXPECT_EQ(words[287], "ROWS");
    EXPECT_EQ(words[288], "PERCENT");
    EXPECT_EQ(words[289], "TIES");
}

TEST(IBKeywords, FunctionAndOperationTexts)
{
    TVdIBScanner scanner;
    EXPECT_EQ(scanner.GetCommaFunctions(), "AVG,CAST,COUNT,GEN_ID,MAX,MIN,SUM,UPPER");
    EXPECT_EQ(scanner.GetCommaOperations(), "+,-,*,/,||");
}

TEST(IBKeywords, LoadedKeywordListHoldsEveryWord)
{
    TVdIBScanner scanner;
    EXPECT_EQ(scanner.Keywords().Count(), 290);
    for (const std::string& word : kKeywords) {
        EXPECT_TRUE(scanner.Keywords().Contains(word)) << word;
        EXPECT_TRUE(scanner.IsKeyword(word)) << word;
    }
}

TEST(IBKeywords, LoadedListsAreLookedUpIgnoringCase)
{
    TVdIBScanner scanner;
    EXPECT_TRUE(scanner.IsKeyword("rows"));
    EXPECT_TRUE(scanner.IsKeyword("Percent"));
    EXPECT_TRUE(scanner.IsKeyword("ties"));
    EXPECT_TRUE(scanner.IsKeyword("rdb$db_key"));
    EXPECT_TRUE(scanner.IsFunction("gen_id"));
    EXPECT_TRUE(scanner.IsFunction("Upper"));
    EXPECT_TRUE(scanner.IsFunction("cast"));
    EXPECT_FALSE(scanner.IsKeyword("CUSTOMER"));
    EXPECT_FALSE(scanner.IsFunction("LOWER"));
    EXPECT_FALSE(scanner.IsFunction("ROWS"));
}

TEST(IBKeywords, LoadedFunctionListHoldsTheEightNames)
{
    TVdIBScanner scanner;
    EXPECT_EQ(scanner.Functions().Count(), 8);
    for (const std::string& name : kFunctions)
        EXPECT_TRUE(scanner.Functions().Contains(name)) << name;
}

TEST(IBKeywords, LoadedOperationsIncludeConcatenation)
{
    TVdIBScanner scanner;
    EXPECT_EQ(scanner.Operations().Count(), 5);
    for (const char* op : {"+", "-", "*", "/", "||"})
        EXPECT_TRUE(scanner.IsOperation(op)) << op;
    EXPECT_FALSE(scanner.IsOperation("|"));
    EXPECT_FALSE(scanner.IsOperation("%"));
}

TEST(IBKeywords, TheListsAreTheSameUnderDialect1)
{
    TVdIBScanner scanner;
    scanner.SetDialect(qibDialect1);
    EXPECT_EQ(scanner.Keywords().Count(), 290);
    EXPECT_TRUE(scanner.IsKeyword("ROWS"));
    EXPECT_TRUE(scanner.IsFunction("GEN_ID"));
}

// ---- character classes ----

TEST(IBScanner, IsAlphaTakesCapitalLettersOnly)
{
    TVdIBScanner scanner;
    EXPECT_TRUE(scanner.IsAlpha('A'));
    EXPECT_TRUE(scanner.IsAlpha('M'));
    EXPECT_TRUE(scanner.IsAlpha('Z'));
    EXPECT_FALSE(scanner.IsAlpha('a'));
    EXPECT_FALSE(scanner.IsAlpha('z'));
    EXPECT_FALSE(scanner.IsAlpha('_'));
    EXPECT_FALSE(scanner.IsAlpha('$'));
    EXPECT_FALSE(scanner.IsAlpha('0'));
    EXPECT_FALSE(scanner.IsAlpha('@'));
    EXPECT_FALSE(scanner.IsAlpha('['));
    EXPECT_FALSE(scanner.IsAlpha(char(0xC4)));
}

TEST(IBScanner, QuotesOfDialect3)
{
    TVdIBScanner scanner;
    ASSERT_EQ(scanner.Dialect(), qibDialect3);
    EXPECT_TRUE(scanner.IsQuote('\''));
    EXPECT_FALSE(scanner.IsQuote('"'));
    EXPECT_TRUE(scanner.IsIdentQuote('"'));
    EXPECT_FALSE(scanner.IsIdentQuote('\''));
    EXPECT_FALSE(scanner.IsQuote('`'));
    EXPECT_FALSE(scanner.IsIdentQuote('`'));
}

TEST(IBScanner, QuotesOfDialect1)
{
    TVdIBScanner scanner;
    scanner.SetDialect(qibDialect1);
    EXPECT_TRUE(scanner.IsQuote('\''));
    EXPECT_TRUE(scanner.IsQuote('"'));
    EXPECT_FALSE(scanner.IsIdentQuote('"'));
    EXPECT_FALSE(scanner.IsIdentQuote('\''));
    EXPECT_FALSE(scanner.IsQuote('`'));
}

// A dialect value the server does not know falls back to the generic quoting.
TEST(IBScanner, UnknownDialectValueUsesTheGenericQuotes)
{
    TVdIBScanner scanner;
    scanner.SetDialect(static_cast<TVdSQLDialect>(7));
    EXPECT_TRUE(scanner.IsQuote('\''));
    EXPECT_TRUE(scanner.IsQuote('"'));
    EXPECT_TRUE(scanner.IsIdentQuote('\''));
    EXPECT_TRUE(scanner.IsIdentQuote('"'));
    EXPECT_TRUE(scanner.GetQuoteIdentifiers());
}

TEST(IBScanner, IdentQuoteIsTheDoubleQuoteInBothDialects)
{
    TVdIBScanner scanner;
    EXPECT_EQ(scanner.GetIdentQuote(), '"');
    scanner.SetDialect(qibDialect1);
    EXPECT_EQ(scanner.GetIdentQuote(), '"');
}

TEST(IBScanner, QuoteIdentifiersFollowsTheDialectOnly)
{
    TVdIBScanner scanner;
    EXPECT_TRUE(scanner.GetQuoteIdentifiers());
    scanner.SetQuoteIdentifiers(false);
    EXPECT_TRUE(scanner.GetQuoteIdentifiers());
    scanner.SetDialect(qibDialect1);
    EXPECT_FALSE(scanner.GetQuoteIdentifiers());
    scanner.SetQuoteIdentifiers(true);
    EXPECT_FALSE(scanner.GetQuoteIdentifiers());
    scanner.SetDialect(qibDialect3);
    EXPECT_TRUE(scanner.GetQuoteIdentifiers());
}

TEST(IBScanner, AliasesAreProcessed)
{
    TVdIBScanner scanner;
    EXPECT_TRUE(scanner.GetProcessAliases());
    scanner.SetDialect(qibDialect1);
    EXPECT_TRUE(scanner.GetProcessAliases());
}

TEST(IBScanner, DollarIsALegalNameCharacter)
{
    TVdIBScanner scanner;
    EXPECT_TRUE(scanner.IsLegalSymbol('$'));
    EXPECT_TRUE(scanner.IsLegalSymbol('A'));
    EXPECT_TRUE(scanner.IsLegalSymbol('9'));
    EXPECT_TRUE(scanner.IsLegalSymbol('_'));
    EXPECT_TRUE(scanner.IsLegalSymbol('-'));
    EXPECT_FALSE(scanner.IsLegalSymbol('a'));
    EXPECT_FALSE(scanner.IsLegalSymbol('#'));
    EXPECT_FALSE(scanner.IsLegalSymbol('.'));
    EXPECT_FALSE(scanner.IsLegalSymbol(' '));
}

TEST(IBScanner, IdentifiersAreUpperCaseWithDollarAllowed)
{
    TVdIBScanner scanner;
    EXPECT_TRUE(scanner.IsIdentifier("CUSTOMER"));
    EXPECT_TRUE(scanner.IsIdentifier("A$B"));
    EXPECT_TRUE(scanner.IsIdentifier("ORDER_DATE"));
    EXPECT_FALSE(scanner.IsIdentifier("customer"));
    EXPECT_FALSE(scanner.IsIdentifier("Customer"));
    EXPECT_FALSE(scanner.IsIdentifier("$A"));
    EXPECT_FALSE(scanner.IsIdentifier("_A"));
    EXPECT_FALSE(scanner.IsIdentifier("MY TABLE"));
}

// ---- NeedQuotes, ProcessIdent, ProcessName ----

TEST(IBScanner, NeedQuotesForKeywordsAndFunctions)
{
    TVdIBScanner scanner;
    EXPECT_TRUE(scanner.NeedQuotes("ORDER"));
    EXPECT_TRUE(scanner.NeedQuotes("order"));
    EXPECT_TRUE(scanner.NeedQuotes("DATE"));
    EXPECT_TRUE(scanner.NeedQuotes("ROWS"));
    EXPECT_TRUE(scanner.NeedQuotes("COUNT"));
    EXPECT_TRUE(scanner.NeedQuotes("GEN_ID"));
    EXPECT_TRUE(scanner.NeedQuotes("RDB$DB_KEY"));
}

TEST(IBScanner, NeedQuotesNotForAQuotedName)
{
    TVdIBScanner scanner;
    EXPECT_FALSE(scanner.NeedQuotes("\"my table\""));
    EXPECT_FALSE(scanner.NeedQuotes("\"abc\""));
    EXPECT_FALSE(scanner.NeedQuotes("\"ORDER\""));
    // The apostrophe is no identifier quote in dialect 3.
    EXPECT_TRUE(scanner.NeedQuotes("'abc'"));
}

TEST(IBScanner, NeedQuotesNotForAPlainUpperCaseIdentifier)
{
    TVdIBScanner scanner;
    EXPECT_FALSE(scanner.NeedQuotes("CUSTOMER"));
    EXPECT_FALSE(scanner.NeedQuotes("A"));
    EXPECT_FALSE(scanner.NeedQuotes("A$B"));
    EXPECT_FALSE(scanner.NeedQuotes("ORDER_DATE"));
    EXPECT_FALSE(scanner.NeedQuotes("MY-COL"));
}

TEST(IBScanner, NeedQuotesForLowerCaseAndBlanks)
{
    TVdIBScanner scanner;
    EXPECT_TRUE(scanner.NeedQuotes("customer"));
    EXPECT_TRUE(scanner.NeedQuotes("Customer"));
    EXPECT_TRUE(scanner.NeedQuotes("a"));
    EXPECT_TRUE(scanner.NeedQuotes("my table"));
    EXPECT_TRUE(scanner.NeedQuotes("MY TABLE"));
    EXPECT_TRUE(scanner.NeedQuotes("_A"));
    EXPECT_TRUE(scanner.NeedQuotes("1A"));
}

TEST(IBScanner, ProcessIdentUnquotesAndUpperCases)
{
    TVdIBScanner scanner;
    EXPECT_EQ(scanner.ProcessIdent("abc"), "ABC");
    EXPECT_EQ(scanner.ProcessIdent("Abc$d"), "ABC$D");
    EXPECT_EQ(scanner.ProcessIdent("ABC"), "ABC");
    EXPECT_EQ(scanner.ProcessIdent("\"abc\""), "ABC");
    EXPECT_EQ(scanner.ProcessIdent("\"my col\""), "MY COL");
    // Not an identifier quote in dialect 3: kept, but upper-cased.
    EXPECT_EQ(scanner.ProcessIdent("'abc'"), "'ABC'");
    EXPECT_EQ(scanner.ProcessIdent("\""), "\"");
}

TEST(IBScanner, ProcessIdentUnderDialect1KeepsDoubleQuotes)
{
    TVdIBScanner scanner;
    scanner.SetDialect(qibDialect1);
    EXPECT_EQ(scanner.ProcessIdent("abc"), "ABC");
    EXPECT_EQ(scanner.ProcessIdent("\"abc\""), "\"ABC\"");
}

TEST(IBScanner, ProcessNameDialect3PlainNames)
{
    TVdIBScanner scanner;
    EXPECT_EQ(scanner.ProcessName("CUSTOMER"), "CUSTOMER");
    EXPECT_EQ(scanner.ProcessName("A$B"), "A$B");
    EXPECT_EQ(scanner.ProcessName("my table"), "\"my table\"");
    EXPECT_EQ(scanner.ProcessName("customer"), "\"customer\"");
    EXPECT_EQ(scanner.ProcessName("ORDER"), "\"ORDER\"");
    EXPECT_EQ(scanner.ProcessName("DATE"), "\"DATE\"");
    EXPECT_EQ(scanner.ProcessName("COUNT"), "\"COUNT\"");
    EXPECT_EQ(scanner.ProcessName("\"my table\""), "\"my table\"");
}

TEST(IBScanner, ProcessNameDialect3DoublesQuotesInside)
{
    TVdIBScanner scanner;
    EXPECT_EQ(scanner.ProcessName("a\"b"), "\"a\"\"b\"");
}

TEST(IBScanner, ProcessNameDialect3DottedNames)
{
    TVdIBScanner scanner;
    EXPECT_EQ(scanner.ProcessName("CUSTOMER.NAME"), "CUSTOMER.NAME");
    EXPECT_EQ(scanner.ProcessName("C.ORDER"), "C.\"ORDER\"");
    EXPECT_EQ(scanner.ProcessName("C.my col"), "C.\"my col\"");
    EXPECT_EQ(scanner.ProcessName("my t.NAME"), "\"my t\".NAME");
    EXPECT_EQ(scanner.ProcessName("ORDER.NAME"), "\"ORDER\".NAME");
    EXPECT_EQ(scanner.ProcessName("\"my t\".NAME"), "\"my t\".NAME");
    EXPECT_EQ(scanner.ProcessName("\"a.b\".C"), "\"a.b\".C");
    // Two dots: the prefix is quoted as one name.
    EXPECT_EQ(scanner.ProcessName("A.B.C"), "\"A.B\".C");
}

TEST(IBScanner, ProcessNameDialect1UpperCasesAndNeverQuotes)
{
    TVdIBScanner scanner;
    scanner.SetDialect(qibDialect1);
    EXPECT_EQ(scanner.ProcessName("my table"), "MY_TABLE");
    EXPECT_EQ(scanner.ProcessName("CUSTOMER"), "CUSTOMER");
    EXPECT_EQ(scanner.ProcessName("customer"), "CUSTOMER");
    EXPECT_EQ(scanner.ProcessName("ORDER"), "ORDER");
    EXPECT_EQ(scanner.ProcessName("COUNT"), "COUNT");
    EXPECT_EQ(scanner.ProcessName("c.my col"), "C.MY_COL");
    EXPECT_EQ(scanner.ProcessName("a  b"), "A__B");
}

// ---- token kinds ----

TEST(IBScanner, DoubleQuotedTextIsAnIdentifierInDialect3)
{
    EXPECT_EQ(Tokens("\"abc\""), (std::vector<Tok>{{tkIdent, "abc"}}));
    EXPECT_EQ(Tokens("\"my table\""), (std::vector<Tok>{{tkIdent, "my table"}}));
}

TEST(IBScanner, ApostropheTextIsAStringInDialect3)
{
    EXPECT_EQ(Tokens("'abc'"), (std::vector<Tok>{{tkString, "abc"}}));
    EXPECT_EQ(Tokens("'it''s'"), (std::vector<Tok>{{tkString, "it''s"}}));
}

TEST(IBScanner, BothQuotesGiveStringsInDialect1)
{
    EXPECT_EQ(Tokens("\"abc\"", qibDialect1), (std::vector<Tok>{{tkString, "abc"}}));
    EXPECT_EQ(Tokens("'abc'", qibDialect1), (std::vector<Tok>{{tkString, "abc"}}));
}

TEST(IBScanner, MixedStatementTokensInDialect3)
{
    EXPECT_EQ(Tokens("SELECT \"a\", B FROM T WHERE C = 'x'"),
              (std::vector<Tok>{{tkKeyword, "SELECT"},
                                {tkIdent, "a"},
                                {tkDelim, ","},
                                {tkIdent, "B"},
                                {tkKeyword, "FROM"},
                                {tkIdent, "T"},
                                {tkKeyword, "WHERE"},
                                {tkIdent, "C"},
                                {tkComparison, "="},
                                {tkString, "x"}}));
}

TEST(IBScanner, DbKeyIsAKeywordAndDollarNamesAreIdentifiers)
{
    EXPECT_EQ(Tokens("RDB$DB_KEY"), (std::vector<Tok>{{tkKeyword, "RDB$DB_KEY"}}));
    EXPECT_EQ(Tokens("A$B"), (std::vector<Tok>{{tkIdent, "A$B"}}));
    EXPECT_EQ(Tokens("T.RDB$DB_KEY"),
              (std::vector<Tok>{{tkIdent, "T"}, {tkDelim, "."}, {tkKeyword, "RDB$DB_KEY"}}));
}

// Lower-case letters are no letters, yet the upper-cased word is an identifier.
TEST(IBScanner, LowerCaseWordIsAnIdentifierThroughProcessIdent)
{
    EXPECT_EQ(Tokens("abc"), (std::vector<Tok>{{tkIdent, "abc"}}));
    EXPECT_EQ(Tokens("a$b"), (std::vector<Tok>{{tkIdent, "a$b"}}));
    EXPECT_EQ(Tokens("abc", qibDialect1), (std::vector<Tok>{{tkIdent, "abc"}}));
    EXPECT_EQ(Tokens("_a"), (std::vector<Tok>{{tkUnknown, "_a"}}));
}

TEST(IBScanner, LowerCaseKeywordsAndFunctionsAreFound)
{
    EXPECT_EQ(
        Tokens("rows gen_id count"),
        (std::vector<Tok>{{tkKeyword, "rows"}, {tkFunction, "gen_id"}, {tkFunction, "count"}}));
}

TEST(IBScanner, ConcatenationIsAnOperation)
{
    EXPECT_EQ(Tokens("A || B + C"), (std::vector<Tok>{{tkIdent, "A"},
                                                      {tkOperation, "||"},
                                                      {tkIdent, "B"},
                                                      {tkOperation, "+"},
                                                      {tkIdent, "C"}}));
}

TEST(IBScanner, UnterminatedStringOfEitherDialect)
{
    TVdIBScanner scanner;
    EXPECT_THROW(Tokens(scanner, "'abc"), EVdParserError);
    scanner.SetDialect(qibDialect1);
    EXPECT_THROW(Tokens(scanner, "\"abc"), EVdParserError);
}

// The character classes are cached by the scanner; a dialect change must reach the next scan.
TEST(IBScanner, SetDialectAfterAScanChangesTheQuoteClasses)
{
    TVdIBScanner scanner;
    EXPECT_EQ(Tokens(scanner, "\"abc\""), (std::vector<Tok>{{tkIdent, "abc"}}));
    scanner.SetDialect(qibDialect1);
    EXPECT_EQ(scanner.Dialect(), qibDialect1);
    EXPECT_EQ(Tokens(scanner, "\"abc\""), (std::vector<Tok>{{tkString, "abc"}}));
    scanner.SetDialect(qibDialect3);
    EXPECT_EQ(Tokens(scanner, "\"abc\""), (std::vector<Tok>{{tkIdent, "abc"}}));
}

TEST(IBScanner, SetDialectBetweenSetExpressionCallsOnOneScanner)
{
    TVdIBScanner scanner;
    scanner.SetExpression("\"abc\"");
    EXPECT_EQ(scanner.TokenKind(), tkIdent);
    scanner.SetDialect(qibDialect1);
    scanner.SetExpression("\"abc\"");
    EXPECT_EQ(scanner.TokenKind(), tkString);
    EXPECT_EQ(scanner.Token(), "abc");
}

// ---- option objects ----

TEST(IBOptions, DefaultsAreEmpty)
{
    TVdIBOptions rows;
    EXPECT_FALSE(rows.Percent);
    EXPECT_FALSE(rows.Ties);
    EXPECT_EQ(rows.RowsFrom, 0);
    EXPECT_EQ(rows.RowsBy, 0);
    EXPECT_EQ(rows.RowsTo, 0);
    EXPECT_EQ(rows.GetScript(), "");
    TVdFBOptions first;
    EXPECT_EQ(first.First, 0);
    EXPECT_EQ(first.Skip, 0);
    EXPECT_EQ(first.GetScript(), "");
}

TEST(IBOptions, IBClearResetsEveryField)
{
    TVdIBOptions rows;
    rows.Percent = true;
    rows.Ties = true;
    rows.RowsFrom = 10;
    rows.RowsBy = 2;
    rows.RowsTo = 20;
    rows.Clear();
    EXPECT_FALSE(rows.Percent);
    EXPECT_FALSE(rows.Ties);
    EXPECT_EQ(rows.RowsFrom, 0);
    EXPECT_EQ(rows.RowsBy, 0);
    EXPECT_EQ(rows.RowsTo, 0);
    EXPECT_EQ(rows.GetScript(), "");
}

TEST(IBOptions, IBAssignCopiesEveryField)
{
    TVdIBOptions source;
    source.Percent = true;
    source.Ties = true;
    source.RowsFrom = 10;
    source.RowsBy = 2;
    source.RowsTo = 20;
    TVdIBOptions target;
    target.Assign(source);
    EXPECT_TRUE(target.Percent);
    EXPECT_TRUE(target.Ties);
    EXPECT_EQ(target.RowsFrom, 10);
    EXPECT_EQ(target.RowsBy, 2);
    EXPECT_EQ(target.RowsTo, 20);
    // And clears what the source does not have.
    TVdIBOptions empty;
    target.Assign(empty);
    EXPECT_FALSE(target.Percent);
    EXPECT_FALSE(target.Ties);
    EXPECT_EQ(target.RowsFrom, 0);
    EXPECT_EQ(target.RowsBy, 0);
    EXPECT_EQ(target.RowsTo, 0);
}

TEST(IBOptions, FBClearAndAssign)
{
    TVdFBOptions source;
    source.First = 5;
    source.Skip = 10;
    TVdFBOptions target;
    target.Assign(source);
    EXPECT_EQ(target.First, 5);
    EXPECT_EQ(target.Skip, 10);
    target.Clear();
    EXPECT_EQ(target.First, 0);
    EXPECT_EQ(target.Skip, 0);
    EXPECT_EQ(source.First, 5);
    EXPECT_EQ(source.Skip, 10);
}

namespace {

TVdIBOptions Rows(int from, int to = 0, int by = 0, bool percent = false, bool ties = false)
{
    TVdIBOptions rows;
    rows.RowsFrom = from;
    rows.RowsTo = to;
    rows.RowsBy = by;
    rows.Percent = percent;
    rows.Ties = ties;
    return rows;
}

TVdFBOptions FirstSkip(int first, int skip)
{
    TVdFBOptions options;
    options.First = first;
    options.Skip = skip;
    return options;
}

} // namespace

TEST(IBOptions, RowsAlone) { EXPECT_EQ(Rows(10).GetScript(), "ROWS 10"); }

TEST(IBOptions, RowsTo) { EXPECT_EQ(Rows(10, 20).GetScript(), "ROWS 10 TO 20"); }

TEST(IBOptions, RowsBy) { EXPECT_EQ(Rows(10, 0, 2).GetScript(), "ROWS 10 BY 2"); }

TEST(IBOptions, RowsPercent) { EXPECT_EQ(Rows(10, 0, 0, true).GetScript(), "ROWS 10 PERCENT"); }

TEST(IBOptions, RowsWithTies)
{
    EXPECT_EQ(Rows(10, 0, 0, false, true).GetScript(), "ROWS 10 WITH TIES");
}

TEST(IBOptions, RowsAllParts)
{
    EXPECT_EQ(Rows(10, 20, 2, true, true).GetScript(), "ROWS 10 TO 20 BY 2 PERCENT WITH TIES");
    EXPECT_EQ(Rows(1, 5, 0, true, false).GetScript(), "ROWS 1 TO 5 PERCENT");
    EXPECT_EQ(Rows(1, 0, 3, false, true).GetScript(), "ROWS 1 BY 3 WITH TIES");
}

TEST(IBOptions, OnlyToPrintsRowsZero) { EXPECT_EQ(Rows(0, 5).GetScript(), "ROWS 0 TO 5"); }

TEST(IBOptions, OnlyByPrintsRowsZero) { EXPECT_EQ(Rows(0, 0, 3).GetScript(), "ROWS 0 BY 3"); }

TEST(IBOptions, PercentAndTiesAlonePrintNothing)
{
    EXPECT_EQ(Rows(0, 0, 0, true, false).GetScript(), "");
    EXPECT_EQ(Rows(0, 0, 0, false, true).GetScript(), "");
    EXPECT_EQ(Rows(0, 0, 0, true, true).GetScript(), "");
}

TEST(IBOptions, NegativeRowsValuesPrintNothing)
{
    EXPECT_EQ(Rows(-1).GetScript(), "");
    EXPECT_EQ(Rows(-1, -2, -3, true, true).GetScript(), "");
    EXPECT_EQ(Rows(10, -20, -2).GetScript(), "ROWS 10");
    // RowsFrom is written whatever it holds once TO or BY is set.
    EXPECT_EQ(Rows(-5, 5).GetScript(), "ROWS -5 TO 5");
}

TEST(IBOptions, FirstAlone) { EXPECT_EQ(FirstSkip(5, 0).GetScript(), "FIRST 5 "); }

TEST(IBOptions, SkipAlone) { EXPECT_EQ(FirstSkip(0, 10).GetScript(), "SKIP 10 "); }

TEST(IBOptions, FirstAndSkip) { EXPECT_EQ(FirstSkip(5, 10).GetScript(), "FIRST 5 SKIP 10 "); }

TEST(IBOptions, ZeroAndNegativeFirstSkipPrintNothing)
{
    EXPECT_EQ(FirstSkip(0, 0).GetScript(), "");
    EXPECT_EQ(FirstSkip(-5, -10).GetScript(), "");
    EXPECT_EQ(FirstSkip(-5, 10).GetScript(), "SKIP 10 ");
    EXPECT_EQ(FirstSkip(5, -10).GetScript(), "FIRST 5 ");
}

TEST(IBOptions, LargestValuesPrintInFull)
{
    EXPECT_EQ(FirstSkip(2147483647, 2147483647).GetScript(), "FIRST 2147483647 SKIP 2147483647 ");
    EXPECT_EQ(Rows(2147483647).GetScript(), "ROWS 2147483647");
}

// ---- edge cases of the scanner and the options ----

TEST(IBEdgeCases, DoubleQuotedTextIsAStringInDialect1AndAnIdentifierInDialect3)
{
    EXPECT_EQ(Tokens("\"my table\"", qibDialect1), (std::vector<Tok>{{tkString, "my table"}}));
    EXPECT_EQ(Tokens("\"my table\"", qibDialect3), (std::vector<Tok>{{tkIdent, "my table"}}));
}

TEST(IBEdgeCases, NameWithBlanksIsUpperCasedWithUnderscoresInDialect1)
{
    TVdIBScanner scanner;
    scanner.SetDialect(qibDialect1);
    EXPECT_EQ(scanner.ProcessName("my table"), "MY_TABLE");
}

TEST(IBEdgeCases, LowerCaseLetterIsNoLetter)
{
    TVdIBScanner scanner;
    for (char c = 'a'; c <= 'z'; ++c)
        EXPECT_FALSE(scanner.IsAlpha(c)) << c;
    for (char c = 'A'; c <= 'Z'; ++c)
        EXPECT_TRUE(scanner.IsAlpha(c)) << c;
}

// An option edit that holds no number stores 0: 0 prints nothing.
TEST(IBEdgeCases, ZeroOptionValuePrintsNothing)
{
    TVdFBOptions first;
    first.First = 0;
    EXPECT_EQ(first.GetScript(), "");
    first.Skip = 0;
    EXPECT_EQ(first.GetScript(), "");
    TVdIBOptions rows;
    rows.RowsFrom = 0;
    rows.RowsTo = 0;
    rows.RowsBy = 0;
    EXPECT_EQ(rows.GetScript(), "");
}

TEST(IBScanner, UnknownDialectValueUsesTheGenericNameRule)
{
    TVdIBScanner scanner;
    scanner.SetDialect(static_cast<TVdSQLDialect>(7));
    EXPECT_EQ(scanner.ProcessName("my table"), "\"my table\"");
    EXPECT_EQ(scanner.ProcessName("CUSTOMER"), "CUSTOMER");
}

// Dialect 1 has no identifier quote, so a double-quoted name is no quoted name.
TEST(IBScanner, NeedQuotesUnderDialect1)
{
    TVdIBScanner scanner;
    scanner.SetDialect(qibDialect1);
    EXPECT_TRUE(scanner.NeedQuotes("\"ABC\""));
    EXPECT_FALSE(scanner.NeedQuotes("ABC"));
    EXPECT_TRUE(scanner.NeedQuotes("ORDER"));
}

TEST(IBScanner, DoubledQuoteInsideAQuotedIdentifierIsContent)
{
    EXPECT_EQ(Tokens("\"a\"\"b\" X"), (std::vector<Tok>{{tkIdent, "a\"\"b"}, {tkIdent, "X"}}));
    EXPECT_EQ(Tokens("'it''s' X"), (std::vector<Tok>{{tkString, "it''s"}, {tkIdent, "X"}}));
}
