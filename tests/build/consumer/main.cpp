// Starts the library, uses a value, an exception and a template of it across the border, stops it.

#include <base/cow_List.h>
#include <base/nex_RangeException.h>
#include <frame/frame.h>
#include <gsl/gsl.h>

int main() {
    int count = 0;
    OrvLumGeom_initialize(count);
    const cow_List<gsl_Point> points{gsl_Point(1.0, 2.0, -0.5)};
    bool refused = false;
    try {
        static_cast<void>(points.ConstGet(1));
    } catch (const nex_RangeException&) {
        refused = true;
    }
    const bool read = points.ConstGet(0) == gsl_Point(1.0, 2.0, -0.5);
    OrvLumGeom_finalize(count);
    return refused && read && count == 0 ? 0 : 1;
}
