#pragma once

#include "app/Singletons.h"
#include "model/Exercise.h"
#include "model/PracticeSession.h"

#include <QList>
#include <QString>

#include <optional>

namespace tamsel {

// The last archiving or deleting on the practice list, which can be taken back. Main thread only.
class LastRemoval {
public:
    explicit LastRemoval(Singletons& singletons) : m_singletons(singletons) {}

    // Each is called before the removal takes place and replaces the one before. An item that is in no list leaves
    // nothing to take back.
    void archiving(const Exercise& exercise);
    void deleting(const Exercise& exercise);

    bool isThere() const { return m_removal.has_value(); }
    bool isOf(const Exercise& exercise) const { return m_removal && m_removal->exercise.id == exercise.id; }
    // Such as "Archived “C Major Scales”": the verb first, so that a long name can be cut short. Empty without one.
    QString text() const;

    // Brings the item back to its place, after an archiving together with its sessions in today's log. What was changed
    // since, such as its name, stays changed. Does nothing without a removal.
    void takeBack();
    void forget() { m_removal.reset(); }

private:
    struct Session {
        qsizetype position;
        PracticeSession session;
    };
    struct Removal {
        bool wasArchiving;
        Exercise exercise;
        qsizetype position; // in the list that it was taken from
        QList<Session> sessions;
    };

    void takeBackArchiving(const Removal& removal);
    void takeBackDeleting(const Removal& removal);

    Singletons& m_singletons;
    std::optional<Removal> m_removal;
};

} // namespace tamsel
