#include "dialects/VdMyScanner.h"

namespace vd {

TVdMySQLScanner::TVdMySQLScanner()
{
    // The base constructor loaded the generic lists; these are the server's.
    TVdMySQLScanner::DefineFunctions();
    TVdMySQLScanner::DefineKeywords();
    TVdMySQLScanner::DefineOperations();
}

char TVdMySQLScanner::GetIdentQuote() const { return '`'; }

bool TVdMySQLScanner::IsIdentQuote(char c) const { return c == '`'; }

bool TVdMySQLScanner::GetProcessAliases() const { return GetQuoteIdentifiers(); }

// With k quotes at the end of the text read so far, and b = 1 when a backslash stands before
// them, the quote closes the string exactly when k - b is even.
bool TVdMySQLScanner::IsTerminator(char c, const std::string& text, char quote, int next) const
{
    if (c != quote || next == static_cast<unsigned char>(quote))
        return false;
    size_t k = 0;
    while (k < text.size() && text[text.size() - 1 - k] == quote)
        ++k;
    const int b = k < text.size() && text[text.size() - 1 - k] == '\\' ? 1 : 0;
    const int escaped = int(k) - b;
    return escaped >= 0 && escaped % 2 == 0;
}

std::string TVdMySQLScanner::UnquoteString(const std::string& content, char quote) const
{
    if (quote != '"')
        return content;
    // Inside double quotes: "" is one double quote, an apostrophe is plain; between
    // apostrophes the apostrophe is escaped instead. Escape pairs are kept.
    std::string body;
    body.reserve(content.size() + 8);
    for (size_t i = 0; i < content.size(); ++i) {
        const char c = content[i];
        if (c == '\\' && i + 1 < content.size()) {
            body += c;
            body += content[++i];
        } else if (c == '"' && i + 1 < content.size() && content[i + 1] == '"') {
            body += c;
            ++i;
        } else if (c == '\'') {
            body += "\\'";
        } else {
            body += c;
        }
    }
    return body;
}

// Whether 'body' is read by this scanner as one string whose text is body: no quote inside
// ends it, the last one does, and it does not begin as an empty string ('').
bool TVdMySQLScanner::ReadsBackAsString(const std::string& body) const
{
    const char quote = '\'';
    if (!body.empty() && body[0] == quote && (body.size() == 1 || body[1] != quote))
        return false;
    return ClosesAtEnd(body, quote);
}

void TVdMySQLScanner::AppendQuotedName(std::string& out, std::string_view name) const
{
    const char quote = GetIdentQuote();
    out.reserve(out.size() + name.size() + 2);
    out += quote;
    for (size_t i = 0; i < name.size(); ++i) {
        out += name[i];
        if (name[i] != quote)
            continue;
        const bool escaped = i > 0 && name[i - 1] == '\\';
        if (!escaped)
            out += quote;
        // The rest of the run is doubled in both cases.
        for (; i + 1 < name.size() && name[i + 1] == quote; ++i) {
            out += quote;
            out += quote;
        }
    }
    out += quote;
}

std::string TVdMySQLScanner::QuoteString(const std::string& value) const
{
    if (ReadsBackAsString(value))
        return '\'' + value + '\'';
    // Escape pairs stay; every other apostrophe is escaped; a backslash left alone at the end
    // is escaped too.
    std::string result = "'";
    for (size_t i = 0; i < value.size(); ++i) {
        const char c = value[i];
        if (c == '\\') {
            result += c;
            result += i + 1 < value.size() ? value[++i] : '\\';
        } else if (c == '\'') {
            result += "\\'";
        } else {
            result += c;
        }
    }
    result += '\'';
    return result;
}

// LOCATE is deliberately listed twice.
std::string TVdMySQLScanner::GetCommaFunctions() const
{
    return "BIT_COUNT,IFNULL,NULLIF,IF,DAYOFWEEK,WEEKDAY,DAYOFMONTH,DAYOFYEAR,MONTH,DAYNAME,"
           "MONTHNAME,QUARTER,WEEK,YEAR,YEARWEEK,HOUR,MINUTE,SECOND,PERIOD_ADD,PERIOD_DIFF,"
           "DATE_ADD,DATE_SUB,ADDDATE,SUBDATE,TO_DAYS,FROM_DAYS,DATE_FORMAT,TIME_FORMAT,CURDATE,"
           "CURRENT_DATE,CURTIME,CURRENT_TIME,NOW,SYSDATE,CURRENT_TIMESTAMP,UNIX_TIMESTAMP,"
           "FROM_UNIXTIME,SEC_TO_TIME,TIME_TO_SEC,COUNT,AVG,MIN,MAX,SUM,STD,STDDEV,BIT_OR,"
           "BIT_AND,ABS,SIGN,MOD,FLOOR,CEILING,ROUND,EXP,LOG,LOG10,POW,POWER,SQRT,PI,COS,SIN,"
           "TAN,ACOS,ASIN,ATAN,ATAN2,COT,RAND,LEAST,GREATEST,DEGREES,RADIANS,TRUNCATE,DATABASE,"
           "USER,SYSTEM_USER,SESSION_USER,PASSWORD,ENCRYPT,ENCODE,DECODE,MD5,LAST_INSERT_ID,"
           "FORMAT,VERSION,CONNECTION_ID,GET_LOCK,RELEASE_LOCK,BENCHMARK,INET_NTOA,INET_ATON,"
           "MASTER_POS_WAIT,ASCII,ORD,CONV,BIN,OCT,HEX,CHAR,CONCAT,CONCAT_WS,LENGTH,"
           "OCTET_LENGTH,CHAR_LENGTH,CHARACTER_LENGTH,LOCATE,POSITION,LOCATE,INSTR,LPAD,RPAD,"
           "LEFT,RIGHT,SUBSTRING,MID,SUBSTRING_INDEX,LTRIM,RTRIM,TRIM,SOUNDEX,SPACE,REPLACE,"
           "REPEAT,REVERSE,ELT,FIELD,FIND_IN_SET,MAKE_SET,EXPORT_SET,LCASE,LOWER,UCASE,UPPER,"
           "LOAD_FILE,COALESCE";
}

// SQL_BUFFER_RESULT is deliberately no keyword (the other select options are).
std::string TVdMySQLScanner::GetCommaKeywords() const
{
    return "ACTION,ADD,AGGREGATE,ALL,ALTER,AFTER,AND,AS,ASC,AVG_ROW_LENGTH,AUTO_INCREMENT,"
           "BETWEEN,BIGINT,BIT,BINARY,BLOB,BOOL,BOTH,BY,CASCADE,CASE,CHAR,CHARACTER,CHANGE,"
           "CHECK,CHECKSUM,COLUMN,COLUMNS,COMMENT,CONSTRAINT,CREATE,CROSS,CURRENT_DATE,"
           "CURRENT_TIME,CURRENT_TIMESTAMP,DATA,DATABASE,DATABASES,DATE,DATETIME,DAY,DAY_HOUR,"
           "DAY_MINUTE,DAY_SECOND,DAYOFMONTH,DAYOFWEEK,DAYOFYEAR,DEC,DECIMAL,DEFAULT,DELAYED,"
           "DELAY_KEY_WRITE,DELETE,DESC,DESCRIBE,DISTINCT,DISTINCTROW,DOUBLE,DROP,END,ELSE,"
           "ESCAPE,ESCAPED,ENCLOSED,ENUM,EXPLAIN,EXISTS,FIELDS,FILE,FIRST,FLOAT,FLOAT4,FLOAT8,"
           "FLUSH,FOREIGN,FROM,FOR,FULL,FUNCTION,GLOBAL,GRANT,GRANTS,GROUP,HAVING,HEAP,"
           "HIGH_PRIORITY,HOUR,HOUR_MINUTE,HOUR_SECOND,HOSTS,IDENTIFIED,IGNORE,IN,INDEX,INFILE,"
           "INNER,INSERT,INSERT_ID,INT,INTEGER,INTERVAL,INT1,INT2,INT3,INT4,INT8,INTO,IF,IS,"
           "ISAM,JOIN,KEY,KEYS,KILL,LAST_INSERT_ID,LEADING,LEFT,LENGTH,LIKE,LINES,LIMIT,LOAD,"
           "LOCAL,LOCK,LOGS,LONG,LONGBLOB,LONGTEXT,LOW_PRIORITY,MAX,MAX_ROWS,MATCH,MEDIUMBLOB,"
           "MEDIUMTEXT,MEDIUMINT,MIDDLEINT,MIN_ROWS,MINUTE,MINUTE_SECOND,MODIFY,MONTH,MONTHNAME,"
           "MYISAM,NATURAL,NUMERIC,NO,NOT,NULL,ON,OPTIMIZE,OPTION,OPTIONALLY,OR,ORDER,OUTER,"
           "OUTFILE,PACK_KEYS,PARTIAL,PRECISION,PRIMARY,PROCEDURE,PROCESS,PROCESSLIST,"
           "PRIVILEGES,READ,REAL,REFERENCES,RELOAD,REGEXP,RENAME,REPLACE,RESTRICT,RETURNS,"
           "REVOKE,RLIKE,ROW,ROWS,SECOND,SELECT,SET,SHOW,SHUTDOWN,SMALLINT,SONAME,"
           "SQL_BIG_TABLES,SQL_BIG_SELECTS,SQL_LOW_PRIORITY_UPDATES,SQL_LOG_OFF,SQL_LOG_UPDATE,"
           "SQL_SELECT_LIMIT,SQL_SMALL_RESULT,SQL_BIG_RESULT,SQL_WARNINGS,STRAIGHT_JOIN,"
           "STARTING,STATUS,STRING,TABLE,TABLES,TEMPORARY,TERMINATED,TEXT,THEN,TIME,TIMESTAMP,"
           "TINYBLOB,TINYTEXT,TINYINT,TRAILING,TO,TYPE,USE,USING,UNIQUE,UNLOCK,UNSIGNED,UPDATE,"
           "USAGE,VALUES,VARCHAR,VARIABLES,VARYING,VARBINARY,WITH,WRITE,WHEN,WHERE,YEAR,"
           "YEAR_MONTH,ZEROFILL";
}

} // namespace vd
