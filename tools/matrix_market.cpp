#include "tools/matrix_market.h"
#include "tools/failure.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace vor::tool {

namespace {

constexpr long long kMostElements = 1LL << 26; // half a gigabyte of doubles

using Words = std::vector<std::string_view>; // into the current line

class Reader {
public:
    explicit Reader(const std::string& file) : file_(file), in_(file) {
        if (!in_) throw Failure(file + ": " + std::strerror(errno));
        if (std::filesystem::is_directory(file)) throw Failure(file + ": is a directory");
    }

    Triples read() {
        read_header();
        const Words size = next(coordinate_ ? 3 : 2, "the size line");
        Triples a;
        a.rows = integer(size[0], 1), a.columns = integer(size[1], 1);
        a.symmetric = symmetric_;
        if (symmetric_ && a.rows != a.columns) fail("a symmetric matrix that is not square");
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
        std::getline(in_, text_);
        ++line_;
        std::transform(text_.begin(), text_.end(), text_.begin(),
                       [](unsigned char c) { return std::tolower(c); });
        const Words words = split(text_);
        if (words.size() != 5 || words[0] != "%%matrixmarket" || words[1] != "matrix")
            fail("not the header of a Matrix Market file, '%%MatrixMarket matrix FORM FIELD "
                 "SYMMETRY'");
        coordinate_ = choose(words[2], "coordinate", "array");
        choose(words[3], "real", "integer");
        symmetric_ = choose(words[4], "symmetric", "general");
    }

    static void add(Triples& a, int i, int j, double value) {
        a.row.push_back(i);
        a.column.push_back(j);
        a.value.push_back(value);
    }
    void read_coordinates(Triples& a, int entries) {
        for (int k = 0; k < entries; ++k) {
            const Words words = next(3, [&] { return entry_name(k, entries); });
            const int i = index(words[0], a.rows), j = index(words[1], a.columns);
            if (symmetric_ && i < j) fail("an entry above the diagonal of a symmetric matrix");
            add(a, i, j, number(words[2]));
        }
    }
    void read_array(Triples& a) {
        if (1LL * a.rows * a.columns > kMostElements) fail("the matrix is too large to be dense");
        const int all = symmetric_ ? a.rows * (a.rows + 1) / 2 : a.rows * a.columns;
        for (int j = 0, k = 0; j < a.columns; ++j)
            for (int i = symmetric_ ? j : 0; i < a.rows; ++i, ++k)
                add(a, i, j, number(next(1, [&] { return entry_name(k, all); })[0]));
    }

    // True for the first word, false for the second.
    bool choose(std::string_view word, const char* yes, const char* no) const {
        if (word != yes && word != no)
            fail(quoted(word) + " where " + yes + " or " + no + " is expected");
        return word == yes;
    }
    static std::string entry_name(int k, int all) {
        return "entry " + std::to_string(k + 1) + " of " + std::to_string(all);
    }
    static Words split(std::string_view line) {
        constexpr std::string_view kBlanks = " \t\r\v\f";
        Words words;
        for (size_t at = line.find_first_not_of(kBlanks); at != std::string_view::npos;) {
            const size_t end = std::min(line.find_first_of(kBlanks, at), line.size());
            words.push_back(line.substr(at, end - at));
            at = line.find_first_not_of(kBlanks, end);
        }
        return words;
    }
    // The next line that is neither empty nor a comment.
    bool next_line(Words& words) {
        while (std::getline(in_, text_)) {
            ++line_;
            words = split(text_);
            if (!words.empty() && words[0][0] != '%') return true;
        }
        return false;
    }
    // what() names what the line should hold.
    template <class What>
    Words next(size_t width, What what) {
        Words words;
        if (!next_line(words)) fail("the file ends before " + std::string(what()));
        if (words.size() != width)
            fail(std::to_string(words.size()) + " words where " + std::string(what()) + " has " +
                 std::to_string(width));
        return words;
    }
    Words next(size_t width, const char* what) {
        return next(width, [=] { return what; });
    }
    // A word in a message: printable, and not too long.
    static std::string quoted(std::string_view word) {
        constexpr size_t kMost = 40;
        std::string text(word.substr(0, kMost));
        for (char& c : text)
            if (!std::isprint(static_cast<unsigned char>(c))) c = '?';
        return "'" + text + (word.size() > kMost ? "..." : "") + "'";
    }
    int integer(std::string_view word, int least) const {
        int value = 0;
        const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
        if (error != std::errc() || end != word.data() + word.size() || value < least)
            fail(quoted(word) + " is not an integer from " + std::to_string(least) + " on");
        return value;
    }
    int index(std::string_view word, int limit) const {
        const int value = integer(word, 1);
        if (value > limit)
            fail("index " + std::string(word) + " is out of range: at most " +
                 std::to_string(limit));
        return value - 1;
    }
    double number(std::string_view word) const {
        const bool plus = word.size() > 1 && word[0] == '+' && word[1] != '-';
        const char* last = word.data() + word.size();
        double value = 0;
        const auto [end, error] = std::from_chars(word.data() + plus, last, value);
        if (error != std::errc() || end != last || !std::isfinite(value))
            fail(quoted(word) + " is not a finite number");
        return value;
    }
    [[noreturn]] void fail(const std::string& text) const {
        throw Failure(file_ + ":" + std::to_string(line_) + ": " + text);
    }

    const std::string& file_;
    std::ifstream in_;
    int line_ = 0;
    std::string text_;
    bool coordinate_ = false, symmetric_ = false;
};

} // namespace

DenseMatrix as_dense(const Triples& triples, const std::string& file) {
    if (1LL * triples.rows * triples.columns > kMostElements)
        throw Failure(file + ": the matrix is too large to be dense");
    DenseMatrix a;
    a.rows = triples.rows, a.columns = triples.columns;
    a.values.resize(static_cast<size_t>(a.rows) * static_cast<size_t>(a.columns));
    for (size_t e = 0; e < triples.value.size(); ++e) {
        const int i = triples.row[e], j = triples.column[e];
        a.at(i, j) += triples.value[e];
        if (triples.symmetric && i != j) a.at(j, i) += triples.value[e];
    }
    return a;
}

DenseMatrix read_matrix_market(const std::string& file) {
    return as_dense(read_triples(file), file);
}

Triples read_triples(const std::string& file) {
    return Reader(file).read();
}

} // namespace vor::tool
