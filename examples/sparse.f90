! A sparse system from Fortran: a lower triangle in compressed rows times a vector, and back. Build it with
!
!     gfortran -m32 vor_spblas.f90 sparse.f90 $(pkg-config --libs vor)
!
! where vor_spblas.f90 comes from the folder of the headers.
program sparse_triangle
  use vor_spblas
  implicit none
  integer, parameter :: n = 30
  real(kind=8) :: a(2 * n), x(n), y(n), z(n)
  integer :: ia(n + 1), ja(2 * n), i, p

  p = 1
  do i = 1, n
    ia(i) = p
    if (i > 1) then
      a(p) = -0.5d0
      ja(p) = i - 1
      p = p + 1
    end if
    a(p) = 2 + 1d0 / i
    ja(p) = i
    p = p + 1
    x(i) = cos(0.1d0 * i)
  end do
  ia(n + 1) = p

  call vor_dcsrmv('N', n, n, 1d0, 'TLN', a, ja, ia, ia(2), x, 0d0, y)
  call vor_dcsrtrsv('L', 'N', 'N', n, a, ia, ja, y, z)
  print '(a, es8.1)', 'largest error of the solution ', maxval(abs(z - x))
  if (maxval(abs(z - x)) > 1d-14) stop 1
end program
