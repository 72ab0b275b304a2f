// Three classes below one another, for the tests of the object layer.
#pragma once

#include <vector>

#include "platform/definition.hpp"
#include "platform/foundation.hpp"

namespace platform::tests {

// Counts how many are alive: a state with a constructor-free zero form and a destructor.
struct Witness {
    int* alive;
    ~Witness() {
        if (alive) --*alive;
    }
    void attach(int* counter) {
        alive = counter;
        ++*counter;
    }
};

struct AnimalState {
    bool tame;
    double weight;
    long legs;
    CGRect home;
    Strong<Object> friend_;
    Copied<NSString> label;
    Object rival;  // not owned
    Witness witness;
    std::vector<int> notes;
};

struct Animal : Object {
    static constexpr FixedString name{"VNTTestAnimal"};
    using Object::Object;
};
struct Cat : Animal {
    static constexpr FixedString name{"VNTTestCat"};
    using Animal::Animal;
};
struct Kitten : Cat {
    static constexpr FixedString name{"VNTTestKitten"};
    using Cat::Cat;
};
struct Dog : Animal {
    static constexpr FixedString name{"VNTTestDog"};
    using Animal::Animal;
};

// Registers them; only the first call in a process has an effect.
void registerAnimals();

}  // namespace platform::tests
