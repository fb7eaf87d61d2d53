#include "metronome/SystemAudioSession.h"

#include <QtGlobal>

#include <utility>

namespace tamsel {

namespace {
// PulseAudio and PipeWire take a client's properties from variables of this form.
constexpr const char* roleVariable = "PULSE_PROP_media.role";
} // namespace

SystemAudioSession::SystemAudioSession(std::function<void()> beginRemoteControl)
    : m_beginRemoteControl(std::move(beginRemoteControl)) {}

std::optional<QString> SystemAudioSession::setCategory(Category, Mixing) {
    // Playback is the one category, and other programs always go on sounding. A role that the user has set stays; it is
    // not written twice, as other threads may be reading the environment by then.
    if (qEnvironmentVariableIsSet(roleVariable) || qputenv(roleVariable, "music"))
        return std::nullopt;
    return QStringLiteral("The role of the sound cannot be set");
}

std::optional<QString> SystemAudioSession::activate() {
    return std::nullopt;
}

void SystemAudioSession::beginReceivingRemoteControlEvents() {
    if (m_beginRemoteControl)
        m_beginRemoteControl();
}

} // namespace tamsel
