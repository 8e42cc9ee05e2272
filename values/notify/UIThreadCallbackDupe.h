#pragma once

#include <zowidgets/host/events/EventHandler.h>
#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/values/notify/Callback.h>

// Answers 1 while an EventHandler (usually a widget) still lives with the
// stamp it had when the check was made, 0 afterwards. It ignores the message.
template <class T> class ZO_API EventHandlerExistenceCheck : public iCallbackBase<int, T> {
public:
  EventHandlerExistenceCheck(EventHandler const* handler, IdStamp const& id) : handler_(handler), id_(id) {}
  explicit EventHandlerExistenceCheck(EventHandler const* handler)
      : handler_(handler), id_(EventHandler::stampOf(handler)) {}

  int execute(T const&) override { return EventHandler::valid(handler_, id_) ? 1 : 0; }

private:
  EventHandler const* handler_;
  IdStamp id_;
};

// Moves a call made on any thread to the user-interface thread. `preCheck`
// runs at once on the calling thread; `uiCheck` and then `target` run on the
// user-interface thread. A check that answers 0 drops the message.
template <class T> class ZO_API UIThreadCallbackDupe : public iCallbackBase<int, T>, private EventHandler {
public:
  using Callback = iCallbackBase<int, T>;

  // Carries one message through the queue, keeping its dupe alive until then.
  class DeferredCallback : public iObject {
  public:
    DeferredCallback(Zo::Ptr<iObject> owner, T message) : owner(std::move(owner)), message(std::move(message)) {}
    Zo::Ptr<iObject> owner;
    T message;
  };

  explicit UIThreadCallbackDupe(Zo::Ptr<Callback> target) : target(std::move(target)) {}

  // The usual idiom: deliver to `target` on the user-interface thread only
  // while `receiver` (the widget the target calls into) still lives.
  static Zo::Ptr<Callback> guarded(Zo::Ptr<Callback> target, EventHandler const* receiver) {
    auto* dupe = new UIThreadCallbackDupe(std::move(target));
    dupe->uiCheck = Zo::Ptr<Callback>(new EventHandlerExistenceCheck<T>(receiver));
    return Zo::Ptr<Callback>(dupe);
  }

  int execute(T const& message) override {
    if (preCheck && preCheck->execute(message) == 0)
      return 0;
    if (!alwaysDefer && co_pid() == 0)
      return executeInternal(message);
    Zo::Ptr<iObject> self(static_cast<iObject*>(this));
    sendMessageWithData("Hello", static_cast<EventHandler*>(this),
                        Zo::Ptr<iObject>(new DeferredCallback(self, message)));
    return 0;
  }

  virtual int executeInternal(T const& message) {
    if (uiCheck && uiCheck->execute(message) == 0)
      return 0;
    return target->execute(message);
  }

  Zo::Ptr<Callback> target;
  Zo::Ptr<Callback> preCheck;
  Zo::Ptr<Callback> uiCheck;
  bool alwaysDefer = false;

private:
  int handleEvent(Event const& event) override {
    if (auto* deferred = dynamic_cast<DeferredCallback*>(event.data.get()))
      executeInternal(deferred->message);
    return 1;
  }
};
