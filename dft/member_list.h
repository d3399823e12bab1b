// The members of the compute family by name.
#pragma once

// All members: X(entry, ENTRY, engine, engine on threads, serial engine, real type, data, direction).
#define VOR_DFTI_MEMBERS_IN_PLACE(X)                                                               \
    X(dfti_compute_forward_c, DFTI_COMPUTE_FORWARD_C, vor_dft_compute_forward_c,                   \
      vor_dft_compute_forward_c_par, vor_dft_xcforward, float, complex, forward)                   \
    X(dfti_compute_forward_z, DFTI_COMPUTE_FORWARD_Z, vor_dft_compute_forward_z,                   \
      vor_dft_compute_forward_z_par, vor_dft_xzforward, double, complex, forward)                  \
    X(dfti_compute_forward_s, DFTI_COMPUTE_FORWARD_S, vor_dft_compute_forward_s,                   \
      vor_dft_compute_forward_s_par, vor_dft_xsforward, float, packed, forward)                    \
    X(dfti_compute_forward_d, DFTI_COMPUTE_FORWARD_D, vor_dft_compute_forward_d,                   \
      vor_dft_compute_forward_d_par, vor_dft_xdforward, double, packed, forward)                   \
    X(dfti_compute_backward_c, DFTI_COMPUTE_BACKWARD_C, vor_dft_compute_backward_c,                \
      vor_dft_compute_backward_c_par, vor_dft_xcbackward, float, complex, backward)                \
    X(dfti_compute_backward_z, DFTI_COMPUTE_BACKWARD_Z, vor_dft_compute_backward_z,                \
      vor_dft_compute_backward_z_par, vor_dft_xzbackward, double, complex, backward)               \
    X(dfti_compute_backward_s, DFTI_COMPUTE_BACKWARD_S, vor_dft_compute_backward_s,                \
      vor_dft_compute_backward_s_par, vor_dft_xsbackward, float, packed, backward)                 \
    X(dfti_compute_backward_d, DFTI_COMPUTE_BACKWARD_D, vor_dft_compute_backward_d,                \
      vor_dft_compute_backward_d_par, vor_dft_xdbackward, double, packed, backward)
#define VOR_DFTI_MEMBERS_OUT(X)                                                                    \
    X(dfti_compute_forward_c_out, DFTI_COMPUTE_FORWARD_C_OUT, vor_dft_compute_forward_c_out,       \
      vor_dft_compute_forward_c_out_par, vor_dft_xcforward_out, float, complex, forward)           \
    X(dfti_compute_forward_z_out, DFTI_COMPUTE_FORWARD_Z_OUT, vor_dft_compute_forward_z_out,       \
      vor_dft_compute_forward_z_out_par, vor_dft_xzforward_out, double, complex, forward)          \
    X(dfti_compute_forward_s_out, DFTI_COMPUTE_FORWARD_S_OUT, vor_dft_compute_forward_s_out,       \
      vor_dft_compute_forward_s_out_par, vor_dft_xsforward_out, float, packed, forward)            \
    X(dfti_compute_forward_d_out, DFTI_COMPUTE_FORWARD_D_OUT, vor_dft_compute_forward_d_out,       \
      vor_dft_compute_forward_d_out_par, vor_dft_xdforward_out, double, packed, forward)           \
    X(dfti_compute_forward_sc_out, DFTI_COMPUTE_FORWARD_SC_OUT, vor_dft_compute_forward_sc_out,    \
      vor_dft_compute_forward_sc_out_par, vor_dft_xscforward_out, float, half, forward)            \
    X(dfti_compute_forward_dz_out, DFTI_COMPUTE_FORWARD_DZ_OUT, vor_dft_compute_forward_dz_out,    \
      vor_dft_compute_forward_dz_out_par, vor_dft_xdzforward_out, double, half, forward)           \
    X(dfti_compute_backward_c_out, DFTI_COMPUTE_BACKWARD_C_OUT, vor_dft_compute_backward_c_out,    \
      vor_dft_compute_backward_c_out_par, vor_dft_xcbackward_out, float, complex, backward)        \
    X(dfti_compute_backward_z_out, DFTI_COMPUTE_BACKWARD_Z_OUT, vor_dft_compute_backward_z_out,    \
      vor_dft_compute_backward_z_out_par, vor_dft_xzbackward_out, double, complex, backward)       \
    X(dfti_compute_backward_s_out, DFTI_COMPUTE_BACKWARD_S_OUT, vor_dft_compute_backward_s_out,    \
      vor_dft_compute_backward_s_out_par, vor_dft_xsbackward_out, float, packed, backward)         \
    X(dfti_compute_backward_d_out, DFTI_COMPUTE_BACKWARD_D_OUT, vor_dft_compute_backward_d_out,    \
      vor_dft_compute_backward_d_out_par, vor_dft_xdbackward_out, double, packed, backward)        \
    X(dfti_compute_backward_cs_out, DFTI_COMPUTE_BACKWARD_CS_OUT, vor_dft_compute_backward_cs_out, \
      vor_dft_compute_backward_cs_out_par, vor_dft_xcsbackward_out, float, half, backward)         \
    X(dfti_compute_backward_zd_out, DFTI_COMPUTE_BACKWARD_ZD_OUT, vor_dft_compute_backward_zd_out, \
      vor_dft_compute_backward_zd_out_par, vor_dft_xzdbackward_out, double, half, backward)
