#include "values/binding/ValueTestSupport.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>

namespace {

struct EventLog : iCallbackBase<int, ValServerEvent<int>> {
  std::vector<ValServerEvent<int>> events;
  int execute(ValServerEvent<int> const& event) override {
    events.push_back(event);
    return 0;
  }
};

int any() { return NotifyMsgTypeDictionary::instance().anyType(); }

TEST(ValServer, AssigningTheSameValueTwiceNotifiesTwice) {
  ValServer<int> server(3);
  Zo::Ptr<EventLog> log(new EventLog);
  auto guard = server.addListener(log, any());
  server = 5;
  server = 5;
  ASSERT_EQ(log->events.size(), 2u);
  EXPECT_EQ(log->events[1].value, 5);
  EXPECT_EQ(log->events[1].phase, 0);
  EXPECT_EQ(log->events[1].changeType, kDataChangeAll);
}

TEST(ValServer, ManagerRewriteIsWhatListenersAndTheAskingWidgetSee) {
  ValServer<int> server(0);
  ScriptedManager<int> manager;
  manager.rewrite = [](int v) { return v * 10; };
  server.setManager(&manager);
  Zo::Ptr<EventLog> log(new EventLog);
  auto guard = server.addListener(log, any());

  Zo::Ptr<ValAdaptor<LightweightString<wchar_t>, int>> adaptor(
      new ValAdaptor<LightweightString<wchar_t>, int>(&server));
  FakeValWidget<LightweightString<wchar_t>> widget;
  widget.setDataAdaptor(adaptor);
  EXPECT_TRUE(widget.typeValue(L"7"));

  EXPECT_EQ(server.get(), 70);
  ASSERT_EQ(log->events.size(), 1u);
  EXPECT_EQ(log->events[0].value, 70);
  EXPECT_EQ(widget.shown, L"70");
  server.setManager(nullptr);
}

TEST(ValServer, RefusalIsHiddenByTheAdaptorAndTheWidgetKeepsItsText) {
  ValServer<int> server(4);
  ScriptedManager<int> manager;
  manager.refuse = true;
  server.setManager(&manager);
  EXPECT_FALSE(server.updateAndNotify(9));

  ValAdaptor<LightweightString<wchar_t>, int>* raw = new ValAdaptor<LightweightString<wchar_t>, int>(&server);
  Zo::Ptr<ValAdaptorBase<LightweightString<wchar_t>>> adaptor(raw);
  FakeValWidget<LightweightString<wchar_t>> widget;
  widget.setDataAdaptor(adaptor);
  EXPECT_TRUE(adaptor->requestSetNewDataValue(L"12", kDataChangeAll));
  widget.typeValue(L"12");
  EXPECT_EQ(server.get(), 4);
  EXPECT_EQ(widget.shown, L"12"); // nothing came back to correct it
  adaptor->forceWidgetUpdate(kRedrawNow);
  EXPECT_EQ(widget.shown, L"4");
  server.setManager(nullptr);
}

TEST(ValClient, RegisterWithTheSameServerDoesNotSubscribeTwice) {
  ValServer<int> server;
  PhaseLoggingClient<int> client(&server);
  client.registerWith(&server);
  EXPECT_EQ(server.clientCount(), 1u);
  server = 1;
  EXPECT_EQ(client.phases, (std::vector<int>{0}));
}

TEST(ValClient, RegisterWithNullEndsTheSubscriptionAndReadsDefault) {
  ValServer<int> server(8);
  PhaseLoggingClient<int> client(&server);
  EXPECT_EQ(static_cast<int>(client), 8);
  client.registerWith(nullptr);
  EXPECT_EQ(server.clientCount(), 0u);
  EXPECT_EQ(static_cast<int>(client), 0);
  client = 3; // no server: ignored
  EXPECT_EQ(server.get(), 8);
}

TEST(ValClient, DisabledClientMissesChangesButHearsTheFarewell) {
  auto server = std::make_unique<ValServer<int>>(1);
  PhaseLoggingClient<int> client(server.get());
  client.disable();
  server->preNotifyValChanged(kDataChangeAll);
  *server = 2;
  EXPECT_TRUE(client.phases.empty());
  server.reset();
  EXPECT_EQ(client.getServer(), nullptr); // the farewell was heard and acted on
}

TEST(ValClient, ServerDestroyedWithClientsSaysFarewellOnceThenReadsDefault) {
  auto server = std::make_unique<ValServer<int>>(6);
  PhaseLoggingClient<int> client(server.get());
  Zo::Ptr<EventLog> log(new EventLog);
  Zo::Ptr<Zo::Guard> guard = server->addListener(log, any());
  guard.reset(); // so that it does not outlive the server
  auto second = std::make_unique<PhaseLoggingClient<int>>(server.get());
  server.reset();
  EXPECT_EQ(client.getServer(), nullptr);
  EXPECT_EQ(second->getServer(), nullptr);
  EXPECT_EQ(static_cast<int>(client), 0);
  client = 4; // harmless
  EXPECT_TRUE(client.phases.empty());
}

// A server that dies with its last client: the farewell is never needed.
struct CountedServer : ValServer<int> {
  explicit CountedServer(int value, int& deaths) : ValServer<int>(value), deaths(deaths) {}
  ~CountedServer() override { ++deaths; }
  int& deaths;
};

TEST(ValClient, ASharedServerLivesWhileAnyOfItsClientsDoes) {
  int deaths = 0;
  Zo::Ptr<ValServer<int>> server(new CountedServer(4, deaths));
  auto first = std::make_unique<PhaseLoggingClient<int>>();
  auto second = std::make_unique<PhaseLoggingClient<int>>();
  first->shareServer(server);
  second->shareServer(server);
  server = nullptr;
  *first = 9; // goes through the server to the other client
  EXPECT_EQ(static_cast<int>(*second), 9);
  EXPECT_EQ(second->phases, (std::vector<int>{0}));
  first.reset();
  EXPECT_EQ(deaths, 0);
  EXPECT_EQ(static_cast<int>(*second), 9);
  second.reset();
  EXPECT_EQ(deaths, 1);
}

TEST(ValClient, RegisteringElsewhereLetsAKeptServerGo) {
  int deaths = 0;
  ValServer<int> other(2);
  PhaseLoggingClient<int> client;
  client.shareServer(Zo::Ptr<ValServer<int>>(new CountedServer(1, deaths)));
  EXPECT_EQ(static_cast<int>(client), 1);
  client.registerWith(&other);
  EXPECT_EQ(deaths, 1);
  EXPECT_EQ(static_cast<int>(client), 2);
}

TEST(ValServer, FarewellCarriesPhaseTwoAndTypeFour) {
  auto server = std::make_unique<ValServer<int>>(6);
  Zo::Ptr<EventLog> log(new EventLog);
  struct Releasing : iCallbackBase<int, ValServerEvent<int>> {
    Zo::Ptr<Zo::Guard>* guard;
    std::vector<ValServerEvent<int>> heard;
    int execute(ValServerEvent<int> const& e) override {
      heard.push_back(e);
      if (e.phase == 2)
        guard->reset();
      return 0;
    }
  };
  Zo::Ptr<Zo::Guard> guard;
  Zo::Ptr<Releasing> listener(new Releasing);
  listener->guard = &guard;
  guard = server->addListener(listener, any());
  server.reset();
  ASSERT_EQ(listener->heard.size(), 1u);
  EXPECT_EQ(listener->heard[0].phase, 2);
  EXPECT_EQ(listener->heard[0].changeType, kDataChangeAll);
  EXPECT_EQ(listener->heard[0].value, 6);
}

TEST(ValServer, DyingServerReleasesItsManager) {
  ScriptedManager<int> manager;
  std::uintptr_t address;
  {
    ValServer<int> server;
    address = reinterpret_cast<std::uintptr_t>(&server);
    server.setManager(&manager);
  }
  ASSERT_EQ(manager.released.size(), 1u);
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(manager.released[0]), address);
}

