// One QApplication for every widget test, offscreen, with a fixed font so that pictures and
// measured texts are the same on every machine.

#include <QApplication>
#include <QFont>

#include <gtest/gtest.h>

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM",
            qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
