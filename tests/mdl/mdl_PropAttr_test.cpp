// Protects property attributes: what each operation makes of each state, what the readers make of each argument and
// leave to be reported, and what comes back from streams.
#include <base/nex_StreamException.h>
#include <mdl/mdl_PropAttributeGet.h>
#include <mdl/mdl_PropAttributeGetFromTuple.h>
#include <support/values.h>

#include <gtest/gtest.h>

#include <random>

using State = mdl_PropAttributeStateEnm;
using States = omu_PrimEnum<State>;

template <class T, class Attr = mdl_PropAttr<T>>
constexpr bool keepsApart = !std::is_convertible_v<T, Attr> && !std::is_convertible_v<Attr, T> &&
                            !std::is_convertible_v<State, T> && !std::is_constructible_v<Attr, State> &&
                            !std::is_assignable_v<Attr&, const char*> && std::is_assignable_v<Attr&, State>;
static_assert(keepsApart<int> && keepsApart<bool> && keepsApart<double> && keepsApart<cow_List<int>>);

static void ForEachType(const auto& check) {
    check(5.5), check(7), check(true), check(cow_List<float>{0.5F}), check(cow_List<cow_String>{"a"});
    check(cow_List<int>{1, 2});
}
template <class T>
static mdl_PropAttr<T> In(State state, const T& value) {
    mdl_PropAttr<T> attribute(value);
    attribute.ForceState(state);
    return attribute;
}

TEST(mdl_PropAttr, EveryOperationInEveryState) {
    // By state: IsModified, IsConditionModified, IsActive and IsFree; the next state; whether assigning it zeroes the
    // value; whether SetStatus permits it without UNSET allowed and with.
    const int answers[] = {0b0001, 0b1010, 0b0010, 0b1101, 0, 0, 0, 0}, propagated[] = {0, 2, 2, 0, 4, 5, 6, 7};
    const bool zeroes[8] = {true, false, false, true},
               permitted[2][8] = {{false, true, true, true}, {true, true, true}};
    ForEachType([&]<class T>(const T& value) {
        for (int pair = 0; pair < 64; ++pair) {
            SCOPED_TRACE(pair);
            const State from{pair / 8}, to{pair % 8};
            const mdl_PropAttr<T> start = In(from, value), other = In(to, value), zero = In(to, T());
            const auto becomes = [&start](const mdl_PropAttr<T>& expected, const auto& act) {
                mdl_PropAttr<T> a(start);
                const cls_Uid uid = a.Uid();
                const std::string told = Refusal([&] { act(a); });
                EXPECT_TRUE(a == expected && a.Uid() == uid && !(uid == start.Uid())) << told;
                return told;
            };
            becomes(In(State{propagated[pair / 8]}, value), [](auto& a) { a.Propagate(); });
            becomes(In(from, T()), [](auto& a) { a.Zero(); });
            becomes(In(State::SET, value), [](auto& a) { a.Get(); });
            becomes(In(State::SET, T()), [](auto& a) { a = T(); });
            becomes(zero, [&](auto& a) { a = zero; });
            becomes(zeroes[pair % 8] ? zero : other, [&](auto& a) { a = to; });
            for (const bool unset : {false, true}) {
                const bool isPermitted = permitted[unset ? 1 : 0][pair % 8];
                const auto set = [&](auto& a) { a.SetStatus("%n", States(to), unset); };
                EXPECT_EQ(becomes(isPermitted && to != State::UNCHANGED ? zero : start, set),
                          isPermitted ? "accepted" : "Invalid propagation status for '%n' attribute.");
            }
            EXPECT_EQ(8 * start.IsModified() + 4 * start.IsConditionModified() + 2 * start.IsActive() + start.IsFree(),
                      answers[pair / 8]);
            EXPECT_TRUE((start == other) == (from == to) && (start != other) == (from != to) && start != zero);
            EXPECT_TRUE((start == to) == (from == to) && (start != to) == (from != to));
            EXPECT_TRUE(start == value && !(start != value) && start != T() && !(start == T()));
        }
        EXPECT_TRUE(mdl_PropAttr<T>(value) == In(State::UNSET, value) && mdl_PropAttr<T>() == In(State::UNSET, T()));
    });
}

