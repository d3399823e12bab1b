// Argument lists of the descriptor entries and their engines.
#pragma once

#define PARAMS_DFTI_CREATE                                                                         \
    (DftiRecord * *handle, const int* precision, const int* domain, const int* dimension,          \
     const int* lengths)
#define ARGS_DFTI_CREATE (handle, precision, domain, dimension, lengths)
#define PARAMS_DFTI_HANDLE (DftiRecord * *handle)
#define ARGS_DFTI_HANDLE (handle)
#define PARAMS_DFTI_ERROR_CLASS (const int* status, const int* error_class)
#define ARGS_DFTI_ERROR_CLASS (status, error_class)
#define PARAMS_DFTI_ERROR_MESSAGE (char* result, int result_length, const int* status)
#define ARGS_DFTI_ERROR_MESSAGE (result, result_length, status)

#define PARAMS_DFTI_SET(T) (DftiRecord * *handle, const int* parameter, const T* value)
#define PARAMS_DFTI_GET(T) (DftiRecord * *handle, const int* parameter, T* value)
#define ARGS_DFTI_VALUE (handle, parameter, value)
#define PARAMS_DFTI_SET_CHARS                                                                      \
    (DftiRecord * *handle, const int* parameter, const char* text, int text_length)
#define PARAMS_DFTI_GET_CHARS                                                                      \
    (DftiRecord * *handle, const int* parameter, char* text, int text_length)
#define ARGS_DFTI_CHARS (handle, parameter, text, text_length)

#define PARAMS_DFTI_IN_PLACE (DftiRecord * *handle, void* vectors)
#define ARGS_DFTI_IN_PLACE (handle, vectors)
#define PARAMS_DFTI_OUT (DftiRecord * *handle, void* input, void* output)
#define ARGS_DFTI_OUT (handle, input, output)
