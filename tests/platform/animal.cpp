#include "tests/platform/animal.hpp"

namespace platform::tests {

namespace {

long animalDepth(Animal) { return 1; }
long catDepth(Cat self) { return 10 + super<Cat, "depth", long>(self); }
long kittenDepth(Kitten self) { return 100 + super<Kitten, "depth", long>(self); }

CGRect grown(Animal, CGRect frame, double by) {
    return {frame.origin, {frame.size.width + by, frame.size.height + by}};
}
CGAffineTransform doubled(Animal, CGAffineTransform t) {
    return {2 * t.a, 2 * t.b, 2 * t.c, 2 * t.d, 2 * t.tx, 2 * t.ty};
}
CGPoint middle(Animal, CGPoint a, CGPoint b) { return {(a.x + b.x) / 2, (a.y + b.y) / 2}; }
float half(Animal, float value) { return value / 2; }
bool runBlock(Animal, BlockRef<bool(int)> block) { return block(7); }
Animal itself(Animal self) { return self; }
long sum(Animal, bool a, signed char b, short c, int d, long e, unsigned long f) {
    return (a ? 1 : 0) + b + c + d + e + static_cast<long>(f);
}
long species(Class) { return 42; }
long leapOf(Animal) { return 3; }

}  // namespace

void registerAnimals() {
    define<Animal, Object, AnimalState>()
        .method<"depth", &animalDepth>()
        .method<"grown:by:", &grown>()
        .method<"doubled:", &doubled>()
        .method<"middleOf:and:", &middle>()
        .method<"half:", &half>()
        .method<"runBlock:", &runBlock>()
        .method<"itself", &itself>()
        .method<"sum:b:c:d:e:f:", &sum>()
        .method<"leap", &leapOf>()
        .classMethod<"species", &species>()
        .property<"tame", &AnimalState::tame>()
        .property<"weight", &AnimalState::weight>()
        .property<"legs", &AnimalState::legs>()
        .property<"home", &AnimalState::home>()
        .property<"friend", &AnimalState::friend_>()
        .property<"label", &AnimalState::label>()
        .property<"rival", &AnimalState::rival>();
    define<Cat, Animal>().method<"depth", &catDepth>();
    define<Kitten, Cat>().method<"depth", &kittenDepth>();
    define<Dog, Animal>();
}

}  // namespace platform::tests
