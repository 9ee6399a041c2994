#pragma once

// Whether a published property is written with the form. Qt 6 takes only constants in a
// property's STORED attribute, so a property whose storing depends on its value declares an
// invokable IsXxxStored() (Xxx its name) that holds the rule.

#include <QObject>

namespace vd {

// The object's IsXxxStored() when it has one, else the property's STORED attribute; false
// for an unknown property.
bool IsPropertyStored(const QObject* object, const char* property);

} // namespace vd
