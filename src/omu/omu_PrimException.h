#ifndef ORV_OMU_OMU_PRIMEXCEPTION_H
#define ORV_OMU_OMU_PRIMEXCEPTION_H

#include <base/nex_Exception.h>
#include <base/orv_Export.h>
#include <omu/omu_Primitive.h>

#include <memory>

/// An exception that was caught, on its way through the scripting layer.
class ORV_EXPORT omu_PrimException : public omu_Primitive {
public:
    /// Keeps a copy of `exception` in its dynamic class.
    explicit omu_PrimException(const nex_Exception& exception, const cow_String& traceback = cow_String());

    /// The copy that the value keeps.
    [[nodiscard]] const nex_Exception& GetException() const noexcept { return *_exception; }

    /// The scripting layer's traceback; empty until it gives one.
    [[nodiscard]] const cow_String& GetTraceback() const noexcept { return _traceback; }
    void SetTraceback(const cow_String& traceback) { _traceback = traceback; }

    /// "exception".
    [[nodiscard]] cow_String TypeString() const override;
    /// "omu_PrimException object".
    [[nodiscard]] cow_String AsString(int mode = 0) const override;

    void Accept(omu_PrimVisitor* visitor) const override;
    [[nodiscard]] std::unique_ptr<omu_Primitive> Copy() const override;

    // ---- Persistence: a command exception of a class that is registered as derived from nex_CommandException reads
    // back as it was; of any other the message remains, in a nex_CommandException.

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x2F); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_PrimException(const cls_ReadVisitor& visitor);

protected:
    /// Exceptions of the same class identifier with the same message. The traceback does not count.
    [[nodiscard]] bool IsEqual(const omu_Primitive& other) const override;

private:
    std::shared_ptr<const nex_Exception> _exception;  // never null; never changed, so copies share it
    cow_String _traceback;
};

#endif
