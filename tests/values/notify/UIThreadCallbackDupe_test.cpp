#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/values/notify/UIThreadCallbackDupe.h>

#include <gtest/gtest.h>

#include <memory>
#include <thread>

namespace {

struct Widget : EventHandler {
  int heard = 0;
  int lastMessage = -1;
  int onMessage(int const& message) {
    ++heard;
    lastMessage = message;
    return 42;
  }
};

using Dupe = UIThreadCallbackDupe<int>;

Zo::Ptr<iCallbackBase<int, int>> callbackOn(Widget* widget) {
  return Zo::Ptr<iCallbackBase<int, int>>(new MethodCallback<Widget, int, int>(widget, &Widget::onMessage));
}

struct UIThreadCallbackDupeTest : ::testing::Test {
  void SetUp() override { MessageLoop::runPending(); }
};

TEST_F(UIThreadCallbackDupeTest, OnTheUIThreadCallsTheTargetAtOnceAndReturnsItsResult) {
  Widget widget;
  auto dupe = Dupe::guarded(callbackOn(&widget), &widget);
  EXPECT_EQ(dupe->execute(7), 42);
  EXPECT_EQ(widget.heard, 1);
  EXPECT_EQ(MessageLoop::pendingCount(), 0u);
}

TEST_F(UIThreadCallbackDupeTest, AlwaysDeferGoesThroughTheQueueEvenOnTheUIThread) {
  Widget widget;
  Zo::Ptr<Dupe> dupe(new Dupe(callbackOn(&widget)));
  dupe->alwaysDefer = true;
  EXPECT_EQ(dupe->execute(3), 0);
  EXPECT_EQ(widget.heard, 0);
  MessageLoop::runPending();
  EXPECT_EQ(widget.lastMessage, 3);
}

TEST_F(UIThreadCallbackDupeTest, FromAnotherThreadReturnsZeroAndDeliversLaterOnTheUIThread) {
  Widget widget;
  auto dupe = Dupe::guarded(callbackOn(&widget), &widget);
  int result = -1;
  std::thread worker([&] { result = dupe->execute(11); });
  worker.join();
  EXPECT_EQ(result, 0);
  EXPECT_EQ(widget.heard, 0);
  MessageLoop::runPending();
  EXPECT_EQ(widget.heard, 1);
  EXPECT_EQ(widget.lastMessage, 11);
}

TEST_F(UIThreadCallbackDupeTest, NeverDeliversToAWidgetThatDiedInBetween) {
  auto widget = std::make_unique<Widget>();
  int calls = 0;
  auto target = Zo::Ptr<iCallbackBase<int, int>>(new FunctionCallback<int, int>([&](int const&) { return ++calls; }));
  auto dupe = Dupe::guarded(target, widget.get());
  std::thread worker([&] { dupe->execute(5); });
  worker.join();
  widget.reset(); // between the call and its delivery
  EXPECT_EQ(MessageLoop::runPending(), 1u);
  EXPECT_EQ(calls, 0);
}

TEST_F(UIThreadCallbackDupeTest, ANewHandlerAtTheSameAddressIsNotTheOldOne) {
  alignas(Widget) unsigned char storage[sizeof(Widget)];
  auto* first = new (storage) Widget;
  EventHandlerExistenceCheck<int> check(first);
  EXPECT_EQ(check.execute(0), 1);
  first->~Widget();
  EXPECT_EQ(check.execute(0), 0);
  auto* second = new (storage) Widget;
  EXPECT_EQ(check.execute(0), 0);
  second->~Widget();
}

TEST_F(UIThreadCallbackDupeTest, PreCheckRunsOnTheCallingThreadAndCanDrop) {
  Widget widget;
  Zo::Ptr<Dupe> dupe(new Dupe(callbackOn(&widget)));
  dupe->preCheck = Zo::Ptr<iCallbackBase<int, int>>(
      new FunctionCallback<int, int>([](int const& message) { return message > 0 ? 1 : 0; }));
  EXPECT_EQ(dupe->execute(-1), 0);
  EXPECT_EQ(dupe->execute(2), 42);
  EXPECT_EQ(widget.heard, 1);
}

TEST_F(UIThreadCallbackDupeTest, QueuedCallKeepsTheDupeAlive) {
  Widget widget;
  std::thread worker([&] {
    auto dupe = Dupe::guarded(callbackOn(&widget), &widget);
    dupe->execute(9);
  }); // the worker's only handle is gone before delivery
  worker.join();
  MessageLoop::runPending();
  EXPECT_EQ(widget.lastMessage, 9);
}

} // namespace
