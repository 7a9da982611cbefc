#ifndef ORV_SUPPORT_SYMMETRICMATRICES_H
#define ORV_SUPPORT_SYMMETRICMATRICES_H

#include <array>
#include <cmath>
#include <random>

/// The spectra that LAPACK tests its symmetric eigensolvers with, in three dimensions, and some of ours.
struct SymmetricFamily {
    const char* name;
    std::array<double, 3> spectrum;
};
inline constexpr SymmetricFamily kSymmetricFamilies[] = {
    {"zero", {0, 0, 0}},
    {"identity", {1, 1, 1}},
    {"even", {1, 0.5, 0x1p-52}},
    {"geometric", {1, 0x1p-26, 0x1p-52}},
    {"clustered low", {1, 0x1p-52, 0x1p-52}},
    {"clustered high", {1, 1, 0x1p-52}},
    {"nearly double", {1, 1 - 1e-9, -1}},
    {"nearly triple", {1, 1 - 1e-9, 1 + 2e-9}},
    {"uniaxial", {1, 0, 0}},
    {"mean and deviator", {1e4 + 1, 1e4, 1e4 - 0.7}},
};

/// A matrix (11, 22, 33, 12, 13, 23) of that family, each value of a random sign if `signs`, in a random frame; its
/// rounding to double is part of the matrix.
inline std::array<double, 6> SymmetricMatrix(const SymmetricFamily& family, bool signs, double scale,
                                             std::mt19937_64& random) {
    std::normal_distribution<double> normal;
    const long double x = normal(random), y = normal(random), z = normal(random), w = normal(random);
    const long double n = 2 / (x * x + y * y + z * z + w * w);
    const long double q[3][3] = {{1 - n * (y * y + z * z), n * (x * y - z * w), n * (x * z + y * w)},
                                 {n * (x * y + z * w), 1 - n * (x * x + z * z), n * (y * z - x * w)},
                                 {n * (x * z - y * w), n * (y * z + x * w), 1 - n * (x * x + y * y)}};
    std::array<long double, 6> sum = {};
    for (std::size_t k = 0; k < 3; ++k) {
        const long double value = (signs && random() % 2 != 0 ? -1 : 1) * family.spectrum[k] * scale;
        const std::size_t pairs[6][2] = {{0, 0}, {1, 1}, {2, 2}, {0, 1}, {0, 2}, {1, 2}};
        for (std::size_t c = 0; c < 6; ++c) sum[c] += value * q[pairs[c][0]][k] * q[pairs[c][1]][k];
    }
    std::array<double, 6> rounded = {};
    for (std::size_t c = 0; c < 6; ++c) rounded[c] = static_cast<double>(sum[c]);
    return rounded;
}

#endif
