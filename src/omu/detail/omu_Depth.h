#ifndef ORV_OMU_DETAIL_OMU_DEPTH_H
#define ORV_OMU_DETAIL_OMU_DEPTH_H

/// Values inside of values down to this level are printed, copied, compared and written; what is nested deeper only
/// lives and dies.
inline constexpr int omu_deepestValue = 150;

/// One level of nesting on this thread while it lives. Throws nex_PrimException on the level after the deepest.
class omu_Depth {
public:
    omu_Depth();
    ~omu_Depth();
    omu_Depth(const omu_Depth&) = delete;
    omu_Depth& operator=(const omu_Depth&) = delete;
};

#endif
