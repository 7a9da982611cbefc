#ifndef ORV_ANNC_ANNC_ARROWINTOBJ_H
#define ORV_ANNC_ANNC_ARROWINTOBJ_H

#include <annC/annC_Arrow.h>
#include <annC/annC_IntObj.h>
#include <base/orv_Export.h>

ORV_EXTERN_TEMPLATE(annC_IntObj<annC_Arrow>);

/// The scripting object of an arrow.
class ORV_EXPORT annC_ArrowIntObj : public annC_IntObj<annC_Arrow> {
public:
    using annC_IntObj::annC_IntObj;

    /// The commands "translateStartPoint" and "translateEndPoint": two required numbers, "dx" and "dy", move the one
    /// end. Throws, and has changed nothing, as annC_IntObj tells; a point that would not be finite is out of
    /// range.
    void TranslateStartPoint(omu_Arguments& arguments);
    void TranslateEndPoint(omu_Arguments& arguments);
};

#endif
