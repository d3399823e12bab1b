// Descriptors: creation, release, status texts, every configuration value.
#include "tests/common/allocations.h"
#include "tests/dft/descriptor.h"
#include "vor_service.h"

#include <string>

namespace {

using vor::test::Allocations;
using vor::test::Descriptor;

constexpr int kUntouched = -77;

int create(DFTI_DESCRIPTOR_HANDLE* handle, std::vector<int> lengths, int domain = DFTI_COMPLEX,
           int precision = DFTI_SINGLE) {
    const int dimension = static_cast<int>(lengths.size());
    if (dimension == 1) return DftiCreateDescriptor(handle, precision, domain, 1, lengths[0]);
    return DftiCreateDescriptor(handle, precision, domain, dimension, lengths.data());
}

TEST(Descriptor, CreateReportsFaultsInOrderAndNullsTheHandle) {
    const auto foreign = reinterpret_cast<DFTI_DESCRIPTOR_HANDLE>(0x1000);
    const struct {
        std::vector<int> lengths;
        int domain, precision, status;
        bool touched;
    } cases[] = {
        {std::vector<int>(8, 2), DFTI_COMPLEX, DFTI_SINGLE, 3, false},
        {{}, DFTI_COMPLEX, DFTI_SINGLE, 3, false},
        {{4, 4, -1}, 99, 99, 3, false},
        {{0}, DFTI_COMPLEX, DFTI_SINGLE, 3, false},
        {{4, 4, 4, 4}, DFTI_REAL, 99, 6, true},
        {{4}, 34, DFTI_SINGLE, 3, true},
        {{4}, DFTI_COMPLEX, 37, 3, true},
    };
    VOR_FreeBuffers();
    Allocations allocations;
    for (const auto& c : cases) {
        DFTI_DESCRIPTOR_HANDLE handle = foreign;
        EXPECT_EQ(create(&handle, c.lengths, c.domain, c.precision), c.status);
        EXPECT_EQ(handle, c.touched ? nullptr : foreign);
        EXPECT_LE(allocations.calls(), 1); // the block that was given back serves again
    }
    VOR_FreeBuffers();
    allocations.fail_at(1);
    DFTI_DESCRIPTOR_HANDLE handle = foreign;
    EXPECT_EQ(create(&handle, {8}), DFTI_MEMORY_ERROR);
    EXPECT_EQ(handle, nullptr);
    EXPECT_EQ(create(nullptr, {8}), DFTI_INCONSISTENT_CONFIGURATION);
    const Descriptor most(std::vector<int>(7, 2)), most_of_real({2, 2, 2}, DFTI_REAL);
}

TEST(Descriptor, LengthsRunFastestFirstInTheRecordsAndAreReversedFromC) {
    const Descriptor d({4, 6, 5});
    const int strides[] = {1, 4, 24};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(d.handle[i].input_stride, strides[i]);
        EXPECT_EQ(d.handle[i].output_stride, strides[i]);
    }
    Descriptor from_c;
    EXPECT_EQ(DftiFreeDescriptor(&from_c.handle), 0);
    ASSERT_EQ(create(&from_c.handle, {4, 6, 5}), 0);
    int lengths[3], one = kUntouched;
    EXPECT_EQ(DftiGetValue(from_c.handle, DFTI_LENGTHS, lengths), 0);
    EXPECT_EQ(std::vector<int>(lengths, lengths + 3), (std::vector<int>{5, 6, 4}));
    EXPECT_EQ(from_c.get(DFTI_LENGTHS, &one), DFTI_INVALID_CONFIGURATION);
    EXPECT_EQ(one, kUntouched);
}

// The value calls, each with a parameter that it takes.
struct ValueCall {
    int parameter;
    int (*run)(DFTI_DESCRIPTOR_HANDLE* handle, int* parameter);
};
using Handle = DFTI_DESCRIPTOR_HANDLE;
int integers[4] = {DFTI_INPLACE, 1, 1, 1};
float single = 1;
double extended = 1;
char text[] = "0123456789";

