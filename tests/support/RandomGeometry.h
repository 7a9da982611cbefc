#ifndef ORV_SUPPORT_RANDOMGEOMETRY_H
#define ORV_SUPPORT_RANDOMGEOMETRY_H

#include <gsl/gsl_Matrix.h>
#include <gsl/gsl_Point.h>
#include <gsl/gsl_Vector.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <random>
#include <string>

/// Seeded geometry for tests of laws. Put `SCOPED_TRACE(random.Seed())` into the test so that failures tell the seed.
class RandomGeometry {
public:
    explicit RandomGeometry(std::uint64_t seed) : _seed(seed), _engine(seed) {}

    [[nodiscard]] std::string Seed() const { return "seed " + std::to_string(_seed); }

    double Number(double low, double high) { return std::uniform_real_distribution<double>(low, high)(_engine); }
    double Angle() { return Number(-std::numbers::pi, std::numbers::pi); }
    gsl_Vector Vector(double bound = 10.0) {
        return {Number(-bound, bound), Number(-bound, bound), Number(-bound, bound)};
    }
    gsl_Point Point(double bound = 10.0) { return gsl_Point() + Vector(bound); }

    /// Rotation plus translation, with an honest identity state.
    gsl_Matrix Rigid() {
        gsl_Matrix matrix;
        matrix.AxisRotation(Point(), Vector(), Angle());
        return matrix;
    }

    /// Any sixteen numbers, the fourth row too.
    gsl_Matrix General() {
        double rows[4][4];
        for (auto& row : rows) std::generate(row, row + 4, [this] { return Number(-1.0, 1.0); });
        return gsl_Matrix(rows);
    }

private:
    std::uint64_t _seed;
    std::mt19937_64 _engine;
};

/// Greatest difference of two elements; NaN when one is NaN, which is near nothing.
inline double Difference(const gsl_Matrix& a, const gsl_Matrix& b) {
    double left[4][4], right[4][4], greatest = 0.0;
    a.AsArray(left);
    b.AsArray(right);
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            const double difference = std::abs(left[i][j] - right[i][j]);
            if (std::isnan(difference)) return difference;
            greatest = std::max(greatest, difference);
        }
    }
    return greatest;
}

/// Distance of two vectors or of two points.
inline double Difference(const gsl_Vector& a, const gsl_Vector& b) { return (a - b).Length(); }
inline double Difference(const gsl_Point& a, const gsl_Point& b) { return a.GetDistance(b); }

#endif
