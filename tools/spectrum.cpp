// What a recording is made of: its spectrogram, its strongest frequencies, and the delay at which it
// is most like itself, or one channel most like the other.
//
// (Short-time transform with a Hann window: Harris, On the use of windows for harmonic analysis, Proc.
// IEEE 66 (1978) 51-83.)
#include "tools/axes.h"
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
constexpr double kDecades = 5; // of power, from black to white

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

constexpr size_t kMostColumns = 2000; // of the picture

// Powers by time, at most kMostColumns of them, each the mean over neighbouring windows; and the mean of all.
struct Spectrogram {
    std::vector<std::vector<double>> columns;
    std::vector<double> mean;
    size_t windows = 0;
};

void add_to(std::vector<double>& sum, const std::vector<double>& power) {
    if (sum.empty()) sum.assign(power.size(), 0);
    for (size_t k = 0; k < power.size(); ++k) sum[k] += power[k];
}
void divide(std::vector<double>& sum, size_t count) {
    for (double& value : sum) value /= static_cast<double>(count);
}

Spectrogram spectrogram(const Samples& samples, int length, int hop) {
    Window window(length);
    Spectrogram result;
    const size_t last = samples.size() - static_cast<size_t>(length),
                 step = static_cast<size_t>(hop);
    const size_t all = last / step + 1, together = (all - 1) / kMostColumns + 1;
    for (size_t first = 0; first < all; first += together) {
        const size_t count = std::min(together, all - first);
        std::vector<double> sum;
        for (size_t k = first; k < first + count; ++k)
            add_to(sum, window.power(samples.data() + k * step));
        add_to(result.mean, sum);
        divide(sum, count);
        result.columns.push_back(std::move(sum));
    }
    divide(result.mean, all);
    result.windows = all;
    return result;
}

// Black, blue, red, yellow, white over five decades of power.
Pixel colour(double power, double loudest) {
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

// The picture, with axes in seconds and hertz and the scale of the colours.
void draw(const Spectrogram& all, double seconds, double spacing, double top,
          const std::string& file) {
    constexpr int kLeft = 64, kBelow = 40, kAbove = 12, kRight = 76, kScale = 14;
    constexpr int kLeastWide = 400, kTall = 3; // pixels, and pixels for one frequency
    const int bins = static_cast<int>(std::min(top / spacing, all.mean.size() - 1.0)) + 1;
    const int count = static_cast<int>(all.columns.size());
    const int wide = std::max(count, kLeastWide), high = bins * kTall;
    double loudest = 0;
    for (const auto& column : all.columns)
        loudest = std::max(loudest, *std::max_element(column.begin(), column.end()));
    Picture picture(kLeft + wide + kRight, kAbove + high + kBelow);
    std::fill(picture.pixels.begin(), picture.pixels.end(), Pixel{255, 255, 255});
    for (int x = 0; x < wide; ++x) {
        const auto& column = all.columns[static_cast<size_t>(1LL * x * count / wide)];
        for (int y = 0; y < high; ++y)
            picture.at(kLeft + x, kAbove + high - 1 - y) =
                colour(column[static_cast<size_t>(y / kTall)], loudest);
    }
    Axes axes(picture, kLeft, kAbove, wide, high);
    axes.below(0, seconds, "seconds");
    axes.left(0, (bins - 1) * spacing / 1000, "kHz");
    for (int y = 0; y < high; ++y)
        for (int x = 0; x < kScale; ++x)
            picture.at(kLeft + wide + 12 + x, kAbove + high - 1 - y) =
                colour(std::pow(10, kDecades * (1.0 * y / high - 1)), 1);
    axes.right(kLeft + wide + 12 + kScale, -10 * kDecades, 0, "dB");
    write_png(file, picture);
}

// Frequencies whose mean power stands above their surroundings and above the noise of the samples.
void print_strongest(const Spectrogram& all, double spacing) {
    constexpr double kStandsOut = 4; // times the median power: a peak of noise reaches half of that
    constexpr double kSilence = 1e-10; // power of the rounding of 16-bit samples, about
    const std::vector<double>& mean = all.mean;
    std::vector<double> sorted = mean;
    std::nth_element(sorted.begin(), sorted.begin() + sorted.size() / 2, sorted.end());
    const double least = std::max(kSilence, kStandsOut * sorted[sorted.size() / 2]);
    std::vector<size_t> peaks;
    // The window spreads a constant over two places beside frequency 0.
    for (size_t k = 2; k + 1 < mean.size(); ++k)
        if (mean[k] > mean[k - 1] && mean[k] >= mean[k + 1] && mean[k] > least) peaks.push_back(k);
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
double print_delay(const Recording& recording) {
    const bool stereo = recording.channels.size() == 2;
    const Samples& a = recording.channels.front();
    const Samples& b = recording.channels.back();
    const int n = static_cast<int>(a.size());
    const int longest = std::min(static_cast<int>(kLongestDelay * recording.rate), n - 1);
    const int lowest = stereo ? -longest : static_cast<int>(kShortestDelay * recording.rate);
    if (lowest >= longest) return 0;
    Samples likeness(static_cast<size_t>(longest - lowest + 1));
    check(tavsCrossCorr_32f(a.data(), n, b.data(), n, likeness.data(),
                            static_cast<int>(likeness.size()), lowest),
          "correlation");
    auto best = std::max_element(likeness.begin(), likeness.end());
    // A tone is like itself after each of its periods: the first of the highest peaks is the period.
    if (!stereo && *best > 0) {
        constexpr float kAsHigh = 0.97f;
        for (auto peak = likeness.begin() + 1; peak + 1 < likeness.end(); ++peak)
            if (*peak >= kAsHigh * *best && peak[0] > peak[-1] && peak[0] >= peak[1]) {
                best = peak;
                break;
            }
    }
    const auto energy = [](const Samples& x) {
        double sum = 0;
        for (float v : x) sum += static_cast<double>(v) * v;
        return sum;
    };
    const double whole = std::sqrt(energy(a) * energy(b));
    if (!(whole > 0)) {
        std::printf("silence: nothing to compare\n");
        return 0;
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
    return stereo ? 0 : 1000 / delay;
}

} // namespace

double describe_sound(const Recording& recording, const std::string& picture) {
    const Samples samples = mix(recording);
    const int length = static_cast<int>(std::lround(kWindow * recording.rate));
    const int hop = std::max(1, static_cast<int>(kHop * recording.rate));
    std::printf("%.2f seconds, %d samples a second, %zu channel%s\n",
                static_cast<double>(samples.size()) / recording.rate, recording.rate,
                recording.channels.size(), recording.channels.size() > 1 ? "s" : "");
    if (length < 4 || samples.size() < static_cast<size_t>(length))
        throw Failure("the recording is shorter than one window of " + std::to_string(length) +
                      " samples");
    const Spectrogram all = spectrogram(samples, length, hop);
    const double spacing = static_cast<double>(recording.rate) / length;
    print_strongest(all, spacing);
    const double pitch = print_delay(recording);
    draw(all, static_cast<double>(samples.size()) / recording.rate, spacing, kTop, picture);
    std::printf(
        "\nspectrogram: %s (%zu windows of %d samples, left to right; 0 to %.0f Hz, bottom to "
        "top)\n",
        picture.c_str(), all.windows, length, std::min(kTop, recording.rate / 2.0));
    return pitch;
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
