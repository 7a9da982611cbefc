#ifndef ORV_SUPPORT_RANDOMFLOATS_H
#define ORV_SUPPORT_RANDOMFLOATS_H

#include <g3d/g3d_Vector.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <valarray>

inline constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
inline constexpr float kInfinity = std::numeric_limits<float>::infinity();
inline constexpr float kGreatest = std::numeric_limits<float>::max();
inline const g3d_Vector kX(1.0F, 0.0F, 0.0F), kY(0.0F, 1.0F, 0.0F), kZ(0.0F, 0.0F, 1.0F), kZero;

/// Seeded values of the viewing code for tests of laws. Failures tell the seed while it lives.
class RandomFloats {
public:
    explicit RandomFloats(unsigned seed) : _trace(__FILE__, __LINE__, "seed " + std::to_string(seed)), _engine(seed) {}

    float Number(double low = -1.0, double high = 1.0) {
        return static_cast<float>(std::uniform_real_distribution<double>(low, high)(_engine));
    }
    /// Both ends included.
    int Whole(int low, int high) { return std::uniform_int_distribution<int>(low, high)(_engine); }
    g3d_Vector Vector(double size = 1.0) { return {Number(-size, size), Number(-size, size), Number(-size, size)}; }

private:
    testing::ScopedTrace _trace;
    std::mt19937_64 _engine;
};

/// Three numbers, in the precision that single precision is checked by.
using Precise = std::valarray<double>;

inline Precise Precisely(const auto& v) { return {v.X(), v.Y(), v.Z()}; }
inline double Dot(const Precise& a, const Precise& b) { return (a * b).sum(); }
inline Precise Cross(const Precise& a, const Precise& b) {
    return a.cshift(1) * b.cshift(2) - a.cshift(2) * b.cshift(1);
}
inline Precise Unit(const Precise& a) { return a / std::sqrt(Dot(a, a)); }

#endif
