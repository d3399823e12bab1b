// Configuration values: numbered parameters, typed and variadic calls.
//
// Every set call on a valid descriptor leaves it uncommitted, before it looks at the parameter. Each
// value is checked by itself; combinations are commit's business.
#include "dft/record.h"
#include "dft/signatures.h"
#include "serv/entry.h"
#include "vor_service.h"

#include <stdarg.h>
#include <string.h>

namespace vor::dfti {

namespace {

using Field = int DftiRecord::*;

// A value of a parameter with a set of values: stored, or known but not provided.
struct Choice {
    int value;
    int status;
};

enum class Setting { unimplemented, refused, free, chosen };

struct IntegerParameter {
    int number;
    Field field;
    Setting setting;
    Choice choices[4]; // Setting::chosen; value 0 behind the last
};

constexpr int kStored = DFTI_NO_ERROR, kNot = DFTI_UNIMPLEMENTED;

// The parameters with an integer form.
constexpr IntegerParameter kParameters[] = {
    {DFTI_FORWARD_DOMAIN, &DftiRecord::forward_domain, Setting::unimplemented, {}},
    {DFTI_DIMENSION, &DftiRecord::dimension, Setting::unimplemented, {}},
    {DFTI_LENGTHS, &DftiRecord::length, Setting::unimplemented, {}},
    {DFTI_PRECISION, &DftiRecord::precision, Setting::unimplemented, {}},
    {DFTI_NUMBER_OF_TRANSFORMS, &DftiRecord::number_of_transforms, Setting::free, {}},
    {DFTI_COMPLEX_STORAGE,
     &DftiRecord::complex_storage,
     Setting::chosen,
     {{DFTI_COMPLEX_COMPLEX, kStored}, {DFTI_COMPLEX_REAL, kNot}, {DFTI_REAL_REAL, kNot}}},
    {DFTI_REAL_STORAGE,
     &DftiRecord::real_storage,
     Setting::chosen,
     {{DFTI_REAL_REAL, kStored}, {DFTI_COMPLEX_COMPLEX, kNot}, {DFTI_COMPLEX_REAL, kNot}}},
    {DFTI_CONJUGATE_EVEN_STORAGE,
     &DftiRecord::conjugate_even_storage,
     Setting::chosen,
     {{DFTI_COMPLEX_COMPLEX, kStored}, {DFTI_COMPLEX_REAL, kStored}, {DFTI_REAL_REAL, kNot}}},
    {DFTI_PLACEMENT,
     &DftiRecord::placement,
     Setting::chosen,
     {{DFTI_INPLACE, kStored}, {DFTI_NOT_INPLACE, kStored}}},
    {DFTI_INPUT_DISTANCE, &DftiRecord::input_distance, Setting::free, {}},
    {DFTI_OUTPUT_DISTANCE, &DftiRecord::output_distance, Setting::free, {}},
    {DFTI_ORDERING,
     &DftiRecord::ordering,
     Setting::chosen,
     {{DFTI_ORDERED, kStored}, {DFTI_BACKWARD_SCRAMBLED, kStored}}},
    {DFTI_TRANSPOSE, &DftiRecord::transpose, Setting::unimplemented, {}},
    {DFTI_PACKED_FORMAT,
     &DftiRecord::packed_format,
     Setting::chosen,
     {{DFTI_CCS_FORMAT, kStored},
      {DFTI_PACK_FORMAT, kStored},
      {DFTI_PERM_FORMAT, kStored},
      {DFTI_CCE_FORMAT, kStored}}},
    {DFTI_COMMIT_STATUS, &DftiRecord::commit_status, Setting::refused, {}},
    {DFTI_NUMBER_OF_USER_THREADS, &DftiRecord::user_threads, Setting::free, {}},
};

const IntegerParameter* find(int number) {
    for (const IntegerParameter& p : kParameters)
        if (p.number == number) return &p;
    return nullptr;
}

int status_of(const IntegerParameter& p, int value, int domain) {
    if (p.setting == Setting::unimplemented) return DFTI_UNIMPLEMENTED;
    if (p.setting == Setting::refused) return DFTI_INCONSISTENT_CONFIGURATION;
    if (p.setting == Setting::free) return DFTI_NO_ERROR;
    if (value == DFTI_BACKWARD_SCRAMBLED && domain == DFTI_REAL)
        return DFTI_INCONSISTENT_CONFIGURATION;
    for (const Choice& choice : p.choices)
        if (choice.value == value && value != 0) return choice.status;
    return DFTI_INCONSISTENT_CONFIGURATION;
}

void store(DftiRecord* head, Field field, int value) {
    for (DftiRecord* record = head; record; record = record->next) record->*field = value;
}

// A set call begins here: the handle's status, and with a good handle the descriptor uncommitted.
int begin_set(DftiRecord** handle) {
    const int status = handle ? check_handle(*handle) : DFTI_INCONSISTENT_CONFIGURATION;
    if (status == DFTI_NO_ERROR) (*handle)->commit_status = DFTI_UNCOMMITTED;
    return status;
}

int begin_get(DftiRecord** handle) {
    return handle ? check_handle(*handle) : DFTI_INCONSISTENT_CONFIGURATION;
}

// Both widths of one scale factor.
struct Scale {
    float DftiRecord::*single;
    double DftiRecord::*extended;
};

bool find_scale(int number, Scale* scale) {
    if (number == DFTI_FORWARD_SCALE)
        *scale = {&DftiRecord::forward_scale_s, &DftiRecord::forward_scale_d};
    else if (number == DFTI_BACKWARD_SCALE)
        *scale = {&DftiRecord::backward_scale_s, &DftiRecord::backward_scale_d};
    else
        return false;
    return true;
}

// The record whose scale counts: the first of a length other than 1, else the head. Every other one
// holds 1, so that a transform of several dimensions is scaled once.
DftiRecord* scaled_record(DftiRecord* head) {
    for (DftiRecord* record = head; record; record = record->next)
        if (record->length != 1) return record;
    return head;
}

template <class R>
int set_scale(DftiRecord** handle, int number, R value) {
    if (const int status = begin_set(handle)) return status;
    Scale scale;
    if (!find_scale(number, &scale)) return DFTI_INCONSISTENT_CONFIGURATION;
    const DftiRecord* scaled = scaled_record(*handle);
    for (DftiRecord* record = *handle; record; record = record->next) {
        const R own = record == scaled ? value : R(1);
        record->*scale.single = static_cast<float>(own);
        record->*scale.extended = own;
    }
    return DFTI_NO_ERROR;
}

template <class R>
int get_scale(DftiRecord** handle, int number, R* value) {
    if (const int status = begin_get(handle)) return status;
    Scale scale;
    if (!find_scale(number, &scale)) return DFTI_INCONSISTENT_CONFIGURATION;
    const DftiRecord* scaled = scaled_record(*handle);
    if constexpr (sizeof(R) == sizeof(float))
        *value = scaled->*scale.single;
    else
        *value = scaled->*scale.extended;
    return DFTI_NO_ERROR;
}

// The fields of the side that a stride parameter is about.
const Side* find_side(int number) {
    if (number == DFTI_INPUT_STRIDES) return &kInput;
    return number == DFTI_OUTPUT_STRIDES ? &kOutput : nullptr;
}

// A stride vector between C order (slowest dimension first) and record order; the offset stays in
// front. It is its own inverse.
void reverse_strides(const int* from, int* to, int dimension) {
    to[0] = from[0];
    for (int d = 1; d <= dimension; ++d) to[d] = from[dimension + 1 - d];
}

} // namespace

} // namespace vor::dfti

