#include <mdl/detail/mdl_PropArgument.h>
#include <mdl/mdl_PropAttributeGetFromTuple.h>
#include <omu/omu_PrimTuple.h>

template <class T>
void mdl_PropAttributeGetFromTuple<T>::Get(omu_PrimTuple& arguments, mdl_PropAttr<T>& attribute, bool allowUnset,
                                           bool allowNone) {
    mdl_PropArgument<T> argument(allowNone);
    arguments.Get(argument);
    argument.Store(attribute, "", allowUnset);
}

template class mdl_PropAttributeGetFromTuple<double>;
template class mdl_PropAttributeGetFromTuple<int>;
template class mdl_PropAttributeGetFromTuple<bool>;
template class mdl_PropAttributeGetFromTuple<cow_List<float>>;
template class mdl_PropAttributeGetFromTuple<cow_List<cow_String>>;
template class mdl_PropAttributeGetFromTuple<cow_List<int>>;
