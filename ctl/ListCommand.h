#pragma once

#include "ctl/Command.h"
#include "ctl/Journal.h"

#include <QStringList>

namespace tamsel::ctl {

// What the practice list shows: today's log alone, and all of it. As text or as JSON.
Show askedLog(const QStringList& arguments);
Show askedList(const QStringList& arguments);

// tamselctl log and tamselctl list: from the stored data, which is only read.
ExitCode showLog(const QStringList& arguments);
ExitCode showList(const QStringList& arguments);

} // namespace tamsel::ctl
