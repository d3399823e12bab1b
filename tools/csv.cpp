#include "tools/csv.h"
#include "tools/failure.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <fstream>
#include <optional>
#include <sys/stat.h>

namespace vor::tool {

namespace {

using Cells = std::vector<std::string>;

std::string trimmed(const std::string& text) {
    const size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string::npos) return "";
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

// The text of one cell: quotes taken off if it has them.
std::string cell_text(const std::string& raw) {
    const std::string cell = trimmed(raw);
    if (cell.size() < 2 || cell.front() != '"' || cell.back() != '"') return cell;
    std::string text;
    for (size_t i = 1; i + 1 < cell.size(); ++i) {
        text += cell[i];
        if (cell[i] == '"' && cell[i + 1] == '"' && i + 2 < cell.size()) ++i;
    }
    return text;
}

Cells split(const std::string& line) {
    Cells cells;
    bool quoted = false;
    size_t start = 0;
    for (size_t i = 0; i <= line.size(); ++i) {
        if (i < line.size() && line[i] == '"') quoted = !quoted;
        if (i < line.size() && (line[i] != ',' || quoted)) continue;
        cells.push_back(cell_text(line.substr(start, i - start)));
        start = i + 1;
    }
    return cells;
}

std::optional<double> number(const std::string& cell) {
    const bool plus = cell.size() > 1 && cell[0] == '+' && cell[1] != '-';
    const char* first = cell.c_str() + plus;
    const char* last = cell.c_str() + cell.size();
    double value;
    const auto [end, error] = std::from_chars(first, last, value);
    if (error != std::errc() || end != last || !std::isfinite(value)) return std::nullopt;
    return value;
}

// A cell in a message: printable, and not too long.
std::string shown(const std::string& cell) {
    constexpr size_t kMost = 40;
    std::string text = cell.substr(0, kMost);
    for (char& c : text)
        if (!std::isprint(static_cast<unsigned char>(c))) c = '?';
    return "'" + text + (cell.size() > kMost ? "..." : "") + "'";
}

bool has_number(const Cells& cells) {
    return std::any_of(cells.begin(), cells.end(),
                       [](const std::string& cell) { return number(cell).has_value(); });
}

class Reader {
public:
    explicit Reader(const std::string& file) : file_(file) {}

    void take(const std::string& line, int line_number) {
        if (trimmed(line).empty()) return;
        const Cells cells = split(line);
        if (width_ == 0) {
            width_ = cells.size();
            if (!has_number(cells)) {
                heading_ = cells;
                return;
            }
        }
        if (cells.size() != width_)
            fail(line_number, "a row of " + std::to_string(cells.size()) + " cells where " +
                                  std::to_string(width_) + " are expected");
        if (table_.rows == 0) begin(cells);
        for (size_t j = 0; j < table_.columns.size(); ++j) {
            const std::optional<double> value = number(cells[j]);
            if (!value) fail(line_number, shown(cells[j]) + " is not a finite number");
            table_.columns[j].push_back(*value);
        }
        if (labelled_) table_.labels.push_back(cells.back());
        ++table_.rows;
    }

    Table finish(int lines) {
        if (table_.rows == 0)
            fail(std::max(lines, 1), width_ == 0 ? "the file is empty" : "no row of numbers");
        return std::move(table_);
    }

private:
    void begin(const Cells& first) {
        labelled_ = first.size() > 1 && !number(first.back());
        table_.columns.resize(first.size() - labelled_);
        for (size_t j = 0; j < table_.columns.size(); ++j)
            table_.names.push_back(heading_.empty() ? "column " + std::to_string(j + 1)
                                                    : heading_[j]);
        if (labelled_ && !heading_.empty()) table_.label_name = heading_.back();
    }
    [[noreturn]] void fail(int line, const std::string& text) const {
        throw Failure(file_ + ":" + std::to_string(line) + ": " + text);
    }

    const std::string& file_;
    size_t width_ = 0; // cells of a row; 0 before the first
    bool labelled_ = false;
    Cells heading_;
    Table table_;
};

} // namespace

Table read_csv(const std::string& file) {
    struct stat status;
    std::ifstream in(file);
    if (!in) throw Failure(file + ": " + std::strerror(errno));
    if (stat(file.c_str(), &status) == 0 && S_ISDIR(status.st_mode))
        throw Failure(file + ": is a directory");
    static constexpr char kByteOrderMark[] = "\xef\xbb\xbf";
    Reader reader(file);
    int lines = 0;
    for (std::string line; std::getline(in, line);) {
        if (++lines == 1 && line.rfind(kByteOrderMark, 0) == 0)
            line.erase(0, sizeof kByteOrderMark - 1);
        reader.take(line, lines);
    }
    return reader.finish(lines);
}

} // namespace vor::tool