const ValueCall kSets[] = {
    {DFTI_PLACEMENT, [](Handle* h, int* p) { return dfti_set_value_intval(h, p, integers); }},
    {DFTI_FORWARD_SCALE, [](Handle* h, int* p) { return dfti_set_value_sglval(h, p, &single); }},
    {DFTI_BACKWARD_SCALE, [](Handle* h, int* p) { return dfti_set_value_dblval(h, p, &extended); }},
    {DFTI_INPUT_STRIDES,
     [](Handle* h, int* p) { return dfti_set_value_intvec(h, p, integers + 1); }},
    {DFTI_DESCRIPTOR_NAME, [](Handle* h, int* p) { return dfti_set_value_chars(h, p, text, 10); }},
    {DFTI_PLACEMENT, [](Handle* h, int* p) { return DftiSetValue(*h, *p, DFTI_INPLACE); }},
};
const ValueCall kGets[] = {
    {DFTI_COMMIT_STATUS,
     [](Handle* h, int* p) { return dfti_get_value_intval(h, p, integers + 1); }},
    {DFTI_FORWARD_SCALE, [](Handle* h, int* p) { return dfti_get_value_sglval(h, p, &single); }},
    {DFTI_BACKWARD_SCALE, [](Handle* h, int* p) { return dfti_get_value_dblval(h, p, &extended); }},
    {DFTI_LENGTHS, [](Handle* h, int* p) { return dfti_get_value_intvec(h, p, integers + 1); }},
    {DFTI_DESCRIPTOR_NAME, [](Handle* h, int* p) { return dfti_get_value_chars(h, p, text, 10); }},
    {DFTI_LENGTHS, [](Handle* h, int* p) { return DftiGetValue(*h, *p, integers + 1); }},
};

TEST(Descriptor, HandlesThatAreNoneGetThreeOrFive) {
    char block[16] = "DFX no tag here";
    double data[2] = {};
    for (const int status : {DFTI_INCONSISTENT_CONFIGURATION, DFTI_BAD_DESCRIPTOR}) {
        block[0] = 'D';
        Handle none = status == DFTI_BAD_DESCRIPTOR ? reinterpret_cast<Handle>(block) : nullptr;
        for (const auto& calls : {kSets, kGets})
            for (int i = 0; i < 6; ++i) {
                int parameter = calls[i].parameter;
                EXPECT_EQ(calls[i].run(&none, &parameter), status) << parameter;
            }
        EXPECT_EQ(DftiSetValue(none, DFTI_DIMENSION, 1), status);
        EXPECT_EQ(DftiCommitDescriptor(none), status);
        EXPECT_EQ(DftiFreeDescriptor(&none), status);
        block[0] = 'X'; // the compute calls look at the first byte alone
        EXPECT_EQ(DftiComputeForward(none, data), status);
        EXPECT_EQ(dfti_compute_backward_d_out(&none, data, data), status);
    }
}

TEST(Descriptor, ACopyOfAFreedHandleIsNone) {
    DFTI_DESCRIPTOR_HANDLE handle;
    ASSERT_EQ(create(&handle, {8}), 0);
    const DFTI_DESCRIPTOR_HANDLE copy = handle;
    ASSERT_EQ(DftiFreeDescriptor(&handle), 0);
    EXPECT_EQ(handle, nullptr);
    float data[16] = {}; // the block is kept for reuse, and so still readable
    EXPECT_EQ(DftiCommitDescriptor(copy), DFTI_BAD_DESCRIPTOR);
    EXPECT_EQ(DftiComputeForward(copy, data), DFTI_BAD_DESCRIPTOR);
}

TEST(Descriptor, StatusTexts) {
    const std::string texts[] = {"NO_ERROR",
                                 "MEMORY_ERROR",
                                 "INVALID_CONFIGURATION",
                                 "INCONSISTENT_CONFIGURATION",
                                 "MULTITHREADED_ERROR",
                                 "BAD_DESCRIPTOR",
                                 "UNIMPLEMENTED",
                                 "VOR_INTERNAL_ERROR",
                                 "NUMBER_OF_THREADS_ERROR"};
    for (int status = -1; status <= 9; ++status) {
        std::string want = status >= 0 && status <= 8 ? "DFTI_" + texts[status] : " ";
        EXPECT_EQ(DftiErrorMessage(status), want);
        std::string filled(42, '#');
        dfti_error_message_external(filled.data(), 3, &status);
        want.resize(40, ' ');
        EXPECT_EQ(filled, want + "##");
        for (int other = 0; other <= 8; ++other)
            EXPECT_EQ(DftiErrorClass(status, other), status == other);
    }
}

