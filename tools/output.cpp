#include "tools/output.h"
#include "tools/failure.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace vor::tool {

namespace {

[[noreturn]] void fail(const std::string& file, int error) {
    throw Failure(file + ": cannot be written: " + std::strerror(error));
}

// 0, or the error that ended the writing.
int write_to(int descriptor, const std::string& bytes) {
    size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = write(descriptor, bytes.data() + done, bytes.size() - done);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return count < 0 ? errno : EIO;
        done += static_cast<size_t>(count);
    }
    return 0;
}

void write_special(const std::string& file, const std::string& bytes) {
    std::FILE* const out = std::fopen(file.c_str(), "w");
    if (!out) fail(file, errno);
    int error = write_to(fileno(out), bytes);
    if (std::fclose(out) != 0 && error == 0) error = errno;
    if (error != 0) fail(file, error);
}

} // namespace

void write_whole(const std::string& file, const std::string& bytes) {
    struct stat status;
    const bool exists = stat(file.c_str(), &status) == 0;
    if (exists && !S_ISREG(status.st_mode)) return write_special(file, bytes);
    // A link stays a link.
    std::error_code none;
    const std::string target = exists ? std::filesystem::canonical(file, none).string() : file;
    std::string piece = target + ".XXXXXX";
    const int descriptor = mkstemp(piece.data());
    if (descriptor < 0) fail(file, errno);
    int error = write_to(descriptor, bytes);
    const mode_t mask = umask(0);
    umask(mask);
    if (error == 0 && fchmod(descriptor, exists ? status.st_mode & 07777 : 0666 & ~mask) != 0)
        error = errno;
    if (close(descriptor) != 0 && error == 0) error = errno;
    if (error == 0 && std::rename(piece.c_str(), target.c_str()) != 0) error = errno;
    if (error == 0) return;
    unlink(piece.c_str());
    fail(file, error);
}

void check_standard_output() {
    errno = 0;
    if (std::fflush(stdout) != 0 || std::ferror(stdout))
        throw Failure(std::string("standard output: ") + std::strerror(errno ? errno : EIO));
}

StatusLine::StatusLine() : terminal_(isatty(STDERR_FILENO)) {}

void StatusLine::show(const std::string& text) {
    if (!terminal_) return;
    std::fprintf(stderr, "\r\033[K%s", text.c_str());
    shown_ = true;
}

void StatusLine::clear() {
    if (shown_) std::fputs("\r\033[K", stderr);
    shown_ = false;
}

} // namespace vor::tool
