#pragma once

#include <zowidgets/host/base/LightweightString.h>

#include <string_view>

// Gives message-type numbers to names, for notifiers that filter their
// clients by type. One number, the any-type, matches every type.
class ZO_API NotifyMsgTypeDictionary {
public:
  static NotifyMsgTypeDictionary& instance();

  int anyType() const noexcept { return kAnyType; }
  // The number of a name, given on first use and stable for the process.
  // Safe from any thread. The empty name is the any-type.
  int lookup(std::string_view name);
  // The name of a number, or an empty string if none was given out.
  LightweightString<char> nameOf(int type) const;

private:
  static constexpr int kAnyType = 0;
  NotifyMsgTypeDictionary() = default;
};
