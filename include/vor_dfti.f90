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
! Lengths and strides stand in Fortran order, the fastest dimension first. Scales are set and read in
! the precision of the variable. Compile this file with the program. With -ff2c add
! -fno-second-underscore, since the names of the library have one underscore behind them.
module vor_dfti
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
    function dfti_set_value_chars(handle, parameter, value)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_set_value_chars
      type(DFTI_DESCRIPTOR), pointer :: handle
      integer, intent(in) :: parameter
      character(*), intent(in) :: value
    end function
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
    function dfti_get_value_chars(handle, parameter, value)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_get_value_chars
      type(DFTI_DESCRIPTOR), pointer :: handle
      integer, intent(in) :: parameter
      character(*), intent(out) :: value
    end function
  end interface

  interface DftiComputeForward
    function dfti_compute_forward_c(handle, x)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_compute_forward_c
      type(DFTI_DESCRIPTOR), pointer :: handle
      complex(4), intent(inout) :: x(*)
    end function
    function dfti_compute_forward_c_out(handle, x, y)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_compute_forward_c_out
      type(DFTI_DESCRIPTOR), pointer :: handle
      complex(4), intent(in) :: x(*)
      complex(4), intent(inout) :: y(*)
    end function
    function dfti_compute_forward_z(handle, x)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_compute_forward_z
      type(DFTI_DESCRIPTOR), pointer :: handle
      complex(8), intent(inout) :: x(*)
    end function
    function dfti_compute_forward_z_out(handle, x, y)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_compute_forward_z_out
      type(DFTI_DESCRIPTOR), pointer :: handle
      complex(8), intent(in) :: x(*)
      complex(8), intent(inout) :: y(*)
    end function
    function dfti_compute_forward_s(handle, x)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_compute_forward_s
      type(DFTI_DESCRIPTOR), pointer :: handle
      real(4), intent(inout) :: x(*)
    end function
    function dfti_compute_forward_s_out(handle, x, y)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_compute_forward_s_out
      type(DFTI_DESCRIPTOR), pointer :: handle
      real(4), intent(in) :: x(*)
      real(4), intent(inout) :: y(*)
    end function
    function dfti_compute_forward_d(handle, x)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_compute_forward_d
      type(DFTI_DESCRIPTOR), pointer :: handle
      real(8), intent(inout) :: x(*)
    end function
    function dfti_compute_forward_d_out(handle, x, y)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_compute_forward_d_out
      type(DFTI_DESCRIPTOR), pointer :: handle
      real(8), intent(in) :: x(*)
      real(8), intent(inout) :: y(*)
    end function
    function dfti_compute_forward_sc_out(handle, x, y)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_compute_forward_sc_out
      type(DFTI_DESCRIPTOR), pointer :: handle
      real(4), intent(in) :: x(*)
      complex(4), intent(inout) :: y(*)
    end function
    function dfti_compute_forward_dz_out(handle, x, y)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_compute_forward_dz_out
      type(DFTI_DESCRIPTOR), pointer :: handle
      real(8), intent(in) :: x(*)
      complex(8), intent(inout) :: y(*)
    end function
  end interface

  interface DftiComputeBackward
    function dfti_compute_backward_c(handle, x)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_compute_backward_c
      type(DFTI_DESCRIPTOR), pointer :: handle
      complex(4), intent(inout) :: x(*)
    end function
    function dfti_compute_backward_c_out(handle, x, y)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_compute_backward_c_out
      type(DFTI_DESCRIPTOR), pointer :: handle
      complex(4), intent(in) :: x(*)
      complex(4), intent(inout) :: y(*)
    end function
    function dfti_compute_backward_z(handle, x)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_compute_backward_z
      type(DFTI_DESCRIPTOR), pointer :: handle
      complex(8), intent(inout) :: x(*)
    end function
    function dfti_compute_backward_z_out(handle, x, y)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_compute_backward_z_out
      type(DFTI_DESCRIPTOR), pointer :: handle
      complex(8), intent(in) :: x(*)
      complex(8), intent(inout) :: y(*)
    end function
    function dfti_compute_backward_s(handle, x)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_compute_backward_s
      type(DFTI_DESCRIPTOR), pointer :: handle
      real(4), intent(inout) :: x(*)
    end function
    function dfti_compute_backward_s_out(handle, x, y)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_compute_backward_s_out
      type(DFTI_DESCRIPTOR), pointer :: handle
      real(4), intent(in) :: x(*)
      real(4), intent(inout) :: y(*)
    end function
    function dfti_compute_backward_d(handle, x)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_compute_backward_d
      type(DFTI_DESCRIPTOR), pointer :: handle
      real(8), intent(inout) :: x(*)
    end function
    function dfti_compute_backward_d_out(handle, x, y)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_compute_backward_d_out
      type(DFTI_DESCRIPTOR), pointer :: handle
      real(8), intent(in) :: x(*)
      real(8), intent(inout) :: y(*)
    end function
    function dfti_compute_backward_cs_out(handle, x, y)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_compute_backward_cs_out
      type(DFTI_DESCRIPTOR), pointer :: handle
      complex(4), intent(in) :: x(*)
      real(4), intent(inout) :: y(*)
    end function
    function dfti_compute_backward_zd_out(handle, x, y)
      import :: DFTI_DESCRIPTOR
      integer :: dfti_compute_backward_zd_out
      type(DFTI_DESCRIPTOR), pointer :: handle
      complex(8), intent(in) :: x(*)
      real(8), intent(inout) :: y(*)
    end function
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
end module
