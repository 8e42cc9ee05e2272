#pragma once

#include <zowidgets/host/base/IdStamp.h>
#include <zowidgets/host/events/Event.h>

// Receiver of queued messages. Every live handler is in a process-wide
// registry with its stamp, so a queued message for a handler that has died, or
// for a new handler at the same address, is recognised and dropped.
class ZO_API EventHandler {
public:
  EventHandler();
  EventHandler(EventHandler const&);
  EventHandler& operator=(EventHandler const&) { return *this; }
  virtual ~EventHandler();

  // Returns non-zero when the event was handled.
  virtual int handleEvent(Event const& event);

  IdStamp const& handlerStamp() const noexcept { return stamp_; }

  // True while `handler` lives and still carries `stamp`. Safe from any thread.
  static bool valid(EventHandler const* handler, IdStamp const& stamp);
  // The stamp of a live handler, or the null stamp. Safe from any thread.
  static IdStamp stampOf(EventHandler const* handler);

private:
  IdStamp stamp_;
};
