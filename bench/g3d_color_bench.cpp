// Conversions of colours beside glm's gtx/color_space, over random colours, so that nothing learns their order. Read
// the ratios of one run: RGB to HSV should stay within 0.9 times glm, HSV to RGB within 0.75, the flat functions on 16
// bits as well as those of the colour class.

#define GLM_ENABLE_EXPERIMENTAL
#include <g3d/g3d_Color.h>
#include <g3d/g3d_RGB.h>

#include <benchmark/benchmark.h>
#include <glm/gtx/color_space.hpp>
#include <glm/vec3.hpp>

#include <random>
#include <vector>

namespace {

constexpr int size = 1 << 16;

std::vector<_RGB> Colors() {
    std::mt19937_64 random(7);
    std::vector<_RGB> colors(size);
    const auto channel = [&] { return static_cast<uint16_t>(random()); };
    for (_RGB& color : colors) color = {channel(), channel(), channel()};
    return colors;
}
std::vector<g3d_Color> ClassColors() {
    std::vector<g3d_Color> colors;
    for (const _RGB& c : Colors())
        colors.emplace_back(static_cast<float>(c.r) / 65535.0F, static_cast<float>(c.g) / 65535.0F,
                            static_cast<float>(c.b) / 65535.0F, 1.0F);
    return colors;
}
std::vector<_HSV> Hsvs() {
    std::vector<_HSV> hsvs;
    for (const _RGB& color : Colors()) hsvs.push_back(RGBToHSV(color));
    return hsvs;
}
std::vector<glm::vec3> PeerColors() {
    std::vector<glm::vec3> colors;
    for (const g3d_Color& color : ClassColors()) colors.emplace_back(color.R(), color.G(), color.B());
    return colors;
}
std::vector<glm::vec3> PeerHsvs() {
    std::vector<glm::vec3> hsvs;
    for (const glm::vec3& color : PeerColors()) hsvs.push_back(glm::hsvColor(color));
    return hsvs;
}

/// out[i] = convert(in[i]), again and again.
template <class Out, class In, class Convert>
void Run(benchmark::State& state, const std::vector<In>& in, Convert convert) {
    std::vector<Out> out(in.size());
    for (auto _ : state) {
        for (std::size_t i = 0; i < in.size(); ++i) out[i] = convert(in[i]);
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * size);
}

void FlatToHsv(benchmark::State& state) { Run<_HSV>(state, Colors(), RGBToHSV); }
void ClassToHsv(benchmark::State& state) {
    Run<_HSV>(state, ClassColors(), [](const g3d_Color& color) { return color.GetHSV(); });
}
void PeerToHsv(benchmark::State& state) {
    Run<glm::vec3>(state, PeerColors(), [](const glm::vec3& color) { return glm::hsvColor(color); });
}
void FlatToRgb(benchmark::State& state) {
    Run<_RGB>(state, Hsvs(), [](_HSV hsv) { return HSVToRGB(hsv); });
}
void ClassToRgb(benchmark::State& state) {
    Run<g3d_Color>(state, Hsvs(), [](const _HSV& hsv) { return g3d_Color().SetHSV(hsv); });
}
void PeerToRgb(benchmark::State& state) {
    Run<glm::vec3>(state, PeerHsvs(), [](const glm::vec3& hsv) { return glm::rgbColor(hsv); });
}

}  // namespace

BENCHMARK(FlatToHsv);
BENCHMARK(ClassToHsv);
BENCHMARK(PeerToHsv);
BENCHMARK(FlatToRgb);
BENCHMARK(ClassToRgb);
BENCHMARK(PeerToRgb);
