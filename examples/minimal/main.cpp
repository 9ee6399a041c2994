// A window with a query builder on an SQLite database: vandor-minimal [FILE.sqlite]
#include "builder/VdSQLVandor.h"
#include "builder/VdSqlCatalog.h"

#include <QApplication>
#include <QSqlDatabase>
#include <QSqlQuery>

#include <iostream>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
    db.setDatabaseName(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(":memory:"));
    db.open();
    QSqlQuery(db).exec(QStringLiteral("CREATE TABLE IF NOT EXISTS PETS (ID INTEGER PRIMARY KEY,"
                                      " NAME VARCHAR(30), BORN DATE)"));
    vd::TVdSqlCatalog catalog(db); // answers the builder's questions about tables
    vd::TSQLVandor vandor;
    vandor.OnGetTableFields = catalog.Handler();
    vandor.SetSQL(QStringLiteral("SELECT P.NAME, P.BORN FROM PETS P"));
    std::cout << vandor.GetSQL().toStdString() << std::endl;
    vandor.resize(800, 500);
    vandor.show();
    return app.exec();
}
