// A recorded voice: its spectrogram by real transforms of a length that is no power of two, and its
// pitch by correlation with itself.
#include "tools/sound.h"
#include "tools/tour/chapters.h"

#include <cstdio>
#include <filesystem>

namespace vor::tool {

// The test recordings of the sound system belong to a package of the distribution.
constexpr char kRecording[] = "/usr/share/sounds/alsa/Front_Center.wav";

bool recorded_voice(const Tour& tour) {
    if (!std::filesystem::exists(kRecording)) {
        std::printf("left out: %s is not there (Debian package alsa-utils)\n", kRecording);
        return true;
    }
    std::printf("%s: a voice that says \"front center\"\n", kRecording);
    describe_sound(read_wav(kRecording), tour.output + "/voice.png");
    return true;
}

} // namespace vor::tool
