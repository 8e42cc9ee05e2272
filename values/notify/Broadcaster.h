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
  // Forwards to a function object and always returns 0.
  class StdFunctionCallback : public iCallbackBase<int, T> {
  public:
    explicit StdFunctionCallback(std::function<void(T const&)> function) : function_(std::move(function)) {}
    int execute(T const& message) override {
      function_(message);
      return 0;
    }
    std::function<void(T const&)> const& function() const noexcept { return function_; }

  private:
    std::function<void(T const&)> function_;
  };

  struct Callback {
    Zo::Ptr<iCallbackBase<int, T>> callback;
    int deferred = 0; // non-zero: deliver later through defer()
    // The function inside `callback` when it wraps one, called straight so
    // that a delivery costs one indirect call, as a plain loop's does.
    std::function<void(T const&)> const* function = nullptr;
  };

  // Delivers one message to one callback later; keeps the callback alive, not
  // the object it points at.
  class AsyncBroadcastAction : public iExecutableAction {
  public:
    AsyncBroadcastAction(Callback callback, T message) : callback_(std::move(callback)), message_(std::move(message)) {}
    void execute() override { callback_.callback->execute(message_); }

  private:
    Callback callback_;
    T message_;
  };

  template <class C> static Callback makeCallback(C* object, int (C::*method)(T const&), int deferred = 0) {
    return Callback{Zo::Ptr<iCallbackBase<int, T>>(new MethodCallback<C, T, int>(object, method)), deferred};
  }
  static Callback makeCallback(std::function<void(T const&)> function, int deferred = 0) {
    auto* wrapper = new StdFunctionCallback(std::move(function));
    return Callback{Zo::Ptr<iCallbackBase<int, T>>(wrapper), deferred, &wrapper->function()};
  }

  Broadcaster() = default;
  explicit Broadcaster(Callback const& callback) { addListener(callback); }
  virtual ~Broadcaster() = default;

  // A null callback is never stored. Not allowed during a broadcast.
  void addListener(Callback const& callback) {
    if (callback.callback)
      callbacks_.push_back(callback);
  }
  std::size_t listenerCount() const noexcept { return callbacks_.size(); }

  virtual void broadcast(T const& message) { deliver(message, false); }
  virtual void broadcastAsync(T const& message) { deliver(message, true); }

protected:
  std::vector<Callback>& callbacks() noexcept { return callbacks_; }

private:
  void deliver(T const& message, bool deferAll) {
    std::size_t const end = callbacks_.size();
    for (std::size_t i = 0; i < end; ++i) {
      Callback const& entry = callbacks_[i];
      if (deferAll || entry.deferred != 0)
        defer(Zo::Ptr<iExecutableAction>(new AsyncBroadcastAction(entry, message)), nullptr);
      else if (entry.function)
        (*entry.function)(message);
      else
        entry.callback->execute(message);
    }
  }

  std::vector<Callback> callbacks_;
};
