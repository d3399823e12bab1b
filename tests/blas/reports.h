// The reports of the library, caught: this test program has an xerbla_ of its own.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace vor::test {

struct Report {
    std::string name;
    int number;
    bool operator==(const Report&) const = default;
};

// While an object of this class lives, reports are kept instead of printed. One object at a time.
class Reports {
public:
    Reports() { kept = &reports_; }
    ~Reports() { kept = nullptr; }
    Reports(const Reports&) = delete;
    Reports& operator=(const Reports&) = delete;

    // What has come since the latest take().
    std::vector<Report> take() { return std::exchange(reports_, {}); }

    static inline std::vector<Report>* kept = nullptr; // where xerbla_ puts reports

private:
    std::vector<Report> reports_;
};

} // namespace vor::test
