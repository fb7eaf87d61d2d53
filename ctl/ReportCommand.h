#pragma once

#include "app/Singletons.h"
#include "ctl/Command.h"
#include "platform/Platform.h"

#include <QString>
#include <QStringList>

namespace tamsel::ctl {

// The report that the words behind `tamselctl report` ask for, as text or as JSON.
Answer reportAnswer(const QStringList& arguments, Singletons& singletons, const Platform& platform);

// tamselctl report: what the history's screens show, from the stored journal, which is only read.
ExitCode report(const QStringList& arguments);

} // namespace tamsel::ctl
