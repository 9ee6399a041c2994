// The MySQL scanner: back quotes, backslash escapes, the server's word lists, and the way
// strings are kept by the model and written back.
#include "dialects/VdMyScanner.h"
#include "dialects/VdMyParser.h"

#include "core/VdError.h"

#include <gtest/gtest.h>

#include <iostream>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

using namespace vd;

namespace {

struct TMyTok {
    TTokenKind Kind;
    std::string Text;
};

bool operator==(const TMyTok& a, const TMyTok& b) { return a.Kind == b.Kind && a.Text == b.Text; }

void PrintTo(const TMyTok& t, std::ostream* os)
{
    *os << "{" << TokenKindName(t.Kind) << ", \"" << t.Text << "\"}";
}

constexpr int kMaxTokens = 200;

// Every token of text up to and including the tkEnd token.
std::vector<TMyTok> ScanAll(const std::string& text)
{
    TVdMySQLScanner s;
    std::vector<TMyTok> r;
    s.SetExpression(text);
    for (int i = 0; i < kMaxTokens; ++i) {
        r.push_back({s.TokenKind(), s.Token()});
        if (s.TokenKind() == tkEnd)
            break;
        s.GetNextToken();
    }
    return r;
}

// The message of the parser error raised while scanning text to its end, or "" when none.
std::string ScanError(const std::string& text, int* code = nullptr)
{
    try {
        ScanAll(text);
    } catch (const EVdParserError& e) {
        if (code)
            *code = e.Code;
        return e.what();
    }
    return std::string();
}

std::vector<std::string> SplitCommas(const std::string& text)
{
    std::vector<std::string> parts;
    std::string part;
    std::istringstream in(text);
    while (std::getline(in, part, ','))
        parts.push_back(part);
    return parts;
}

// The server's functions, in the order they are defined (LOCATE twice).
const std::vector<std::string> kFunctions = {"BIT_COUNT",
                                             "IFNULL",
                                             "NULLIF",
                                             "IF",
                                             "DAYOFWEEK",
                                             "WEEKDAY",
                                             "DAYOFMONTH",
                                             "DAYOFYEAR",
                                             "MONTH",
                                             "DAYNAME",
                                             "MONTHNAME",
                                             "QUARTER",
                                             "WEEK",
                                             "YEAR",
                                             "YEARWEEK",
                                             "HOUR",
                                             "MINUTE",
                                             "SECOND",
                                             "PERIOD_ADD",
                                             "PERIOD_DIFF",
                                             "DATE_ADD",
                                             "DATE_SUB",
                                             "ADDDATE",
                                             "SUBDATE",
                                             "TO_DAYS",
                                             "FROM_DAYS",
                                             "DATE_FORMAT",
                                             "TIME_FORMAT",
                                             "CURDATE",
                                             "CURRENT_DATE",
                                             "CURTIME",
                                             "CURRENT_TIME",
                                             "NOW",
                                             "SYSDATE",
                                             "CURRENT_TIMESTAMP",
                                             "UNIX_TIMESTAMP",
                                             "FROM_UNIXTIME",
                                             "SEC_TO_TIME",
                                             "TIME_TO_SEC",
                                             "COUNT",
                                             "AVG",
                                             "MIN",
                                             "MAX",
                                             "SUM",
                                             "STD",
                                             "STDDEV",
                                             "BIT_OR",
                                             "BIT_AND",
                                             "ABS",
                                             "SIGN",
                                             "MOD",
                                             "FLOOR",
                                             "CEILING",
                                             "ROUND",
                                             "EXP",
                                             "LOG",
                                             "LOG10",
                                             "POW",
                                             "POWER",
                                             "SQRT",
                                             "PI",
                                             "COS",
                                             "SIN",
                                             "TAN",
                                             "ACOS",
                                             "ASIN",
                                             "ATAN",
                                             "ATAN2",
                                             "COT",
                                             "RAND",
                                             "LEAST",
                                             "GREATEST",
                                             "DEGREES",
                                             "RADIANS",
                                             "TRUNCATE",
                                             "DATABASE",
                                             "USER",
                                             "SYSTEM_USER",
                                             "SESSION_USER",
                                             "PASSWORD",
                                             "ENCRYPT",
                                             "ENCODE",
                                             "DECODE",
                                             "MD5",
                                             "LAST_INSERT_ID",
                                             "FORMAT",
                                             "VERSION",
                                             "CONNECTION_ID",
                                             "GET_LOCK",
                                             "RELEASE_LOCK",
                                             "BENCHMARK",
                                             "INET_NTOA",
                                             "INET_ATON",
                                             "MASTER_POS_WAIT",
                                             "ASCII",
                                             "ORD",
                                             "CONV",
                                             "BIN",
                                             "OCT",
                                             "HEX",
                                             "CHAR",
                                             "CONCAT",
                                             "CONCAT_WS",
                                             "LENGTH",
                                             "OCTET_LENGTH",
                                             "CHAR_LENGTH",
                                             "CHARACTER_LENGTH",
                                             "LOCATE",
                                             "POSITION",
                                             "LOCATE",
                                             "INSTR",
                                             "LPAD",
                                             "RPAD",
                                             "LEFT",
                                             "RIGHT",
                                             "SUBSTRING",
                                             "MID",
                                             "SUBSTRING_INDEX",
                                             "LTRIM",
                                             "RTRIM",
                                             "TRIM",
                                             "SOUNDEX",
                                             "SPACE",
                                             "REPLACE",
                                             "REPEAT",
                                             "REVERSE",
                                             "ELT",
                                             "FIELD",
                                             "FIND_IN_SET",
                                             "MAKE_SET",
                                             "EXPORT_SET",
                                             "LCASE",
                                             "LOWER",
                                             "UCASE",
                                             "UPPER",
                                             "LOAD_FILE",
                                             "COALESCE"};

// The server's keywords, in the order they are defined.
const std::vector<std::string> kKeywords = {"ACTION",
                                            "ADD",
                                            "AGGREGATE",
                                            "ALL",
                                            "ALTER",
                                            "AFTER",
                                            "AND",
                                            "AS",
                                            "ASC",
                                            "AVG_ROW_LENGTH",
                                            "AUTO_INCREMENT",
                                            "BETWEEN",
                                            "BIGINT",
                                            "BIT",
                                            "BINARY",
                                            "BLOB",
                                            "BOOL",
                                            "BOTH",
                                            "BY",
                                            "CASCADE",
                                            "CASE",
                                            "CHAR",
                                            "CHARACTER",
                                            "CHANGE",
                                            "CHECK",
                                            "CHECKSUM",
                                            "COLUMN",
                                            "COLUMNS",
                                            "COMMENT",
                                            "CONSTRAINT",
                                            "CREATE",
                                            "CROSS",
                                            "CURRENT_DATE",
                                            "CURRENT_TIME",
                                            "CURRENT_TIMESTAMP",
                                            "DATA",
                                            "DATABASE",
                                            "DATABASES",
                                            "DATE",
                                            "DATETIME",
                                            "DAY",
                                            "DAY_HOUR",
                                            "DAY_MINUTE",
                                            "DAY_SECOND",
                                            "DAYOFMONTH",
                                            "DAYOFWEEK",
                                            "DAYOFYEAR",
                                            "DEC",
                                            "DECIMAL",
                                            "DEFAULT",
                                            "DELAYED",
                                            "DELAY_KEY_WRITE",
                                            "DELETE",
                                            "DESC",
                                            "DESCRIBE",
                                            "DISTINCT",
                                            "DISTINCTROW",
                                            "DOUBLE",
                                            "DROP",
                                            "END",
                                            "ELSE",
                                            "ESCAPE",
                                            "ESCAPED",
                                            "ENCLOSED",
                                            "ENUM",
                                            "EXPLAIN",
                                            "EXISTS",
                                            "FIELDS",
                                            "FILE",
                                            "FIRST",
                                            "FLOAT",
                                            "FLOAT4",
                                            "FLOAT8",
                                            "FLUSH",
                                            "FOREIGN",
                                            "FROM",
                                            "FOR",
                                            "FULL",
                                            "FUNCTION",
                                            "GLOBAL",
                                            "GRANT",
                                            "GRANTS",
                                            "GROUP",
                                            "HAVING",
                                            "HEAP",
                                            "HIGH_PRIORITY",
                                            "HOUR",
                                            "HOUR_MINUTE",
                                            "HOUR_SECOND",
                                            "HOSTS",
                                            "IDENTIFIED",
                                            "IGNORE",
                                            "IN",
                                            "INDEX",
                                            "INFILE",
                                            "INNER",
                                            "INSERT",
                                            "INSERT_ID",
                                            "INT",
                                            "INTEGER",
                                            "INTERVAL",
                                            "INT1",
                                            "INT2",
                                            "INT3",
                                            "INT4",
                                            "INT8",
                                            "INTO",
                                            "IF",
                                            "IS",
                                            "ISAM",
                                            "JOIN",
                                            "KEY",
                                            "KEYS",
                                            "KILL",
                                            "LAST_INSERT_ID",
                                            "LEADING",
                                            "LEFT",
                                            "LENGTH",
                                            "LIKE",
                                            "LINES",
                                            "LIMIT",
                                            "LOAD",
                                            "LOCAL",
                                            "LOCK",
                                            "LOGS",
                                            "LONG",
                                            "LONGBLOB",
                                            "LONGTEXT",
                                            "LOW_PRIORITY",
                                            "MAX",
                                            "MAX_ROWS",
                                            "MATCH",
                                            "MEDIUMBLOB",
                                            "MEDIUMTEXT",
                                            "MEDIUMINT",
                                            "MIDDLEINT",
                                            "MIN_ROWS",
                                            "MINUTE",
                                            "MINUTE_SECOND",
                                            "MODIFY",
                                            "MONTH",
                                            "MONTHNAME",
                                            "MYISAM",
                                            "NATURAL",
                                            "NUMERIC",
                                            "NO",
                                            "NOT",
                                            "NULL",
                                            "ON",
                                            "OPTIMIZE",
                                            "OPTION",
                                            "OPTIONALLY",
                                            "OR",
                                            "ORDER",
                                            "OUTER",
                                            "OUTFILE",
                                            "PACK_KEYS",
                                            "PARTIAL",
                                            "PRECISION",
                                            "PRIMARY",
                                            "PROCEDURE",
                                            "PROCESS",
                                            "PROCESSLIST",
                                            "PRIVILEGES",
                                            "READ",
                                            "REAL",
                                            "REFERENCES",
                                            "RELOAD",
                                            "REGEXP",
                                            "RENAME",
                                            "REPLACE",
                                            "RESTRICT",
                                            "RETURNS",
                                            "REVOKE",
                                            "RLIKE",
                                            "ROW",
                                            "ROWS",
                                            "SECOND",
                                            "SELECT",
                                            "SET",
                                            "SHOW",
                                            "SHUTDOWN",
                                            "SMALLINT",
                                            "SONAME",
                                            "SQL_BIG_TABLES",
                                            "SQL_BIG_SELECTS",
                                            "SQL_LOW_PRIORITY_UPDATES",
                                            "SQL_LOG_OFF",
                                            "SQL_LOG_UPDATE",
                                            "SQL_SELECT_LIMIT",
                                            "SQL_SMALL_RESULT",
                                            "SQL_BIG_RESULT",
                                            "SQL_WARNINGS",
                                            "STRAIGHT_JOIN",
                                            "STARTING",
                                            "STATUS",
                                            "STRING",
                                            "TABLE",
                                            "TABLES",
                                            "TEMPORARY",
                                            "TERMINATED",
                                            "TEXT",
                                            "THEN",
                                            "TIME",
                                            "TIMESTAMP",
                                            "TINYBLOB",
                                            "TINYTEXT",
                                            "TINYINT",
                                            "TRAILING",
                                            "TO",
                                            "TYPE",
                                            "USE",
                                            "USING",
                                            "UNIQUE",
                                            "UNLOCK",
                                            "UNSIGNED",
                                            "UPDATE",
                                            "USAGE",
                                            "VALUES",
                                            "VARCHAR",
                                            "VARIABLES",
                                            "VARYING",
                                            "VARBINARY",
                                            "WITH",
                                            "WRITE",
                                            "WHEN",
                                            "WHERE",
                                            "YEAR",
                                            "YEAR_MONTH",
                                            "ZEROFILL"};

std::string Lower(std::string s)
{
    for (char& c : s)
        if (c >= 'A' && c <= 'Z')
            c = char(c - 'A' + 'a');
    return s;
}

// "Abc_Def": the first letter of each part upper-cased, the rest lower-cased.
std::string MixedCase(const std::string& s)
{
    std::string r = Lower(s);
    if (!r.empty() && r[0] >= 'a' && r[0] <= 'z')
        r[0] = char(r[0] - 'a' + 'A');
    return r;
}

} // namespace

