#include "tools/matrix_market.h"
#include "tools/failure.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace vor::tool {

namespace {

constexpr long long kMostElements = 1LL << 26; // half a gigabyte of doubles

using Words = std::vector<std::string>;

class Reader {
public:
    explicit Reader(const std::string& file) : file_(file), in_(file) {
        if (!in_) throw Failure(file + ": " + std::strerror(errno));
        if (std::filesystem::is_directory(file)) throw Failure(file + ": is a directory");
    }

    DenseMatrix read() {
        read_header();
        const Words size = next(coordinate_ ? 3 : 2, "the size line");
        DenseMatrix a;
        a.rows = integer(size[0], 1), a.columns = integer(size[1], 1);
        if (symmetric_ && a.rows != a.columns) fail("a symmetric matrix that is not square");
        if (1LL * a.rows * a.columns > kMostElements) fail("the matrix is too large to be dense");
        a.values.resize(static_cast<size_t>(a.rows) * a.columns);
        if (coordinate_)
            read_coordinates(a, integer(size[2], 0));
        else
            read_array(a);
        Words more;
        if (next_line(more)) fail("text after the last entry");
        return a;
    }

private:
    void read_header() {
        std::string line;
        std::getline(in_, line);
        ++line_;
        std::transform(line.begin(), line.end(), line.begin(),
                       [](unsigned char c) { return std::tolower(c); });
        const Words words = split(line);
        if (words.size() != 5 || words[0] != "%%matrixmarket" || words[1] != "matrix")
            fail("not the header of a Matrix Market file, '%%MatrixMarket matrix FORM FIELD "
                 "SYMMETRY'");
        coordinate_ = choose(words[2], "coordinate", "array");
        choose(words[3], "real", "integer");
        symmetric_ = choose(words[4], "symmetric", "general");
    }

    void read_coordinates(DenseMatrix& a, int entries) {
        for (int k = 0; k < entries; ++k) {
            const Words words = next(3, entry_name(k, entries));
            const int i = index(words[0], a.rows), j = index(words[1], a.columns);
            if (symmetric_ && i < j) fail("an entry above the diagonal of a symmetric matrix");
            const double value = number(words[2]);
            a.at(i, j) += value;
            if (symmetric_ && i != j) a.at(j, i) += value;
        }
    }
    void read_array(DenseMatrix& a) {
        const int all = symmetric_ ? a.rows * (a.rows + 1) / 2 : a.rows * a.columns;
        for (int j = 0, k = 0; j < a.columns; ++j)
            for (int i = symmetric_ ? j : 0; i < a.rows; ++i, ++k) {
                a.at(i, j) = number(next(1, entry_name(k, all))[0]);
                if (symmetric_) a.at(j, i) = a.at(i, j);
            }
    }

    // True for the first word, false for the second.
    bool choose(const std::string& word, const char* yes, const char* no) const {
        if (word != yes && word != no)
            fail("'" + word + "' where " + yes + " or " + no + " is expected");
        return word == yes;
    }
    static std::string entry_name(int k, int all) {
        return "entry " + std::to_string(k + 1) + " of " + std::to_string(all);
    }
    static Words split(const std::string& line) {
        std::istringstream text(line);
        Words words;
        for (std::string word; text >> word;) words.push_back(word);
        return words;
    }
    // The next line that is neither empty nor a comment.
    bool next_line(Words& words) {
        for (std::string line; std::getline(in_, line);) {
            ++line_;
            words = split(line);
            if (!words.empty() && words[0][0] != '%') return true;
        }
        return false;
    }
    Words next(size_t width, const std::string& what) {
        Words words;
        if (!next_line(words)) fail("the file ends before " + what);
        if (words.size() != width)
            fail(std::to_string(words.size()) + " words where " + what + " has " +
                 std::to_string(width));
        return words;
    }
    int integer(const std::string& word, int least) const {
        int value = 0;
        const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
        if (error != std::errc() || end != word.data() + word.size() || value < least)
            fail("'" + word + "' is not an integer from " + std::to_string(least) + " on");
        return value;
    }
    int index(const std::string& word, int limit) const {
        const int value = integer(word, 1);
        if (value > limit)
            fail("index " + word + " is out of range: at most " + std::to_string(limit));
        return value - 1;
    }
    double number(const std::string& word) const {
        const bool plus = word.size() > 1 && word[0] == '+' && word[1] != '-';
        const char* last = word.data() + word.size();
        double value = 0;
        const auto [end, error] = std::from_chars(word.data() + plus, last, value);
        if (error != std::errc() || end != last || !std::isfinite(value))
            fail("'" + word + "' is not a finite number");
        return value;
    }
    [[noreturn]] void fail(const std::string& text) const {
        throw Failure(file_ + ":" + std::to_string(line_) + ": " + text);
    }

    const std::string& file_;
    std::ifstream in_;
    int line_ = 0;
    bool coordinate_ = false, symmetric_ = false;
};

} // namespace

DenseMatrix read_matrix_market(const std::string& file) {
    return Reader(file).read();
}

} // namespace vor::tool
