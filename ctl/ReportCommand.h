#pragma once

#include "ctl/Command.h"
#include "ctl/Journal.h"

#include <QStringList>

namespace tamsel::ctl {

// The report that the words behind `tamselctl report` ask for, as text or as JSON.
Show askedReport(const QStringList& arguments);

// tamselctl report: what the history's screens show, from the stored journal, which is only read.
ExitCode report(const QStringList& arguments);

} // namespace tamsel::ctl
