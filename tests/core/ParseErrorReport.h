#pragma once

// What a parse raised, for tests that compare every field of a syntax error.
#include "core/VdSelectParser.h"

#include <string>

namespace vdtest {

struct TErrorReport {
    bool Raised = false;
    int Code = 0;
    std::string Token;
    int LineNo = 0;
    int LinePos = 0;
    std::string Message;
};

inline TErrorReport ParseError(vd::TVdSelectParser& parser, const std::string& text)
{
    TErrorReport report;
    try {
        parser.SetExpression(text);
    } catch (const vd::EVdParserError& e) {
        report.Raised = true;
        report.Code = e.Code;
        report.Token = e.Token;
        report.LineNo = e.LineNo;
        report.LinePos = e.LinePos;
        report.Message = e.what();
    }
    return report;
}

inline TErrorReport ParseError(const std::string& text)
{
    vd::TVdSelectParser parser;
    return ParseError(parser, text);
}

} // namespace vdtest
