#include "core/VdSelectParser.h"

#include <gtest/gtest.h>

TEST(Smoke, StarSelect)
{
    vd::TVdSelectParser parser;
    parser.SetExpression("SELECT * FROM T");
    EXPECT_EQ(parser.GetExpression(), "SELECT *\r\nFROM\r\n  \"T\"\r\n");
}
