// Axes of a picture of pixels: ticks at round numbers, in a small font of digits and letters.
#pragma once

#include "tools/picture.h"

namespace vor::tool {

class Axes {
public:
    // The plotted part of the picture: its left and upper edge, its width and height.
    Axes(Picture& picture, int left, int top, int width, int height)
        : picture_(picture), left_(left), top_(top), width_(width), height_(height) {}

    // Values from `first` at the start of an edge to `last` at its end, and their unit.
    void below(double first, double last, const std::string& unit);
    void left(double first, double last, const std::string& unit);
    void right(int x, double first, double last, const std::string& unit); // beside column x

private:
    void text(int x, int y, const std::string& text); // x, y: its upper left corner
    void upright(int x, int tick, double first, double last, const std::string& unit);

    Picture& picture_;
    int left_, top_, width_, height_;
};

} // namespace vor::tool
