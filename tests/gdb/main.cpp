// Values of every kind that the debugger's printers show; gdb stops in `Stop` and looks at them.

#include <base/cow_CountedHld.h>
#include <base/cow_List.h>
#include <base/cow_Map.h>
#include <base/cow_String.h>
#include <frame/frame.h>
#include <g3d/g3d.h>
#include <gsl/gsl.h>
#include <omu/omu.h>
#include <utf/utf.h>

#include <memory>

extern "C" __attribute__((noinline)) void Stop() { asm volatile(""); }

int main() {
    int started = 0;
    OrvLumGeom_initialize(started);
    {
        const cow_String text("a \"name\""), empty;
        const cow_List<int> list{3, 1, 2};
        const cow_List<cow_String> texts{"x", "yz"};
        const cow_List<double> none;
        cow_Map<cow_String, int> map;
        map.Insert("one", 1);
        map.Insert("two", 2);
        const gsl_Point point(1.0, 2.5, -3.0);
        const gsl_Vector vector(0.0, 0.1, 1e100);
        const g3d_Point seen(0.1F, 2.0F, 3.0F, 1.0F);
        gsl_Matrix matrix;
        matrix.SetTranslation(vector);
        const cow_List<gsl_Point> points{point};
        const double components[] = {1.0, 2.0, 3.0, 12.0, 13.0, 23.0};
        const utf_Tensor<double> tensor(res_TENSOR_3D_FULL, components, true);
        double surface[] = {1.0, 2.0, 3.0};
        const utf_Tensor<double> wrapping(res_TENSOR_3D_SURFACE, surface);
        const float identity[] = {0.0F, 0.0F, 0.0F, 1.0F};
        const utf_Quaternion<float> turn(res_QUATERNION_3D, identity);
        const omu_PrimNumber integer(7), real(2.5), large(4000000000U);
        const omu_PrimString word("word");
        const omu_PrimEnumBase name("ROUND");
        const omu_PrimBoolean yes(true);
        const omu_PrimNone unset;
        const cow_CountedHld<omu_Primitive> handle(new omu_PrimNumber(2.5)), nothing;
        const cow_CountedHld<omu_Primitive> held(new omu_PrimString("held"));
        omu_PrimTuple tuple;
        tuple.Put(1);
        tuple.Put("b");
        omu_PrimDictionary<cow_String> dictionary;
        dictionary.Put(1, "key");
        Stop();
    }
    OrvLumGeom_finalize(started);
}
