#include "dialects/VdIBParser.h"

namespace vd {

TVdIBSelectParser::TVdIBSelectParser()
    : FIBOptions(std::make_unique<TVdIBOptions>()), FFBOptions(std::make_unique<TVdFBOptions>())
{
}

TVdIBSelectParser::~TVdIBSelectParser() = default;

std::unique_ptr<TVdSQLScanner> TVdIBSelectParser::CreateScanner()
{
    return std::make_unique<TVdIBScanner>();
}

void TVdIBSelectParser::Clear()
{
    TVdSelectParser::Clear();
    FIBOptions->Clear();
    FFBOptions->Clear();
}

void TVdIBSelectParser::SetIBOptions(const TVdIBOptions& options)
{
    if (&options != FIBOptions.get())
        FIBOptions->Assign(options);
}

void TVdIBSelectParser::SetFBOptions(const TVdFBOptions& options)
{
    if (&options != FFBOptions.get())
        FFBOptions->Assign(options);
}

// SELECT FIRST 5 SKIP 10 ...: both optional, FIRST before SKIP, Firebird only.
void TVdIBSelectParser::DoParseSelectClause()
{
    if (FSQLServer == qssFireBird) {
        if (IsWord("FIRST") && !ReadInteger(FFBOptions->First))
            return;
        if (IsWord("SKIP") && !ReadInteger(FFBOptions->Skip))
            return;
    }
    TVdSelectParser::DoParseSelectClause();
}

// ROWS n [TO n] [BY n] [PERCENT] [WITH TIES], InterBase only, in this order; nothing follows.
void TVdIBSelectParser::DoParseAppendix()
{
    if (FSQLServer != qssInterBase || !IsWord("ROWS"))
        return TVdSelectParser::DoParseAppendix();
    TVdIBOptions& rows = *FIBOptions;
    if (!ReadInteger(rows.RowsFrom))
        return;
    if (IsWord("TO") && !ReadInteger(rows.RowsTo))
        return;
    if (IsWord("BY") && !ReadInteger(rows.RowsBy))
        return;
    if (IsWord("PERCENT")) {
        rows.Percent = true;
        Next();
    }
    if (IsWord("WITH")) {
        Next();
        if (!IsWord("TIES"))
            return Fail();
        rows.Ties = true;
        Next();
    }
    SetState(Kind() == tkEnd ? ssEnd : ssError);
}

std::string TVdIBSelectParser::GetExpression()
{
    std::string head = ProcessKeyword("SELECT") + " ";
    if (FSQLServer == qssFireBird)
        head += FFBOptions->GetScript();
    if (GetDistinct())
        head += ProcessKeyword("DISTINCT") + " ";
    return StatementScript(head,
                           FSQLServer == qssInterBase ? FIBOptions->GetScript() : std::string());
}

} // namespace vd
