// Protects the exceptions: kept and thrown again as their own class, with their message, their value and their place.
#include <base/atr_String.h>
#include <base/nex_CmdException.h>
#include <base/nex_PrimException.h>
#include <base/nex_RangeException.h>
#include <base/nex_StreamException.h>
#include <base/nex_Throw.h>
#include <support/streams.h>

#include <gtest/gtest.h>

#include <memory>
#include <typeinfo>

namespace {

using TextError = nex_CmdException<cow_String, 60>;
using MessageError = nex_CmdException<atr_String, 7>;
using NumberError = nex_CmdException<int, 8>;

template <class E>
class base_Exception : public testing::Test {};
using Exceptions = testing::Types<nex_Exception, nex_PrimException, nex_RangeException, nex_StreamException,
                                  nex_CommandException, TextError, MessageError>;
TYPED_TEST_SUITE(base_Exception, Exceptions, );

TYPED_TEST(base_Exception, IsKeptAndThrownAgainAsItsOwnClass) {
    const TypeParam thrown("the message");
    constexpr unsigned line = __LINE__ + 4;
    std::unique_ptr<nex_Exception> kept;
    for (int round = 0; round < 2; ++round) {
        try {
            if (round == 0) nex_Throw(thrown);
            kept->Propagate();
        } catch (const nex_Exception& caught) {
            EXPECT_EQ(typeid(caught), typeid(TypeParam));
            EXPECT_EQ(caught.DynTypeId(), thrown.DynTypeId());
            EXPECT_STREQ(caught.what(), "the message");
            EXPECT_EQ(caught.Where().line, line);
            EXPECT_NE(std::string(caught.Where().file).find("base_Exceptions_test"), std::string::npos);
            kept.reset(caught.Copy());
        }
        ASSERT_NE(kept, nullptr);
    }
}

TEST(base_CommandException, CarriesItsValueAndJournalsItsMessage) {
    const TextError text("gr\xC5\xB1n");
    EXPECT_EQ(text.Value(), "gr\xC5\xB1n");
    EXPECT_STREQ(text.what(), "gr\xC5\xB1n");
    EXPECT_EQ(text.DynTypeId(), 60u);
    EXPECT_EQ(text.JournalMessage(OrvBasStringMode(0)), atr_String("gr\xC5\xB1n"));
    EXPECT_EQ(text.JournalMessage(OrvBasStringMode(1)), atr_String("gr?n")) << "tests run in the C locale";
    EXPECT_STREQ(MessageError(atr("no %d", 3)).what(), "no 3");
    EXPECT_EQ(NumberError(42).Value(), 42);
    EXPECT_STREQ(NumberError(42).what(), "");
    EXPECT_STREQ(text.PythonType(), "RuntimeError");

    cls_ClassRegistrar registrar;
    nex_CommandException::InitializeMetadata(registrar);
    const nex_CommandException whole(cow_String(std::string("ab\0cd", 5)));
    for (const nex_CommandException& each : {whole, RoundTrip(registrar, whole)})
        EXPECT_EQ(each.JournalMessage(OrvBasStringMode(0)).Text().str(), std::string("ab\0cd", 5));
}

}  // namespace
