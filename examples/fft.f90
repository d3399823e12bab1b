! A real signal and its spectrum by a one-call transform: wsave is filled once and serves every transform of its
! length. Build it with
!     gfortran -m32 -ff2c -fno-second-underscore vor_fft.f90 fft.f90 -lvor_k1
program fft
  use vor_fft
  implicit none
  integer, parameter :: n = 512, tone = 28
  real(8), parameter :: pi = 3.14159265358979323846d0
  real(8) :: r(n + 2), x(n), wsave(2 * n + 32), magnitude(0:n / 2)
  integer :: k

  x = [(3 * cos(2 * pi * tone * k / n), k = 0, n - 1)]
  r(:n) = x
  call dzfft1d(r, n, 0, wsave)
  call dzfft1d(r, n, -1, wsave)
  magnitude = [(abs(cmplx(r(2 * k + 1), r(2 * k + 2), 8)), k = 0, n / 2)]
  print '(a, i0, a, f8.3)', 'strongest at ', maxloc(magnitude, 1) - 1, ', magnitude ', &
    maxval(magnitude)
  if (maxloc(magnitude, 1) - 1 /= tone) stop 1
  if (abs(maxval(magnitude) - 1.5d0 * n) > 1d-9) stop 2
  call zdfft1d(r, n, 1, wsave)
  if (maxval(abs(r(:n) - x)) > 1d-13) stop 3
end program
