! Vectors from Fortran: Gram-Schmidt on two complex vectors. Build it with
!
!     gfortran -m32 -ff2c vectors.f90 $(pkg-config --libs vor)
!
! -ff2c: functions with a complex result get the address of the result as their first argument, as
! this library expects it. Without it zdotc would read its arguments one place too far.
program vectors
    implicit none
    integer, parameter :: n = 3, one = 1
    complex(kind=8) :: x(n), y(n), overlap
    real(kind=8) :: length
    complex(kind=8), external :: zdotc
    real(kind=8), external :: dznrm2
    logical :: good

    x = [(1d0, 1d0), (0d0, 2d0), (-1d0, 0d0)]
    y = [(2d0, 0d0), (1d0, -1d0), (0d0, 3d0)]

    length = dznrm2(n, x, one)
    call zdscal(n, 1/length, x, one)
    overlap = zdotc(n, x, one, y, one)
    call zaxpy(n, -overlap, x, one, y, one)

    print '(a, f10.6)', ' length of x           ', length
    print '(a, 2f10.6)', ' overlap of x and y    ', overlap
    print '(a, es10.2)', ' overlap afterwards    ', abs(zdotc(n, x, one, y, one))

    good = abs(length - sqrt(7d0)) < 1d-14 &
        .and. abs(overlap - (0d0, -7d0)/sqrt(7d0)) < 1d-14 &
        .and. abs(zdotc(n, x, one, y, one)) < 1d-14
    if (.not. good) error stop 'wrong result'
end program vectors
