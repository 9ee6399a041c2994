#pragma once

// The demo's main window: the database's objects on the left, the builder in the middle, and
// below it the statement as text beside the rows it returns. Every edit in the builder
// reprints the text; an edited text is applied back with Ctrl+Return, and F5 runs it.

#include "builder/VdSqlEngine.h"

#include <QMainWindow>
#include <QPoint>
#include <QString>

class QAction;
class QLabel;

namespace vd {

class TCustomVandor;
class TVdObjectList;
class TVdOptionsPanel;
class TVdResultsPane;
class TVdSqlCatalog;
class TVdSqlPane;
class TVdTable;

class TVdDemoWindow : public QMainWindow
{
    Q_OBJECT

public:
    // The catalogue (of an open QtSql connection) must outlive the window: the diagram's
    // objects read its data sets. dialect is generic, interbase, firebird or mysql (empty:
    // the one the connection's engine suits).
    TVdDemoWindow(TVdSqlCatalog& catalog, const QString& dialect, QWidget* parent = nullptr);

    // Loads a statement into the builder. A text the builder refuses leaves the builder as
    // it was, and the parser's message is in error (with its line and position in the SQL
    // pane when showInPane).
    bool LoadSql(const QString& text, QString* error = nullptr, bool showInPane = false);
    // Adds a table, view or procedure of the database to the diagram, as a drop or a
    // double-click does; false for a name the database does not know or the builder refused.
    bool AddObject(const QString& name);
    // The same, with the object's top-left corner at a point of the diagram's content.
    bool AddObjectAt(const QString& name, const QPoint& contentPoint);
    // Runs the built statement and shows its rows; false when the engine refused it.
    bool RunQuery();
    // Applies the SQL pane's text to the builder.
    bool ApplySqlText();
    // Links the table added last to the diagram's tables along the foreign keys between them,
    // as the toolbar's "Join along foreign keys" does; returns how many links were drawn.
    int JoinAlongForeignKeys();
    QAction* JoinAction() const { return FJoinAction; }
    // Sets the diagram's tables side by side in FROM order, each wide enough for its caption.
    void ArrangeTables();
    // The builder's sheet: 0 criteria, 1 selection, 2 grouping criteria, 3 sorting.
    void ShowPage(int page);

    TCustomVandor* Builder() const { return FBuilder; }
    TVdSqlCatalog& Catalog() const { return FCatalog; }
    TVdObjectList* ObjectList() const { return FObjects; }
    TVdSqlPane* SqlPane() const { return FSqlPane; }
    TVdResultsPane* ResultsPane() const { return FResults; }
    QString Dialect() const { return FDialect; }

private:
    TVdTable* AddToDiagram(const QString& name);
    // Enables the join action when the keys suggest links for table (null: none).
    void OfferForeignKeyJoins(TVdTable* table);
    void CreateActions();
    QWidget* CreateCentre();
    void FollowBuilder();
    void UpdateStatus();
    QString ConnectionTitle() const;

    TVdSqlCatalog& FCatalog;
    QString FConnection;
    QString FDialect;
    TCustomVandor* FBuilder = nullptr;
    TVdOptionsPanel* FOptionsPanel = nullptr;
    TVdObjectList* FObjects = nullptr;
    TVdSqlPane* FSqlPane = nullptr;
    TVdResultsPane* FResults = nullptr;
    QLabel* FTableCount = nullptr;
    QAction* FJoinAction = nullptr;
    // The table the join action would link; checked against the diagram before use.
    TVdTable* FJoinTable = nullptr;
    // Set while the builder is reloaded from the pane, so that the pane keeps what was typed.
    bool FApplying = false;
};

} // namespace vd
