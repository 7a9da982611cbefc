#ifndef ORV_UTF_UTF_QUATERNIONDOUBLEADAPTER_H
#define ORV_UTF_UTF_QUATERNIONDOUBLEADAPTER_H

#include <utf/detail/utf_QuaternionAdapter.h>

/// A utf_Quaternion<double> for scripts.
class ORV_EXPORT utf_QuaternionDoubleAdapter : public utf_QuaternionAdapter<double> {
public:
    using utf_QuaternionAdapter::utf_QuaternionAdapter;
};

#endif
