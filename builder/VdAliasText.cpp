#include "builder/VdAliasText.h"

namespace vd {

QString RenameQualifierInText(const QString& text, const QString& newAlias, const QString& oldAlias)
{
    const QString prefix = oldAlias + QLatin1Char('.');
    QString result;
    qsizetype at = 0;
    while (at < text.size()) {
        const qsizetype found = text.indexOf(prefix, at);
        if (found < 0)
            break;
        const bool wordStart = found == 0 || !(text[found - 1].isLetterOrNumber() ||
                                               text[found - 1] == QLatin1Char('_') ||
                                               text[found - 1] == QLatin1Char('.'));
        result += text.mid(at, found - at);
        result += wordStart ? newAlias + QLatin1Char('.') : prefix;
        at = found + prefix.size();
    }
    return result + text.mid(at);
}

} // namespace vd
