#ifndef ORV_G3D_G3D_CLIPRESULTENUM_H
#define ORV_G3D_G3D_CLIPRESULTENUM_H

/// How a line or polygon lies to the rectangle or polygon it was clipped with.
enum g3d_ClipResultEnum : int {
    g3d_ClipInside = 0,            ///< wholly inside
    g3d_ClipCovers = 1,            ///< two polygons only: the first covers the second
    g3d_ClipTriviallyOutside = 2,  ///< all of it beyond one side of the bounds: no crossing was looked for
    g3d_ClipOutside = 3,           ///< it crosses no side: nothing of it remains
    g3d_ClipClipped = 4,           ///< a part of it remains
    g3d_ClipDegenerate = 5         ///< an empty linestring, or a polygon without area or with a vertex not finite
};

#endif
