#pragma once

#include <zowidgets/host/base/EnableDisable.h>
#include <zowidgets/values/notify/ValServer.h>

// A typed handle on a server that hears its changes. Disabled clients (see
// EnableDisable) miss changes but still hear the server's farewell.
template <class T> class ZO_API ValClient : public EnableDisable {
public:
  ValClient() = default;
  explicit ValClient(ValServer<T>* server) { registerWith(server); }
  ValClient(ValClient const&) = delete;
  ValClient& operator=(ValClient const&) = delete;
  // The guard goes first, before anything its callback could touch; a kept
  // server then dies with no client left to tell.
  ~ValClient() override {
    guard_.reset();
    kept_.reset();
  }

  virtual void registerWith(ValServer<T>* server) {
    if (server == server_)
      return;
    server_ = server;
    if (!server) {
      guard_.reset();
    } else {
      using Callback = MethodCallback<ValClient, ValServerEvent<T>, int>;
      typename ValServer<T>::Client client(
          Zo::Ptr<iCallbackBase<int, ValServerEvent<T>>>(new Callback(this, &ValClient::handleValueChange)),
          NotifyMsgTypeDictionary::instance().anyType());
      guard_ = server->registerInternal(client);
    }
    // A kept server is let go only once no longer listened to.
    if (kept_.get() != server)
      kept_.reset();
  }

  // Registers with a server that this client also keeps alive: clients that
  // share one this way keep it until the last of them goes, so a value can
  // outlive the model that first held it.
  void shareServer(Zo::Ptr<ValServer<T>> const& server) {
    registerWith(server.get());
    kept_ = server;
  }

  virtual void valChangedNtfy() {}
  virtual void valPreChangedNtfy() {}

  int handleValueChange(ValServerEvent<T> const& event) {
    switch (event.phase) {
    case ValServerEvent<T>::kChanged:
      if (isEnabled())
        valChangedNtfy();
      break;
    case ValServerEvent<T>::kAboutToChange:
      if (isEnabled())
        valPreChangedNtfy();
      break;
    case ValServerEvent<T>::kGoingAway:
      server_ = nullptr;
      guard_.reset(); // only marks the client: we are inside its notification
      break;
    }
    return 0;
  }

  // The server's value, or a value-initialised T without a server.
  operator T() const { return server_ ? server_->get() : T(); }
  // Assigns to the server; does nothing without one.
  ValClient& operator=(T const& value) {
    if (server_)
      *server_ = value;
    return *this;
  }

  ValServer<T>* getServer() const noexcept { return server_; }

private:
  Zo::Ptr<Zo::Guard> guard_;
  ValServer<T>* server_ = nullptr;
  Zo::Ptr<ValServer<T>> kept_;
};
