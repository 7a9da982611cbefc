#ifndef ORV_G3D_DETAIL_G3D_HEXCONE_H
#define ORV_G3D_DETAIL_G3D_HEXCONE_H

// What the conversions of the hexcone model have in common, with the hue in sixths of a turn. Which component is the
// greatest and which sector a hue is in changes from colour to colour in no order, so neither is decided by a branch.

/// The first of the greatest of three components, v being the greatest: 0, 1, 2.
template <class T>
[[nodiscard]] unsigned g3d_TopComponent(T first, T second, T v) noexcept {
    const auto notFirst = static_cast<unsigned>(first < v);
    return notFirst + (notFirst & static_cast<unsigned>(second < v));
}

/// A hue in (-1, 6) as a fraction of a turn; what is negative goes to the end of the turn.
[[nodiscard]] inline float g3d_HueOfSixths(float sixths) noexcept {
    static constexpr float turn[2] = {0.0F, 6.0F};
    return (sixths + turn[static_cast<unsigned>(sixths < 0.0F)]) / 6.0F;
}

/// Red, green and blue of a hue. Nothing is clamped. False, and `rgb` as it was, when the hue truncated towards zero is
/// not in 0..5; a hue in (-1, 0) truncates to 0, and a NaN counts as 0.
[[nodiscard]] inline bool g3d_RGBOfSixths(float sixths, float saturation, float value, float (&rgb)[3]) noexcept {
    if (sixths <= -1.0F || sixths >= 6.0F) return false;
    const int sector = sixths > 0.0F ? static_cast<int>(sixths) : 0;

    const double s = saturation, v = value, f = sixths - static_cast<float>(sector);
    const auto p = static_cast<float>(v * (1.0 - s));
    const auto q = static_cast<float>(v * (1.0 - s * f));
    const auto t = static_cast<float>(v * (1.0 - s * (1.0 - f)));

    static constexpr unsigned char order[6][3] = {{0, 3, 1}, {2, 0, 1}, {1, 0, 3}, {1, 2, 0}, {3, 1, 0}, {0, 1, 2}};
    const float levels[4] = {value, p, q, t};
    for (int i = 0; i < 3; ++i) rgb[i] = levels[order[sector][i]];
    return true;
}

#endif
