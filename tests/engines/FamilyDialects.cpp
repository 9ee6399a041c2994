// The clauses of one dialect: MySQL's select options, duplicate filters and LIMIT, run on
// MariaDB; Firebird's FIRST and SKIP, and the ROWS forms of the InterBase setting that
// Firebird also accepts (ROWS n, ROWS n TO m), run on Firebird.

#include "tests/engines/StatementFamily.h"

#include "dialects/VdIBParser.h"
#include "dialects/VdMyParser.h"
#include "tests/core/ModelCheck.h"

namespace vdengine {

using namespace vd;
using vdcheck::AddField;
using vdcheck::AddJoin;
using vdcheck::AddTable;

namespace {

TFamilyStatement Parsed(std::string name, unsigned engines, std::string text,
                        bool interBaseServer = false)
{
    TFamilyStatement entry;
    entry.Name = std::move(name);
    entry.Engines = engines;
    entry.Text = std::move(text);
    entry.InterBaseServer = interBaseServer;
    return entry;
}

TFamilyStatement Built(std::string name, unsigned engines,
                       std::function<void(TVdSelectParser&)> build, std::string reference,
                       bool interBaseServer = false)
{
    TFamilyStatement entry;
    entry.Name = std::move(name);
    entry.Engines = engines;
    entry.Build = std::move(build);
    entry.Reference = std::move(reference);
    entry.InterBaseServer = interBaseServer;
    return entry;
}

// Customers and their orders, the rows the dialect clauses cut.
void CustomerOrders(TVdSelectParser& p)
{
    TVdTableDef* c = AddTable(p, "CUSTOMERS", "C");
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    AddField(*c, "NAME");
    AddField(*o, "ID");
    AddJoin(*c, "ID", "O", "CUSTOMER_ID", vdjInnerJoin);
    p.OrderByItems().Add("O.ID");
}

const char* const CustomerOrdersText = "SELECT C.NAME, O.ID FROM CUSTOMERS C"
                                       " INNER JOIN ORDERS O ON C.ID = O.CUSTOMER_ID";

std::string CustomerOrdersSql(const std::string& head, const std::string& tail)
{
    return "SELECT " + head +
           "C.NAME, O.ID FROM CUSTOMERS C"
           " INNER JOIN ORDERS O ON C.ID = O.CUSTOMER_ID ORDER BY O.ID" +
           tail;
}

std::vector<TFamilyStatement> MySQLStatements()
{
    std::vector<TFamilyStatement> family;
    for (const TVdMySQLSelectOption option : AllSelectOptions) {
        const std::string word = SelectOptionWord(option);
        family.push_back(Parsed("MySQLOption_" + word, emMariaDB,
                                "SELECT " + word +
                                    " C.NAME FROM CUSTOMERS C"
                                    " WHERE (C.COUNTRY = 'FR')"));
    }
    family.push_back(Parsed("MySQLEveryOption", emMariaDB,
                            "SELECT STRAIGHT_JOIN SQL_SMALL_RESULT SQL_BUFFER_RESULT"
                            " HIGH_PRIORITY DISTINCT C.COUNTRY FROM CUSTOMERS C"));
    family.push_back(
        Parsed("MySQLDistinctRow", emMariaDB, "SELECT DISTINCTROW C.COUNTRY FROM CUSTOMERS C"));
    family.push_back(Parsed("MySQLAll", emMariaDB, "SELECT ALL C.COUNTRY FROM CUSTOMERS C"));
    family.push_back(Parsed("MySQLLimit", emMariaDB,
                            std::string(CustomerOrdersText) + " ORDER BY O.ID LIMIT 2"));
    family.push_back(Parsed("MySQLLimitOffset", emMariaDB,
                            std::string(CustomerOrdersText) + " ORDER BY O.ID LIMIT 1, 2"));
    family.push_back(Parsed("MySQLStringEscapes", emMariaDB,
                            "SELECT C.NAME FROM CUSTOMERS C WHERE (C.NAME = 'O\\'Brien')"
                            " OR (C.NAME = \"Bob\") OR (C.NOTES = 'back\\\\slash')"));
    family.push_back(Built(
        "MySQLBuiltOptionsAndLimit", emMariaDB,
        [](TVdSelectParser& p) {
            CustomerOrders(p);
            TVdMySQLOptions& options = dynamic_cast<TVdMySelectParser&>(p).MySQLOptions();
            options.SelectOptions = {mysoStraightJoin, mysoSQLBufferResult};
            options.Filter = myfoDistinct;
            options.LimitOffset = 1;
            options.LimitRows = 3;
        },
        CustomerOrdersSql("DISTINCT ", " LIMIT 1, 3")));
    family.push_back(Built(
        "MySQLBuiltApiString", emMariaDB,
        [](TVdSelectParser& p) {
            TVdTableDef* c = AddTable(p, "CUSTOMERS", "C");
            AddField(*c, "CITY");
            vdcheck::AddComparison(p.WhereItems(), "C.NAME", fkIdentifier, "=",
                                   {{"O'Brien", fkString}});
        },
        "SELECT C.CITY FROM CUSTOMERS C WHERE C.NAME = 'O''Brien'"));
    return family;
}

std::vector<TFamilyStatement> FirebirdStatements()
{
    std::vector<TFamilyStatement> family;
    family.push_back(Parsed("FirebirdFirst", emFirebird,
                            "SELECT FIRST 2 C.NAME, O.ID FROM CUSTOMERS C"
                            " INNER JOIN ORDERS O ON C.ID = O.CUSTOMER_ID ORDER BY O.ID"));
    family.push_back(Parsed("FirebirdFirstSkip", emFirebird,
                            "SELECT FIRST 2 SKIP 1 C.NAME, O.ID FROM CUSTOMERS C"
                            " INNER JOIN ORDERS O ON C.ID = O.CUSTOMER_ID ORDER BY O.ID"));
    family.push_back(Parsed("FirebirdSkip", emFirebird,
                            "SELECT SKIP 3 C.NAME, O.ID FROM CUSTOMERS C"
                            " INNER JOIN ORDERS O ON C.ID = O.CUSTOMER_ID ORDER BY O.ID"));
    family.push_back(Parsed("FirebirdDistinctFirst", emFirebird,
                            "SELECT FIRST 2 DISTINCT C.COUNTRY FROM CUSTOMERS C"
                            " ORDER BY C.COUNTRY"));
    family.push_back(Built(
        "FirebirdBuiltFirstSkip", emFirebird,
        [](TVdSelectParser& p) {
            CustomerOrders(p);
            TVdFBOptions& options = dynamic_cast<TVdIBSelectParser&>(p).FBOptions();
            options.First = 3;
            options.Skip = 1;
        },
        CustomerOrdersSql("FIRST 3 SKIP 1 ", "")));
    family.push_back(Parsed("InterBaseRows", emFirebird,
                            std::string(CustomerOrdersText) + " ORDER BY O.ID ROWS 2", true));
    family.push_back(Parsed("InterBaseRowsTo", emFirebird,
                            std::string(CustomerOrdersText) + " ORDER BY O.ID ROWS 2 TO 3", true));
    family.push_back(Built(
        "InterBaseBuiltRowsTo", emFirebird,
        [](TVdSelectParser& p) {
            CustomerOrders(p);
            TVdIBOptions& options = dynamic_cast<TVdIBSelectParser&>(p).IBOptions();
            options.RowsFrom = 1;
            options.RowsTo = 3;
        },
        CustomerOrdersSql("", " ROWS 1 TO 3"), true));
    family.push_back(Parsed("FirebirdLowerCaseNames", emFirebird,
                            "select c.name, o.id from customers c inner join orders o"
                            " on c.id = o.customer_id where (o.state = 'SHIPPED')"));
    family.push_back(Parsed("FirebirdKeywordAlias", emFirebird,
                            "SELECT C.NAME AS \"POSITION\" FROM CUSTOMERS C"));
    return family;
}

} // namespace

std::vector<TFamilyStatement> DialectStatements()
{
    std::vector<TFamilyStatement> family = MySQLStatements();
    for (TFamilyStatement& entry : FirebirdStatements())
        family.push_back(std::move(entry));
    return family;
}

} // namespace vdengine
