! The flat routines for Fortran: compile this file with the program that uses it. What each routine does, and what is
! odd about it, is told in utf_flat.h. A logical is passed as a 32-bit integer, 0 for false: merge(1, 0, flag).
module utf_flat
  implicit none

  interface
    subroutine utf_aset(a, value, n) bind(C, name="utf_aset")
      use iso_c_binding, only: c_double, c_int32_t
      real(c_double), intent(inout) :: a(*)
      real(c_double), intent(in) :: value
      integer(c_int32_t), intent(in) :: n
    end subroutine

    subroutine utf_copy(src, dst, n) bind(C, name="utf_copy")
      use iso_c_binding, only: c_double, c_int32_t
      real(c_double), intent(in) :: src(*)
      real(c_double), intent(inout) :: dst(*)
      integer(c_int32_t), intent(in) :: n
    end subroutine

    subroutine utf_acopds(d, s, n) bind(C, name="utf_acopds")
      use iso_c_binding, only: c_double, c_float, c_int32_t
      real(c_double), intent(in) :: d(*)
      real(c_float), intent(inout) :: s(*)
      integer(c_int32_t), intent(in) :: n
    end subroutine

    subroutine utf_atra(a, b, m, n) bind(C, name="utf_atra")
      use iso_c_binding, only: c_double, c_int32_t
      integer(c_int32_t), intent(in) :: m, n
      real(c_double), intent(in) :: a(m, *)
      real(c_double), intent(inout) :: b(n, *)
    end subroutine

    subroutine utf_aprd(a, b, c, l, m, n) bind(C, name="utf_aprd")
      use iso_c_binding, only: c_double, c_int32_t
      integer(c_int32_t), intent(in) :: l, m, n
      real(c_double), intent(in) :: a(l, *), b(m, *)
      real(c_double), intent(inout) :: c(l, *)
    end subroutine

    subroutine utf_axprd(a, b, c) bind(C, name="utf_axprd")
      use iso_c_binding, only: c_double
      real(c_double), intent(in) :: a(3), b(3)
      real(c_double), intent(out) :: c(3)
    end subroutine

    subroutine utf_asortd(p, v, code) bind(C, name="utf_asortd")
      use iso_c_binding, only: c_double, c_int32_t
      real(c_double), intent(inout) :: p(3), v(3, 3)
      integer(c_int32_t), intent(in) :: code
    end subroutine

    subroutine utf_calquat(q, c, scalarFirst) bind(C, name="utf_calquat")
      use iso_c_binding, only: c_double, c_int32_t
      real(c_double), intent(out) :: q(4)
      real(c_double), intent(in) :: c(3, 3)
      integer(c_int32_t), intent(in) :: scalarFirst
    end subroutine

    subroutine utf_getquat(q, c) bind(C, name="utf_getquat")
      use iso_c_binding, only: c_double
      real(c_double), intent(out) :: q(4)
      real(c_double), intent(inout) :: c(3, 3)
    end subroutine

    subroutine utf_sprind(s, p, v, strainFlag, ndi, nshr) bind(C, name="utf_sprind")
      use iso_c_binding, only: c_double, c_int32_t
      real(c_double), intent(in) :: s(*)
      real(c_double), intent(out) :: p(3), v(3, 3)
      integer(c_int32_t), intent(in) :: strainFlag, ndi, nshr
    end subroutine

    subroutine utf_calprinquat(s, out, lflag, code, ndi, nshr) bind(C, name="utf_calprinquat")
      use iso_c_binding, only: c_double, c_int32_t
      real(c_double), intent(in) :: s(*)
      real(c_double), intent(out) :: out(7)
      integer(c_int32_t), intent(in) :: lflag, code, ndi, nshr
    end subroutine

    subroutine utf_quatrot(s, q, out, code) bind(C, name="utf_quatrot")
      use iso_c_binding, only: c_double, c_int32_t
      real(c_double), intent(in) :: s(6), q(*)
      real(c_double), intent(out) :: out(3, 3)
      integer(c_int32_t), intent(in) :: code
    end subroutine
  end interface
end module utf_flat
