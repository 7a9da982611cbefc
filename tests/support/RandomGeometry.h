#ifndef ORV_SUPPORT_RANDOMGEOMETRY_H
#define ORV_SUPPORT_RANDOMGEOMETRY_H

#include <gsl/gsl_Matrix.h>
#include <gsl/gsl_Point.h>
#include <gsl/gsl_Vector.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <string>

inline constexpr double kPi = std::numbers::pi;
inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();
inline const gsl_Vector kX(1.0, 0.0, 0.0), kY(0.0, 1.0, 0.0), kZ(0.0, 0.0, 1.0), kZero(0.0, 0.0, 0.0);

/// Seeded geometry for tests of laws. Failures tell the seed while it lives.
class RandomGeometry {
public:
    explicit RandomGeometry(unsigned seed)
        : _trace(__FILE__, __LINE__, "seed " + std::to_string(seed)), _engine(seed) {}

    double Number(double low, double high) { return std::uniform_real_distribution<double>(low, high)(_engine); }
    double Angle() { return Number(-kPi, kPi); }
    gsl_Vector Vector() { return {Number(-10.0, 10.0), Number(-10.0, 10.0), Number(-10.0, 10.0)}; }
    gsl_Point Point() { return gsl_Point() + Vector(); }

    /// Rotation plus translation, with an honest identity state.
    gsl_Matrix Rigid() {
        gsl_Matrix matrix;
        matrix.AxisRotation(Point(), Vector(), Angle());
        return matrix;
    }

    /// Any sixteen numbers, the fourth row too.
    gsl_Matrix General() {
        double rows[4][4];
        for (auto& row : rows)
            for (double& element : row) element = Number(-1.0, 1.0);
        return gsl_Matrix(rows);
    }

private:
    testing::ScopedTrace _trace;
    std::mt19937_64 _engine;
};

/// Greatest difference of two elements; NaN when one is NaN, which is near nothing.
inline double Difference(const gsl_Matrix& a, const gsl_Matrix& b) {
    double left[4][4], right[4][4], greatest = 0.0;
    a.AsArray(left);
    b.AsArray(right);
    for (int k = 0; k < 16; ++k) {
        const double difference = std::abs(left[k / 4][k % 4] - right[k / 4][k % 4]);
        if (!(difference <= greatest)) greatest = difference;
        if (std::isnan(greatest)) break;
    }
    return greatest;
}

/// Distance of two vectors or of two points.
inline double Difference(const gsl_Vector& a, const gsl_Vector& b) { return (a - b).Length(); }
inline double Difference(const gsl_Point& a, const gsl_Point& b) { return a.GetDistance(b); }

#endif
