#include "VdResultsPane.h"

#include <QElapsedTimer>
#include <QHeaderView>
#include <QLabel>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlQueryModel>
#include <QTableView>
#include <QVBoxLayout>

namespace vd {

TVdResultsPane::TVdResultsPane(QWidget* parent)
    : QWidget(parent), FModel(new QSqlQueryModel(this)), FView(new QTableView(this)),
      FSummary(new QLabel(tr("Press F5 to run the statement."), this))
{
    FView->setModel(FModel);
    FView->setAlternatingRowColors(true);
    FView->setSelectionBehavior(QAbstractItemView::SelectRows);
    FView->verticalHeader()->setDefaultSectionSize(FView->fontMetrics().height() + 6);
    FView->horizontalHeader()->setStretchLastSection(true);
    FSummary->setTextInteractionFlags(Qt::TextSelectableByMouse);
    FSummary->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(FSummary);
    layout->addWidget(FView, 1);
}

bool TVdResultsPane::Run(const QString& sql, const QString& connectionName)
{
    QElapsedTimer timer;
    timer.start();
    QSqlQuery query(QSqlDatabase::database(connectionName, false));
    // The text goes to the engine as printed: no placeholder rewriting by QtSql.
    if (!query.exec(sql)) {
        FModel->clear();
        FSummary->setStyleSheet(QStringLiteral("color: #b00020;"));
        FSummary->setText(tr("The engine refused the statement: %1").arg(query.lastError().text()));
        return false;
    }
    FModel->setQuery(std::move(query));
    while (FModel->canFetchMore() && FModel->rowCount() < MaxRows)
        FModel->fetchMore();
    FView->resizeColumnsToContents();
    FSummary->setStyleSheet(QString());
    const int rows = FModel->rowCount();
    const QString count = rows == 1 ? tr("1 row") : tr("%1 rows").arg(rows);
    FSummary->setText(
        tr("%1 in %2 ms").arg(count).arg(timer.elapsed()) +
        (FModel->canFetchMore() ? tr(" (the first %1 shown)").arg(MaxRows) : QString()));
    return true;
}

int TVdResultsPane::RowCount() const { return FModel->rowCount(); }

QString TVdResultsPane::Summary() const { return FSummary->text(); }

} // namespace vd
