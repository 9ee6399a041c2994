#pragma once

// Field types of database columns: from the type a catalogue declares for a column
// ("VARCHAR(40)", "numeric", "tinyint(1)", "BLOB SUB_TYPE TEXT") and, where the catalogue
// says nothing (an expression column of a view), from the value type QtSql reports.

#include "builder/VdDataSet.h"

#include <QMetaType>
#include <QString>

namespace vd {

// ftUnknown when the text names no type this mapping knows.
TFieldType FieldTypeFromDeclared(const QString& declared);
TFieldType FieldTypeFromMetaType(QMetaType type);

} // namespace vd
