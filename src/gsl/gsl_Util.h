#ifndef ORV_GSL_GSL_UTIL_H
#define ORV_GSL_GSL_UTIL_H

#include <base/omi_Singleton.h>
#include <base/orv_Export.h>

#include <array>
#include <cstdint>

/// The tolerances of the geometry module, in one place. Every geometric comparison without a tolerance of its own uses
/// them; each declaration says whether the boundary belongs to it.
///
/// | tolerance  | value | what is compared with it                                             |
/// |------------|-------|----------------------------------------------------------------------|
/// | `LinTol`   | 1e-6  | a length or distance in model units; a component of a unit vector    |
/// | `LinTolSq` | 1e-12 | a squared distance                                                   |
/// | `AngTol`   | 1e-10 | a sine or cosine of two vectors; an angle in radians                 |
///
/// These three are constants for the life of the process, so they need no instance. The rest is the state of the one
/// instance, which the start of the geometry module makes and its last stop releases. It is made again on use: never
/// keep its address. Reading needs no lock.
class ORV_EXPORT gsl_Util {
public:
    /// The same as `omi_Singleton<gsl_Util>::Instance()`.
    [[nodiscard]] static gsl_Util& Instance();

    /// Of lengths in model units, of their squares, and of sines and small angles in radians.
    [[nodiscard]] static constexpr double LinTol() noexcept { return 1e-6; }
    [[nodiscard]] static constexpr double LinTolSq() noexcept { return 1e-12; }
    [[nodiscard]] static constexpr double AngTol() noexcept { return 1e-10; }

    /// 1e-4, kept for users outside the geometry classes; nothing here compares with it.
    [[nodiscard]] double FourthTol() const noexcept { return _fourthTol; }

    /// Kept for display code outside the geometry classes: 45, 22.5, 11.25, 5.625, 2.8125.
    [[nodiscard]] const std::array<double, 5>& DisplayFactors() const noexcept { return _displayFactors; }

    /// Sets the third display factor: 15 when `old`, else 11.25.
    void SetOldDisplayFactor(bool old) noexcept { _displayFactors[2] = old ? 15.0 : 11.25; }

    /// `OrvBasTimeCounter()` when this instance was made, in milliseconds.
    [[nodiscard]] std::int64_t CreationTime() const noexcept { return _creationTime; }

private:
    friend class omi_Singleton<gsl_Util>;
    gsl_Util();

    double _fourthTol = 1e-4;
    std::array<double, 5> _displayFactors{45.0, 22.5, 11.25, 5.625, 2.8125};
    std::int64_t _creationTime;
};

extern template class ORV_EXPORT omi_Singleton<gsl_Util>;

#endif
