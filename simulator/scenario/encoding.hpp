// Type encodings of methods and instance variables, read into a tree that libffi understands,
// and values written to and read from memory by them.
//
// The encodings are those of the object runtime: `d` a double, `@` an object, `{CGPoint=dd}` a
// structure, with the qualifiers and stack offsets that compilers add skipped. `@?` is a block.
#pragma once

#include <ffi.h>

#include <memory>
#include <string>
#include <vector>

#include "simulator/scenario/value.hpp"

namespace simulator::scenario {

// One type. `kind` is the encoding's letter, `{` for a structure and `?` for a block.
class Type {
  public:
    // Reads the type at `encoding` and moves it past the type and any offset that follows.
    // Throws EvaluationError for unions, arrays, bit fields and what cannot be read.
    static Type read(const char*& encoding);

    char kind() const { return kind_; }
    ffi_type* forCalls() const;
    std::size_t size() const { return forCalls()->size; }

    // Memory of this type as a value. Throws for what has no value.
    Value load(const void* memory) const;

    // Writes the value as this type, converting as an assignment would; a number for an object
    // is boxed. Throws EvaluationError when the value does not fit.
    void store(const Value& value, void* memory) const;

    // How a reader would call what this type takes: "a number", "an object", …
    std::string wanted() const;

  private:
    // libffi keeps pointers to the description and its elements, so both stay where they are.
    struct Layout {
        ffi_type description{};
        std::vector<ffi_type*> elements;
        std::vector<std::size_t> offsets;
    };

    static Type readStructure(const char*& encoding);
    void layOut();
    void appendMembers(const char* memory, std::vector<double>& members) const;
    const double* storeMembers(const double* next, char* memory) const;
    std::size_t countMembers() const;

    char kind_ = 'v';
    std::vector<Type> members_;
    std::unique_ptr<Layout> layout_;
};

// A method's result and its arguments without the receiver and the selector.
struct Signature {
    Type result;
    std::vector<Type> arguments;
};

Signature readSignature(const char* encoding);

}  // namespace simulator::scenario
