#include "frd_Reader.h"

#include "frd_Line.h"
#include "host_Printable.h"

#include <algorithm>
#include <cmath>
#include <ostream>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace {

constexpr std::size_t realWidth = 12;
constexpr std::size_t dataColumn = 4;  // data lines: a blank and a mark of two characters, then numbers

class Reader {
public:
    Reader(std::string_view text, std::ostream& notes, const std::function<void(float)>& progress)
        : _rest(text), _size(text.size()), _notes(notes), _progress(progress) {}

    frd_Model Read();

private:
    void NextLine();
    [[nodiscard]] bool AtEndOfBlock() const { return _line.StartsWith(" -3"); }
    void Note(const std::string& what) { _notes << "note: " << what << '\n'; }

    void ReadMaterial();
    void ReadFormat(std::size_t firstColumn, std::size_t width);
    void ReadNodes();
    void ReadElements();
    void ReadElement();
    void ReadElementNodes(frd_Element& element);
    void ReadResult();
    void ReadResultComponents(frd_Result& result, int announced);
    bool ReadResultRow(frd_Result& result);
    void SkipUnknown();
    void SkipToEndOfBlock();
    void CheckCount(const char* what, int announced, std::size_t found) const;
    [[nodiscard]] std::size_t IndexOfNode(int number) const;

    std::string_view _rest;
    std::size_t _size;
    std::ostream& _notes;
    const std::function<void(float)>& _progress;
    frd_Line _line;
    std::size_t _lineNumber = 0;
    std::size_t _integerWidth = 10;  // of node and element numbers on data lines: 5 in the short format
    frd_Model _model;
    std::unordered_map<int, std::size_t> _nodeIndex;
    std::map<int, int> _unknownElements;  // how many by type
};

void Reader::NextLine() {
    if (_rest.empty()) throw frd_Error("the file ends early, after line " + std::to_string(_lineNumber));
    const std::size_t end = _rest.find('\n');
    const std::string_view text = _rest.substr(0, end);
    _line = frd_Line(text, ++_lineNumber);
    const std::string_view printed = text.substr(0, text.size() - (text.ends_with('\r') ? 1 : 0));
    if (!std::ranges::all_of(printed, host_IsPrintable)) _line.Refuse("not text");
    _rest.remove_prefix(end == std::string_view::npos ? _rest.size() : end + 1);
    constexpr std::size_t linesPerReport = 10000;
    if (_progress && _lineNumber % linesPerReport == 0)
        _progress(1.0F - static_cast<float>(_rest.size()) / static_cast<float>(_size));
}

frd_Model Reader::Read() {
    if (!_rest.starts_with("    1C")) throw frd_Error("not a result file: it does not begin with \"    1C\"");
    for (NextLine(); !_line.StartsWith(" 9999"); NextLine()) {
        if (_line.StartsWith("    1UMAT"))
            ReadMaterial();
        else if (_line.StartsWith("    1") || _line.Length() == 0)
            continue;  // header and parameter lines
        else if (_line.StartsWith("    2C"))
            ReadNodes();
        else if (_line.StartsWith("    3C"))
            ReadElements();
        else if (_line.StartsWith("  100C"))
            ReadResult();
        else
            SkipUnknown();
    }
    for (const auto& [type, count] : _unknownElements)
        Note(std::to_string(count) + " elements of the unknown type " + std::to_string(type) + " left out");
    return std::move(_model);
}

void Reader::ReadMaterial() { _model.materials[_line.Integer(10, 5)] = _line.Text(15, 80); }

void Reader::ReadFormat(std::size_t firstColumn, std::size_t width) {
    const int format = _line.Integer(firstColumn, width);
    if (format == 2 || format == 3) _line.Refuse("the file is in a binary format; only the ASCII formats can be read");
    if (format != 0 && format != 1) _line.Refuse("unknown format " + std::to_string(format));
    _integerWidth = format == 0 ? 5 : 10;
}

void Reader::ReadNodes() {
    const int announced = _line.Integer(25, 12);
    ReadFormat(74, 1);
    const std::size_t before = _model.nodes.size();
    for (NextLine(); !AtEndOfBlock(); NextLine()) {
        if (!_line.StartsWith(" -1")) _line.Refuse("neither a node nor the end of the nodes");
        frd_Node node{_line.Integer(dataColumn, _integerWidth), {}};
        for (std::size_t i = 0; i < 3; ++i) {
            node.position[i] = _line.Real(dataColumn + _integerWidth + i * realWidth, realWidth);
            if (!std::isfinite(node.position[i])) _line.Refuse("a node at no finite place");
        }
        if (!_nodeIndex.emplace(node.number, _model.nodes.size()).second)
            _line.Refuse("node " + std::to_string(node.number) + " appears twice");
        _model.nodes.push_back(node);
    }
    CheckCount("nodes", announced, _model.nodes.size() - before);
}

void Reader::ReadElements() {
    const int announced = _line.Integer(25, 12);
    ReadFormat(74, 1);
    std::size_t found = 0;
    for (NextLine(); !AtEndOfBlock(); ++found) ReadElement();
    // The solver announces too few where it writes a model's beams and shells out as solids.
    if (announced > 0 && static_cast<std::size_t>(announced) < found)
        Note(std::to_string(announced) + " elements announced, " + std::to_string(found) + " found and read");
    else
        CheckCount("elements", announced, found);
}

