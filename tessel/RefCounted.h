// Intrusive reference counting: the interface every shared resource offers, and the base that
// implements it with a plain counter.
#pragma once

namespace Tessel {

/// Something whose lifetime is shared by reference counting.
class IResource {
public:
    virtual ~IResource() = default;
    /// Adds one reference.
    virtual void ref() const = 0;
    /// Drops one reference; the object destroys itself when the last one goes.
    virtual void unref() const = 0;
};

/// Implements the counting of Base (an IResource or a class built on it). A new object starts
/// with no reference: whoever keeps it takes the first one. The counter is not atomic, since an
/// object belongs to one thread at a time.
template <class Base> class RefCounted : public Base {
public:
    void ref() const override { ++refCount_; }
    void unref() const override {
        if (--refCount_ <= 0) delete this;
    }
    /// The current number of references, for diagnostics and tests.
    long refCount() const { return refCount_; }

protected:
    RefCounted() = default;
    // A copy is a new object: it starts without references of its own.
    RefCounted(const RefCounted& other) : Base(other) {}
    RefCounted& operator=(const RefCounted&) { return *this; }

private:
    mutable long refCount_ = 0;
};

/// Holds one reference to an intrusively counted object for as long as it lives.
template <class T> class Ref {
public:
    Ref() noexcept = default;
    Ref(T* object) noexcept : object_(object) {
        if (object_) object_->ref();
    }
    Ref(const Ref& other) noexcept : Ref(other.object_) {}
    Ref(Ref&& other) noexcept : object_(other.object_) { other.object_ = nullptr; }
    template <class U> Ref(const Ref<U>& other) noexcept : Ref(other.get()) {}
    ~Ref() {
        if (object_) object_->unref();
    }
    Ref& operator=(Ref other) noexcept {
        T* old = object_;
        object_ = other.object_;
        other.object_ = old;
        return *this;
    }

    T* get() const noexcept { return object_; }
    T* operator->() const noexcept { return object_; }
    T& operator*() const noexcept { return *object_; }
    explicit operator bool() const noexcept { return object_ != nullptr; }
    bool operator==(const Ref& other) const noexcept { return object_ == other.object_; }
    bool operator==(const T* other) const noexcept { return object_ == other; }

private:
    T* object_ = nullptr;
};

} // namespace Tessel
