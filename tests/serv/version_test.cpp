// The version record, its lines of text, and the padded copies.
#include "vor_service.h"

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
    vor_version version;
    VORGetVersion(&version);
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
    for (const std::string a : {"abc", ""})
        for (const std::string b : {"de", ""})
            for (int room = 0; room <= 7; ++room) {
                std::string padded = a + b;
                padded.resize(static_cast<size_t>(room), ' ');
                EXPECT_EQ(written(room,
                                  [&](char* to, int n) {
                                      vor_serv_strcat2(to, a.data(), b.data(), n,
                                                       static_cast<int>(a.size()),
                                                       static_cast<int>(b.size()));
                                  }),
                          padded);
            }
    char text[2];
    vor_serv_m_itoa(9, text);
    EXPECT_STREQ(text, "9");
}
