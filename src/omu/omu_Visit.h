#ifndef ORV_OMU_OMU_VISIT_H
#define ORV_OMU_OMU_VISIT_H

#include <omu/omu_PrimArray.h>
#include <omu/omu_PrimBool.h>
#include <omu/omu_PrimBoolean.h>
#include <omu/omu_PrimComplex.h>
#include <omu/omu_PrimDictionary.h>
#include <omu/omu_PrimEnumBase.h>
#include <omu/omu_PrimException.h>
#include <omu/omu_PrimExpr.h>
#include <omu/omu_PrimList.h>
#include <omu/omu_PrimNone.h>
#include <omu/omu_PrimNumber.h>
#include <omu/omu_PrimString.h>
#include <omu/omu_PrimTranslatedString.h>
#include <omu/omu_PrimTuple.h>
#include <omu/omu_PrimType.h>
#include <omu/omu_PrimVisitor.h>

#include <type_traits>
#include <utility>

/// The lambdas of one `omu_Visit` as a visitor.
template <class... F>
class omu_LambdaVisitor : public omu_PrimVisitor {
public:
    /// From a lambda for each class that counts.
    explicit omu_LambdaVisitor(F&&... f) : _call{std::forward<F>(f)...} {}

    /// Whether a lambda took the value.
    [[nodiscard]] bool Taken() const noexcept { return _taken; }

    void VisitNumber(const omu_PrimNumber& v) override { Take(v); }
    void VisitString(const omu_PrimString& v) override { Take(v); }
    void VisitTranslatedString(const omu_PrimTranslatedString& v) override { Take(v); }
    void VisitBoolean(const omu_PrimBoolean& v) override { Take(v); }
    void VisitNone(const omu_PrimNone& v) override { Take(v); }
    void VisitComplex(const omu_PrimComplex& v) override { Take(v); }
    void VisitExpr(const omu_PrimExpr& v) override { Take(v); }
    void VisitType(const omu_PrimType& v) override { Take(v); }
    void VisitEnum(const omu_PrimEnumBase& v) override { Take(v); }
    void VisitBool(const omu_PrimBool<2>& v) override { Take(v); }
    void VisitTuple(const omu_PrimTuple& v) override { Take(v); }
    void VisitList(const omu_PrimList& v) override { Take(v); }
    void VisitIntDictionary(const omu_PrimDictionary<int>& v) override { Take(v); }
    void VisitStringDictionary(const omu_PrimDictionary<cow_String>& v) override { Take(v); }
    void VisitArray(const omu_PrimArray& v) override { Take(v); }
    void VisitException(const omu_PrimException& v) override { Take(v); }

private:
    struct Overloads : std::decay_t<F>... {
        using std::decay_t<F>::operator()...;
    };

    template <class T>
    void Take(const T& value) {
        if constexpr (std::is_invocable_v<Overloads&, const T&>) {
            _taken = true;
            _call(value);
        }
    }

    Overloads _call;
    bool _taken = false;
};

/// Calls the one of the lambdas that overload resolution picks for the value's concrete class, if there is any, and
/// tells whether there was:
///
///     omu_Visit(value, [&](const omu_PrimNumber& n) { sum += n.AsDouble(); },
///                      [&](const omu_Primitive& other) { skipped.push_back(other.TypeString()); });
template <class... F>
bool omu_Visit(const omu_Primitive& value, F&&... f) {
    omu_LambdaVisitor<F...> visitor(std::forward<F>(f)...);
    value.Accept(&visitor);
    return visitor.Taken();
}

#endif
