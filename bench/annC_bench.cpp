// Writing and reading texts beside cereal's binary archive with a record of the same fields, which writes no names and
// no classes. Read the ratios of one run: writing should stay within 3 times cereal, reading within 4 times. The peer's
// record has anchors like ours, shared and polymorphic; `plain` is a peer whose anchors are mere numbers.

#include <annC/annC_AnnotationContainer.h>
#include <annC/annC_NamedAnchor.h>
#include <annC/annC_Text.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <idb/idb_ReadObject.h>
#include <idb/idb_WriteObject.h>

#include <benchmark/benchmark.h>
#include <cereal/archives/binary.hpp>
#include <cereal/types/memory.hpp>
#include <cereal/types/polymorphic.hpp>
#include <cereal/types/string.hpp>
#include <cereal/types/vector.hpp>

#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

struct PeerAnchor {
    PeerAnchor() = default;
    PeerAnchor(const PeerAnchor&) = delete;
    PeerAnchor& operator=(const PeerAnchor&) = delete;
    virtual ~PeerAnchor() = default;
    template <class Archive>
    void serialize(Archive& /*archive*/) {}
};
struct PeerNamedAnchor : PeerAnchor {
    int position = 0;
    template <class Archive>
    void serialize(Archive& archive) {
        archive(cereal::base_class<PeerAnchor>(this), position);
    }
};
CEREAL_REGISTER_TYPE(PeerNamedAnchor)

namespace {

constexpr int size = 100000;

std::string TextOf(int i) { return "Stress at node " + std::to_string(i); }

// ---- Ours

struct Texts {
    cow_List<annC_Text> values;

    Texts() = default;
    static unsigned TypeId() { return 0x7F0001; }
    static void InitializeMetadata(cls_ClassRegistrar& r) {
        r.Class<Texts>("Texts", 1).Add<cow_List<annC_Text>>("values");
    }
    void DBWrite(const cls_WriteVisitor& v) const { v.Write("values", values); }
    explicit Texts(const cls_ReadVisitor& v) : values(v.Read("values", cow_List<annC_Text>())) {}
};

const cls_ClassRegistrar& Registrar() {
    static cls_ClassRegistrar registrar;
    for (const auto initialize :
         {annC_Anchor::InitializeMetadata, annC_NamedAnchor::InitializeMetadata, annC_Annotation::InitializeMetadata,
          annC_Text::InitializeMetadata, annC_AnnotationContainer::InitializeMetadata, Texts::InitializeMetadata})
        initialize(registrar);
    return registrar;
}

annC_Text MakeText(int i) {
    annC_Text text;
    text.SetText(TextOf(i));
    text.SetOffsetX(i);
    return text;
}

Texts List() {
    std::vector<annC_Text> texts;
    texts.reserve(size);
    for (int i = 0; i < size; ++i) texts.push_back(MakeText(i));
    Texts holder;
    holder.values = cow_List<annC_Text>(std::move(texts));
    return holder;
}

annC_AnnotationContainer Container() {
    annC_AnnotationContainer container;
    for (int i = 0; i < size; ++i) container.Insert(TextOf(i), annC_AnnotationHld(MakeText(i).Copy()));
    return container;
}

template <class T>
void Write(benchmark::State& state, T (*make)()) {
    const cls_ClassRegistrar& registrar = Registrar();
    const T holder = make();
    for (auto _ : state) {
        bio_Ofilter out;
        idb_WriteObject(out, registrar, holder);
        benchmark::DoNotOptimize(out.Bytes().data());
    }
}

template <class T>
void Read(benchmark::State& state, T (*make)()) {
    const cls_ClassRegistrar& registrar = Registrar();
    bio_Ofilter out;
    idb_WriteObject(out, registrar, make());
    for (auto _ : state) {
        state.PauseTiming();
        std::string copy = out.Bytes();
        state.ResumeTiming();
        bio_Ifilter in(std::move(copy));
        const T holder = idb_ReadObject<T>(in, registrar);
        benchmark::DoNotOptimize(&holder);
    }
}

// ---- The peer

struct Shared {
    std::shared_ptr<PeerAnchor> anchor = std::make_shared<PeerNamedAnchor>();
    template <class Archive>
    void serialize(Archive& archive) {
        archive(anchor);
    }
};
struct Plain {
    int anchor = 0;
    template <class Archive>
    void serialize(Archive& archive) {
        archive(anchor);
    }
};

template <class Anchor>
struct PeerText {
    std::string text;
    double offsetX = 0.0, offsetY = 0.0;
    Anchor anchor, referencePoint;
    double rotationAngle = 0.0;
    std::string font = "-*-helvetica-medium-r-normal-*-*-120-", color = "White";
    int backgroundStyle = 0;
    std::string backgroundColor = "Black";
    bool box = false;
    int justification = 0;

    template <class Archive>
    void serialize(Archive& archive) {
        archive(text, offsetX, offsetY, anchor, referencePoint, rotationAngle, font, color, backgroundStyle,
                backgroundColor, box, justification);
    }
};

template <class Anchor>
std::vector<PeerText<Anchor>> PeerTexts() {
    std::vector<PeerText<Anchor>> texts(size);
    for (int i = 0; i < size; ++i) {
        texts[static_cast<std::size_t>(i)].text = TextOf(i);
        texts[static_cast<std::size_t>(i)].offsetX = i;
    }
    return texts;
}

template <class Anchor>
void PeerWrite(benchmark::State& state) {
    const auto texts = PeerTexts<Anchor>();
    for (auto _ : state) {
        std::ostringstream out;
        cereal::BinaryOutputArchive archive(out);
        archive(texts);
        benchmark::DoNotOptimize(out.tellp());
    }
}

template <class Anchor>
void PeerRead(benchmark::State& state) {
    std::ostringstream out;
    {
        cereal::BinaryOutputArchive archive(out);
        archive(PeerTexts<Anchor>());
    }
    for (auto _ : state) {
        state.PauseTiming();
        std::string copy = out.str();
        state.ResumeTiming();
        std::istringstream in(std::move(copy));
        cereal::BinaryInputArchive archive(in);
        std::vector<PeerText<Anchor>> texts;
        archive(texts);
        benchmark::DoNotOptimize(texts.data());
    }
}

}  // namespace

BENCHMARK_CAPTURE(Write, list, List)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Write, container, Container)->Unit(benchmark::kMillisecond);
BENCHMARK(PeerWrite<Shared>)->Unit(benchmark::kMillisecond);
BENCHMARK(PeerWrite<Plain>)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Read, list, List)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Read, container, Container)->Unit(benchmark::kMillisecond);
BENCHMARK(PeerRead<Shared>)->Unit(benchmark::kMillisecond);
BENCHMARK(PeerRead<Plain>)->Unit(benchmark::kMillisecond);
