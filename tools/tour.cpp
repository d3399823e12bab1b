// vor tour: the library at work on real data, chapter by chapter.
#include "tools/commands.h"
#include "tools/failure.h"
#include "tools/gnuplot.h"
#include "tools/tour/chapters.h"

#include <cstdio>
#include <filesystem>
#include <iterator>
#include <memory>
#include <vector>

namespace vor::tool {

namespace fs = std::filesystem;

namespace {

struct Chapter {
    const char* title;
    bool (*run)(const Tour&);
    bool takes_file; // works on the user's data, if there are any
};

const Chapter chapters[] = {
    {"Principal components", principal_components, true},
    {"A photograph in a fraction of its numbers", compressed_photograph, false},
    {"A vowel and its resonances", spoken_vowel, false},
    {"The period of the sunspots", sunspot_period, false},
    {"A beam of finite elements", bent_beam, false},
    {"A plate heated at its edge", heated_plate, false},
    {"What the packages of this machine lean on", leaning_packages, false},
    {"Long integers", long_integers, false},
};

// Makes a folder and those above it; takes those that it made, and that are still empty, away again at the end.
class EmptyFolders {
public:
    explicit EmptyFolders(const fs::path& path) {
        for (fs::path at = fs::absolute(path); !fs::exists(at) && at != at.parent_path();
             at = at.parent_path())
            made_.push_back(at);
        std::error_code error;
        fs::create_directories(path, error);
        if (!fs::is_directory(path)) throw Failure(path.string() + ": cannot be made a directory");
    }
    ~EmptyFolders() {
        std::error_code none;
        for (const fs::path& folder : made_)
            if (fs::is_empty(folder, none)) fs::remove(folder, none);
    }
    EmptyFolders(const EmptyFolders&) = delete;
    EmptyFolders& operator=(const EmptyFolders&) = delete;

private:
    std::vector<fs::path> made_; // innermost first
};

void run(const Tour& tour) {
    const EmptyFolders folders(tour.output);
    int differing = 0;
    for (const Chapter& chapter : chapters) {
        if (!tour.file.empty() && !chapter.takes_file) continue;
        std::printf("%td. %s\n\n", &chapter - chapters + 1, chapter.title);
        differing += !chapter.run(tour);
        std::printf("\n");
    }
    if (differing > 0) throw Failure("tour: results differ from the published ones");
}

} // namespace

// Beside the program in a build folder, in share/vor of the prefix once it is installed.
std::string Tour::data(const std::string& name) const {
    const fs::path program = fs::read_symlink("/proc/self/exe").parent_path();
    for (const fs::path& folder : {program / "data", program.parent_path() / "share" / "vor"})
        if (fs::exists(folder / name)) return (folder / name).string();
    throw Failure(name + ": not beside the program, nor in share/vor");
}

void Tour::draw(const std::string& name, const std::string& script, int width, int height) const {
    const std::string path = (fs::path(output) / name).string();
    try {
        run_gnuplot(script, path, width, height);
        std::printf("picture: %s\n", path.c_str());
    } catch (const GnuplotMissing& e) {
        std::printf("picture: none: %s\n", e.what());
    }
}

void add_tour(CLI::App& app) {
    auto tour = std::make_shared<Tour>();
    tour->output = "vor-tour";
    CLI::App* command = app.add_subcommand("tour", "the library at work on real data");
    command
        ->add_option("file", tour->file,
                     "your own table: comma-separated numbers; a heading and a last column of "
                     "labels are recognised")
        ->type_name("FILE.csv");
    command->add_option("--output", tour->output, "directory for the pictures")
        ->type_name("DIR")
        ->take_last()
        ->capture_default_str();
    command->callback([tour] { run(*tour); });
}

} // namespace vor::tool
