#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/values/notify/Broadcaster.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Owner {
  std::vector<std::string> heard;
  int onMessage(std::string const& message) {
    heard.push_back("method:" + message);
    return 0;
  }
};

struct BroadcasterTest : ::testing::Test {
  void SetUp() override { MessageLoop::runPending(); }
  void TearDown() override { MessageLoop::runPending(); }
};

TEST_F(BroadcasterTest, ImmediateEntriesRunDuringTheCallInOrder) {
  Owner owner;
  Broadcaster<std::string> broadcaster;
  broadcaster.addListener(Broadcaster<std::string>::makeCallback(&owner, &Owner::onMessage));
  broadcaster.addListener(
      Broadcaster<std::string>::makeCallback([&](std::string const& m) { owner.heard.push_back("function:" + m); }));
  broadcaster.broadcast("go");
  EXPECT_EQ(owner.heard, (std::vector<std::string>{"method:go", "function:go"}));
}

TEST_F(BroadcasterTest, DeferredAndImmediateEntriesMix) {
  Owner owner;
  Broadcaster<std::string> broadcaster;
  broadcaster.addListener(Broadcaster<std::string>::makeCallback(&owner, &Owner::onMessage, 1));
  broadcaster.addListener(
      Broadcaster<std::string>::makeCallback([&](std::string const& m) { owner.heard.push_back("now:" + m); }));
  broadcaster.broadcast("x");
  EXPECT_EQ(owner.heard, (std::vector<std::string>{"now:x"}));
  EXPECT_EQ(MessageLoop::runPending(), 1u);
  EXPECT_EQ(owner.heard, (std::vector<std::string>{"now:x", "method:x"}));
}

TEST_F(BroadcasterTest, BroadcastAsyncDefersEvenAnImmediateEntry) {
  Owner owner;
  Broadcaster<std::string> broadcaster(Broadcaster<std::string>::makeCallback(&owner, &Owner::onMessage, 0));
  broadcaster.broadcastAsync("later");
  EXPECT_TRUE(owner.heard.empty());
  MessageLoop::runPending();
  EXPECT_EQ(owner.heard, (std::vector<std::string>{"method:later"}));
}

TEST_F(BroadcasterTest, NullCallbackMakesAnEmptyBroadcaster) {
  Broadcaster<std::string> broadcaster(Broadcaster<std::string>::Callback{nullptr, 0});
  EXPECT_EQ(broadcaster.listenerCount(), 0u);
  broadcaster.broadcast("nobody");
  broadcaster.broadcastAsync("nobody");
  EXPECT_EQ(MessageLoop::pendingCount(), 0u);
}

TEST_F(BroadcasterTest, PendingAsyncDeliveryKeepsItsCallbackAlive) {
  std::vector<std::string> heard;
  {
    Broadcaster<std::string> broadcaster(
        Broadcaster<std::string>::makeCallback([&](std::string const& m) { heard.push_back(m); }));
    broadcaster.broadcastAsync("after the broadcaster died");
  }
  MessageLoop::runPending();
  EXPECT_EQ(heard, (std::vector<std::string>{"after the broadcaster died"}));
}

// Each entry is called straight through the function its wrapper holds: a
// copy of the entry keeps that wrapper, and so the function, alive.
TEST_F(BroadcasterTest, AFunctionEntryCopiedElsewhereOutlivesItsFirstBroadcaster) {
  std::vector<std::string> heard;
  Broadcaster<std::string> second;
  {
    auto entry = Broadcaster<std::string>::makeCallback([&](std::string const& m) { heard.push_back(m); });
    Broadcaster<std::string> first(entry);
    second.addListener(entry);
    first.broadcast("first");
  }
  second.broadcast("second");
  EXPECT_EQ(heard, (std::vector<std::string>{"first", "second"}));
}

// A callback of any other kind (a guard, a hand-made wrapper) is heard too,
// in its place among the others, and its replacement in an entry before it
// is added is what is called.
TEST_F(BroadcasterTest, ACallbackOfAnyKindIsHeardInItsPlace) {
  Owner owner;
  Broadcaster<std::string> broadcaster;
  auto entry = Broadcaster<std::string>::makeCallback([&](std::string const& m) { owner.heard.push_back("old:" + m); });
  entry.callback =
      Zo::Ptr<iCallbackBase<int, std::string>>(new MethodCallback<Owner, std::string>(&owner, &Owner::onMessage));
  broadcaster.addListener(
      Broadcaster<std::string>::makeCallback([&](std::string const& m) { owner.heard.push_back("function:" + m); }));
  broadcaster.addListener(entry);
  broadcaster.broadcast("go");
  EXPECT_EQ(owner.heard, (std::vector<std::string>{"function:go", "method:go"}));
  broadcaster.broadcastAsync("later");
  MessageLoop::runPending();
  EXPECT_EQ(owner.heard.back(), "method:later");
}

TEST_F(BroadcasterTest, EmptyFunctionCallbackThrowsBadFunctionCall) {
  Broadcaster<std::string>::StdFunctionCallback empty{std::function<void(std::string const&)>()};
  EXPECT_THROW(empty.execute("x"), std::bad_function_call);
  FunctionCallback<int, bool> emptyFunction{std::function<bool(int const&)>()};
  EXPECT_THROW(emptyFunction.execute(1), std::bad_function_call);
}

} // namespace
