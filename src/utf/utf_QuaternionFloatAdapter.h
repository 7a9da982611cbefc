#ifndef ORV_UTF_UTF_QUATERNIONFLOATADAPTER_H
#define ORV_UTF_UTF_QUATERNIONFLOATADAPTER_H

#include <utf/detail/utf_QuaternionAdapter.h>

/// A utf_Quaternion<float> for scripts.
class ORV_EXPORT utf_QuaternionFloatAdapter : public utf_QuaternionAdapter<float> {
public:
    using utf_QuaternionAdapter::utf_QuaternionAdapter;
};

#endif
