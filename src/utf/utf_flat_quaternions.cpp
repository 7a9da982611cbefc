#include <utf/utf_flat.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>

namespace {

/// A line as Fortran's list-directed output writes it.
void Report(const char* text) {
    std::printf(" %s\n", text);
    std::fflush(stdout);
}

}  // namespace

void utf_calquat(double* q, const double* c, const int32_t* scalarFirst) {
    const double c11 = c[0], c21 = c[1], c31 = c[2], c12 = c[3], c22 = c[4], c32 = c[5], c13 = c[6], c23 = c[7],
                 c33 = c[8];
    const double trace = c11 + c22 + c33, rest = (1.0 - trace) / 4.0;
    // Off the diagonal: four times the products of two of x, y, z, w. On it: their squares. So a row is the quaternion
    // times one component. A table and no branches, for frames come in no order that a processor could guess.
    const double products[4][4] = {{rest + c11 / 2.0, c21 + c12, c13 + c31, c32 - c23},
                                   {c21 + c12, rest + c22 / 2.0, c32 + c23, c13 - c31},
                                   {c13 + c31, c32 + c23, rest + c33 / 2.0, c21 - c12},
                                   {c32 - c23, c13 - c31, c21 - c12, (trace + 1.0) / 4.0}};
    const double larger = std::max(c11, c22), largest = std::max(larger, c33);
    std::size_t i = c22 >= c11 ? 1 : 0;
    i += (2 - i) * static_cast<std::size_t>(c33 >= larger);
    i += (3 - i) * static_cast<std::size_t>(trace >= largest);
    const double square = products[i][i];
    if (square <= 0.0) {
        if (i == 3) Report("SYSTEM ERROR 1 IN CALQUAT");
        if (i != 3 && square < 0.0) Report("SYSTEM ERROR 3 IN CALQUAT");
    }

    const double component = std::sqrt(square);
    const std::size_t shift = *scalarFirst != 0 ? 1 : 0;
    for (std::size_t k = 0; k < 4; ++k) q[(k + shift) % 4] = products[i][k] / (4.0 * component);
    q[(i + shift) % 4] = component;
}

void utf_getquat(double* q, double* c) {
    double normal[3];
    utf_axprd(c, c + 3, normal);
    if (normal[0] * c[6] + normal[1] * c[7] + normal[2] * c[8] < 0.0)
        for (std::size_t k = 3; k < 6; ++k) c[k] = -c[k];
    const int32_t scalarFirst = 0;
    utf_calquat(q, c, &scalarFirst);
}

void utf_quatrot(const double* s, const double* q, double* out, const int32_t* code) {
    const bool full = *code == 6;
    const double w = full ? q[0] : 0.0, x = full ? q[1] : 0.0, y = full ? q[2] : q[0], z = full ? q[3] : q[1];
    const double rotation[9] = {
        // column by column
        2.0 * (w * w + x * x) - 1.0, 2.0 * (x * y - w * z),       2.0 * (w * y + x * z),
        2.0 * (x * y + w * z),       2.0 * (w * w + y * y) - 1.0, 2.0 * (y * z - w * x),
        2.0 * (x * z - w * y),       2.0 * (w * x + y * z),       2.0 * (w * w + z * z) - 1.0,
    };
    const double tensor[9] = {s[0], s[3], s[4], s[3], s[1], s[5], s[4], s[5], s[2]};
    const int32_t three = 3;
    double transposed[9], product[9];
    utf_aprd(tensor, rotation, product, &three, &three, &three);
    utf_atra(rotation, transposed, &three, &three);
    utf_aprd(transposed, product, out, &three, &three, &three);
}
