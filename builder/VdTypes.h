#pragma once

// The enumerations and sets of the builder's published properties. They live in one header
// because the namespace's meta object (Q_NAMESPACE) can be declared only once: the form
// designer and QMetaProperty read the enums and flags by name through it.

#include "dialects/VdIBScanner.h" // TVdSQLDialect, TVdIBSQLServer (core)

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

// The InterBase builder's published enumerations live in the Qt-free dialect code. moc reads
// only the text of this header, so it is shown a copy of them here; the compiler sees the real
// ones, and the checks below keep the two alike.
#ifdef Q_MOC_RUN
enum TVdSQLDialect : std::uint8_t { qibDialect1, qibDialect3 };
enum TVdIBSQLServer : std::uint8_t { qssInterBase, qssFireBird };
#endif
Q_ENUM_NS(TVdSQLDialect)
Q_ENUM_NS(TVdIBSQLServer)
static_assert(qibDialect1 == 0 && qibDialect3 == 1);
static_assert(qssInterBase == 0 && qssFireBird == 1);

} // namespace vd

Q_DECLARE_OPERATORS_FOR_FLAGS(vd::TVdOptions)
Q_DECLARE_OPERATORS_FOR_FLAGS(vd::TVdVisibleTabs)
