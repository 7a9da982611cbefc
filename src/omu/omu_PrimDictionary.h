#ifndef ORV_OMU_OMU_PRIMDICTIONARY_H
#define ORV_OMU_OMU_PRIMDICTIONARY_H

#include <base/cow_CountedHld.h>
#include <base/cow_List.h>
#include <base/orv_Export.h>
#include <omu/omu_Argument.h>
#include <omu/omu_PrimDictionaryBase.h>

#include <cstddef>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

/// A dictionary: values by key, owned, in ascending order of the keys. K is `int` or `cow_String`; strings are ordered
/// by bytes. A copy copies the values. Nested dictionaries and tuples: see omu_PrimTuple.
template <class K>
class ORV_EXPORT omu_PrimDictionary : public omu_PrimDictionaryBase {
    static_assert(std::is_same_v<K, int> || std::is_same_v<K, cow_String>);

public:
    /// Empty. The characters are those of `Type` and `Represents`.
    explicit omu_PrimDictionary(char type = '{', char represents = 'O');
    omu_PrimDictionary(const omu_PrimDictionary& other);
    omu_PrimDictionary(omu_PrimDictionary&&) noexcept = default;
    omu_PrimDictionary& operator=(const omu_PrimDictionary& other) { return *this = omu_PrimDictionary(other); }
    omu_PrimDictionary& operator=(omu_PrimDictionary&&) noexcept = default;
    ~omu_PrimDictionary() override;

    /// What a key is looked up by, without making one.
    using KeyView = std::conditional_t<std::is_same_v<K, int>, int, std::string_view>;

    // ---- Values

    /// Replaces the value of a key that is there. The value is copied or, as listed at `omu_MakePrimitive`, becomes
    /// one.
    template <omu_Puttable V>
    void Put(const V& value, const K& key) {
        Put(omu_MakePrimitive(value), key);
    }
    /// Takes over `value`; null becomes an omu_PrimNone.
    void Put(std::unique_ptr<omu_Primitive> value, const K& key);
    void Put(omu_Primitive* value, const K& key) { Put(std::unique_ptr<omu_Primitive>(value), key); }

    /// Whether the key was there.
    bool Remove(KeyView key);

    /// Number of entries.
    [[nodiscard]] int Length() const override { return static_cast<int>(_dict.size()); }
    /// In ascending order.
    [[nodiscard]] cow_List<K> Keys() const;

    /// The value, until it is replaced or removed, or null.
    [[nodiscard]] const omu_Primitive* Find(KeyView key) const noexcept;
    /// The same; throws nex_RangeException for an absent key.
    [[nodiscard]] const omu_Primitive& operator[](KeyView key) const;

    class Iterator;
    /// Key and value in ascending order: `for (const auto& [key, value] : dictionary)`.
    [[nodiscard]] Iterator begin() const noexcept { return Iterator(_dict.begin()); }
    [[nodiscard]] Iterator end() const noexcept { return Iterator(_dict.end()); }

    // ---- Texts

    /// "dictionary with integer keys" or "dictionary with string keys".
    [[nodiscard]] cow_String TypeString() const override;

    /// "{}", "{'a': 1, 'b': 2.0}", "{-1: 'x'}".
    [[nodiscard]] cow_String AsString(int mode = 0) const override;
    void AppendString(std::string& text) const override;

    // ---- Operations

    [[nodiscard]] std::unique_ptr<omu_Primitive> Copy() const override;
    void Accept(omu_PrimVisitor* visitor) const override;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept {
        return omu_TypeId(std::is_same_v<K, int> ? 0x13 : 0x14);
    }
    [[nodiscard]] unsigned DynTypeId() const override { return TypeId(); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_PrimDictionary(const cls_ReadVisitor& visitor);

protected:
    /// Same type character, equal keys, and under each of them values that are equal by the rule of this dictionary's
    /// one.
    [[nodiscard]] bool IsEqual(const omu_Primitive& other) const override;

private:
    using Holder = cow_CountedHld<omu_Primitive>;

    struct Less {
        using is_transparent = void;
        template <class A, class B>
        bool operator()(const A& a, const B& b) const noexcept {
            return View(a) < View(b);
        }
        static int View(int key) noexcept { return key; }
        static std::string_view View(std::string_view key) noexcept { return key; }
        static std::string_view View(const cow_String& key) noexcept { return key.View(); }
    };
    using Map = std::map<K, Holder, Less>;

    Map _dict;  // no holder is empty
};

/// Over the entries of a dictionary.
template <class K>
class omu_PrimDictionary<K>::Iterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = std::pair<const K&, const omu_Primitive&>;
    using difference_type = std::ptrdiff_t;
    using pointer = void;
    using reference = value_type;

    /// At an entry of the map.
    explicit Iterator(typename Map::const_iterator at) noexcept : _at(at) {}

    [[nodiscard]] reference operator*() const noexcept { return {_at->first, *_at->second.Get()}; }
    Iterator& operator++() noexcept {
        ++_at;
        return *this;
    }
    Iterator operator++(int) noexcept { return Iterator(_at++); }
    friend bool operator==(const Iterator& a, const Iterator& b) noexcept { return a._at == b._at; }

private:
    typename Map::const_iterator _at;
};

ORV_EXTERN_TEMPLATE(omu_PrimDictionary<int>);
ORV_EXTERN_TEMPLATE(omu_PrimDictionary<cow_String>);

#endif
