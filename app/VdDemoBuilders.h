#pragma once

// Which builder suits which connection: the generic builder for SQLite and PostgreSQL
// (names unquoted on PostgreSQL, which folds them to lower case), the MySQL builder for
// MariaDB and MySQL, the InterBase/Firebird builder (server Firebird, SQL dialect 3) for
// Firebird.

#include "builder/VdSqlEngine.h"

#include <QString>

class QWidget;

namespace vd {

class TCustomVandor;
class TVdOptionsPanel;

// generic, interbase, firebird or mysql: the requested one, else the engine's.
QString DemoDialectFor(TVdSqlEngine engine, const QString& requested);

// The builder's pages in the demo (the component's default is 170).
constexpr int DemoTabHeight = 230;

struct TVdDemoBuilder {
    TCustomVandor* Builder = nullptr;
    // The InterBase/Firebird clause options; null for the other dialects.
    TVdOptionsPanel* OptionsPanel = nullptr;
};

TVdDemoBuilder CreateDemoBuilder(const QString& dialect, TVdSqlEngine engine, QWidget* parent);

} // namespace vd
