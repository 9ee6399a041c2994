#pragma once

#include "core/VdScanner.h"

#include <cstdint>

namespace vd {

// The quoting rules of an InterBase or Firebird database: dialect 1 has no quoted identifiers
// (a double-quoted text is a string), dialect 3 reads "..." as a case-sensitive identifier.
enum TVdSQLDialect : std::uint8_t { qibDialect1, qibDialect3 };

// The server a statement is written for: InterBase takes ROWS after the statement, Firebird
// FIRST and SKIP after SELECT.
enum TVdIBSQLServer : std::uint8_t { qssInterBase, qssFireBird };

// Tokens and names of InterBase and Firebird: upper-case letters only, "$" in names, the
// server's keywords and functions, and quoting by dialect.
class TVdIBScanner : public TVdSQLScanner
{
public:
    TVdIBScanner();

    bool IsAlpha(char c) const override;
    bool IsQuote(char c) const override;
    bool IsIdentQuote(char c) const override;
    bool IsLegalSymbol(char c) const override;
    char GetIdentQuote() const override;
    bool GetQuoteIdentifiers() const override;
    bool GetProcessAliases() const override;
    bool NeedQuotes(const std::string& name) const override;
    std::string ProcessIdent(const std::string& name) const override;
    std::string ProcessName(const std::string& name) const override;
    std::string GetCommaFunctions() const override;
    std::string GetCommaKeywords() const override;
    std::string GetCommaOperations() const override;

    TVdSQLDialect Dialect() const { return FDialect; }
    void SetDialect(TVdSQLDialect value);

private:
    TVdSQLDialect FDialect = qibDialect3;
};

} // namespace vd
