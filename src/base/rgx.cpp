#include <base/nex_PrimException.h>
#include <base/nex_Throw.h>
#include <base/rgx.h>

#include <algorithm>
#include <bitset>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using ByteSet = std::bitset<256>;

/// One step of a pattern: a set of bytes that may stay away (`*`) or come again (`*`, `+`).
struct Step {
    ByteSet bytes;
    bool mayMiss = false;
    bool mayRepeat = false;
};

struct Pattern {
    std::vector<Step> steps;
    bool fromBegin = false;
    bool toEnd = false;
};

/// Reads a pattern from front to back.
class Reader {
public:
    explicit Reader(std::string_view pattern) : _whole(pattern), _rest(pattern) {}

    Pattern Read() {
        Pattern pattern;
        pattern.fromBegin = Skip('^');
        while (!_rest.empty()) {
            if (_rest == "$") {
                pattern.toEnd = true;
                break;
            }
            Step step;
            step.bytes = ReadBytes();
            step.mayMiss = Skip('*');
            step.mayRepeat = step.mayMiss || Skip('+');
            pattern.steps.push_back(step);
        }
        return pattern;
    }

private:
    [[noreturn]] void Refuse(const char* reason) const {
        nex_Throw(nex_PrimException(std::string("pattern ") + std::string(_whole) + ": " + reason));
    }

    bool Skip(char wanted) {
        const bool found = _rest.starts_with(wanted);
        if (found) _rest.remove_prefix(1);
        return found;
    }

    unsigned char Take() {
        if (_rest.empty()) Refuse("ends early");
        const auto byte = static_cast<unsigned char>(_rest.front());
        _rest.remove_prefix(1);
        return byte;
    }

    ByteSet ReadBytes() {
        if (Skip('[')) return ReadSet();
        const bool isQuoted = Skip('\\');
        const unsigned char byte = Take();
        if (!isQuoted && std::string_view("^$*+.?(){}|").find(static_cast<char>(byte)) != std::string_view::npos)
            Refuse("operator in a wrong place");
        return ByteSet().set(byte);
    }

    /// From behind the opening bracket to behind the closing one.
    ByteSet ReadSet() {
        const bool isNegated = Skip('^');
        ByteSet set;
        do {
            const unsigned char first = TakeMember();
            unsigned char last = first;
            if (_rest.size() >= 2 && _rest[0] == '-' && _rest[1] != ']') {
                _rest.remove_prefix(1);
                last = TakeMember();
            }
            if (last < first) Refuse("range runs backwards");
            for (unsigned byte = first; byte <= last; ++byte) set.set(byte);
        } while (!Skip(']'));
        return isNegated ? ~set : set;
    }

    unsigned char TakeMember() {
        Skip('\\');
        return Take();
    }

    std::string_view _whole;
    std::string_view _rest;
};

/// All ways to match are followed at once: `reached[i]` says that the steps before step i have matched up to the
/// present place in the text.
bool Occurs(const Pattern& pattern, std::string_view text) {
    const std::vector<Step>& steps = pattern.steps;
    const std::size_t count = steps.size();
    std::vector<unsigned char> reached(count + 1, 0);
    const auto start = [&] {
        reached[0] = 1;
        for (std::size_t i = 0; i < count && steps[i].mayMiss; ++i) reached[i + 1] = 1;
    };
    const auto advance = [&](unsigned char byte) {
        // From the back, so that one array serves: a place depends on itself and on the one before.
        for (std::size_t i = count + 1; i-- > 0;) {
            const bool stays = i < count && reached[i] && steps[i].mayRepeat && steps[i].bytes[byte];
            const bool comes = i > 0 && reached[i - 1] && steps[i - 1].bytes[byte];
            reached[i] = stays || comes;
        }
        for (std::size_t i = 0; i < count; ++i)
            if (reached[i] && steps[i].mayMiss) reached[i + 1] = 1;
    };

    start();
    for (const char byte : text) {
        if (reached[count] && !pattern.toEnd) return true;
        advance(static_cast<unsigned char>(byte));
        if (!pattern.fromBegin) start();
    }
    return reached[count];
}

}  // namespace

bool rgx_match(const cow_String& pattern, const cow_String& text) {
    return Occurs(Reader(pattern.View()).Read(), text.View());
}

cow_List<cow_String> rgx_split(const cow_String& text, char at) {
    std::vector<cow_String> parts;
    std::string_view rest = text.View();
    for (std::size_t end = rest.find(at); end != std::string_view::npos; end = rest.find(at)) {
        parts.emplace_back(rest.substr(0, end));
        rest.remove_prefix(end + 1);
    }
    parts.emplace_back(rest);
    return cow_List<cow_String>(std::move(parts));
}
