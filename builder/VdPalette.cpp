#include "builder/VdPalette.h"

#include "builder/VdCustomVandor.h"
#include "core/VdError.h"

namespace vd {

TVdPalette::TVdPalette(QObject* owner) : FOwner(owner) {}

void TVdPalette::Store(TColor& field, TColor value, bool criteriaPanels)
{
    if (field == value)
        return;
    field = value;
    RepaintOwnerViews(FOwner, criteriaPanels ? vdrCriteriaPanels : vdrWorkArea);
}

void TVdPalette::SetActiveCondition(TColor value) { Store(FActiveCondition, value, true); }

void TVdPalette::SetProcClient(TColor value) { Store(FProcClient, value, false); }

void TVdPalette::SetTableClient(TColor value) { Store(FTableClient, value, false); }

void TVdPalette::SetConditionItemText(TColor value) { Store(FConditionItemText, value, true); }

void TVdPalette::SetConditionText(TColor value) { Store(FConditionText, value, true); }

void TVdPalette::SetItemText(TColor value) { Store(FItemText, value, false); }

void TVdPalette::SetSelectedItemText(TColor value) { Store(FSelectedItemText, value, false); }

void TVdPalette::SetInactiveCaption(TColor value) { Store(FInactiveCaption, value, false); }

void TVdPalette::SetActiveCaption(TColor value) { Store(FActiveCaption, value, false); }

void TVdPalette::Assign(const QObject* source)
{
    const auto* other = qobject_cast<const TVdPalette*>(source);
    if (!other)
        throw EVdError(std::string("Cannot assign a ") +
                       (source ? source->metaObject()->className() : "nil") + " to a TVdPalette");
    SetActiveCondition(other->ActiveCondition());
    SetConditionText(other->ConditionText());
    SetConditionErrorText(other->ConditionErrorText());
    SetConditionItemText(other->ConditionItemText());
    SetTableClient(other->TableClient());
    SetItemText(other->ItemText());
    SetSelectedItemText(other->SelectedItemText());
    SetProcClient(other->ProcClient());
    SetActiveCaption(other->ActiveCaption());
    SetInactiveCaption(other->InactiveCaption());
}

} // namespace vd
