// Signed pointers, as arm64e has them: the bits of a pointer above its address hold a signature, made
// by the processor from the address, a secret key and a modifier. The instructions by themselves, for
// the phone on arm64; what they are used for is in the files around.
#pragma once

#include <cstdint>
#include <functional>

namespace simulator::loader {

// How a pointer is signed: a key (0 to 3: IA, IB, DA, DB), a number, and whether the place where it
// lies counts too.
struct Signing {
    std::uint8_t key = 0;
    std::uint16_t number = 0;
    bool byPlace = false;

    std::uint64_t modifier(std::uint64_t place) const {
        constexpr unsigned addressBits = 48;
        constexpr std::uint64_t addressMask = (std::uint64_t{1} << addressBits) - 1;
        if (!byPlace) return number;
        return (place & addressMask) | std::uint64_t{number} << addressBits;
    }
    friend bool operator==(const Signing&, const Signing&) = default;
};

inline constexpr Signing functionSigning{};                 // any function of C
inline constexpr Signing blockFunctionSigning{0, 0, true};  // in blocks and their descriptors
inline constexpr Signing blockClassSigning{2, 0x6ae1, true};

// A pointer with its signature for the place where it will lie.
using Sign =
    std::function<std::uint64_t(std::uint64_t pointer, const Signing&, std::uint64_t place)>;

#if defined(__aarch64__)

inline std::uint64_t stripped(std::uint64_t pointer) {
    asm(".arch_extension pauth\n xpaci %0" : "+r"(pointer));
    return pointer;
}

inline std::uint64_t signedFor(std::uint64_t pointer, const Signing& signing, std::uint64_t place) {
    if (pointer == 0) return 0;
    const std::uint64_t modifier = signing.modifier(place);
    switch (signing.key) {
        case 0:
            asm(".arch_extension pauth\n pacia %0, %1" : "+r"(pointer) : "r"(modifier));
            break;
        case 1:
            asm(".arch_extension pauth\n pacib %0, %1" : "+r"(pointer) : "r"(modifier));
            break;
        case 2:
            asm(".arch_extension pauth\n pacda %0, %1" : "+r"(pointer) : "r"(modifier));
            break;
        default:
            asm(".arch_extension pauth\n pacdb %0, %1" : "+r"(pointer) : "r"(modifier));
            break;
    }
    return pointer;
}

// The plain pointer; zero when it is signed otherwise or not at all.
inline std::uint64_t authenticated(std::uint64_t pointer, const Signing& signing,
                                   std::uint64_t place) {
    const std::uint64_t plain = stripped(pointer);
    return signedFor(plain, signing, place) == pointer ? plain : 0;
}

#endif

}  // namespace simulator::loader
