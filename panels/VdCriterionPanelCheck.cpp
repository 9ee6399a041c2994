// Whether a row's arguments suit its field's type. The field is looked up in the diagram by
// its "alias.field" text; a field the diagram does not know is not checked.

#include "builder/VdCustomVandor.h"
#include "builder/VdQtText.h"
#include "builder/VdTableList.h"
#include "core/VdOperators.h"
#include "diagram/VdFloatTable.h"
#include "panels/VdCriterionPanel.h"
#include "panels/VdCriterionRow.h"
#include "resources/VdResource.h"

#include <QDate>
#include <QDateTime>
#include <QTime>

namespace vd {

namespace {

QString Unquote(const QString& text, QChar quote)
{
    if (text.size() >= 2 && text.front() == quote && text.back() == quote) {
        QString inner = text.mid(1, text.size() - 2);
        inner.replace(QString(2, quote), QString(quote));
        return inner;
    }
    return text;
}

bool IsNumber(const QString& text)
{
    bool ok = false;
    text.trimmed().toDouble(&ok);
    return ok;
}

bool IsStringLiteral(const QString& text)
{
    return text.size() >= 2 && text.front() == QLatin1Char('\'') &&
           text.back() == QLatin1Char('\'');
}

bool IsDateText(const QString& text)
{
    const QString t = text.trimmed();
    return QDate::fromString(t, Qt::ISODate).isValid() ||
           QDateTime::fromString(t, Qt::ISODate).isValid() ||
           QTime::fromString(t, Qt::ISODate).isValid() ||
           QDate::fromString(t, QStringLiteral("d.M.yyyy")).isValid() ||
           QDate::fromString(t, QStringLiteral("M/d/yyyy")).isValid();
}

// One argument against a field type; lists ("(1, 2)") are checked item by item.
bool Suits(TFieldType type, const QString& argument, bool pattern)
{
    QString text = argument.trimmed();
    if (text.startsWith(QLatin1Char('(')) && text.endsWith(QLatin1Char(')'))) {
        // Only plain lists of literals are looked into.
        const QStringList items = text.mid(1, text.size() - 2).split(QLatin1Char(','));
        for (const QString& item : items)
            if (!item.contains(QLatin1Char('\'')) || IsStringLiteral(item.trimmed()))
                if (!Suits(type, item, pattern))
                    return false;
        return true;
    }
    if (text.isEmpty())
        return true;
    if (IsNumericType(type) || IsFloatType(type)) {
        // A pattern may be matched against a number's text.
        return pattern || !IsStringLiteral(text) || IsNumber(Unquote(text, QLatin1Char('\'')));
    }
    if (IsDateTimeType(type)) {
        if (IsStringLiteral(text))
            return pattern || IsDateText(Unquote(text, QLatin1Char('\'')));
        return !IsNumber(text);
    }
    return true;
}

} // namespace

void TVdCriterionPanel::ValidateRow(TVdCriterionRow* row) const
{
    row->Valid = true;
    row->InvalidReason.clear();
    const TCustomVandor* builder = Builder();
    const TVdTableList* tables = builder ? builder->TableList() : nullptr;
    if (!tables || row->IsGroup())
        return;
    const QString field = row->Field().trimmed();
    const qsizetype dot = field.lastIndexOf(QLatin1Char('.'));
    if (dot <= 0)
        return;
    const QChar quote = QLatin1Char('"');
    const QString alias = Unquote(field.left(dot), quote);
    const QString name = Unquote(field.mid(dot + 1), quote);
    const TVdListItem* item = nullptr;
    for (int i = 0; !item && i < tables->GetTablesCount(); ++i) {
        const TVdTable* table = tables->GetTable(i);
        if (table && table->GetAlias() == alias)
            item = table->FindItem(name);
    }
    if (!item)
        return;
    const bool pattern =
        row->Operator() &&
        ToQString(row->Operator()->Caption).contains(QStringLiteral("LIKE"), Qt::CaseInsensitive);
    // An aggregate over the argument changes its type: nothing to compare.
    if (!row->AggregateFunc1().trimmed().isEmpty() || !row->AggregateFunc2().trimmed().isEmpty())
        return;
    for (const QString& argument : row->Arguments()) {
        if (!Suits(item->DataType(), argument, pattern)) {
            row->Valid = false;
            row->InvalidReason = VdResource::TypeMismatch();
            return;
        }
    }
}

} // namespace vd
