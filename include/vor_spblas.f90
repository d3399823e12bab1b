! vor_spblas: sparse BLAS for Fortran: explicit interfaces, so that the compiler sees wrong kinds and missing
! arguments. vor_spblas.h tells what each routine does, and how the arrays of each format hold a matrix.
!
!     use vor_spblas
!     call vor_dcsrgemv('N', n, a, ia, ja, x, y)
!
! Matrices B and C are arrays of rank two, or the first element of one. Compile this file with the program. With
! -ff2c add -fno-second-underscore, since the names of the library have one underscore behind them.
module vor_spblas
  implicit none

  interface
    subroutine vor_dcsrmm(transa, m, n, k, alpha, matdescra, val, indx, pntrb, pntre, b, ldb, &
        beta, c, ldc)
      character, intent(in) :: transa, matdescra*(*)
      integer, intent(in) :: m, n, k, ldb, ldc
      integer, intent(in) :: indx(*), pntrb(*), pntre(*)
      real(kind=8), intent(in) :: alpha, beta
      real(kind=8), intent(in) :: val(*), b(ldb, *)
      real(kind=8), intent(inout) :: c(ldc, *)
    end subroutine
    subroutine vor_dcscmm(transa, m, n, k, alpha, matdescra, val, indx, pntrb, pntre, b, ldb, &
        beta, c, ldc)
      character, intent(in) :: transa, matdescra*(*)
      integer, intent(in) :: m, n, k, ldb, ldc
      integer, intent(in) :: indx(*), pntrb(*), pntre(*)
      real(kind=8), intent(in) :: alpha, beta
      real(kind=8), intent(in) :: val(*), b(ldb, *)
      real(kind=8), intent(inout) :: c(ldc, *)
    end subroutine
    subroutine vor_dcoomm(transa, m, n, k, alpha, matdescra, val, rowind, colind, nnz, b, ldb, &
        beta, c, ldc)
      character, intent(in) :: transa, matdescra*(*)
      integer, intent(in) :: m, n, k, nnz, ldb, ldc
      integer, intent(in) :: rowind(*), colind(*)
      real(kind=8), intent(in) :: alpha, beta
      real(kind=8), intent(in) :: val(*), b(ldb, *)
      real(kind=8), intent(inout) :: c(ldc, *)
    end subroutine
    subroutine vor_ddiamm(transa, m, n, k, alpha, matdescra, val, lval, idiag, ndiag, b, ldb, &
        beta, c, ldc)
      character, intent(in) :: transa, matdescra*(*)
      integer, intent(in) :: m, n, k, lval, ndiag, ldb, ldc
      integer, intent(in) :: idiag(*)
      real(kind=8), intent(in) :: alpha, beta
      real(kind=8), intent(in) :: val(lval, *), b(ldb, *)
      real(kind=8), intent(inout) :: c(ldc, *)
    end subroutine
    subroutine vor_dskymm(transa, m, n, k, alpha, matdescra, val, pntr, b, ldb, beta, c, ldc)
      character, intent(in) :: transa, matdescra*(*)
      integer, intent(in) :: m, n, k, ldb, ldc
      integer, intent(in) :: pntr(*)
      real(kind=8), intent(in) :: alpha, beta
      real(kind=8), intent(in) :: val(*), b(ldb, *)
      real(kind=8), intent(inout) :: c(ldc, *)
    end subroutine
    subroutine vor_dcsrmv(transa, m, k, alpha, matdescra, val, indx, pntrb, pntre, x, beta, y)
      character, intent(in) :: transa, matdescra*(*)
      integer, intent(in) :: m, k
      integer, intent(in) :: indx(*), pntrb(*), pntre(*)
      real(kind=8), intent(in) :: alpha, beta
      real(kind=8), intent(in) :: val(*), x(*)
      real(kind=8), intent(inout) :: y(*)
    end subroutine
    subroutine vor_dcscmv(transa, m, k, alpha, matdescra, val, indx, pntrb, pntre, x, beta, y)
      character, intent(in) :: transa, matdescra*(*)
      integer, intent(in) :: m, k
      integer, intent(in) :: indx(*), pntrb(*), pntre(*)
      real(kind=8), intent(in) :: alpha, beta
      real(kind=8), intent(in) :: val(*), x(*)
      real(kind=8), intent(inout) :: y(*)
    end subroutine
    subroutine vor_dcoomv(transa, m, k, alpha, matdescra, val, rowind, colind, nnz, x, beta, y)
      character, intent(in) :: transa, matdescra*(*)
      integer, intent(in) :: m, k, nnz
      integer, intent(in) :: rowind(*), colind(*)
      real(kind=8), intent(in) :: alpha, beta
      real(kind=8), intent(in) :: val(*), x(*)
      real(kind=8), intent(inout) :: y(*)
    end subroutine
    subroutine vor_ddiamv(transa, m, k, alpha, matdescra, val, lval, idiag, ndiag, x, beta, y)
      character, intent(in) :: transa, matdescra*(*)
      integer, intent(in) :: m, k, lval, ndiag
      integer, intent(in) :: idiag(*)
      real(kind=8), intent(in) :: alpha, beta
      real(kind=8), intent(in) :: val(lval, *), x(*)
      real(kind=8), intent(inout) :: y(*)
    end subroutine
    subroutine vor_dskymv(transa, m, k, alpha, matdescra, val, pntr, x, beta, y)
      character, intent(in) :: transa, matdescra*(*)
      integer, intent(in) :: m, k
      integer, intent(in) :: pntr(*)
      real(kind=8), intent(in) :: alpha, beta
      real(kind=8), intent(in) :: val(*), x(*)
      real(kind=8), intent(inout) :: y(*)
    end subroutine
    subroutine vor_dcsrsv(transa, m, alpha, matdescra, val, indx, pntrb, pntre, x, y)
      character, intent(in) :: transa, matdescra*(*)
      integer, intent(in) :: m
      integer, intent(in) :: indx(*), pntrb(*), pntre(*)
      real(kind=8), intent(in) :: alpha
      real(kind=8), intent(in) :: val(*), x(*)
      real(kind=8), intent(inout) :: y(*)
    end subroutine
    subroutine vor_dcscsv(transa, m, alpha, matdescra, val, indx, pntrb, pntre, x, y)
      character, intent(in) :: transa, matdescra*(*)
      integer, intent(in) :: m
      integer, intent(in) :: indx(*), pntrb(*), pntre(*)
      real(kind=8), intent(in) :: alpha
      real(kind=8), intent(in) :: val(*), x(*)
      real(kind=8), intent(inout) :: y(*)
    end subroutine
    subroutine vor_dcoosv(transa, m, alpha, matdescra, val, rowind, colind, nnz, x, y)
      character, intent(in) :: transa, matdescra*(*)
      integer, intent(in) :: m, nnz
      integer, intent(in) :: rowind(*), colind(*)
      real(kind=8), intent(in) :: alpha
      real(kind=8), intent(in) :: val(*), x(*)
      real(kind=8), intent(inout) :: y(*)
    end subroutine
    subroutine vor_ddiasv(transa, m, alpha, matdescra, val, lval, idiag, ndiag, x, y)
      character, intent(in) :: transa, matdescra*(*)
      integer, intent(in) :: m, lval, ndiag
      integer, intent(in) :: idiag(*)
      real(kind=8), intent(in) :: alpha
      real(kind=8), intent(in) :: val(lval, *), x(*)
      real(kind=8), intent(inout) :: y(*)
    end subroutine
    subroutine vor_dskysv(transa, m, alpha, matdescra, val, pntr, x, y)
      character, intent(in) :: transa, matdescra*(*)
      integer, intent(in) :: m
      integer, intent(in) :: pntr(*)
      real(kind=8), intent(in) :: alpha
      real(kind=8), intent(in) :: val(*), x(*)
      real(kind=8), intent(inout) :: y(*)
    end subroutine
    subroutine vor_dcsrsm(transa, m, n, alpha, matdescra, val, indx, pntrb, pntre, b, ldb, c, &
        ldc)
      character, intent(in) :: transa, matdescra*(*)
      integer, intent(in) :: m, n, ldb, ldc
      integer, intent(in) :: indx(*), pntrb(*), pntre(*)
      real(kind=8), intent(in) :: alpha
      real(kind=8), intent(in) :: val(*), b(ldb, *)
      real(kind=8), intent(inout) :: c(ldc, *)
    end subroutine
    subroutine vor_dcscsm(transa, m, n, alpha, matdescra, val, indx, pntrb, pntre, b, ldb, c, &
        ldc)
      character, intent(in) :: transa, matdescra*(*)
      integer, intent(in) :: m, n, ldb, ldc
      integer, intent(in) :: indx(*), pntrb(*), pntre(*)
      real(kind=8), intent(in) :: alpha
      real(kind=8), intent(in) :: val(*), b(ldb, *)
      real(kind=8), intent(inout) :: c(ldc, *)
    end subroutine
    subroutine vor_dcoosm(transa, m, n, alpha, matdescra, val, rowind, colind, nnz, b, ldb, c, &
        ldc)
      character, intent(in) :: transa, matdescra*(*)
      integer, intent(in) :: m, n, nnz, ldb, ldc
      integer, intent(in) :: rowind(*), colind(*)
      real(kind=8), intent(in) :: alpha
      real(kind=8), intent(in) :: val(*), b(ldb, *)
      real(kind=8), intent(inout) :: c(ldc, *)
    end subroutine
    subroutine vor_ddiasm(transa, m, n, alpha, matdescra, val, lval, idiag, ndiag, b, ldb, c, &
        ldc)
      character, intent(in) :: transa, matdescra*(*)
      integer, intent(in) :: m, n, lval, ndiag, ldb, ldc
      integer, intent(in) :: idiag(*)
      real(kind=8), intent(in) :: alpha
      real(kind=8), intent(in) :: val(lval, *), b(ldb, *)
      real(kind=8), intent(inout) :: c(ldc, *)
    end subroutine
    subroutine vor_dskysm(transa, m, n, alpha, matdescra, val, pntr, b, ldb, c, ldc)
      character, intent(in) :: transa, matdescra*(*)
      integer, intent(in) :: m, n, ldb, ldc
      integer, intent(in) :: pntr(*)
      real(kind=8), intent(in) :: alpha
      real(kind=8), intent(in) :: val(*), b(ldb, *)
      real(kind=8), intent(inout) :: c(ldc, *)
    end subroutine
    subroutine vor_dcsrgemv(transa, m, a, ia, ja, x, y)
      character, intent(in) :: transa
      integer, intent(in) :: m
      integer, intent(in) :: ia(*), ja(*)
      real(kind=8), intent(in) :: a(*), x(*)
      real(kind=8), intent(inout) :: y(*)
    end subroutine
    subroutine vor_dcoogemv(transa, m, val, rowind, colind, nnz, x, y)
      character, intent(in) :: transa
      integer, intent(in) :: m, nnz
      integer, intent(in) :: rowind(*), colind(*)
      real(kind=8), intent(in) :: val(*), x(*)
      real(kind=8), intent(inout) :: y(*)
    end subroutine
    subroutine vor_ddiagemv(transa, m, val, lval, idiag, ndiag, x, y)
      character, intent(in) :: transa
      integer, intent(in) :: m, lval, ndiag
      integer, intent(in) :: idiag(*)
      real(kind=8), intent(in) :: val(lval, *), x(*)
      real(kind=8), intent(inout) :: y(*)
    end subroutine
    subroutine vor_dcsrsymv(uplo, m, a, ia, ja, x, y)
      character, intent(in) :: uplo
      integer, intent(in) :: m
      integer, intent(in) :: ia(*), ja(*)
      real(kind=8), intent(in) :: a(*), x(*)
      real(kind=8), intent(inout) :: y(*)
    end subroutine
    subroutine vor_dcoosymv(uplo, m, val, rowind, colind, nnz, x, y)
      character, intent(in) :: uplo
      integer, intent(in) :: m, nnz
      integer, intent(in) :: rowind(*), colind(*)
      real(kind=8), intent(in) :: val(*), x(*)
      real(kind=8), intent(inout) :: y(*)
    end subroutine
    subroutine vor_ddiasymv(uplo, m, val, lval, idiag, ndiag, x, y)
      character, intent(in) :: uplo
      integer, intent(in) :: m, lval, ndiag
      integer, intent(in) :: idiag(*)
      real(kind=8), intent(in) :: val(lval, *), x(*)
      real(kind=8), intent(inout) :: y(*)
    end subroutine
    subroutine vor_dcsrtrsv(uplo, transa, diag, m, a, ia, ja, x, y)
      character, intent(in) :: uplo, transa, diag
      integer, intent(in) :: m
      integer, intent(in) :: ia(*), ja(*)
      real(kind=8), intent(in) :: a(*), x(*)
      real(kind=8), intent(inout) :: y(*)
    end subroutine
    subroutine vor_dcootrsv(uplo, transa, diag, m, val, rowind, colind, nnz, x, y)
      character, intent(in) :: uplo, transa, diag
      integer, intent(in) :: m, nnz
      integer, intent(in) :: rowind(*), colind(*)
      real(kind=8), intent(in) :: val(*), x(*)
      real(kind=8), intent(inout) :: y(*)
    end subroutine
    subroutine vor_ddiatrsv(uplo, transa, diag, m, val, lval, idiag, ndiag, x, y)
      character, intent(in) :: uplo, transa, diag
      integer, intent(in) :: m, lval, ndiag
      integer, intent(in) :: idiag(*)
      real(kind=8), intent(in) :: val(lval, *), x(*)
      real(kind=8), intent(inout) :: y(*)
    end subroutine
  end interface
end module
