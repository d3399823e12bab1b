#include "tests/common/child.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace vor::test {

namespace {

std::vector<char*> pointers(const std::vector<std::string>& texts) {
    std::vector<char*> result;
    for (const std::string& text : texts) result.push_back(const_cast<char*>(text.c_str()));
    result.push_back(nullptr);
    return result;
}

std::string contents(std::FILE* file) {
    std::string text;
    std::rewind(file);
    for (int c; (c = std::fgetc(file)) != EOF;) text += static_cast<char>(c);
    std::fclose(file);
    return text;
}

} // namespace

Outcome run(const std::vector<std::string>& command, const std::vector<std::string>& environment,
            const std::string& folder) {
    const auto arguments = pointers(command), variables = pointers(environment);
    std::FILE *out = std::tmpfile(), *err = std::tmpfile();
    if (!out || !err) throw std::runtime_error("no temporary file");
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("no child process");
    if (child == 0) {
        dup2(fileno(out), 1);
        dup2(fileno(err), 2);
        if (chdir(folder.c_str()) == 0) execve(arguments[0], arguments.data(), variables.data());
        _exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), contents(out),
            contents(err)};
}

Folder::Folder()
    : path_(std::filesystem::temp_directory_path() / ("vor-test-" + std::string(6, 'X'))) {
    if (!mkdtemp(path_.data())) throw std::runtime_error("no temporary folder");
}

Folder::~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string Folder::write(const std::string& name, const std::string& text) const {
    const std::filesystem::path file = std::filesystem::path(path_) / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
    return file.string();
}

} // namespace vor::test
