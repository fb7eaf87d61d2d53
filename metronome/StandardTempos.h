#pragma once

#include <QtGlobal>

// The traditional tempos that a mechanical metronome offers, in whole beats per minute. Pure functions, any thread.
namespace tamsel::standardTempos {

// The first one above `tempo`; `tempo` itself where there is none.
qint64 above(qint64 tempo);
// The last one below `tempo`; `tempo` itself where there is none.
qint64 below(qint64 tempo);
// The closest one; of two that are equally close, the lower.
qint64 nearest(double tempo);

} // namespace tamsel::standardTempos