// ---- word lists ----

TEST(MyScannerLists, FunctionListHas137NamesInOrder)
{
    TVdMySQLScanner s;
    ASSERT_EQ(kFunctions.size(), 137u);
    const std::vector<std::string> parts = SplitCommas(s.GetCommaFunctions());
    EXPECT_EQ(parts.size(), 137u);
    EXPECT_EQ(parts, kFunctions);
}

TEST(MyScannerLists, FunctionListNamesLocateTwice)
{
    TVdMySQLScanner s;
    const std::vector<std::string> parts = SplitCommas(s.GetCommaFunctions());
    std::vector<size_t> places;
    for (size_t i = 0; i < parts.size(); ++i)
        if (parts[i] == "LOCATE")
            places.push_back(i);
    EXPECT_EQ(places, (std::vector<size_t>{107, 109}));
    ASSERT_GT(parts.size(), 108u);
    EXPECT_EQ(parts[108], "POSITION");
}

TEST(MyScannerLists, KeywordListHas230WordsInOrder)
{
    TVdMySQLScanner s;
    ASSERT_EQ(kKeywords.size(), 230u);
    const std::vector<std::string> parts = SplitCommas(s.GetCommaKeywords());
    EXPECT_EQ(parts.size(), 230u);
    EXPECT_EQ(parts, kKeywords);
}

