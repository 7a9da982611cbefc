#ifndef ORV_BASE_CLS_MEMENTOREAD_H
#define ORV_BASE_CLS_MEMENTOREAD_H

#include <base/bio_Marker.h>
#include <base/cls_Collection.h>
#include <base/cls_CollectionType.h>
#include <base/cls_FieldHandle.h>
#include <base/orv_Export.h>

#include <memory>

class bio_Ifilter;
class cls_ClassRegistrar;

/// The fields of one stored object by name. Objects read through cls_ReadVisitor; this is what stands behind it.
/// Whatever the stream did not carry reads as the default given.
class ORV_EXPORT cls_MementoRead {
public:
    cls_MementoRead() = default;
    cls_MementoRead(const cls_MementoRead&) = delete;
    cls_MementoRead& operator=(const cls_MementoRead&) = delete;
    virtual ~cls_MementoRead();

    /// The value of the field, or `fallback` when the stream carried none.
    [[nodiscard]] virtual char Read(const cls_FieldHandle& field, char fallback) const = 0;
    [[nodiscard]] virtual short Read(const cls_FieldHandle& field, short fallback) const = 0;
    [[nodiscard]] virtual int Read(const cls_FieldHandle& field, int fallback) const = 0;
    [[nodiscard]] virtual float Read(const cls_FieldHandle& field, float fallback) const = 0;
    [[nodiscard]] virtual double Read(const cls_FieldHandle& field, double fallback) const = 0;
    [[nodiscard]] virtual cow_String Read(const cls_FieldHandle& field, const cow_String& fallback) const = 0;
    [[nodiscard]] virtual int ReadEnumAsInt(const cls_FieldHandle& field, int fallback) const = 0;

    /// The memento of an object field, owned by this one; null for a field that is no object or was not read.
    [[nodiscard]] virtual const cls_MementoRead* MakeReadObj(const cls_FieldHandle& field) const = 0;
    /// The part of the base class; null when there is none.
    [[nodiscard]] virtual const cls_MementoRead* Base() const = 0;
    /// The collection behind this memento's header; null when there is none.
    [[nodiscard]] virtual cls_Collection* Collection() const = 0;
    /// The blob behind this memento's header; null when there is none.
    [[nodiscard]] virtual cls_AgentBlob* AgentBlob() const = 0;

    /// False when the stream carried no fields here: no object, a field that nobody wrote, an unknown class.
    [[nodiscard]] virtual bool HasValue() const = 0;
    /// Whether here, or anywhere below the same root, a class came that does not derive from the expected one. Its
    /// bytes were read as the expected one's, and so what lies behind them may be anything: fields can be asked for,
    /// but no object is made of such a memento.
    [[nodiscard]] virtual bool HasMisfit() const = 0;
    /// The class that the stream tells, or the expected one where a misfit came, and the number of the object.
    [[nodiscard]] virtual unsigned ClassId() const = 0;
    [[nodiscard]] virtual bio_Marker getMarker() const = 0;
    /// The object made for this memento's number so far; null when none was.
    [[nodiscard]] virtual std::shared_ptr<void> getObjectPtr() const = 0;

    /// A fresh object of the field's stored class, as a pointer to its part of class `asClass` (0: the class that the
    /// field is declared with); null when the stream carried none. Throws nex_StreamException ("class cannot be made
    /// from a stream") for an unknown or abstract class, for one that does not derive from `asClass`, and below a root
    /// with a misfit.
    [[nodiscard]] std::shared_ptr<void> ReadObjPtr(const cls_FieldHandle& field, unsigned asClass = 0) const;
    /// The same, but one object for all references to one number.
    [[nodiscard]] std::shared_ptr<void> ReadObjCow(const cls_FieldHandle& field, unsigned asClass = 0) const;

    /// Where the memento reads from, and the classes it goes by.
    [[nodiscard]] virtual bio_Ifilter& Filter() const = 0;
    [[nodiscard]] virtual const cls_ClassRegistrar& Registrar() const = 0;

private:
    [[nodiscard]] std::shared_ptr<void> ReadObj(const cls_FieldHandle& field, unsigned asClass, bool shared) const;
};

/// The part of class `classId` in the memento of an object of that class or of one derived from it. Throws
/// nex_StreamException when there is none.
[[nodiscard]] ORV_EXPORT const cls_MementoRead& cls_PartOf(const cls_MementoRead& memento, unsigned classId);

#endif
