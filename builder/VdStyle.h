#pragma once

// The look of the criteria panels' buttons and of the diagram's table objects.

#include "builder/VdTypes.h"

#include <QObject>

#include <memory>

namespace vd {

// Border and flatness of the table objects. Its owner is the builder, not the style that
// holds it: the owner is whom a change repaints.
class TVdObjectStyle : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool Flat READ Flat WRITE SetFlat RESET ResetFlat)
    Q_PROPERTY(bool FlatButtons READ FlatButtons WRITE SetFlatButtons RESET ResetFlatButtons)
    Q_PROPERTY(
        vd::TVdBorderKind BorderKind READ BorderKind WRITE SetBorderKind RESET ResetBorderKind)

public:
    static constexpr bool DefFlat = true;
    static constexpr bool DefFlatButtons = true;
    static constexpr TVdBorderKind DefBorderKind = vdkRaised;

    explicit TVdObjectStyle(QObject* owner = nullptr);

    QObject* Owner() const { return FOwner; }
    // Copies BorderKind, Flat and FlatButtons through the setters; any other source raises
    // EVdError.
    void Assign(const QObject* source);

    bool Flat() const { return FFlat; }
    bool FlatButtons() const { return FFlatButtons; }
    TVdBorderKind BorderKind() const { return FBorderKind; }
    void SetFlat(bool value);
    void SetFlatButtons(bool value);
    void SetBorderKind(TVdBorderKind value);

    void ResetFlat() { SetFlat(DefFlat); }
    void ResetFlatButtons() { SetFlatButtons(DefFlatButtons); }
    void ResetBorderKind() { SetBorderKind(DefBorderKind); }
    Q_INVOKABLE bool IsFlatStored() const { return FFlat != DefFlat; }
    Q_INVOKABLE bool IsFlatButtonsStored() const { return FFlatButtons != DefFlatButtons; }
    Q_INVOKABLE bool IsBorderKindStored() const { return FBorderKind != DefBorderKind; }

private:
    QObject* FOwner;
    bool FFlat = DefFlat;
    bool FFlatButtons = DefFlatButtons;
    TVdBorderKind FBorderKind = DefBorderKind;
};

class TVdStyle : public QObject
{
    Q_OBJECT
    Q_PROPERTY(
        vd::TVdButtonStyle ButtonStyle READ ButtonStyle WRITE SetButtonStyle RESET ResetButtonStyle)
    Q_PROPERTY(vd::TVdObjectStyle* ObjectStyle READ ObjectStyle WRITE SetObjectStyle)

public:
    static constexpr TVdButtonStyle DefButtonStyle = vdsFlat;

    explicit TVdStyle(QObject* owner = nullptr);
    ~TVdStyle() override;

    QObject* Owner() const { return FOwner; }
    // ButtonStyle through its setter, then the object style from the source's; any other
    // source raises EVdError.
    void Assign(const QObject* source);

    TVdButtonStyle ButtonStyle() const { return FButtonStyle; }
    void SetButtonStyle(TVdButtonStyle value);
    void ResetButtonStyle() { SetButtonStyle(DefButtonStyle); }
    Q_INVOKABLE bool IsButtonStyleStored() const { return FButtonStyle != DefButtonStyle; }

    TVdObjectStyle* ObjectStyle() const { return FObjectStyle.get(); }
    // Copies into the owned object style; the given object stays the caller's.
    void SetObjectStyle(TVdObjectStyle* value);

private:
    TVdButtonStyle FButtonStyle = DefButtonStyle;
    QObject* FOwner;
    std::unique_ptr<TVdObjectStyle> FObjectStyle;
};

} // namespace vd
