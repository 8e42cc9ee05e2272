#pragma once

#include <zowidgets/host/base/Export.h>
#include <zowidgets/host/base/Ptr.h>

#include <utility>
#include <vector>

class ValObserverBase;

// The older way of watching a value, which the host's menu buttons take:
// an observed value (ValObserverBase) calls each of its clients just before
// it changes and again just after. User-interface thread only; newer code
// uses ValServer and ValClient.
class ZO_API ValObserverClient : public virtual iVirtual {
public:
  ValObserverClient() = default;
  ValObserverClient(ValObserverClient const&) = delete;
  ValObserverClient& operator=(ValObserverClient const&) = delete;
  // Stops observing every value it observes.
  ~ValObserverClient() override;

  // The value has changed.
  virtual void notifyValChanged(ValObserverBase const& value) = 0;
  // The value is about to change: what was read from it still holds.
  virtual void notifyPreValChanged(ValObserverBase const&) {}
  // The value is being destroyed: forget it.
  virtual void notifyValObserverGone(ValObserverBase const&) {}

private:
  friend class ValObserverBase;
  std::vector<ValObserverBase*> observed_;
};

// The observed side: keeps its clients (it owns none) and tells them of
// changes. A client added twice is told once. Either side may go first: a
// dying client stops observing, a dying value tells its clients.
class ZO_API ValObserverBase {
public:
  ValObserverBase() = default;
  ValObserverBase(ValObserverBase const&) = delete;
  ValObserverBase& operator=(ValObserverBase const&) = delete;
  virtual ~ValObserverBase();

  void addObserver(ValObserverClient* client);
  void removeObserver(ValObserverClient* client);
  bool isObservedBy(ValObserverClient const* client) const;

protected:
  void notifyPreValChanged() const;
  void notifyValChanged() const;

private:
  std::vector<ValObserverClient*> clients_;
};

// A value of type T that its clients observe.
template <class T> class ValObserver : public ValObserverBase {
public:
  explicit ValObserver(T value = T()) : value_(std::move(value)) {}

  T const& get() const noexcept { return value_; }
  // Tells the clients before and after; an equal value changes nothing and
  // tells no one.
  void set(T const& value) {
    if (value == value_)
      return;
    notifyPreValChanged();
    value_ = value;
    notifyValChanged();
  }

private:
  T value_;
};
