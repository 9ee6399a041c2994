#pragma once

// Colours as the builder stores and publishes them: 0x00BBGGRR, or 0xFF0000nn for the
// system colour number nn. Only ColorToQColor turns them into what Qt paints with.

#include <QColor>

#include <cstdint>

namespace vd {

using TColor = std::uint32_t;

inline constexpr TColor clWhite = 0x00FFFFFF;
inline constexpr TColor clBlack = 0x00000000;
inline constexpr TColor clNavy = 0x00800000;
inline constexpr TColor clRed = 0x000000FF;
inline constexpr TColor clSilver = 0x00C0C0C0;
// System colours: the tool-tip background and the face of buttons.
inline constexpr TColor clInfoBk = 0xFF000018;
inline constexpr TColor clBtnFace = 0xFF00000F;

inline constexpr bool IsSystemColor(TColor color) { return (color & 0xFF000000u) == 0xFF000000u; }

// A system colour is read from the application palette at the time of the call.
QColor ColorToQColor(TColor color);

} // namespace vd
