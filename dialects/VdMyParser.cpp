#include "dialects/VdMyParser.h"

namespace vd {

TVdMySelectParser::TVdMySelectParser() : FMySQLOptions(std::make_unique<TVdMySQLOptions>(this)) {}

TVdMySelectParser::~TVdMySelectParser() = default;

std::unique_ptr<TVdSQLScanner> TVdMySelectParser::CreateScanner()
{
    return std::make_unique<TVdMySQLScanner>();
}

void TVdMySelectParser::Clear()
{
    TVdSelectParser::Clear();
    FMySQLOptions->Clear();
}

void TVdMySelectParser::SetMySQLOptions(const TVdMySQLOptions& options)
{
    if (&options != FMySQLOptions.get())
        FMySQLOptions->Assign(options);
}

bool TVdMySelectParser::GetDistinct() const { return FMySQLOptions->Filter == myfoDistinct; }

void TVdMySelectParser::SetDistinct(bool value)
{
    TVdSelectParser::SetDistinct(value);
    FMySQLOptions->Filter = value ? myfoDistinct : myfoNone;
}

bool TVdMySelectParser::IsOptionWord(TVdMySQLSelectOption& option) const
{
    for (TVdMySQLSelectOption candidate : AllSelectOptions) {
        if (IsWord(SelectOptionWord(candidate))) {
            option = candidate;
            return true;
        }
    }
    return false;
}

bool TVdMySelectParser::IsFilterWord() const
{
    return IsWord("DISTINCT") || IsWord("DISTINCTROW") || IsWord("ALL");
}

// SELECT [options] [filter] list. The words after SELECT are looked at before the base rule:
// SQL_BUFFER_RESULT is no keyword and would otherwise be read as a column, and a filter must
// come after the options (SELECT DISTINCT STRAIGHT_JOIN is refused).
void TVdMySelectParser::DoParseSelectClause()
{
    TVdMySQLSelectOption option;
    if (IsOptionWord(option))
        DoParseOptions();
    else if (IsFilterWord())
        DoParseFilter();
    else
        return TVdSelectParser::DoParseSelectClause();
    CheckSelectListStart();
}

// After the words of the head the select list must begin, as after SELECT itself; an option
// after the filter is refused even where it is no keyword (SQL_BUFFER_RESULT).
void TVdMySelectParser::CheckSelectListStart()
{
    TVdMySQLSelectOption option;
    if (State() == ssFieldDefs && (!StartsSelectList() || IsOptionWord(option)))
        Fail();
}

void TVdMySelectParser::DoParseOptions()
{
    TVdMySQLSelectOption option;
    while (IsOptionWord(option)) {
        // Each option may stand once.
        if (FMySQLOptions->SelectOptions.Contains(option))
            return Fail();
        FMySQLOptions->SelectOptions.Include(option);
        Next();
    }
    if (IsFilterWord())
        DoParseFilter();
    else
        SetState(ssFieldDefs);
}

void TVdMySelectParser::DoParseFilter()
{
    SetState(ssFieldDefs);
    if (IsWord("DISTINCT"))
        FMySQLOptions->Filter = myfoDistinct;
    else if (IsWord("DISTINCTROW"))
        FMySQLOptions->Filter = myfoDistinctRow;
    else if (IsWord("ALL"))
        FMySQLOptions->Filter = myfoAll;
    else
        return Fail();
    Next();
}

// LIMIT rows | LIMIT offset, rows; nothing may follow.
void TVdMySelectParser::DoParseAppendix()
{
    if (!IsWord("LIMIT"))
        return TVdSelectParser::DoParseAppendix();
    std::int32_t first = 0;
    if (!ReadInteger(first))
        return;
    if (IsDelimToken(',')) {
        std::int32_t rows = 0;
        if (!ReadInteger(rows))
            return;
        FMySQLOptions->LimitOffset = first;
        FMySQLOptions->LimitRows = rows;
    } else {
        FMySQLOptions->LimitOffset = 0;
        FMySQLOptions->LimitRows = first;
    }
    SetState(Kind() == tkEnd ? ssEnd : ssError);
}

std::string TVdMySelectParser::GetExpression()
{
    const std::string head = ProcessKeyword("SELECT") + " " + FMySQLOptions->OptionsScript() +
                             FMySQLOptions->FilterScript();
    return StatementScript(head, FMySQLOptions->LimitScript());
}

} // namespace vd
