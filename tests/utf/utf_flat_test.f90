! All twelve through the interface module, from Fortran's own arrays; stops with 1 when something is not as it should be.
program utf_flat_test
  use iso_c_binding, only: c_double, c_float, c_int32_t
  use utf_flat
  implicit none
  real(c_double) :: a(2, 3), b(3, 2), c(3, 3), v(3, 3), q(4), o(7), s(6) = [1d0, 2d0, 4d0, 0.5d0, -1d0, 0.25d0]
  real(c_float) :: single(1)

  call utf_aset(a, 0.5d0, 5)
  a(2, 3) = 1d40
  call utf_acopds(a(2, 3), single, 1)
  call utf_atra(a, b, 2, 3)
  call utf_aprd(b, a, c, 3, 2, 3)
  if (any(b /= transpose(a)) .or. single(1) /= 1e36 .or. any(c /= matmul(b, a))) error stop 1
  call utf_calprinquat(s, o, 1, 7, 3, 3)
  call utf_sprind(s, q(1:3), v, 1, 3, 3)
  call utf_asortd(q(1:3), v, 7)  ! is sorted
  v = transpose(v)
  if (any(q(1:3) /= o(1:3))) error stop 1
  call utf_axprd(v(:, 1), v(:, 2), v(:, 3))
  call utf_getquat(q, v)
  if (any(q /= o(4:7))) error stop 1
  call utf_calquat(q, v, 1)
  call utf_copy(q, o(4), 4)
  call utf_quatrot(s, [o(4), -o(5:7)], c, 6)  ! turns the other way: the conjugate leads to the principal axes
  if (any(abs(c - reshape([o(1), 0d0, 0d0, 0d0, o(2), 0d0, 0d0, 0d0, o(3)], [3, 3])) > 1d-14)) error stop 1
end program utf_flat_test
