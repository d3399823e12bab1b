// vor tour: the library at work on real data, chapter by chapter.
#include "tools/commands.h"
#include "tools/failure.h"
#include "tools/gnuplot.h"
#include "tools/tour/chapters.h"

#include <cstdio>
#include <filesystem>
#include <iterator>
#include <memory>

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
    {"A recorded voice", recorded_voice, false},
    {"The period of the sunspots", sunspot_period, false},
    {"The equations of a structure", stiff_structure, false},
    {"Long integers", long_integers, false},
};

void run(const Tour& tour) {
    std::error_code error;
    fs::create_directories(tour.output, error);
    if (!fs::is_directory(tour.output)) throw Failure(tour.output + ": cannot be made a directory");
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
