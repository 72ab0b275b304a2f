// How the class and the functions of a block lie in memory. On arm64e they are signed for the very
// place where they lie: the class with key DA and number 0x6ae1, functions with key IA and number 0
// (Apple's <ptrauth.h>), so that who moves a block signs anew. Everywhere else they are plain.
#pragma once

#if defined(__arm64e__)
#define VANTORI_SIGNED_CLASS __ptrauth(2, 1, 0x6ae1)
#define VANTORI_SIGNED_FUNCTION __ptrauth(0, 1, 0)
#else
#define VANTORI_SIGNED_CLASS
#define VANTORI_SIGNED_FUNCTION
#endif

namespace platform {

#if defined(__aarch64__) && !defined(__APPLE__)

// The phone on arm64 Linux: its own pointers are plain, but blocks that it shares with an arm64e
// library are signed as that library's are. Until it has loaded one, nothing is.
struct BlockSigning {
    using Function = void (*)();
    Function (*sign)(Function plain, const void* place) = nullptr;
    Function (*authenticate)(Function held, const void* place) = nullptr;
};
inline BlockSigning blockSigning;

class BlockFunction {
  public:
    BlockFunction(void (*function)())
        : held_(blockSigning.sign ? blockSigning.sign(function, this) : function) {}
    BlockFunction(const BlockFunction&) = delete;
    BlockFunction& operator=(const BlockFunction&) = delete;
    BlockSigning::Function get() const {
        return blockSigning.authenticate ? blockSigning.authenticate(held_, this) : held_;
    }

  private:
    void (*held_)();
};

#else

struct BlockFunction {
    void (*VANTORI_SIGNED_FUNCTION held)();
    auto get() const { return held; }
};

#endif

}  // namespace platform
