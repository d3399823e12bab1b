// What a recording is made of: its spectrogram, its strongest frequencies, and the delay at which it
// is most like itself, or one channel most like the other.
//
// (Short-time transform with a Hann window: Harris, On the use of windows for harmonic analysis, Proc.
// IEEE 66 (1978) 51-83.)
#include "tools/commands.h"
#include "tools/failure.h"
#include "tools/picture.h"
#include "tools/sound.h"
#include "vor_signal.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <memory>

namespace vor::tool {

namespace {

constexpr double kWindow = 0.02, kHop = 0.0025; // seconds
constexpr double kLongestDelay = 0.25, kShortestDelay = 0.002;
constexpr double kTop = 8000; // hertz, the upper edge of the picture
constexpr int kPeaks = 3;

void check(TavStatus status, const char* what) {
    if (status != tavStsNoErr)
        throw Failure(std::string(what) + " failed with status " + std::to_string(status));
}

// The power spectrum of windows of one length, whatever number of samples that is.
class Window {
public:
    explicit Window(int length) : length_(length), shape_(size()), spectrum_(size() + 2) {
        DftCtx* object = nullptr;
        check(tavsDFTInitAlloc_R_32f(&object, length, TAV_FFT_DIV_FWD_BY_N, 0), "transform");
        object_.reset(object);
        int bytes = 0;
        check(tavsDFTGetBufSize_R_32f(object, &bytes), "transform");
        buffer_.resize(static_cast<size_t>(bytes) + 1);
        const double step = 2 * std::acos(-1.0) / length;
        for (size_t i = 0; i < size(); ++i)
            shape_[i] = static_cast<float>(0.5 - 0.5 * std::cos(step * static_cast<double>(i)));
    }
    // Power at k * rate / length hertz, k from 0 to length / 2, of the samples from `first` on.
    std::vector<double> power(const float* first) {
        Samples windowed(size());
        std::transform(shape_.begin(), shape_.end(), first, windowed.begin(), std::multiplies<>());
        check(
            tavsDFTFwd_RToCCS_32f(windowed.data(), spectrum_.data(), object_.get(), buffer_.data()),
            "transform");
        std::vector<double> power;
        for (size_t k = 0; k <= size() / 2; ++k)
            power.push_back(std::hypot(spectrum_[2 * k], spectrum_[2 * k + 1]));
        for (double& p : power) p *= p;
        return power;
    }

private:
    size_t size() const { return static_cast<size_t>(length_); }

