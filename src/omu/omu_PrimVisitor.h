#ifndef ORV_OMU_OMU_PRIMVISITOR_H
#define ORV_OMU_OMU_PRIMVISITOR_H

#include <base/cow_String.h>
#include <base/orv_Export.h>

class omu_PrimArray;
template <int N>
class omu_PrimBool;
class omu_PrimBoolean;
class omu_PrimComplex;
template <class K>
class omu_PrimDictionary;
class omu_PrimEnumBase;
class omu_PrimException;
class omu_PrimExpr;
class omu_PrimList;
class omu_PrimNone;
class omu_PrimNumber;
class omu_PrimString;
class omu_PrimTranslatedString;
class omu_PrimTuple;
class omu_PrimType;

/// What is done with a value depending on its class: `omu_Primitive::Accept` calls the one operation of the concrete
/// class. Operations that are not overridden do nothing; none falls back on another (a translated string is no string
/// here, an `omu_PrimBool` no enumeration). `omu_Visit` does the same with lambdas, and falls back on base classes.
class ORV_EXPORT omu_PrimVisitor {
public:
    virtual ~omu_PrimVisitor();

    /// A value of that class; nothing is done here.
    virtual void VisitNumber(const omu_PrimNumber&) {}
    virtual void VisitString(const omu_PrimString&) {}
    virtual void VisitTranslatedString(const omu_PrimTranslatedString&) {}
    virtual void VisitBoolean(const omu_PrimBoolean&) {}
    virtual void VisitNone(const omu_PrimNone&) {}
    virtual void VisitComplex(const omu_PrimComplex&) {}
    virtual void VisitExpr(const omu_PrimExpr&) {}
    virtual void VisitType(const omu_PrimType&) {}
    /// Every enumeration but `omu_PrimBool<2>`.
    virtual void VisitEnum(const omu_PrimEnumBase&) {}
    /// A value of that class; nothing is done here.
    virtual void VisitBool(const omu_PrimBool<2>&) {}
    virtual void VisitTuple(const omu_PrimTuple&) {}
    virtual void VisitList(const omu_PrimList&) {}
    virtual void VisitIntDictionary(const omu_PrimDictionary<int>&) {}
    virtual void VisitStringDictionary(const omu_PrimDictionary<cow_String>&) {}
    virtual void VisitArray(const omu_PrimArray&) {}
    virtual void VisitException(const omu_PrimException&) {}

protected:
    omu_PrimVisitor() = default;
    omu_PrimVisitor(const omu_PrimVisitor&) = default;
    omu_PrimVisitor& operator=(const omu_PrimVisitor&) = default;
};

#endif
