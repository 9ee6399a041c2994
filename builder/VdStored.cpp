#include "builder/VdStored.h"

#include <QByteArray>
#include <QMetaMethod>
#include <QMetaObject>
#include <QMetaProperty>

namespace vd {

bool IsPropertyStored(const QObject* object, const char* property)
{
    if (!object)
        return false;
    const QMetaObject* meta = object->metaObject();
    const int propertyIndex = meta->indexOfProperty(property);
    if (propertyIndex < 0)
        return false;
    const QByteArray rule = QByteArray("Is") + property + "Stored()";
    const int methodIndex = meta->indexOfMethod(rule.constData());
    if (methodIndex < 0)
        return meta->property(propertyIndex).isStored();
    bool stored = true;
    meta->method(methodIndex)
        .invoke(const_cast<QObject*>(object), Qt::DirectConnection, Q_RETURN_ARG(bool, stored));
    return stored;
}

} // namespace vd
