#pragma once

#include <zowidgets/host/base/CriticalSection.h>
#include <zowidgets/host/base/NotifyMsgTypeDictionary.h>
#include <zowidgets/values/notify/Callback.h>
#include <zowidgets/values/notify/NotifierBase.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <list>
#include <mutex>

// The heavy notifier: a lock-protected list of identified clients, each with
// a message-type filter, that tolerates clients joining and leaving while a
// notification is under way. Safe from any thread; delivery happens on the
// issuing thread with the (re-entrant) lock held, so listeners must not throw
// and must never wait on a thread that may touch the same notifier.
//
// Joining or leaving during delivery only marks the client: a client added
// hears nothing until the outermost notification ends; a client removed hears
// nothing more from that moment, and its callback lives until then.
template <class T> class ZO_API GenericNotifier : public NotifierBase {
public:
  using CallbackType = iCallbackBase<int, T>;

  enum eClientState { kActive = 0, kAddedDuringNotification = 1, kRemovedDuringNotification = 2 };

  class Client : public Identified {
  public:
    Client(Zo::Ptr<CallbackType> callback, int msgType, IdStamp const& stamp = IdStamp())
        : Identified(stamp), callback(std::move(callback)), msgType(msgType) {}

    Zo::Ptr<CallbackType> callback;
    int msgType;
    int state = kActive;
  };

  GenericNotifier() = default;
  GenericNotifier(GenericNotifier const&) = delete;
  GenericNotifier& operator=(GenericNotifier const&) = delete;
  // Destroys the clients without telling them: outstanding guards must have
  // gone first.
  ~GenericNotifier() override = default;

  Zo::Ptr<Zo::Guard> addListener(Zo::Ptr<CallbackType> const& callback, int msgType) {
    return registerInternal(Client(callback, msgType));
  }

  Zo::Ptr<Zo::Guard> registerInternal(Client const& client) {
    std::lock_guard lock(lock_);
    Client& added = clients_.emplace_back(client);
    if (depth_ != 0) {
      added.state = kAddedDuringNotification;
      pendingChanges_ = true;
    }
    count_.store(clients_.size(), std::memory_order_release);
    return Zo::Ptr<Zo::Guard>(new CallbackGuard(this, added.id()));
  }

  using NotifierBase::deregisterNotification;

  void deregisterNotification(IdStamp const& id) override {
    std::list<Client> doomed; // destroyed after the list is consistent again
    std::lock_guard lock(lock_);
    for (auto it = clients_.begin(); it != clients_.end(); ++it) {
      if (it->id() != id)
        continue;
      if (depth_ == 0) {
        doomed.splice(doomed.end(), clients_, it);
        count_.store(clients_.size(), std::memory_order_release);
      } else {
        it->state = kRemovedDuringNotification;
        pendingChanges_ = true;
      }
      return;
    }
  }

  virtual void issueNotification(T const& message, int msgType) const {
    if (count_.load(std::memory_order_acquire) == 0)
      return;
    int const any = NotifyMsgTypeDictionary::instance().anyType();
    std::list<Client> doomed;
    std::lock_guard lock(lock_);
    ++depth_;
    for (Client& client : clients_) {
      if (client.state != kActive)
        continue;
      if (client.msgType == any || msgType == any || client.msgType == msgType)
        client.callback->execute(message);
    }
    --depth_;
    if (depth_ == 0 && pendingChanges_)
      settle(doomed);
  }

  // Clients in the list, including those marked during a notification.
  std::size_t clientCount() const noexcept { return count_.load(std::memory_order_acquire); }

private:
  void settle(std::list<Client>& doomed) const {
    for (auto it = clients_.begin(); it != clients_.end();) {
      auto next = std::next(it);
      if (it->state == kRemovedDuringNotification)
        doomed.splice(doomed.end(), clients_, it);
      else
        it->state = kActive;
      it = next;
    }
    pendingChanges_ = false;
    count_.store(clients_.size(), std::memory_order_release);
  }

  mutable CriticalSection lock_;
  mutable std::uint16_t depth_ = 0;
  mutable bool pendingChanges_ = false;
  mutable std::list<Client> clients_;
  // Lets an issue with nobody listening cost one load and no lock.
  mutable std::atomic<std::size_t> count_{0};
};
