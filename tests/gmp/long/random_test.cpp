// Random operands against another implementation of integers in a process beside: as many as fit
// into VOR_LONG_SECONDS (30 if it is not set), from the seed VOR_LONG_SEED (the time if it is not
// set), which is printed.
#include "tests/gmp/operations.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vor::test {
namespace {

// oracle.py --serve at the other end of two pipes.
class Oracle {
public:
    Oracle() {
        int to[2], from[2];
        if (pipe(to) || pipe(from)) std::abort();
        child_ = fork();
        if (child_ == 0) {
            dup2(to[0], 0);
            dup2(from[1], 1);
            for (const int end : {to[0], to[1], from[0], from[1]}) close(end);
            const auto script =
                std::filesystem::path(__FILE__).parent_path().parent_path() / "oracle.py";
            execlp("python3", "python3", script.c_str(), "--serve", nullptr);
            _exit(127);
        }
        close(to[0]);
        close(from[1]);
        questions_ = fdopen(to[1], "w");
        answers_ = fdopen(from[0], "r");
    }
    ~Oracle() {
        std::fclose(questions_);
        std::fclose(answers_);
        waitpid(child_, nullptr, 0);
    }
    std::string ask(const std::string& question) {
        std::fprintf(questions_, "%s\n", question.c_str());
        std::fflush(questions_);
        char* line = nullptr;
        size_t room = 0;
        const ssize_t n = getline(&line, &room, answers_);
        const std::string answer =
            n > 0 ? std::string(line, static_cast<size_t>(n - 1)) : "no answer";
        std::free(line);
        return answer;
    }

private:
    pid_t child_;
    FILE *questions_, *answers_;
};

class Operands {
public:
    explicit Operands(uint64_t seed) : random_(seed) {}
    int below(int n) { return random_.below(n); }

