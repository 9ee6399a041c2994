#pragma once

// The generic-SQL builder: the builder component with the generic parser.

#include "builder/VdCustomVandor.h"

namespace vd {

class TSQLVandor : public TCustomVandor
{
    Q_OBJECT

public:
    explicit TSQLVandor(QObject* owner = nullptr, bool designMode = false);

protected:
    // For a class derived from this one, which calls Construct itself.
    TSQLVandor(QObject* owner, bool designMode, TVdDeferConstruct);
};

} // namespace vd
