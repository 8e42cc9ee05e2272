#pragma once

#include <algorithm>
#include <vector>

// A vector with the few searches the media services' callers need.
template <class T> class VectorExt : public std::vector<T> {
public:
  using std::vector<T>::vector;
  VectorExt() = default;
  VectorExt(std::vector<T> items) : std::vector<T>(std::move(items)) {}

  bool contains(T const& item) const { return std::find(this->begin(), this->end(), item) != this->end(); }
  // The place of the first equal item, or -1.
  int indexOf(T const& item) const {
    auto const found = std::find(this->begin(), this->end(), item);
    return found == this->end() ? -1 : static_cast<int>(found - this->begin());
  }
};
