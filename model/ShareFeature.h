#pragma once

#include "model/History.h"
#include "platform/Observable.h"

namespace tamsel {

// The history screen's share action: what is shared is all data, of which the history is what the screen shows. Whoever
// presents the choice of how to share subscribes. Main thread only.
class ShareFeature {
public:
    explicit ShareFeature(const History& history) : m_history(history) {}

    const History& history() const { return m_history; }

    void share() const { m_requested.notify(); }
    Observable& requested() { return m_requested; }

private:
    const History& m_history;
    Observable m_requested;
};

} // namespace tamsel
