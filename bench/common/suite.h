// Bench cases: what is timed, what bounds it, what it is compared with. The cases of a family stand
// in bench/<folder>/ and are listed by one function each (bench/suites.cpp calls them all). `vor bench`
// runs them: interleaved rounds, minimum of repeats, shares and ratios.
#pragma once

#include <dlfcn.h>
#include <functional>
#include <string>
#include <vector>

namespace vor::bench {

// The limit of the machine that an operation is measured against. The machine's own rates are
// measured in the same run.
enum class Limit {
    none,
    x87,       // additions or multiplications on the x87 unit, each counted
    vector,    // single-precision operations in 4-wide vectors: 4 (rate of adds + rate of muls)
    copy,      // bytes moved by a copy of a large block, read and written bytes both counted
    product32, // independent 32 by 32 bit products
};

// A shared object whose symbols are timed.
class Library {
public:
    Library(std::string name, void* handle) : name_(std::move(name)), handle_(handle) {}
    const std::string& name() const { return name_; }
    // A library may have a symbol under its spelling with an underscore only.
    void* find(const char* symbol) const {
        void* found = dlsym(handle_, symbol);
        return found ? found : dlsym(handle_, (std::string(symbol) + '_').c_str());
    }
    // The function behind `symbol`, as a pointer of type F*; null if the library has none.
    template <class F>
    F* function(const char* symbol) const {
        return reinterpret_cast<F*>(find(symbol));
    }

private:
    std::string name_;
    void* handle_;
};

// libvor_k1.so, which the program is linked with, free to use threads; and any other, whose global
// names stay its own. Both throw std::runtime_error with the loader's text.
Library own_library();
Library other_library(const std::string& file);

// One call of the operation, ready to be repeated: it owns its data, which lasts as long as it does.
// An empty function means that this library cannot run the case.
using Call = std::function<void()>;
using Binder = std::function<Call(const Library&)>;

// Something else that does the same work, timed in the same rounds: "memcpy", "engine", "2 threads".
struct Rival {
    std::string name;
    Binder bind;
    double goal = 0; // the least ratio (rival's time / case's time) aimed at; 0: reported only
    double most_extra = 0; // the most seconds aimed at by which the case may be slower; 0: none
};

struct Case {
    std::string name;    // operation, then its sizes: "ddot n=4000"
    std::string formula; // what `work` counts, for the reader: "2n operations"
    double work;         // in units of the limit, for one call
    Limit limit;
    Binder bind;
    bool comparable = true;    // --against may bind it to another library with the same symbols
    double goal = 0;           // the least share of the limit aimed at; 0: reported only
    std::vector<Rival> rivals; // interleaved with the case itself
    double against_goal = 0;   // the least ratio to the library of --against aimed at
    double most_seconds = 0;   // the most time of one call aimed at; 0: none
};

using Suite = std::vector<Case>;

// The cases of every family, in the order of the families.
Suite all_cases();

} // namespace vor::bench
