#pragma once

#include <zowidgets/host/base/NotifyMsg.h>
#include <zowidgets/values/notify/GenericNotifier.h>

// The host's named-message notifier.
class ZO_API Notifier : public GenericNotifier<NotifyMsg> {
public:
  using GenericNotifier<NotifyMsg>::issueNotification;
  // Issues a message to clients of its name's type and of the any-type.
  void issueNotification(NotifyMsg const& message) const {
    issueNotification(message, NotifyMsgTypeDictionary::instance().lookup(message.name().view()));
  }
};

// A notifier that can stand in for its owner; every value manager (and so
// every parameter) is one.
class ZO_API NotifyWithDisable : public Notifier {
public:
  virtual NotifyWithDisable* getNotify() { return this; }
};
