#ifndef ORV_OMU_OMU_VELNAMEERROREXCEPTION_H
#define ORV_OMU_OMU_VELNAMEERROREXCEPTION_H

#include <base/nex_CommandException.h>
#include <base/orv_Export.h>
#include <omu/omu_TypeId.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// What is wrong with a name, with the message that it gives.
enum omu_VelNameErrorEnm : int {
    omu_VelNameInvalid = 0,      ///< "invalid name"
    omu_VelNameEmpty = 1,        ///< "name is empty"
    omu_VelNameInvalidJob = 2,   ///< "invalid job name"
    omu_VelNameInvalidModel = 3  ///< "invalid model name"
};

/// A name that breaks the rules of its kind (`omu_VelmorName`); "VelmorNameError" in scripting. The message tells the
/// kind of the error, not the name; it is empty for a kind that is not listed.
class ORV_EXPORT omu_VelNameErrorException : public nex_CommandException {
public:
    /// The message belongs to the kind.
    explicit omu_VelNameErrorException(omu_VelNameErrorEnm kind);

    /// What is wrong with the name.
    [[nodiscard]] omu_VelNameErrorEnm Kind() const noexcept { return _kind; }

    [[nodiscard]] omu_VelNameErrorException* Copy() const override;
    [[noreturn]] void Propagate() const override;
    [[nodiscard]] const char* PythonType() const override;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x23); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_VelNameErrorException(const cls_ReadVisitor& visitor);

private:
    omu_VelNameErrorEnm _kind;
};

#endif
