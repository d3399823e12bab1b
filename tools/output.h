// Files that the tool writes: whole, or not at all.
#pragma once

#include <string>

namespace vor::tool {

// Puts `bytes` into `file`. They go to a new file beside it first, which takes its name when all of it stands
// on the disk: what was there before is not lost to a full disk. What is no regular file (a terminal, a pipe,
// /dev/null) is written as it is. Throws Failure, and leaves no piece behind.
void write_whole(const std::string& file, const std::string& bytes);

// All that the program printed has arrived. Throws Failure.
void check_standard_output();

// One line on stderr that overwrites itself; nothing where stderr is no terminal.
class StatusLine {
public:
    StatusLine();
    ~StatusLine() { clear(); }
    StatusLine(const StatusLine&) = delete;
    StatusLine& operator=(const StatusLine&) = delete;
    void show(const std::string& text);
    void clear();

private:
    bool terminal_, shown_ = false;
};

} // namespace vor::tool
