#pragma once

// Shared by the fuzz targets: the parser of each dialect and server setting (the tests' own,
// tests/core/ParserSettings.h), and the checks every target applies to what it parsed.
//
// A broken check writes what went wrong to stderr and aborts, so libFuzzer keeps the input.
// An exception the parser does not document escapes uncaught: the abort then shows the stack
// of the throw.

#include "core/VdSelectParser.h"
#include "dialects/VdIBParser.h"
#include "dialects/VdMyParser.h"
#include "tests/core/ModelCheck.h"
#include "tests/core/ParserSettings.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

namespace vdfuzz {

using vdtest::CreateParser;
using vdtest::SettingCount;
using vdtest::SettingName;
using vdtest::TSetting;

// The parsers of a setting, made once for the whole run: building the word lists anew for every
// input would cost more than the parse. A parse starts from an empty model, so what one input
// leaves behind cannot reach the next; a failure is replayed alone by running the target on it.
inline vd::TVdSelectParser& SharedParser(TSetting setting, int slot)
{
    static std::unique_ptr<vd::TVdSelectParser> parsers[SettingCount][2];
    std::unique_ptr<vd::TVdSelectParser>& parser = parsers[int(setting)][slot];
    if (!parser)
        parser = CreateParser(setting);
    return *parser;
}

inline void WriteText(const char* title, const std::string& text)
{
    std::fprintf(stderr, "--- %s (%zu bytes)\n", title, text.size());
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::fputs("\n---\n", stderr);
}

[[noreturn]] inline void Fail(TSetting setting, const char* what, const std::string& first,
                              const std::string& second = std::string())
{
    std::fprintf(stderr, "\nvd_fuzz [%s]: %s\n", SettingName(setting), what);
    WriteText("first", first);
    if (!second.empty())
        WriteText("second", second);
    std::fflush(stderr);
    std::abort();
}

// Parses text; false when the parser refused it in one of its documented ways: a syntax error,
// or the list index error that AND/OR regrouping raises once an item has moved.
inline bool Parse(vd::TVdSelectParser& parser, const std::string& text)
{
    try {
        parser.SetExpression(text);
        return true;
    } catch (const vd::EVdParserError&) {
        return false;
    } catch (const vd::EVdListError&) {
        return false;
    }
}

// The dialect clauses of the model, as they print.
inline std::string DescribeOptions(const vd::TVdSelectParser& parser)
{
    if (const auto* ib = dynamic_cast<const vd::TVdIBSelectParser*>(&parser))
        return ib->IBOptions().GetScript() + "|" + ib->FBOptions().GetScript();
    if (const auto* my = dynamic_cast<const vd::TVdMySelectParser*>(&parser)) {
        const vd::TVdMySQLOptions& options = my->MySQLOptions();
        return options.OptionsScript() + "|" + options.FilterScript() + "|" + options.LimitScript();
    }
    return std::string();
}

inline void CheckModel(TSetting setting, const vd::TVdSelectParser& parser, const char* when,
                       const std::string& text)
{
    const ::testing::AssertionResult result = vdcheck::CheckModel(parser);
    if (!result)
        Fail(setting, (std::string("broken model ") + when + ": " + result.message()).c_str(),
             text);
}

// Makes target a copy of the whole model of source, through the setters and Assign of its
// parts; both parsers are of one setting.
inline void CopyModel(const vd::TVdSelectParser& source, vd::TVdSelectParser& target)
{
    target.SetScriptFormat(source.ScriptFormat());
    target.TableDefs().Assign(source.TableDefs());
    target.WhereItems().Assign(source.WhereItems());
    target.HavingItems().Assign(source.HavingItems());
    target.OrderByItems().Assign(source.OrderByItems());
    // What the statement groups by beyond the derived list (a grouping without aggregates,
    // a column that is no output) is model state too; HAVING prints only with a GROUP BY.
    target.GroupByItems().ClearKept();
    for (const std::string& item : source.GroupByItems().KeptItems())
        target.GroupByItems().AddKept(item);
    target.SetDistinct(source.Distinct());
    if (const auto* ib = dynamic_cast<const vd::TVdIBSelectParser*>(&source)) {
        auto& to = static_cast<vd::TVdIBSelectParser&>(target);
        to.SetIBOptions(ib->IBOptions());
        to.SetFBOptions(ib->FBOptions());
    }
    if (const auto* my = dynamic_cast<const vd::TVdMySelectParser*>(&source))
        static_cast<vd::TVdMySelectParser&>(target).SetMySQLOptions(my->MySQLOptions());
}

// The text of each part of the model that a copy made through Assign must print the same. Left
// out: the select list's order and its generated aliases (a copied field is numbered as a new
// one, and the copy renews aliases that clash with a name), and GROUP BY, rebuilt in that order.
inline std::string DescribeParts(const vd::TVdSelectParser& parser)
{
    std::string parts;
    const vd::TVdTableDefs& tables = parser.TableDefs();
    for (int t = 0; t < tables.Count(); ++t) {
        const vd::TVdTableDef& table = *tables.Items(t);
        parts += table.GetScript() + "\n";
        const vd::TVdFieldDefs& fields = table.FieldDefs();
        for (int f = 0; f < fields.Count(); ++f) {
            const vd::TVdFieldDef& field = *fields.Items(f);
            parts += "  " + field.Name() + " " + std::to_string(int(field.Kind())) + " " +
                     std::to_string(int(field.ParamType()));
            if (field.ArgumentCount() > 0)
                parts += " (" + field.ArgumentList()->GetScript() + ")";
            parts += "\n";
        }
    }
    return parts + parser.WhereItems().GetScript() + parser.HavingItems().GetScript() +
           parser.OrderByItems().GetScript() + (parser.Distinct() ? "DISTINCT" : "") + "\n" +
           DescribeOptions(parser);
}

// Parses the input, prints what was read and works the model a little: a copy prints the same
// parts, removing a table leaves a model that prints, and Clear gives back an empty statement.
// A refused text still leaves a model that prints.
inline void ParseAndWork(TSetting setting, const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    vd::TVdSelectParser& parser = SharedParser(setting, 0);
    if (!Parse(parser, text)) {
        CheckModel(setting, parser, "after a refused parse", text);
        (void)parser.GetExpression();
        parser.Clear();
        if (!parser.GetExpression().empty())
            Fail(setting, "Clear after a refused parse leaves a statement", text,
                 parser.GetExpression());
        return;
    }
    CheckModel(setting, parser, "after parsing", text);
    (void)parser.GetExpression();
    CheckModel(setting, parser, "after printing", text);

    vd::TVdSelectParser& copy = SharedParser(setting, 1);
    CopyModel(parser, copy);
    CheckModel(setting, copy, "of a copy", text);
    // Printing rebuilds GROUP BY, on which HAVING depends.
    (void)copy.GetExpression();
    const std::string parts = DescribeParts(parser);
    const std::string copied = DescribeParts(copy);
    if (copied != parts)
        Fail(setting, "the copy of the model prints other parts", parts, copied);

    if (copy.TableDefs().Count() > 0) {
        copy.TableDefs().Delete(0);
        copy.TableDefs().UpdateJoins();
        CheckModel(setting, copy, "after deleting a table", text);
        (void)copy.GetExpression();
    }

    parser.Clear();
    CheckModel(setting, parser, "after Clear", text);
    if (!parser.GetExpression().empty())
        Fail(setting, "Clear leaves a statement", text, parser.GetExpression());
}

} // namespace vdfuzz