TEST(MyScannerLists, KeywordListHoldsTheOptionWordsButNotSqlBufferResult)
{
    TVdMySQLScanner s;
    const std::vector<std::string> parts = SplitCommas(s.GetCommaKeywords());
    auto has = [&](const char* w) {
        for (const std::string& p : parts)
            if (p == w)
                return true;
        return false;
    };
    EXPECT_TRUE(has("SQL_SMALL_RESULT"));
    EXPECT_TRUE(has("SQL_BIG_RESULT"));
    EXPECT_TRUE(has("STRAIGHT_JOIN"));
    EXPECT_TRUE(has("HIGH_PRIORITY"));
    EXPECT_TRUE(has("DISTINCTROW"));
    EXPECT_TRUE(has("DISTINCT"));
    EXPECT_TRUE(has("ALL"));
    EXPECT_TRUE(has("LIMIT"));
    EXPECT_FALSE(has("SQL_BUFFER_RESULT"));
    EXPECT_FALSE(has("RIGHT"));
}

TEST(MyScannerLists, LoadedFunctionsAnswerInAnyCase)
{
    TVdMySQLScanner s;
    for (const std::string& f : kFunctions) {
        EXPECT_TRUE(s.IsFunction(f)) << f;
        EXPECT_TRUE(s.IsFunction(Lower(f))) << f;
        EXPECT_TRUE(s.IsFunction(MixedCase(f))) << f;
    }
    EXPECT_FALSE(s.IsFunction("SQL_BUFFER_RESULT"));
    EXPECT_FALSE(s.IsFunction("LIMIT"));
    EXPECT_FALSE(s.IsFunction("CUSTOMERS"));
}

