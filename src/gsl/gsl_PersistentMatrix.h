#ifndef ORV_GSL_GSL_PERSISTENTMATRIX_H
#define ORV_GSL_GSL_PERSISTENTMATRIX_H

#include <base/cls_Uid.h>
#include <base/orv_Export.h>
#include <gsl/gsl_Matrix.h>
#include <gsl/gsl_TypeId.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// A matrix with a persistent identity, stored under the name "gsl_Matrix". Copying copies the identity; construction
/// from a matrix gives the default one (0), reading a fresh one, and assigning a plain matrix keeps it.
class ORV_EXPORT gsl_PersistentMatrix : public gsl_Matrix {
public:
    gsl_PersistentMatrix() noexcept = default;
    /// Elements and identity state, with the default identity.
    gsl_PersistentMatrix(const gsl_Matrix& matrix) noexcept : gsl_Matrix(matrix) {}

    /// Elements and identity state; the identity stays.
    gsl_PersistentMatrix& operator=(const gsl_Matrix& matrix) noexcept {
        gsl_Matrix::operator=(matrix);
        return *this;
    }

    [[nodiscard]] cls_Uid Uid() const noexcept { return _uid; }

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return gsl_TypeId(2); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    /// Asks `IsIdentity()` first, which may overwrite a near-identity by the exact one.
    void DBWrite(const cls_WriteVisitor& visitor) const;
    /// The stored state is believed when it is 1 or 0, anything else becomes -1; a memento without fields gives the
    /// identity. Throws nex_StreamException ("bad count in stream") when the array is not 4x4.
    explicit gsl_PersistentMatrix(const cls_ReadVisitor& visitor);

private:
    cls_Uid _uid;
};

#endif
