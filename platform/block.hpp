// Blocks without the compiler's extension: a lambda in a block literal, laid out as the platform's
// block ABI asks (isa, flags, reserved, invoke, descriptor, then captures). The receiver copies
// a block that it keeps, so a literal needs to live only until the message returns.
#pragma once

#include <cstddef>
#include <new>
#include <type_traits>
#include <utility>

#include "platform/block_function.hpp"

extern "C" {
extern void* _NSConcreteStackBlock[32];
void* _Block_copy(const void* block);
void _Block_release(const void* block);
}

namespace platform {

// The part of a literal that every block has.
struct BlockHeader {
    void* VANTORI_SIGNED_CLASS isa;
    int flags;
    int reserved;
    BlockFunction invoke;
    const void* descriptor;
};

// A block that someone else owns, as it travels in messages. Empty: calling it does nothing.
template <class Signature>
class BlockRef;
template <class R, class... A>
class BlockRef<R(A...)> {
  public:
    constexpr BlockRef() = default;
    explicit BlockRef(void* block) : block_(static_cast<BlockHeader*>(block)) {}
    R operator()(A... arguments) const {
        if (!block_) return R();
        return reinterpret_cast<R (*)(void*, A...)>(block_->invoke.get())(block_, arguments...);
    }
    explicit operator bool() const { return block_ != nullptr; }
    void* get() const { return block_; }

  private:
    BlockHeader* block_ = nullptr;
};

// Owns a heap copy of a block.
template <class Signature>
class KeptBlock {
  public:
    KeptBlock() = default;
    explicit KeptBlock(BlockRef<Signature> block)
        : block_(block ? _Block_copy(block.get()) : nullptr) {}
    KeptBlock(const KeptBlock& other) : KeptBlock(other.ref()) {}
    KeptBlock(KeptBlock&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
    KeptBlock& operator=(KeptBlock other) noexcept {
        std::swap(block_, other.block_);
        return *this;
    }
    ~KeptBlock() {
        if (block_) _Block_release(block_);
    }
    BlockRef<Signature> ref() const { return BlockRef<Signature>(block_); }
    template <class... A>
    auto operator()(A... arguments) const {
        return ref()(arguments...);
    }
    explicit operator bool() const { return block_ != nullptr; }

  private:
    void* block_ = nullptr;
};

template <class Signature, class Function>
class Block;
// A block literal on the stack around function. Converts to the reference that messages take.
template <class R, class... A, class Function>
class Block<R(A...), Function> {
  public:
    explicit Block(Function function)
        : header_{_NSConcreteStackBlock,
                  flags,
                  0,
                  {reinterpret_cast<void (*)()>(&invoke)},
                  &descriptor},
          function_(std::move(function)) {}
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;
    operator BlockRef<R(A...)>() { return BlockRef<R(A...)>(&header_); }

  private:
    static constexpr int hasCopyDispose = 1 << 25;
    static constexpr int flags = std::is_trivially_copyable_v<Function> ? 0 : hasCopyDispose;

    struct Descriptor {
        unsigned long reserved;
        unsigned long size;
        void (*VANTORI_SIGNED_FUNCTION copy)(void*, const void*);
        void (*VANTORI_SIGNED_FUNCTION dispose)(const void*);
    };
    static R invoke(Block* block, A... arguments) { return block->function_(arguments...); }
    static void copy(void* to, const void* from) {
        new (&static_cast<Block*>(to)->function_)
            Function(static_cast<const Block*>(from)->function_);
    }
    static void dispose(const void* block) {
        static_cast<const Block*>(block)->function_.~Function();
    }
    static const Descriptor descriptor;

    BlockHeader header_;
    Function function_;
};

template <class R, class... A, class Function>
constexpr typename Block<R(A...), Function>::Descriptor Block<R(A...), Function>::descriptor{
    0, sizeof(Block), &Block::copy, &Block::dispose};

template <class Signature = void(), class Function>
Block<Signature, Function> block(Function function) {
    return Block<Signature, Function>(std::move(function));
}

}  // namespace platform
