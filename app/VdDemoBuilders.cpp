#include "VdDemoBuilders.h"

#include "builder/VdSQLVandor.h"
#include "dialects/VdFBOptionsPanel.h"
#include "dialects/VdIBOptionsPanel.h"
#include "dialects/VdIBWindow.h"
#include "dialects/VdMyWindow.h"

namespace vd {

QString DemoDialectFor(TVdSqlEngine engine, const QString& requested)
{
    if (!requested.isEmpty())
        return requested;
    switch (engine) {
    case TVdSqlEngine::MySQL:
        return QStringLiteral("mysql");
    case TVdSqlEngine::Firebird:
        return QStringLiteral("firebird");
    case TVdSqlEngine::SQLite:
    case TVdSqlEngine::PostgreSQL:
    case TVdSqlEngine::Other:
        break;
    }
    return QStringLiteral("generic");
}

TVdDemoBuilder CreateDemoBuilder(const QString& dialect, TVdSqlEngine engine, QWidget* parent)
{
    TVdDemoBuilder made;
    if (dialect == QLatin1String("interbase") || dialect == QLatin1String("firebird")) {
        auto* builder = new TInterBaseVandor(parent);
        builder->SetSQLDialect(qibDialect3);
        const bool firebird = dialect == QLatin1String("firebird");
        builder->SetSQLServer(firebird ? qssFireBird : qssInterBase);
        TVdOptionsPanel* panel =
            firebird ? static_cast<TVdOptionsPanel*>(new TVdFBOptionsPanel) : new TVdIBOptionsPanel;
        panel->SetParser(builder->IBParser());
        made = {builder, panel};
    } else if (dialect == QLatin1String("mysql")) {
        made.Builder = new TMySQLVandor(parent);
    } else {
        made.Builder = new TSQLVandor(parent);
        made.Builder->SetQuoteIdentifiers(engine != TVdSqlEngine::PostgreSQL);
    }
    // Pages tall enough for a grouped query's grid and a few nested conditions at a glance.
    made.Builder->SetTabHeight(DemoTabHeight);
    return made;
}

} // namespace vd