TEST(Values, EveryIntegerParameterAgainstLegalIllegalAndUnprovidedValues) {
    const struct {
        int number, fresh; // the value of a new descriptor
        std::vector<int> stored, unprovided, illegal;
    } parameters[] = {
        {0, DFTI_COMPLEX, {}, {32, 33, 7}, {}},
        {1, 1, {}, {1, 2}, {}},
        {2, 8, {}, {8, 16}, {}},
        {3, DFTI_DOUBLE, {}, {35, 36}, {}},
        {7, 1, {5, 0, -3}, {}, {}},
        {8, 39, {39}, {40, 42}, {41, 0, 43}},
        {9, 42, {42}, {39, 40}, {41, 0, -1}},
        {10, 40, {39, 40}, {42}, {38, 41, 0}},
        {11, 43, {44, 43}, {}, {42, 45, 0}},
        {14, 0, {9, -9, 0}, {}, {}},
        {15, 0, {9, -9, 0}, {}, {}},
        {18, 48, {49, 48}, {}, {47, 50, 0}},
        {19, 53, {}, {53, 54}, {}},
        {21, 54, {55, 56, 57, 54}, {}, {53, 58, 0}},
        {22, 31, {}, {}, {30, 31}},
        {26, 1, {4, 0, -2}, {}, {}},
    };
    for (const auto& p : parameters) {
        Descriptor d;
        EXPECT_EQ(d.value(p.number), p.fresh) << p.number;
        const auto attempt = [&](int value, int status, int after) {
            EXPECT_EQ(d.set(p.number, value), status) << p.number << " " << value;
            EXPECT_EQ(d.value(p.number), after) << p.number << " " << value;
        };
        int held = p.fresh;
        for (int value : p.unprovided) attempt(value, DFTI_UNIMPLEMENTED, held);
        for (int value : p.illegal) attempt(value, DFTI_INCONSISTENT_CONFIGURATION, held);
        for (int value : p.stored) attempt(held = value, 0, value);
    }
    Descriptor d;
    int value = kUntouched;
    for (int number : {-1, 4, 5, 6, 12, 13, 16, 17, 20, 23, 24, 25, 27, 1000}) {
        EXPECT_EQ(d.set(number, 1), DFTI_INCONSISTENT_CONFIGURATION) << number;
        EXPECT_EQ(d.get(number, &value), DFTI_INCONSISTENT_CONFIGURATION) << number;
    }
    EXPECT_EQ(value, kUntouched);
    Descriptor real({8}, DFTI_REAL);
    EXPECT_EQ(real.set(DFTI_ORDERING, DFTI_BACKWARD_SCRAMBLED), DFTI_INCONSISTENT_CONFIGURATION);
}

TEST(Values, ConjugateEvenStorageForcesTheFormatAndDoesNotGiveItBack) {
    Descriptor d({8}, DFTI_REAL);
    EXPECT_EQ(d.set(DFTI_CONJUGATE_EVEN_STORAGE, DFTI_COMPLEX_COMPLEX), 0);
    EXPECT_EQ(d.value(DFTI_PACKED_FORMAT), DFTI_CCE_FORMAT);
    EXPECT_EQ(d.set(DFTI_CONJUGATE_EVEN_STORAGE, DFTI_COMPLEX_REAL), 0);
    EXPECT_EQ(d.value(DFTI_PACKED_FORMAT), DFTI_CCE_FORMAT);
    EXPECT_EQ(d.commit(), DFTI_UNIMPLEMENTED);
    EXPECT_EQ(d.set(DFTI_PACKED_FORMAT, DFTI_PERM_FORMAT), 0);
    EXPECT_EQ(d.commit(), 0);
}

TEST(Values, Strides) {
    Descriptor d({8, 4}); // C: lengths 4, 8
    const std::vector<int> given = {3, 8, 1}, fastest_first = {5, 2, 16};
    std::vector<int> back(3), typed(3);
    int number = DFTI_OUTPUT_STRIDES;
    EXPECT_EQ(DftiSetValue(d.handle, DFTI_INPUT_STRIDES, given.data()), 0);
    EXPECT_EQ(dfti_set_value_intvec(&d.handle, &number, fastest_first.data()), 0);
    EXPECT_EQ((std::vector{d.handle[0].input_stride, d.handle[1].input_stride,
                           d.handle[1].input_offset, d.handle[0].output_stride}),
              (std::vector{1, 8, 3, 2}));
    EXPECT_EQ(DftiGetValue(d.handle, DFTI_INPUT_STRIDES, back.data()), 0);
    EXPECT_EQ(back, given);
    EXPECT_EQ(dfti_get_value_intvec(&d.handle, &number, typed.data()), 0);
    EXPECT_EQ(typed, fastest_first);
}

