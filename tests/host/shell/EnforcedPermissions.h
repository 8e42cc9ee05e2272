#pragma once

#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

// Makes the file system's permission bits apply to the calling thread while
// this lives, even when the tests run as root: root passes every permission
// check through two capabilities, which are dropped from this thread's
// effective set (capabilities belong to a thread, not the process) and
// given back at the end. active() is false when they could not be dropped;
// the test then skips.
class EnforcedPermissions {
public:
  EnforcedPermissions() {
    if (geteuid() != 0) {
      active_ = true;
      return;
    }
    header_.version = _LINUX_CAPABILITY_VERSION_3;
    header_.pid = 0;
    if (syscall(SYS_capget, &header_, saved_) != 0)
      return;
    __user_cap_data_struct lowered[2] = {saved_[0], saved_[1]};
    lowered[0].effective &= ~((1u << CAP_DAC_OVERRIDE) | (1u << CAP_DAC_READ_SEARCH));
    dropped_ = syscall(SYS_capset, &header_, lowered) == 0;
    active_ = dropped_;
  }
  ~EnforcedPermissions() {
    if (dropped_)
      syscall(SYS_capset, &header_, saved_);
  }
  EnforcedPermissions(EnforcedPermissions const&) = delete;
  EnforcedPermissions& operator=(EnforcedPermissions const&) = delete;

  bool active() const noexcept { return active_; }

private:
  __user_cap_header_struct header_{};
  __user_cap_data_struct saved_[2]{};
  bool dropped_ = false;
  bool active_ = false;
};
