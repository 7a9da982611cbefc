// Prints the table of docs/accuracy.md: how far the principal values and directions of utf_sprind are from those of
// Jacobi's rotations in extended precision, beside Eigen's closed form (SelfAdjointEigenSolver::computeDirect) on the
// same matrices. Every number is the worst of a family, relative to the matrix' norm (its greatest principal value in
// magnitude); the seed is fixed.

#include <support/Jacobi.h>
#include <support/SymmetricMatrices.h>
#include <utf/utf_flat.h>

#include <Eigen/Eigenvalues>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

namespace {

constexpr int matrices = 20000;

/// Values descending; rows of `directions` belong to them.
struct Solution {
    std::array<double, 3> values;
    std::array<std::array<double, 3>, 3> directions;
};

Solution Ours(const std::array<double, 6>& t) {
    const int32_t tensor = 1, three = 3;
    std::array<double, 3> p = {};
    std::array<double, 9> v = {};
    utf_sprind(t.data(), p.data(), v.data(), &tensor, &three, &three);
    const int32_t full = 7;
    std::array<double, 9> columns = {};
    utf_atra(v.data(), columns.data(), &three, &three);
    utf_asortd(p.data(), columns.data(), &full);  // a diagonal tensor comes unsorted
    Solution solution = {p, {}};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t k = 0; k < 3; ++k) solution.directions[i][k] = columns[3 * i + k];
    return solution;
}

Solution Peer(const std::array<double, 6>& t) {
    Eigen::Matrix3d matrix;
    matrix << t[0], t[3], t[4], t[3], t[1], t[5], t[4], t[5], t[2];
    Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> solver;
    solver.computeDirect(matrix);
    Solution solution = {};
    for (int i = 0; i < 3; ++i) {
        solution.values[static_cast<std::size_t>(i)] = solver.eigenvalues()[2 - i];
        for (int k = 0; k < 3; ++k)
            solution.directions[static_cast<std::size_t>(i)][static_cast<std::size_t>(k)] =
                solver.eigenvectors()(k, 2 - i);
    }
    return solution;
}

/// The worst so far; NaN is the worst of all and stays.
void Worsen(long double& worst, long double error) {
    if (!(error <= worst)) worst = std::isnan(worst) ? worst : error;
}

struct Worst {
    long double apart = 0, meeting = 0, orthonormality = 0, residual = 0;
    bool anyApart = false;

    void Take(const std::array<double, 6>& t, const Jacobi& judge, const Solution& solution) {
        const auto& exact = judge.values;
        const long double norm = std::max(std::abs(exact[0]), std::abs(exact[2]));
        const long double unit = norm > 0 ? norm : 1;
        const long double matrix[3][3] = {{t[0], t[3], t[4]}, {t[3], t[1], t[5]}, {t[4], t[5], t[2]}};
        for (std::size_t i = 0; i < 3; ++i) {
            const long double below = i < 2 ? exact[i] - exact[i + 1] : norm,
                              above = i > 0 ? exact[i - 1] - exact[i] : norm;
            const bool isApart = std::min(below, above) >= 0.1L * norm && norm > 0;
            anyApart = anyApart || isApart;
            Worsen(isApart ? apart : meeting, std::abs(solution.values[i] - exact[i]) / unit);
            const auto& v = solution.directions[i];
            long double squares = 0;
            for (const auto& row : matrix) {
                const auto k = static_cast<std::size_t>(&row - matrix);
                const long double image = row[0] * v[0] + row[1] * v[1] + row[2] * v[2];
                const long double error = (image - static_cast<long double>(solution.values[i]) * v[k]) / unit;
                squares += error * error;
            }
            Worsen(residual, std::sqrt(squares));
            for (std::size_t j = 0; j <= i; ++j) {
                const auto& u = solution.directions[j];
                const long double dot = static_cast<long double>(v[0]) * u[0] + static_cast<long double>(v[1]) * u[1] +
                                        static_cast<long double>(v[2]) * u[2];
                Worsen(orthonormality, std::abs(dot - (i == j ? 1 : 0)));
            }
        }
    }
};

std::string Text(long double value) {
    if (value == 0) return "0";
    char text[32];
    std::snprintf(text, sizeof text, "%.1Le", value);
    return text;
}
std::string Pair(long double ours, long double peer) { return Text(ours) + " / " + Text(peer); }

/// One row of the table: the worst of a family over some scales.
struct Row {
    Worst ours, peer;

    void Take(const SymmetricFamily& family, double scale) {
        std::mt19937_64 random(20);
        for (int k = 0; k < matrices; ++k) {
            const std::array<double, 6> t = SymmetricMatrix(family, k % 2 != 0, scale, random);
            const Jacobi judge(t.data());
            ours.Take(t, judge, Ours(t));
            peer.Take(t, judge, Peer(t));
        }
    }
    void Print(const char* name) const {
        std::printf("| %s | %s | %s | %s | %s |\n", name, ours.anyApart ? Pair(ours.apart, peer.apart).c_str() : "-",
                    Pair(ours.meeting, peer.meeting).c_str(), Pair(ours.orthonormality, peer.orthonormality).c_str(),
                    Pair(ours.residual, peer.residual).c_str());
    }
};

}  // namespace

int main() {
    std::printf("| family | values apart | values that meet | orthonormality | residual |\n|---|---|---|---|---|\n");
    Row tiny;
    for (const SymmetricFamily& family : kSymmetricFamilies) {
        Row row;
        for (const double scale : {1.0, 1e100, 1e-12}) row.Take(family, scale);
        row.Print(family.name);
        tiny.Take(family, 1e-100);
    }
    tiny.Print("all of them, times 1e-100");
}
