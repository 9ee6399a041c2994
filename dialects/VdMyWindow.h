#pragma once

// The builder for MySQL: the builder component with the MySQL parser (back-quoted names,
// select options, DISTINCTROW and LIMIT).

#include "builder/VdCustomVandor.h"
#include "dialects/VdMyParser.h"

namespace vd {

class TMySQLVandor : public TCustomVandor
{
    Q_OBJECT

public:
    explicit TMySQLVandor(QObject* owner = nullptr, bool designMode = false);

    std::unique_ptr<TVdSelectParser> CreateParser() override;

    // The parser as its MySQL class; null only if a derived class made another parser.
    TVdMySelectParser* MyParser() const;

protected:
    // For a class derived from this one, which calls Construct itself.
    TMySQLVandor(QObject* owner, bool designMode, TVdDeferConstruct);
};

} // namespace vd
