#include "os/OS.h"

#include "os/CriticalSection.h"
#include "qor/LightweightString.h"

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

class ProcessClipboard final : public iClipboard {
public:
    void setText(Channel channel, LightweightString<wchar_t> const& text) override {
        CriticalSection::Lock hold(lock_);
        texts_[channel == Selection ? 1 : 0] = text;
    }
    LightweightString<wchar_t> getText(Channel channel) override {
        CriticalSection::Lock hold(lock_);
        return texts_[channel == Selection ? 1 : 0];
    }

private:
    CriticalSection lock_;
    LightweightString<wchar_t> texts_[2];
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
    void setClipboardText(LightweightString<wchar_t> const& text) override {
        clipboard().setText(iClipboard::Clipboard, text);
    }
    LightweightString<wchar_t> getClipboardText() override {
        return clipboard().getText(iClipboard::Clipboard);
    }
    void setSelectionText(LightweightString<wchar_t> const& text) override {
        clipboard().setText(iClipboard::Selection, text);
    }
    LightweightString<wchar_t> getSelectionText() override {
        return clipboard().getText(iClipboard::Selection);
    }
    void setClipboard(iClipboard* clipboard) override {
        clipboard_.store(clipboard != nullptr ? clipboard : &processClipboard_,
                         std::memory_order_release);
    }

private:
    MallocAllocator allocator_;
    AtomicRefCounts refCounts_;
    iClipboard& clipboard() { return *clipboard_.load(std::memory_order_acquire); }

    NoKeysHeld noKeys_;
    std::atomic<iKeyboardState*> keyboard_{&noKeys_};
    ProcessClipboard processClipboard_;
    std::atomic<iClipboard*> clipboard_{&processClipboard_};
};

} // namespace

iOS* OS() {
    // Never destroyed: reference counts are released by static destructors of any library.
    static LinuxOS* const os = new LinuxOS;
    return os;
}
