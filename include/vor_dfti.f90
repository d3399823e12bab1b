! vor_dfti: Fourier transforms through descriptors, for Fortran. vor_dfti.h tells what each call and
! each parameter does; here are the constants, the interfaces and the generic names.
!
!     use vor_dfti
!     type(DFTI_DESCRIPTOR), pointer :: h
!     complex(8) :: x(1000)
!     integer :: status
!     status = DftiCreateDescriptor(h, DFTI_DOUBLE, DFTI_COMPLEX, 1, 1000)
!     status = DftiSetValue(h, DFTI_BACKWARD_SCALE, 1d-3)
!     status = DftiCommitDescriptor(h)
!     status = DftiComputeForward(h, x)
!     status = DftiFreeDescriptor(h)
!
! Data are arrays of any rank, or the first element of one: x(8, 8) for a transform of 8 by 8. A section
! with gaps is copied to and fro by the compiler; strides tell the library of gaps without a copy.
!
! Lengths and strides stand in Fortran order, the fastest dimension first. Scales are set and read in
! the precision of the variable. Compile this file with the program. With -ff2c add
! -fno-second-underscore, since the names of the library have one underscore behind them.
module vor_dfti
  use, intrinsic :: iso_c_binding, only: c_ptr, c_loc
  implicit none
  private

  ! A descriptor is handled through a pointer of this type; what it points to is the library's.
  type, public :: DFTI_DESCRIPTOR
    private
    integer :: tag
  end type

  integer, parameter, public :: DFTI_FORWARD_DOMAIN = 0
  integer, parameter, public :: DFTI_DIMENSION = 1
  integer, parameter, public :: DFTI_LENGTHS = 2
  integer, parameter, public :: DFTI_PRECISION = 3
  integer, parameter, public :: DFTI_FORWARD_SCALE = 4
  integer, parameter, public :: DFTI_BACKWARD_SCALE = 5
  integer, parameter, public :: DFTI_NUMBER_OF_TRANSFORMS = 7
  integer, parameter, public :: DFTI_COMPLEX_STORAGE = 8
  integer, parameter, public :: DFTI_REAL_STORAGE = 9
  integer, parameter, public :: DFTI_CONJUGATE_EVEN_STORAGE = 10
  integer, parameter, public :: DFTI_PLACEMENT = 11
  integer, parameter, public :: DFTI_INPUT_STRIDES = 12
  integer, parameter, public :: DFTI_OUTPUT_STRIDES = 13
  integer, parameter, public :: DFTI_INPUT_DISTANCE = 14
  integer, parameter, public :: DFTI_OUTPUT_DISTANCE = 15
  integer, parameter, public :: DFTI_ORDERING = 18
  integer, parameter, public :: DFTI_TRANSPOSE = 19
  integer, parameter, public :: DFTI_DESCRIPTOR_NAME = 20
  integer, parameter, public :: DFTI_PACKED_FORMAT = 21
  integer, parameter, public :: DFTI_COMMIT_STATUS = 22
  integer, parameter, public :: DFTI_VERSION = 23
  integer, parameter, public :: DFTI_NUMBER_OF_USER_THREADS = 26
  integer, parameter, public :: DFTI_COMMITTED = 30
  integer, parameter, public :: DFTI_UNCOMMITTED = 31
  integer, parameter, public :: DFTI_COMPLEX = 32
  integer, parameter, public :: DFTI_REAL = 33
  integer, parameter, public :: DFTI_SINGLE = 35
  integer, parameter, public :: DFTI_DOUBLE = 36
  integer, parameter, public :: DFTI_COMPLEX_COMPLEX = 39
  integer, parameter, public :: DFTI_COMPLEX_REAL = 40
  integer, parameter, public :: DFTI_REAL_REAL = 42
  integer, parameter, public :: DFTI_INPLACE = 43
  integer, parameter, public :: DFTI_NOT_INPLACE = 44
  integer, parameter, public :: DFTI_ORDERED = 48
  integer, parameter, public :: DFTI_BACKWARD_SCRAMBLED = 49
  integer, parameter, public :: DFTI_NONE = 53
  integer, parameter, public :: DFTI_CCS_FORMAT = 54
  integer, parameter, public :: DFTI_PACK_FORMAT = 55
  integer, parameter, public :: DFTI_PERM_FORMAT = 56
  integer, parameter, public :: DFTI_CCE_FORMAT = 57
  integer, parameter, public :: DFTI_NO_ERROR = 0
  integer, parameter, public :: DFTI_MEMORY_ERROR = 1
  integer, parameter, public :: DFTI_INVALID_CONFIGURATION = 2
  integer, parameter, public :: DFTI_INCONSISTENT_CONFIGURATION = 3
  integer, parameter, public :: DFTI_MULTITHREADED_ERROR = 4
  integer, parameter, public :: DFTI_BAD_DESCRIPTOR = 5
  integer, parameter, public :: DFTI_UNIMPLEMENTED = 6
  integer, parameter, public :: DFTI_VOR_INTERNAL_ERROR = 7
  integer, parameter, public :: DFTI_NUMBER_OF_THREADS_ERROR = 8
  integer, parameter, public :: DFTI_MAX_NAME_LENGTH = 10
  integer, parameter, public :: DFTI_VERSION_LENGTH = 198
  integer, parameter, public :: DFTI_ERROR_MESSAGE_LENGTH = 40

  public :: DftiCreateDescriptor
  public :: DftiCommitDescriptor
  public :: DftiFreeDescriptor
  public :: DftiSetValue
  public :: DftiGetValue
  public :: DftiComputeForward
  public :: DftiComputeBackward
  public :: DftiErrorClass
  public :: DftiErrorMessage

  interface DftiCreateDescriptor
    function dfti_create_descriptor_1d(handle, precision, domain, dimension, length)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_create_descriptor_1d
      type(DFTI_DESCRIPTOR), pointer :: handle
      integer, intent(in) :: precision, domain, dimension, length
    end function
    function dfti_create_descriptor_highd(handle, precision, domain, dimension, length)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_create_descriptor_highd
      type(DFTI_DESCRIPTOR), pointer :: handle
      integer, intent(in) :: precision, domain, dimension, length(*)
    end function
  end interface

  interface DftiCommitDescriptor
    function dfti_commit_descriptor_external(handle)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_commit_descriptor_external
      type(DFTI_DESCRIPTOR), pointer :: handle
    end function
  end interface

  interface DftiFreeDescriptor
    function dfti_free_descriptor_external(handle)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_free_descriptor_external
      type(DFTI_DESCRIPTOR), pointer :: handle
    end function
  end interface

  interface DftiSetValue
    function dfti_set_value_intval(handle, parameter, value)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_set_value_intval
      type(DFTI_DESCRIPTOR), pointer :: handle
      integer, intent(in) :: parameter
      integer, intent(in) :: value
    end function
    function dfti_set_value_sglval(handle, parameter, value)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_set_value_sglval
      type(DFTI_DESCRIPTOR), pointer :: handle
      integer, intent(in) :: parameter
      real(4), intent(in) :: value
    end function
    function dfti_set_value_dblval(handle, parameter, value)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_set_value_dblval
      type(DFTI_DESCRIPTOR), pointer :: handle
      integer, intent(in) :: parameter
      real(8), intent(in) :: value
    end function
    function dfti_set_value_intvec(handle, parameter, value)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_set_value_intvec
      type(DFTI_DESCRIPTOR), pointer :: handle
      integer, intent(in) :: parameter
      integer, intent(in) :: value(*)
    end function
    module procedure set_text
  end interface

  interface DftiGetValue
    function dfti_get_value_intval(handle, parameter, value)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_get_value_intval
      type(DFTI_DESCRIPTOR), pointer :: handle
      integer, intent(in) :: parameter
      integer, intent(out) :: value
    end function
    function dfti_get_value_sglval(handle, parameter, value)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_get_value_sglval
      type(DFTI_DESCRIPTOR), pointer :: handle
      integer, intent(in) :: parameter
      real(4), intent(out) :: value
    end function
    function dfti_get_value_dblval(handle, parameter, value)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_get_value_dblval
      type(DFTI_DESCRIPTOR), pointer :: handle
      integer, intent(in) :: parameter
      real(8), intent(out) :: value
    end function
    function dfti_get_value_intvec(handle, parameter, value)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_get_value_intvec
      type(DFTI_DESCRIPTOR), pointer :: handle
      integer, intent(in) :: parameter
      integer, intent(out) :: value(*)
    end function
    module procedure get_text
  end interface

  ! The entries of one kind of data each, by the addresses of the arrays.
  abstract interface
    integer function in_place(handle, x)
      import :: DFTI_DESCRIPTOR, c_ptr
      type(DFTI_DESCRIPTOR), pointer :: handle
      type(c_ptr), value :: x
    end function
    integer function out_of_place(handle, x, y)
      import :: DFTI_DESCRIPTOR, c_ptr
      type(DFTI_DESCRIPTOR), pointer :: handle
      type(c_ptr), value :: x, y
    end function
    integer function text_value(handle, parameter, text)
      import :: DFTI_DESCRIPTOR
      type(DFTI_DESCRIPTOR), pointer :: handle
      integer, intent(in) :: parameter
      character(*), intent(inout) :: text
    end function
  end interface
  procedure(in_place) :: dfti_compute_forward_c
  procedure(out_of_place) :: dfti_compute_forward_c_out
  procedure(in_place) :: dfti_compute_forward_z
  procedure(out_of_place) :: dfti_compute_forward_z_out
  procedure(in_place) :: dfti_compute_forward_s
  procedure(out_of_place) :: dfti_compute_forward_s_out
  procedure(in_place) :: dfti_compute_forward_d
  procedure(out_of_place) :: dfti_compute_forward_d_out
  procedure(out_of_place) :: dfti_compute_forward_sc_out
  procedure(out_of_place) :: dfti_compute_forward_dz_out
  procedure(in_place) :: dfti_compute_backward_c
  procedure(out_of_place) :: dfti_compute_backward_c_out
  procedure(in_place) :: dfti_compute_backward_z
  procedure(out_of_place) :: dfti_compute_backward_z_out
  procedure(in_place) :: dfti_compute_backward_s
  procedure(out_of_place) :: dfti_compute_backward_s_out
  procedure(in_place) :: dfti_compute_backward_d
  procedure(out_of_place) :: dfti_compute_backward_d_out
  procedure(out_of_place) :: dfti_compute_backward_cs_out
  procedure(out_of_place) :: dfti_compute_backward_zd_out
  procedure(text_value) :: dfti_set_value_chars, dfti_get_value_chars

  interface DftiComputeForward
    module procedure forward_c, forward_c_out
    module procedure forward_z, forward_z_out
    module procedure forward_s, forward_s_out
    module procedure forward_d, forward_d_out
    module procedure forward_sc_out, forward_dz_out
  end interface

  interface DftiComputeBackward
    module procedure backward_c, backward_c_out
    module procedure backward_z, backward_z_out
    module procedure backward_s, backward_s_out
    module procedure backward_d, backward_d_out
    module procedure backward_cs_out, backward_zd_out
  end interface

  interface DftiErrorClass
    function dfti_error_class_external(status, error_class)
      integer :: dfti_error_class_external
      integer, intent(in) :: status, error_class
    end function
  end interface

  interface DftiErrorMessage
    function dfti_error_message_external(status)
      character(40) :: dfti_error_message_external
      integer, intent(in) :: status
    end function
  end interface
