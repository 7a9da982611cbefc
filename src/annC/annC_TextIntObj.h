#ifndef ORV_ANNC_ANNC_TEXTINTOBJ_H
#define ORV_ANNC_ANNC_TEXTINTOBJ_H

#include <annC/annC_IntObj.h>
#include <annC/annC_Text.h>
#include <base/orv_Export.h>

ORV_EXTERN_TEMPLATE(annC_IntObj<annC_Text>);

/// The scripting object of a text.
class ORV_EXPORT annC_TextIntObj : public annC_IntObj<annC_Text> {
public:
    using annC_IntObj::annC_IntObj;

    /// The command "translate": two required numbers, "dx" and "dy", move the text. Throws, and has changed nothing, as
    /// annC_IntObj tells; an offset that would not be finite is out of range.
    void Translate(omu_Arguments& arguments);
};

#endif
