#include "os/OS.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

class MallocAllocator final : public iAllocator {
public:
    void* allocate(std::size_t size) override {
        void* block = std::malloc(size == 0 ? 1 : size);
        if (block == nullptr)
            throw std::bad_alloc();
        return block;
    }
    void free(void* block) override { std::free(block); }
};

class AtomicRefCounts final : public iRefCountTable {
public:
    void addRef(void* key) override {
        std::atomic_ref<unsigned>(*static_cast<unsigned*>(key))
            .fetch_add(1, std::memory_order_relaxed);
    }
    unsigned release(void* key) override {
        return std::atomic_ref<unsigned>(*static_cast<unsigned*>(key))
                   .fetch_sub(1, std::memory_order_acq_rel) -
               1;
    }
    unsigned count(void const* key) const override {
        return std::atomic_ref<unsigned>(*const_cast<unsigned*>(static_cast<unsigned const*>(key)))
            .load(std::memory_order_acquire);
    }
};

class NoKeysHeld final : public iKeyboardState {
public:
    bool isKeyDown(unsigned) const override { return false; }
};

class LinuxOS final : public iOS {
public:
    iAllocator& allocator() override { return allocator_; }
    iRefCountTable& refCounts() override { return refCounts_; }
    bool isKeyDown(unsigned modifierMask) const override {
        return keyboard_.load(std::memory_order_acquire)->isKeyDown(modifierMask);
    }
    void setKeyboardState(iKeyboardState* state) override {
        keyboard_.store(state != nullptr ? state : &noKeys_, std::memory_order_release);
    }

private:
    MallocAllocator allocator_;
    AtomicRefCounts refCounts_;
    NoKeysHeld noKeys_;
    std::atomic<iKeyboardState*> keyboard_{&noKeys_};
};

} // namespace

iOS* OS() {
    // Never destroyed: reference counts are released by static destructors of any library.
    static LinuxOS* const os = new LinuxOS;
    return os;
}
