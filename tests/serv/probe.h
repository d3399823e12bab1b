// The probe program, run with a line of commands.
#pragma once

#include "tests/common/child.h"

#include <gtest/gtest.h>
#include <sstream>

namespace vor::test {

// What the probe prints for the commands, which are separated by blanks: its answers, separated by
// blanks.
inline std::string probe(const std::string& commands,
                         const std::vector<std::string>& environment = {},
                         const std::string& folder = "/") {
    std::vector<std::string> words{VOR_PROBE};
    std::istringstream line(commands);
    for (std::string word; line >> word;) words.push_back(word);
    Outcome outcome = run(words, environment, folder);
    // The OpenMP runtime has a say of its own about values that are no numbers of threads.
    if (outcome.err.find("libgomp: Invalid value") != std::string::npos) outcome.err.clear();
    if (outcome.status != 0 || !outcome.err.empty())
        return "status " + std::to_string(outcome.status) + " " + outcome.err;
    return outcome.out.substr(0, outcome.out.find_last_not_of(' ') + 1);
}

// A process: the settings of its environment, separated by semicolons, what the probe is told to do,
// and what it answers. @ in settings and commands stands for the folder in which it runs.
struct Scenario {
    std::string settings, commands, answers;
};
inline void expect_answers(const Folder& folder, const std::vector<Scenario>& scenarios) {
    const auto placed = [&](std::string text) {
        for (size_t at; (at = text.find('@')) != text.npos;) text.replace(at, 1, folder.path());
        return text;
    };
    for (const Scenario& s : scenarios) {
        std::vector<std::string> environment;
        std::istringstream settings(placed(s.settings));
        for (std::string one; std::getline(settings, one, ';');) environment.push_back(one);
        EXPECT_EQ(probe(placed(s.commands), environment, folder.path()), s.answers)
            << s.settings.substr(0, 100) << ": " << s.commands;
    }
}

} // namespace vor::test
