#pragma once

// The rows of the built statement (F5): a grid, the number of rows, or the engine's
// message when it refuses the statement.

#include <QWidget>

class QLabel;
class QSqlQueryModel;
class QTableView;

namespace vd {

class TVdResultsPane : public QWidget
{
    Q_OBJECT

public:
    // No more rows than this are fetched into the grid.
    static constexpr int MaxRows = 100000;

    explicit TVdResultsPane(QWidget* parent = nullptr);

    // Runs sql on the connection; false when the engine refused it (its message shown).
    bool Run(const QString& sql, const QString& connectionName);
    int RowCount() const;
    QString Summary() const;
    QTableView* View() const { return FView; }

private:
    QSqlQueryModel* FModel;
    QTableView* FView;
    QLabel* FSummary;
};

} // namespace vd
