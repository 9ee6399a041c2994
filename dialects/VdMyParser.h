#pragma once

#include "core/VdSelectParser.h"
#include "dialects/VdMyOptions.h"
#include "dialects/VdMyScanner.h"

namespace vd {

// MySQL statements: select options and the DISTINCT / DISTINCTROW / ALL filter after SELECT,
// LIMIT at the end.
class TVdMySelectParser : public TVdSelectParser
{
public:
    TVdMySelectParser();
    ~TVdMySelectParser() override;

    std::unique_ptr<TVdSQLScanner> CreateScanner() override;
    std::string GetExpression() override;
    void DoParseSelectClause() override;
    void DoParseAppendix() override;
    bool GetDistinct() const override;
    // Also sets the filter: DISTINCT, or none (switching DISTINCT off drops DISTINCTROW and ALL).
    void SetDistinct(bool value) override;
    void Clear() override;
    // STRAIGHT_JOIN, SQL_SMALL_RESULT, SQL_BIG_RESULT, SQL_BUFFER_RESULT, HIGH_PRIORITY, each
    // once, then the filter if one follows.
    virtual void DoParseOptions();
    // DISTINCT, DISTINCTROW or ALL.
    virtual void DoParseFilter();

    TVdMySQLOptions& MySQLOptions() { return *FMySQLOptions; }
    const TVdMySQLOptions& MySQLOptions() const { return *FMySQLOptions; }
    // Copies the values; the parser keeps its own object.
    void SetMySQLOptions(const TVdMySQLOptions& options);

private:
    bool IsOptionWord(TVdMySQLSelectOption& option) const;
    bool IsFilterWord() const;
    void CheckSelectListStart();

    std::unique_ptr<TVdMySQLOptions> FMySQLOptions;
};

} // namespace vd
