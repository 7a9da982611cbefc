#ifndef ORV_MDL_MDL_PROPATTRIBUTEGETFROMTUPLE_H
#define ORV_MDL_MDL_PROPATTRIBUTEGETFROMTUPLE_H

#include <base/orv_Export.h>
#include <mdl/mdl_PropAttr.h>

class omu_PrimTuple;

/// Reads a property attribute as the next element of a tuple that is read as an argument list.
template <class T>
class ORV_EXPORT mdl_PropAttributeGetFromTuple {
public:
    mdl_PropAttributeGetFromTuple() = delete;

    /// As `mdl_PropAttributeGet<T>::Get`, by position only. The attribute's name in messages is empty.
    static void Get(omu_PrimTuple& arguments, mdl_PropAttr<T>& attribute, bool allowUnset, bool allowNone);
};

ORV_EXTERN_TEMPLATE(mdl_PropAttributeGetFromTuple<double>);
ORV_EXTERN_TEMPLATE(mdl_PropAttributeGetFromTuple<int>);
ORV_EXTERN_TEMPLATE(mdl_PropAttributeGetFromTuple<bool>);
ORV_EXTERN_TEMPLATE(mdl_PropAttributeGetFromTuple<cow_List<float>>);
ORV_EXTERN_TEMPLATE(mdl_PropAttributeGetFromTuple<cow_List<cow_String>>);
ORV_EXTERN_TEMPLATE(mdl_PropAttributeGetFromTuple<cow_List<int>>);

#endif
