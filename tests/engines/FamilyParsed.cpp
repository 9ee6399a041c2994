// Statements as a user types them into the text view: parsed, printed in the engine's
// dialect and run. Conditions are written the way the library prints them (each comparison
// in its own parentheses, a group in another pair), so the text means on every engine what
// the model holds. Every text returns rows on the suite's data.

#include "tests/engines/StatementFamily.h"

#include "core/VdSelectParser.h"

namespace vdengine {

namespace {

TFamilyStatement Parsed(std::string name, std::string text, unsigned engines = emAll)
{
    TFamilyStatement entry;
    entry.Name = std::move(name);
    entry.Text = std::move(text);
    entry.Engines = engines;
    return entry;
}

// The same text printed with keywords and functions in another letter case.
TFamilyStatement InCase(std::string name, const std::string& text, vd::TVdFormatMode mode)
{
    TFamilyStatement entry;
    entry.Name = std::move(name);
    entry.Reference = text;
    entry.Build = [text, mode](vd::TVdSelectParser& parser) {
        parser.ScriptFormat().KeywordsFormat = mode;
        parser.ScriptFormat().FunctionsFormat = mode;
        parser.SetExpression(text);
    };
    return entry;
}

const char* const EveryClauseText =
    "SELECT DISTINCT C.COUNTRY, COUNT(*) AS ORDER_COUNT, MAX(O.ORDER_DATE) AS LAST_ORDER"
    " FROM CUSTOMERS C LEFT OUTER JOIN ORDERS O ON C.ID = O.CUSTOMER_ID"
    " WHERE (C.CREDIT_LIMIT > 0) AND ((O.STATE = 'SHIPPED') OR (O.STATE IS NULL)"
    " OR (O.STATE NOT IN ('OPEN'))) AND (NOT ((C.NAME LIKE 'Z%') AND (C.ID BETWEEN 7 AND 9)))"
    " GROUP BY C.COUNTRY HAVING (COUNT(*) >= 1) ORDER BY C.COUNTRY DESC";

} // namespace

std::vector<TFamilyStatement> ParsedStatements()
{
    return {
        Parsed("Star", "SELECT * FROM CUSTOMERS"),
        Parsed("StarOfTwoTables", "SELECT * FROM SUPPLIERS S, PRODUCTS P"
                                  " WHERE (P.SUPPLIER_ID = S.ID)"),
        Parsed("Columns", "SELECT C.ID, C.NAME, C.CITY FROM CUSTOMERS C"),
        Parsed("ColumnsWithoutAlias", "SELECT CUSTOMERS.ID, CUSTOMERS.NAME FROM CUSTOMERS"),
        Parsed("ColumnAliases", "SELECT C.NAME AS CUSTOMER, C.CREDIT_LIMIT AS CREDIT"
                                " FROM CUSTOMERS C"),
        Parsed("Distinct", "SELECT DISTINCT C.COUNTRY FROM CUSTOMERS C"),
        Parsed("DistinctOverJoin", "SELECT DISTINCT C.NAME FROM CUSTOMERS C"
                                   " INNER JOIN ORDERS O ON C.ID = O.CUSTOMER_ID"),
        Parsed("TypedColumnsOfProducts", "SELECT P.ID, P.NAME, P.SUPPLIER_ID, P.PRICE, P.WEIGHT,"
                                         " P.STOCK, P.PICTURE FROM PRODUCTS P"),
        Parsed("TypedColumnsOfCustomers", "SELECT C.ID, C.COUNTRY, C.CREDIT_LIMIT, C.CREATED,"
                                          " C.ENABLED, C.NOTES FROM CUSTOMERS C"),
        Parsed("TypedColumnsOfEmployees", "SELECT E.FIRST_NAME, E.MANAGER_ID, E.HIRED, E.SALARY,"
                                          " E.EXTENSION FROM EMPLOYEES E"),
        Parsed("TypedColumnsOfSuppliers", "SELECT S.NAME, S.PHONE, S.OPENS, S.RATING"
                                          " FROM SUPPLIERS S"),
        Parsed("ExpressionColumn", "SELECT L.ORDER_ID, L.QUANTITY * L.UNIT_PRICE AS AMOUNT"
                                   " FROM ORDER_LINES L"),
        Parsed("FunctionColumn", "SELECT UPPER(C.NAME) AS UPPER_NAME FROM CUSTOMERS C"),

        Parsed("InnerJoin", "SELECT C.NAME, O.ID, O.ORDER_DATE FROM CUSTOMERS C"
                            " INNER JOIN ORDERS O ON C.ID = O.CUSTOMER_ID"),
        Parsed("LeftOuterJoin", "SELECT C.NAME, O.ID FROM CUSTOMERS C"
                                " LEFT OUTER JOIN ORDERS O ON C.ID = O.CUSTOMER_ID"),
        Parsed("RightOuterJoin", "SELECT E.LAST_NAME, O.ID FROM EMPLOYEES E"
                                 " RIGHT OUTER JOIN ORDERS O ON E.ID = O.EMPLOYEE_ID"),
        Parsed("FullOuterJoin",
               "SELECT P.NAME, S.NAME AS SUPPLIER FROM PRODUCTS P"
               " FULL OUTER JOIN SUPPLIERS S ON P.SUPPLIER_ID = S.ID",
               emAll & ~emMariaDB),
        Parsed("JoinChain", "SELECT O.ID, C.NAME, P.NAME AS PRODUCT, S.NAME AS SUPPLIER,"
                            " L.QUANTITY FROM ORDERS O"
                            " INNER JOIN CUSTOMERS C ON O.CUSTOMER_ID = C.ID"
                            " INNER JOIN ORDER_LINES L ON O.ID = L.ORDER_ID"
                            " INNER JOIN PRODUCTS P ON L.PRODUCT_ID = P.ID"
                            " LEFT OUTER JOIN SUPPLIERS S ON P.SUPPLIER_ID = S.ID"),
        Parsed("SelfJoin", "SELECT E.LAST_NAME, M.LAST_NAME AS MANAGER FROM EMPLOYEES E"
                           " LEFT OUTER JOIN EMPLOYEES M ON E.MANAGER_ID = M.ID"),
        Parsed("JoinNotEqual", "SELECT P.NAME, S.NAME AS OTHER FROM PRODUCTS P"
                               " INNER JOIN SUPPLIERS S ON P.SUPPLIER_ID <> S.ID"),
        Parsed("JoinLess", "SELECT C.NAME, E.LAST_NAME FROM CUSTOMERS C"
                           " INNER JOIN EMPLOYEES E ON C.ID < E.ID"),
        Parsed("JoinGreaterOrEqual", "SELECT C.NAME, E.LAST_NAME FROM CUSTOMERS C"
                                     " INNER JOIN EMPLOYEES E ON C.ID >= E.ID"),
        Parsed("JoinOnTwoConditions", "SELECT C.NAME, O.ID FROM CUSTOMERS C"
                                      " LEFT OUTER JOIN ORDERS O ON (C.ID = O.CUSTOMER_ID"
                                      " AND O.ID > C.ID)"),
        Parsed("TableJoinedFromTwoEarlierTables",
               "SELECT O.ID, C.NAME, E.LAST_NAME FROM CUSTOMERS C"
               " INNER JOIN EMPLOYEES E ON C.ID >= E.ID"
               " INNER JOIN ORDERS O ON C.ID = O.CUSTOMER_ID AND E.ID = O.EMPLOYEE_ID"),
        Parsed("CommaJoin", "SELECT O.ID, C.NAME FROM ORDERS O, CUSTOMERS C"
                            " WHERE (O.CUSTOMER_ID = C.ID)"),

        Parsed("WhereEqual", "SELECT C.NAME FROM CUSTOMERS C WHERE (C.CITY = 'Paris')"),
        Parsed("WhereNotEqual", "SELECT C.NAME FROM CUSTOMERS C WHERE (C.COUNTRY <> 'FR')"),
        Parsed("WhereLess", "SELECT P.NAME FROM PRODUCTS P WHERE (P.PRICE < 10)"),
        Parsed("WhereGreater", "SELECT P.NAME FROM PRODUCTS P WHERE (P.WEIGHT > 1.5)"),
        Parsed("WhereLessOrEqual", "SELECT O.ID FROM ORDERS O"
                                   " WHERE (O.ORDER_DATE <= '2023-02-05')"),
        Parsed("WhereGreaterOrEqual", "SELECT E.LAST_NAME FROM EMPLOYEES E"
                                      " WHERE (E.HIRED >= '2018-06-15 09:00:00')"),
        Parsed("WhereLike", "SELECT C.NAME FROM CUSTOMERS C WHERE (C.NAME LIKE 'A%')"),
        Parsed("WhereNotLike", "SELECT C.NAME FROM CUSTOMERS C WHERE (C.CITY NOT LIKE 'L%')"),
        Parsed("WhereIn", "SELECT C.NAME FROM CUSTOMERS C WHERE (C.ID IN (1, 3, 4))"),
        Parsed("WhereInStrings", "SELECT C.NAME FROM CUSTOMERS C"
                                 " WHERE (C.COUNTRY IN ('FR', 'GB'))"),
        Parsed("WhereNotIn", "SELECT O.ID FROM ORDERS O WHERE (O.STATE NOT IN ('OPEN'))"),
        Parsed("WhereBetween", "SELECT P.NAME FROM PRODUCTS P WHERE (P.PRICE BETWEEN 5 AND 50)"),
        Parsed("WhereNotBetween", "SELECT P.NAME FROM PRODUCTS P"
                                  " WHERE (P.STOCK NOT BETWEEN 1 AND 100)"),
        Parsed("WhereIsNull", "SELECT O.ID FROM ORDERS O WHERE (O.SHIPPED IS NULL)"),
        Parsed("WhereIsNotNull", "SELECT C.NAME FROM CUSTOMERS C WHERE (C.NOTES IS NOT NULL)"),
        // TRUE is no keyword of the generic or MySQL dialect: there it is a name and prints
        // quoted (see the engines' own tests); SQLite and MariaDB keep booleans as numbers.
        Parsed("WhereBoolean", "SELECT C.NAME FROM CUSTOMERS C WHERE (C.ENABLED = TRUE)",
               emPostgreSQL | emFirebird),
        Parsed("WhereBooleanAsNumber", "SELECT C.NAME FROM CUSTOMERS C WHERE (C.ENABLED = 1)",
               emSQLite | emMariaDB),
        Parsed("WhereStringWithQuote", "SELECT C.CITY FROM CUSTOMERS C"
                                       " WHERE (C.NAME = 'O''Brien')"),
        Parsed("WhereColumnToColumn", "SELECT L.ORDER_ID FROM ORDER_LINES L"
                                      " WHERE (L.QUANTITY > L.LINE_NO)"),
        Parsed("WhereFunction", "SELECT C.NAME FROM CUSTOMERS C WHERE (UPPER(C.CITY) = 'LYON')"),
        Parsed("WhereAnd", "SELECT C.NAME FROM CUSTOMERS C"
                           " WHERE (C.COUNTRY = 'FR') AND (C.CREDIT_LIMIT > 600)"),
        Parsed("WhereOr", "SELECT C.NAME FROM CUSTOMERS C"
                          " WHERE (C.CITY = 'Paris') OR (C.CITY = 'Berlin')"),
        Parsed("WhereNotAnd", "SELECT C.NAME FROM CUSTOMERS C"
                              " WHERE NOT ((C.COUNTRY = 'FR') AND (C.CREDIT_LIMIT < 800))"),
        Parsed("WhereNotOr", "SELECT C.NAME FROM CUSTOMERS C"
                             " WHERE NOT ((C.CITY = 'Paris') OR (C.CITY = 'Lyon'))"),
        Parsed("WhereNestedGroups",
               "SELECT O.ID FROM ORDERS O"
               " WHERE ((O.STATE = 'SHIPPED') OR (O.STATE = 'OPEN'))"
               " AND ((O.CUSTOMER_ID = 1) OR ((O.EMPLOYEE_ID = 2) AND (O.ID > 2)))"),
        Parsed("WhereNegatedGroupInside",
               "SELECT C.NAME FROM CUSTOMERS C"
               " WHERE (C.ID > 0) AND (NOT ((C.CITY = 'Paris') OR (C.CITY = 'Lyon')))"),

        Parsed("CountStar", "SELECT COUNT(*) FROM ORDERS"),
        Parsed("Aggregates", "SELECT COUNT(*) AS N, SUM(P.STOCK) AS STOCKED, MIN(P.PRICE) AS"
                             " CHEAPEST, MAX(P.WEIGHT) AS HEAVIEST, AVG(P.PRICE) AS MEAN"
                             " FROM PRODUCTS P"),
        Parsed("GroupBy", "SELECT O.CUSTOMER_ID, COUNT(*) AS ORDER_COUNT FROM ORDERS O"
                          " GROUP BY O.CUSTOMER_ID"),
        Parsed("GroupByHaving", "SELECT O.CUSTOMER_ID, COUNT(*) AS ORDER_COUNT FROM ORDERS O"
                                " GROUP BY O.CUSTOMER_ID HAVING (COUNT(*) > 1)"),
        Parsed("GroupByJoinHaving", "SELECT C.NAME, SUM(L.QUANTITY) AS ITEMS FROM CUSTOMERS C"
                                    " INNER JOIN ORDERS O ON C.ID = O.CUSTOMER_ID"
                                    " INNER JOIN ORDER_LINES L ON O.ID = L.ORDER_ID"
                                    " WHERE (O.STATE <> 'CANCELLED')"
                                    " GROUP BY C.NAME HAVING (SUM(L.QUANTITY) >= 6)"),
        Parsed("HavingGroups", "SELECT L.PRODUCT_ID, COUNT(*) AS LINE_COUNT, MAX(L.QUANTITY) AS"
                               " MOST FROM ORDER_LINES L GROUP BY L.PRODUCT_ID"
                               " HAVING (COUNT(*) > 1) OR (MAX(L.QUANTITY) >= 100)"),

        Parsed("OrderBy", "SELECT C.NAME, C.CITY FROM CUSTOMERS C ORDER BY C.NAME"),
        Parsed("OrderByDescending", "SELECT P.NAME, P.PRICE FROM PRODUCTS P"
                                    " ORDER BY P.PRICE DESC"),
        Parsed("OrderByAlias", "SELECT C.NAME AS CUSTOMER FROM CUSTOMERS C ORDER BY CUSTOMER"),
        Parsed("OrderBySeveral", "SELECT O.CUSTOMER_ID, O.ORDER_DATE FROM ORDERS O"
                                 " ORDER BY O.CUSTOMER_ID DESC, O.ORDER_DATE"),
        // Statements whose print once meant something else: a text in apostrophes beside a
        // column, a position, a grouping the fields do not derive, an expression to sort by,
        // an alias without AS, a chain of joins whose order matters.
        Parsed("TextBesideColumn", "SELECT C.NAME, 'GBP' AS CUR FROM CUSTOMERS C"),
        Parsed("OrderByPosition", "SELECT DISTINCT C.COUNTRY, C.CITY FROM CUSTOMERS C"
                                  " ORDER BY 2 DESC, 1"),
        Parsed("GroupByWithoutAggregates", "SELECT C.CITY, C.COUNTRY FROM CUSTOMERS C"
                                           " GROUP BY C.CITY, C.COUNTRY"),
        Parsed("GroupByColumnNotSelected", "SELECT COUNT(*) AS N FROM ORDERS O"
                                           " GROUP BY O.CUSTOMER_ID HAVING COUNT(*) > 1"),
        Parsed("OrderByAggregate", "SELECT O.CUSTOMER_ID, COUNT(*) AS N FROM ORDERS O"
                                   " GROUP BY O.CUSTOMER_ID ORDER BY COUNT(*) DESC, O.CUSTOMER_ID"),
        Parsed("AliasWithoutAs", "SELECT C.NAME CUSTOMER, C.CITY TOWN FROM CUSTOMERS C"),
        Parsed("MixedConnectors", "SELECT C.NAME FROM CUSTOMERS C WHERE C.COUNTRY = 'FR'"
                                  " OR C.COUNTRY = 'DE' AND NOT (C.CREDIT_LIMIT < 100)"),
        Parsed("JoinChainKeepsItsOrder",
               "SELECT C.NAME, O.ID, L.LINE_NO, E.LAST_NAME FROM CUSTOMERS C"
               " INNER JOIN ORDERS O ON C.ID = O.CUSTOMER_ID"
               " INNER JOIN ORDER_LINES L ON O.ID = L.ORDER_ID"
               " RIGHT OUTER JOIN EMPLOYEES E ON O.EMPLOYEE_ID = E.ID"),
        Parsed("EveryClause", EveryClauseText),
        InCase("EveryClauseLowerCase", EveryClauseText, vd::qfmLowerCase),
        InCase("EveryClauseFirstUpper", EveryClauseText, vd::qfmFirstUpper),
    };
}

} // namespace vdengine
