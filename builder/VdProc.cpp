#include "builder/VdProc.h"

#include "builder/VdCustomVandor.h"
#include "diagram/VdFloatPanel.h"

#include <QDate>
#include <QDateTime>
#include <QLocale>
#include <QTime>

namespace vd {

TVdStoredProc::TVdStoredProc(TVdWorkArea* workArea, TDataSet* dataSet, const QString& name,
                             const TParams* params)
    : TVdTable(workArea, dataSet, name)
{
    if (!params)
        return;
    FParams.Assign(*params);
    for (int i = 0; i < params->Count(); ++i) {
        const TParam& param = params->Items(i);
        auto item =
            std::make_unique<TVdListItem>(this, param.Name(), param.DataType(), param.ParamType());
        if (param.Value().isValid()) {
            item->SetLoading(true);
            item->SetCheck(true);
            item->SetLoading(false);
            item->SetIsNull(param.IsNull());
            if (!param.IsNull())
                item->SetValue(param.Value());
        }
        AppendItem(std::move(item));
    }
    // Deliberately 6, not 7, once the sum would reach 7.
    if (VisibleItems() < 7) {
        const int sum = VisibleItems() + params->Count();
        SetVisibleItems(sum < 7 ? sum : 6);
    }
    UpdateHeight();
}

TVdStoredProc::~TVdStoredProc() { FParams.Clear(); }

TColor TVdStoredProc::GetClientColor() const
{
    return WorkArea()->Vandor()->GetPalette()->ProcClient();
}

QString TVdStoredProc::PlaceholderName(const QString& name, int number)
{
    QString result;
    for (const QChar c : name.toUpper()) {
        const char16_t u = c.unicode();
        if (u == '$' || u == '_' || (u >= '0' && u <= '9') || (u >= 'A' && u <= 'Z'))
            result += c;
        else if (u == ' ')
            result += QLatin1Char('_');
    }
    return result.isEmpty() ? QStringLiteral("Par") + QString::number(number) : result;
}

namespace {

// Float text of the current locale with its decimal separator turned into SQL's ".".
QString FloatText(double value)
{
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale.toString(value, 'g', 15).replace(locale.decimalPoint(), QStringLiteral("."));
}

QString Quoted(QString text)
{
    // An apostrophe inside the value is doubled so that the call stays one string literal.
    return QLatin1Char('\'') + text.replace(QLatin1Char('\''), QStringLiteral("''")) +
           QLatin1Char('\'');
}

// Dates print as the locale writes them, chosen by the parameter's data type.
QString DateText(const QVariant& value, TFieldType dataType)
{
    const QLocale locale;
    const QDateTime stamp = value.typeId() == QMetaType::QTime
                                ? QDateTime(QDate(1899, 12, 30), value.toTime())
                                : value.toDateTime();
    if (dataType == ftDate)
        return Quoted(locale.toString(stamp.date(), QLocale::ShortFormat));
    if (dataType == ftTime)
        return Quoted(locale.toString(stamp.time(), QLocale::ShortFormat));
    return Quoted(locale.toString(stamp, QLocale::ShortFormat));
}

// The argument for an entered value; an empty value keeps the placeholder.
QString ValueText(const QVariant& value, TFieldType dataType, const QString& placeholder)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return placeholder;
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
        return QString::number(value.toLongLong());
    case QMetaType::ULongLong:
        return QString::number(value.toULongLong());
    case QMetaType::Float:
    case QMetaType::Double:
        return FloatText(value.toDouble());
    case QMetaType::QDate:
    case QMetaType::QTime:
    case QMetaType::QDateTime:
        return DateText(value, dataType);
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("T") : QStringLiteral("F");
    default:
        return Quoted(value.toString());
    }
}

} // namespace

QString TVdStoredProc::GetParameters() const
{
    QString result;
    for (int i = 0; i < Count(); ++i) {
        const TVdListItem* item = Items(i);
        // Only input parameters: input-output ones stay out of the call, deliberately.
        if (item->ParamType() != ptInput)
            continue;
        const QString placeholder = QLatin1Char(':') + PlaceholderName(item->Name(), i);
        QString argument;
        if (!item->Checked())
            argument = placeholder;
        else if (item->IsNull())
            argument = QStringLiteral("NULL");
        else
            argument = ValueText(item->Value(), item->DataType(), placeholder);
        result += argument + QStringLiteral(", ");
    }
    result.chop(2);
    return result;
}

} // namespace vd
