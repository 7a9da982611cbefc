#ifndef ORV_STRESS_REPORT_HOST_LISTS_H
#define ORV_STRESS_REPORT_HOST_LISTS_H

#include <base/cow_List.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

// How indices and places lie in the lists of a stream, and how they are checked when they come back: a stream may hold
// anything.

inline void host_Require(bool condition, const char* what) {
    if (!condition) throw std::runtime_error(std::string("damaged: ") + what);
}

/// A list of what `pick` gives for each item.
template <class V, class Items, class Pick>
[[nodiscard]] cow_List<V> host_ListOf(const Items& items, const Pick& pick) {
    std::vector<V> values;
    values.reserve(items.size());
    for (const auto& item : items) values.push_back(pick(item));
    return cow_List<V>(std::move(values));
}

[[nodiscard]] inline cow_List<int> host_StoredIndices(const std::vector<std::size_t>& indices) {
    return host_ListOf<int>(indices, [](std::size_t index) { return static_cast<int>(index); });
}

/// Takes indices from the front of `stored`, each of which must be below `limit`.
[[nodiscard]] inline std::vector<std::size_t> host_TakeIndices(std::span<const int>& stored, std::size_t count,
                                                               std::size_t limit) {
    host_Require(count <= stored.size(), "indices are missing");
    std::vector<std::size_t> indices;
    indices.reserve(count);
    for (const int index : stored.first(count)) {
        host_Require(index >= 0 && static_cast<std::size_t>(index) < limit, "an index out of range");
        indices.push_back(static_cast<std::size_t>(index));
    }
    stored = stored.subspan(count);
    return indices;
}

[[nodiscard]] inline cow_List<double> host_StoredPlaces(const std::vector<std::array<double, 3>>& places) {
    std::vector<double> stored;
    stored.reserve(3 * places.size());
    for (const auto& place : places) stored.insert(stored.end(), place.begin(), place.end());
    return cow_List<double>(std::move(stored));
}

/// Throws when one is not finite.
[[nodiscard]] inline std::vector<std::array<double, 3>> host_RestoredPlaces(const cow_List<double>& stored) {
    const std::span<const double> all = stored.Span();
    host_Require(all.size() % 3 == 0, "a place without three coordinates");
    host_Require(std::ranges::all_of(all, [](double x) { return std::isfinite(x); }), "a place that is not finite");
    std::vector<std::array<double, 3>> places(all.size() / 3);
    for (std::size_t i = 0; i < places.size(); ++i) std::copy_n(&all[3 * i], 3, places[i].begin());
    return places;
}

#endif
