#pragma once

// A stored procedure in the diagram: a table object whose rows are followed by its input
// parameters, printed as the call's argument list.

#include "diagram/VdFloatTable.h"

namespace vd {

class TVdStoredProc : public TVdTable
{
public:
    TVdStoredProc(TVdWorkArea* workArea, TDataSet* dataSet, const QString& name,
                  const TParams* params);
    ~TVdStoredProc() override;

    const TParams& Params() const { return FParams; }
    TColor GetClientColor() const override;
    // "1, 'abc', :CUST" for the input parameters: a value entered, NULL, or the placeholder.
    QString GetParameters() const;
    // MY PARAM -> MY_PARAM; a name of nothing usable becomes Par<number>.
    static QString PlaceholderName(const QString& name, int number);

private:
    TParams FParams;
};

} // namespace vd