TEST(ValServer, PreNotifyIsOnlySentWhenAsked) {
  ValServer<int> server;
  PhaseLoggingClient<int> client(&server);
  server = 1;
  server.preNotifyValChanged(kDataChangePartial);
  EXPECT_EQ(client.phases, (std::vector<int>{0, 1}));
}

TEST(ValServer, AssignmentFromAnotherServerCopiesItsValueAndComparesByValue) {
  ValServer<int> a(1), b(2);
  EXPECT_FALSE(a == b);
  a = b;
  EXPECT_TRUE(a == b);
}

TEST(ValServer, RemembersTheLastServerMadeOnThisThread) {
  ValServer<double> server;
  EXPECT_NE(LastValServer::getLastValServer(), nullptr);
}

TEST(ValWidget, SetDataAdaptorWithNullOnlyClearsTheBinding) {
  ValServer<bool> server(true);
  Zo::Ptr<ValAdaptor<bool, bool>> adaptor(new ValAdaptor<bool, bool>(&server));
  FakeValWidget<bool> widget;
  widget.setDataAdaptor(adaptor);
  EXPECT_EQ(widget.updates, (std::vector<eRedrawFlag>{kNoRedraw}));
  widget.setDataAdaptor(nullptr);
  EXPECT_EQ(widget.updates.size(), 1u);
  EXPECT_FALSE(widget.getDataAdaptor());
  EXPECT_TRUE(adaptor->boundWidgets().empty());
  server = false;
  EXPECT_TRUE(widget.shown); // no longer told
}

