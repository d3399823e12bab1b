// Pictures of pixels.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace vor::tool {

using Pixel = std::array<unsigned char, 3>; // red, green, blue

// Rows from the top, pixels from the left.
struct Picture {
    Picture(int w, int h)
        : width(w), height(h), pixels(static_cast<size_t>(w) * static_cast<size_t>(h)) {}
    Pixel& at(int x, int y) { return pixels[index(x, y)]; }
    const Pixel& at(int x, int y) const { return pixels[index(x, y)]; }

    int width, height;
    std::vector<Pixel> pixels;

private:
    size_t index(int x, int y) const {
        return static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x);
    }
};

// Both throw Failure. Any format that the reader knows (JPEG, PNG, BMP, ...); written as PNG.
Picture read_picture(const std::string& file);
void write_png(const std::string& file, const Picture& picture);

} // namespace vor::tool
