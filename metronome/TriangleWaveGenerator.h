#pragma once

#include "metronome/AudioFormat.h"
#include "metronome/SoundBuffer.h"

namespace tamsel {

// Writes a triangle wave that starts at its positive peak. All of it is single-precision arithmetic.
struct TriangleWaveGenerator {
    TriangleWaveGenerator() = delete;
    TriangleWaveGenerator(float peak, float frames, float frequencyHz, float rate)
        : amplitude(peak), frameCount(frames), freqHz(frequencyHz), sampleRate(rate) {}

    // Fills the buffer's frames, every channel alike, without any fade: the hard edges belong to the click's sound.
    // Logs the buffer.
    void fill(SoundBuffer& buffer);

    float amplitude;
    float frameCount; // how many were written last
    float freqHz;
    float sampleRate; // frames per second
};

// One click: 20 milliseconds of the wave at twice full scale, so that the output stage drives it into clipping. Stops
// the program where the buffer cannot be made.
SoundBuffer makeClickBuffer(const AudioFormat& format, float freqHz);

} // namespace tamsel