contains

  ! The library reads ten characters of a name, whatever the text has.
  integer function set_text(handle, parameter, value)
    type(DFTI_DESCRIPTOR), pointer :: handle
    integer, intent(in) :: parameter
    character(*), intent(in) :: value
    character(DFTI_VERSION_LENGTH) :: padded
    padded = value
    set_text = dfti_set_value_chars(handle, parameter, padded)
  end function

  ! The library writes ten characters of a name, or all of the version, whatever the variable holds.
  integer function get_text(handle, parameter, value)
    type(DFTI_DESCRIPTOR), pointer :: handle
    integer, intent(in) :: parameter
    character(*), intent(inout) :: value
    character(DFTI_VERSION_LENGTH) :: padded
    padded = value
    get_text = dfti_get_value_chars(handle, parameter, padded)
    value = padded
  end function

  integer function forward_c(handle, x)
    type(DFTI_DESCRIPTOR), pointer :: handle
    complex(4), intent(inout), contiguous, target :: x(..)
    forward_c = dfti_compute_forward_c(handle, c_loc(x))
  end function

  integer function forward_c_out(handle, x, y)
    type(DFTI_DESCRIPTOR), pointer :: handle
    complex(4), intent(in), contiguous, target :: x(..)
    complex(4), intent(inout), contiguous, target :: y(..)
    forward_c_out = dfti_compute_forward_c_out(handle, c_loc(x), c_loc(y))
  end function

  integer function forward_z(handle, x)
    type(DFTI_DESCRIPTOR), pointer :: handle
    complex(8), intent(inout), contiguous, target :: x(..)
    forward_z = dfti_compute_forward_z(handle, c_loc(x))
  end function

  integer function forward_z_out(handle, x, y)
    type(DFTI_DESCRIPTOR), pointer :: handle
    complex(8), intent(in), contiguous, target :: x(..)
    complex(8), intent(inout), contiguous, target :: y(..)
    forward_z_out = dfti_compute_forward_z_out(handle, c_loc(x), c_loc(y))
  end function

  integer function forward_s(handle, x)
    type(DFTI_DESCRIPTOR), pointer :: handle
    real(4), intent(inout), contiguous, target :: x(..)
    forward_s = dfti_compute_forward_s(handle, c_loc(x))
  end function

  integer function forward_s_out(handle, x, y)
    type(DFTI_DESCRIPTOR), pointer :: handle
    real(4), intent(in), contiguous, target :: x(..)
    real(4), intent(inout), contiguous, target :: y(..)
    forward_s_out = dfti_compute_forward_s_out(handle, c_loc(x), c_loc(y))
  end function

  integer function forward_d(handle, x)
    type(DFTI_DESCRIPTOR), pointer :: handle
    real(8), intent(inout), contiguous, target :: x(..)
    forward_d = dfti_compute_forward_d(handle, c_loc(x))
  end function

  integer function forward_d_out(handle, x, y)
    type(DFTI_DESCRIPTOR), pointer :: handle
    real(8), intent(in), contiguous, target :: x(..)
    real(8), intent(inout), contiguous, target :: y(..)
    forward_d_out = dfti_compute_forward_d_out(handle, c_loc(x), c_loc(y))
  end function

  integer function forward_sc_out(handle, x, y)
    type(DFTI_DESCRIPTOR), pointer :: handle
    real(4), intent(in), contiguous, target :: x(..)
    complex(4), intent(inout), contiguous, target :: y(..)
    forward_sc_out = dfti_compute_forward_sc_out(handle, c_loc(x), c_loc(y))
  end function

  integer function forward_dz_out(handle, x, y)
    type(DFTI_DESCRIPTOR), pointer :: handle
    real(8), intent(in), contiguous, target :: x(..)
    complex(8), intent(inout), contiguous, target :: y(..)
    forward_dz_out = dfti_compute_forward_dz_out(handle, c_loc(x), c_loc(y))
  end function

  integer function backward_c(handle, x)
    type(DFTI_DESCRIPTOR), pointer :: handle
    complex(4), intent(inout), contiguous, target :: x(..)
    backward_c = dfti_compute_backward_c(handle, c_loc(x))
  end function

  integer function backward_c_out(handle, x, y)
    type(DFTI_DESCRIPTOR), pointer :: handle
    complex(4), intent(in), contiguous, target :: x(..)
    complex(4), intent(inout), contiguous, target :: y(..)
    backward_c_out = dfti_compute_backward_c_out(handle, c_loc(x), c_loc(y))
  end function

  integer function backward_z(handle, x)
    type(DFTI_DESCRIPTOR), pointer :: handle
    complex(8), intent(inout), contiguous, target :: x(..)
    backward_z = dfti_compute_backward_z(handle, c_loc(x))
  end function

  integer function backward_z_out(handle, x, y)
    type(DFTI_DESCRIPTOR), pointer :: handle
    complex(8), intent(in), contiguous, target :: x(..)
    complex(8), intent(inout), contiguous, target :: y(..)
    backward_z_out = dfti_compute_backward_z_out(handle, c_loc(x), c_loc(y))
  end function

  integer function backward_s(handle, x)
    type(DFTI_DESCRIPTOR), pointer :: handle
    real(4), intent(inout), contiguous, target :: x(..)
    backward_s = dfti_compute_backward_s(handle, c_loc(x))
  end function

  integer function backward_s_out(handle, x, y)
    type(DFTI_DESCRIPTOR), pointer :: handle
    real(4), intent(in), contiguous, target :: x(..)
    real(4), intent(inout), contiguous, target :: y(..)
    backward_s_out = dfti_compute_backward_s_out(handle, c_loc(x), c_loc(y))
  end function

  integer function backward_d(handle, x)
    type(DFTI_DESCRIPTOR), pointer :: handle
    real(8), intent(inout), contiguous, target :: x(..)
    backward_d = dfti_compute_backward_d(handle, c_loc(x))
  end function

  integer function backward_d_out(handle, x, y)
    type(DFTI_DESCRIPTOR), pointer :: handle
    real(8), intent(in), contiguous, target :: x(..)
    real(8), intent(inout), contiguous, target :: y(..)
    backward_d_out = dfti_compute_backward_d_out(handle, c_loc(x), c_loc(y))
  end function

  integer function backward_cs_out(handle, x, y)
    type(DFTI_DESCRIPTOR), pointer :: handle
    complex(4), intent(in), contiguous, target :: x(..)
    real(4), intent(inout), contiguous, target :: y(..)
    backward_cs_out = dfti_compute_backward_cs_out(handle, c_loc(x), c_loc(y))
  end function

  integer function backward_zd_out(handle, x, y)
    type(DFTI_DESCRIPTOR), pointer :: handle
    complex(8), intent(in), contiguous, target :: x(..)
    real(8), intent(inout), contiguous, target :: y(..)
    backward_zd_out = dfti_compute_backward_zd_out(handle, c_loc(x), c_loc(y))
  end function
end module