TEST(ValWidget, WithoutAdaptorAnEditIsRefused) {
  FakeValWidget<double> widget;
  EXPECT_FALSE(widget.typeValue(2.5));
  EXPECT_EQ(widget.getDataValue(), 0.0);
}

TEST(ValWidget, AdaptorOfAnotherTypeReadsAsNone) {
  ValServer<double> server;
  Zo::Ptr<ValAdaptor<double, double>> adaptor(new ValAdaptor<double, double>(&server));
  FakeValWidget<double> right;
  right.setDataAdaptor(adaptor);
  FakeValWidget<bool> wrong;
  wrong.setAdaptor(adaptor); // bound, but of the wrong type
  EXPECT_FALSE(wrong.getDataAdaptor());
  EXPECT_TRUE(right.getDataAdaptor());
}

TEST(ValWidget, RedrawsAreHeldForTheWholeRoundTrip) {
  ValServer<double> server;
  Zo::Ptr<ValAdaptor<double, double>> adaptor(new ValAdaptor<double, double>(&server));
  struct Probe : FakeValWidget<double> {
    std::vector<bool> heldWhenTold;
    void setNewWidgetValue(double& v, eRedrawFlag r) override {
      heldWhenTold.push_back(Drawable::redrawsDisabled());
      FakeValWidget<double>::setNewWidgetValue(v, r);
    }
  } widget;
  widget.setDataAdaptor(adaptor);
  widget.typeValue(1.5);
  EXPECT_EQ(widget.heldWhenTold, (std::vector<bool>{false, true}));
  EXPECT_FALSE(Drawable::redrawsDisabled());
  EXPECT_EQ(widget.updates.back(), kRedrawNow);
}

TEST(ValAdaptor, EveryBoundWidgetShowsTheServersValue) {
  ValServer<double> server(0.25);
  Zo::Ptr<ValAdaptor<double, double>> adaptor(new ValAdaptor<double, double>(&server));
  FakeValWidget<double> a, b;
  a.setDataAdaptor(adaptor);
  b.setDataAdaptor(adaptor);
  a.typeValue(0.75);
  EXPECT_EQ(a.shown, 0.75);
  EXPECT_EQ(b.shown, 0.75);
}

TEST(ValAdaptor, DoubleToIntUsesTheHostRounding) {
  ValServer<int> server;
  Zo::Ptr<ValAdaptor<double, int>> adaptor(new ValAdaptor<double, int>(&server));
  FakeValWidget<double> slider;
  slider.setDataAdaptor(adaptor);
  slider.typeValue(2.6);
  EXPECT_EQ(server.get(), ftisql(2.6));
  EXPECT_EQ(slider.shown, static_cast<double>(ftisql(2.6)));
}

TEST(ValAdaptor, TextToDoubleRoundTripsExactly) {
  ValServer<double> server;
  Zo::Ptr<ValAdaptor<LightweightString<wchar_t>, double>> adaptor(
      new ValAdaptor<LightweightString<wchar_t>, double>(&server));
  server = 0.1 + 0.2;
  FakeValWidget<LightweightString<wchar_t>> box;
  box.setDataAdaptor(adaptor);
  box.typeValue(box.shown);
  EXPECT_EQ(server.get(), 0.1 + 0.2);
}

TEST(ValAdaptor, StringIdentityReadsEmptyWithoutAServer) {
  ValAdaptor<LightweightString<wchar_t>, LightweightString<wchar_t>> adaptor(nullptr);
  EXPECT_TRUE(adaptor.getDataValue().empty());
  EXPECT_TRUE(adaptor.requestSetNewDataValue(L"x", kDataChangeAll)); // never refuses
}

} // namespace
