#pragma once

// The builder for InterBase and Firebird: the builder component with the InterBase parser,
// whose SQL dialect and target server are published.

#include "builder/VdCustomVandor.h"
#include "dialects/VdIBParser.h"

namespace vd {

class TInterBaseVandor : public TCustomVandor
{
    Q_OBJECT
    Q_PROPERTY(
        vd::TVdSQLDialect SQLDialect READ GetSQLDialect WRITE SetSQLDialect RESET ResetSQLDialect)
    Q_PROPERTY(
        vd::TVdIBSQLServer SQLServer READ GetSQLServer WRITE SetSQLServer RESET ResetSQLServer)

public:
    static constexpr TVdSQLDialect DefSQLDialect = qibDialect3;
    static constexpr TVdIBSQLServer DefSQLServer = qssInterBase;

    explicit TInterBaseVandor(QObject* owner = nullptr, bool designMode = false);

    std::unique_ptr<TVdSelectParser> CreateParser() override;

    // The parser's scanner's dialect; qibDialect1 when the scanner is not an InterBase one,
    // which then also ignores writes.
    TVdSQLDialect GetSQLDialect() const;
    void SetSQLDialect(TVdSQLDialect value);
    void ResetSQLDialect() { SetSQLDialect(DefSQLDialect); }
    Q_INVOKABLE bool IsSQLDialectStored() const { return GetSQLDialect() != DefSQLDialect; }

    // Which clause the next parse accepts and the next print writes; option values already
    // read are kept, not converted.
    TVdIBSQLServer GetSQLServer() const;
    void SetSQLServer(TVdIBSQLServer value);
    void ResetSQLServer() { SetSQLServer(DefSQLServer); }
    Q_INVOKABLE bool IsSQLServerStored() const { return GetSQLServer() != DefSQLServer; }

    // The parser as its InterBase class; null only if a derived class made another parser.
    TVdIBSelectParser* IBParser() const;

protected:
    // For a class derived from this one, which calls Construct itself.
    TInterBaseVandor(QObject* owner, bool designMode, TVdDeferConstruct);

private:
    TVdIBScanner* IBScanner() const;
};

} // namespace vd
