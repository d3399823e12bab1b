// The descriptor engines, for callers inside the library: the entries without their frame.
#pragma once

#include "dft/member_list.h"
#include "dft/record.h"
#include "dft/signatures.h"

extern "C" {
int vor_dft_create_descriptor_1d PARAMS_DFTI_CREATE;
int vor_dft_create_descriptor_highd PARAMS_DFTI_CREATE;
int vor_dft_commit_descriptor_external PARAMS_DFTI_HANDLE;
int vor_dft_free_descriptor_external PARAMS_DFTI_HANDLE;

int vor_dft_set_value_intval PARAMS_DFTI_SET(int);
int vor_dft_set_value_sglval PARAMS_DFTI_SET(float);
int vor_dft_set_value_dblval PARAMS_DFTI_SET(double);
int vor_dft_set_value_intvec PARAMS_DFTI_SET(int);

#define VOR_DFTI_IN_PLACE(entry, ENTRY, engine, on_team, serial, R, data, direction)               \
    int engine PARAMS_DFTI_IN_PLACE;                                                               \
    int on_team(DftiRecord* head, void* vectors);                                                  \
    int serial(DftiRecord* head, void* vectors, int n, void* workspace);
#define VOR_DFTI_OUT(entry, ENTRY, engine, on_team, serial, R, data, direction)                    \
    int engine PARAMS_DFTI_OUT;                                                                    \
    int on_team(DftiRecord* head, void* input, void* output);                                      \
    int serial(DftiRecord* head, void* input, void* output, int n, void* workspace);
VOR_DFTI_MEMBERS_IN_PLACE(VOR_DFTI_IN_PLACE)
VOR_DFTI_MEMBERS_OUT(VOR_DFTI_OUT)
#undef VOR_DFTI_IN_PLACE
#undef VOR_DFTI_OUT
}
