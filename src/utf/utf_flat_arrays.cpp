#include <base/OrvBasOmniSSELevel.h>
#include <utf/utf_flat.h>

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace {

/// Counts below 1 are nothing; products of counts do not fit 32 bits.
std::size_t Count(const int32_t* n) { return static_cast<std::size_t>(std::max(*n, int32_t{0})); }

/// The body, compiled for wide registers where the compiler can. They hold twice the numbers and round each as the
/// narrow ones do; fused multiplication is another feature, not asked for here. Not on Windows, where GCC does not
/// align the stack for them.
template <auto body, class... Args>
#if defined(__GNUC__) && defined(__x86_64__) && !defined(_WIN32)
[[gnu::target("avx")]]
#endif
void Wide(Args... args) {
    body(args...);
}

/// Two bodies from one source: the wide one when the level in force asks for it and the processor has it.
template <auto body, class... Args>
void Run(Args... args) {
    if (OrvBasOmniGetSSELevel() > 0x1FFFF && OrvBasOmniHasAVX())
        Wide<body>(args...);
    else
        body(args...);
}

[[gnu::always_inline]] inline void Convert(const double* d, float* s, std::size_t n) {
    for (std::size_t k = 0; k < n; ++k) {
        const double below = 1e36 < d[k] ? 1e36 : d[k];
        s[k] = static_cast<float>(-1e36 > below ? -1e36 : below);
    }
}

/// `rows` neighbours in one column of a product, side by side: column points to b(1, j), a to the first row.
template <int rows>
[[gnu::always_inline]] inline void ProductRows(const double* a, const double* column, double* c, std::size_t l,
                                               std::size_t m) {
    double sum[rows] = {};
    for (std::size_t k = 0; k < m; ++k)
        for (int row = 0; row < rows; ++row) sum[row] += a[l * k + static_cast<std::size_t>(row)] * column[k];
    for (int row = 0; row < rows; ++row) c[row] = sum[row];
}

[[gnu::always_inline]] inline void Product(const double* a, const double* b, double* c, std::size_t l, std::size_t m,
                                           std::size_t n) {
    for (std::size_t j = 0; j < n; ++j) {
        std::size_t i = 0;
        for (; i + 8 <= l; i += 8) ProductRows<8>(a + i, b + m * j, c + l * j + i, l, m);
        for (; i < l; ++i) ProductRows<1>(a + i, b + m * j, c + l * j + i, l, m);
    }
}

}  // namespace

void utf_aset(double* a, const double* value, const int32_t* n) { std::fill_n(a, Count(n), *value); }

void utf_copy(const double* src, double* dst, const int32_t* n) {
    const std::size_t count = Count(n);
    if (count >= 13)
        std::memmove(dst, src, count * sizeof *dst);
    else  // less than what calling a block copy costs
        for (std::size_t k = 0; k < count; ++k) dst[k] = src[k];
}

void utf_acopds(const double* d, float* s, const int32_t* n) { Run<Convert>(d, s, Count(n)); }

void utf_atra(const double* a, double* b, const int32_t* m, const int32_t* n) {
    const std::size_t rows = Count(m), columns = Count(n);
    for (std::size_t j = 0; j < columns; ++j)
        for (std::size_t i = 0; i < rows; ++i) b[j + columns * i] = a[i + rows * j];
}

void utf_aprd(const double* a, const double* b, double* c, const int32_t* l, const int32_t* m, const int32_t* n) {
    Run<Product>(a, b, c, Count(l), Count(m), Count(n));
}

void utf_axprd(const double* a, const double* b, double* c) {
    c[0] = a[1] * b[2] - b[1] * a[2];
    c[1] = a[2] * b[0] - b[2] * a[0];
    c[2] = a[0] * b[1] - a[1] * b[0];
}
