#pragma once

// The colours of the diagram and of the criteria panels, published by the builder.

#include "builder/VdColor.h"

#include <QObject>

namespace vd {

class TCustomVandor;

class TVdPalette : public QObject
{
    Q_OBJECT
    Q_PROPERTY(vd::TColor ActiveCondition READ ActiveCondition WRITE SetActiveCondition RESET
                   ResetActiveCondition)
    Q_PROPERTY(vd::TColor ProcClient READ ProcClient WRITE SetProcClient RESET ResetProcClient)
    Q_PROPERTY(vd::TColor TableClient READ TableClient WRITE SetTableClient RESET ResetTableClient)
    Q_PROPERTY(vd::TColor ConditionItemText READ ConditionItemText WRITE SetConditionItemText RESET
                   ResetConditionItemText)
    Q_PROPERTY(
        vd::TColor ConditionText READ ConditionText WRITE SetConditionText RESET ResetConditionText)
    Q_PROPERTY(vd::TColor ItemText READ ItemText WRITE SetItemText RESET ResetItemText)
    Q_PROPERTY(vd::TColor SelectedItemText READ SelectedItemText WRITE SetSelectedItemText RESET
                   ResetSelectedItemText)
    Q_PROPERTY(vd::TColor InactiveCaption READ InactiveCaption WRITE SetInactiveCaption RESET
                   ResetInactiveCaption)
    Q_PROPERTY(
        vd::TColor ActiveCaption READ ActiveCaption WRITE SetActiveCaption RESET ResetActiveCaption)

public:
    static constexpr TColor DefActiveCondition = clWhite;
    static constexpr TColor DefProcClient = clInfoBk;
    static constexpr TColor DefTableClient = clWhite;
    static constexpr TColor DefConditionItemText = clNavy;
    static constexpr TColor DefConditionText = clBlack;
    static constexpr TColor DefConditionErrorText = clRed;
    static constexpr TColor DefItemText = clBlack;
    static constexpr TColor DefSelectedItemText = clWhite;
    static constexpr TColor DefInactiveCaption = clBtnFace;
    static constexpr TColor DefActiveCaption = clSilver;

    // owner is the builder whose views repaint on a change (any other owner, or none, only
    // stores). The palette is not a child of the owner: the owner holds it.
    explicit TVdPalette(QObject* owner = nullptr);

    QObject* Owner() const { return FOwner; }
    // Copies the ten colours of another palette through the setters; any other source
    // raises EVdError.
    void Assign(const QObject* source);

    TColor ActiveCondition() const { return FActiveCondition; }
    TColor ProcClient() const { return FProcClient; }
    TColor TableClient() const { return FTableClient; }
    TColor ConditionItemText() const { return FConditionItemText; }
    TColor ConditionText() const { return FConditionText; }
    // Not published: kept with the form only by hosts that store it themselves.
    TColor ConditionErrorText() const { return FConditionErrorText; }
    TColor ItemText() const { return FItemText; }
    TColor SelectedItemText() const { return FSelectedItemText; }
    TColor InactiveCaption() const { return FInactiveCaption; }
    TColor ActiveCaption() const { return FActiveCaption; }

    void SetActiveCondition(TColor value);
    void SetProcClient(TColor value);
    void SetTableClient(TColor value);
    void SetConditionItemText(TColor value);
    void SetConditionText(TColor value);
    // Stores without comparing and never repaints.
    void SetConditionErrorText(TColor value) { FConditionErrorText = value; }
    void SetItemText(TColor value);
    void SetSelectedItemText(TColor value);
    void SetInactiveCaption(TColor value);
    void SetActiveCaption(TColor value);

    void ResetActiveCondition() { SetActiveCondition(DefActiveCondition); }
    void ResetProcClient() { SetProcClient(DefProcClient); }
    void ResetTableClient() { SetTableClient(DefTableClient); }
    void ResetConditionItemText() { SetConditionItemText(DefConditionItemText); }
    void ResetConditionText() { SetConditionText(DefConditionText); }
    void ResetItemText() { SetItemText(DefItemText); }
    void ResetSelectedItemText() { SetSelectedItemText(DefSelectedItemText); }
    void ResetInactiveCaption() { SetInactiveCaption(DefInactiveCaption); }
    void ResetActiveCaption() { SetActiveCaption(DefActiveCaption); }

    Q_INVOKABLE bool IsActiveConditionStored() const
    {
        return FActiveCondition != DefActiveCondition;
    }
    Q_INVOKABLE bool IsProcClientStored() const { return FProcClient != DefProcClient; }
    Q_INVOKABLE bool IsTableClientStored() const { return FTableClient != DefTableClient; }
    Q_INVOKABLE bool IsConditionItemTextStored() const
    {
        return FConditionItemText != DefConditionItemText;
    }
    Q_INVOKABLE bool IsConditionTextStored() const { return FConditionText != DefConditionText; }
    Q_INVOKABLE bool IsItemTextStored() const { return FItemText != DefItemText; }
    Q_INVOKABLE bool IsSelectedItemTextStored() const
    {
        return FSelectedItemText != DefSelectedItemText;
    }
    Q_INVOKABLE bool IsInactiveCaptionStored() const
    {
        return FInactiveCaption != DefInactiveCaption;
    }
    Q_INVOKABLE bool IsActiveCaptionStored() const { return FActiveCaption != DefActiveCaption; }

private:
    // Compares, stores, and repaints the diagram or the criteria panels.
    void Store(TColor& field, TColor value, bool criteriaPanels);

    TColor FActiveCondition = DefActiveCondition;
    TColor FProcClient = DefProcClient;
    TColor FTableClient = DefTableClient;
    QObject* FOwner;
    TColor FConditionItemText = DefConditionItemText;
    TColor FConditionText = DefConditionText;
    TColor FConditionErrorText = DefConditionErrorText;
    TColor FItemText = DefItemText;
    TColor FSelectedItemText = DefSelectedItemText;
    TColor FInactiveCaption = DefInactiveCaption;
    TColor FActiveCaption = DefActiveCaption;
};

} // namespace vd
