#include "tools/axes.h"

#include <cmath>
#include <cstdio>
#include <map>

namespace vor::tool {

namespace {

constexpr Pixel kInk = {40, 40, 40};
constexpr int kGlyphWide = 5, kGlyphHigh = 7, kAdvance = 6, kTick = 5;

// Rows of 5 bits from the top, the left pixel highest.
const std::map<char, std::array<unsigned char, kGlyphHigh>> kFont = {
    {'0', {14, 17, 19, 21, 25, 17, 14}}, {'1', {4, 12, 4, 4, 4, 4, 14}},
    {'2', {14, 17, 1, 6, 8, 16, 31}},    {'3', {31, 2, 4, 2, 1, 17, 14}},
    {'4', {2, 6, 10, 18, 31, 2, 2}},     {'5', {31, 16, 30, 1, 1, 17, 14}},
    {'6', {6, 8, 16, 30, 17, 17, 14}},   {'7', {31, 1, 2, 4, 8, 8, 8}},
    {'8', {14, 17, 17, 14, 17, 17, 14}}, {'9', {14, 17, 17, 15, 1, 2, 12}},
    {'.', {0, 0, 0, 0, 0, 12, 12}},      {'-', {0, 0, 0, 31, 0, 0, 0}},
    {'s', {0, 0, 15, 16, 14, 1, 30}},    {'e', {0, 0, 14, 17, 31, 16, 14}},
    {'c', {0, 0, 14, 16, 16, 17, 14}},   {'o', {0, 0, 14, 17, 17, 17, 14}},
    {'n', {0, 0, 22, 25, 17, 17, 17}},   {'d', {1, 1, 13, 19, 17, 17, 15}},
    {'k', {16, 16, 18, 20, 24, 20, 18}}, {'H', {17, 17, 17, 31, 17, 17, 17}},
    {'z', {0, 0, 31, 2, 4, 8, 31}},      {'B', {30, 17, 17, 30, 17, 17, 30}}};

// 1, 2 or 5 times a power of ten, so that about `wanted` steps make `range`.
double round_step(double range, double wanted) {
    const double power = std::pow(10, std::floor(std::log10(range / wanted)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (range / (factor * power) <= wanted) return factor * power;
    return 10 * power;
}

std::string label(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", std::fabs(value) < 1e-9 ? 0.0 : value);
    return text;
}

// f(value, share of the way) at each tick.
template <class F>
void for_ticks(double first, double last, double wanted, F f) {
    if (!(last > first)) return;
    const double step = round_step(last - first, wanted);
    for (double k = std::ceil(first / step); k * step <= last * (1 + 1e-12) + 1e-12; ++k)
        f(k * step, (k * step - first) / (last - first));
}

} // namespace

void Axes::text(int x, int y, const std::string& line) {
    for (const char c : line) {
        const auto glyph = kFont.find(c);
        for (int row = 0; glyph != kFont.end() && row < kGlyphHigh; ++row)
            for (int column = 0; column < kGlyphWide; ++column) {
                const int px = x + column, py = y + row;
                const bool inside =
                    px >= 0 && px < picture_.width && py >= 0 && py < picture_.height;
                if (inside &&
                    glyph->second[static_cast<size_t>(row)] >> (kGlyphWide - 1 - column) & 1)
                    picture_.at(px, py) = kInk;
            }
        x += kAdvance;
    }
}

void Axes::below(double first, double last, const std::string& unit) {
    const int y = top_ + height_;
    for_ticks(first, last, width_ / 80.0, [&](double value, double share) {
        const int x = left_ + static_cast<int>(share * (width_ - 1));
        for (int k = 0; k < kTick; ++k) picture_.at(x, y + k) = kInk;
        const std::string number = label(value);
        text(x - kAdvance * static_cast<int>(number.size()) / 2, y + kTick + 3, number);
    });
    text(left_ + width_ / 2 - kAdvance * static_cast<int>(unit.size()) / 2, y + kTick + 16, unit);
}

void Axes::upright(int x, int tick, double first, double last, const std::string& unit) {
    for_ticks(first, last, height_ / 40.0, [&](double value, double share) {
        const int y = top_ + height_ - 1 - static_cast<int>(share * (height_ - 1));
        for (int k = 0; k < kTick; ++k) picture_.at(x + tick * k, y) = kInk;
        const std::string number = label(value);
        const int wide = kAdvance * static_cast<int>(number.size());
        text(tick < 0 ? x - kTick - 3 - wide : x + kTick + 3, y - kGlyphHigh / 2, number);
    });
    text(tick < 0 ? 4 : x + kTick + 3, top_ + height_ + 3, unit);
}

void Axes::left(double first, double last, const std::string& unit) {
    upright(left_ - 1, -1, first, last, unit);
}

void Axes::right(int x, double first, double last, const std::string& unit) {
    upright(x, 1, first, last, unit);
}

} // namespace vor::tool
