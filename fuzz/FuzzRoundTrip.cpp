// Round trip: whatever a parser accepts prints a text that the same setting parses back without
// error, and that prints again unchanged. The first byte picks the dialect and server
// setting and the letter case of keywords and functions.
#include "fuzz/FuzzSupport.h"

namespace {

using vdfuzz::TSetting;

vd::TVdSelectParser& Parser(TSetting setting, int slot, vd::TVdFormatMode format)
{
    vd::TVdSelectParser& parser = vdfuzz::SharedParser(setting, slot);
    parser.ScriptFormat().KeywordsFormat = format;
    parser.ScriptFormat().FunctionsFormat = format;
    return parser;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const auto setting = TSetting(data[0] % vdfuzz::SettingCount);
    const auto format = vd::TVdFormatMode(data[0] / vdfuzz::SettingCount % 4);
    const std::string text(reinterpret_cast<const char*>(data + 1), size - 1);

    vd::TVdSelectParser& first = Parser(setting, 0, format);
    if (!vdfuzz::Parse(first, text))
        return 0;
    const std::string printed = first.GetExpression();

    vd::TVdSelectParser& second = Parser(setting, 1, format);
    try {
        second.SetExpression(printed);
    } catch (const std::exception& e) {
        vdfuzz::Fail(setting, (std::string("the printed text does not parse: ") + e.what()).c_str(),
                     text, printed);
    }
    const std::string reprinted = second.GetExpression();
    if (reprinted != printed)
        vdfuzz::Fail(setting, "the printed text prints another text", printed, reprinted);
    return 0;
}