using namespace vor::dfti;

VOR_ENGINE int vor_dft_set_value_intval PARAMS_DFTI_SET(int) {
    if (const int status = begin_set(handle)) return status;
    const IntegerParameter* p = find(*parameter);
    if (!p) return DFTI_INCONSISTENT_CONFIGURATION;
    DftiRecord* head = *handle;
    if (const int status = status_of(*p, *value, head->forward_domain)) return status;
    store(head, p->field, *value);
    if (p->number == DFTI_CONJUGATE_EVEN_STORAGE && *value == DFTI_COMPLEX_COMPLEX)
        store(head, &DftiRecord::packed_format, DFTI_CCE_FORMAT);
    return DFTI_NO_ERROR;
}

VOR_ENGINE int vor_dft_get_value_intval PARAMS_DFTI_GET(int) {
    if (const int status = begin_get(handle)) return status;
    const IntegerParameter* p = find(*parameter);
    if (!p) return DFTI_INCONSISTENT_CONFIGURATION;
    const DftiRecord* head = *handle;
    if (p->number == DFTI_LENGTHS && head->dimension > 1) return DFTI_INVALID_CONFIGURATION;
    *value = head->*p->field;
    return DFTI_NO_ERROR;
}

VOR_ENGINE int vor_dft_set_value_intvec PARAMS_DFTI_SET(int) {
    if (const int status = begin_set(handle)) return status;
    const Side* side = find_side(*parameter);
    if (!side) return DFTI_INCONSISTENT_CONFIGURATION;
    store(*handle, side->offset, value[0]);
    for (DftiRecord* record = *handle; record; record = record->next)
        record->*side->stride = *++value;
    return DFTI_NO_ERROR;
}

