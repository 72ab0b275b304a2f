// What every file of the mutated library includes first: the question whether a small change, known by its
// number, is switched on in this process. All changes are compiled in at once and at most one is on, by the
// variable MUTANT. What was asked is noted: a test that never asks cannot see the change.
#pragma once

#include <type_traits>
#include <utility>

namespace mutation {

extern int active;  // none: -1
extern unsigned char asked[];

inline bool on(int mutant) {
    asked[mutant] = 1;
    return mutant == active;
}

// Each operand is written once and computed once; what a change makes of them is chosen afterwards.
#define MUTATION_COMPARISON(name, usual, edge, opposite)                \
    template <class L, class R>                                         \
    bool name(int atEdge, int negated, const L& left, const R& right) { \
        if (on(atEdge)) return left edge right;                         \
        if (on(negated)) return left opposite right;                    \
        return left usual right;                                        \
    }
MUTATION_COMPARISON(less, <, <=, >=)
MUTATION_COMPARISON(lessOrEqual, <=, <, >)
MUTATION_COMPARISON(greater, >, >=, <=)
MUTATION_COMPARISON(greaterOrEqual, >=, >, <)
#undef MUTATION_COMPARISON

template <class L, class R>
bool equal(int negated, const L& left, const R& right) {
    return on(negated) ? !(left == right) : left == right;
}
template <class L, class R>
bool unequal(int negated, const L& left, const R& right) {
    return on(negated) ? left == right : !(left == right);
}

#define MUTATION_ARITHMETIC(name, usual, changed)                  \
    template <class L, class R>                                    \
    auto name(int mutant, const L& left, const R& right)           \
        -> std::remove_cvref_t<decltype(left usual right)> {       \
        return on(mutant) ? left changed right : left usual right; \
    }
MUTATION_ARITHMETIC(plus, +, -)
MUTATION_ARITHMETIC(minus, -, +)
MUTATION_ARITHMETIC(times, *, /)
MUTATION_ARITHMETIC(divided, /, *)
#undef MUTATION_ARITHMETIC

template <class L, class R>
auto remainder(int mutant, const L& left, const R& right) {
    return on(mutant) ? left / right : left % right;
}
template <class L, class R>
void add(int mutant, L& left, const R& right) {
    on(mutant) ? left -= right : left += right;
}
template <class L, class R>
void subtract(int mutant, L& left, const R& right) {
    on(mutant) ? left += right : left -= right;
}
template <class T>
auto negative(int mutant, const T& value) -> std::remove_cvref_t<decltype(-value)> {
    return on(mutant) ? value : -value;
}
template <class T>
T lower(int mutant, const T& a, const T& b) {
    return on(mutant) == (b < a) ? a : b;
}
template <class T>
T higher(int mutant, const T& a, const T& b) {
    return on(mutant) == (a < b) ? a : b;
}

}  // namespace mutation
