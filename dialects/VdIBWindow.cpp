#include "dialects/VdIBWindow.h"

namespace vd {

TInterBaseVandor::TInterBaseVandor(QObject* owner, bool designMode)
    : TCustomVandor(owner, designMode)
{
    Construct();
}

TInterBaseVandor::TInterBaseVandor(QObject* owner, bool designMode, TVdDeferConstruct)
    : TCustomVandor(owner, designMode)
{
}

std::unique_ptr<TVdSelectParser> TInterBaseVandor::CreateParser()
{
    return std::make_unique<TVdIBSelectParser>();
}

TVdIBSelectParser* TInterBaseVandor::IBParser() const
{
    return dynamic_cast<TVdIBSelectParser*>(Parser());
}

TVdIBScanner* TInterBaseVandor::IBScanner() const
{
    return Parser() ? dynamic_cast<TVdIBScanner*>(&Parser()->Scanner()) : nullptr;
}

TVdSQLDialect TInterBaseVandor::GetSQLDialect() const
{
    const TVdIBScanner* scanner = IBScanner();
    return scanner ? scanner->Dialect() : qibDialect1;
}

void TInterBaseVandor::SetSQLDialect(TVdSQLDialect value)
{
    TVdIBScanner* scanner = IBScanner();
    if (!scanner || scanner->Dialect() == value)
        return;
    scanner->SetDialect(value);
    emit sqlChanged();
}

TVdIBSQLServer TInterBaseVandor::GetSQLServer() const
{
    const TVdIBSelectParser* parser = IBParser();
    return parser ? parser->SQLServer() : DefSQLServer;
}

void TInterBaseVandor::SetSQLServer(TVdIBSQLServer value)
{
    TVdIBSelectParser* parser = IBParser();
    if (!parser || parser->SQLServer() == value)
        return;
    parser->SetSQLServer(value);
    emit sqlChanged();
}

} // namespace vd
