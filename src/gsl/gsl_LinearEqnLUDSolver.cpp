#include <gsl/gsl_LinearEqnLUDSolver.h>

#include <algorithm>
#include <cmath>
#include <utility>

// The plain loops take the products off one element after the other. Here all products of some columns are taken off
// everything to their right at once, along the rows, in portions that stay in the first cache. Each element still meets
// the same products one by one in the same order, so that it has the same bits.

namespace {

using Index = std::size_t;

constexpr double tiny = 1e-14;      // what counts as zero for a row and for a pivot
constexpr Index leafColumns = 16;   // decomposed column by column
constexpr Index panelColumns = 32;  // whose products are taken off a strip before the next ones
constexpr Index stripColumns = 64;  // panelColumns rows of a strip fill half of the first cache
constexpr Index groupColumns = 4;   // whose products are taken off an element while it is in a register

/// row[j] -= factor other[j] for `count` columns.
inline void SubtractMultiple(double* __restrict row, double factor, const double* __restrict other,
                             Index count) noexcept {
    for (Index j = 0; j < count; ++j) row[j] -= factor * other[j];
}

/// Takes multiples of `groupColumns` others off two rows, in turn: what is loaded serves twice.
inline void SubtractMultiples(double* __restrict row0, double* __restrict row1, const double* factors0,
                              const double* factors1, const double (*__restrict others)[stripColumns],
                              Index count) noexcept {
    const double a0 = factors0[0], a1 = factors0[1], a2 = factors0[2], a3 = factors0[3];
    const double b0 = factors1[0], b1 = factors1[1], b2 = factors1[2], b3 = factors1[3];
    for (Index j = 0; j < count; ++j) {
        const double u0 = others[0][j], u1 = others[1][j], u2 = others[2][j], u3 = others[3][j];
        row0[j] = row0[j] - a0 * u0 - a1 * u1 - a2 * u2 - a3 * u3;
        row1[j] = row1[j] - b0 * u0 - b1 * u1 - b2 * u2 - b3 * u3;
    }
}

/// The rows of a panel within a strip, copied: rows that lie apart might displace each other in the cache.
using Panel = double[panelColumns][stripColumns];

/// Takes the products of the columns [begin, end), whose rows start at `others`, off the strip of `count` columns at
/// `column` in the rows [first, last).
void SubtractProducts(double* const* rows, Index first, Index last, Index begin, Index end,
                      const double (*others)[stripColumns], Index column, Index count) noexcept {
    const auto subtractTail = [=](double* row, Index from) {
        for (Index k = from; k < end; ++k) SubtractMultiple(row + column, row[k], others[k - begin], count);
    };
    const Index tail = end - (end - begin) % groupColumns;
    Index i = first;
    for (; i + 2 <= last; i += 2) {
        double *const row0 = rows[i], *const row1 = rows[i + 1];
        for (Index k = begin; k < tail; k += groupColumns)
            SubtractMultiples(row0 + column, row1 + column, row0 + k, row1 + k, others + (k - begin), count);
        subtractTail(row0, tail);
        subtractTail(row1, tail);
    }
    if (i < last) subtractTail(rows[i], begin);
}

/// Takes the products of the columns [begin, end) off the strip of `count` columns at `column`.
void UpdateStrip(double* const* rows, Index n, Index begin, Index end, Index column, Index count) noexcept {
    Panel panel;
    for (Index group = begin; group < end; group += groupColumns) {
        const Index groupEnd = std::min(group + groupColumns, end);
        double(*const others)[stripColumns] = panel + (group - begin);
        for (Index i = group; i < groupEnd; ++i) {
            for (Index k = group; k < i; ++k) SubtractMultiple(rows[i] + column, rows[i][k], others[k - group], count);
            std::copy_n(rows[i] + column, count, others[i - group]);
        }
        SubtractProducts(rows, groupEnd, end, group, groupEnd, others, column, count);
    }
    SubtractProducts(rows, end, n, begin, end, panel, column, count);
}

/// Takes the products of the columns [begin, middle) off the columns [middle, end), where rows above `begin` are done.
void Update(double* const* rows, Index n, Index begin, Index middle, Index end) noexcept {
    for (Index column = middle; column < end; column += stripColumns)
        for (Index k = begin; k < middle; k += panelColumns)
            UpdateStrip(rows, n, k, std::min(k + panelColumns, middle), column, std::min(stripColumns, end - column));
}

}  // namespace

