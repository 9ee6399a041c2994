#include "dialects/VdIBScanner.h"

#include "core/VdText.h"

namespace vd {

TVdIBScanner::TVdIBScanner()
{
    // The base constructor loaded the generic lists; these are the server's.
    TVdIBScanner::DefineFunctions();
    TVdIBScanner::DefineKeywords();
    TVdIBScanner::DefineOperations();
}

void TVdIBScanner::SetDialect(TVdSQLDialect value)
{
    if (value == FDialect)
        return;
    FDialect = value;
    InvalidateCharClasses(); // the quote classes follow the dialect
}

// Lower-case letters are deliberately no letters: an unquoted name is read in upper case.
bool TVdIBScanner::IsAlpha(char c) const { return c >= 'A' && c <= 'Z'; }

bool TVdIBScanner::IsQuote(char c) const
{
    switch (FDialect) {
    case qibDialect1:
        return c == '"' || c == '\'';
    case qibDialect3:
        return c == '\'';
    }
    return TVdSQLScanner::IsQuote(c);
}

bool TVdIBScanner::IsIdentQuote(char c) const
{
    switch (FDialect) {
    case qibDialect1:
        return false;
    case qibDialect3:
        return c == '"';
    }
    return TVdSQLScanner::IsIdentQuote(c);
}

bool TVdIBScanner::IsLegalSymbol(char c) const
{
    return TVdSQLScanner::IsLegalSymbol(c) || c == '$';
}

char TVdIBScanner::GetIdentQuote() const { return '"'; }

bool TVdIBScanner::GetQuoteIdentifiers() const { return FDialect != qibDialect1; }

bool TVdIBScanner::GetProcessAliases() const { return true; }

// Keywords and function names are quoted; so is any name that is no plain upper-case
// identifier, unless it already stands in quotes.
bool TVdIBScanner::NeedQuotes(const std::string& name) const
{
    if (IsKeyword(name) || IsFunction(name))
        return true;
    if (!TVdSQLScanner::NeedQuotes(name))
        return false;
    return !IsIdentifier(name);
}

std::string TVdIBScanner::ProcessIdent(const std::string& name) const
{
    return text::Upper(TVdSQLScanner::ProcessIdent(name));
}

// Dialect 1 knows no quoted names: a name is written in upper case, blanks turned into "_".
std::string TVdIBScanner::ProcessName(const std::string& name) const
{
    if (FDialect != qibDialect1)
        return TVdSQLScanner::ProcessName(name);
    std::string result = text::Upper(name);
    for (char& c : result)
        if (c == ' ')
            c = '_';
    return result;
}

std::string TVdIBScanner::GetCommaFunctions() const
{
    return "AVG,CAST,COUNT,GEN_ID,MAX,MIN,SUM,UPPER";
}

std::string TVdIBScanner::GetCommaOperations() const { return "+,-,*,/,||"; }

// Kept exactly as it stands, in this order: OPTIONOR is deliberately where OPTION would be,
// and ROWS, PERCENT and TIES come last, out of alphabetical order.
std::string TVdIBScanner::GetCommaKeywords() const
{
    return "ACTION,ACTIVE,ADD,ADMIN,AFTER,ALL,ALTER,AND,OR,ANY,AS,ASC,ASCENDING,AT,AUTO,AUTODDL,"
           "AVG,BASED,BASENAME,BASE_NAME,BEFORE,BEGIN,BETWEEN,BLOB,BLOBEDIT,BREAK,BUFFER,BY,"
           "CACHE,CASCADE,CAST,CHAR,CHARACTER,CHARACTER_LENGTH,CHAR_LENGTH,CHECK,"
           "CHECK_POINT_LEN,CHECK_POINT_LENGTH,COLLATE,COLLATION,COLUMN,COMMIT,COMMITTED,"
           "COMPILETIME,COMPUTED,CLOSE,CONDITIONAL,CONNECT,CONSTRAINT,CONTAINING,CONTINUE,COUNT,"
           "CREATE,CSTRING,CURRENT,CURRENT_DATE,CURRENT_ROLE,CURRENT_TIME,CURRENT_TIMESTAMP,"
           "CURRENT_USER,CURSOR,DATABASE,DATE,DAY,DB_KEY,DEBUG,DEC,DECIMAL,DECLARE,DEFAULT,"
           "DELETE,DESC,DESCENDING,DESCRIBE,DESCRIPTOR,DISCONNECT,DISPLAY,DISTINCT,DO,DOMAIN,"
           "DOUBLE,DROP,ECHO,EDIT,ELSE,END,ENTRY_POINT,ESCAPE,EVENT,EXCEPTION,EXECUTE,EXISTS,"
           "EXIT,EXTERN,EXTERNAL,EXTRACT,FETCH,FILE,FILTER,FIRST,FLOAT,FOR,FOREIGN,FOUND,"
           "FREE_IT,FROM,FULL,FUNCTION,GDSCODE,GENERATOR,GEN_ID,GLOBAL,GOTO,GRANT,GROUP,"
           "GROUP_COMMIT_WAIT,GROUP_COMMIT_WAIT_TIME,HAVING,HELP,HOUR,IF,IMMEDIATE,IN,INACTIVE,"
           "INDEX,INDICATOR,INIT,INNER,INPUT,INPUT_TYPE,INSERT,INT,INTEGER,INTO,IS,ISOLATION,"
           "ISQL,JOIN,KEY,LC_MESSAGES,LC_TYPE,LEFT,LENGTH,LEV,LEVEL,LIKE,LOGFILE,"
           "LOG_BUFFER_SIZE,LOG_BUF_SIZE,LONG,MANUAL,MAX,MAXIMUM,MAXIMUM_SEGMENT,MAX_SEGMENT,"
           "MERGE,MESSAGE,MIN,MINIMUM,MINUTE,MODULE_NAME,MONTH,NAMES,NATIONAL,NATURAL,NCHAR,NO,"
           "NOAUTO,NOT,NULL,NUMERIC,NUM_LOG_BUFS,NUM_LOG_BUFFERS,OCTET_LENGTH,OF,ON,ONLY,OPEN,"
           "OPTIONOR,ORDER,OUTER,OUTPUT,OUTPUT_TYPE,OVERFLOW,PAGE,PAGELENGTH,PAGES,PAGE_SIZE,"
           "PARAMETER,PASSWORD,PLAN,POSITION,POST_EVENT,PRECISION,PREPARE,PROCEDURE,PROTECTED,"
           "PRIMARY,PRIVILEGES,PUBLIC,QUIT,RAW_PARTITIONS,RDB$DB_KEY,READ,REAL,RECORD_VERSION,"
           "RECREATE,REFERENCES,RELEASE,RESERV,RESERVING,RESTRICT,RETAIN,RETURN,"
           "RETURNING_VALUES,RETURNS,REVOKE,RIGHT,ROLE,ROLLBACK,RUNTIME,SCHEMA,SECOND,SEGMENT,"
           "SELECT,SET,SHADOW,SHARED,SHELL,SHOW,SINGULAR,SIZE,SKIP,SMALLINT,SNAPSHOT,SOME,SORT,"
           "SQLCODE,SQLERROR,SQLWARNING,STABILITY,STARTING,STARTS,STATEMENT,STATIC,STATISTICS,"
           "SUBSTRING,SUB_TYPE,SUM,SUSPEND,TABLE,TERMINATOR,THEN,TIME,TIMESTAMP,TO,TRANSACTION,"
           "TRANSLATE,TRANSLATION,TRIGGER,TRIM,TYPE,UNCOMMITTED,UNION,UNIQUE,UPDATE,UPPER,USER,"
           "USING,VALUE,VALUES,VARCHAR,VARIABLE,VARYING,VERSION,VIEW,WAIT,WEEKDAY,WHEN,WHENEVER,"
           "WHERE,WHILE,WITH,WORK,WRITE,YEAR,YEARDAY,ROWS,PERCENT,TIES";
}

} // namespace vd
