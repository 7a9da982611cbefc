#include <mdl/detail/mdl_PropArgument.h>
#include <mdl/mdl_PropAttributeGet.h>
#include <omu/omu_Arguments.h>

template <class T>
void mdl_PropAttributeGet<T>::Get(omu_Arguments& arguments, mdl_PropAttr<T>& attribute, const char* keyword,
                                  bool allowUnset, bool allowNone) {
    mdl_PropArgument<T> argument(allowNone);
    arguments.Get(argument, keyword);
    argument.Store(attribute, keyword, allowUnset);
}

template class mdl_PropAttributeGet<double>;
template class mdl_PropAttributeGet<int>;
template class mdl_PropAttributeGet<bool>;
template class mdl_PropAttributeGet<cow_List<float>>;
template class mdl_PropAttributeGet<cow_List<cow_String>>;
template class mdl_PropAttributeGet<cow_List<int>>;
