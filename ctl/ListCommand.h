#pragma once

#include "app/Singletons.h"
#include "ctl/Command.h"
#include "platform/Platform.h"

#include <QStringList>

namespace tamsel::ctl {

// What the practice list shows: today's log alone, and all of it. As text or as JSON.
Answer logAnswer(const QStringList& arguments, Singletons& singletons, const Platform& platform);
Answer listAnswer(const QStringList& arguments, Singletons& singletons, const Platform& platform);

// tamselctl log and tamselctl list: from the stored data, which is only read.
ExitCode showLog(const QStringList& arguments);
ExitCode showList(const QStringList& arguments);

} // namespace tamsel::ctl
