#include "VdDemoWindow.h"

#include "VdDemoBuilders.h"
#include "VdForeignKeyJoins.h"
#include "VdObjectList.h"
#include "VdResultsPane.h"
#include "VdSqlPane.h"
#include "builder/VdCustomVandor.h"
#include "builder/VdPageControl.h"
#include "builder/VdQtText.h"
#include "builder/VdSqlCatalog.h"
#include "builder/VdTableList.h"
#include "core/VdError.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"
#include "dialects/VdOptionsPanel.h"

#include <QAction>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QSplitter>
#include <QSqlDatabase>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>
#include <QVBoxLayout>

#include <initializer_list>
#include <iterator>

namespace vd {

namespace {

// A pane with a bold title line over its widgets (null ones left out).
QWidget* Titled(const QString& title, std::initializer_list<QWidget*> widgets)
{
    auto* pane = new QWidget;
    auto* layout = new QVBoxLayout(pane);
    layout->setContentsMargins(4, 4, 4, 0);
    layout->setSpacing(3);
    auto* label = new QLabel(title);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    layout->addWidget(label);
    for (QWidget* widget : widgets)
        if (widget)
            layout->addWidget(widget, widget == *std::prev(widgets.end()) ? 1 : 0);
    return pane;
}

} // namespace

TVdDemoWindow::TVdDemoWindow(TVdSqlCatalog& catalog, const QString& dialect, QWidget* parent)
    : QMainWindow(parent), FCatalog(catalog), FConnection(catalog.Database().connectionName())
{
    FDialect = DemoDialectFor(FCatalog.Engine(), dialect);
    setWindowTitle(tr("VandorRT query builder \u2014 %1").arg(ConnectionTitle()));
    FObjects = new TVdObjectList;
    FObjects->Fill(FCatalog);
    connect(FObjects, &TVdObjectList::addRequested, this,
            [this](const QString& name) { AddObject(name); });

    auto* main = new QSplitter(Qt::Horizontal);
    main->addWidget(FObjects);
    main->addWidget(CreateCentre());
    main->setStretchFactor(1, 1);
    main->setSizes({220, 1060});
    setCentralWidget(main);
    CreateActions();
    FollowBuilder();
    FTableCount = new QLabel;
    statusBar()->addPermanentWidget(FTableCount);
    statusBar()->addPermanentWidget(
        new QLabel(tr("%1 \u00b7 %2 builder").arg(SqlEngineName(FCatalog.Engine()), FDialect)));
    UpdateStatus();
}

QWidget* TVdDemoWindow::CreateCentre()
{
    auto* centre = new QSplitter(Qt::Vertical);
    const TVdDemoBuilder made = CreateDemoBuilder(FDialect, FCatalog.Engine(), nullptr);
    FBuilder = made.Builder;
    FOptionsPanel = made.OptionsPanel;
    FBuilder->OnGetTableFields = FCatalog.Handler();
    // The object list's drags reach the builder's drag events; the point is the builder's.
    FBuilder->OnDragOver = [](QObject*, QObject*, const QMimeData* data, const QPoint&,
                              bool& accept) { accept = !TVdObjectList::ObjectOf(data).isEmpty(); };
    FBuilder->OnDragDrop = [this](QObject*, QObject*, const QMimeData* data, const QPoint& at) {
        TVdWorkArea* area = FBuilder->WorkArea();
        AddObjectAt(TVdObjectList::ObjectOf(data),
                    area->viewport()->mapFrom(FBuilder, at) + area->ScrollOffset());
    };
    centre->addWidget(FBuilder);

    auto* bottom = new QSplitter(Qt::Horizontal);
    FSqlPane = new TVdSqlPane;
    if (FOptionsPanel)
        connect(FOptionsPanel, &TVdOptionsPanel::optionsChanged, FBuilder,
                &TCustomVandor::sqlChanged);
    bottom->addWidget(
        Titled(tr("SQL \u2014 edit and press Ctrl+Return to apply"), {FOptionsPanel, FSqlPane}));
    FResults = new TVdResultsPane;
    bottom->addWidget(Titled(tr("Rows \u2014 F5 runs the statement"), {FResults}));
    bottom->setSizes({480, 580});
    centre->addWidget(bottom);
    centre->setStretchFactor(0, 3);
    centre->setStretchFactor(1, 2);
    centre->setSizes({530, 200});
    return centre;
}

void TVdDemoWindow::CreateActions()
{
    QToolBar* bar = addToolBar(tr("Query"));
    bar->setObjectName(QStringLiteral("queryToolBar"));
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    QAction* run = bar->addAction(tr("Run (F5)"), this, [this] { RunQuery(); });
    run->setShortcut(Qt::Key_F5);
    run->setShortcutContext(Qt::WindowShortcut);
    bar->addAction(tr("Apply SQL (Ctrl+Return)"), this, [this] { ApplySqlText(); });
    bar->addAction(tr("Clear"), this, [this] {
        FBuilder->Clear();
        emit FBuilder->sqlChanged();
    });
    bar->addAction(tr("Arrange"), this, [this] { ArrangeTables(); });
    FJoinAction =
        bar->addAction(tr("Join along foreign keys"), this, [this] { JoinAlongForeignKeys(); });
    FJoinAction->setObjectName(QStringLiteral("joinAlongForeignKeys"));
    FJoinAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_J));
    FJoinAction->setShortcutContext(Qt::WindowShortcut);
    FJoinAction->setEnabled(false);
    bar->addSeparator();
    bar->addAction(tr("Reload objects"), this, [this] {
        FCatalog.Refresh();
        FObjects->Fill(FCatalog);
    });
    connect(FSqlPane, &TVdSqlPane::applyRequested, this, [this] { ApplySqlText(); });
}