TEST(MyScannerLists, LoadedKeywordsAnswerInAnyCase)
{
    TVdMySQLScanner s;
    for (const std::string& k : kKeywords) {
        EXPECT_TRUE(s.IsKeyword(k)) << k;
        EXPECT_TRUE(s.IsKeyword(Lower(k))) << k;
        EXPECT_TRUE(s.IsKeyword(MixedCase(k))) << k;
    }
    EXPECT_FALSE(s.IsKeyword("SQL_BUFFER_RESULT"));
    EXPECT_FALSE(s.IsKeyword("sql_buffer_result"));
    // RIGHT is a function of this dialect, not a keyword as in the generic list.
    EXPECT_FALSE(s.IsKeyword("RIGHT"));
    EXPECT_FALSE(s.IsKeyword("COUNT"));
}

TEST(MyScannerLists, WordKindsOfTokens)
{
    // Functions are looked up before keywords: LEFT is in both lists and reads as a function.
    EXPECT_EQ(ScanAll("limit"), (std::vector<TMyTok>{{tkKeyword, "limit"}, {tkEnd, ""}}));
    EXPECT_EQ(ScanAll("Straight_Join"),
              (std::vector<TMyTok>{{tkKeyword, "Straight_Join"}, {tkEnd, ""}}));
    EXPECT_EQ(ScanAll("DISTINCTROW"),
              (std::vector<TMyTok>{{tkKeyword, "DISTINCTROW"}, {tkEnd, ""}}));
    EXPECT_EQ(ScanAll("sql_buffer_result"),
              (std::vector<TMyTok>{{tkIdent, "sql_buffer_result"}, {tkEnd, ""}}));
    EXPECT_EQ(ScanAll("left"), (std::vector<TMyTok>{{tkFunction, "left"}, {tkEnd, ""}}));
    EXPECT_EQ(ScanAll("RIGHT"), (std::vector<TMyTok>{{tkFunction, "RIGHT"}, {tkEnd, ""}}));
    EXPECT_EQ(ScanAll("locate"), (std::vector<TMyTok>{{tkFunction, "locate"}, {tkEnd, ""}}));
    EXPECT_EQ(ScanAll("CURRENT_DATE"),
              (std::vector<TMyTok>{{tkFunction, "CURRENT_DATE"}, {tkEnd, ""}}));
}

// ---- overrides of the base scanner ----

TEST(MyScanner, IdentQuoteIsTheBackQuote)
{
    TVdMySQLScanner s;
    EXPECT_EQ(s.GetIdentQuote(), '`');
}

TEST(MyScanner, OnlyTheBackQuoteIsAnIdentQuote)
{
    TVdMySQLScanner s;
    for (int c = 0; c < 256; ++c)
        EXPECT_EQ(s.IsIdentQuote(char(c)), c == '`') << c;
}

TEST(MyScanner, ProcessAliasesFollowsQuoteIdentifiers)
{
    TVdMySQLScanner s;
    EXPECT_TRUE(s.GetQuoteIdentifiers());
    EXPECT_TRUE(s.GetProcessAliases());
    s.SetQuoteIdentifiers(false);
    EXPECT_FALSE(s.GetQuoteIdentifiers());
    EXPECT_FALSE(s.GetProcessAliases());
    s.SetQuoteIdentifiers(true);
    EXPECT_TRUE(s.GetProcessAliases());
}

