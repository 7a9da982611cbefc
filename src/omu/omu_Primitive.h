#ifndef ORV_OMU_OMU_PRIMITIVE_H
#define ORV_OMU_OMU_PRIMITIVE_H

#include <base/cls_Uid.h>
#include <base/cow_String.h>
#include <base/orv_Export.h>
#include <omu/omu_TypeId.h>

#include <memory>
#include <string>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;
class omu_PrimVisitor;

/// A value as scripts and modelling objects exchange it: a number, a text, a sequence, a mapping. It knows its kind
/// (the type character), prints itself in the scripting notation, compares, copies itself and persists.
///
/// A copy keeps the identity, a value read from a stream gets a fresh one, all others have the default one (number 0).
/// One identity serves all levels of a class: it is never stored, and no level is written apart from its object.
///
/// The order of the virtual functions is part of the interface. Hosts must not rely on the type character alone before
/// a cast: where it comes from a stream it is whatever the stream says.
///
/// Threads: none of these values locks. Distinct values may be used on distinct threads.
class ORV_EXPORT omu_Primitive {
public:
    virtual ~omu_Primitive();

    // ---- Texts

    /// The type's name as messages give it.
    [[nodiscard]] virtual cow_String TypeString() const = 0;

    /// The value in the scripting notation. The argument is ignored by every class.
    [[nodiscard]] virtual cow_String AsString(int mode = 0) const = 0;

    /// The representation: `AsString(0)` but for sequences.
    [[nodiscard]] virtual cow_String AsRepr() const;

    // ---- Comparison

protected:
    /// The rule of this value's class, this value being the left operand of `==`.
    [[nodiscard]] virtual bool IsEqual(const omu_Primitive& other) const = 0;

public:
    /// By the rule of the left operand's class. The rules differ, so that a == b and b == a need not agree.
    [[nodiscard]] bool operator==(const omu_Primitive& other) const { return IsEqual(other); }
    [[nodiscard]] bool operator!=(const omu_Primitive& other) const { return !IsEqual(other); }

    // ---- Operations

    /// Calls the operation of the concrete class. The visitor is not null.
    virtual void Accept(omu_PrimVisitor* visitor) const = 0;

    /// A value of the same class. Never null for the classes here.
    [[nodiscard]] virtual std::unique_ptr<omu_Primitive> Copy() const = 0;

    // ---- Kind and identity

    /// The class identifier of the dynamic class.
    [[nodiscard]] virtual unsigned DynTypeId() const = 0;

    /// One character for the kind of value, as the constructors of the classes tell it.
    [[nodiscard]] char Type() const noexcept { return _type; }
    [[nodiscard]] bool IsType(char type) const noexcept { return _type == type; }

    /// Whether the dynamic class is `typeId` or descends from it, as the process's class registry knows: false for a
    /// class that is not registered, other than with itself.
    [[nodiscard]] bool IsA(unsigned typeId) const;

    [[nodiscard]] cls_Uid Uid() const noexcept { return _uid; }

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x11); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    virtual void DBWrite(const cls_WriteVisitor& visitor) const = 0;

    // ---- Texts of containers

    /// Puts `AsString(0)` behind `text`: what sequences and dictionaries print their elements with.
    virtual void AppendString(std::string& text) const;

protected:
    explicit omu_Primitive(char type) noexcept : _type(type) {}

    /// `fallback` is the type character where the stream carries none.
    omu_Primitive(const cls_ReadVisitor& visitor, char fallback);

    omu_Primitive(const omu_Primitive&) noexcept = default;
    omu_Primitive& operator=(const omu_Primitive&) noexcept = default;

    /// `other` as a T when it is one and has this value's type character, else null.
    template <class T>
    [[nodiscard]] const T* SameKind(const omu_Primitive& other) const {
        return other.IsType(_type) ? dynamic_cast<const T*>(&other) : nullptr;
    }

private:
    char _type;
    cls_Uid _uid;
};

#endif
