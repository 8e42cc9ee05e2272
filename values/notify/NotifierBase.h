#pragma once

#include <zowidgets/host/base/IdStamp.h>
#include <zowidgets/host/base/Ptr.h>

namespace Zo {
// An empty, reference-counted token whose meaning is in its subclass's
// destructor: dropping the last reference ends whatever it guards.
class ZO_API Guard : public iObject {};
} // namespace Zo

// What every notifier offers its clients: leaving, by guard or by id. The
// notification templates are header-only, so the host layer uses them too.
class ZO_API NotifierBase : public virtual iVirtual {
public:
  // Ends a subscription when the last reference to it goes. It does not test
  // its notifier: it must not outlive it unless told to let go.
  class ZO_API CallbackGuard : public Zo::Guard {
  public:
    CallbackGuard(NotifierBase* notifier, IdStamp const& id) : notifier_(notifier), id_(id) {}
    ~CallbackGuard() override { notifier_->deregisterNotification(id_); }

  private:
    NotifierBase* notifier_;
    IdStamp id_;
  };

  ~NotifierBase() override = default;

  // Drops the caller's reference and nulls the handle. The subscription ends
  // only when the guard's last reference goes.
  virtual void deregisterNotification(Zo::Ptr<Zo::Guard>& guard) { guard.reset(); }
  virtual void deregisterNotification(IdStamp const& id) = 0;
};
