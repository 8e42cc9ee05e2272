#pragma once

#include <zowidgets/host/base/DataChange.h>
#include <zowidgets/host/base/LastValServer.h>
#include <zowidgets/values/notify/GenericNotifier.h>
#include <zowidgets/values/notify/Notifier.h>

template <class T> struct ValServerEvent {
  enum ePhase { kChanged = 0, kAboutToChange = 1, kGoingAway = 2 };

  T value{};
  int phase = kChanged;
  DataChangeType changeType = kDataChangeAll;
};

// Lets code poke a server without knowing its type.
class ZO_API ValServerBase : public iObject {
public:
  virtual void notifyValChanged(DataChangeType type) = 0;
  virtual void preNotifyValChanged(DataChangeType type) = 0;
};

template <class T> class ValServer;

// A gatekeeper on a server: may rewrite or veto every change.
template <class T> class ZO_API ValManagerBase : public NotifyWithDisable {
public:
  // May rewrite `value`; false vetoes the change.
  virtual bool requestValChange(ValServer<T>* server, T& value) = 0;
  // The server is dying.
  virtual void releaseServer(ValServer<T>* server) = 0;
};

// One observable value. Assignment goes through the manager, if any, then
// stores and tells every client, even when the value is unchanged. The value
// itself is not locked: a server belongs to one thread at a time.
template <class T>
class ZO_API ValServer : public GenericNotifier<ValServerEvent<T>>, public ValServerBase, private LastValServer {
public:
  using ServerEvent = ValServerEvent<T>;

  ValServer() : value_() {}
  explicit ValServer(T const& initial) : value_(initial) {}

  ~ValServer() override {
    if (manager_) {
      manager_->releaseServer(this);
      manager_ = nullptr;
    }
    if (this->clientCount() != 0)
      this->issueNotification(ServerEvent{value_, ServerEvent::kGoingAway, kDataChangeAll}, anyType());
  }

  virtual ValServer& operator=(T const& value) {
    updateAndNotify(value);
    return *this;
  }
  virtual ValServer& operator=(ValServer const& other) {
    updateAndNotify(other.value_);
    return *this;
  }
  virtual bool operator==(ValServer const& other) const { return value_ == other.value_; }

  void notifyValChanged(DataChangeType type) override { notify(ServerEvent::kChanged, type); }
  void preNotifyValChanged(DataChangeType type) override { notify(ServerEvent::kAboutToChange, type); }

  virtual bool updateAndNotify(T const& value) {
    if (!manager_) {
      value_ = value;
    } else {
      T candidate = value;
      if (!manager_->requestValChange(this, candidate))
        return false;
      value_ = std::move(candidate);
    }
    notifyValChanged(kDataChangeAll);
    return true;
  }

  T const& get() const noexcept { return value_; }
  ValManagerBase<T>* getManager() const noexcept { return manager_; }
  void setManager(ValManagerBase<T>* manager) noexcept { manager_ = manager; }

private:
  static int anyType() { return NotifyMsgTypeDictionary::instance().anyType(); }
  void notify(int phase, DataChangeType type) {
    if (this->clientCount() == 0)
      return; // nobody listens: build no event
    this->issueNotification(ServerEvent{value_, phase, type}, anyType());
  }

  T value_;
  ValManagerBase<T>* manager_ = nullptr;
};
