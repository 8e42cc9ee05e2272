#pragma once

#include <zowidgets/host/base/Export.h>

#include <mutex>

// Re-entrant lock: the thread that holds it may enter again. Also a standard
// Lockable, so std::lock_guard and std::scoped_lock work with it.
class ZO_API CriticalSection {
public:
  void enter() { mutex_.lock(); }
  void leave() { mutex_.unlock(); }
  bool tryEnter() { return mutex_.try_lock(); }

  void lock() { enter(); }
  void unlock() { leave(); }
  bool try_lock() { return tryEnter(); }

private:
  std::recursive_mutex mutex_;
};
