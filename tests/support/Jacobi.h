#ifndef ORV_SUPPORT_JACOBI_H
#define ORV_SUPPORT_JACOBI_H

#include <array>
#include <cmath>
#include <utility>

/// Eigenvalues, descending, and unit eigenvectors of a symmetric 3x3 matrix (11, 22, 33, 12, 13, 23) by Jacobi's cyclic
/// rotations in extended precision: the judge of the closed forms, with nothing in common with them.
struct Jacobi {
    using Row = std::array<long double, 3>;
    Row values = {};
    std::array<Row, 3> directions = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};  ///< row k is the direction of value k

    explicit Jacobi(const double* t) {
        std::array<Row, 3> a = {{{t[0], t[3], t[4]}, {t[3], t[1], t[5]}, {t[4], t[5], t[2]}}};
        for (std::size_t step = 0; step < 45; ++step) {
            const std::size_t i = step % 3, j = (i + 1) % 3;
            if (a[i][j] == 0) continue;
            const long double cot2 = (a[j][j] - a[i][i]) / (2 * a[i][j]);
            const long double tan = std::copysign(1 / (std::abs(cot2) + std::hypot(cot2, 1.0L)), cot2);
            const long double c = 1 / std::hypot(tan, 1.0L), s = tan * c;
            const auto turn = [c, s](long double& x, long double& y) {
                y = s * std::exchange(x, c * x - s * y) + c * y;
            };
            for (Row& row : a) turn(row[i], row[j]);
            for (std::size_t k = 0; k < 3; ++k) turn(a[i][k], a[j][k]), turn(directions[i][k], directions[j][k]);
        }
        values = {a[0][0], a[1][1], a[2][2]};
        for (const auto& [k, l] : {std::pair{0U, 1U}, {0U, 2U}, {1U, 2U}})
            if (values[l] > values[k]) std::swap(values[k], values[l]), std::swap(directions[k], directions[l]);
    }
};

#endif
