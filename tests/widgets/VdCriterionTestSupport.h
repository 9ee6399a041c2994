#pragma once

// Helpers for the criteria editor's tests: a where and a having editor on one host widget,
// sharing one parser, plus lookups of rows and elements by their numbers.

#include "builder/VdQtText.h"
#include "core/VdSelectParser.h"
#include "panels/VdCriterionRow.h"
#include "panels/VdHavingPanel.h"
#include "panels/VdWherePanel.h"

#include <QAction>
#include <QMenu>
#include <QWidget>

#include <gtest/gtest.h>

#include <memory>

namespace vd::test {

class TCriteriaEditors
{
public:
    TCriteriaEditors()
    {
        Host.resize(700, 300);
        Where = new TVdWherePanel(&Host);
        Having = new TVdHavingPanel(&Host);
        for (TVdCriterionPanel* panel :
             {static_cast<TVdCriterionPanel*>(Where), static_cast<TVdCriterionPanel*>(Having)}) {
            panel->resize(700, 300);
            panel->SetParser(&Parser);
            panel->Activate();
        }
    }

    void Load(const std::string& sql)
    {
        Parser.SetExpression(sql);
        Where->RefreshRows();
        Having->RefreshRows();
    }

    QWidget Host;
    TVdSelectParser Parser;
    TVdWherePanel* Where;
    TVdHavingPanel* Having;
};

// The row numbered "1.2." (or the root for " "), in display order over every row.
inline TVdCriterionRow* RowAt(TVdCriterionPanel& panel, const QString& number)
{
    std::function<TVdCriterionRow*(TVdCriterionRows&)> find =
        [&](TVdCriterionRows& rows) -> TVdCriterionRow* {
        for (int i = 0; i < rows.Count(); ++i) {
            TVdCriterionRow* row = rows.Items(i);
            if (row->GetFullIndex() == number)
                return row;
            if (TVdCriterionRow* inner = find(row->Rows()))
                return inner;
        }
        return nullptr;
    };
    return find(panel.Rows());
}

inline QAction* ActionNamed(QMenu* menu, const QString& text)
{
    for (QAction* action : menu->actions())
        if (action->text() == text)
            return action;
    return nullptr;
}

} // namespace vd::test
