// The diagram's cost with the size of a statement: loading n tables with 1.5 links per table
// through SetSQL (the host answering from data sets of 10-40 fields) and painting the whole
// diagram once; and, in a 200-table diagram, dragging one table a few pixels and repainting
// what that dirtied. Offscreen.

#include "builder/VdDataSet.h"
#include "builder/VdSQLVandor.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"
#include "diagram/VdLinks.h"

#include <QApplication>
#include <QFont>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <map>
#include <memory>
#include <random>

namespace {

// Tables T0..Tn-1 with 10-40 integer fields F0..; every table after the first joins one of the
// four before it on one field (n - 1 links), and every second one on a second field as well
// (ON (.. AND ..)): 1.5 links per table, all in the statement.
struct TDiagramCase {
    std::map<QString, vd::TDataSet> DataSets;
    QString Sql;
    int Links = 0;
};

TDiagramCase MakeCase(int tables)
{
    TDiagramCase made;
    std::mt19937 rng{static_cast<unsigned>(tables)};
    for (int t = 0; t < tables; ++t) {
        const QString name = QStringLiteral("T%1").arg(t);
        vd::TDataSet& data = made.DataSets[name];
        data.SetName(name);
        const int fields = 10 + int(rng() % 31);
        for (int f = 0; f < fields; ++f)
            data.AddField(QStringLiteral("F%1").arg(f), vd::ftInteger);
    }
    QString sql = QStringLiteral("SELECT T0.F0, T0.F1\r\nFROM T0");
    for (int t = 1; t < tables; ++t) {
        // A neighbour among the last four tables, as schemas chain: with partners anywhere in
        // a row of 200 boxes the lines alone would hold n^2 pixels.
        const int other = t - 1 - int(rng() % unsigned(std::min(t, 4)));
        const int field = int(rng() % 9);
        QString condition = QStringLiteral("T%1.F%2 = T%3.F%2").arg(other).arg(field).arg(t);
        ++made.Links;
        if (t % 2 == 0) {
            condition += QStringLiteral(" AND T%1.F%2 = T%3.F%2").arg(other).arg(field + 1).arg(t);
            ++made.Links;
        }
        sql += QStringLiteral("\r\n  INNER JOIN T%1 ON (%2)").arg(t).arg(condition);
    }
    made.Sql = sql;
    return made;
}

struct TBuilder {
    explicit TBuilder(TDiagramCase& diagram)
    {
        Vandor.OnGetTableFields = [&diagram](const QString& name, vd::TDataSet*& data,
                                             vd::TParams*&) {
            auto found = diagram.DataSets.find(name);
            if (found != diagram.DataSets.end())
                data = &found->second;
        };
        Vandor.resize(1280, 900);
    }
    vd::TSQLVandor Vandor;
};

// Paints the whole diagram once, in view-sized tiles as a window scrolled over it would: every
// pixel of the content is painted exactly once, each tile only with the objects it touches.
void PaintWhole(vd::TVdWorkArea* area, QImage& tile)
{
    QRect all;
    for (int i = 0; i < area->TablesCount(); ++i)
        all |= area->Tables(i)->GetBoundsRect();
    for (int i = 0; i < area->LinksCount(); ++i)
        all |= area->Links(i)->GetBounds();
    for (int top = all.top(); top <= all.bottom(); top += tile.height())
        for (int left = all.left(); left <= all.right(); left += tile.width()) {
            const QRect part(QPoint(left, top), tile.size());
            tile.fill(Qt::white);
            QPainter painter(&tile);
            painter.translate(-part.topLeft());
            painter.setClipRect(part);
            area->PaintRegion(painter, QRegion(part));
        }
    benchmark::DoNotOptimize(tile.bits());
}

// 20 to 200 tables, in milliseconds, fitted against n log n.
void DiagramSizes(benchmark::internal::Benchmark* bench)
{
    for (const int tables : {20, 50, 100, 200})
        bench->Arg(tables);
    bench->Unit(benchmark::kMillisecond)->Complexity(benchmark::oNLogN);
}

void BM_LoadAndPaint(benchmark::State& state)
{
    TDiagramCase diagram = MakeCase(int(state.range(0)));
    TBuilder builder(diagram);
    vd::TVdWorkArea* area = builder.Vandor.WorkArea();
    QImage tile(1280, 900, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        builder.Vandor.SetSQL(diagram.Sql);
        PaintWhole(area, tile);
    }
    if (area->TablesCount() != state.range(0) || area->LinksCount() != diagram.Links)
        state.SkipWithError("the statement did not load whole");
    state.counters["tables"] = area->TablesCount();
    state.counters["links"] = area->LinksCount();
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_LoadAndPaint)->Apply(DiagramSizes);

void BM_Load(benchmark::State& state)
{
    TDiagramCase diagram = MakeCase(int(state.range(0)));
    TBuilder builder(diagram);
    for (auto _ : state)
        builder.Vandor.SetSQL(diagram.Sql);
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_Load)->Apply(DiagramSizes);

void SendMouse(QWidget* view, QEvent::Type type, const QPoint& at, Qt::MouseButton button,
               Qt::MouseButtons buttons)
{
    QMouseEvent event(type, at, view->mapToGlobal(at), button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(view, &event);
}

// A 200-table diagram laid out in rows inside the extent, shown; one table near the middle of
// the view is held by its caption and moved back and forth, and the dirtied pixels are painted.
void BM_MoveAndRepaint200(benchmark::State& state)
{
    TDiagramCase diagram = MakeCase(200);
    TBuilder builder(diagram);
    vd::TSQLVandor& vandor = builder.Vandor;
    vandor.SetSQL(diagram.Sql);
    vd::TVdWorkArea* area = vandor.WorkArea();
    int x = 10;
    int y = 10;
    int rowHeight = 0;
    for (int i = area->TablesCount() - 1; i >= 0; --i) {
        vd::TVdTable* table = area->Tables(i);
        if (x + table->Width() > vd::TVdWorkArea::Extent - 10) {
            x = 10;
            y += rowHeight + 40;
            rowHeight = 0;
        }
        table->SetLeft(x);
        table->SetTop(y);
        area->CMMoveControl(table);
        x += table->Width() + 40;
        rowHeight = std::max(rowHeight, table->Height());
    }
    vandor.show();
    QCoreApplication::processEvents();
    QWidget* view = area->viewport();
    vd::TVdTable* moved = area->Tables(area->TablesCount() - 4);
    const QPoint caption = moved->GetCaptionRect().center() - area->ScrollOffset();
    SendMouse(view, QEvent::MouseMove, caption, Qt::NoButton, Qt::NoButton);
    SendMouse(view, QEvent::MouseButtonPress, caption, Qt::LeftButton, Qt::LeftButton);
    QCoreApplication::processEvents();
    int step = 0;
    for (auto _ : state) {
        const QPoint to = caption + QPoint((step & 1) ? 0 : 7, (step & 1) ? 0 : 5);
        ++step;
        SendMouse(view, QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton);
        // The paint of what the move dirtied.
        QCoreApplication::processEvents();
    }
    SendMouse(view, QEvent::MouseButtonRelease, caption, Qt::LeftButton, Qt::NoButton);
    state.counters["links_of_table"] = [&] {
        int count = 0;
        for (int i = 0; i < area->LinksCount(); ++i)
            count += area->Links(i)->Join()->GetTable(0) == moved ||
                     area->Links(i)->Join()->GetTable(1) == moved;
        return count;
    }();
}
BENCHMARK(BM_MoveAndRepaint200)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM",
            qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
