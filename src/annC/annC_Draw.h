#ifndef ORV_ANNC_ANNC_DRAW_H
#define ORV_ANNC_ANNC_DRAW_H

#include <annC/annC_DrawList.h>
#include <base/orv_Export.h>

class annC_Annotation;
class annC_AnnotationClient;
class g3d_Camera;
class g3d_Viewport;

/// What an annotation looks like in a viewport.
///
/// Units: the offsets and gaps of annotations and the thickness of their lines (g3d_Utils::ConvertLineThickness) are
/// millimetres on the screen, offsets to the right and up; the list is in pixels. Nothing is clipped to the viewport.
///
/// An arrow is its line, without what the heads cover, then its heads. Each head touches its end of the line with its
/// tip (circles, diamonds and squares with the outermost point or side); where the heads have no room between the gaps
/// they shrink. The line style NONE leaves the heads. A gap that is not positive counts as 0. Nothing is drawn when the
/// gaps leave nothing of the line, and so of an arrow whose ends coincide.
///
/// A text is one polygon when it has a background or a box, then its lines from top to bottom, lines without characters
/// left out; '\n' ends a line. Its rectangle is that of its lines and a margin of 1 mm on all sides, whether there is a
/// box or not. The reference point is a named or fractional place in it; a model point counts as its lower left corner.
/// A rotation that is not finite counts as 0. Nothing is drawn for an empty text.
///
/// For both: a colour that is neither a name in g3d_ColorMap (any more) nor #RRGGBB is white, as a background black.
/// Enumerators that are not listed count as no head, SOLID, VERY_THIN, TRANSPARENT, LEFT. When an anchor has no pixel,
/// or a point falls further than 1e9 pixels from the screen's corner, nothing is drawn. So all numbers in the list are
/// finite. Annotations of a host's own classes are not drawn.
[[nodiscard]] ORV_EXPORT annC_DrawList annC_Draw(const annC_Annotation& annotation, const g3d_Camera& camera,
                                                 const g3d_Viewport& viewport, const annC_AnnotationClient& client);

#endif
