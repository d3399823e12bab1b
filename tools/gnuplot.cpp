#include "tools/gnuplot.h"
#include "tools/output.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vor::tool {

namespace {

// The script goes through a file without a name: no quoting by a shell, no broken pipe.
int spawn_gnuplot(const std::string& script) {
    std::FILE* file = std::tmpfile();
    if (!file) throw Failure("no temporary file for gnuplot's script");
    std::fwrite(script.data(), 1, script.size(), file);
    std::fflush(file);
    std::rewind(file);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, fileno(file), STDIN_FILENO);
    char name[] = "gnuplot", from_stdin[] = "-";
    char* arguments[] = {name, from_stdin, nullptr};
    pid_t child;
    const int error = posix_spawnp(&child, name, &actions, nullptr, arguments, environ);
    int status = 0;
    if (error == 0) waitpid(child, &status, 0);
    posix_spawn_file_actions_destroy(&actions);
    std::fclose(file);
    if (error != 0) throw GnuplotMissing("gnuplot, which draws the pictures, cannot be run");
    return status;
}

} // namespace

void require_gnuplot() {
    if (spawn_gnuplot("") != 0)
        throw GnuplotMissing("gnuplot, which draws the pictures, does not run");
}

void run_gnuplot(const std::string& script, const std::string& output, int width, int height) {
    char piece[] = "/tmp/vor-plot-XXXXXX";
    const int descriptor = mkstemp(piece);
    if (descriptor < 0) throw Failure("no temporary file for gnuplot's picture");
    close(descriptor);
    const std::string head = "set terminal svg size " + std::to_string(width) + "," +
                             std::to_string(height) + " background 'white' noenhanced\n" +
                             "set encoding utf8\nset output " + gnuplot_text(piece) + "\n";
    std::string picture;
    try {
        if (spawn_gnuplot(head + script) != 0) throw Failure(output + ": gnuplot failed");
        std::ifstream in(piece, std::ios::binary);
        picture.assign(std::istreambuf_iterator<char>(in), {});
    } catch (const Failure&) {
        std::remove(piece);
        throw;
    }
    std::remove(piece);
    if (picture.empty()) throw Failure(output + ": gnuplot drew nothing");
    write_whole(output, picture);
}

std::string gnuplot_text(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? std::string("''") : std::string(1, c);
    return quoted + "'";
}

} // namespace vor::tool
