// The chapters of the tour. Each is one file with one function: it computes something from real data
// through the exported names, prints it on stdout beside what is published about the data, draws a
// picture, and says whether the two agree.
#pragma once

#include <string>

namespace vor::tool {

struct Tour {
    std::string file;   // the user's data; empty: those that come with the library
    std::string output; // the directory of the pictures; it exists

    // Where a data file that comes with the library lies. Throws Failure if it is not there.
    std::string data(const std::string& name) const;
    // Draws into output/name and says so; without gnuplot it says that there is no picture.
    void draw(const std::string& name, const std::string& script, int width, int height) const;
};

// False if a result differs from the published one. Each throws Failure on bad data.
bool principal_components(const Tour& tour);
bool compressed_photograph(const Tour& tour);
bool spoken_vowel(const Tour& tour);
bool sunspot_period(const Tour& tour);
bool bent_beam(const Tour& tour);
bool heated_plate(const Tour& tour);
bool leaning_packages(const Tour& tour);
bool long_integers(const Tour& tour);

} // namespace vor::tool
