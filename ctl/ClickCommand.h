#pragma once

#include "ctl/Command.h"

namespace tamsel::ctl {

// tamselctl click: writes what the metronome would play as a WAV file.
ExitCode click(const QStringList& arguments);

} // namespace tamsel::ctl
