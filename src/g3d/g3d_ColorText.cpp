#include <g3d/detail/g3d_ToInteger.h>
#include <g3d/g3d_Color.h>
#include <g3d/g3d_ColorText.h>

#include <algorithm>
#include <string>

cow_String g3d_ColorText(const g3d_Color& color) {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string text = "#";
    for (const float component : {color.R(), color.G(), color.B()}) {
        const auto byte = g3d_ToInteger<unsigned>(std::clamp(component, 0.0F, 1.0F) * 255.0 + 0.5);
        text += digits[byte / 16];
        text += digits[byte % 16];
    }
    return text;
}
