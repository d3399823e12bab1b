// The probe program, run with a line of commands.
#pragma once

#include "tests/common/child.h"

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

} // namespace vor::test
