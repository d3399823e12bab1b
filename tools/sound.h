// Recordings, and what they are made of.
#pragma once

#include <string>
#include <vector>

namespace vor::tool {

using Samples = std::vector<float>;

struct Recording {
    int rate = 0;                  // samples a second
    std::vector<Samples> channels; // one or two, of the same length, between -1 and 1
};

// A WAV file of 16-bit PCM samples, mono or stereo. Throws Failure if it is anything else, or shorter
// than it says.
Recording read_wav(const std::string& file);

// Prints the strongest frequencies and the strongest repetition of a recording, and writes its
// spectrogram. The frequency of that repetition in hertz; 0 for two channels, or where there is none. Throws
// Failure if the recording is too short or the picture cannot be written.
double describe_sound(const Recording& recording, const std::string& picture);

} // namespace vor::tool
