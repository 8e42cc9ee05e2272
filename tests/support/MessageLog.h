#pragma once

#include <zowidgets/host/toolkit/Glob.h>

#include <string>
#include <vector>

// A parent for widgets under test that keeps the messages its children send
// it, and who sent each.
class MessageLog : public Glob {
public:
  explicit MessageLog(XY<int> size) : Glob(GlobCreationInfo(size)) {}
  int react(Event const& event) override {
    if (!event.isMessage())
      return 0;
    messages.push_back(event.message.str());
    senders.push_back(event.sourceWidget);
    return 1;
  }
  std::vector<std::string> messages;
  std::vector<Glob*> senders;
};