VOR_ENGINE int vor_dft_get_value_intvec PARAMS_DFTI_GET(int) {
    if (const int status = begin_get(handle)) return status;
    Field field = &DftiRecord::length;
    if (const Side* side = find_side(*parameter)) {
        *value++ = (*handle)->*side->offset;
        field = side->stride;
    } else if (*parameter != DFTI_LENGTHS) {
        return DFTI_INCONSISTENT_CONFIGURATION;
    }
    for (DftiRecord* record = *handle; record; record = record->next) *value++ = record->*field;
    return DFTI_NO_ERROR;
}

VOR_ENGINE int vor_dft_set_value_sglval PARAMS_DFTI_SET(float) {
    return set_scale(handle, *parameter, *value);
}

VOR_ENGINE int vor_dft_set_value_dblval PARAMS_DFTI_SET(double) {
    return set_scale(handle, *parameter, *value);
}

VOR_ENGINE int vor_dft_get_value_sglval PARAMS_DFTI_GET(float) {
    return get_scale(handle, *parameter, value);
}

VOR_ENGINE int vor_dft_get_value_dblval PARAMS_DFTI_GET(double) {
    return get_scale(handle, *parameter, value);
}

VOR_ENGINE int vor_dft_set_value_chars PARAMS_DFTI_SET_CHARS {
    (void)text_length;
    if (const int status = begin_set(handle)) return status;
    if (*parameter != DFTI_DESCRIPTOR_NAME) return DFTI_INCONSISTENT_CONFIGURATION;
    memcpy((*handle)->name, text, DFTI_MAX_NAME_LENGTH);
    return DFTI_NO_ERROR;
}

VOR_ENGINE int vor_dft_get_value_chars PARAMS_DFTI_GET_CHARS {
    (void)text_length;
    if (const int status = begin_get(handle)) return status;
    if (*parameter == DFTI_DESCRIPTOR_NAME)
        memcpy(text, (*handle)->name, DFTI_MAX_NAME_LENGTH);
    else if (*parameter == DFTI_VERSION)
        VORGETVERSIONSTRING(text, DFTI_VERSION_LENGTH);
    else
        return DFTI_INCONSISTENT_CONFIGURATION;
    return DFTI_NO_ERROR;
}

VOR_ENTRY(int, dfti_set_value_intval, DFTI_SET_VALUE_INTVAL, vor_dft_set_value_intval,
          PARAMS_DFTI_SET(int), ARGS_DFTI_VALUE)
VOR_ENTRY(int, dfti_set_value_sglval, DFTI_SET_VALUE_SGLVAL, vor_dft_set_value_sglval,
          PARAMS_DFTI_SET(float), ARGS_DFTI_VALUE)
VOR_ENTRY(int, dfti_set_value_dblval, DFTI_SET_VALUE_DBLVAL, vor_dft_set_value_dblval,
          PARAMS_DFTI_SET(double), ARGS_DFTI_VALUE)
VOR_ENTRY(int, dfti_set_value_intvec, DFTI_SET_VALUE_INTVEC, vor_dft_set_value_intvec,
          PARAMS_DFTI_SET(int), ARGS_DFTI_VALUE)
VOR_ENTRY(int, dfti_set_value_chars, DFTI_SET_VALUE_CHARS, vor_dft_set_value_chars,
          PARAMS_DFTI_SET_CHARS, ARGS_DFTI_CHARS)
