#include "tools/failure.h"
#include "tools/sound.h"

#include <cstring>
#include <memory>
#include <sndfile.h>
#include <sstream>

namespace vor::tool {

namespace {

// The reader takes what there is of a shortened file; its log tells.
bool ends_early(SNDFILE* file) {
    char log[4096] = "";
    sf_command(file, SFC_GET_LOG_INFO, log, sizeof log);
    std::istringstream lines(log);
    for (std::string line; std::getline(lines, line);)
        if (line.rfind("data :", 0) == 0 && line.find("should be") != std::string::npos)
            return true;
    return false;
}

} // namespace

Recording read_wav(const std::string& file) {
    SF_INFO info{};
    const std::unique_ptr<SNDFILE, int (*)(SNDFILE*)> opened(sf_open(file.c_str(), SFM_READ, &info),
                                                             sf_close);
    if (!opened) {
        std::string reason = sf_strerror(nullptr);
        while (!reason.empty() && (reason.back() == '.' || reason.back() == '\n'))
            reason.pop_back();
        throw Failure(file + ": no WAV file that can be read: " + reason);
    }
    const int container = info.format & SF_FORMAT_TYPEMASK;
    if (container != SF_FORMAT_WAV && container != SF_FORMAT_WAVEX)
        throw Failure(file + ": not a WAV file");
    if ((info.format & SF_FORMAT_SUBMASK) != SF_FORMAT_PCM_16)
        throw Failure(file + ": samples are not 16-bit PCM");
    if (info.channels < 1 || info.channels > 2) throw Failure(file + ": neither mono nor stereo");
    if (ends_early(opened.get())) throw Failure(file + ": ends before its last sample");

    const auto frames = static_cast<size_t>(info.frames),
               width = static_cast<size_t>(info.channels);
    std::vector<float> interleaved(frames * width);
    if (sf_readf_float(opened.get(), interleaved.data(), info.frames) != info.frames)
        throw Failure(file + ": ends before its last sample");
    Recording recording{info.samplerate, std::vector<Samples>(width, Samples(frames))};
    for (size_t i = 0; i < interleaved.size(); ++i)
        recording.channels[i % width][i / width] = interleaved[i];
    return recording;
}

} // namespace vor::tool
