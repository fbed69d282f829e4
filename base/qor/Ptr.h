#pragma once

// The shared pointer of the system. A Ptr is two words, the key of a reference count and the
// object; both are null when empty. Counting never touches the word directly: it goes through the
// reference-count service of OS(), which makes copies safe from any thread. Where the count lives
// is the RefCountTraits' business (inside an iObject, or a separate word), how the object dies the
// DtorTraits'.

#include "os/OS.h"

#include <cstddef>
#include <functional>
#include <new>
#include <type_traits>
#include <utility>

// The root of every polymorphic interface: a virtual destructor and nothing else.
class iVirtual {
public:
    virtual ~iVirtual() = default;
};

namespace Qor {

// The reference count embedded in an object. A copy of an object is a new object with no owners,
// so copying never copies the count.
class InternalRefCount {
public:
    InternalRefCount() noexcept = default;
    InternalRefCount(InternalRefCount const&) noexcept {}
    InternalRefCount& operator=(InternalRefCount const&) noexcept { return *this; }

    void* refCountKey() const noexcept { return &count_; }
    unsigned getRefCount() const { return OS()->refCounts().count(&count_); }

protected:
    ~InternalRefCount() = default;

private:
    mutable unsigned count_ = 0;
};

struct DefaultDtorTraits {
    template <class T>
    static void destroy(T* object) {
        delete object;
    }
};

// The count lives in the object's InternalRefCount base and dies with it.
struct InternalRefCountTraits {
    template <class T>
    static void* adopt(T* object) {
        return static_cast<InternalRefCount const*>(object)->refCountKey();
    }
    static void dispose(void*) {}
};

// The count is a separate 4-byte word, freed together with the object; for any type.
struct ExternalRefCountTraits {
    template <class T>
    static void* adopt(T*) {
        return new (OS()->allocator().allocate(sizeof(unsigned))) unsigned(0);
    }
    static void dispose(void* key) { OS()->allocator().free(key); }
};

template <class T, class DtorTraits = DefaultDtorTraits,
          class RefCountTraits = InternalRefCountTraits>
class Ptr {
public:
    using element_type = T;

    // Tags the constructor that shares an existing count (casts).
    struct SharedCount {};

    Ptr() noexcept = default;
    Ptr(std::nullptr_t) noexcept {}
    explicit Ptr(T* object)
        : key_(object ? RefCountTraits::adopt(object) : nullptr), object_(object) {
        addRef();
    }
    Ptr(SharedCount, void* key, T* object) noexcept
        : key_(object ? key : nullptr), object_(object) {
        addRef();
    }
    Ptr(Ptr const& other) noexcept : key_(other.key_), object_(other.object_) { addRef(); }
    Ptr(Ptr&& other) noexcept
        : key_(std::exchange(other.key_, nullptr)), object_(std::exchange(other.object_, nullptr)) {
    }

    template <class U>
    requires std::is_convertible_v<U*, T*> Ptr(Ptr<U, DtorTraits, RefCountTraits> const& other)
    noexcept : key_(other.key()), object_(other.get()) { addRef(); }

    ~Ptr() { drop(); }

    Ptr& operator=(Ptr const& other) noexcept {
        Ptr(other).swap(*this);
        return *this;
    }
    Ptr& operator=(Ptr&& other) noexcept {
        Ptr(std::move(other)).swap(*this);
        return *this;
    }
    Ptr& operator=(std::nullptr_t) noexcept {
        reset();
        return *this;
    }

    void reset() noexcept { Ptr().swap(*this); }
    void reset(T* object) { Ptr(object).swap(*this); }
    void swap(Ptr& other) noexcept {
        std::swap(key_, other.key_);
        std::swap(object_, other.object_);
    }

    T* get() const noexcept { return object_; }
    T* operator->() const noexcept { return object_; }
    T& operator*() const noexcept { return *object_; }
    explicit operator bool() const noexcept { return object_ != nullptr; }
    void* key() const noexcept { return key_; }
    unsigned useCount() const { return key_ ? OS()->refCounts().count(key_) : 0; }

    template <class U, class D, class R>
    bool operator==(Ptr<U, D, R> const& other) const noexcept {
        return object_ == other.get();
    }
    bool operator==(std::nullptr_t) const noexcept { return object_ == nullptr; }
    template <class U, class D, class R>
    bool operator<(Ptr<U, D, R> const& other) const noexcept {
        return std::less<void const*>()(object_, other.get());
    }

private:
    void addRef() noexcept {
        if (key_)
            OS()->refCounts().addRef(key_);
    }
    // Clears both words before destroying, so a destructor that reaches this pointer sees it empty.
    void drop() noexcept {
        void* key = std::exchange(key_, nullptr);
        T* object = std::exchange(object_, nullptr);
        if (key && OS()->refCounts().release(key) == 0) {
            DtorTraits::destroy(object);
            RefCountTraits::dispose(key);
        }
    }

    void* key_ = nullptr;
    T* object_ = nullptr;
};

// A checked down-cast that keeps the count: empty when the object is not a U.
template <class U, class T, class D, class R>
Ptr<U, D, R> dynamic_ptr_cast(Ptr<T, D, R> const& from) {
    U* object = dynamic_cast<U*>(from.get());
    return Ptr<U, D, R>(typename Ptr<U, D, R>::SharedCount{}, from.key(), object);
}

template <class U, class T, class D, class R>
Ptr<U, D, R> static_ptr_cast(Ptr<T, D, R> const& from) {
    return Ptr<U, D, R>(typename Ptr<U, D, R>::SharedCount{}, from.key(),
                        static_cast<U*>(from.get()));
}

// Makes a counted object in one go.
template <class T, class... Args>
Ptr<T> makePtr(Args&&... args) {
    return Ptr<T>(new T(std::forward<Args>(args)...));
}

} // namespace Qor

// Every payload, callback, adaptor and event datum derives from iObject.
class iObject : public virtual Qor::InternalRefCount, public virtual iVirtual {};
