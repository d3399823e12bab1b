// The version record, its lines of text, and the padded copies.
#include "vor_service.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace {

const std::string kLine =
    "Orbel(R) Numeric Library Version 8.1.0 Product Build 032106.09 for 32-bit applications ";

// `length` characters written by `write` into a buffer whose surroundings have to stay.
template <class Write>
std::string written(int length, Write write) {
    std::string buffer(static_cast<size_t>(length > 0 ? length : 0) + 8, '#');
    write(buffer.data() + 4, length);
    EXPECT_EQ(buffer.substr(0, 4) + buffer.substr(buffer.size() - 4), "########") << length;
    return buffer.substr(4, buffer.size() - 8);
}

} // namespace

TEST(Version, Record) {
    vor_version version, again;
    std::memset(&version, 0xff, sizeof version);
    std::memset(&again, 0, sizeof again);
    VORGetVersion(&version);
    VORGETVERSION_(&again);
    EXPECT_EQ(std::memcmp(&version, &again, sizeof version), 0);
    EXPECT_EQ(version.major_version, 8);
    EXPECT_EQ(version.minor_version, 1);
    EXPECT_EQ(version.update_version, 0);
    EXPECT_STREQ(version.product_status, "Product");
    EXPECT_STREQ(version.build, "032106.09");
    EXPECT_STREQ(version.processor, "Orbel(R) Baseline processor");
    EXPECT_EQ(version.processor, vor_serv_gettargetprocessor());
    EXPECT_STREQ(vor_serv_gettargetplatform(), "32-bit");
}

TEST(Version, LinesOfAnyLength) {
    const int whole = static_cast<int>(kLine.size());
    for (const int length : {-1, 0, 1, 2, 10, whole - 1, whole, whole + 1, whole + 2, 200, 1000}) {
        const size_t n = static_cast<size_t>(length > 0 ? length : 0);
        std::string fortran = kLine.substr(0, n);
        fortran.resize(n, ' ');
        EXPECT_EQ(written(length, VORGetVersionString), fortran);
        std::string c = kLine.substr(0, n ? n - 1 : 0);
        c.resize(n, '\0');
        EXPECT_EQ(written(length, VORGetVersionString_c), c);
    }
}

TEST(Version, PaddedCopies) {
    const struct {
        std::string a, b;
        int room;
        const char *copy, *both;
    } cases[] = {
        {"abc", "de", 7, "abc    ", "abcde  "},
        {"abc", "de", 5, "abc  ", "abcde"},
        {"abc", "de", 4, "abc ", "abcd"},
        {"abc", "de", 3, "abc", "abc"},
        {"abc", "de", 2, "ab", "ab"},
        {"abc", "de", 0, "", ""},
        {"", "de", 3, "   ", "de "},
        {"abc", "", 4, "abc ", "abc "},
    };
    for (const auto& c : cases) {
        const int a = static_cast<int>(c.a.size()), b = static_cast<int>(c.b.size());
        EXPECT_EQ(written(c.room, [&](char* to, int n) { vor_serv_strcpy(to, c.a.data(), n, a); }),
                  c.copy);
        EXPECT_EQ(
            written(c.room, [&](char* to,
                                int n) { vor_serv_strcat2(to, c.a.data(), c.b.data(), n, a, b); }),
            c.both);
    }
    for (int digit = 0; digit <= 9; ++digit) {
        char text[2];
        vor_serv_m_itoa(digit, text);
        EXPECT_EQ(text, std::to_string(digit));
    }
}
