#pragma once

#include <QString>

namespace vd {

// The text with every "oldAlias." that starts a name turned into "newAlias.": "C.NAME || C.CITY"
// renames both, "ABC.NAME" and the literal 'C.D' are left alone when C is renamed.
QString RenameQualifierInText(const QString& text, const QString& newAlias,
                              const QString& oldAlias);

} // namespace vd
