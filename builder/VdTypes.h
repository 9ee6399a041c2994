#pragma once

// The enumerations and sets of the builder's published properties. They live in one header
// because the namespace's meta object (Q_NAMESPACE) can be declared only once: the form
// designer and QMetaProperty read the enums and flags by name through it.

#include <QFlags>
#include <QObject>

#include <cstdint>

namespace vd {
Q_NAMESPACE

// The edge drawn around a table object.
enum TVdBorderKind : std::uint8_t { vdkBump, vdkEtched, vdkRaised, vdkSunken };
Q_ENUM_NS(TVdBorderKind)

// The look of the criteria panels' buttons.
enum TVdButtonStyle : std::uint8_t { vdsFlat, vds3DLook, vdsRaise };
Q_ENUM_NS(TVdButtonStyle)

// What the host is asked to accept: a table or link being added or removed.
enum TVdAction : std::uint8_t { vdaAdd, vdaRemove };
Q_ENUM_NS(TVdAction)

// One bit per option, in declaration order.
enum TVdOption : std::uint32_t {
    vdoRowSelect = 0x1,
    vdoDragFieldName = 0x2,
    vdoHideSelection = 0x4,
    vdoShowFieldTypes = 0x8
};
Q_DECLARE_FLAGS(TVdOptions, TVdOption)
Q_FLAG_NS(TVdOptions)

// One bit per tab sheet, in tab order.
enum TVdVisibleTab : std::uint32_t {
    vdtCriterions = 0x1,
    vdtSelection = 0x2,
    vdtGroupCriterions = 0x4,
    vdtSorting = 0x8
};
Q_DECLARE_FLAGS(TVdVisibleTabs, TVdVisibleTab)
Q_FLAG_NS(TVdVisibleTabs)

inline constexpr TVdVisibleTabs AllVisibleTabs =
    TVdVisibleTabs(vdtCriterions | vdtSelection | vdtGroupCriterions | vdtSorting);

} // namespace vd

Q_DECLARE_OPERATORS_FOR_FLAGS(vd::TVdOptions)
Q_DECLARE_OPERATORS_FOR_FLAGS(vd::TVdVisibleTabs)
