#include "tests/gmp/operations.h"

namespace vor::test {

const Operations& operations() {
    static const Operations all = [] {
        Operations map;
        add_big_number_operations(map);
        add_record_operations(map);
        add_division_operations(map);
        return map;
    }();
    return all;
}

} // namespace vor::test
