// What the names in an argument list of Level 2 or Level 3 say: which values an argument may have, and how
// large the arrays are. For C a list begins with the order, and options are enumeration values.
#pragma once

#include <algorithm>
#include <cctype>
#include <cstring>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace vor::test {

using Names = std::vector<std::string>;
using Values = std::map<std::string, int>; // by argument; arrays and scalars are left out

inline constexpr int kRowMajor = 101, kColumnMajor = 102;

// The options: the beginning of the name, the letters, and the enumeration value of the first of them.
struct Option {
    std::string name, letters;
    int first;
};
inline const Option kOptions[] = {
    {"trans", "NTC", 111}, {"uplo", "UL", 121}, {"diag", "NU", 131}, {"side", "LR", 141}};

inline const Option* option_of(const std::string& name) {
    const auto fits = [&](const Option& option) { return name.starts_with(option.name); };
    const auto* option = std::find_if(std::begin(kOptions), std::end(kOptions), fits);
    return option == std::end(kOptions) ? nullptr : option;
}
inline bool is_count(const std::string& name) {
    return name.size() <= 2 && std::strchr("mnk", name[0]);
}
inline bool is_step(const std::string& name) {
    return name.starts_with("inc");
}
inline bool is_leading(const std::string& name) {
    return name.starts_with("ld");
}

// The names in the text of an argument list; hidden lengths are left out.
inline Names names_of(std::string list, bool for_c) {
    Names names;
    if (for_c) names.push_back("order");
    std::istringstream stream(list.substr(1, list.size() - 2));
    for (std::string one; std::getline(stream, one, ',');) {
        const std::string name = one.substr(one.find_first_not_of(' '));
        if (name.find("_length") == std::string::npos) names.push_back(name);
    }
    return names;
}
#define VOR_TEXT(...) #__VA_ARGS__
#define VOR_NAMES(arguments, for_c) vor::test::names_of(VOR_TEXT(arguments), for_c)

struct Routine {
    std::string type, op;
    bool for_c;
    Names arguments;

    int number(const std::string& argument) const {
        const auto at = std::find(arguments.begin(), arguments.end(), argument);
        return at == arguments.end() ? 0 : static_cast<int>(at - arguments.begin()) + 1;
    }
    bool has(const std::string& argument) const { return number(argument) != 0; }
    bool is_complex() const { return type == "c" || type == "z"; }
    bool is_level2() const { return has("incx"); }

    // The values that an argument may have: of an option its letters in both cases, for C its
    // enumeration values; empty if it is neither an option nor the order.
    std::vector<int> choices(const std::string& name) const {
        const Option* option = option_of(name);
        if (name == "order") return {kColumnMajor, kRowMajor};
        if (!option) return {};
        std::vector<int> values;
        for (size_t i = 0; i < option->letters.size(); ++i) {
            const char letter = option->letters[i];
            // A Hermitian update has no form without conjugation, a complex symmetric one none with it.
            if (letter == 'T' && (op == "herk" || op == "her2k")) continue;
            if (letter == 'C' && is_complex() && op.starts_with("syr")) continue;
            if (for_c)
                values.push_back(option->first + static_cast<int>(i));
            else
                values.insert(values.end(), {letter, std::tolower(letter)});
        }
        return values;
    }

    bool is(const Values& v, const char* option, char letter) const {
        const int value = v.at(option);
        return for_c ? value == (letter == 'N' ? 111 : 141) : std::toupper(value) == letter;
    }
    // Rows and columns of an array as it is stored column-major, row-major of the matrix that it holds.
    std::pair<int, int> shape(const std::string& array, const Values& v) const {
        const auto of = [&](const char* rows, const char* columns, const char* trans = nullptr) {
            const bool transposed = trans && !is(v, trans, 'N');
            return std::pair(v.at(transposed ? columns : rows), v.at(transposed ? rows : columns));
        };
        if (has("transb"))
            return array == "a"   ? of("m", "k", "transa")
                   : array == "b" ? of("k", "n", "transb")
                                  : of("m", "n");
        if (has("side") && array == "a") return is(v, "side", 'L') ? of("m", "m") : of("n", "n");
        if (has("k") && !is_level2() && array != "c") return of("n", "k", "trans");
        return has("m") ? of("m", "n") : of("n", "n");
    }
    // The least leading dimension of an array.
    int least(const std::string& leading, const Values& v) const {
        if (has("ku")) return v.at("kl") + v.at("ku") + 1;
        if (has("k") && is_level2()) return v.at("k") + 1;
        const auto [rows, columns] = shape(leading.substr(2), v);
        return std::max(1, for_c && v.at("order") == kRowMajor ? columns : rows);
    }
};

} // namespace vor::test
