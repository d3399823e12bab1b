#include "tools/picture.h"
#include "tools/failure.h"
#include "tools/output.h"

#include <cstring>
#include <memory>

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wall"
#pragma GCC diagnostic ignored "-Wextra"
#pragma GCC diagnostic ignored "-Wshadow"
#pragma GCC diagnostic ignored "-Wunused-function"
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_NO_SIMD
#include <stb/stb_image.h>
#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#include <stb/stb_image_write.h>
#pragma GCC diagnostic pop

namespace vor::tool {

constexpr int kColours = 3;

Picture read_picture(const std::string& file) {
    int width = 0, height = 0, channels = 0;
    const std::unique_ptr<stbi_uc, void (*)(void*)> data(
        stbi_load(file.c_str(), &width, &height, &channels, kColours), stbi_image_free);
    if (!data) throw Failure(file + ": " + stbi_failure_reason());
    Picture picture(width, height);
    std::memcpy(picture.pixels.data(), data.get(), picture.pixels.size() * sizeof(Pixel));
    return picture;
}

void write_png(const std::string& file, const Picture& picture) {
    std::string bytes;
    const auto append = [](void* to, void* data, int size) {
        static_cast<std::string*>(to)->append(static_cast<const char*>(data),
                                              static_cast<size_t>(size));
    };
    if (!stbi_write_png_to_func(append, &bytes, picture.width, picture.height, kColours,
                                picture.pixels.data(), picture.width * kColours))
        throw Failure(file + ": no memory for the picture");
    write_whole(file, bytes);
}

} // namespace vor::tool
