#include <base/nex_Throw.h>
#include <g3d/g3d_ColorErrorException.h>
#include <g3d/g3d_ColorMap.h>

template class omi_Singleton<g3d_ColorMap>;

g3d_ColorMap& g3d_ColorMap::Instance() { return omi_Singleton<g3d_ColorMap>::Instance(); }

g3d_ColorMap::g3d_ColorMap() { InitDefaultDict(); }

void g3d_ColorMap::InitDefaultDict() {
    static constexpr struct {
        const char* name;
        float r, g, b;
    } colors[] = {
        {"Black", 0.0F, 0.0F, 0.0F},         {"White", 1.0F, 1.0F, 1.0F},        {"Red", 1.0F, 0.0F, 0.0F},
        {"Orange", 1.0F, 0.5F, 0.0F},        {"Light orange", 1.0F, 0.6F, 0.0F}, {"Purple", 0.63F, 0.13F, 0.94F},
        {"Blue", 0.0F, 0.0F, 1.0F},          {"Medium blue", 0.0F, 0.6F, 1.0F},  {"Sky blue", 0.0F, 0.8F, 1.0F},
        {"Cyan", 0.0F, 1.0F, 1.0F},          {"Aqua", 0.0F, 1.0F, 0.8F},         {"Green", 0.0F, 1.0F, 0.0F},
        {"Spring green", 0.0F, 1.0F, 0.55F}, {"Yellow", 1.0F, 1.0F, 0.0F},       {"Gold", 1.0F, 0.844F, 0.0F},
        {"Dark gold", 1.0F, 0.7F, 0.0F},     {"Chartreuse", 0.7F, 1.0F, 0.0F},   {"Grey20", 0.2F, 0.2F, 0.2F},
        {"Grey60", 0.6F, 0.6F, 0.6F},        {"Grey80", 0.8F, 0.8F, 0.8F},       {"Default", 1.0F, 1.0F, 1.0F},
        {"Magenta", 1.0F, 0.0F, 1.0F},       {"Grey10", 0.1F, 0.1F, 0.1F},       {"Grey30", 0.3F, 0.3F, 0.3F},
        {"Grey40", 0.4F, 0.4F, 0.4F},        {"Grey50", 0.5F, 0.5F, 0.5F},       {"Grey70", 0.7F, 0.7F, 0.7F},
        {"Grey90", 0.9F, 0.9F, 0.9F},
    };
    for (const auto& color : colors) AddDefaultColor(color.name, color.r, color.g, color.b);
}

g3d_Color g3d_ColorMap::ConstGet(const cow_String& name) const {
    if (*name.c_str() == '#') return g3d_Color().Set(name, 1.0F);
    if (IsUserColor(name)) return _userColors.ConstGet(name);
    if (IsDefaultColor(name)) return _defaultColors.ConstGet(name);
    nex_Throw(g3d_ColorErrorException(name));
}

bool g3d_ColorMap::IsMember(const cow_String& name) const { return IsDefaultColor(name) || IsUserColor(name); }
bool g3d_ColorMap::IsDefaultColor(const cow_String& name) const { return _defaultColors.IsMember(name); }
bool g3d_ColorMap::IsUserColor(const cow_String& name) const { return _userColors.IsMember(name); }

cow_List<cow_String> g3d_ColorMap::Keys() const {
    cow_List<cow_String> keys = _defaultColors.Keys();
    for (const auto& [name, color] : _userColors) keys.Append(name);
    return keys;
}

int g3d_ColorMap::Length() const noexcept { return _defaultColors.Length() + _userColors.Length(); }

bool g3d_ColorMap::AddByRGB(const cow_String& name, float r, float g, float b) {
    if (IsDefaultColor(name)) return false;
    _userColors.Insert(name, {r, g, b, 1.0F});
    return true;
}

bool g3d_ColorMap::AddDefaultColor(const cow_String& name, float r, float g, float b) {
    _defaultColors.Insert(name, {r, g, b, 1.0F});
    return true;
}

bool g3d_ColorMap::Remove(const cow_String& name) { return _userColors.Remove(name); }
