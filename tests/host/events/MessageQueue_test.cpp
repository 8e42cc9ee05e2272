#include <zowidgets/host/events/MessageQueue.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

struct MessageQueueTest : ::testing::Test {
  void SetUp() override { MessageLoop::runPending(); }
  void TearDown() override { MessageLoop::runPending(); }
};

struct Receiver : EventHandler {
  std::vector<std::string> messages;
  iObject* lastSender = nullptr;
  Zo::Ptr<iObject> lastData;
  int handleEvent(Event const& event) override {
    EXPECT_TRUE(event.isMessage());
    messages.push_back(event.message.str());
    lastSender = event.sender;
    lastData = event.data;
    return 1;
  }
};

TEST_F(MessageQueueTest, UIThreadIsTaskZeroAndOtherThreadsAreNot) {
  EXPECT_EQ(co_pid(), 0);
  int other = 0;
  std::thread([&] { other = co_pid(); }).join();
  EXPECT_NE(other, 0);
}

TEST_F(MessageQueueTest, DeferRunsLaterInOrder) {
  std::vector<int> order;
  defer([&] { order.push_back(1); });
  defer([&] { order.push_back(2); });
  EXPECT_TRUE(order.empty());
  EXPECT_EQ(MessageLoop::runPending(), 2u);
  EXPECT_EQ(order, (std::vector<int>{1, 2}));
}

TEST_F(MessageQueueTest, RunPendingLeavesWorkQueuedByWorkForTheNextRound) {
  int rounds = 0;
  std::function<void()> again = [&] {
    if (++rounds < 3)
      defer(again);
  };
  defer(again);
  EXPECT_EQ(MessageLoop::runPending(), 1u);
  EXPECT_EQ(rounds, 1);
  EXPECT_EQ(MessageLoop::pendingCount(), 1u);
  EXPECT_EQ(MessageLoop::runPending(), 1u);
  EXPECT_EQ(MessageLoop::runPending(), 1u);
  EXPECT_EQ(rounds, 3);
  EXPECT_EQ(MessageLoop::pendingCount(), 0u);
}

TEST_F(MessageQueueTest, DeferOfAnExecutableActionRunsIt) {
  struct Action : iExecutableAction {
    int& runs;
    explicit Action(int& r) : runs(r) {}
    void execute() override { ++runs; }
  };
  int runs = 0;
  defer(Zo::Ptr<iExecutableAction>(new Action(runs)), nullptr);
  MessageLoop::runPending();
  EXPECT_EQ(runs, 1);
}

TEST_F(MessageQueueTest, DeferUniqueKeepsOneWaitingPerKeyAndTheLatestWins) {
  std::vector<std::string> ran;
  EXPECT_TRUE(deferUnique([&] { ran.push_back("first"); }, "progress"));
  defer([&] { ran.push_back("other"); });
  EXPECT_FALSE(deferUnique([&] { ran.push_back("second"); }, "progress"));
  EXPECT_TRUE(deferUnique([&] { ran.push_back("another key"); }, "status"));
  EXPECT_EQ(MessageLoop::pendingCount(), 3u);
  MessageLoop::runPending();
  // The replacement kept the first one's place in the queue.
  EXPECT_EQ(ran, (std::vector<std::string>{"second", "other", "another key"}));
}

TEST_F(MessageQueueTest, DeferUniqueKeyIsFreeOnceItsActionRuns) {
  int runs = 0;
  std::function<void()> requeue = [&] {
    ++runs;
    if (runs == 1) {
      EXPECT_TRUE(deferUnique(requeue, "self"));
    }
  };
  deferUnique(requeue, "self");
  MessageLoop::runPending();
  MessageLoop::runPending();
  EXPECT_EQ(runs, 2);
}

TEST_F(MessageQueueTest, MessageReachesALiveHandlerWithItsData) {
  Receiver receiver;
  Zo::Ptr<iObject> data(new WrappedData<int>(5));
  sendMessageWithData("hello", &receiver, data, &*data);
  EXPECT_TRUE(receiver.messages.empty());
  MessageLoop::runPending();
  EXPECT_EQ(receiver.messages, (std::vector<std::string>{"hello"}));
  EXPECT_EQ(receiver.lastData, data);
  EXPECT_EQ(receiver.lastSender, data.get());
}

TEST_F(MessageQueueTest, MessageForAHandlerThatDiedIsDropped) {
  auto receiver = std::make_unique<Receiver>();
  sendMessageWithData("late", receiver.get(), {});
  receiver.reset();
  EXPECT_EQ(MessageLoop::runPending(), 1u); // delivered to nobody
}

TEST_F(MessageQueueTest, ValidTracksLifeAndStamp) {
  IdStamp stamp;
  {
    Receiver receiver;
    stamp = receiver.handlerStamp();
    EXPECT_TRUE(EventHandler::valid(&receiver, stamp));
    EXPECT_FALSE(EventHandler::valid(&receiver, IdStamp()));
    EXPECT_FALSE(EventHandler::valid(nullptr, stamp));
  }
  EXPECT_EQ(EventHandler::stampOf(nullptr), IdStamp::null());
}

TEST_F(MessageQueueTest, RunUntilDeliversPostsFromOtherThreads) {
  bool done = false;
  std::thread poster([&] { defer([&] { done = true; }); });
  EXPECT_TRUE(MessageLoop::runUntil([&] { return done; }, std::chrono::seconds(10)));
  poster.join();
}

TEST_F(MessageQueueTest, RunUntilGivesUpAfterTheTimeout) {
  EXPECT_FALSE(MessageLoop::runUntil([] { return false; }, std::chrono::milliseconds(20)));
}

TEST_F(MessageQueueTest, RunPendingOffTheUIThreadRunsNothing) {
  int runs = 0;
  defer([&] { ++runs; });
  std::size_t ranThere = 99;
  std::thread([&] { ranThere = MessageLoop::runPending(); }).join();
  EXPECT_EQ(ranThere, 0u);
  EXPECT_EQ(runs, 0);
  MessageLoop::runPending();
  EXPECT_EQ(runs, 1);
}

} // namespace
