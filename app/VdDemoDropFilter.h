#pragma once

// Lets the builder's diagram take the object list's drags: a drop of a database object onto
// the work area adds that object where it was dropped. Drags from elsewhere pass on.

#include <QObject>
#include <QPoint>
#include <QString>

#include <functional>

class QMimeData;

namespace vd {

class TVdWorkArea;

class TVdDemoDropFilter : public QObject
{
    Q_OBJECT

public:
    // Called with the object's name and the drop point in the diagram's content coordinates.
    using TDropEvent = std::function<void(const QString& name, const QPoint& contentPoint)>;

    // Installs itself on the work area's viewport, which it makes accept drops.
    TVdDemoDropFilter(TVdWorkArea* workArea, TDropEvent onDrop);

    // The object a drag carries; empty when it carries none.
    static QString ObjectOf(const QMimeData* data);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    TVdWorkArea* FWorkArea;
    TDropEvent FOnDrop;
};

} // namespace vd
