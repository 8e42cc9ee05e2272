#pragma once

#include <zowidgets/host/base/Ptr.h>

#include <functional>
#include <type_traits>
#include <utility>

// A reference-counted call target. R is int for event callbacks (the result
// matters only to UIThreadCallbackDupe and its checks, where 0 stops
// delivery), bool for action callbacks.
template <class R, class A> class ZO_API iCallbackBase : public iObject {
public:
  virtual R execute(A const& argument) = 0;
};

// Calls a member function. Holds no reference to the object: whoever makes one
// keeps it shorter-lived than the object, or guards it with an existence check.
template <class C, class A, class R = int> class ZO_API MethodCallback : public iCallbackBase<R, A> {
public:
  using Method = R (C::*)(A const&);
  MethodCallback(C* object, Method method) : object_(object), method_(method) {}

  R execute(A const& argument) override { return (object_->*method_)(argument); }

private:
  C* object_;
  Method method_;
};

// Calls a function object. Calling an empty one throws std::bad_function_call.
template <class A, class R = int> class ZO_API FunctionCallback : public iCallbackBase<R, A> {
public:
  using Function = std::function<R(A const&)>;
  // A function object, lambda or plain R (*)(A const&).
  template <class F>
  requires std::is_constructible_v<Function, F> &&
      (!std::is_same_v<std::decay_t<F>, FunctionCallback>)explicit FunctionCallback(F function)
      : function_(std::move(function)) {}

  R execute(A const& argument) override { return function_(argument); }

private:
  Function function_;
};
