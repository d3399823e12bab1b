// A descriptor for tests, freed at the end of the scope.
#pragma once

#include "dft/record.h"
#include "vor_dfti.h"

#include <gtest/gtest.h>

#include <vector>

namespace vor::test {

struct Descriptor {
    // Lengths in record order, the fastest dimension first.
    explicit Descriptor(std::vector<int> lengths = {8}, int domain = DFTI_COMPLEX,
                        int precision = DFTI_DOUBLE) {
        const int dimension = static_cast<int>(lengths.size());
        EXPECT_EQ(
            dfti_create_descriptor_highd(&handle, &precision, &domain, &dimension, lengths.data()),
            0);
    }
    ~Descriptor() { EXPECT_EQ(DftiFreeDescriptor(&handle), 0); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int set(int parameter, int value) {
        return dfti_set_value_intval_(&handle, &parameter, &value);
    }
    int get(int parameter, int* value) { return DFTI_GET_VALUE_INTVAL(&handle, &parameter, value); }
    int value(int parameter) {
        int v = -77;
        EXPECT_EQ(get(parameter, &v), 0) << parameter;
        return v;
    }
    int commit() { return DftiCommitDescriptor(handle); }
    const DftiRecord* operator->() const { return handle; }

    DFTI_DESCRIPTOR_HANDLE handle = nullptr;
};

} // namespace vor::test
