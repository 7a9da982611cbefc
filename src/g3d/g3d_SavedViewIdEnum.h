#ifndef ORV_G3D_G3D_SAVEDVIEWIDENUM_H
#define ORV_G3D_G3D_SAVEDVIEWIDENUM_H

/// The views every model offers without anybody having saved them: the side from which the camera looks.
enum g3d_SavedViewIdEnum : int {
    g3d_FrontView = 0,     ///< from +z
    g3d_BackView = 1,      ///< from -z
    g3d_TopView = 2,       ///< from +y, -z upwards
    g3d_BottomView = 3,    ///< from -y, +z upwards
    g3d_LeftView = 4,      ///< from -x
    g3d_RightView = 5,     ///< from +x
    g3d_IsometricView = 6  ///< from (1, 1, 1)
};

#endif
