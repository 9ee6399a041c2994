#pragma once

// A host for builder tests: answers the table-fields question from data sets it keeps, and
// records the add/remove questions it was asked.

#include "builder/VdCustomVandor.h"
#include "builder/VdDataSet.h"

#include <QString>

#include <initializer_list>
#include <map>
#include <utility>
#include <vector>

namespace vd::test {

class TFakeHost
{
public:
    TDataSet& Table(const QString& name)
    {
        TDataSet& dataSet = FDataSets[name];
        dataSet.SetName(name);
        return dataSet;
    }
    TParams& Params(const QString& name) { return FParams[name]; }
    // A table of these fields, in order.
    TDataSet& Table(const QString& name,
                    std::initializer_list<std::pair<const char*, TFieldType>> fields)
    {
        TDataSet& dataSet = Table(name);
        for (const auto& [field, type] : fields)
            dataSet.AddField(QString::fromLatin1(field), type);
        return dataSet;
    }

    // Answers only the tables it knows; parameters only where some were given.
    void Attach(TCustomVandor& vandor)
    {
        vandor.OnGetTableFields = [this](const QString& name, TDataSet*& dataSet,
                                         TParams*& params) {
            Asked.push_back(name);
            auto found = FDataSets.find(name);
            if (found != FDataSets.end())
                dataSet = &found->second;
            auto foundParams = FParams.find(name);
            if (foundParams != FParams.end())
                params = &foundParams->second;
        };
        vandor.OnAddRemoveTable = [this](QObject*, TVdTable*, TVdAction action, bool& accept) {
            TableQuestions.push_back(action);
            accept = AcceptTables;
        };
        vandor.OnAddRemoveLink = [this](QObject*, TVdLink*, TVdAction action, bool& accept) {
            LinkQuestions.push_back(action);
            accept = AcceptLinks;
        };
    }

    std::vector<QString> Asked;
    std::vector<TVdAction> TableQuestions;
    std::vector<TVdAction> LinkQuestions;
    bool AcceptTables = true;
    bool AcceptLinks = true;

private:
    std::map<QString, TDataSet> FDataSets;
    std::map<QString, TParams> FParams;
};

} // namespace vd::test
