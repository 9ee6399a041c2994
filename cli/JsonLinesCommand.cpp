#include "cli/Commands.h"
#include "cli/ErrorMessage.h"
#include "cli/Input.h"
#include "cli/ParserFactory.h"

#include "core/VdSelectParser.h"

#include <nlohmann/json.hpp>

#include <iostream>

namespace vdsql {

namespace {

using TJson = nlohmann::ordered_json;

// One line of output, spaced as {"key": value, "key": value}. Bytes that are no valid
// UTF-8 become U+FFFD so the line stays valid JSON whatever the SQL held.
std::string JsonText(const TJson& value)
{
    if (!value.is_object())
        return value.dump(-1, ' ', false, TJson::error_handler_t::replace);
    std::string text = "{";
    for (const auto& [key, item] : value.items()) {
        if (text.size() > 1)
            text += ", ";
        text += TJson(key).dump(-1, ' ', false, TJson::error_handler_t::replace);
        text += ": ";
        text += JsonText(item);
    }
    return text + "}";
}

TJson ErrorObject(int code, const std::string& message, const std::string& token = {}, int line = 0,
                  int pos = 0)
{
    TJson error;
    error["code"] = code;
    error["message"] = message;
    error["token"] = token;
    error["line"] = line;
    error["pos"] = pos;
    TJson result;
    result["error"] = std::move(error);
    return result;
}

TJson FormatStatement(vd::TVdSelectParser& parser, const std::string& sql)
{
    try {
        parser.SetExpression(ToCrLf(sql));
        TJson result;
        result["sql"] = parser.GetExpression();
        return result;
    } catch (const vd::EVdParserError& e) {
        return ErrorObject(e.Code, ErrorMessage(e), e.Token, e.LineNo, e.LinePos);
    } catch (const std::exception& e) {
        return ErrorObject(0, ErrorMessage(e));
    }
}

// nlohmann's messages start with "[json.exception.parse_error.101] "; the reader needs the rest.
std::string ParseErrorText(const std::string& what)
{
    const size_t end = what.starts_with("[json.exception.") ? what.find("] ") : std::string::npos;
    return end == std::string::npos ? what : what.substr(end + 2);
}

// The "sql" member of one input line, or an error object when the line cannot give one.
bool ReadStatement(const std::string& line, size_t lineNo, std::string& sql, TJson& error)
{
    const std::string where = "input line " + std::to_string(lineNo);
    TJson request;
    try {
        request = TJson::parse(line);
    } catch (const TJson::parse_error& e) {
        error = ErrorObject(0, "invalid JSON on " + where + ": " + ParseErrorText(e.what()));
        return false;
    }
    const auto member = request.is_object() ? request.find("sql") : request.end();
    if (member == request.end() || !member->is_string()) {
        error = ErrorObject(0, "expected an object with a string member \"sql\" on " + where);
        return false;
    }
    sql = member->get<std::string>();
    return true;
}

bool IsBlank(const std::string& line)
{
    return line.find_first_not_of(" \t\r") == std::string::npos;
}

} // namespace

int RunFormatJsonLines(const TOptions& options)
{
    const std::vector<std::string> lines = SplitLines(ReadInput(options.File));
    const std::unique_ptr<vd::TVdSelectParser> parser = CreateParser(options);
    for (size_t i = 0; i < lines.size(); ++i) {
        if (IsBlank(lines[i]))
            continue;
        std::string sql;
        TJson result;
        if (ReadStatement(lines[i], i + 1, sql, result))
            result = FormatStatement(*parser, sql);
        std::cout << JsonText(result) << '\n';
    }
    return exOk;
}

} // namespace vdsql
