#include "builder/VdAliasText.h"

namespace vd {

namespace {

// A character that continues a name (or its quoting) before a qualifier: then the qualifier is
// the end of another name ("CA." is no "A.").
bool EndsName(QChar c)
{
    return c.isLetterOrNumber() || c == QLatin1Char('_') || c == QLatin1Char('$') ||
           c == QLatin1Char('#') || c == QLatin1Char('.') || c == QLatin1Char('"') ||
           c == QLatin1Char('`');
}

} // namespace

QString RenameQualifierInText(const QString& text, const QString& newAlias, const QString& oldAlias)
{
    const QString prefix = oldAlias + QLatin1Char('.');
    QString result;
    result.reserve(text.size());
    bool inLiteral = false;
    qsizetype at = 0;
    while (at < text.size()) {
        const QChar c = text[at];
        // A string literal is a value, not a name: '' inside it is an escaped quote, which
        // toggling twice handles.
        if (c == QLatin1Char('\'')) {
            inLiteral = !inLiteral;
        } else if (!inLiteral && text.mid(at, prefix.size()) == prefix &&
                   (at == 0 || !EndsName(text[at - 1]))) {
            result += newAlias + QLatin1Char('.');
            at += prefix.size();
            continue;
        }
        result += c;
        ++at;
    }
    return result;
}

} // namespace vd
