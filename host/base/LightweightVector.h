#pragma once

#include <zowidgets/host/base/Ptr.h>

#include <cstddef>
#include <initializer_list>
#include <utility>
#include <vector>

// Shared, reference-counted std::vector. Copies share one vector: an element
// written or appended through any handle is seen through all of them (lists of
// parameters are passed around this way). There is no copy-on-write; call
// clone() for an independent copy. A handle always holds a vector, so moving
// one shares like a copy instead of leaving the source empty-handed.
template <class T> class ZO_API LightweightVector : public iVirtual {
public:
  using value_type = T;
  using size_type = std::size_t;
  using iterator = typename std::vector<T>::iterator;
  using const_iterator = typename std::vector<T>::const_iterator;

  LightweightVector() : shared_(new std::vector<T>()) {}
  LightweightVector(std::initializer_list<T> items) : shared_(new std::vector<T>(items)) {}
  explicit LightweightVector(std::vector<T> items) : shared_(new std::vector<T>(std::move(items))) {}
  LightweightVector(LightweightVector const&) = default;
  LightweightVector& operator=(LightweightVector const&) = default;
  ~LightweightVector() override = default;

  // A new handle with its own copy of the elements.
  LightweightVector clone() const { return LightweightVector(*shared_); }
  // How many handles share this vector.
  int shareCount() const noexcept { return shared_.useCount(); }

  std::vector<T>& vec() noexcept { return *shared_; }
  std::vector<T> const& vec() const noexcept { return *shared_; }

  size_type size() const noexcept { return shared_->size(); }
  bool empty() const noexcept { return shared_->empty(); }
  T& operator[](size_type index) noexcept { return (*shared_)[index]; }
  T const& operator[](size_type index) const noexcept { return (*shared_)[index]; }
  T& at(size_type index) { return shared_->at(index); }
  T const& at(size_type index) const { return shared_->at(index); }
  T& front() noexcept { return shared_->front(); }
  T const& front() const noexcept { return shared_->front(); }
  T& back() noexcept { return shared_->back(); }
  T const& back() const noexcept { return shared_->back(); }

  iterator begin() noexcept { return shared_->begin(); }
  iterator end() noexcept { return shared_->end(); }
  const_iterator begin() const noexcept { return shared_->cbegin(); }
  const_iterator end() const noexcept { return shared_->cend(); }

  void push_back(T const& item) { shared_->push_back(item); }
  void push_back(T&& item) { shared_->push_back(std::move(item)); }
  template <class... Args> T& emplace_back(Args&&... args) {
    return shared_->emplace_back(std::forward<Args>(args)...);
  }
  iterator insert(const_iterator position, T const& item) { return shared_->insert(position, item); }
  iterator insert(const_iterator position, T&& item) { return shared_->insert(position, std::move(item)); }
  iterator erase(const_iterator position) { return shared_->erase(position); }
  iterator erase(const_iterator first, const_iterator last) { return shared_->erase(first, last); }
  void clear() noexcept { shared_->clear(); }
  void reserve(size_type capacity) { shared_->reserve(capacity); }
  void resize(size_type count) { shared_->resize(count); }

  // Equal elements, whether or not the vectors are shared.
  friend bool operator==(LightweightVector const& a, LightweightVector const& b) { return a.vec() == b.vec(); }

private:
  Zo::Ptr<std::vector<T>, Zo::DtorTraits, Zo::ExternalRefCountTraits> shared_;
};