    struct Free {
        void operator()(DftCtx* object) const { tavsDFTFree_R_32f(object); }
    };
    int length_;
    std::unique_ptr<DftCtx, Free> object_;
    std::vector<char> buffer_;
    Samples shape_, spectrum_;
};

Samples mix(const Recording& recording) {
    Samples all = recording.channels[0];
    for (size_t c = 1; c < recording.channels.size(); ++c)
        for (size_t i = 0; i < all.size(); ++i) all[i] += recording.channels[c][i];
    return all;
}

using Spectrogram = std::vector<std::vector<double>>; // by time, then by frequency

Spectrogram spectrogram(const Samples& samples, int length, int hop) {
    Window window(length);
    Spectrogram columns;
    for (size_t at = 0; at + static_cast<size_t>(length) <= samples.size();
         at += static_cast<size_t>(hop))
        columns.push_back(window.power(samples.data() + at));
    return columns;
}

// Black, blue, red, yellow, white over five decades of power.
Pixel colour(double power, double loudest) {
    constexpr double kDecades = 5;
    static constexpr Pixel kStops[] = {
        {0, 0, 8}, {40, 20, 130}, {190, 40, 90}, {250, 180, 40}, {255, 255, 240}};
    const double level = power > 0 && loudest > 0 ? 1 + std::log10(power / loudest) / kDecades : 0;
    const double place = std::clamp(level, 0.0, 1.0) * 4;
    const int below = std::min(static_cast<int>(place), 3);
    const double part = place - below;
    Pixel pixel;
    for (size_t i = 0; i < pixel.size(); ++i)
        pixel[i] = static_cast<unsigned char>(kStops[below][i] * (1 - part) +
                                              kStops[below + 1][i] * part + 0.5);
    return pixel;
}

void draw(const Spectrogram& columns, double spacing, double top, const std::string& file) {
    constexpr int kTall = 3; // pixels for one frequency
    const int bins = static_cast<int>(std::min(top / spacing, columns[0].size() - 1.0)) + 1;
    double loudest = 0;
    for (const auto& column : columns)
        loudest = std::max(loudest, *std::max_element(column.begin(), column.end()));
    Picture picture(static_cast<int>(columns.size()), bins * kTall);
    for (int x = 0; x < picture.width; ++x)
        for (int y = 0; y < picture.height; ++y)
            picture.at(x, picture.height - 1 - y) =
                colour(columns[static_cast<size_t>(x)][static_cast<size_t>(y / kTall)], loudest);
    write_png(file, picture);
}

// The highest peaks of the mean power over time.
void print_strongest(const Spectrogram& columns, double spacing) {
    std::vector<double> mean(columns[0].size());
    for (const auto& column : columns)
        for (size_t k = 0; k < mean.size(); ++k) mean[k] += column[k] / columns.size();
    std::vector<size_t> peaks;
    for (size_t k = 1; k + 1 < mean.size(); ++k)
        if (mean[k] > mean[k - 1] && mean[k] >= mean[k + 1]) peaks.push_back(k);
    std::sort(peaks.begin(), peaks.end(), [&](size_t a, size_t b) { return mean[a] > mean[b]; });
    if (peaks.empty()) {
        std::printf("no frequency stands out\n");
        return;
    }
    std::printf("strongest frequencies, to %.0f Hz:", spacing / 2);
    for (size_t i = 0; i < peaks.size() && i < kPeaks; ++i)
        std::printf("%s %.0f Hz (%.1f dB)", i ? "," : "", static_cast<double>(peaks[i]) * spacing,
                    10 * std::log10(mean[peaks[i]] / mean[peaks[0]]));
    std::printf("\n");
}

// The delay at which `b` is most like `a`: of two channels any up to the longest, of one channel from
// the shortest echo on.
void print_delay(const Recording& recording) {
    const bool stereo = recording.channels.size() == 2;
    const Samples& a = recording.channels.front();
    const Samples& b = recording.channels.back();
    const int n = static_cast<int>(a.size());
    const int longest = std::min(static_cast<int>(kLongestDelay * recording.rate), n - 1);
    const int lowest = stereo ? -longest : static_cast<int>(kShortestDelay * recording.rate);
    if (lowest >= longest) return;
    Samples likeness(static_cast<size_t>(longest - lowest + 1));
    check(tavsCrossCorr_32f(a.data(), n, b.data(), n, likeness.data(),
                            static_cast<int>(likeness.size()), lowest),
          "correlation");
    const auto best = std::max_element(likeness.begin(), likeness.end());
    const auto energy = [](const Samples& x) {
        double sum = 0;
        for (float v : x) sum += static_cast<double>(v) * v;
        return sum;
    };
    const double whole = std::sqrt(energy(a) * energy(b));
    if (!(whole > 0)) {
        std::printf("silence: nothing to compare\n");
        return;
    }
    const double delay =
        1000.0 * (lowest + static_cast<int>(best - likeness.begin())) / recording.rate;
    if (stereo)
        std::printf("the channels are most alike with a delay of %.2f ms, to %.0f%%\n", delay,
                    100 * *best / whole);
    else
        std::printf(
            "most like itself after %.2f ms, to %.0f%%: an echo, or the period of a tone of "
            "%.0f Hz\n",
            delay, 100 * *best / whole, 1000 / delay);
}

} // namespace

void describe_sound(const Recording& recording, const std::string& picture) {
    const Samples samples = mix(recording);
    const int length = static_cast<int>(std::lround(kWindow * recording.rate));
    const int hop = std::max(1, static_cast<int>(kHop * recording.rate));
    std::printf("%.2f seconds, %d samples a second, %zu channel%s\n",
                static_cast<double>(samples.size()) / recording.rate, recording.rate,
                recording.channels.size(), recording.channels.size() > 1 ? "s" : "");
    if (length < 4 || samples.size() < static_cast<size_t>(length))
        throw Failure("the recording is shorter than one window of " + std::to_string(length) +
                      " samples");
    const Spectrogram columns = spectrogram(samples, length, hop);
    const double spacing = static_cast<double>(recording.rate) / length;
    print_strongest(columns, spacing);
    print_delay(recording);
    draw(columns, spacing, kTop, picture);
    std::printf(
        "\nspectrogram: %s (%zu windows of %d samples, left to right; 0 to %.0f Hz, bottom to "
        "top)\n",
        picture.c_str(), columns.size(), length, std::min(kTop, recording.rate / 2.0));
}

void add_spectrum(CLI::App& app) {
    auto file = std::make_shared<std::string>();
    auto output = std::make_shared<std::string>("spectrum.png");
    CLI::App* command =
        app.add_subcommand("spectrum", "spectrogram and strongest frequencies of a recording");
    command->add_option("FILE", *file, "a WAV file, 16-bit PCM, mono or stereo")->required();
    command->add_option("--output", *output, "the picture to write")->type_name("FILE.png");
    command->callback([=] { describe_sound(read_wav(*file), *output); });
}

} // namespace vor::tool