// One record of a length other than 1 carries the scale, in both widths; else the head.
TEST(Values, Scales) {
    const Descriptor ones({1, 1}), last({1, 8});
    EXPECT_EQ(DftiSetValue(ones.handle, DFTI_FORWARD_SCALE, 3.0), 0);
    EXPECT_EQ(DftiSetValue(last.handle, DFTI_FORWARD_SCALE, 3.0), 0);
    for (const auto* handle : {ones.handle, last.handle}) {
        const bool head = handle == ones.handle;
        EXPECT_EQ(handle[0].forward_scale_d, head ? 3 : 1);
        EXPECT_EQ(handle[1].forward_scale_d, head ? 1 : 3);
    }
    Descriptor d({8}, DFTI_COMPLEX, DFTI_SINGLE);
    float one = 0;
    double other = 0;
    const double third = 1.0 / 3;
    int number = DFTI_BACKWARD_SCALE;
    EXPECT_EQ(DftiSetValue(d.handle, DFTI_FORWARD_SCALE, 0.1), 0);
    EXPECT_EQ(DftiGetValue(d.handle, DFTI_FORWARD_SCALE, &one), 0);
    EXPECT_EQ(one, 0.1f);
    EXPECT_EQ(d->forward_scale_d, static_cast<double>(0.1f));
    EXPECT_EQ(dfti_set_value_dblval(&d.handle, &number, &third), 0);
    EXPECT_EQ(dfti_get_value_dblval(&d.handle, &number, &other), 0);
    EXPECT_EQ(other, third);
    EXPECT_EQ(d->backward_scale_s, static_cast<float>(third));
}

TEST(Values, Texts) {
    Descriptor d;
    std::string buffer(DFTI_VERSION_LENGTH + 2, '#');
    int name = DFTI_DESCRIPTOR_NAME, version = DFTI_VERSION;
    EXPECT_EQ(DftiGetValue(d.handle, name, buffer.data()), 0);
    EXPECT_STREQ(buffer.c_str(), ""); // never set
    EXPECT_EQ(DftiSetValue(d.handle, name, "0123456789ABC"), 0);
    EXPECT_EQ(DftiGetValue(d.handle, name, buffer.data()), 0);
    EXPECT_STREQ(buffer.c_str(), "0123456789");
    buffer.assign(buffer.size(), '#');
    EXPECT_EQ(dfti_get_value_chars(&d.handle, &name, buffer.data(), 10), 0);
    EXPECT_EQ(buffer.substr(0, 11), "0123456789#");
    EXPECT_EQ(dfti_get_value_chars(&d.handle, &version, buffer.data(), 198), 0);
    EXPECT_EQ(buffer.substr(0, 24), "Orbel(R) Numeric Library");
    EXPECT_EQ(buffer.substr(196), "  ##");
    EXPECT_EQ(DftiGetValue(d.handle, version, buffer.data()), 0);
    EXPECT_EQ(buffer.substr(197), std::string("\0##", 3));
}

TEST(Values, EverySetCallUncommitsButTheTwoThatCRefusesItself) {
    Descriptor d;
    const auto expect = [&](int status, bool committed, int parameter, auto call) {
        EXPECT_EQ(d.commit(), 0);
        EXPECT_EQ(d.value(DFTI_COMMIT_STATUS), DFTI_COMMITTED);
        EXPECT_EQ(call(&d.handle, &parameter), status) << parameter;
        EXPECT_EQ(d.value(DFTI_COMMIT_STATUS) == DFTI_COMMITTED, committed) << parameter;
    };
    for (const auto& [parameter, run] : kSets) expect(0, false, parameter, run);
    for (const auto& [parameter, run] : kGets) expect(0, true, parameter, run);
    for (int i = 0; i < 6; ++i) { // a number that is nobody's, or that has no form of this type
        const int unfit = i == 0 || i == 5 ? 999 : DFTI_NUMBER_OF_USER_THREADS;
        expect(3, false, unfit, kSets[i].run);
        expect(3, true, unfit, kGets[i].run);
    }
    const auto by_number = kSets[0].run, by_c = kSets[5].run;
    integers[0] = 1;
    expect(3, false, DFTI_PLACEMENT, by_number);
    integers[0] = DFTI_INPLACE;
    expect(6, false, DFTI_DIMENSION, by_number);
    expect(6, true, DFTI_DIMENSION, by_c);
    expect(6, true, DFTI_LENGTHS, by_c);
    expect(3, false, DFTI_VERSION, by_c);
}

} // namespace
