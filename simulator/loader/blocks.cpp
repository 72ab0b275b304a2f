// On arm64 this file is the process's runtime of blocks too, in place of the system library's: that one
// copies signed pointers as they are, and so to where they are not valid.
#include "simulator/loader/blocks.hpp"

#if defined(__aarch64__)

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "platform/block.hpp"
#include "simulator/loader/signed_image.hpp"
#include "simulator/loader/signing.hpp"
#include "simulator/runtime/exports.hpp"
#include "simulator/uikit/raise.hpp"

extern "C" void* _NSConcreteMallocBlock[32];

namespace simulator::loader {

namespace {

constexpr int countMask = 0xffff;
constexpr int isOnTheHeap = 1 << 24;
constexpr int hasHelpers = 1 << 25;
constexpr int isGlobal = 1 << 28;

// As in the ABI of blocks; each pointer perhaps signed, so numbers.
struct Descriptor {
    unsigned long reserved;
    unsigned long size;
    std::uint64_t copy;
    std::uint64_t dispose;
};
struct Literal {
    std::uint64_t isa;
    int flags;
    int reserved;
    std::uint64_t invoke;
    const Descriptor* descriptor;

    // A library's blocks are known by their descriptors, which never move.
    bool isOfSignedImage() const { return isInSignedImage(descriptor); }
};

std::uint64_t addressOf(const void* place) { return reinterpret_cast<std::uintptr_t>(place); }

// The plain pointer. One of the phone's own may be plain already, one of the library's may not.
std::uint64_t plain(const std::uint64_t& place, bool mustBeSigned, const Signing& signing,
                    const char* what) {
    if (!mustBeSigned && stripped(place) == place) return place;
    const std::uint64_t found = authenticated(place, signing, addressOf(&place));
    if (found == 0)
        raise("NSInternalInconsistencyException"_ns,
              std::string(what) +
                  " of a block is not signed for its place: a phone of arm64e stops "
                  "there");
    return found;
}

std::uint64_t function(const std::uint64_t& place, bool mustBeSigned, const char* what) {
    return plain(place, mustBeSigned, blockFunctionSigning, what);
}

using Function = platform::BlockSigning::Function;

Function authenticateInvoke(Function, const void* place) {
    const auto* block = reinterpret_cast<const Literal*>(static_cast<const std::byte*>(place) -
                                                         offsetof(Literal, invoke));
    return reinterpret_cast<Function>(
        function(block->invoke, block->isOfSignedImage(), "the function"));
}

Function signInvoke(Function function, const void* place) {
    return reinterpret_cast<Function>(signedFor(reinterpret_cast<std::uintptr_t>(function),
                                                blockFunctionSigning, addressOf(place)));
}

Literal* copied(const Literal* block) {
    const bool theirs = block->isOfSignedImage();
    plain(block->isa, theirs, blockClassSigning, "the class");
    const std::uint64_t invoke = function(block->invoke, theirs, "the function");
    auto* made = static_cast<Literal*>(std::malloc(block->descriptor->size));
    std::memcpy(static_cast<void*>(made), block, block->descriptor->size);
    made->isa = addressOf(_NSConcreteMallocBlock);
    made->flags = (block->flags & ~countMask) | isOnTheHeap | 1;
    made->invoke = hasSignedImage()
                       ? signedFor(invoke, blockFunctionSigning, addressOf(&made->invoke))
                       : invoke;
    if (block->flags & hasHelpers) {
        const std::uint64_t copy = function(block->descriptor->copy, theirs, "the copying");
        reinterpret_cast<void (*)(void*, const void*)>(copy)(made, block);
    }
    return made;
}

}  // namespace

void signBlocks() { platform::blockSigning = {signInvoke, authenticateInvoke}; }

}  // namespace simulator::loader

VANTORI_EXPORT void* _Block_copy(const void* argument) {
    using namespace simulator::loader;
    auto* block = static_cast<Literal*>(const_cast<void*>(argument));
    if (!block || (block->flags & isGlobal)) return block;
    if (!(block->flags & isOnTheHeap)) return copied(block);
    ++block->flags;
    return block;
}

VANTORI_EXPORT void _Block_release(const void* argument) {
    using namespace simulator::loader;
    auto* block = static_cast<Literal*>(const_cast<void*>(argument));
    if (!block || !(block->flags & isOnTheHeap) || (--block->flags & countMask) != 0) return;
    if (block->flags & hasHelpers) {
        const std::uint64_t dispose =
            function(block->descriptor->dispose, block->isOfSignedImage(), "the disposal");
        reinterpret_cast<void (*)(const void*)>(dispose)(block);
    }
    std::free(block);
}

#else

namespace simulator::loader {

void signBlocks() {}

}  // namespace simulator::loader

#endif
