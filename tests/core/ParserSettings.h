#pragma once

// The parser of each dialect and server setting, set up as vdsql sets it up: one place for the
// unit tests, the engine suite and the fuzz targets.

#include "core/VdSelectParser.h"
#include "dialects/VdIBParser.h"
#include "dialects/VdMyParser.h"

#include <cstdint>
#include <memory>

namespace vdtest {

// The round-trip fuzz target picks the setting from its first input byte (modulo SettingCount):
// the committed corpus means these settings in this order. A new setting, even appended,
// changes what its inputs test.
enum class TSetting : std::uint8_t { Generic, InterBase1, InterBase3, Firebird1, Firebird3, MySQL };
inline constexpr int SettingCount = 6;
static_assert(int(TSetting::MySQL) + 1 == SettingCount);

inline const char* SettingName(TSetting setting)
{
    static const char* const names[SettingCount] = {"generic",   "interbase1", "interbase3",
                                                    "firebird1", "firebird3",  "mysql"};
    return names[int(setting)];
}

inline std::unique_ptr<vd::TVdSelectParser> CreateParser(TSetting setting)
{
    const auto ib = [](vd::TVdIBSQLServer server, vd::TVdSQLDialect dialect) {
        auto parser = std::make_unique<vd::TVdIBSelectParser>();
        parser->SetSQLServer(server);
        static_cast<vd::TVdIBScanner&>(parser->Scanner()).SetDialect(dialect);
        return parser;
    };
    switch (setting) {
    case TSetting::InterBase1:
        return ib(vd::qssInterBase, vd::qibDialect1);
    case TSetting::InterBase3:
        return ib(vd::qssInterBase, vd::qibDialect3);
    case TSetting::Firebird1:
        return ib(vd::qssFireBird, vd::qibDialect1);
    case TSetting::Firebird3:
        return ib(vd::qssFireBird, vd::qibDialect3);
    case TSetting::MySQL:
        return std::make_unique<vd::TVdMySelectParser>();
    case TSetting::Generic:
        break;
    }
    return std::make_unique<vd::TVdSelectParser>();
}

} // namespace vdtest
