#include "resources/VdImages.h"

#include <QFile>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <algorithm>
#include <array>
#include <cstring>

// The resource file lives in a static library, so its registration must be pulled in by hand;
// Q_INIT_RESOURCE has to be called outside any namespace.
static void VdInitResources() { Q_INIT_RESOURCE(vandor); }

namespace vd {

namespace {

struct TImageEntry {
    const char* Name;
    int Size;
};

constexpr std::array<TImageEntry, 17> kImages = {{
    {"TABLEBMP", 16},
    {"FIELDBMP", 16},
    {"ADD", 16},
    {"ADD_ALL", 16},
    {"REMOVE", 16},
    {"REMOVE_ALL", 16},
    {"CHECKBMP", 16},
    {"UNCHECKBMP", 16},
    {"INPUTPARAM", 16},
    {"INPUTNULL", 16},
    {"BTN1", 12},
    {"BTN2", 12},
    {"BTN3", 12},
    {"BOX1", 12},
    {"BOX2", 12},
    {"BOX3", 12},
    {"DRAGCURSOR", 32},
}};

// The cursor's arrow tip in its SVG, in logical pixels.
constexpr QPoint kDragCursorHotSpot(1, 1);

void EnsureResources()
{
    static const bool registered = [] {
        VdInitResources();
        return true;
    }();
    (void)registered;
}

const TImageEntry* FindImage(const char* name)
{
    if (!name)
        return nullptr;
    const QByteArray wanted = QByteArray(name).toUpper();
    const auto it = std::find_if(kImages.begin(), kImages.end(),
                                 [&](const TImageEntry& entry) { return wanted == entry.Name; });
    return it == kImages.end() ? nullptr : &*it;
}

QString PathOf(const TImageEntry& entry)
{
    return QStringLiteral(":/vandor/") + QLatin1String(entry.Name) + QStringLiteral(".svg");
}

QPixmap Render(const TImageEntry& entry, qreal devicePixelRatio)
{
    const int side = qRound(entry.Size * devicePixelRatio);
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QSvgRenderer renderer(PathOf(entry));
    QPainter painter(&pixmap);
    renderer.render(&painter, QRectF(0, 0, side, side));
    painter.end();
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

} // namespace

QString VdImagePath(const char* name)
{
    EnsureResources();
    const TImageEntry* entry = FindImage(name);
    return entry ? PathOf(*entry) : QString();
}

QSize VdImageSize(const char* name)
{
    const TImageEntry* entry = FindImage(name);
    return entry ? QSize(entry->Size, entry->Size) : QSize();
}

QPixmap VdImage(const char* name, qreal devicePixelRatio)
{
    EnsureResources();
    const TImageEntry* entry = FindImage(name);
    if (!entry || devicePixelRatio <= 0)
        return QPixmap();
    const QString key =
        QStringLiteral("vd:%1@%2").arg(QLatin1String(entry->Name)).arg(devicePixelRatio);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = Render(*entry, devicePixelRatio);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

QIcon VdIcon(const char* name)
{
    const QString path = VdImagePath(name);
    return path.isEmpty() ? QIcon() : QIcon(path);
}

QCursor VdDragCursor(qreal devicePixelRatio)
{
    return QCursor(VdImage("DRAGCURSOR", devicePixelRatio), kDragCursorHotSpot.x(),
                   kDragCursorHotSpot.y());
}

} // namespace vd
