#pragma once

// The demo's command line:
//   vandor-demo [--db URL] [--dialect generic|interbase|firebird|mysql] [--sql FILE]
//               [--print-sql] [--screenshot PNG] [--size WxH]
//               [--page criteria|selection|grouping|sorting]

#include <QSize>
#include <QString>
#include <QStringList>

namespace vd {

struct TVdDemoOptions {
    QString Database; // a URL; empty: the embedded sample
    QString Dialect;  // empty: the one the connection's driver suits
    QString SqlFile;  // empty: the sample query
    bool PrintSql = false;
    QString Screenshot; // PNG path
    QSize Size{1280, 800};
    int Page = -1; // the builder's sheet to show, -1: as it comes
    bool Help = false;
};

// False with error set for an unknown option, a missing value or a bad value. args holds
// the arguments without the program name.
bool ParseDemoOptions(const QStringList& args, TVdDemoOptions& options, QString& error);
QString DemoUsage();

} // namespace vd
