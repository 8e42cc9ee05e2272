#pragma once

#include <zowidgets/values/notify/GenericNotifier.h>

#include <functional>
#include <string>
#include <vector>

// A listener that records what it heard into a shared log, may act while it
// is being called, and logs its own destruction.
struct RecordingListener : iCallbackBase<int, int> {
  RecordingListener(std::vector<std::string>& log, std::string name) : log(log), name(std::move(name)) {}
  ~RecordingListener() override { log.push_back(name + "-destroyed"); }
  int execute(int const& message) override {
    log.push_back(name + ":" + std::to_string(message));
    if (onCall)
      onCall(message);
    return 0;
  }
  std::vector<std::string>& log;
  std::string name;
  std::function<void(int)> onCall;
};

inline int anyType() { return NotifyMsgTypeDictionary::instance().anyType(); }