TEST(MyScanner, OperationsAndStringQuotesAreTheBaseScanners)
{
    TVdMySQLScanner my;
    TVdSQLScanner base;
    EXPECT_EQ(my.GetCommaOperations(), "+,-,*,/");
    EXPECT_EQ(my.GetCommaOperations(), base.GetCommaOperations());
    EXPECT_EQ(my.Operations().Items(), base.Operations().Items());
    EXPECT_EQ(my.GetStringQuote(), '\'');
    for (int c = 0; c < 256; ++c) {
        EXPECT_EQ(my.IsQuote(char(c)), base.IsQuote(char(c))) << c;
        EXPECT_EQ(my.IsDelim(char(c)), base.IsDelim(char(c))) << c;
        EXPECT_EQ(my.IsSpace(char(c)), base.IsSpace(char(c))) << c;
    }
    EXPECT_TRUE(my.IsQuote('\''));
    EXPECT_TRUE(my.IsQuote('"'));
    EXPECT_FALSE(my.IsQuote('`'));
}

TEST(MyScanner, ParserCreatesThisScanner)
{
    TVdMySelectParser parser;
    EXPECT_NE(dynamic_cast<TVdMySQLScanner*>(&parser.Scanner()), nullptr);
}

TEST(MyScanner, NamesAreQuotedInBackQuotes)
{
    TVdMySQLScanner s;
    EXPECT_EQ(s.ProcessName("CUSTOMERS"), "`CUSTOMERS`");
    EXPECT_EQ(s.ProcessName("C.NAME"), "`C`.`NAME`");
    EXPECT_EQ(s.ProcessName("my table"), "`my table`");
    EXPECT_EQ(s.ProcessName("`done`"), "`done`");
    s.SetQuoteIdentifiers(false);
    EXPECT_EQ(s.ProcessName("C.NAME"), "C.NAME");
}

// ---- the closing quote: k quotes at the end of the text, b = 1 after a backslash ----

TEST(MyScannerTerminator, DoubledQuoteIsNoTerminator)
{
    TVdMySQLScanner s;
    EXPECT_FALSE(s.IsTerminator('\'', "abc", '\'', '\''));
    EXPECT_FALSE(s.IsTerminator('\'', "", '\'', '\''));
    EXPECT_FALSE(s.IsTerminator('"', "x", '"', '"'));
}

TEST(MyScannerTerminator, PlainTextCloses)
{
    TVdMySQLScanner s;
    // k = 0, b = 0: even.
    EXPECT_TRUE(s.IsTerminator('\'', "abc", '\'', ' '));
    EXPECT_TRUE(s.IsTerminator('\'', "abc", '\'', ')'));
    EXPECT_TRUE(s.IsTerminator('\'', "abc", '\'', -1));
    EXPECT_TRUE(s.IsTerminator('\'', "", '\'', ' '));
    EXPECT_TRUE(s.IsTerminator('"', "abc", '"', -1));
}

TEST(MyScannerTerminator, QuoteAfterBackslashDoesNotClose)
{
    TVdMySQLScanner s;
    // it\ then the quote: k = 0, b = 1, k - b = -1 is odd.
    EXPECT_FALSE(s.IsTerminator('\'', "it\\", '\'', 's'));
    EXPECT_FALSE(s.IsTerminator('\'', "it\\", '\'', ' '));
    EXPECT_FALSE(s.IsTerminator('\'', "it\\", '\'', -1));
    EXPECT_FALSE(s.IsTerminator('\'', "\\", '\'', -1));
    // 'a\\' keeps running: the documented limitation of the rule.
    EXPECT_FALSE(s.IsTerminator('\'', "a\\\\", '\'', -1));
}

TEST(MyScannerTerminator, QuotesAtTheEndAreCounted)
{
    TVdMySQLScanner s;
    // it'' : k = 2, b = 0, even: closes.
    EXPECT_TRUE(s.IsTerminator('\'', "it''", '\'', ' '));
    EXPECT_TRUE(s.IsTerminator('\'', "it''", '\'', -1));
    // it' : k = 1, b = 0, odd.
    EXPECT_FALSE(s.IsTerminator('\'', "it'", '\'', ' '));
    // it\' : k = 1, b = 1, even: the escaped quote is content, this one closes.
    EXPECT_TRUE(s.IsTerminator('\'', "it\\'", '\'', ' '));
    // it\'' : k = 2, b = 1, odd.
    EXPECT_FALSE(s.IsTerminator('\'', "it\\''", '\'', ' '));
    // ''' : k = 3, b = 0, odd; '''' : k = 4, even.
    EXPECT_FALSE(s.IsTerminator('\'', "'''", '\'', ' '));
    EXPECT_TRUE(s.IsTerminator('\'', "''''", '\'', ' '));
    // A backslash not right before the quotes does not count.
    EXPECT_TRUE(s.IsTerminator('\'', "\\a", '\'', ' '));
}

