#include <zowidgets/values/NotifierBase.h>

NotifierBase::CallbackGuard::~CallbackGuard() { notifier_->deregisterNotification(id_); }

void NotifierBase::deregisterNotification(Zo::Ptr<Zo::Guard>& guard) { guard.reset(); }
