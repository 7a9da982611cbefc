#ifndef ORV_MDL_MDL_PROPATTR_H
#define ORV_MDL_MDL_PROPATTR_H

#include <base/cls_Uid.h>
#include <base/cow_List.h>
#include <base/cow_String.h>
#include <base/orv_Export.h>
#include <mdl/mdl_PropAttributeStateEnm.h>
#include <mdl/mdl_TypeId.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// Record in the type table and registered name of the property attribute with values of type T.
struct mdl_PropAttrRecord {
    /// The record's index (0 is none) and the class's name.
    unsigned short index = 0;
    const char* name = nullptr;
};
/// The record of mdl_PropAttr<T>.
template <class T>
inline constexpr mdl_PropAttrRecord mdl_PropAttrRecordOf;
template <>
inline constexpr mdl_PropAttrRecord mdl_PropAttrRecordOf<double> = {0x0F, "mdl_PropAttr<double>"};
template <>
inline constexpr mdl_PropAttrRecord mdl_PropAttrRecordOf<bool> = {0x10, "mdl_PropAttr<bool>"};
template <>
inline constexpr mdl_PropAttrRecord mdl_PropAttrRecordOf<int> = {0x13, "mdl_PropAttr<int>"};
template <>
inline constexpr mdl_PropAttrRecord mdl_PropAttrRecordOf<cow_List<float>> = {0x14, "mdl_PropAttr<cow_List<float>>"};
template <>
inline constexpr mdl_PropAttrRecord mdl_PropAttrRecordOf<cow_List<cow_String>> = {0x15,
                                                                                  "mdl_PropAttr<cow_List<cow_String>>"};
template <>
inline constexpr mdl_PropAttrRecord mdl_PropAttrRecordOf<cow_List<int>> = {0x16, "mdl_PropAttr<cow_List<int>>"};

/// A property of a modelling object that is given in one analysis state and carried into later ones: a value of type T,
/// which is double, int, bool or a list of floats, strings or ints, and the state that tells where the value comes
/// from. "Zero" is 0, false or the empty list.
///
///     mdl_PropAttr<double> pressure(5.0);  // UNSET: a value at construction is a default, nobody gave it
///     pressure = 7.0;                      // SET
///     pressure.Propagate();                // UNCHANGED, still 7.0, in the next analysis state
///     pressure = mdl_PropAttributeStateEnm::FREED;  // 0.0
///     pressure.Propagate();                // UNSET
///
/// Value and state never convert into each other: what is assigned or compared is told by its type. Identities are the
/// objects' own: every constructor, that of a copy too, takes a fresh one, assignments keep it, comparisons ignore it.
template <class T>
class ORV_EXPORT mdl_PropAttr {
    static_assert(mdl_PropAttrRecordOf<T>.name != nullptr, "no property attribute has values of this type");

public:
    /// What `GetState` tells.
    using State = mdl_PropAttributeStateEnm;

    /// Zero, UNSET.
    mdl_PropAttr();
    /// UNSET, whatever the value.
    explicit mdl_PropAttr(const T& value);
    mdl_PropAttr(const mdl_PropAttr& other);
    ~mdl_PropAttr() = default;

    // ---- Assignment

    /// Value and state; the identity stays.
    mdl_PropAttr& operator=(const mdl_PropAttr& other);
    /// The state becomes SET.
    mdl_PropAttr& operator=(const T& value);
    /// UNSET and FREED zero the value as well; any other state leaves it.
    mdl_PropAttr& operator=(const State& state);

    // A text would silently become a truth value.
    template <class P>
    explicit mdl_PropAttr(P*) = delete;
    template <class P>
    mdl_PropAttr& operator=(P*) = delete;

    // ---- Value

    /// For writing: the state becomes SET, even if the caller only reads.
    T& Get() {
        _state = State::SET;
        return _value;
    }
    /// For reading: changes nothing.
    [[nodiscard]] const T& ConstGet() const noexcept { return _value; }

    /// The value only; the state stays.
    void Zero() { _value = T(); }

    // ---- State

    /// Where the value comes from.
    [[nodiscard]] State GetState() const noexcept { return _state; }

    /// The state only; the value stays, for UNSET and FREED too.
    void ForceState(State state) noexcept { _state = state; }

    /// Into the next analysis state: SET becomes UNCHANGED, FREED becomes UNSET, any other state stays. Values stay.
    void Propagate() noexcept;

    /// SET or FREED.
    [[nodiscard]] bool IsModified() const noexcept { return _state == State::SET || _state == State::FREED; }
    /// FREED.
    [[nodiscard]] bool IsConditionModified() const noexcept { return _state == State::FREED; }
    /// SET or UNCHANGED.
    [[nodiscard]] bool IsActive() const noexcept { return _state == State::SET || _state == State::UNCHANGED; }
    /// UNSET or FREED.
    [[nodiscard]] bool IsFree() const noexcept { return _state == State::UNSET || _state == State::FREED; }

    /// What a script's naming of a state does. SET, without a value, leaves *zero* that is set; UNCHANGED changes
    /// nothing; UNSET, permitted only with `allowUnset`, and FREED, permitted only without, zero the value. Any other
    /// state throws nex_PrimException and changes nothing; `attributeName`, null being empty, is for its message.
    void SetStatus(const char* attributeName, const omu_PrimEnum<mdl_PropAttributeStateEnm, 1>& status,
                   bool allowUnset);

    // ---- Comparison: with a value the value only, with a state the state only, with an attribute both

    [[nodiscard]] bool operator==(const T& value) const { return _value == value; }
    [[nodiscard]] bool operator!=(const T& value) const { return !(*this == value); }
    [[nodiscard]] bool operator==(const State& state) const noexcept { return _state == state; }
    [[nodiscard]] bool operator!=(const State& state) const noexcept { return !(*this == state); }
    [[nodiscard]] bool operator==(const mdl_PropAttr& other) const {
        return *this == other._value && *this == other._state;
    }
    [[nodiscard]] bool operator!=(const mdl_PropAttr& other) const { return !(*this == other); }

    // ---- Identity

    [[nodiscard]] cls_Uid Uid() const noexcept { return _uid; }
    /// Takes a fresh identity.
    void NewUid() noexcept { _uid = cls_Uid::AllocateUid(); }

    // ---- Persistence: value and state

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return mdl_TypeId(mdl_PropAttrRecordOf<T>.index); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const;
    /// A state that is not listed is kept as the number it is.
    explicit mdl_PropAttr(const cls_ReadVisitor& visitor);

private:
    T _value = T();
    State _state = State::UNSET;
    cls_Uid _uid = cls_Uid::AllocateUid();
};

ORV_EXTERN_TEMPLATE(mdl_PropAttr<double>);
ORV_EXTERN_TEMPLATE(mdl_PropAttr<int>);
ORV_EXTERN_TEMPLATE(mdl_PropAttr<bool>);
ORV_EXTERN_TEMPLATE(mdl_PropAttr<cow_List<float>>);
ORV_EXTERN_TEMPLATE(mdl_PropAttr<cow_List<cow_String>>);
ORV_EXTERN_TEMPLATE(mdl_PropAttr<cow_List<int>>);

#endif
