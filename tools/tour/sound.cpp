// A vowel: pulses of the voice shaped by three resonances of the mouth, made by convolution; its spectrogram by
// real transforms of a length that is no power of two, and its pitch by correlation with itself.
//
// (Peterson, Barney: Control methods used in a study of the vowels, J. Acoust. Soc. Am. 24 (1952) 175-184. Klatt:
// Software for a cascade/parallel formant synthesizer, ibid. 67 (1980) 971-995.)
#include "tools/sound.h"
#include "tools/failure.h"
#include "tools/tour/chapters.h"
#include "vor_signal.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace vor::tool {

namespace {

constexpr int kRate = 16000;
constexpr double kPitch = 125; // hertz
// Of the vowel in "father", spoken by men: resonances and their widths, in hertz.
constexpr double kFormants[][2] = {{730, 60}, {1090, 90}, {2440, 120}};

Samples convolved(const Samples& a, const Samples& b) {
    Samples sum(a.size() + b.size() - 1);
    if (tavsConv_32f(a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()),
                     sum.data()) != tavStsNoErr)
        throw Failure("convolution failed");
    return sum;
}

// The answer of a resonance to a pulse.
Samples resonance(double frequency, double width) {
    constexpr int kLength = kRate / 20;
    const double pi = std::acos(-1.0);
    Samples h;
    for (int i = 0; i < kLength; ++i) {
        const double t = static_cast<double>(i) / kRate;
        h.push_back(static_cast<float>(std::exp(-pi * width * t) *
                                       std::sin(2 * pi * frequency * (t + 0.5 / kRate))));
    }
    return h;
}

Recording vowel() {
    constexpr int kSeconds = 1, kPeriod = static_cast<int>(kRate / kPitch);
    Samples voice(static_cast<size_t>(kSeconds * kRate));
    for (size_t i = 0; i < voice.size(); i += kPeriod) voice[i] = 1;
    for (const auto& [frequency, width] : kFormants)
        voice = convolved(voice, resonance(frequency, width));
    voice.resize(static_cast<size_t>(kSeconds * kRate));
    float loudest = 0;
    for (const float v : voice) loudest = std::max(loudest, std::fabs(v));
    for (float& v : voice) v *= 0.9f / loudest;
    return {kRate, {voice}};
}

} // namespace

bool spoken_vowel(const Tour& tour) {
    std::printf("the vowel of \"father\": resonances at 730, 1090 and 2440 Hz, pitch %.0f Hz\n",
                kPitch);
    const double pitch = describe_sound(vowel(), tour.output + "/vowel.png");
    const bool agrees = std::fabs(pitch - kPitch) < 1;
    std::printf("pitch found %.1f Hz, made with %.0f Hz: %s\n", pitch, kPitch,
                agrees ? "agrees" : "DIFFERS");
    return agrees;
}

} // namespace vor::tool
