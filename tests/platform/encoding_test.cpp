// Type encodings are derived from C++ signatures; each expected string is the one that the
// platform's compiler writes for arm64, without frame offsets.
#include "platform/encoding.hpp"

#include <gtest/gtest.h>

#include <string>

#include "platform/definition.hpp"
#include "platform/uikit.hpp"

namespace platform {
namespace {

struct EncodingCase {
    std::string derived;
    std::string expected;
};

class TypeEncoding : public testing::TestWithParam<EncodingCase> {};

TEST_P(TypeEncoding, IsThePlatforms) { EXPECT_EQ(GetParam().derived, GetParam().expected); }

template <class T>
EncodingCase type(const char* expected) {
    return {TypeCode<T>::value.data(), expected};
}

INSTANTIATE_TEST_SUITE_P(
    Types, TypeEncoding,
    testing::Values(type<void>("v"), type<bool>("B"), type<char>("c"), type<signed char>("c"),
                    type<unsigned char>("C"), type<short>("s"), type<unsigned short>("S"),
                    type<int>("i"), type<unsigned int>("I"), type<long>("q"),
                    type<unsigned long>("Q"), type<long long>("q"), type<unsigned long long>("Q"),
                    type<float>("f"), type<double>("d"), type<id>("@"), type<Class>("#"),
                    type<SEL>(":"), type<const char*>("*"), type<void*>("^v"), type<float*>("^f"),
                    type<CGColorRef>("^{CGColor=}"), type<CGPoint>("{CGPoint=dd}"),
                    type<CGSize>("{CGSize=dd}"), type<CGRect>("{CGRect={CGPoint=dd}{CGSize=dd}}"),
                    type<CGAffineTransform>("{CGAffineTransform=dddddd}"), type<UIView>("@"),
                    type<Object>("@"), type<BlockRef<void(bool)>>("@?"), type<Object*>("^@")));

TEST(MethodEncoding, PutsSelfAndTheSelectorBetweenResultAndArguments) {
    EXPECT_STREQ((MethodEncoding<void>::value.data()), "v@:");
    EXPECT_STREQ((MethodEncoding<void, long, bool>::value.data()), "v@:qB");
    EXPECT_STREQ((MethodEncoding<void, UIView, double, double>::value.data()), "v@:@dd");
    EXPECT_STREQ((MethodEncoding<bool, CGPoint, CGPoint, CGRect>::value.data()),
                 "B@:{CGPoint=dd}{CGPoint=dd}{CGRect={CGPoint=dd}{CGSize=dd}}");
    EXPECT_STREQ((MethodEncoding<void, double, double, double, double, unsigned long,
                                 BlockRef<void()>, BlockRef<void(bool)>>::value.data()),
                 "v@:ddddQ@?@?");
}

TEST(MethodEncoding, LooksThroughReferences) {
    EXPECT_STREQ((MethodEncoding<void, const CGRect&>::value.data()),
                 "v@:{CGRect={CGPoint=dd}{CGSize=dd}}");
}

TEST(FixedString, MakesTheNameOfASetter) {
    EXPECT_EQ((setterName<"isEnabled">().view()), "setIsEnabled:");
    EXPECT_EQ((setterName<"updateVC">().view()), "setUpdateVC:");
    EXPECT_EQ((setterName<"_hidden">().view()), "set_hidden:");
}

}  // namespace
}  // namespace platform
