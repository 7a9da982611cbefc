#ifndef ORV_STRESS_REPORT_FRD_MODEL_H
#define ORV_STRESS_REPORT_FRD_MODEL_H

#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <vector>

struct frd_Node {
    int number;
    std::array<double, 3> position;
};

struct frd_Element {
    int number = 0;
    int type = 0;                    ///< 1 to 12, see frd_ElementTypes
    int material = 0;                ///< 0 where the file does not number it
    std::vector<std::size_t> nodes;  ///< indices into frd_Model::nodes, in the order of the file
};

/// One quantity of one result set, given at nodes.
struct frd_Result {
    std::string name;  ///< "DISP", "STRESS", ...
    int set = 0;
    double time = 0.0;  ///< or frequency, or load factor, as the analysis has it
    std::vector<std::string> components;
    std::vector<std::size_t> nodes;  ///< indices into frd_Model::nodes
    std::vector<double> values;      ///< a row for each of `nodes`, a column for each component; may hold NaN

    [[nodiscard]] double Value(std::size_t row, std::size_t component) const {
        return values[row * components.size() + component];
    }
};

/// What a result file tells, in its own units.
struct frd_Model {
    std::map<int, std::string> materials;  ///< name by number
    std::vector<frd_Node> nodes;
    std::vector<frd_Element> elements;
    std::vector<frd_Result> results;
};

struct frd_ElementType {
    const char* name;
    std::size_t nodeCount;
};

/// By type number; index 0 is none.
inline constexpr std::array<frd_ElementType, 13> frd_ElementTypes{{
    {"", 0},
    {"eight-node bricks", 8},
    {"six-node wedges", 6},
    {"four-node tetrahedra", 4},
    {"twenty-node bricks", 20},
    {"fifteen-node wedges", 15},
    {"ten-node tetrahedra", 10},
    {"three-node triangles", 3},
    {"six-node triangles", 6},
    {"four-node quadrilaterals", 4},
    {"eight-node quadrilaterals", 8},
    {"two-node lines", 2},
    {"three-node lines", 3},
}};

#endif
