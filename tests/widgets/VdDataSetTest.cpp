#include "builder/VdDataSet.h"

#include <gtest/gtest.h>

using namespace vd;

TEST(VdDataSet, FindFieldIsExactAndCaseSensitive)
{
    TDataSet data(QStringLiteral("CUSTOMERS"));
    data.AddField(QStringLiteral("NAME"), ftString, 40);
    data.AddField(QStringLiteral("ID"), ftInteger);
    ASSERT_NE(data.FindField(QStringLiteral("ID")), nullptr);
    EXPECT_EQ(data.FindField(QStringLiteral("ID"))->DataType, ftInteger);
    EXPECT_EQ(data.FindField(QStringLiteral("id")), nullptr);
    EXPECT_EQ(data.FieldCount(), 2);
}

TEST(VdDataSet, ParamIsNullUntilItHasAValue)
{
    TParams params;
    TParam& p = params.Add(TParam(QStringLiteral("CUST"), ptInput, ftInteger));
    EXPECT_TRUE(p.IsNull());
    EXPECT_TRUE(p.IsInput());
    p.SetValue(5);
    EXPECT_FALSE(params.FindParam(QStringLiteral("CUST"))->IsNull());
    EXPECT_EQ(params.FindParam(QStringLiteral("cust")), nullptr);
}

TEST(VdDataSet, FieldTypeNames)
{
    EXPECT_EQ(FieldTypeName(ftInteger), QStringLiteral("Integer"));
    EXPECT_EQ(FieldTypeName(ftFMTBcd), QStringLiteral("FMTBcd"));
}
