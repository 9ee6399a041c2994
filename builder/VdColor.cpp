#include "builder/VdColor.h"

#include <QApplication>
#include <QPalette>

namespace vd {

namespace {

// The system colour numbers of the desktop platform's colour table, mapped to the palette
// roles that play the same part in Qt.
QColor SystemColor(unsigned index)
{
    const QPalette palette = QApplication::palette();
    switch (index) {
    case 0:  // scroll bar
    case 15: // button face
        return palette.color(QPalette::Active, QPalette::Button);
    case 1: // desktop
    case 5: // window background
        return palette.color(QPalette::Active, QPalette::Base);
    case 2:  // active caption
    case 13: // highlight
        return palette.color(QPalette::Active, QPalette::Highlight);
    case 3: // inactive caption
        return palette.color(QPalette::Inactive, QPalette::Highlight);
    case 4: // menu
        return palette.color(QPalette::Active, QPalette::Window);
    case 6:  // window frame
    case 21: // 3D dark shadow
        return palette.color(QPalette::Active, QPalette::Shadow);
    case 7: // menu text
    case 8: // window text
        return palette.color(QPalette::Active, QPalette::WindowText);
    case 9:  // caption text
    case 14: // highlight text
        return palette.color(QPalette::Active, QPalette::HighlightedText);
    case 16: // button shadow
        return palette.color(QPalette::Active, QPalette::Dark);
    case 17: // grey text
        return palette.color(QPalette::Disabled, QPalette::Text);
    case 18: // button text
        return palette.color(QPalette::Active, QPalette::ButtonText);
    case 20: // button highlight
        return palette.color(QPalette::Active, QPalette::Light);
    case 22: // 3D light
        return palette.color(QPalette::Active, QPalette::Midlight);
    case 23: // tool-tip text
        return palette.color(QPalette::Active, QPalette::ToolTipText);
    case 24: // tool-tip background
        return palette.color(QPalette::Active, QPalette::ToolTipBase);
    default:
        return palette.color(QPalette::Active, QPalette::Window);
    }
}

} // namespace

QColor ColorToQColor(TColor color)
{
    if (IsSystemColor(color))
        return SystemColor(color & 0xFFu);
    // 0x00BBGGRR: red is the low byte.
    return QColor(int(color & 0xFFu), int((color >> 8) & 0xFFu), int((color >> 16) & 0xFFu));
}

} // namespace vd
