! A matrix product from Fortran: a Hilbert matrix times its exact inverse. Build it with
!
!     gfortran -m32 product.f90 $(pkg-config --libs vor)
program product_of_matrices
    implicit none
    integer, parameter :: n = 6
    real(kind=8) :: hilbert(n, n), inverse(n, n), unit(n, n)
    real(kind=8) :: off
    integer :: i, j

    do j = 1, n
        do i = 1, n
            hilbert(i, j) = 1d0/(i + j - 1)
            inverse(i, j) = (-1)**(i + j)*(i + j - 1)*choose(n + i - 1, n - j) &
                *choose(n + j - 1, n - i)*choose(i + j - 2, i - 1)**2
            unit(i, j) = merge(-1d0, 0d0, i == j)
        end do
    end do

    ! unit := hilbert * inverse - identity
    call dgemm('N', 'N', n, n, n, 1d0, hilbert, n, inverse, n, 1d0, unit, n)
    off = maxval(abs(unit))
    print '(a, es9.2)', ' largest element of the inverse   ', maxval(abs(inverse))
    print '(a, es9.2)', ' off the identity by at most      ', off
    if (off > 1d-9) error stop 'wrong result'

contains

    pure real(kind=8) function choose(top, bottom)
        integer, intent(in) :: top, bottom
        integer :: k
        choose = 1
        do k = 1, bottom
            choose = choose*(top - bottom + k)/k
        end do
    end function choose
end program product_of_matrices