TEST(MyScannerTerminator, OtherCharacterThanTheOpeningQuoteNeverCloses)
{
    TVdMySQLScanner s;
    EXPECT_FALSE(s.IsTerminator('"', "abc", '\'', ' '));
    EXPECT_FALSE(s.IsTerminator('\'', "abc", '"', -1));
    EXPECT_FALSE(s.IsTerminator('`', "abc", '\'', ' '));
    EXPECT_FALSE(s.IsTerminator('a', "abc", '\'', ' '));
}

// ---- tokens ----

TEST(MyScannerTokens, BackslashEscapedQuoteStringIsOneToken)
{
    EXPECT_EQ(ScanAll("'it\\'s'"), (std::vector<TMyTok>{{tkString, "it\\'s"}, {tkEnd, ""}}));
}

TEST(MyScannerTokens, DoubledQuoteStringIsOneToken)
{
    EXPECT_EQ(ScanAll("'it''s'"), (std::vector<TMyTok>{{tkString, "it''s"}, {tkEnd, ""}}));
}

TEST(MyScannerTokens, BothStringFormsInAStatement)
{
    EXPECT_EQ(ScanAll("SELECT 'it\\'s', 'it''s' x"), (std::vector<TMyTok>{{tkKeyword, "SELECT"},
                                                                          {tkString, "it\\'s"},
                                                                          {tkDelim, ","},
                                                                          {tkString, "it''s"},
                                                                          {tkIdent, "x"},
                                                                          {tkEnd, ""}}));
}

TEST(MyScannerTokens, DoubleQuotedTextIsAString)
{
    EXPECT_EQ(ScanAll("\"abc\""), (std::vector<TMyTok>{{tkString, "abc"}, {tkEnd, ""}}));
}

TEST(MyScannerTokens, BackQuotedNameIsAnIdentifier)
{
    EXPECT_EQ(ScanAll("`my col`"), (std::vector<TMyTok>{{tkIdent, "my col"}, {tkEnd, ""}}));
    EXPECT_EQ(ScanAll("`select`"), (std::vector<TMyTok>{{tkIdent, "select"}, {tkEnd, ""}}));
}

TEST(MyScannerTokens, ApostropheTextIsAString)
{
    EXPECT_EQ(ScanAll("'abc'"), (std::vector<TMyTok>{{tkString, "abc"}, {tkEnd, ""}}));
}

TEST(MyScannerTokens, BackslashEscapesDoubleQuoteInsideDoubleQuotes)
{
    EXPECT_EQ(ScanAll("\"x\\\"y\""), (std::vector<TMyTok>{{tkString, "x\\\"y"}, {tkEnd, ""}}));
    EXPECT_EQ(ScanAll("\"a\"\"b\""), (std::vector<TMyTok>{{tkString, "a\"\"b"}, {tkEnd, ""}}));
}

TEST(MyScannerTokens, BackslashesAwayFromTheQuoteAreContent)
{
    EXPECT_EQ(ScanAll("'c:\\\\dir' x"),
              (std::vector<TMyTok>{{tkString, "c:\\\\dir"}, {tkIdent, "x"}, {tkEnd, ""}}));
}

TEST(MyScannerTokens, ParenthesesInsideStringsKeepTheLevel)
{
    TVdMySQLScanner s;
    s.SetExpression("('a\\')' x");
    EXPECT_EQ(s.Token(), "(");
    EXPECT_EQ(s.Level(), 1);
    s.GetNextToken();
    EXPECT_EQ(s.TokenKind(), tkString);
    EXPECT_EQ(s.Token(), "a\\')");
    EXPECT_EQ(s.Level(), 1);
}

TEST(MyScannerTokens, UnterminatedAfterEscapedQuote)
{
    int code = 0;
    EXPECT_EQ(ScanError("'abc\\'", &code), "Unterminated string.");
    EXPECT_EQ(code, 3);
}

TEST(MyScannerTokens, EscapedBackslashAtTheEndDoesNotClose)
{
    // 'a\\' : the documented limitation of the closing rule.
    int code = 0;
    EXPECT_EQ(ScanError("'a\\\\'", &code), "Unterminated string.");
    EXPECT_EQ(code, 3);
}

TEST(MyScannerTokens, UnterminatedPlainString)
{
    EXPECT_EQ(ScanError("'abc"), "Unterminated string.");
    EXPECT_EQ(ScanError("`abc"), "Unterminated string.");
    EXPECT_EQ(ScanError("'abc' x"), "");
}

// ---- the strings the model keeps, and how they are written back ----

TEST(MyStrings, ApostropheStringsAreKeptAsWritten)
{
    TVdMySQLScanner s;
    EXPECT_EQ(s.UnquoteString("it\\'s", '\''), "it\\'s");
    EXPECT_EQ(s.UnquoteString("it''s", '\''), "it''s");
    EXPECT_EQ(s.UnquoteString("a\"b", '\''), "a\"b");
    EXPECT_EQ(s.UnquoteString("", '\''), "");
}

