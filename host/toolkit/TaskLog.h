#pragma once

#include <zowidgets/host/base/LoggerBase.h>
#include <zowidgets/values/notify/GenericNotifier.h>

#include <cstddef>
#include <mutex>
#include <vector>

// The log a task writes to from any thread. It keeps every line it is
// given, in the order the writes happened, and tells its listeners of each
// line and each progress report on the writing thread.
class ZO_API iTaskLog : public iObject, public LoggerBase {
public:
  enum eEventKind { kProgress = 1, kNewItem = 2 };
  struct Event {
    int kind = kNewItem;
    double progress = 0.0;
    LoggerBase::Item item;
  };
  using Listener = iCallbackBase<int, Event>;

  // Delivery happens on the writing thread; dropping the guard ends it.
  virtual Zo::Ptr<Zo::Guard> addListener(Zo::Ptr<Listener> const& listener) = 0;
  // A copy of every line kept so far.
  virtual std::vector<LoggerBase::Item> getItems() const = 0;
  virtual std::size_t numItems() const = 0;
  // Appends the lines from `first` on to `into`; the number appended.
  virtual std::size_t copyItems(std::size_t first, std::vector<LoggerBase::Item>& into) const = 0;
  // Tells the listeners how far the task has got, 0 to 1.
  virtual void reportProgress(double fraction) = 0;
};

// The usual task log: lines in memory, guarded by one lock.
class ZO_API TaskLog : public iTaskLog {
public:
  TaskLog() = default;

  void write(LightweightString<wchar_t> const& text, eOutputType type) override;
  void setIndentLevel(std::uint16_t level) override;
  void incIndent() override;
  void decIndent() override;

  Zo::Ptr<Zo::Guard> addListener(Zo::Ptr<Listener> const& listener) override;
  std::vector<LoggerBase::Item> getItems() const override;
  std::size_t numItems() const override;
  std::size_t copyItems(std::size_t first, std::vector<LoggerBase::Item>& into) const override;
  void reportProgress(double fraction) override;

private:
  mutable std::mutex lock_;
  std::vector<LoggerBase::Item> items_;
  std::uint16_t indent_ = 0;
  GenericNotifier<Event> listeners_;
};
