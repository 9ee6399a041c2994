#pragma once

// Screenshots of widgets for people to look at: VD_SHOT_DIR/<name>.png at 100 %, and
// <name>@2x.png when the run is scaled (QT_SCALE_FACTOR=2), so both runs keep their pictures.

#include <QAbstractScrollArea>
#include <QColor>
#include <QDir>
#include <QImage>
#include <QPixmap>
#include <QString>
#include <QWidget>

#include <cmath>

namespace vd::test {

// Saves the widget as it paints and returns the picture, or a null pixmap when saving failed.
inline QPixmap SaveShot(QWidget& widget, const QString& name)
{
    const QPixmap shot = widget.grab();
    const qreal ratio = shot.devicePixelRatio();
    const QString suffix =
        ratio > 1.0 ? QStringLiteral("@%1x").arg(static_cast<int>(std::lround(ratio))) : QString();
    const QString dir = QStringLiteral(VD_SHOT_DIR);
    if (!QDir().mkpath(dir) ||
        !shot.save(dir + QLatin1Char('/') + name + suffix + QStringLiteral(".png")))
        return QPixmap();
    return shot;
}

// The colour the viewport of a scroll area shows at a logical point, at any scale.
inline QColor ViewportPixel(QAbstractScrollArea& area, const QPoint& logical)
{
    const QImage image = area.viewport()->grab().toImage();
    return image.pixelColor((QPointF(logical) * image.devicePixelRatio()).toPoint());
}

} // namespace vd::test