TEST(MyStrings, DoubleQuotedStringsAreConverted)
{
    TVdMySQLScanner s;
    EXPECT_EQ(s.UnquoteString("it's", '"'), "it\\'s");
    EXPECT_EQ(s.UnquoteString("a\"\"b", '"'), "a\"b");
    EXPECT_EQ(s.UnquoteString("x\\\"y", '"'), "x\\\"y");
    EXPECT_EQ(s.UnquoteString("abc", '"'), "abc");
}

TEST(MyStrings, ValueThatReadsBackIsWrittenVerbatim)
{
    TVdMySQLScanner s;
    EXPECT_EQ(s.QuoteString("abc"), "'abc'");
    EXPECT_EQ(s.QuoteString(""), "''");
    EXPECT_EQ(s.QuoteString("it\\'s"), "'it\\'s'");
    EXPECT_EQ(s.QuoteString("it''s"), "'it''s'");
    EXPECT_EQ(s.QuoteString("x\\\"y"), "'x\\\"y'");
    EXPECT_EQ(s.QuoteString("a\"b"), "'a\"b'");
}

TEST(MyStrings, LoneApostropheIsEscapedWithABackslash)
{
    TVdMySQLScanner s;
    EXPECT_EQ(s.QuoteString("O'Brien"), "'O\\'Brien'");
}

TEST(MyStrings, ModelKeepsStringsOfBothQuotes)
{
    TVdMySelectParser parser;
    parser.SetExpression("SELECT A FROM T WHERE A = 'it\\'s' OR A = 'it''s' OR A = \"it's\" OR "
                         "A = \"a\"\"b\" OR A = \"x\\\"y\"");
    const TVdCriterions& where = parser.WhereItems();
    ASSERT_EQ(where.Count(), 5);
    const char* names[] = {"it\\'s", "it''s", "it\\'s", "a\"b", "x\\\"y"};
    for (int i = 0; i < 5; ++i) {
        SCOPED_TRACE(i);
        ASSERT_EQ(where.Items(i)->RightSide().Count(), 1);
        EXPECT_EQ(where.Items(i)->RightSide().Items(0)->Kind(), fkString);
        EXPECT_EQ(where.Items(i)->RightSide().Items(0)->Name(), names[i]);
    }
}

namespace {

// Every string of up to maxLength characters over alphabet.
std::vector<std::string> AllStrings(const std::string& alphabet, size_t maxLength)
{
    std::vector<std::string> result{std::string()};
    std::vector<std::string> level{std::string()};
    for (size_t n = 1; n <= maxLength; ++n) {
        std::vector<std::string> next;
        for (const std::string& s : level)
            for (char c : alphabet)
                next.push_back(s + c);
        result.insert(result.end(), next.begin(), next.end());
        level = std::move(next);
    }
    return result;
}

std::string Visible(const std::string& s) { return "[" + s + "]"; }

// The printed statement on one line.
std::string OneLine(const std::string& s)
{
    std::string r;
    for (char c : s)
        r += c == '\r' ? std::string("\\r") : c == '\n' ? std::string("\\n") : std::string(1, c);
    return r;
}

} // namespace

// A value written by QuoteString and read back prints the same literal again; the only
// exception is a value ending in a backslash (its literal ends in \' , which does not close).
TEST(MyStringsProperty, QuotedValuesReadBackAsTheSameLiteral)
{
    const std::vector<std::string> values = AllStrings("a'\\\"", 5);
    ASSERT_EQ(values.size(), 1u + 4u + 16u + 64u + 256u + 1024u);
    TVdMySQLScanner scanner;
    int fixedPoints = 0;
    int limitation = 0;
    int limitationFixed = 0;
    std::vector<std::string> failures;
    for (const std::string& v : values) {
        const std::string literal = scanner.QuoteString(v);
        const std::string statement = "SELECT A FROM T WHERE A = " + literal;
        const std::string expected =
            "SELECT \r\n  `T`.`A`\r\nFROM\r\n  `T`\r\nWHERE\r\n  (`A` = " + literal + ")\r\n";
        const bool endsInBackslash = !v.empty() && v.back() == '\\';
        std::string printed;
        std::string error;
        try {
            TVdMySelectParser parser;
            parser.SetExpression(statement);
            printed = parser.GetExpression();
        } catch (const EVdParserError& e) {
            error = e.what();
        }
        const bool fixed = error.empty() && printed == expected;
        if (endsInBackslash) {
            ++limitation;
            if (fixed)
                ++limitationFixed;
            else if (error != "Unterminated string.")
                failures.push_back(Visible(v) + " -> " + literal + " (ends in a backslash): " +
                                   (error.empty() ? "printed " + OneLine(printed) : error));
        } else if (fixed) {
            ++fixedPoints;
        } else {
            failures.push_back(Visible(v) + " -> " + literal + ": " +
                               (error.empty() ? "printed " + OneLine(printed) : error));
        }
    }
    std::cout << "[ MyStringsProperty ] " << values.size() << " values: " << fixedPoints
              << " not ending in a backslash read back as the same literal; " << limitation
              << " end in a backslash (" << limitationFixed << " of them read back, "
              << (limitation - limitationFixed) << " unterminated)" << std::endl;
    std::string report;
    for (size_t i = 0; i < failures.size() && i < 20; ++i)
        report += failures[i] + "\n";
    EXPECT_TRUE(failures.empty()) << failures.size() << " values failed, first ones:\n" << report;
    EXPECT_EQ(fixedPoints + limitation, int(values.size()));
}

