#ifndef ORV_MDL_MDL_PROPATTRIBUTEGET_H
#define ORV_MDL_MDL_PROPATTRIBUTEGET_H

#include <base/orv_Export.h>
#include <mdl/mdl_PropAttr.h>

class omu_Arguments;

/// Reads a property attribute as an argument of a command, by the next position while there is one, else by keyword:
///
///     arguments.Begin();
///     arguments.Optional();
///     mdl_PropAttributeGet<double>::Get(arguments, load._pressure, "pressure", false, false);
///     arguments.End("Load");
template <class T>
class ORV_EXPORT mdl_PropAttributeGet {
public:
    mdl_PropAttributeGet() = delete;

    /// What the argument may be, and what it does:
    ///
    /// | argument                           | attribute                                                             |
    /// |------------------------------------|-----------------------------------------------------------------------|
    /// | what `Get` reads into a T          | takes the value, becomes SET                                          |
    /// | an enumeration with a state's name | `SetStatus`, the keyword being the attribute's name                   |
    /// | None, with `allowNone`             | *keeps its state*, the value becomes zero                             |
    /// | anything else                      | stays; `End` reports the keyword, the type found and the type of a T  |
    /// | missing, or an error came before   | stays                                                                 |
    ///
    /// One read is counted in every case. Throws nex_PrimException at once, the read being counted, for a state that
    /// `SetStatus` refuses. A null keyword is the empty one.
    static void Get(omu_Arguments& arguments, mdl_PropAttr<T>& attribute, const char* keyword, bool allowUnset,
                    bool allowNone);
};

ORV_EXTERN_TEMPLATE(mdl_PropAttributeGet<double>);
ORV_EXTERN_TEMPLATE(mdl_PropAttributeGet<int>);
ORV_EXTERN_TEMPLATE(mdl_PropAttributeGet<bool>);
ORV_EXTERN_TEMPLATE(mdl_PropAttributeGet<cow_List<float>>);
ORV_EXTERN_TEMPLATE(mdl_PropAttributeGet<cow_List<cow_String>>);
ORV_EXTERN_TEMPLATE(mdl_PropAttributeGet<cow_List<int>>);

#endif
