// Starts the library, uses a value and a template of it, catches an exception that it throws inside by that exception's
// own type, compares its version with the headers', stops it.

#include <base/bio_Ifilter.h>
#include <base/cow_List.h>
#include <base/nex_StreamException.h>
#include <frame/frame.h>
#include <gsl/gsl.h>

#include <string>

int main() {
    int count = 0;
    OrvLumGeom_initialize(count);
    const cow_List<gsl_Point> points{gsl_Point(1.0, 2.0, -0.5)};
    const bool read = points.ConstGet(0) == gsl_Point(1.0, 2.0, -0.5);
    bool refused = false;
    try {
        double beyondTheEnd = 0.0;
        bio_Ifilter("short").Read(beyondTheEnd);
    } catch (const nex_StreamException&) {
        refused = true;
    }
    OrvLumGeom_finalize(count);

    const std::string headers = std::to_string(OrvLumGeom_versionMajor) + "." +
                                std::to_string(OrvLumGeom_versionMinor) + "." + std::to_string(OrvLumGeom_versionPatch);
    return refused && read && count == 0 && headers == OrvLumGeom_version() ? 0 : 1;
}
