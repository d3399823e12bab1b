// Child processes, for what happens once in the life of a process.
#pragma once

#include <string>
#include <vector>

namespace vor::test {

struct Outcome {
    int status; // exit status; 128 + the signal that ended the child
    std::string out, err;
};

// Runs command[0] with the given environment alone ("NAME=value") in the given folder, and waits.
Outcome run(const std::vector<std::string>& command,
            const std::vector<std::string>& environment = {}, const std::string& folder = ".");

// A folder of its own under the system's temporary one, removed at the end with all it holds.
class Folder {
public:
    Folder();
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    const std::string& path() const { return path_; }
    // Writes a file, making the folders above it, and returns its path.
    std::string write(const std::string& name, const std::string& text) const;

private:
    std::string path_;
};

} // namespace vor::test
