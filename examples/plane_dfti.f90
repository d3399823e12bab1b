! A wave in two dimensions: the spectrum of real data in a packed format, in place, and as one half of a
! complex array.
program plane_dfti
  use vor_dfti
  implicit none
  integer, parameter :: m = 12, n = 10, across = 3, down = 2
  real(8), parameter :: pi = 3.14159265358979323846d0
  type(DFTI_DESCRIPTOR), pointer :: h
  real(8) :: given(m, n), x(m, n), back(m, n)
  complex(8) :: half(m / 2 + 1, n)
  character(12) :: name
  integer :: i, j, status(12)

  do j = 1, n
    do i = 1, m
      given(i, j) = 1 + cos(2 * pi * (dble(across * (i - 1)) / m + dble(down * (j - 1)) / n))
    end do
  end do

  ! Packed, in place: PACK takes the room of the data and no more. In column j, rows 2 t and 2 t + 1 hold
  ! the frequency (t, j - 1).
  x = given
  status(1) = DftiCreateDescriptor(h, DFTI_DOUBLE, DFTI_REAL, 2, [m, n])
  status(2) = DftiSetValue(h, DFTI_PACKED_FORMAT, DFTI_PACK_FORMAT)
  status(3) = DftiSetValue(h, DFTI_BACKWARD_SCALE, 1d0 / (m * n))
  status(4) = DftiSetValue(h, DFTI_DESCRIPTOR_NAME, 'wave')
  status(5) = DftiCommitDescriptor(h)
  status(6) = DftiComputeForward(h, x)
  print '(a, 2f7.3)', 'packed: mean and wave', x(1, 1) / (m * n), x(2 * across, 1 + down) / (m * n)
  if (abs(x(1, 1) / (m * n) - 1) > 1d-14) stop 1
  if (abs(x(2 * across, 1 + down) / (m * n) - 0.5d0) > 1d-14) stop 2
  status(7) = DftiComputeBackward(h, x(1, 1))
  name = '............'
  status(8) = DftiGetValue(h, DFTI_DESCRIPTOR_NAME, name)
  status(9) = DftiFreeDescriptor(h)
  if (any(status(1:9) /= DFTI_NO_ERROR)) stop 3
  if (maxval(abs(x - given)) > 1d-14) stop 4
  if (name /= 'wave      ..') stop 5

  ! One half of the complex spectrum, in an array of its own. The other half is its mirror image.
  status(1) = DftiCreateDescriptor(h, DFTI_DOUBLE, DFTI_REAL, 2, [m, n])
  status(2) = DftiSetValue(h, DFTI_CONJUGATE_EVEN_STORAGE, DFTI_COMPLEX_COMPLEX)
  status(3) = DftiSetValue(h, DFTI_PLACEMENT, DFTI_NOT_INPLACE)
  status(4) = DftiSetValue(h, DFTI_BACKWARD_SCALE, 1d0 / (m * n))
  status(5) = DftiSetValue(h, DFTI_OUTPUT_STRIDES, [0, 1, size(half, 1)])
  status(6) = DftiCommitDescriptor(h)
  status(7) = DftiComputeForward(h, given, half)
  status(8) = DftiSetValue(h, DFTI_INPUT_STRIDES, [0, 1, size(half, 1)])
  status(9) = DftiSetValue(h, DFTI_OUTPUT_STRIDES, [0, 1, m])
  status(10) = DftiCommitDescriptor(h)
  status(11) = DftiComputeBackward(h, half, back)
  status(12) = DftiFreeDescriptor(h)
  if (any(status /= DFTI_NO_ERROR)) stop 6
  print '(a, 2f7.3)', 'half:   mean and wave', real(half(1, 1)) / (m * n), &
    real(half(1 + across, 1 + down)) / (m * n)
  if (abs(half(1, 1) / (m * n) - 1) > 1d-14) stop 7
  if (abs(half(1 + across, 1 + down) / (m * n) - 0.5d0) > 1d-14) stop 8
  if (maxval(abs(back - given)) > 1d-14) stop 9
end program