VOR_ENTRY(int, dfti_get_value_intval, DFTI_GET_VALUE_INTVAL, vor_dft_get_value_intval,
          PARAMS_DFTI_GET(int), ARGS_DFTI_VALUE)
VOR_ENTRY(int, dfti_get_value_sglval, DFTI_GET_VALUE_SGLVAL, vor_dft_get_value_sglval,
          PARAMS_DFTI_GET(float), ARGS_DFTI_VALUE)
VOR_ENTRY(int, dfti_get_value_dblval, DFTI_GET_VALUE_DBLVAL, vor_dft_get_value_dblval,
          PARAMS_DFTI_GET(double), ARGS_DFTI_VALUE)
VOR_ENTRY(int, dfti_get_value_intvec, DFTI_GET_VALUE_INTVEC, vor_dft_get_value_intvec,
          PARAMS_DFTI_GET(int), ARGS_DFTI_VALUE)
VOR_ENTRY(int, dfti_get_value_chars, DFTI_GET_VALUE_CHARS, vor_dft_get_value_chars,
          PARAMS_DFTI_GET_CHARS, ARGS_DFTI_CHARS)

extern "C" int DftiSetValue(DftiRecord* handle, int parameter, ...) {
    if (const int status = check_handle(handle)) return status;
    // Refused here already: the descriptor stays committed.
    if (parameter == DFTI_DIMENSION || parameter == DFTI_LENGTHS) return DFTI_UNIMPLEMENTED;
    va_list arguments;
    va_start(arguments, parameter);
    int status, value, strides[kMaxDimension + 1];
    switch (parameter) {
    case DFTI_FORWARD_SCALE:
    case DFTI_BACKWARD_SCALE: {
        const double scale = va_arg(arguments, double);
        const float narrow = static_cast<float>(scale);
        status = handle->precision == DFTI_SINGLE
                     ? dfti_set_value_sglval(&handle, &parameter, &narrow)
                     : dfti_set_value_dblval(&handle, &parameter, &scale);
        break;
    }
    case DFTI_INPUT_STRIDES:
    case DFTI_OUTPUT_STRIDES:
        reverse_strides(va_arg(arguments, const int*), strides, handle->dimension);
        status = dfti_set_value_intvec(&handle, &parameter, strides);
        break;
    case DFTI_DESCRIPTOR_NAME:
        status = dfti_set_value_chars(&handle, &parameter, va_arg(arguments, const char*),
                                      DFTI_MAX_NAME_LENGTH);
        break;
    default:
        value = va_arg(arguments, int);
        status = dfti_set_value_intval(&handle, &parameter, &value);
    }
    va_end(arguments);
    return status;
}

extern "C" int DftiGetValue(DftiRecord* handle, int parameter, ...) {
    if (const int status = check_handle(handle)) return status;
    va_list arguments;
    va_start(arguments, parameter);
    void* place = va_arg(arguments, void*);
    va_end(arguments);
    int* integers = static_cast<int*>(place);
    switch (parameter) {
    case DFTI_FORWARD_SCALE:
    case DFTI_BACKWARD_SCALE:
        return handle->precision == DFTI_SINGLE
                   ? dfti_get_value_sglval(&handle, &parameter, static_cast<float*>(place))
                   : dfti_get_value_dblval(&handle, &parameter, static_cast<double*>(place));
    case DFTI_INPUT_STRIDES:
    case DFTI_OUTPUT_STRIDES: {
        int strides[kMaxDimension + 1];
        const int status = dfti_get_value_intvec(&handle, &parameter, strides);
        if (status == DFTI_NO_ERROR) reverse_strides(strides, integers, handle->dimension);
        return status;
    }
    case DFTI_LENGTHS:
        return handle->dimension > 1 ? dfti_get_value_intvec(&handle, &parameter, integers)
                                     : dfti_get_value_intval(&handle, &parameter, integers);
    case DFTI_DESCRIPTOR_NAME: // with its terminator, which the typed call does not copy
        strcpy(static_cast<char*>(place), handle->name);
        return DFTI_NO_ERROR;
    case DFTI_VERSION:
        VORGetVersionString_c(static_cast<char*>(place), DFTI_VERSION_LENGTH);
        return DFTI_NO_ERROR;
    default:
        return dfti_get_value_intval(&handle, &parameter, integers);
    }
}
