#ifndef ORV_GSL_GSL_LINEAREQNLUDSOLVER_H
#define ORV_GSL_GSL_LINEAREQNLUDSOLVER_H

#include <base/orv_Export.h>

#include <cstddef>
#include <vector>

/// Solves A x = b, A dense of order n, by LU decomposition with implicitly scaled partial pivoting (Crout's method;
/// Press et al., "Numerical Recipes", section "LU decomposition").
///
///     double a[2][2] = {{0, 2}, {1, 1}}, *rows[] = {a[0], a[1]}, x[] = {4, 5};
///     gsl_LinearEqnLUDSolver solver;
///     solver.SetMatrix(rows, 2);
///     if (solver.Solve(x, x) && !solver.IsNearSingular()) ...  // x is (3, 2)
///
/// The matrix is n pointers to rows of n numbers; the rows need not be neighbours. It stays the caller's, must outlive
/// its use here, and is *overwritten by its factors* at the first `Solve` that succeeds: U on and above the diagonal, L
/// below (its diagonal is 1), the rows exchanged in place. Later calls use the factors as they stand.
///
/// Results are the same to the bit however the loops are arranged: an element has its products taken off one by one, in
/// ascending order of the column (of L) they come from.
///
/// Nothing throws but the first `Solve` of a matrix, std::bad_alloc, before anything is changed. Numbers that are not
/// finite spread as in any arithmetic.
class ORV_EXPORT gsl_LinearEqnLUDSolver {
public:
    /// Without a matrix: parity 1, not near singular.
    gsl_LinearEqnLUDSolver() noexcept = default;
    gsl_LinearEqnLUDSolver(const gsl_LinearEqnLUDSolver&) = delete;
    gsl_LinearEqnLUDSolver& operator=(const gsl_LinearEqnLUDSolver&) = delete;

    /// Takes the matrix and its order; nothing is computed yet. If there was a matrix before, all that is known of it
    /// is dropped, also when it is the same one with new numbers. Null takes the matrix away.
    void SetMatrix(double** rows, unsigned int n) noexcept;

    /// Decomposes the matrix, unless that was done, and writes the solution; both arrays hold n numbers and may be the
    /// same one. False, and nothing written, the matrix neither, when there is no matrix or when a row has no element
    /// of at least 1e-14 in absolute value (a NaN is no such element). The pivot of a column is the element that is
    /// greatest beside the largest of its row, the last of equal ones. A pivot below 1e-14 in absolute value is
    /// replaced by 1e-14 and the result is true, x as large as it comes: ask `IsNearSingular`. Order 0 succeeds.
    bool Solve(const double* b, double* x);

    /// A row was all but zero or a pivot was replaced, since `SetMatrix`.
    [[nodiscard]] bool IsNearSingular() const noexcept { return _isNearSingular; }

    /// 1 after an even number of row exchanges, -1 after an odd one: the sign that the product of the diagonal of U
    /// lacks to be the determinant.
    [[nodiscard]] int Parity() const noexcept { return _parity; }

private:
    bool LUDecomposition();
    /// Decomposes the columns [begin, end), the products of those before being taken off.
    void DecomposeColumns(std::size_t begin, std::size_t end) noexcept;
    [[nodiscard]] std::size_t PivotRow(std::size_t column) const noexcept;
    void ExchangeRows(std::size_t row, std::size_t pivot) noexcept;
    void BackwardSubstitution(double* x) const noexcept;
    void CleanData() noexcept;

    double** _rows = nullptr;
    unsigned _n = 0;
    std::vector<unsigned> _permutation;  ///< row j was exchanged with row _permutation[j], at or below it
    std::vector<double> _scales;         ///< of the rows while they are decomposed: 1 / the largest element
    int _parity = 1;
    bool _isNearSingular = false;
    bool _isDecomposed = false;
};

#endif
