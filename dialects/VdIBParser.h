#pragma once

#include "core/VdSelectParser.h"
#include "dialects/VdIBOptions.h"
#include "dialects/VdIBScanner.h"

namespace vd {

// Statements of an InterBase or Firebird server: the InterBase ROWS clause at the end, or
// Firebird's FIRST and SKIP after SELECT, as SQLServer says.
class TVdIBSelectParser : public TVdSelectParser
{
public:
    TVdIBSelectParser();
    ~TVdIBSelectParser() override;

    std::unique_ptr<TVdSQLScanner> CreateScanner() override;
    std::string GetExpression() override;
    void DoParseSelectClause() override;
    void DoParseAppendix() override;
    void Clear() override;

    TVdIBOptions& IBOptions() { return *FIBOptions; }
    const TVdIBOptions& IBOptions() const { return *FIBOptions; }
    TVdFBOptions& FBOptions() { return *FFBOptions; }
    const TVdFBOptions& FBOptions() const { return *FFBOptions; }
    // Copy the contents; the parser keeps its own objects.
    void SetIBOptions(const TVdIBOptions& options);
    void SetFBOptions(const TVdFBOptions& options);

    // Which clause the next parse accepts and the next print writes; the option values are
    // kept as they are.
    TVdIBSQLServer SQLServer() const { return FSQLServer; }
    void SetSQLServer(TVdIBSQLServer value) { FSQLServer = value; }

private:
    // Declared in this order, so FBOptions is freed before IBOptions.
    std::unique_ptr<TVdIBOptions> FIBOptions;
    std::unique_ptr<TVdFBOptions> FFBOptions;
    TVdIBSQLServer FSQLServer = qssInterBase;
};

} // namespace vd
