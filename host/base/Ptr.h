#pragma once

#include <zowidgets/host/base/Export.h>

#include <atomic>
#include <cstddef>
#include <type_traits>
#include <utility>

class ZO_API iVirtual {
public:
  virtual ~iVirtual() = default;
};

namespace Zo {

// The count that Zo::Ptr shares when it uses InternalRefCountTraits. A copy of
// an object starts with no references: counts belong to handles, not values.
class ZO_API InternalRefCount {
public:
  InternalRefCount() noexcept = default;
  InternalRefCount(InternalRefCount const&) noexcept {}
  InternalRefCount& operator=(InternalRefCount const&) noexcept { return *this; }
  virtual ~InternalRefCount() = default;

  std::atomic<int>& refCounter() const noexcept { return count_; }
  int refCount() const noexcept { return count_.load(std::memory_order_acquire); }

private:
  mutable std::atomic<int> count_{0};
};

} // namespace Zo

// Everything held by Zo::Ptr<T> with the default traits derives from iObject.
class ZO_API iObject : public virtual Zo::InternalRefCount, public virtual iVirtual {
public:
  ~iObject() override = default;
};

namespace Zo {

struct DtorTraits {
  template <class T> static void destroy(T* object) noexcept { delete object; }
};

// The count lives inside the object (Zo::InternalRefCount).
struct InternalRefCountTraits {
  template <class T> static std::atomic<int>* countFor(T* object) {
    return object ? &static_cast<InternalRefCount const*>(object)->refCounter() : nullptr;
  }
  static void releaseCount(std::atomic<int>*) noexcept {}
};

// The count is allocated beside the object, for types that carry none
// (Zo::Ptr<std::vector<...>>). Wrap a raw pointer only once, as with any
// owning handle.
struct ExternalRefCountTraits {
  template <class T> static std::atomic<int>* countFor(T* object) { return object ? new std::atomic<int>(0) : nullptr; }
  static void releaseCount(std::atomic<int>* count) noexcept { delete count; }
};

// Intrusive, atomic reference-counted handle of two words: the count's
// address and the object. Null is legal everywhere.
template <class T, class Dtor = DtorTraits, class Counting = InternalRefCountTraits> class Ptr {
public:
  using element_type = T;

  Ptr() noexcept = default;
  Ptr(std::nullptr_t) noexcept {}
  explicit Ptr(T* object) : count_(Counting::countFor(object)), object_(object) { acquire(); }
  Ptr(Ptr const& other) noexcept : count_(other.count_), object_(other.object_) { acquire(); }
  Ptr(Ptr&& other) noexcept
      : count_(std::exchange(other.count_, nullptr)), object_(std::exchange(other.object_, nullptr)) {}
  template <class U>
  requires std::is_convertible_v<U*, T*> Ptr(Ptr<U, Dtor, Counting> const& other)
  noexcept : count_(other.countAddress()), object_(other.get()) { acquire(); }
  ~Ptr() { release(); }

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
  void swap(Ptr& other) noexcept {
    std::swap(count_, other.count_);
    std::swap(object_, other.object_);
  }

  T* get() const noexcept { return object_; }
  T* operator->() const noexcept { return object_; }
  T& operator*() const noexcept { return *object_; }
  explicit operator bool() const noexcept { return object_ != nullptr; }
  int useCount() const noexcept { return count_ ? count_->load(std::memory_order_acquire) : 0; }
  std::atomic<int>* countAddress() const noexcept { return count_; }

  // Shares this handle's count with a handle of a related type; null when the
  // object is not a U.
  template <class U> Ptr<U, Dtor, Counting> dynamicCast() const {
    U* cast = dynamic_cast<U*>(object_);
    return cast ? Ptr<U, Dtor, Counting>(cast, count_) : Ptr<U, Dtor, Counting>();
  }

  // For the casting constructor of related handles: share an existing count.
  Ptr(T* object, std::atomic<int>* count) noexcept : count_(count), object_(object) { acquire(); }

  friend bool operator==(Ptr const& a, Ptr const& b) noexcept { return a.object_ == b.object_; }
  friend bool operator==(Ptr const& a, std::nullptr_t) noexcept { return a.object_ == nullptr; }
  friend auto operator<=>(Ptr const& a, Ptr const& b) noexcept { return a.object_ <=> b.object_; }

private:
  void acquire() noexcept {
    if (count_)
      count_->fetch_add(1, std::memory_order_relaxed);
  }
  void release() noexcept {
    if (count_ && count_->fetch_sub(1, std::memory_order_acq_rel) == 1) {
      std::atomic<int>* count = count_;
      Dtor::destroy(object_);
      Counting::releaseCount(count);
    }
    count_ = nullptr;
    object_ = nullptr;
  }

  std::atomic<int>* count_ = nullptr;
  T* object_ = nullptr;
};

template <class T, class... Args> Ptr<T> make(Args&&... args) { return Ptr<T>(new T(std::forward<Args>(args)...)); }

} // namespace Zo
