#pragma once

#include <zowidgets/host/base/Ptr.h>

// Something to run later, usually on the user-interface thread via defer().
class ZO_API iExecutableAction : public iObject {
public:
  virtual void execute() = 0;
};

// Carries a plain value where an iObject is expected (event data, action
// contexts).
template <class T> class ZO_API WrappedData : public iObject {
public:
  WrappedData() = default;
  explicit WrappedData(T value) : value_(std::move(value)) {}

  T const& get() const noexcept { return value_; }
  T& get() noexcept { return value_; }
  void set(T value) { value_ = std::move(value); }

private:
  T value_{};
};
