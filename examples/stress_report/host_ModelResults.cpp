#include "host_ModelResults.h"

#include "host_Lists.h"
#include "host_Printable.h"

#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <base/cow_Map.h>
#include <base/cow_String.h>

#include <algorithm>
#include <limits>
#include <set>

namespace {

constexpr std::size_t anyIndex = std::numeric_limits<std::size_t>::max();

/// A name that may be printed.
std::string RestoredName(const cow_String& stored) {
    host_Require(std::ranges::all_of(stored.View(), host_IsPrintable), "a name with control characters");
    return std::string(stored.View());
}

cow_Map<int, cow_String> StoredNames(const std::map<int, std::string>& names) {
    cow_Map<int, cow_String> stored;
    for (const auto& [number, name] : names) stored.Insert(number, name);
    return stored;
}

std::vector<frd_Node> RestoredNodes(const cow_List<int>& numbers, const cow_List<double>& positions) {
    const auto places = host_RestoredPlaces(positions);
    host_Require(places.size() == numbers.Span().size(), "nodes without a number or a place");
    std::vector<frd_Node> nodes;
    nodes.reserve(places.size());
    for (const auto& place : places) nodes.push_back({numbers.ConstGet(static_cast<int>(nodes.size())), place});
    host_Require(!nodes.empty(), "no nodes");
    host_Require(std::set<int>(numbers.begin(), numbers.end()).size() == nodes.size(), "two nodes of one number");
    return nodes;
}

std::vector<frd_Element> RestoredElements(const cow_List<int>& numbers, const cow_List<int>& types,
                                          const cow_List<int>& materials, const cow_List<int>& nodes,
                                          std::size_t nodeCount) {
    host_Require(types.Length() == numbers.Length() && materials.Length() == numbers.Length(),
                 "elements without a number, a type or a material");
    std::span<const int> rest = nodes.Span();
    std::vector<frd_Element> elements;
    for (int i = 0; i < numbers.Length(); ++i) {
        const int type = types.ConstGet(i);
        host_Require(type > 0 && type < static_cast<int>(frd_ElementTypes.size()), "an element of no known type");
        const std::size_t count = frd_ElementTypes.at(static_cast<std::size_t>(type)).nodeCount;
        elements.push_back(
            {numbers.ConstGet(i), type, materials.ConstGet(i), host_TakeIndices(rest, count, nodeCount)});
    }
    host_Require(rest.empty(), "nodes of no element");
    return elements;
}

}  // namespace

// ---- Results

void host_SavedResult::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<host_SavedResult>("host_SavedResult", 1)
        .Add<cow_String>("_name")
        .Add<int>("_set")
        .Add<double>("_time")
        .Add<cow_List<cow_String>>("_components")
        .Add<cow_List<int>>("_nodes")
        .Add<cow_List<double>>("_values");
}

void host_SavedResult::DBWrite(const cls_WriteVisitor& visitor) const {
    visitor.Write("_name", cow_String(_result.name));
    visitor.Write("_set", _result.set);
    visitor.Write("_time", _result.time);
    visitor.Write("_components", host_ListOf<cow_String>(_result.components,
                                                         [](const std::string& name) { return cow_String(name); }));
    visitor.Write("_nodes", host_StoredIndices(_result.nodes));
    visitor.Write("_values", cow_List<double>(_result.values));
}

host_SavedResult::host_SavedResult(const cls_ReadVisitor& visitor) {
    _result.name = RestoredName(visitor.Read("_name", cow_String()));
    _result.set = visitor.Read("_set", 0);
    _result.time = visitor.Read("_time", 0.0);
    for (const cow_String& name : visitor.Read("_components", cow_List<cow_String>()))
        _result.components.push_back(RestoredName(name));
    const auto nodes = visitor.Read("_nodes", cow_List<int>());
    std::span<const int> indices = nodes.Span();
    _result.nodes = host_TakeIndices(indices, indices.size(), anyIndex);  // the model knows how many nodes there are
    const auto values = visitor.Read("_values", cow_List<double>());
    _result.values.assign(values.begin(), values.end());
    host_Require(!_result.components.empty() && _result.values.size() % _result.components.size() == 0 &&
                     _result.values.size() / _result.components.size() == _result.nodes.size(),
                 "results without nodes, components or values");
}

// ---- The model

void host_SavedModel::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<host_SavedModel>("host_SavedModel", 1)
        .Add<cow_Map<int, cow_String>>("_materials")
        .Add<cow_List<int>>("_nodeNumbers")
        .Add<cow_List<double>>("_nodePositions")
        .Add<cow_List<int>>("_elementNumbers")
        .Add<cow_List<int>>("_elementTypes")
        .Add<cow_List<int>>("_elementMaterials")
        .Add<cow_List<int>>("_elementNodes")
        .Add<cow_List<host_SavedResult>>("_results");
}

void host_SavedModel::DBWrite(const cls_WriteVisitor& visitor) const {
    std::vector<std::array<double, 3>> places;
    for (const frd_Node& node : _model.nodes) places.push_back(node.position);
    std::vector<std::size_t> nodes;
    for (const frd_Element& element : _model.elements)
        nodes.insert(nodes.end(), element.nodes.begin(), element.nodes.end());
    const auto ofElements = [this](int frd_Element::*field) {
        return host_ListOf<int>(_model.elements, [field](const frd_Element& element) { return element.*field; });
    };
    visitor.Write("_materials", StoredNames(_model.materials));
    visitor.Write("_nodeNumbers", host_ListOf<int>(_model.nodes, [](const frd_Node& node) { return node.number; }));
    visitor.Write("_nodePositions", host_StoredPlaces(places));
    visitor.Write("_elementNumbers", ofElements(&frd_Element::number));
    visitor.Write("_elementTypes", ofElements(&frd_Element::type));
    visitor.Write("_elementMaterials", ofElements(&frd_Element::material));
    visitor.Write("_elementNodes", host_StoredIndices(nodes));
    visitor.Write("_results", host_ListOf<host_SavedResult>(
                                  _model.results, [](const frd_Result& result) { return host_SavedResult(result); }));
}

host_SavedModel::host_SavedModel(const cls_ReadVisitor& visitor) {
    const auto read = [&visitor](const char* field) { return visitor.Read(field, cow_List<int>()); };
    for (const auto& [number, name] : visitor.Read("_materials", cow_Map<int, cow_String>()))
        _model.materials.emplace(number, RestoredName(name));
    _model.nodes = RestoredNodes(read("_nodeNumbers"), visitor.Read("_nodePositions", cow_List<double>()));
    _model.elements = RestoredElements(read("_elementNumbers"), read("_elementTypes"), read("_elementMaterials"),
                                       read("_elementNodes"), _model.nodes.size());
    for (const host_SavedResult& result : visitor.Read("_results", cow_List<host_SavedResult>())) {
        for (const std::size_t node : result.Get().nodes)
            host_Require(node < _model.nodes.size(), "a result at no node");
        _model.results.push_back(result.Get());
    }
}