TEST(mdl_PropAttr, ReadersAreTheOnePlainReadThatFits) {
    SCOPED_TRACE("seed 71");
    std::mt19937_64 random(71);
    ForEachType([&]<class T>(const T& value) {
        std::vector<std::shared_ptr<omu_Primitive>> samples;
        for (const Sample& each : Samples()) samples.push_back(each.value);
        for (int i = 0; i < 96; ++i)
            samples.push_back(i < 32   ? States(State{i % 8}).Copy()
                              : i < 48 ? omu_MakePrimitive(omu_PrimNone())
                                       : omu_MakePrimitive(value));
        for (int trial = 0; trial < 150; ++trial) {
            omu_Arguments plain(static_cast<int>(random() % 3));
            const auto give = [&](auto... to) { plain.Put(*samples[random() % samples.size()], to...); };
            for (auto n = random() % 3; n > 0; --n) give();
            for (auto n = random() % 3; n > 0; --n) give(cow_String(std::string(n, 'k')));
            plain.Begin();
            omu_Arguments read(plain);
            for (auto n = random() % 5; n > 0; --n) {
                const bool fromTuple = random() % 3 == 0, unset = random() % 2 == 0, none = random() % 2 == 0;
                const std::string keyword(random() % 4, 'k');
                if (random() % 4 == 0) plain.Optional(), read.Optional();
                const auto fits = [&, before = plain](auto& target) {
                    omu_Arguments copy(before);
                    fromTuple ? copy.Get(target) : copy.Get(target, keyword);
                    // What fits none fails as a value.
                    if (std::is_same_v<decltype(target), T&> || !copy.ErrorOnPrevious()) plain = copy;
                    return !copy.ErrorOnPrevious();
                };
                mdl_PropAttr<T> expected = In(State::INVALID, value), a = expected;
                T taken{};
                omu_PrimNone nothing;
                States state(State::UNCHANGED);
                std::string told = "accepted";
                if (fits(taken))
                    expected = fits(nothing) ? a : In(State::SET, taken);  // both fit where there is nothing to read
                else if (none && fits(nothing))
                    expected.Zero();
                else if (fits(state))
                    told = Refusal([&] { expected.SetStatus(fromTuple ? nullptr : keyword.c_str(), state, unset); });
                const auto get = [&] {
                    fromTuple ? mdl_PropAttributeGetFromTuple<T>::Get(read, a, unset, none)
                              : mdl_PropAttributeGet<T>::Get(read, a, keyword.c_str(), unset, none);
                };
                EXPECT_EQ(Refusal(get), told);
                EXPECT_TRUE(a == expected && read.ErrorOnPrevious() == plain.ErrorOnPrevious());
            }
            const std::string told = Refusal<nex_Exception>([&] { plain.End("C"); });
            EXPECT_EQ(Refusal<nex_Exception>([&] { read.End("C"); }), told);
        }
    });
    mdl_PropAttr<double> load;
    omu_PrimTuple tuple = Of(omu_PrimEnumBase("BLUE"));
    mdl_PropAttributeGetFromTuple<double>::Get(tuple, load, true, true);
    EXPECT_EQ(Refusal<nex_Exception>([&] { tuple.End("C"); }), "C[0]; found BLUE, expecting float");
}

TEST(mdl_PropAttr, Streams) {
    ForEachType([]<class T>(const T& value) {
        cls_ClassRegistrar registrar;
        mdl_PropAttr<T>::InitializeMetadata(registrar);
        const mdl_PropAttr<T> a = In(State{-77}, value), back = RoundTrip(registrar, a);  // an unlisted state too
        EXPECT_TRUE(back == a && !(back.Uid() == a.Uid()) && !(back.Uid() == cls_Uid()));
        const std::string good = Written(registrar, a);
        testing::internal::CaptureStderr();
        for (std::size_t bit = 0; bit < 8 * good.size(); ++bit) {
            std::string bad = good;
            bad[bit / 8] = static_cast<char>(bad[bit / 8] ^ (1 << (bit % 8)));
            Refusal<nex_StreamException>([&] { (void)ReadBack<mdl_PropAttr<T>>(registrar, bad); });
            EXPECT_THROW((void)ReadBack<mdl_PropAttr<T>>(registrar, good.substr(0, bit / 8)), nex_StreamException);
        }
        testing::internal::GetCapturedStderr();
    });
}
