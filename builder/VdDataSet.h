#pragma once

// The host's side of the table-fields question: a data set with its field list, and the
// parameter list of a stored procedure. The builder only reads names and types from them; the
// host owns what it hands over.

#include "core/VdFieldDef.h" // TParamType

#include <QList>
#include <QString>
#include <QVariant>

#include <cstdint>

namespace vd {

enum TFieldType : std::uint8_t {
    ftUnknown, ftString, ftSmallint, ftInteger, ftWord, ftBoolean, ftFloat, ftCurrency, ftBCD,
    ftDate, ftTime, ftDateTime, ftBytes, ftVarBytes, ftAutoInc, ftBlob, ftMemo, ftGraphic,
    ftFmtMemo, ftParadoxOle, ftDBaseOle, ftTypedBinary, ftCursor, ftFixedChar, ftWideString,
    ftLargeint, ftADT, ftArray, ftReference, ftDataSet, ftOraBlob, ftOraClob, ftVariant,
    ftInterface, ftIDispatch, ftGuid, ftTimeStamp, ftFMTBcd
};

// The type's name as a table object shows it ("Integer", "String", ...).
QString FieldTypeName(TFieldType type);

struct TField {
    QString FieldName;
    TFieldType DataType = ftUnknown;
    int Size = 0;
    bool Required = false;
};

// A table's or a procedure's result columns, in their order.
class TDataSet
{
public:
    TDataSet() = default;
    explicit TDataSet(QString name) : FName(std::move(name)) {}

    const QString& Name() const { return FName; }
    void SetName(const QString& name) { FName = name; }

    int FieldCount() const { return int(FFields.size()); }
    const TField& Field(int index) const { return FFields.at(index); }
    const QList<TField>& Fields() const { return FFields; }
    // Exact, case-sensitive; null when absent.
    const TField* FindField(const QString& name) const;
    TField& AddField(const QString& name, TFieldType type, int size = 0, bool required = false);
    void ClearFields() { FFields.clear(); }

private:
    QString FName;
    QList<TField> FFields;
};

// One parameter of a stored procedure.
class TParam
{
public:
    TParam() = default;
    TParam(QString name, TParamType paramType, TFieldType dataType)
        : FName(std::move(name)), FParamType(paramType), FDataType(dataType)
    {
    }

    const QString& Name() const { return FName; }
    void SetName(const QString& name) { FName = name; }
    TParamType ParamType() const { return FParamType; }
    void SetParamType(TParamType type) { FParamType = type; }
    TFieldType DataType() const { return FDataType; }
    void SetDataType(TFieldType type) { FDataType = type; }
    const QVariant& Value() const { return FValue; }
    void SetValue(const QVariant& value) { FValue = value; }
    // A parameter without a value (or with a null one) is null.
    bool IsNull() const { return FValue.isNull(); }
    void Clear() { FValue = QVariant(); }
    bool IsInput() const { return FParamType == ptInput || FParamType == ptInputOutput; }

private:
    QString FName;
    TParamType FParamType = ptUnknown;
    TFieldType FDataType = ftUnknown;
    QVariant FValue;
};

class TParams
{
public:
    int Count() const { return int(FItems.size()); }
    TParam& Items(int index) { return FItems[index]; }
    const TParam& Items(int index) const { return FItems.at(index); }
    TParam& Add(const TParam& param)
    {
        FItems.append(param);
        return FItems.last();
    }
    // Exact, case-sensitive; null when absent.
    TParam* FindParam(const QString& name);
    void Clear() { FItems.clear(); }
    void Assign(const TParams& source) { FItems = source.FItems; }

private:
    QList<TParam> FItems;
};

} // namespace vd
