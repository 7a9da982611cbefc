#include <base/nex_PrimException.h>
#include <base/nex_Throw.h>
#include <utf/utf_ComponentOrder.h>

#include <array>
#include <cstddef>
#include <iterator>

namespace {

using Places = std::array<std::size_t, 6>;

/// Where each order keeps 11, 22, 33, 12, 13, 23.
constexpr Places kPlaces[] = {{0, 1, 2, 3, 4, 5}, {0, 1, 2, 3, 5, 4}, {0, 1, 2, 5, 4, 3}, {0, 2, 5, 1, 3, 4}};

template <class T>
void Reorder(utf_ComponentOrderEnm from, utf_ComponentOrderEnm to, std::span<const T> in, std::span<T> out) {
    if (in.size() != out.size() || in.size() % 6 != 0)
        nex_Throw(nex_PrimException("Input and output are not equally many tensors of six components"));
    const auto isKnown = [](utf_ComponentOrderEnm order) {
        return static_cast<std::size_t>(order) < std::size(kPlaces);
    };
    if (!isKnown(from) || !isKnown(to)) nex_Throw(nex_PrimException("No such order of components"));
    const Places source = kPlaces[static_cast<std::size_t>(from)];
    const Places target = kPlaces[static_cast<std::size_t>(to)];
    for (std::size_t first = 0; first < in.size(); first += 6) {
        std::array<T, 6> tensor;
        for (std::size_t k = 0; k < 6; ++k) tensor[target[k]] = in[first + source[k]];
        for (std::size_t k = 0; k < 6; ++k) out[first + k] = tensor[k];
    }
}

}  // namespace

void utf_Reorder(utf_ComponentOrderEnm from, utf_ComponentOrderEnm to, std::span<const double> in,
                 std::span<double> out) {
    Reorder(from, to, in, out);
}

void utf_Reorder(utf_ComponentOrderEnm from, utf_ComponentOrderEnm to, std::span<const float> in,
                 std::span<float> out) {
    Reorder(from, to, in, out);
}