void gsl_LinearEqnLUDSolver::SetMatrix(double** rows, unsigned int n) noexcept {
    if (_rows != nullptr) CleanData();
    _rows = rows;
    _n = n;
}

bool gsl_LinearEqnLUDSolver::Solve(const double* b, double* x) {
    if (!LUDecomposition()) return false;
    for (Index i = 0; i < _n; ++i) x[i] = b[i];
    BackwardSubstitution(x);
    return true;
}

bool gsl_LinearEqnLUDSolver::LUDecomposition() {
    if (_rows == nullptr) return false;
    if (_isDecomposed) return true;
    _permutation.resize(_n);
    _scales.resize(_n);
    for (Index i = 0; i < _n; ++i) {
        double big = 0.0;
        for (Index j = 0; j < _n; ++j) big = std::max(big, std::abs(_rows[i][j]));
        if (big < tiny) {
            _isNearSingular = true;
            return false;
        }
        _scales[i] = 1.0 / big;
    }
    DecomposeColumns(0, _n);
    _isDecomposed = true;
    return true;
}

void gsl_LinearEqnLUDSolver::DecomposeColumns(std::size_t begin, std::size_t end) noexcept {
    if (end - begin > leafColumns) {
        const Index leaves = (end - begin + leafColumns - 1) / leafColumns;
        const Index middle = begin + (leaves + 1) / 2 * leafColumns;
        DecomposeColumns(begin, middle);
        Update(_rows, _n, begin, middle, end);
        DecomposeColumns(middle, end);
        return;
    }
    double* const* const rows = _rows;
    const Index n = _n;
    for (Index j = begin; j < end; ++j) {
        ExchangeRows(j, PivotRow(j));
        double* const pivotRow = rows[j];
        if (std::abs(pivotRow[j]) < tiny) {
            pivotRow[j] = tiny;
            _isNearSingular = true;
        }
        const double pivot = pivotRow[j];
        for (Index i = j + 1; i < n; ++i) {
            double* const row = rows[i];
            const double factor = row[j] / pivot;
            row[j] = factor;
            SubtractMultiple(row + j + 1, factor, pivotRow + j + 1, end - j - 1);
        }
    }
}

std::size_t gsl_LinearEqnLUDSolver::PivotRow(std::size_t column) const noexcept {
    const double* const scales = _scales.data();
    Index pivot = column;
    double big = 0.0;
    for (Index i = column; i < _n; ++i) {
        const double scaled = scales[i] * std::abs(_rows[i][column]);
        pivot = scaled >= big ? i : pivot;
        big = std::max(big, scaled);
    }
    return pivot;
}

void gsl_LinearEqnLUDSolver::ExchangeRows(std::size_t row, std::size_t pivot) noexcept {
    _permutation[row] = static_cast<unsigned>(pivot);
    if (pivot == row) return;
    std::swap_ranges(_rows[pivot], _rows[pivot] + _n, _rows[row]);
    _parity = -_parity;
    _scales[pivot] = _scales[row];
}

void gsl_LinearEqnLUDSolver::BackwardSubstitution(double* x) const noexcept {
    double* const* const rows = _rows;
    const Index n = _n;
    for (Index i = 0; i < n; ++i) std::swap(x[i], x[_permutation[i]]);
    for (Index j = 0; j < n; ++j) {  // by columns, so that no difference waits for the one before it
        const double known = x[j];
        for (Index i = j + 1; i < n; ++i) x[i] -= rows[i][j] * known;
    }
    for (Index i = n; i-- > 0;) {
        for (Index j = i + 1; j < n; ++j) x[i] -= rows[i][j] * x[j];
        x[i] /= rows[i][i];
    }
}

void gsl_LinearEqnLUDSolver::CleanData() noexcept {
    _permutation.clear();
    _parity = 1;
    _isNearSingular = false;
    _isDecomposed = false;
}
