// The qualifier rename that the grid, the criteria and the kept ORDER BY / GROUP BY items share.

#include "builder/VdAliasText.h"

#include <gtest/gtest.h>

using namespace vd;

TEST(VdAliasText, RenamesEveryWholeQualifier)
{
    EXPECT_EQ(RenameQualifierInText(QStringLiteral("UPPER(A.NAME) || A.CITY"), QStringLiteral("B"),
                                    QStringLiteral("A")),
              QStringLiteral("UPPER(B.NAME) || B.CITY"));
}

TEST(VdAliasText, AQualifierEndingAnotherNameStays)
{
    // Letters, digits, _, $, #, a dot or a closing quote before it make it part of another name.
    for (const char* text : {"CA.X", "1A.X", "_A.X", "$A.X", "#A.X", "S.A.X", "\"Q\"A.X", "`Q`A.X"})
        EXPECT_EQ(RenameQualifierInText(QString::fromLatin1(text), QStringLiteral("B"),
                                        QStringLiteral("A")),
                  QString::fromLatin1(text))
            << text;
}

TEST(VdAliasText, StringLiteralsStay)
{
    EXPECT_EQ(RenameQualifierInText(QStringLiteral("A.X = 'A.X' || 'it''s A.Y'"),
                                    QStringLiteral("B"), QStringLiteral("A")),
              QStringLiteral("B.X = 'A.X' || 'it''s A.Y'"));
}

TEST(VdAliasText, ANewAliasEndingInTheOldOneIsNotRenamedAgain)
{
    EXPECT_EQ(RenameQualifierInText(QStringLiteral("A.X, A.Y"), QStringLiteral("CA"),
                                    QStringLiteral("A")),
              QStringLiteral("CA.X, CA.Y"));
}