void TVdDemoWindow::FollowBuilder()
{
    connect(FBuilder, &TCustomVandor::sqlChanged, this, [this] {
        if (FOptionsPanel)
            FOptionsPanel->RefreshFromParser();
        if (!FApplying) {
            FSqlPane->ShowSql(FBuilder->GetSQL());
            FSqlPane->ClearError();
        }
        UpdateStatus();
    });
}

QString TVdDemoWindow::ConnectionTitle() const
{
    const QSqlDatabase db = QSqlDatabase::database(FConnection, false);
    if (db.driverName() == QLatin1String("QSQLITE"))
        return QFileInfo(db.databaseName()).fileName();
    return db.hostName().isEmpty()
               ? db.databaseName()
               : QStringLiteral("%1 on %2").arg(db.databaseName(), db.hostName());
}

void TVdDemoWindow::UpdateStatus()
{
    const int tables = FBuilder->TableList()->GetTablesCount();
    FTableCount->setText(tables == 1 ? tr("1 table") : tr("%1 tables").arg(tables));
}

bool TVdDemoWindow::LoadSql(const QString& text, QString* error, bool showInPane)
{
    OfferForeignKeyJoins(nullptr);
    const QString previous = FBuilder->GetSQL();
    try {
        FBuilder->SetSQL(text);
    } catch (const EVdError& e) {
        const QString message = ToQString(e.what());
        const auto* parserError = dynamic_cast<const EVdParserError*>(&e);
        // The builder was cleared before the parser refused: put back what it held.
        FBuilder->SetSQL(previous);
        if (error)
            *error = message;
        if (showInPane)
            FSqlPane->ShowError(message, parserError ? parserError->LineNo : 0,
                                parserError ? parserError->LinePos : 0);
        statusBar()->showMessage(message, 10000);
        return false;
    }
    ArrangeTables();
    const int defs = FBuilder->Parser()->TableDefs().Count();
    const int objects = FBuilder->TableList()->GetTablesCount();
    if (objects < defs)
        statusBar()->showMessage(
            tr("%1 of the statement's %2 tables are in the diagram: the database lacks the "
               "next one")
                .arg(objects)
                .arg(defs),
            10000);
    return true;
}

