#include "host_Results.h"

#include <utf/utf_ComponentOrder.h>
#include <utf/utf_Quaternion.h>
#include <utf/utf_TensorBatch.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>

namespace {

bool Has(const host_Set& set, host_QuantityEnm quantity) {
    const bool stress = host_Quantities.at(static_cast<std::size_t>(quantity)).stress;
    return (stress ? set.stresses : set.displacements) != nullptr;
}

/// The one with the number, or the last one that has the quantity.
host_Set ChooseSet(const std::vector<host_Set>& sets, std::optional<int> number, host_QuantityEnm quantity) {
    const auto last = std::find_if(sets.rbegin(), sets.rend(), [&](const host_Set& set) {
        return number ? set.number == *number : Has(set, quantity);
    });
    return last != sets.rend() ? *last : host_Set();
}

}  // namespace

std::vector<host_Set> host_Sets(const frd_Model& model) {
    std::vector<host_Set> sets;
    for (const frd_Result& result : model.results) {
        auto set = std::ranges::find(sets, result.set, &host_Set::number);
        if (set == sets.end()) set = sets.insert(set, {result.set, result.time});
        if (result.name == "DISP" && result.components.size() == 3) set->displacements = &result;
        if (result.name == "STRESS" && result.components.size() == 6) set->stresses = &result;
    }
    return sets;
}

host_Choice host_Choose(const frd_Model& model, std::optional<int> set, std::optional<host_QuantityEnm> quantity) {
    const std::vector<host_Set> sets = host_Sets(model);
    if (set && std::ranges::find(sets, *set, &host_Set::number) == sets.end())
        throw std::runtime_error("there is no result set " + std::to_string(*set));
    host_Choice choice;
    for (const host_QuantityEnm wanted : {host_QuantityEnm::Mises, host_QuantityEnm::Displacement}) {
        choice.quantity = quantity.value_or(wanted);
        choice.set = ChooseSet(sets, set, choice.quantity);
        if (Has(choice.set, choice.quantity)) return choice;
    }
    if (quantity) {
        const bool stress = host_Quantities.at(static_cast<std::size_t>(*quantity)).stress;
        throw std::runtime_error(std::string("there are no ") + (stress ? "stresses" : "displacements") +
                                 (set ? " in set " + std::to_string(*set) : ""));
    }
    return choice;
}

host_Stresses host_StressesOf(const frd_Result& stress) {
    std::vector<double> tensors(stress.values.size());
    utf_Reorder(utf_ComponentOrderEnm::XyYzZx, utf_ComponentOrderEnm::Kind9, stress.values, tensors);
    const utf_TensorBatch<double> batch(res_TENSOR_3D_FULL, tensors);
    const std::size_t count = batch.count();
    host_Stresses result;
    result.mises.resize(count);
    result.tresca.resize(count);
    batch.mises(result.mises);
    batch.tresca(result.tresca);
    std::vector<double> principal(3 * count);
    std::vector<double> quaternions(4 * count);
    batch.tensorAsPrincipalAndQuaternions(principal, quaternions);
    for (std::size_t i = 0; i < count; ++i) {
        result.principal.push_back({principal[3 * i], principal[3 * i + 1], principal[3 * i + 2]});
        double axes[3][3];
        utf_Quaternion<double>(res_QUATERNION_3D, &quaternions[4 * i]).cosines(axes);
        std::copy_n(&axes[0][0], 9, result.directions.emplace_back().begin());
    }
    return result;
}

gsl_Vector host_DisplacementAt(const frd_Result& displacements, std::size_t row) {
    return {displacements.Value(row, 0), displacements.Value(row, 1), displacements.Value(row, 2)};
}

std::vector<double> host_RowValues(const host_Stresses& stresses, host_QuantityEnm quantity) {
    if (quantity == host_QuantityEnm::Mises) return stresses.mises;
    if (quantity == host_QuantityEnm::Tresca) return stresses.tresca;
    std::vector<double> values;
    for (const auto& principal : stresses.principal)
        values.push_back(quantity == host_QuantityEnm::MaxPrincipal ? principal.front() : principal.back());
    return values;
}

std::vector<double> host_DisplacementLengths(const frd_Result& displacements) {
    std::vector<double> lengths;
    for (std::size_t row = 0; row < displacements.nodes.size(); ++row)
        lengths.push_back(host_DisplacementAt(displacements, row).Length());
    return lengths;
}

std::vector<double> host_NodeValues(const frd_Model& model, const host_Choice& choice) {
    std::vector<double> values(model.nodes.size(), std::numeric_limits<double>::quiet_NaN());
    if (!Has(choice.set, choice.quantity)) return values;
    const bool displacement = choice.quantity == host_QuantityEnm::Displacement;
    const frd_Result& result = displacement ? *choice.set.displacements : *choice.set.stresses;
    const std::vector<double> rows =
        displacement ? host_DisplacementLengths(result) : host_RowValues(host_StressesOf(result), choice.quantity);
    for (std::size_t row = 0; row < rows.size(); ++row)
        if (std::isfinite(rows[row])) values[result.nodes[row]] = rows[row];
    return values;
}

std::optional<std::size_t> host_Extreme(const std::vector<double>& values, host_QuantityEnm quantity) {
    const double sign = quantity == host_QuantityEnm::MinPrincipal ? -1.0 : 1.0;
    std::optional<std::size_t> extreme;
    for (std::size_t i = 0; i < values.size(); ++i)
        if (!std::isnan(values[i]) && (!extreme || sign * values[i] > sign * values[*extreme])) extreme = i;
    return extreme;
}

std::vector<gsl_Point> host_Positions(const frd_Model& model) {
    std::vector<gsl_Point> positions;
    positions.reserve(model.nodes.size());
    for (const frd_Node& node : model.nodes) positions.emplace_back(node.position);
    return positions;
}

std::vector<gsl_Point> host_Deformed(std::vector<gsl_Point> positions, const frd_Result* displacements, double factor) {
    if (displacements == nullptr || factor == 0.0) return positions;
    for (std::size_t row = 0; row < displacements->nodes.size(); ++row) {
        gsl_Point& position = positions[displacements->nodes[row]];
        position.SetPos(position + host_DisplacementAt(*displacements, row) * factor);
    }
    return positions;
}
