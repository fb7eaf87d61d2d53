#pragma once

#include "metronome/AudioSession.h"

#include <QStringList>

namespace tamsel::test {

// Notes the steps taken and fails those that the test sets an error for.
class FakeAudioSession final : public AudioSession {
public:
    std::optional<QString> setCategory(Category, Mixing mixing) override {
        steps += mixing == Mixing::WithOthers ? QStringLiteral("setCategory mixing") : QStringLiteral("setCategory");
        return categoryError;
    }
    std::optional<QString> activate() override {
        steps += QStringLiteral("activate");
        return activateError;
    }
    void beginReceivingRemoteControlEvents() override { steps += QStringLiteral("remote control"); }

    QStringList steps;
    std::optional<QString> categoryError;
    std::optional<QString> activateError;
};

} // namespace tamsel::test
