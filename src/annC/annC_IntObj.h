#ifndef ORV_ANNC_ANNC_INTOBJ_H
#define ORV_ANNC_ANNC_INTOBJ_H

#include <base/cow_List.h>
#include <base/cow_String.h>
#include <base/orv_Export.h>
#include <omu/omu_Primitive.h>

#include <array>
#include <memory>

class omu_Arguments;

/// What the scripting objects of annotations have in common. A is annC_Arrow or annC_Text, whose name functions give
/// the names of the commands and the keywords.
///
/// Every attribute is an optional argument of the constructor and of `SetValues`, by position in the order of
/// `Members`, or by keyword:
///
/// | attribute                        | argument                                 | range       |
/// |----------------------------------|------------------------------------------|-------------|
/// | startPoint, endPoint, offset     | tuple or list of 2 numbers               | finite      |
/// | startAnchor, endAnchor, anchor,  | named position, or tuple or list of 2    | finite      |
/// | referencePoint                   | (fractions) or 3 (model point) numbers   |             |
/// | startGap, endGap                 | number                                   | >= 0        |
/// | rotationAngle, degrees           | number                                   | -360 to 360 |
/// | color, backgroundColor           | string: name in g3d_ColorMap, or #RRGGBB |             |
/// | text, font                       | string                                   |             |
/// | box                              | Boolean, ON or OFF                       |             |
/// | all others                       | symbolic constant                        |             |
///
/// *Each type of number is a number here*, integers too; a NaN is in no range. An anchor given is a new one.
///
/// A command throws, and then has changed nothing: first what `omu_Arguments::End` throws, then
/// omu_RangeErrorException or g3d_ColorErrorException for the first argument in the order of `Members`. Only what is
/// given is checked: an annotation from elsewhere keeps what it has.
template <class A>
class ORV_EXPORT annC_IntObj {
public:
    /// Of an annotation that is shared with its other holders; throws nex_PrimException for none.
    explicit annC_IntObj(std::shared_ptr<A> annotation);

    /// The constructor command, "Arrow" or "Text": a new annotation with the defaults of its class where nothing is
    /// given.
    explicit annC_IntObj(omu_Arguments& arguments);

    /// Never null.
    [[nodiscard]] const std::shared_ptr<A>& Annotation() const noexcept { return _annotation; }

    /// The command "setValues".
    void SetValues(omu_Arguments& arguments);

    // ---- Members

    /// The keywords.
    [[nodiscard]] static cow_List<cow_String> Members();

    /// The value of an attribute, which can be given back as it is; so all of them make an equal annotation. Else: an
    /// enumerator that is not listed comes as its number, no anchor and a host's own one as None. Throws
    /// omu_AttributeErrorException for any other name.
    [[nodiscard]] std::unique_ptr<omu_Primitive> Member(const cow_String& name) const;

    /// The constructor command with all attributes: "Arrow(startPoint=(0.0, 0.0), ...)".
    [[nodiscard]] cow_String AsString() const;

protected:
    using Point = std::array<double, 2>;

    /// Where `from`, the point of that keyword, comes by a command with two required numbers, "dx" and "dy".
    [[nodiscard]] static Point Translated(omu_Arguments& arguments, const char* command, const char* keyword,
                                          const Point& from);

private:
    void Read(omu_Arguments& arguments, const char* command);

    std::shared_ptr<A> _annotation;
};

#endif
