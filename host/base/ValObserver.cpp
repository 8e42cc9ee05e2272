#include <zowidgets/host/base/ValObserver.h>

#include <algorithm>

ValObserverClient::~ValObserverClient() {
  for (ValObserverBase* value : std::vector<ValObserverBase*>(observed_))
    value->removeObserver(this);
}

ValObserverBase::~ValObserverBase() {
  std::vector<ValObserverClient*> const clients = std::move(clients_);
  for (ValObserverClient* client : clients) {
    std::erase(client->observed_, this);
    client->notifyValObserverGone(*this);
  }
}

void ValObserverBase::addObserver(ValObserverClient* client) {
  if (!client || isObservedBy(client))
    return;
  clients_.push_back(client);
  client->observed_.push_back(this);
}

void ValObserverBase::removeObserver(ValObserverClient* client) {
  if (!client || !isObservedBy(client))
    return;
  std::erase(clients_, client);
  std::erase(client->observed_, this);
}

bool ValObserverBase::isObservedBy(ValObserverClient const* client) const {
  return std::find(clients_.begin(), clients_.end(), client) != clients_.end();
}

// A client may stop observing while it is told: the list is copied first.
void ValObserverBase::notifyPreValChanged() const {
  for (ValObserverClient* client : std::vector<ValObserverClient*>(clients_))
    if (isObservedBy(client))
      client->notifyPreValChanged(*this);
}

void ValObserverBase::notifyValChanged() const {
  for (ValObserverClient* client : std::vector<ValObserverClient*>(clients_))
    if (isObservedBy(client))
      client->notifyValChanged(*this);
}
