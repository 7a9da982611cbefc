#include <omu/omu_TextRepr.h>

#include <string>

template class omi_Singleton<omu_TextRepr>;

omu_TextRepr& omu_TextRepr::Instance() { return omi_Singleton<omu_TextRepr>::Instance(); }

cow_String omu_TextRepr::GetMaxRecursionString(const char* exposedTypeName) const {
    if (exposedTypeName == nullptr) return _maxRecursionString;
    std::string text = _maxRecursionString.str();
    const std::size_t place = text.find("%s");
    if (place != std::string::npos) text.replace(place, 2, exposedTypeName);
    return "'" + text + "'";
}
