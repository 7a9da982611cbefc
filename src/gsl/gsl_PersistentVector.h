#ifndef ORV_GSL_GSL_PERSISTENTVECTOR_H
#define ORV_GSL_GSL_PERSISTENTVECTOR_H

#include <base/cls_Uid.h>
#include <base/orv_Export.h>
#include <gsl/gsl_TypeId.h>
#include <gsl/gsl_Vector.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// A vector with a persistent identity, stored under the name "gsl_Vector". Copying copies the identity; construction
/// from numbers or a vector gives the default one (0), reading a fresh one, and assigning a plain vector keeps it.
class ORV_EXPORT gsl_PersistentVector : public gsl_Vector {
public:
    /// (0, 0, 1), as `gsl_Vector`.
    gsl_PersistentVector() noexcept = default;
    /// With the default identity.
    gsl_PersistentVector(double x, double y, double z) noexcept : gsl_Vector(x, y, z) {}
    gsl_PersistentVector(const gsl_Vector& vector) noexcept : gsl_Vector(vector) {}

    /// Components and cache; the identity stays.
    gsl_PersistentVector& operator=(const gsl_Vector& vector) noexcept {
        gsl_Vector::operator=(vector);
        return *this;
    }

    [[nodiscard]] cls_Uid Uid() const noexcept { return _uid; }

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return gsl_TypeId(3); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    /// Components and length (fills the cache).
    void DBWrite(const cls_WriteVisitor& visitor) const;
    /// The stored length becomes the cache as it is, bit for bit; a negative or NaN one makes it unknown. It is not
    /// checked against the components: a forged one gives wrong lengths and nothing worse.
    explicit gsl_PersistentVector(const cls_ReadVisitor& visitor);

private:
    cls_Uid _uid;
};

#endif
