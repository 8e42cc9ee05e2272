#pragma once

#include <zowidgets/host/base/ExecutableAction.h>
#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/values/notify/Callback.h>

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

// The light notifier: a plain vector of callbacks owned by a widget, with no
// lock and no removal. Each entry may ask for deferred delivery through
// defer(). Single-threaded by design; only the deferred path crosses threads.
template <class T> class ZO_API Broadcaster {
public:
  using Function = std::function<void(T const&)>;

  // Forwards to a function object and always returns 0. Every listener is
  // delivered to through one of these, so that a delivery is one call of a
  // std::function, as a plain loop over them makes.
  class StdFunctionCallback : public iCallbackBase<int, T> {
  public:
    explicit StdFunctionCallback(Function function) : function_(std::move(function)) {}
    int execute(T const& message) override {
      function_(message);
      return 0;
    }
    Function const& function() const noexcept { return function_; }

  protected:
    StdFunctionCallback() = default;
    void setFunction(Function function) { function_ = std::move(function); }

  private:
    Function function_;
  };

  struct Callback {
    Zo::Ptr<iCallbackBase<int, T>> callback;
    int deferred = 0; // non-zero: deliver later through defer()
  };

  // Delivers one message to one callback later; keeps the callback alive, not
  // the object it points at.
  class AsyncBroadcastAction : public iExecutableAction {
  public:
    AsyncBroadcastAction(Zo::Ptr<iCallbackBase<int, T>> callback, T message)
        : callback_(std::move(callback)), message_(std::move(message)) {}
    void execute() override { callback_->execute(message_); }

  private:
    Zo::Ptr<iCallbackBase<int, T>> callback_;
    T message_;
  };

  template <class C> static Callback makeCallback(C* object, int (C::*method)(T const&), int deferred = 0) {
    return Callback{Zo::Ptr<iCallbackBase<int, T>>(new MethodFunctionCallback<C>(object, method)), deferred};
  }
  static Callback makeCallback(Function function, int deferred = 0) {
    return Callback{Zo::Ptr<iCallbackBase<int, T>>(new StdFunctionCallback(std::move(function))), deferred};
  }

  Broadcaster() = default;
  explicit Broadcaster(Callback const& callback) { addListener(callback); }
  virtual ~Broadcaster() = default;

  // A null callback is never stored. Not allowed during a broadcast.
  void addListener(Callback const& callback) {
    if (!callback.callback)
      return;
    Zo::Ptr<iCallbackBase<int, T>> target = callback.callback;
    auto* wrapper = dynamic_cast<StdFunctionCallback*>(target.get());
    if (!wrapper) {
      wrapper = new StdFunctionCallback([inner = callback.callback](T const& message) { inner->execute(message); });
      target = Zo::Ptr<iCallbackBase<int, T>>(wrapper);
    }
    entries_.push_back(Entry{&wrapper->function(), callback.deferred, std::move(target)});
  }
  std::size_t listenerCount() const noexcept { return entries_.size(); }

  virtual void broadcast(T const& message) { deliver(message, false); }
  virtual void broadcastAsync(T const& message) { deliver(message, true); }

private:
  // A method call behind the function interface.
  template <class C> class MethodFunctionCallback : public StdFunctionCallback {
  public:
    MethodFunctionCallback(C* object, int (C::*method)(T const&)) : object_(object), method_(method) {
      this->setFunction(Call{this});
    }

  private:
    // Holds only the callback's address: small enough to live inside the
    // function, with no allocation of its own. A named call rather than a
    // lambda capturing this: the sanitizers' builds of the compiler here
    // mistook such a lambda's object.
    struct Call {
      MethodFunctionCallback const* callback;
      void operator()(T const& message) const { (callback->object_->*callback->method_)(message); }
    };

    C* object_;
    int (C::*method_)(T const&);
  };

  struct Entry {
    Function const* function; // inside `callback`, which keeps it alive
    int deferred;
    Zo::Ptr<iCallbackBase<int, T>> callback;
  };

  void deliver(T const& message, bool deferAll) {
    std::size_t const end = entries_.size();
    for (std::size_t i = 0; i < end; ++i) {
      Entry const& entry = entries_[i];
      if (deferAll || entry.deferred != 0)
        defer(Zo::Ptr<iExecutableAction>(new AsyncBroadcastAction(entry.callback, message)), nullptr);
      else
        (*entry.function)(message);
    }
  }

  std::vector<Entry> entries_;
};
