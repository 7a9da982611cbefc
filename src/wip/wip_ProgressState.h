#ifndef ORV_WIP_WIP_PROGRESSSTATE_H
#define ORV_WIP_WIP_PROGRESSSTATE_H

#include <base/atr_String.h>
#include <base/orv_Export.h>

/// One level of nested progress. All three numbers are fractions of the whole job, not of the level: a level that
/// covers its second half runs from 0.5 to 1.
struct ORV_EXPORT wip_ProgressState {
    float start = 0.0F;    ///< where this level begins
    float end = 0.0F;      ///< where it ends
    float current = 0.0F;  ///< how far it has come
    atr_String message{};  ///< the text that goes with its milestones

    /// How much of the level is done, (current - start) / (end - start); 0 for a level of no width.
    [[nodiscard]] float Fraction() const noexcept;

    /// How much of the whole job is done, in whole percent: floor(current * 100 + 0.01), the product rounded to single
    /// precision, the sum in double. The 0.01 makes up for fractions such as 0.29F, which lie just below what was
    /// meant. Saturates where it would leave `int`; 0 for NaN.
    [[nodiscard]] int Percent() const noexcept;
};

#endif