TEST(MyNames, QuoteInsideANameIsDoubled)
{
    TVdMySQLScanner s;
    EXPECT_EQ(s.QuotedName("a`b"), "`a``b`");
    EXPECT_EQ(s.QuotedName("a``b"), "`a````b`");
    EXPECT_EQ(s.QuotedName("`"), "````");
}

// After a backslash the first back quote of a run is escaped by it already: doubling it too
// would close the name there.
TEST(MyNames, QuoteAfterABackslashIsWrittenOnce)
{
    TVdMySQLScanner s;
    EXPECT_EQ(s.QuotedName("\\`"), "`\\``");
    EXPECT_EQ(s.QuotedName("\\`x"), "`\\`x`");
    EXPECT_EQ(s.QuotedName("\\``x"), "`\\```x`");
    EXPECT_EQ(s.QuotedName("a\\`\"my b"), "`a\\`\"my b`");
}

TEST(MyNames, ProcessNameQuotesEachPartTheSameWay)
{
    TVdMySQLScanner s;
    EXPECT_EQ(s.ProcessName("\\`x"), "`\\`x`");
    EXPECT_EQ(s.ProcessName("T.\\`x"), "`T`.`\\`x`");
}

// Every table name over a back quote, a backslash and a letter, up to five characters, is
// written so that it reads back as one name and prints the same again; the names that end in a
// backslash are the exception (the closing quote after it is escaped).
TEST(MyNamesProperty, QuotedNamesReadBackAsTheSameName)
{
    const std::vector<std::string> names = AllStrings("a`\\", 5);
    ASSERT_EQ(names.size(), 1u + 3u + 9u + 27u + 81u + 243u);
    TVdMySQLScanner scanner;
    int checked = 0;
    std::vector<std::string> failures;
    for (const std::string& name : names) {
        if (name.empty() || name.back() == '\\')
            continue;
        ++checked;
        const std::string quoted = scanner.QuotedName(name);
        const std::string statement = "SELECT * FROM " + quoted;
        try {
            TVdMySelectParser parser;
            parser.SetExpression(statement);
            const std::string expected = "SELECT *\r\nFROM\r\n  " + quoted + "\r\n";
            // A name that starts and ends with the quote is kept with its quotes.
            const std::string& read = parser.TableDefs().Items(0)->Name();
            if (parser.TableDefs().Count() != 1 || (read != name && read != quoted))
                failures.push_back(Visible(name) + " -> " + quoted + ": read " +
                                   std::to_string(parser.TableDefs().Count()) + " tables, " +
                                   Visible(parser.TableDefs().Items(0)->Name()));
            else if (parser.GetExpression() != expected)
                failures.push_back(Visible(name) + " -> " + quoted + ": printed " +
                                   OneLine(parser.GetExpression()));
        } catch (const EVdParserError& e) {
            failures.push_back(Visible(name) + " -> " + quoted + ": " + e.what());
        }
    }
    EXPECT_EQ(checked, 1 + 2 + 6 + 18 + 54 + 162 - 1);
    std::string report;
    for (size_t i = 0; i < failures.size() && i < 20; ++i)
        report += failures[i] + "\n";
    EXPECT_TRUE(failures.empty()) << failures.size() << " names failed, first ones:\n" << report;
}

TEST(MyScannerClosingQuote, QuoteAfterBackslashIsContent)
{
    TVdMySQLScanner s;
    EXPECT_EQ(s.ClosingQuote("a\\'b'", '\'', ' '), 4u);
    EXPECT_EQ(s.ClosingQuote("a\\`b`", '`', ' '), 4u);
    EXPECT_EQ(s.ClosingQuote("a\\'", '\'', ' '), std::string_view::npos);
    // A doubled quote is content here too.
    EXPECT_EQ(s.ClosingQuote("a''b'", '\'', ' '), 4u);
}

TEST(MyScannerClosingQuote, ClosesAtEndPastAnEscapedQuote)
{
    TVdMySQLScanner s;
    EXPECT_TRUE(s.ClosesAtEnd("a\\'", '\''));
    EXPECT_FALSE(s.ClosesAtEnd("a'b", '\''));
}
