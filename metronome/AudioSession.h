#pragma once

#include <QString>

#include <optional>

namespace tamsel {

// How the program presents itself to the system's sound. Main thread. A step that fails gives the error's description;
// the steps are taken in the order of their declaration.
class AudioSession {
public:
    enum class Category { Playback };
    enum class Mixing { Exclusive, WithOthers };

    virtual ~AudioSession() = default;

    [[nodiscard]] virtual std::optional<QString> setCategory(Category category, Mixing mixing) = 0;
    [[nodiscard]] virtual std::optional<QString> activate() = 0;
    // From here on, play and pause keys outside the window may reach the program.
    virtual void beginReceivingRemoteControlEvents() = 0;
};

} // namespace tamsel
