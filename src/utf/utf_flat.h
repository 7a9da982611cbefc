#ifndef ORV_UTF_UTF_FLAT_H
#define ORV_UTF_UTF_FLAT_H

/* Array, quaternion and principal-value routines for numerical kernels: callable from C, C++ and Fortran
   (fortran/utf_flat.f90) under these very names.

   Every argument is passed by address, scalars too. Integers have 32 bits, so has a logical (any value but 0 is true);
   reals are double unless declared float. Matrices are stored column by column: element (i, j), counted from 1, of a
   matrix of m rows is a[(i - 1) + m * (j - 1)]. Nothing is returned and nothing stops the process. Outputs overlap
   neither inputs nor each other unless a routine says that they may. Not-a-number and infinite components give
   non-finite or stated results. Safe to call from several threads. */

#include <base/orv_Export.h>

#include <stdint.h>  // NOLINT(modernize-deprecated-headers): C reads this header too

#ifdef __cplusplus
extern "C" {
#endif

/* Arrays. */

/// a[k] = value for k < n. Nothing when n < 1.
ORV_EXPORT void utf_aset(double* a, const double* value, const int32_t* n);

/// dst[k] = src[k] for k < n. Nothing when n < 1. `dst` may be `src`.
ORV_EXPORT void utf_copy(const double* src, double* dst, const int32_t* n);

/// s[k] = d[k] in single precision for k < n, values above 1e36 as 1e36 and below -1e36 as -1e36, infinities among
/// them; NaN stays. Nothing when n < 1.
ORV_EXPORT void utf_acopds(const double* d, float* s, const int32_t* n);

/// b = transpose of a: a is m x n, b is n x m. Nothing when m or n < 1.
ORV_EXPORT void utf_atra(const double* a, double* b, const int32_t* m, const int32_t* n);

/// c = a b: a is l x m, b is m x n, c is l x n. Each element starts at 0 and takes in the products in the order of the
/// inner index, each rounded, whatever the processor. Nothing when l or n < 1; with m < 1 an empty sum: c is all 0.
ORV_EXPORT void utf_aprd(const double* a, const double* b, double* c, const int32_t* l, const int32_t* m,
                         const int32_t* n);

/// c = a x b, three components each.
ORV_EXPORT void utf_axprd(const double* a, const double* b, double* c);

/* Quaternions. A quaternion (x, y, z, w) has its scalar part w last unless told otherwise. */

/// Quaternion q (4) of the rotation matrix c (3 x 3), whose columns are the rotated axes: c(i, j) is component i of
/// axis j. With `scalarFirst` q is (w, x, y, z), else (x, y, z, w). S. W. Shepperd's choice (Quaternion from rotation
/// matrix, J. Guidance and Control 1 (1978) 223): by the trace when it is at least the greatest diagonal element, else
/// by that element, of equal ones the last.
///
/// A matrix far from a rotation prints " SYSTEM ERROR 1 IN CALQUAT" (trace at most -1 where the trace is chosen) or
/// " SYSTEM ERROR 3 IN CALQUAT" (square of the greatest component negative) on standard output, flushed at once, and
/// gives what comes out, not-a-numbers as a rule.
ORV_EXPORT void utf_calquat(double* q, const double* c, const int32_t* scalarFirst);

/// As utf_calquat with the scalar last, for any orthonormal frame: *a left-handed one is made right-handed by negating
/// its second axis in the caller's c*. The test, (axis 1 x axis 2) . axis 3 < 0, is strict.
ORV_EXPORT void utf_getquat(double* q, double* c);

/// out (3 x 3) = transpose(R) S R, where S is the symmetric matrix of s (11, 22, 33, 12, 13, 23; tensor shears) and R
/// that of q. *When code is 6, q has four values and is taken as (w, x, y, z), scalar first, unlike everywhere else.
/// With any other code q has two values and is taken as (y, z) with w = x = 0*: not the two-component quaternion (z, w)
/// of the plane. Kept so for the callers who know it. R = transpose of the matrix whose columns are the rotated axes.
ORV_EXPORT void utf_quatrot(const double* s, const double* q, double* out, const int32_t* code);

/* Principal values. */

/// Puts p (3) in descending order and the columns of v (3 x 3), the directions, with it. *Only when code is 7: with any
/// other code only the first two are compared, the in-plane pair, and p(3) stays* even when it is the greatest.
/// Comparisons are strict, so equal values and NaN stay.
ORV_EXPORT void utf_asortd(double* p, double* v, const int32_t* code);

/// Principal values p (3) of the symmetric tensor s and their directions as *rows* of v (3 x 3): component k of
/// direction i is v[(i - 1) + 3 * (k - 1)].
///
/// s holds ndi direct components (up to 3; missing ones are 0) and after them nshr shears in the order 12, 13, 23
/// (likewise). Shears are tensor shears when strainFlag is 1; *with any other value they are engineering shears*, which
/// are twice as large. s is left alone.
///
/// - Diagonal, when the largest shear is below 2.22e-12 times the largest direct component of the deviator (strict) or
///   all shears are 0: p(i) = s(i) with coordinate axis i, *not sorted*.
/// - One shear (nshr is 1): p(1) >= p(2) are the pair in the plane, p(3) is s33 with axis 3, *whatever its size*.
/// - Otherwise p is descending.
///
/// The values are those of utf_Tensor::principleValues, in closed form: right to about 1e-8 of the norm where two of
/// them meet, to the last digits where they are apart; for norms up to 1e150 and deviators down to 1e-15. The
/// directions are orthonormal to 1e-14 however close the values are, and whatever the scale: the direction of the value
/// that stands apart comes from the longest cross product of two rows of S - p I, it is completed to a frame, and one
/// rotation about it finds the other two. Non-finite components give non-finite values and the coordinate axes.
ORV_EXPORT void utf_sprind(const double* s, double* p, double* v, const int32_t* strainFlag, const int32_t* ndi,
                           const int32_t* nshr);

/// Principal values (out 1..3) and the quaternion of their directions (out 4..7): the frame whose axis i is direction
/// i, right-handed, for which direction 2 is negated where need be. Components of s as for utf_sprind; s is left alone.
///
/// | code     | tensor of result kind | ndi, nshr | sorted              | quaternion                  |
/// |----------|-----------------------|-----------|---------------------|-----------------------------|
/// | 7        | 9, full               | 3, 3      | all three           | (x, y, z, w)                |
/// | 8        | 10, planar            | 3, 1      | the first two       | (x, y, z, w)                |
/// | 9        | 11, surface           | 2, 1      | the first two       | (x, y, z, w)                |
/// | any else | 12, 13: planar in 2D  | 3 or 2, 1 | the first two       | (z, w, 0, 0), about axis 3  |
///
/// With ndi = 1 nothing is sorted, except that code 9 with ndi = 1 and nshr = 1 means s11 and s12 of a surface.
/// lflag says what s is: the shears are engineering shears when it is 21 to 25 or 88 to 91. Above 1000 (strict) its
/// thousands count instead.
ORV_EXPORT void utf_calprinquat(const double* s, double* out, const int32_t* lflag, const int32_t* code,
                                const int32_t* ndi, const int32_t* nshr);

#ifdef __cplusplus
}
#endif

#endif
