! A real signal of odd length and its spectrum, through the descriptor interface.
program dfti
  use vor_dfti
  implicit none
  integer, parameter :: n = 309, tone = 28
  real(8), parameter :: pi = 3.14159265358979323846d0
  type(DFTI_DESCRIPTOR), pointer :: h
  real(8) :: x(n), back(n), scale
  complex(8) :: spectrum((n + 1) / 2)
  integer :: k, status(9), strides(2)

  x = [(3 * cos(2 * pi * tone * k / n), k = 0, n - 1)]
  status(1) = DftiCreateDescriptor(h, DFTI_DOUBLE, DFTI_REAL, 1, n)
  status(2) = DftiSetValue(h, DFTI_CONJUGATE_EVEN_STORAGE, DFTI_COMPLEX_COMPLEX)
  status(3) = DftiSetValue(h, DFTI_PLACEMENT, DFTI_NOT_INPLACE)
  status(4) = DftiSetValue(h, DFTI_BACKWARD_SCALE, 1d0 / n)
  status(5) = DftiCommitDescriptor(h)
  status(6) = DftiComputeForward(h, x, spectrum)
  status(7) = DftiComputeBackward(h, spectrum, back)
  status(8) = DftiGetValue(h, DFTI_BACKWARD_SCALE, scale)
  status(9) = DftiGetValue(h, DFTI_INPUT_STRIDES, strides)
  if (any(status /= DFTI_NO_ERROR)) stop 1
  if (any(strides /= [0, 1])) stop 2
  status(1) = DftiFreeDescriptor(h)
  if (status(1) /= DFTI_NO_ERROR .or. associated(h)) stop 3
  print '(a, i0, a, f8.3)', 'strongest at ', maxloc(abs(spectrum), 1) - 1, ', magnitude ', &
    maxval(abs(spectrum))
  if (maxloc(abs(spectrum), 1) - 1 /= tone) stop 4
  if (abs(maxval(abs(spectrum)) - 1.5d0 * n) > 1d-9 .or. maxval(abs(back - x)) > 1d-12) stop 5
  if (DftiErrorMessage(DFTI_BAD_DESCRIPTOR) /= 'DFTI_BAD_DESCRIPTOR') stop 6
  if (DftiErrorClass(0, DFTI_NO_ERROR) /= 1) stop 7
end program
