#pragma once

// A builder shown offscreen on one of its pages, with a host that knows CUSTOMER and ORDERS,
// a recording dialog service, and helpers that check the model and its print after an edit.

#include "VdFakeHost.h"

#include "builder/VdPageControl.h"
#include "builder/VdQtText.h"
#include "builder/VdRecordingDialogService.h"
#include "builder/VdSQLVandor.h"
#include "builder/VdTableList.h"
#include "core/VdSelectParser.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"
#include "panels/VdOrderPanel.h"
#include "panels/VdSelectGrid.h"
#include "panels/VdSelectPanel.h"
#include "tests/core/ModelCheck.h"

#include <QApplication>
#include <QFont>
#include <QSignalSpy>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace vd::test {

// One recorded grid event: its kind ("select", "unselect", "delete", "alias") and arguments.
struct TGridEvent {
    QString Kind;
    QStringList Args;
    bool operator==(const TGridEvent& other) const
    {
        return Kind == other.Kind && Args == other.Args;
    }
};

inline void PrintTo(const TGridEvent& event, std::ostream* out)
{
    *out << event.Kind.toStdString() << "(" << event.Args.join(QStringLiteral(", ")).toStdString()
         << ")";
}

// Records the grid's events, then passes them on to the builder's handlers as wired.
inline void RecordGridEvents(TVdSelectGrid& grid, std::vector<TGridEvent>& events)
{
    const auto wrap = [&events](const char* kind, TVdSelectEvent next) {
        return [&events, kind, next](const QString& f, const QString& a, const QString& n) {
            events.push_back({QString::fromLatin1(kind), {f, a, n}});
            if (next)
                next(f, a, n);
        };
    };
    grid.OnSelectField = wrap("select", grid.OnSelectField);
    grid.OnUnselectField = wrap("unselect", grid.OnUnselectField);
    grid.OnDeleteField = wrap("delete", grid.OnDeleteField);
    TVdChangeFieldAliasEvent alias = grid.OnChangeAlias;
    grid.OnChangeAlias = [&events, alias](const QString& f, const QString& a, QString& n) {
        events.push_back({QStringLiteral("alias"), {f, a, n}});
        if (alias)
            alias(f, a, n);
    };
}

class SelectionFixture : public ::testing::Test
{
protected:
    void SetUp() override
    {
        TDataSet& customer = Host.Table(QStringLiteral("CUSTOMER"));
        customer.AddField(QStringLiteral("CUSTNO"), ftInteger);
        customer.AddField(QStringLiteral("NAME"), ftString);
        customer.AddField(QStringLiteral("CITY"), ftString);
        TDataSet& orders = Host.Table(QStringLiteral("ORDERS"));
        orders.AddField(QStringLiteral("ORDERNO"), ftInteger);
        orders.AddField(QStringLiteral("CUSTNO"), ftInteger);
        orders.AddField(QStringLiteral("AMOUNT"), ftCurrency);
        Vandor = std::make_unique<TSQLVandor>();
        Vandor->setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
        Host.Attach(*Vandor);
        // Names print bare, so the expected statements read as written.
        Vandor->SetQuoteIdentifiers(false);
        Vandor->resize(700, 520);
        Vandor->show();
        QApplication::setActiveWindow(Vandor.get());
        Changed = std::make_unique<QSignalSpy>(Vandor.get(), &TCustomVandor::sqlChanged);
    }

    void TearDown() override { Vandor.reset(); }

    // Loads the statement and shows the sheet (1 Selection, 3 Sorting).
    void Load(const char* sql, int sheet)
    {
        Vandor->PageControl()->setCurrentIndex(sheet);
        Vandor->SetSQL(QString::fromUtf8(sql));
        Vandor->RefreshActivePage();
        QApplication::processEvents();
        Changed->clear();
    }

    TVdSelectParser& Parser() const { return *Vandor->Parser(); }
    TVdSelectGrid& Grid() const { return *Vandor->SelectPanel()->Grid(); }
    TVdOrderPanel& Order() const { return *Vandor->OrderPanel(); }
    TVdTable* Table(const char* alias) const
    {
        return Vandor->TableList()->FindByAlias(QString::fromUtf8(alias));
    }
    std::string Sql() const { return Vandor->GetSQL().toStdString(); }

    QStringList Row(int row) const
    {
        return {Grid().CellText(row, 0), Grid().CellText(row, 1), Grid().CellText(row, 2)};
    }

    TFakeHost Host;
    TVdRecordingDialogService Dialogs;
    std::unique_ptr<TSQLVandor> Vandor;
    std::unique_ptr<QSignalSpy> Changed;
};

} // namespace vd::test
