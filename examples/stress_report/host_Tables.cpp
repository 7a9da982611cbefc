#include "host_Tables.h"

#include <array>
#include <charconv>
#include <limits>
#include <span>
#include <vector>

namespace {

constexpr char header[] =
    "node,x,y,z,ux,uy,uz,mises,tresca,s1,s2,s3,"
    "n1x,n1y,n1z,n2x,n2y,n2z,n3x,n3y,n3z\n";

void Append(std::string& line, double value) {
    constexpr int digits = 9;
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.begin(), text.end(), value, std::chars_format::general, digits).ptr;
    line += ',';
    line.append(text.begin(), end);
}

void Append(std::string& line, std::span<const double> values) {
    for (const double value : values) Append(line, value);
}

constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

/// The row of each node of the model, or none.
std::vector<std::size_t> RowsOf(const frd_Model& model, const frd_Result* result) {
    std::vector<std::size_t> rows(model.nodes.size(), none);
    for (std::size_t row = 0; result != nullptr && row < result->nodes.size(); ++row) rows[result->nodes[row]] = row;
    return rows;
}

}  // namespace

std::string host_Csv(const frd_Model& model, const host_Set& set) {
    const std::vector<std::size_t> displaced = RowsOf(model, set.displacements);
    const std::vector<std::size_t> stressed = RowsOf(model, set.stresses);
    const host_Stresses stresses = set.stresses != nullptr ? host_StressesOf(*set.stresses) : host_Stresses();
    std::string table = header;
    for (std::size_t node = 0; node < model.nodes.size(); ++node) {
        table += std::to_string(model.nodes[node].number);
        Append(table, model.nodes[node].position);
        if (const std::size_t row = displaced[node]; row != none)
            Append(table, std::span(set.displacements->values).subspan(3 * row, 3));
        else
            table.append(3, ',');
        if (const std::size_t row = stressed[node]; row != none) {
            Append(table, stresses.mises[row]);
            Append(table, stresses.tresca[row]);
            Append(table, stresses.principal[row]);
            Append(table, stresses.directions[row]);
        } else {
            table.append(14, ',');
        }
        table += '\n';
    }
    return table;
}