TVdTable* TVdDemoWindow::AddToDiagram(const QString& name)
{
    TVdCatalogKind kind = TVdCatalogKind::ckNone;
    const QString resolved = FCatalog.Resolve(name, &kind);
    TDataSet* dataSet = resolved.isEmpty() ? nullptr : FCatalog.DataSet(resolved);
    if (!dataSet) {
        statusBar()->showMessage(tr("The database has no object named %1").arg(name), 10000);
        return nullptr;
    }
    if (kind != TVdCatalogKind::ckProcedure)
        return FBuilder->WorkArea()->AddPanel(resolved, dataSet);
    // The procedure's object lists its input parameters only.
    TParams inputs;
    if (const TParams* params = FCatalog.Params(resolved))
        for (int i = 0; i < params->Count(); ++i)
            if (params->Items(i).IsInput())
                inputs.Add(params->Items(i));
    return FBuilder->WorkArea()->AddProc(resolved, dataSet, &inputs);
}

bool TVdDemoWindow::AddObject(const QString& name)
{
    TVdTable* table = AddToDiagram(name);
    OfferForeignKeyJoins(table);
    return table != nullptr;
}

void TVdDemoWindow::OfferForeignKeyJoins(TVdTable* table)
{
    // Nothing joins by itself: the user is offered the links the keys suggest.
    FJoinTable = table;
    const int count =
        table ? int(ForeignKeyLinks(FCatalog, *FBuilder->WorkArea(), table).size()) : 0;
    FJoinAction->setEnabled(count > 0);
    if (count == 0)
        return;
    FJoinAction->setText(tr("Join %1 along foreign keys").arg(table->GetAlias()));
    statusBar()->showMessage(
        tr("%1 has %2 foreign-key link(s) to the diagram's tables: Ctrl+J draws them")
            .arg(table->GetAlias())
            .arg(count),
        15000);
}

int TVdDemoWindow::JoinAlongForeignKeys()
{
    TVdWorkArea* area = FBuilder->WorkArea();
    if (!FJoinAction->isEnabled() || !area->HasTable(FJoinTable))
        return 0;
    const int made = vd::JoinAlongForeignKeys(FCatalog, *area, FJoinTable);
    FJoinAction->setEnabled(false);
    FJoinAction->setText(tr("Join along foreign keys"));
    statusBar()->showMessage(tr("%1 link(s) drawn along foreign keys").arg(made), 10000);
    return made;
}

bool TVdDemoWindow::AddObjectAt(const QString& name, const QPoint& contentPoint)
{
    TVdTable* table = AddToDiagram(name);
    if (!table)
        return false;
    OfferForeignKeyJoins(table);
    table->SetLeft(qMax(0, contentPoint.x()));
    table->SetTop(qMax(0, contentPoint.y()));
    FBuilder->WorkArea()->CMResizeControl(table);
    FBuilder->WorkArea()->viewport()->update();
    return true;
}

bool TVdDemoWindow::RunQuery()
{
    const bool ran = FResults->Run(FBuilder->GetSQL(), FConnection);
    statusBar()->showMessage(FResults->Summary(), 10000);
    return ran;
}

bool TVdDemoWindow::ApplySqlText()
{
    FApplying = true;
    const bool loaded = LoadSql(FSqlPane->Text(), nullptr, true);
    FApplying = false;
    if (loaded) {
        FSqlPane->ShowSql(FBuilder->GetSQL());
        FSqlPane->ClearError();
        statusBar()->showMessage(tr("Statement applied"), 5000);
    }
    return loaded;
}

void TVdDemoWindow::ArrangeTables()
{
    constexpr int Margin = 16;
    constexpr int Gap = 56;
    TVdWorkArea* area = FBuilder->WorkArea();
    int left = Margin;
    // Index 0 is the front-most, the last added: the first table of FROM is the last one.
    for (int i = area->TablesCount() - 1; i >= 0; --i) {
        TVdTable* table = area->Tables(i);
        const int needed = table->CaptionRect(false).width() + table->CaptionHeight() + 2 +
                           TVdTable::ButtonsWidth + 8;
        table->SetWidth(qMax(table->Width(), needed));
        table->SetLeft(left);
        table->SetTop(Margin);
        area->CMResizeControl(table);
        left += table->Width() + Gap;
    }
    area->viewport()->update();
}

void TVdDemoWindow::ShowPage(int page)
{
    if (page >= 0 && page < FBuilder->PageControl()->count())
        FBuilder->PageControl()->setCurrentIndex(page);
}

} // namespace vd
