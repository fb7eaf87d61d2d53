#pragma once

#include "metronome/AudioSession.h"

#include <functional>

namespace tamsel {

// A desktop's sound server mixes all programs and asks none to activate; what it can be told is what kind of sound this
// is, so that the system's rules for music apply to it.
class SystemAudioSession final : public AudioSession {
public:
    // `beginRemoteControl` is what makes the system's play and pause keys reach the program; empty where nothing does.
    explicit SystemAudioSession(std::function<void()> beginRemoteControl = {});

    // To take effect it must come before the sound server is first reached. Changes the process's environment.
    std::optional<QString> setCategory(Category category, Mixing mixing) override;
    std::optional<QString> activate() override;
    void beginReceivingRemoteControlEvents() override;

private:
    const std::function<void()> m_beginRemoteControl;
};

} // namespace tamsel
