// A scanner's ProcessIdent decides the text of every name the parser reads, the qualifiers
// and aliases of the select list, FROM and join conditions included.
#include "core/VdSelectParser.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using vd::TVdSelectParser;
using vd::TVdSQLScanner;

namespace {

// Names read without quotes are taken in upper case.
class UpperNameScanner : public TVdSQLScanner
{
public:
    std::string ProcessIdent(const std::string& name) const override
    {
        std::string result = TVdSQLScanner::ProcessIdent(name);
        for (char& c : result)
            if (c >= 'a' && c <= 'z')
                c = char(c - 'a' + 'A');
        return result;
    }
};

class UpperNameParser : public TVdSelectParser
{
public:
    std::unique_ptr<TVdSQLScanner> CreateScanner() override
    {
        return std::make_unique<UpperNameScanner>();
    }
};

} // namespace

TEST(VdNameHooks, ProcessIdentDecidesQualifiersAndAliases)
{
    UpperNameParser p;
    p.SetExpression("SELECT t.a, x.b FROM tab t INNER JOIN s.other x ON (t.k = x.k)");
    ASSERT_EQ(p.TableDefs().Count(), 2);
    vd::TVdTableDef* tab = p.TableDefs().FindByAlias("T");
    vd::TVdTableDef* other = p.TableDefs().FindByAlias("X");
    ASSERT_NE(tab, nullptr);
    ASSERT_NE(other, nullptr);
    EXPECT_EQ(tab->Name(), "TAB");
    EXPECT_EQ(other->Name(), "S.OTHER");
    ASSERT_EQ(tab->FieldDefs().Count(), 1);
    EXPECT_EQ(tab->FieldDefs().Items(0)->Name(), "A");
    ASSERT_EQ(other->FieldDefs().Count(), 1);
    EXPECT_EQ(other->FieldDefs().Items(0)->Name(), "B");
    EXPECT_EQ(p.TableDefs().JoinCount(), 1);
}