/// Leaves the line behind the element as the current one.
void Reader::ReadElement() {
    if (!_line.StartsWith(" -1")) _line.Refuse("neither an element nor the end of the elements");
    const std::size_t column = dataColumn + _integerWidth;
    frd_Element element;
    element.number = _line.Integer(dataColumn, _integerWidth);
    element.type = _line.Integer(column, 5);
    // Older files have the beginning of the material's name in place of its number.
    element.material = _line.HasInteger(column + 10, 5) ? _line.Integer(column + 10, 5) : 0;
    const bool known = element.type > 0 && element.type < static_cast<int>(frd_ElementTypes.size());
    if (!known) ++_unknownElements[element.type];

    const frd_Line first = _line;
    for (NextLine(); _line.StartsWith(" -2"); NextLine())
        if (known) ReadElementNodes(element);
    if (!known) return;
    const std::size_t expected = frd_ElementTypes[static_cast<std::size_t>(element.type)].nodeCount;
    if (element.nodes.size() != expected)
        first.Refuse("an element with " + std::to_string(element.nodes.size()) + " nodes instead of " +
                     std::to_string(expected));
    _model.elements.push_back(std::move(element));
}

void Reader::ReadElementNodes(frd_Element& element) {
    for (std::size_t column = dataColumn; column <= _line.Length(); column += _integerWidth)
        element.nodes.push_back(IndexOfNode(_line.Integer(column, _integerWidth)));
}

void Reader::ReadResult() {
    frd_Result result;
    result.set = _line.Integer(8, 5);
    result.time = _line.Real(13, 12);
    const int announced = _line.Integer(25, 12);
    ReadFormat(74, 2);

    NextLine();
    if (!_line.StartsWith(" -4")) _line.Refuse("a result without a name");
    result.name = _line.Text(6, 8);
    const int componentCount = _line.Integer(14, 5);
    constexpr int givenAtNodes = 1;
    if (_line.Integer(19, 5) != givenAtNodes) {
        Note("result " + result.name + " of set " + std::to_string(result.set) + " is not given at nodes, left out");
        return SkipToEndOfBlock();
    }
    ReadResultComponents(result, componentCount);
    std::size_t placeless = 0;
    std::size_t found = 0;
    for (; !AtEndOfBlock(); ++found) placeless += ReadResultRow(result) ? 0 : 1;
    CheckCount(result.name.c_str(), announced, found);
    if (placeless > 0)
        Note(result.name + " of set " + std::to_string(result.set) + ": " + std::to_string(placeless) +
             " values at nodes that the file does not place left out");
    _model.results.push_back(std::move(result));
}

/// Leaves the first data line as the current one.
void Reader::ReadResultComponents(frd_Result& result, int announced) {
    int found = 0;
    for (NextLine(); _line.StartsWith(" -5"); NextLine(), ++found) {
        // Of a component that a viewer works out itself the file has the name, but no values.
        const bool left = !_line.Text(34, 5).empty() && _line.Integer(34, 5) == 1;
        if (!left) result.components.emplace_back(_line.Text(6, 8));
    }
    if (found != announced) _line.Refuse(result.name + ": components announced and listed differ");
    if (result.components.empty()) _line.Refuse(result.name + " has no components");
}

/// Leaves the line behind the row as the current one. False, and nothing added, for a node that the file does not
/// place: the solver writes such values for nodes that only its boundary conditions know.
bool Reader::ReadResultRow(frd_Result& result) {
    if (!_line.StartsWith(" -1")) _line.Refuse("neither a result nor the end of the results");
    const auto node = _nodeIndex.find(_line.Integer(dataColumn, _integerWidth));
    const bool placed = node != _nodeIndex.end();
    if (placed) result.nodes.push_back(node->second);
    constexpr std::size_t valuesPerLine = 6;
    for (std::size_t i = 0; i < result.components.size(); ++i) {
        if (i > 0 && i % valuesPerLine == 0) {
            NextLine();
            if (!_line.StartsWith(" -2")) _line.Refuse("values of " + result.name + " are missing");
        }
        const double value = _line.Real(dataColumn + _integerWidth + i % valuesPerLine * realWidth, realWidth);
        if (placed) result.values.push_back(value);
    }
    NextLine();
    return placed;
}

/// A line that nobody here knows, and the data lines that belong to it, if any.
void Reader::SkipUnknown() {
    Note("line " + std::to_string(_lineNumber) + ": unknown block \"" + std::string(_line.Text(1, 6)) + "\" skipped");
    if (_rest.starts_with(" -")) SkipToEndOfBlock();
}

void Reader::SkipToEndOfBlock() {
    while (!AtEndOfBlock()) NextLine();
}

void Reader::CheckCount(const char* what, int announced, std::size_t found) const {
    if (announced < 0 || static_cast<std::size_t>(announced) != found)
        _line.Refuse(std::string(what) + ": " + std::to_string(announced) + " announced, " + std::to_string(found) +
                     " found");
}

std::size_t Reader::IndexOfNode(int number) const {
    const auto found = _nodeIndex.find(number);
    if (found == _nodeIndex.end()) _line.Refuse("there is no node " + std::to_string(number));
    return found->second;
}

}  // namespace

frd_Model frd_Read(const std::string& text, std::ostream& notes, const std::function<void(float)>& progress) {
    return Reader(text, notes, progress).Read();
}
