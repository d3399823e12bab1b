! vor_fft: the one-call Fourier transforms, for Fortran. vor_fft.h tells what each of them does; here are their
! interfaces.
!
!     use vor_fft
!     complex(8) :: x(1024)
!     real(8) :: wsave(3 * 1024 + 32)
!     call zfft1d(x, 1024, 0, wsave)     ! once for a length
!     call zfft1d(x, 1024, -1, wsave)    ! forward
!     call zfft1d(x, 1024, 1, wsave)     ! back
!
! Planes are arrays of m rows and n columns; those of reals have two rows and two columns more. Compile this file
! with the program. With -ff2c add -fno-second-underscore, since the names of the library have one underscore
! behind them. The split forms, whose names end in c, take integers by value and are for C.
module vor_fft
  implicit none
  private

  public :: cfft1d, zfft1d, cfft2d, zfft2d
  public :: scfft1d, dzfft1d, csfft1d, zdfft1d
  public :: scfft2d, dzfft2d, csfft2d, zdfft2d

  interface
    ! Complex vectors. isign: 0 fills wsave, -1 and -2 forward, 1 and 2 inverse; 2 for bit-reversed order.
    subroutine cfft1d(r, n, isign, wsave)
      integer, intent(in) :: n, isign
      complex(4), intent(inout) :: r(*)
      real(4), intent(inout) :: wsave(*) ! 3 n + 64
    end subroutine
    subroutine zfft1d(r, n, isign, wsave)
      integer, intent(in) :: n, isign
      complex(8), intent(inout) :: r(*)
      real(8), intent(inout) :: wsave(*) ! 3 n + 32
    end subroutine

    ! Complex planes. isign: -1, -2, 1, 2.
    subroutine cfft2d(r, m, n, isign)
      integer, intent(in) :: m, n, isign
      complex(4), intent(inout) :: r(m, *)
    end subroutine
    subroutine zfft2d(r, m, n, isign)
      integer, intent(in) :: m, n, isign
      complex(8), intent(inout) :: r(m, *)
    end subroutine

    ! Real vectors to their spectra, r of n + 2 words. isign: 0 fills wsave, else forward.
    subroutine scfft1d(r, n, isign, wsave)
      integer, intent(in) :: n, isign
      real(4), intent(inout) :: r(*), wsave(*) ! 2 n + 64
    end subroutine
    subroutine dzfft1d(r, n, isign, wsave)
      integer, intent(in) :: n, isign
      real(8), intent(inout) :: r(*), wsave(*) ! 2 n + 32
    end subroutine

    ! Back from spectra to reals.
    subroutine csfft1d(r, n, isign, wsave)
      integer, intent(in) :: n, isign
      real(4), intent(inout) :: r(*), wsave(*)
    end subroutine
    subroutine zdfft1d(r, n, isign, wsave)
      integer, intent(in) :: n, isign
      real(8), intent(inout) :: r(*), wsave(*)
    end subroutine

    ! Real planes to their spectra, and back.
    subroutine scfft2d(r, m, n)
      integer, intent(in) :: m, n
      real(4), intent(inout) :: r(m + 2, n + 2)
    end subroutine
    subroutine dzfft2d(r, m, n)
      integer, intent(in) :: m, n
      real(8), intent(inout) :: r(m + 2, n + 2)
    end subroutine
    subroutine csfft2d(r, m, n)
      integer, intent(in) :: m, n
      real(4), intent(inout) :: r(m + 2, n + 2)
    end subroutine
    subroutine zdfft2d(r, m, n)
      integer, intent(in) :: m, n
      real(8), intent(inout) :: r(m + 2, n + 2)
    end subroutine
  end interface
end module
