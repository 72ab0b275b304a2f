// Messages, definitions, properties and super sends, on classes of the tests' own.
#include "platform/object.hpp"

#include <gtest/gtest.h>

#include "tests/platform/animal.hpp"

namespace platform::tests {
namespace {

class ObjectLayer : public testing::Test {
  protected:
    ObjectLayer() { registerAnimals(); }
    AutoreleasePool pool_;
    Strong<Animal> animal_ = (registerAnimals(), create<Animal>());
};

unsigned long retainCount(Object object) { return object.send<"retainCount", unsigned long>(); }

TEST_F(ObjectLayer, PassesAndReturnsStructures) {
    EXPECT_EQ((animal_.send<"grown:by:", CGRect>(rect(1, 2, 3, 4), 10.0)), rect(1, 2, 13, 14));
    EXPECT_EQ((animal_.send<"doubled:", CGAffineTransform>(CGAffineTransform{1, 2, 3, 4, 5, 6})),
              (CGAffineTransform{2, 4, 6, 8, 10, 12}));
    EXPECT_EQ((animal_.send<"middleOf:and:", CGPoint>(CGPoint{0, 2}, CGPoint{4, 4})),
              (CGPoint{2, 3}));
}

TEST_F(ObjectLayer, PassesEveryKindOfNumber) {
    EXPECT_EQ((animal_.send<"half:", float>(5.0f)), 2.5f);
    EXPECT_EQ((animal_.send<"sum:b:c:d:e:f:", long>(true, static_cast<signed char>(-2),
                                                    static_cast<short>(300), 40000, -5L, 6UL)),
              1 - 2 + 300 + 40000 - 5 + 6);
    EXPECT_EQ((animal_.send<"itself", Animal>()), animal_);
}

TEST_F(ObjectLayer, MessagesToEmptyHandlesYieldZeroOfEveryKind) {
    Animal none;
    EXPECT_FALSE(none);
    none.send<"setLegs:">(4L);
    EXPECT_EQ((none.send<"depth", long>()), 0);
    EXPECT_EQ((none.send<"weight", double>()), 0.0);
    EXPECT_EQ((none.send<"half:", float>(5.0f)), 0.0f);
    EXPECT_FALSE((none.send<"tame", bool>()));
    EXPECT_FALSE((none.send<"itself", Animal>()));
    EXPECT_EQ((none.send<"home", CGRect>()), rect(0, 0, 0, 0));
    EXPECT_EQ((none.send<"middleOf:and:", CGPoint>(CGPoint{0, 2}, CGPoint{4, 4})), (CGPoint{0, 0}));
    EXPECT_EQ((none.send<"doubled:", CGAffineTransform>(identityTransform)),
              (CGAffineTransform{0, 0, 0, 0, 0, 0}));
    EXPECT_FALSE(none.isKindOfClass(classOf<Animal>()));
    EXPECT_FALSE(none.respondsTo(selector<"depth">()));
}

TEST_F(ObjectLayer, MessagesThatMayBeUnknownAreSentOnlyToThoseWhoAnswer) {
    EXPECT_EQ((animal_.sendIfAnswered<"half:", float>(5.0f)), 2.5f);
    EXPECT_EQ((animal_.sendIfAnswered<"itself", Animal>()), animal_);
    EXPECT_EQ((animal_.sendIfAnswered<"fly:", double>(5.0)), 0.0);
    EXPECT_FALSE((animal_.sendIfAnswered<"nest", Animal>()));
    animal_.sendIfAnswered<"land">();
    EXPECT_EQ((animal_.sendIfAnswered<"territory", CGRect>()), rect(0, 0, 0, 0));
    EXPECT_EQ((Animal().sendIfAnswered<"depth", long>()), 0);
    const Object cls(classObject(classOf<Animal>()));
    EXPECT_EQ((cls.sendIfAnswered<"species", long>()), 42);
    EXPECT_EQ((cls.sendIfAnswered<"depth", long>()), 0);
}

TEST_F(ObjectLayer, AMissingClassYieldsNothing) {
    EXPECT_EQ(objc_getClass("VNTTestAbsent"), nullptr);
    Object cls(classObject(objc_getClass("VNTTestAbsent")));
    EXPECT_FALSE((cls.send<"alloc", Object>()));
    EXPECT_FALSE((Object().isKindOfClass(nullptr)));
    EXPECT_FALSE((animal_.isKindOfClass(nullptr)));
}

TEST_F(ObjectLayer, SuperGoesToTheSuperclassOfTheDefinition) {
    EXPECT_EQ((animal_.send<"depth", long>()), 1);
    EXPECT_EQ((create<Cat>().send<"depth", long>()), 11);
    // From the kitten's class on both super sends climb one level each, never in circles.
    EXPECT_EQ((create<Kitten>().send<"depth", long>()), 111);
    EXPECT_EQ((create<Dog>().send<"depth", long>()), 1);
}

TEST_F(ObjectLayer, ClassMethodsAreInherited) {
    EXPECT_EQ((sendClass<Animal, "species", long>()), 42);
    EXPECT_EQ((sendClass<Kitten, "species", long>()), 42);
}

TEST_F(ObjectLayer, StateStartsAsZeroes) {
    auto& state = stateOf<AnimalState>(animal_);
    EXPECT_FALSE(state.tame);
    EXPECT_EQ(state.weight, 0);
    EXPECT_EQ(state.legs, 0);
    EXPECT_FALSE(state.friend_);
    EXPECT_TRUE(state.notes.empty());
}

TEST_F(ObjectLayer, StateIsDestroyedWithTheObject) {
    int alive = 0;
    {
        auto cat = create<Kitten>();
        auto& state = stateOf<AnimalState>(cat);
        state.witness.attach(&alive);
        state.notes.assign(1000, 7);
        EXPECT_EQ(alive, 1);
    }
    EXPECT_EQ(alive, 0);
}

TEST_F(ObjectLayer, PlainPropertiesBySelector) {
    animal_.send<"setTame:">(true);
    animal_.send<"setWeight:">(4.5);
    animal_.send<"setLegs:">(-3L);
    animal_.send<"setHome:">(rect(1, 2, 3, 4));
    EXPECT_TRUE((animal_.send<"tame", bool>()));
    EXPECT_EQ((animal_.send<"weight", double>()), 4.5);
    EXPECT_EQ((animal_.send<"legs", long>()), -3);
    EXPECT_EQ((animal_.send<"home", CGRect>()), rect(1, 2, 3, 4));
}

TEST_F(ObjectLayer, PropertiesByKey) {
    animal_.send<"setValue:forKey:">(NSNumber::fromInt(4), "legs"_ns);
    EXPECT_EQ((animal_.send<"legs", long>()), 4);
    Object weight = animal_.send<"valueForKey:", Object>("weight"_ns);
    EXPECT_EQ((weight.send<"doubleValue", double>()), 0.0);
    animal_.send<"setValue:forKey:">("Tom"_ns, "label"_ns);
    EXPECT_STREQ((animal_.send<"valueForKey:", NSString>("label"_ns).utf8()), "Tom");
}

TEST_F(ObjectLayer, StrongPropertiesRetainAndRelease) {
    auto other = create<Animal>();
    const unsigned long before = retainCount(other);
    animal_.send<"setFriend:">(other);
    EXPECT_EQ(retainCount(other), before + 1);
    animal_.send<"setFriend:">(other);  // itself again
    EXPECT_EQ(retainCount(other), before + 1);
    animal_.send<"setFriend:">(Object());
    EXPECT_EQ(retainCount(other), before);
}

TEST_F(ObjectLayer, PlainHandlePropertiesDoNotOwn) {
    auto other = create<Animal>();
    const unsigned long before = retainCount(other);
    animal_.send<"setRival:">(other);
    EXPECT_EQ(retainCount(other), before);
    EXPECT_EQ((animal_.send<"rival", Object>()), other);
}

TEST_F(ObjectLayer, CopyPropertiesKeepACopy) {
    Object text = Object(classObject(objc_getClass("NSMutableString")))
                      .send<"stringWithString:", Object>("one"_ns);
    animal_.send<"setLabel:">(text);
    text.send<"appendString:">(" two"_ns);
    EXPECT_STREQ((animal_.send<"label", NSString>().utf8()), "one");
}

TEST_F(ObjectLayer, OwnedStateIsReleasedWithTheObject) {
    auto other = create<Animal>();
    const unsigned long before = retainCount(other);
    {
        auto owner = create<Cat>();
        owner.send<"setFriend:">(other);
    }
    EXPECT_EQ(retainCount(other), before);
}

TEST_F(ObjectLayer, DefiningTwiceChangesNothing) {
    Class cls = classOf<Animal>();
    registerAnimals();
    EXPECT_EQ(objc_getClass("VNTTestAnimal"), cls);
    EXPECT_EQ((animal_.send<"depth", long>()), 1);
}

struct Impostor : Object {
    static constexpr FixedString name{"VNTTestImpostor"};
    using Object::Object;
};

// Its state would lie elsewhere, and every animal's with it.
TEST_F(ObjectLayer, AStateServesOneClassOnly) {
    animal_.send<"setLegs:">(4L);
    define<Impostor, Cat, AnimalState>();
    EXPECT_EQ(objc_getClass("VNTTestImpostor"), nullptr);
    EXPECT_EQ((animal_.send<"legs", long>()), 4);
}

TEST_F(ObjectLayer, StrongCopiesMovesAndSwapsKeepTheCount) {
    const unsigned long before = retainCount(animal_);
    {
        Strong<Animal> copy = animal_;
        EXPECT_EQ(retainCount(animal_), before + 1);
        Strong<Animal> moved = std::move(copy);
        EXPECT_EQ(retainCount(animal_), before + 1);
        EXPECT_FALSE(copy);
        moved = moved;
        EXPECT_EQ(retainCount(animal_), before + 1);
        Strong<Object> upcast = std::move(moved);
        EXPECT_EQ(retainCount(animal_), before + 1);
    }
    EXPECT_EQ(retainCount(animal_), before);
}

TEST_F(ObjectLayer, AutoreleasedGoesWithThePool) {
    int alive = 0;
    {
        AutoreleasePool inner;
        auto animal = create<Animal>();
        stateOf<AnimalState>(animal).witness.attach(&alive);
        Animal handle = animal.autoreleased();
        EXPECT_FALSE(animal);
        EXPECT_EQ(alive, 1);
        EXPECT_EQ((handle.send<"depth", long>()), 1);
    }
    EXPECT_EQ(alive, 0);
}

TEST_F(ObjectLayer, StringConstantsAreMadeOnce) {
    EXPECT_EQ("constant"_ns, "constant"_ns);
    EXPECT_STREQ("constant"_ns.utf8(), "constant");
}

TEST_F(ObjectLayer, AnUnknownMessageRaises) {
    bool raised = false;
    try {
        animal_.send<"noSuchMessage">();
    } catch (...) {
        raised = true;
    }
    EXPECT_TRUE(raised);
}

}  // namespace
}  // namespace platform::tests
