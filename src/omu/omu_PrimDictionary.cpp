#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <base/detail/cow_Range.h>
#include <omu/detail/omu_Depth.h>
#include <omu/detail/omu_Dismantling.h>
#include <omu/omu_PrimDictionary.h>
#include <omu/omu_PrimNone.h>
#include <omu/omu_PrimVisitor.h>
#include <omu/omu_QuoteText.h>

#include <utility>

template <class K>
omu_PrimDictionary<K>::omu_PrimDictionary(char type, char represents) : omu_PrimDictionaryBase(type, represents) {}

template <class K>
omu_PrimDictionary<K>::omu_PrimDictionary(const omu_PrimDictionary& other) : omu_PrimDictionaryBase(other) {
    const omu_Depth level;
    for (const auto& [key, value] : other._dict) _dict.emplace_hint(_dict.end(), key, Holder(value->Copy().release()));
}

template <class K>
omu_PrimDictionary<K>::~omu_PrimDictionary() {
    omu_Dismantling here;
    for (const auto& [key, value] : _dict) here.PutAside(value);
    _dict.clear();
}

// ---- Values

template <class K>
void omu_PrimDictionary<K>::Put(std::unique_ptr<omu_Primitive> value, const K& key) {
    if (!value) value = std::make_unique<omu_PrimNone>();
    _dict.insert_or_assign(key, Holder(value.release()));
}

template <class K>
bool omu_PrimDictionary<K>::Remove(KeyView key) {
    const auto found = _dict.find(key);
    if (found == _dict.end()) return false;
    _dict.erase(found);
    return true;
}

template <class K>
cow_List<K> omu_PrimDictionary<K>::Keys() const {
    cow_List<K> keys;
    keys.Reserve(Length());
    for (const auto& [key, value] : _dict) keys.Append(key);
    return keys;
}

template <class K>
const omu_Primitive* omu_PrimDictionary<K>::Find(KeyView key) const noexcept {
    const auto found = _dict.find(key);
    return found == _dict.end() ? nullptr : found->second.Get();
}

template <class K>
const omu_Primitive& omu_PrimDictionary<K>::operator[](KeyView key) const {
    const omu_Primitive* const value = Find(key);
    if (value == nullptr) cow_ThrowKey();
    return *value;
}

// ---- Texts

template <class K>
cow_String omu_PrimDictionary<K>::TypeString() const {
    return std::is_same_v<K, int> ? "dictionary with integer keys" : "dictionary with string keys";
}

template <class K>
cow_String omu_PrimDictionary<K>::AsString(int) const {
    std::string text;
    AppendString(text);
    return text;
}

template <class K>
void omu_PrimDictionary<K>::AppendString(std::string& text) const {
    const omu_Depth level;
    text += '{';
    const char* separator = "";
    for (const auto& [key, value] : _dict) {
        text += std::exchange(separator, ", ");
        if constexpr (std::is_same_v<K, int>)
            text += std::to_string(key);
        else
            omu_AppendQuoted(text, key.View());
        text += ": ";
        value->AppendString(text);
    }
    text += '}';
}

// ---- Operations

template <class K>
std::unique_ptr<omu_Primitive> omu_PrimDictionary<K>::Copy() const {
    return std::make_unique<omu_PrimDictionary>(*this);
}

template <class K>
void omu_PrimDictionary<K>::Accept(omu_PrimVisitor* visitor) const {
    if constexpr (std::is_same_v<K, int>)
        visitor->VisitIntDictionary(*this);
    else
        visitor->VisitStringDictionary(*this);
}

template <class K>
bool omu_PrimDictionary<K>::IsEqual(const omu_Primitive& other) const {
    const auto* const dictionary = SameKind<omu_PrimDictionary>(other);
    if (dictionary == nullptr || _dict.size() != dictionary->_dict.size()) return false;
    const omu_Depth level;
    for (auto a = _dict.begin(), b = dictionary->_dict.begin(); a != _dict.end(); ++a, ++b)
        if (a->first != b->first) return false;
    for (auto a = _dict.begin(), b = dictionary->_dict.begin(); a != _dict.end(); ++a, ++b)
        if (*a->second != *b->second) return false;
    return true;
}

// ---- Persistence

template <class K>
void omu_PrimDictionary<K>::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar
        .Class<omu_PrimDictionary, omu_PrimDictionaryBase>(
            std::is_same_v<K, int> ? "omu_PrimDictionary<int>" : "omu_PrimDictionary<cow_String>", omu_MetadataNumber)
        .template Add<cow_Map<K, Holder>>("dict");
}

template <class K>
void omu_PrimDictionary<K>::DBWrite(const cls_WriteVisitor& visitor) const {
    const omu_Depth level;
    omu_PrimDictionaryBase::DBWrite(visitor.Base(omu_PrimDictionaryBase::TypeId()));
    cow_Map<K, Holder> dict;
    for (const auto& [key, value] : _dict) dict.Insert(key, value);
    visitor.Write("dict", dict);
}

template <class K>
omu_PrimDictionary<K>::omu_PrimDictionary(const cls_ReadVisitor& visitor) : omu_PrimDictionaryBase(visitor.Base()) {
    for (const auto& [key, value] : visitor.Read("dict", cow_Map<K, Holder>()))
        _dict.emplace(key, value.IsNull() ? Holder(new omu_PrimNone) : value);
}

template class omu_PrimDictionary<int>;
template class omu_PrimDictionary<cow_String>;
