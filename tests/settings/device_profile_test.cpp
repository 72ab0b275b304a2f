// Machine identifiers and their marketing names; the corner radius that follows from the name.
#include "settings/device_profile.hpp"

#include "tests/library_phone.hpp"
#include "tests/platform/animal.hpp"

namespace vantori::tests {
namespace {

struct NameCase {
    const char* machine;
    const char* name;
};

class MarketingName : public testing::TestWithParam<NameCase> {};

TEST_P(MarketingName, FollowsFromTheTable) {
    EXPECT_EQ(modelName(GetParam().machine), GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(
    Table, MarketingName,
    testing::Values(NameCase{"iPhone3,1", "iPhone 4"}, NameCase{"iPhone3,2", "iPhone 4"},
                    NameCase{"iPhone3,3", "iPhone 4"}, NameCase{"iPhone4,1", "iPhone 4S"},
                    NameCase{"iPhone5,1", "iPhone 5"}, NameCase{"iPhone5,2", "iPhone 5"},
                    NameCase{"iPhone5,3", "iPhone 5c"}, NameCase{"iPhone5,4", "iPhone 5c"},
                    NameCase{"iPhone6,1", "iPhone 5s"}, NameCase{"iPhone6,2", "iPhone 5s"},
                    NameCase{"iPhone7,1", "iPhone 6 Plus"}, NameCase{"iPhone7,2", "iPhone 6"},
                    NameCase{"iPhone8,1", "iPhone 6s"}, NameCase{"iPhone8,2", "iPhone 6s Plus"},
                    NameCase{"iPhone8,4", "iPhone SE"}, NameCase{"iPhone9,1", "iPhone 7"},
                    NameCase{"iPhone9,2", "iPhone 7 Plus"}, NameCase{"iPhone9,3", "iPhone 7"},
                    NameCase{"iPhone9,4", "iPhone 7 Plus"}, NameCase{"iPhone10,1", "iPhone 8"},
                    NameCase{"iPhone10,4", "iPhone 8"}, NameCase{"iPhone10,2", "iPhone 8 Plus"},
                    NameCase{"iPhone10,5", "iPhone 8 Plus"}, NameCase{"iPhone10,3", "iPhone X"},
                    NameCase{"iPhone10,6", "iPhone X"}, NameCase{"iPhone11,2", "iPhone XS"},
                    NameCase{"iPhone11,4", "iPhone XS Max"},
                    NameCase{"iPhone11,6", "iPhone XS Max"}, NameCase{"iPhone11,8", "iPhone XR"},
                    NameCase{"iPod1,1", "iPod Touch 1G"}, NameCase{"iPod2,1", "iPod Touch 2G"},
                    NameCase{"iPod3,1", "iPod Touch 3G"}, NameCase{"iPod4,1", "iPod Touch 4G"},
                    NameCase{"iPod5,1", "iPod Touch (5 Gen)"}, NameCase{"i386", "Simulator"},
                    NameCase{"x86_64", "Simulator"}, NameCase{"iPhone12,1", "iPhone12,1"},
                    NameCase{"iPhone10,30", "iPhone10,30"}, NameCase{"", ""}));

struct RadiusCase {
    const char* machine;
    double radius;
};

class CornerRadius : public LibraryPhone, public testing::WithParamInterface<RadiusCase> {};

// Later rounded displays keep their raw identifier and the small radius.
TEST_P(CornerRadius, FollowsFromTheName) {
    phone_->device(GetParam().machine);
    boot();
    EXPECT_EQ(CORNER_RADIUS, GetParam().radius);
}

INSTANTIATE_TEST_SUITE_P(Models, CornerRadius,
                         testing::Values(RadiusCase{"iPhone10,6", 30}, RadiusCase{"iPhone10,3", 30},
                                         RadiusCase{"iPhone11,2", 30}, RadiusCase{"iPhone11,6", 30},
                                         RadiusCase{"iPhone11,8", 30}, RadiusCase{"iPhone12,1", 10},
                                         RadiusCase{"iPhone12,3", 10}, RadiusCase{"iPhone12,5", 10},
                                         RadiusCase{"iPhone8,1", 10}));

TEST(OwnVariables, CountButInheritedOnesDoNot) {
    AutoreleasePool pool;
    platform::tests::registerAnimals();
    auto animal = create<platform::tests::Animal>();
    EXPECT_TRUE(isKeyExisted("_stateVNTTestAnimal"_ns, animal));
    EXPECT_FALSE(isKeyExisted("_stateVNTTestAnima"_ns, animal));
    EXPECT_FALSE(isKeyExisted("_stateVNTTestAnimal"_ns, create<platform::tests::Cat>()));
    EXPECT_FALSE(isKeyExisted("_stateVNTTestAnimal"_ns, Object()));
    EXPECT_FALSE(isKeyExisted(NSString(), animal));

    Class two = objc_allocateClassPair(objc_getClass("NSObject"), "VNTTestTwoVariables", 0);
    for (const char* variable : {"first", "second"}) class_addIvar(two, variable, 8, 3, "@");
    objc_registerClassPair(two);
    Object object(adopted(Object(classObject(two)).send<"new", Object>()).autoreleased());
    EXPECT_TRUE(isKeyExisted("first"_ns, object));
    EXPECT_TRUE(isKeyExisted("second"_ns, object));
}

}  // namespace
}  // namespace vantori::tests
