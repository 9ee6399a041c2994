#include "builder/VdDataSet.h"

#include <array>

namespace vd {

QString FieldTypeName(TFieldType type)
{
    static constexpr std::array<const char*, ftFMTBcd + 1> names = {
        "Unknown",    "String",     "Smallint", "Integer",     "Word",      "Boolean",
        "Float",      "Currency",   "BCD",      "Date",        "Time",      "DateTime",
        "Bytes",      "VarBytes",   "AutoInc",  "Blob",        "Memo",      "Graphic",
        "FmtMemo",    "ParadoxOle", "DBaseOle", "TypedBinary", "Cursor",    "FixedChar",
        "WideString", "Largeint",   "ADT",      "Array",       "Reference", "DataSet",
        "OraBlob",    "OraClob",    "Variant",  "Interface",   "IDispatch", "Guid",
        "TimeStamp",  "FMTBcd"};
    return type <= ftFMTBcd ? QString::fromLatin1(names[type]) : QString();
}

const TField* TDataSet::FindField(const QString& name) const
{
    for (const TField& field : FFields)
        if (field.FieldName == name)
            return &field;
    return nullptr;
}

TField& TDataSet::AddField(const QString& name, TFieldType type, int size, bool required)
{
    FFields.append(TField{name, type, size, required});
    return FFields.last();
}

TParam* TParams::FindParam(const QString& name)
{
    for (TParam& param : FItems)
        if (param.Name() == name)
            return &param;
    return nullptr;
}

} // namespace vd