    // Long runs of equal bits, or random ones; lengths near the sizes where methods change.
    std::string magnitude(int longest) {
        const int seams[] = {1, 2, 8, 9, 16, 17, 32, 33, 40, 41, 64, 65, 128, 129, 256, 257, 512};
        int words = below(3) ? seams[below(std::size(seams))] + below(3) - 1 : below(longest) + 1;
        words = std::min(std::max(words, 1), longest);
        std::vector<uint32_t> limbs(static_cast<size_t>(words));
        if (below(2)) {
            for (uint32_t& limb : limbs) limb = static_cast<uint32_t>(random_.bits());
        } else {
            bool bit = true;
            for (int i = 0; i < 32 * words; bit = !bit)
                for (int run = below(below(2) ? 8 : 200) + 1; run > 0 && i < 32 * words; --run, ++i)
                    limbs[static_cast<size_t>(i / 32)] |= uint32_t{bit} << i % 32;
        }
        return Int(limbs.data(), limbs.size()).hex();
    }
    std::string integer(int longest) {
        const std::string x = below(12) ? magnitude(longest) : "0";
        return (below(2) && x != "0" ? "-" : "") + x;
    }
    std::string positive(int longest) {
        const std::string x = magnitude(longest);
        return x == "0" ? "1" : x;
    }
    std::string small(int bits) {
        return Int(static_cast<long long>(random_.bits() >> (63 - below(bits)))).hex();
    }
    std::string word() { return below(2) ? small(31) : "ffffffff"; }

private:
    Random random_;
};

std::string sign(Operands& next) {
    return next.below(2) ? "-" : "";
}

// A dividend for d: anything, or near a multiple of d.
std::string dividend(Operands& next, const std::string& d, int longest) {
    const char* const shifts[] = {"", "+1", "-1", "+2"};
    if (next.below(2)) return next.integer(longest);
    return sign(next) + next.positive(longest) + "*" + d + shifts[next.below(4)];
}

std::string question(Operands& next, const std::string& op) {
    const int longest = next.below(8) ? 70 : 700;
    const auto is = [&](std::initializer_list<const char*> names) {
        return std::find(names.begin(), names.end(), op) != names.end();
    };
    if (is({"set", "neg", "abs", "com", "fits", "low_word", "popcount"}))
        return op + " " + next.integer(longest);
    if (is({"add_ui", "sub_ui", "ui_sub", "mul_ui", "compare_word"}))
        return op + " " + next.integer(longest) + " " + next.word();
    if (is({"mul_si", "compare_signed"}))
        return op + " " + next.integer(longest) + " " + sign(next) + next.small(30);
    if (is({"mul_2exp", "setbit", "clrbit", "bit", "tdiv_2exp", "fdiv_2exp", "cdiv_2exp",
            "mod_2exp"}))
        return op + " " + next.integer(longest) + " " + next.small(12);
    if (op == "size_in_power_of_two") {
        const char* const bases[] = {"2", "4", "8", "10", "20"};
        return op + " " + next.integer(longest) + " " + bases[next.below(5)];
    }
    if (op == "stream") return op + " " + next.word() + " " + next.small(5);
    if (op == "pow_ui") return op + " " + next.integer(20) + " " + next.small(5);
    if (op == "ui_pow_ui") return op + " " + next.word() + " " + next.small(6);
    if (is({"addmul_ui", "submul_ui"}))
        return op + " " + next.integer(longest) + " " + next.integer(longest) + " " + next.word();
    if (is({"addmul", "submul", "bn_mac"}))
        return op + " " + next.integer(longest) + " " + next.integer(longest) + " " +
               next.integer(longest);
    if (op == "limb_addmul")
        return op + " " + next.positive(longest) + " " + next.positive(longest) + " " +
               next.positive(longest);
    if (op == "limb_product")
        return op + " " + next.positive(longest) + " " + next.positive(longest);
    if (is({"tdiv", "fdiv", "cdiv", "div_magnitudes", "mod", "bn_div"})) {
        const std::string d = next.positive(longest);
        return op + " " + dividend(next, d, longest) + " " + sign(next) + d;
    }
    if (op == "bn_mod") {
        const std::string m = next.positive(longest);
        return op + " " + dividend(next, m, longest) + " " + m;
    }
    if (op == "bn_gcd") {
        const std::string g = next.positive(10);
        return op + " " + sign(next) + next.positive(30) + "*" + g + " " + next.positive(30) + "*" +
               g;
    }
    if (op == "bn_modinv") {
        const std::string a = next.positive(40);
        return op + " " + a + " " + next.positive(10) + "*" + a + "+" + next.positive(1);
    }
    if (op.starts_with("mont")) { // N = 2 h + 1, residues below
        const std::string h = next.positive(op == "mont_exp" ? 8 : 40), n = "2*" + h + "+1";
        const std::string a = next.below(4) ? h : n;
        if (op == "mont_form") return op + " " + n + " " + a;
        return op + " " + n + " " + a + " " + (next.below(2) ? h : "1");
    }
    return op + " " + next.integer(longest) + " " + next.integer(longest);
}

double setting(const char* name, double otherwise) {
    const char* const text = std::getenv(name);
    return text ? std::atof(text) : otherwise;
}

TEST(Long, RandomOperands) {
    const auto seed = static_cast<uint64_t>(
        setting("VOR_LONG_SEED",
                static_cast<double>(std::chrono::system_clock::now().time_since_epoch().count() %
                                    1000000007)));
    std::printf("seed %llu\n", static_cast<unsigned long long>(seed));
    Oracle oracle;
    Operands next(seed);
    const auto end = std::chrono::steady_clock::now() +
                     std::chrono::duration<double>(setting("VOR_LONG_SECONDS", 30));
    long count = 0;
    for (; std::chrono::steady_clock::now() < end; ++count) {
        auto op = operations().begin();
        std::advance(op, next.below(static_cast<int>(operations().size())));
        const std::string text = question(next, op->first);
        SCOPED_TRACE(text);
        Ints operands;
        for (size_t at = text.find(' '); at != std::string::npos;) {
            const size_t to = text.find(' ', at + 1);
            operands.emplace_back(text.substr(at + 1, to == std::string::npos ? to : to - at - 1));
            at = to;
        }
        std::string got;
        for (const Int& x : op->second(operands)) got += (got.empty() ? "" : " ") + x.hex();
        ASSERT_EQ(got, oracle.ask(text));
        ASSERT_FALSE(::testing::Test::HasFailure());
    }
    std::printf("%ld operations\n", count);
    EXPECT_GT(count, 0);
}

} // namespace
} // namespace vor::test
