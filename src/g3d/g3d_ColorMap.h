#ifndef ORV_G3D_G3D_COLORMAP_H
#define ORV_G3D_G3D_COLORMAP_H

#include <base/cow_List.h>
#include <base/cow_Map.h>
#include <base/cow_String.h>
#include <base/omi_Singleton.h>
#include <base/orv_Export.h>
#include <g3d/g3d_Color.h>

class g3d_ColorMap;
extern template class ORV_EXPORT omi_Singleton<g3d_ColorMap>;

/// The dictionary of named colours, one for the process: the default colours, and those that users add. Names are
/// compared byte by byte, so case counts. Colours added here are opaque.
///
/// Made on first use with the default colours alone; the last stop of the module releases it, and the next use makes a
/// fresh one: never keep its address. There is no lock.
class ORV_EXPORT g3d_ColorMap {
public:
    /// The same as `omi_Singleton<g3d_ColorMap>::Instance()`.
    [[nodiscard]] static g3d_ColorMap& Instance();

    /// The colour of that name, a user's before a default one. A name that begins with '#' is not looked up but read,
    /// as the text form of `g3d_Color::Set` onto opaque black: it never fails. Throws g3d_ColorErrorException for a
    /// name that is not there.
    [[nodiscard]] g3d_Color ConstGet(const cow_String& name) const;

    /// Whether the name is there at all, as a default colour, as a user's.
    [[nodiscard]] bool IsMember(const cow_String& name) const;
    [[nodiscard]] bool IsDefaultColor(const cow_String& name) const;
    [[nodiscard]] bool IsUserColor(const cow_String& name) const;

    /// All default names, then all user names, each in the order of their bytes. A name can be there twice: see
    /// `AddDefaultColor`.
    [[nodiscard]] cow_List<cow_String> Keys() const;

    /// Number of default and user names together.
    [[nodiscard]] int Length() const noexcept;

    /// Adds or replaces a user colour. False, and nothing done, when a default colour has that name.
    bool AddByRGB(const cow_String& name, float r, float g, float b);

    /// Adds or replaces a default colour. Always true, *also when a user colour has that name*, which goes on hiding
    /// it.
    bool AddDefaultColor(const cow_String& name, float r, float g, float b);

    /// Removes a user colour. False when there is none of that name: default colours stay.
    bool Remove(const cow_String& name);

private:
    friend class omi_Singleton<g3d_ColorMap>;
    g3d_ColorMap();
    void InitDefaultDict();

    cow_Map<cow_String, g3d_Color> _defaultColors;
    cow_Map<cow_String, g3d_Color> _userColors;
};

#endif
