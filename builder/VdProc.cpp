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

QString TVdStoredProc::GetParameters() const
{
    QString result;
    const QString separator = QLocale().decimalPoint();
    for (int i = 0; i < Count(); ++i) {
        const TVdListItem* item = Items(i);
        if (item->ParamType() != ptInput)
            continue; // input-output parameters too, deliberately
        const QString placeholder = QLatin1Char(':') + PlaceholderName(item->Name(), i);
        QString argument;
        const QVariant& value = item->Value();
        if (!item->Checked()) {
            argument = placeholder;
        } else if (item->IsNull()) {
            argument = QStringLiteral("NULL");
        } else {
            switch (value.typeId()) {
            case QMetaType::UnknownType:
                argument = placeholder;
                break;
            case QMetaType::Short:
            case QMetaType::Int:
            case QMetaType::LongLong:
                argument = QString::number(value.toLongLong());
                break;
            case QMetaType::Float:
            case QMetaType::Double:
                argument = QLocale()
                               .toString(value.toDouble(), 'g', 15)
                               .replace(separator, QStringLiteral("."));
                break;
            case QMetaType::QDate:
                argument = QLatin1Char('\'') +
                           QLocale().toString(value.toDate(), QLocale::ShortFormat) +
                           QLatin1Char('\'');
                break;
            case QMetaType::QTime:
                argument = QLatin1Char('\'') +
                           QLocale().toString(value.toTime(), QLocale::ShortFormat) +
                           QLatin1Char('\'');
                break;
            case QMetaType::QDateTime: {
                const QDateTime stamp = value.toDateTime();
                const QString text = item->DataType() == ftDate
                                         ? QLocale().toString(stamp.date(), QLocale::ShortFormat)
                                     : item->DataType() == ftTime
                                         ? QLocale().toString(stamp.time(), QLocale::ShortFormat)
                                         : QLocale().toString(stamp, QLocale::ShortFormat);
                argument = QLatin1Char('\'') + text + QLatin1Char('\'');
                break;
            }
            case QMetaType::Bool:
                argument = value.toBool() ? QStringLiteral("T") : QStringLiteral("F");
                break;
            default:
                argument = QLatin1Char('\'') + value.toString() + QLatin1Char('\'');
                break;
            }
        }
        result += argument + QStringLiteral(", ");
    }
    result.chop(2);
    return result;
}

} // namespace vd
