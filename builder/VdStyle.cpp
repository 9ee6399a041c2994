#include "builder/VdStyle.h"

#include "builder/VdCustomVandor.h"
#include "core/VdError.h"

namespace vd {

namespace {

[[noreturn]] void RaiseAssign(const QObject* source, const char* target)
{
    throw EVdError(std::string("Cannot assign a ") +
                   (source ? source->metaObject()->className() : "nil") + " to a " + target);
}

} // namespace

TVdObjectStyle::TVdObjectStyle(QObject* owner) : FOwner(owner) {}

void TVdObjectStyle::SetFlat(bool value)
{
    if (FFlat == value)
        return;
    FFlat = value;
    RepaintOwnerViews(FOwner, vdrWorkArea);
}

void TVdObjectStyle::SetFlatButtons(bool value)
{
    if (FFlatButtons == value)
        return;
    FFlatButtons = value;
    RepaintOwnerViews(FOwner, vdrWorkArea);
}

void TVdObjectStyle::SetBorderKind(TVdBorderKind value)
{
    if (FBorderKind == value)
        return;
    FBorderKind = value;
    RepaintOwnerViews(FOwner, vdrWorkArea);
}

void TVdObjectStyle::Assign(const QObject* source)
{
    const auto* other = qobject_cast<const TVdObjectStyle*>(source);
    if (!other)
        RaiseAssign(source, "TVdObjectStyle");
    SetBorderKind(other->BorderKind());
    SetFlat(other->Flat());
    SetFlatButtons(other->FlatButtons());
}

TVdStyle::TVdStyle(QObject* owner)
    : FOwner(owner), FObjectStyle(std::make_unique<TVdObjectStyle>(owner))
{
}

TVdStyle::~TVdStyle() = default;

void TVdStyle::SetButtonStyle(TVdButtonStyle value)
{
    if (FButtonStyle == value)
        return;
    FButtonStyle = value;
    RepaintOwnerViews(FOwner, vdrCriteriaPanels);
}

void TVdStyle::SetObjectStyle(TVdObjectStyle* value)
{
    if (!value || value == FObjectStyle.get())
        return;
    FObjectStyle->Assign(value);
    RepaintOwnerViews(FOwner, vdrWorkArea);
}

void TVdStyle::Assign(const QObject* source)
{
    const auto* other = qobject_cast<const TVdStyle*>(source);
    if (!other)
        RaiseAssign(source, "TVdStyle");
    SetButtonStyle(other->ButtonStyle());
    FObjectStyle->Assign(other->ObjectStyle());
}

} // namespace vd
