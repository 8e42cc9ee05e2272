#include "values/notify/NotifierTestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Log = std::vector<std::string>;

struct GenericNotifierTest : ::testing::Test {
  Log log;
  GenericNotifier<int> notifier; // declared after the log: dies first

  Zo::Ptr<RecordingListener> listener(std::string name) {
    return Zo::Ptr<RecordingListener>(new RecordingListener(log, std::move(name)));
  }
  Zo::Ptr<Zo::Guard> add(Zo::Ptr<RecordingListener> const& l, int type = anyType()) {
    return notifier.addListener(l, type);
  }
};

TEST_F(GenericNotifierTest, DeliversInRegistrationOrder) {
  auto ga = add(listener("a"));
  auto gb = add(listener("b"));
  notifier.issueNotification(7, anyType());
  EXPECT_EQ(log, (Log{"a:7", "b:7"}));
}

TEST_F(GenericNotifierTest, ListenerRemovingItselfHearsThatPassOutAndNeverTheNext) {
  auto a = listener("a");
  Zo::Ptr<Zo::Guard> ga = add(a);
  auto gb = add(listener("b"));
  a->onCall = [&](int) {
    if (ga) {
      notifier.deregisterNotification(ga);
      log.push_back("a-left");
    }
  };
  a.reset();
  notifier.issueNotification(1, anyType());
  notifier.issueNotification(2, anyType());
  // a finished its own call, b still heard pass 1 in order, a's callback was
  // destroyed only once the pass had ended, and a never heard pass 2.
  EXPECT_EQ(log, (Log{"a:1", "a-left", "b:1", "a-destroyed", "b:2"}));
}

TEST_F(GenericNotifierTest, ListenerRemovingLaterListenerSkipsItInTheSamePass) {
  auto a = listener("a");
  auto ga = add(a);
  Zo::Ptr<Zo::Guard> gb = add(listener("b"));
  auto gc = add(listener("c"));
  a->onCall = [&](int) { notifier.deregisterNotification(gb); };
  notifier.issueNotification(5, anyType());
  // b was skipped, and its callback went only when the pass had ended.
  EXPECT_EQ(log, (Log{"a:5", "c:5", "b-destroyed"}));
  EXPECT_EQ(notifier.clientCount(), 2u);
}

TEST_F(GenericNotifierTest, ListenerAddedDuringDeliveryWaitsForTheNextOutermostPass) {
  auto a = listener("a");
  auto ga = add(a);
  auto late = listener("late");
  Zo::Ptr<Zo::Guard> lateGuard;
  a->onCall = [&](int message) {
    if (message == 1) {
      lateGuard = add(late);
      notifier.issueNotification(10, anyType()); // nested pass
    }
  };
  notifier.issueNotification(1, anyType());
  EXPECT_EQ(log, (Log{"a:1", "a:10"}));
  log.clear();
  notifier.issueNotification(2, anyType());
  EXPECT_EQ(log, (Log{"a:2", "late:2"}));
}

TEST_F(GenericNotifierTest, NestedIssueCompactsOnlyWhenTheOuterCallEnds) {
  auto a = listener("a");
  auto ga = add(a);
  Zo::Ptr<Zo::Guard> gb = add(listener("b"));
  std::size_t countAfterInner = 0;
  a->onCall = [&](int message) {
    if (message != 1)
      return;
    notifier.deregisterNotification(gb);
    notifier.issueNotification(2, anyType());
    countAfterInner = notifier.clientCount();
  };
  notifier.issueNotification(1, anyType());
  EXPECT_EQ(countAfterInner, 2u); // still marked, not unlinked, after the inner pass
  EXPECT_EQ(notifier.clientCount(), 1u);
  EXPECT_EQ(std::count(log.begin(), log.end(), "b:1") + std::count(log.begin(), log.end(), "b:2"), 0);
}

TEST_F(GenericNotifierTest, AnyTypeIssueReachesEveryClient) {
  auto& dictionary = NotifyMsgTypeDictionary::instance();
  int red = dictionary.lookup("red"), blue = dictionary.lookup("blue");
  auto gr = add(listener("red"), red);
  auto gb = add(listener("blue"), blue);
  auto ga = add(listener("any"), anyType());
  notifier.issueNotification(1, anyType());
  EXPECT_EQ(log, (Log{"red:1", "blue:1", "any:1"}));
}

TEST_F(GenericNotifierTest, TypedIssueReachesThatTypeAndAnyTypeClients) {
  auto& dictionary = NotifyMsgTypeDictionary::instance();
  int red = dictionary.lookup("red"), blue = dictionary.lookup("blue");
  ASSERT_NE(red, blue);
  auto gr = add(listener("red"), red);
  auto gb = add(listener("blue"), blue);
  auto ga = add(listener("any"), anyType());
  notifier.issueNotification(2, red);
  EXPECT_EQ(log, (Log{"red:2", "any:2"}));
}

TEST_F(GenericNotifierTest, ReleasingOneOfTwoGuardReferencesKeepsTheSubscription) {
  Zo::Ptr<Zo::Guard> first = add(listener("a"));
  Zo::Ptr<Zo::Guard> second = first;
  notifier.deregisterNotification(first);
  EXPECT_FALSE(first);
  notifier.issueNotification(1, anyType());
  EXPECT_EQ(log, (Log{"a:1"}));
  second.reset();
  notifier.issueNotification(2, anyType());
  EXPECT_EQ(log, (Log{"a:1", "a-destroyed"}));
}

TEST_F(GenericNotifierTest, DeregisterWithNullGuardLeavesItNull) {
  auto ga = add(listener("a"));
  Zo::Ptr<Zo::Guard> none;
  notifier.deregisterNotification(none);
  EXPECT_FALSE(none);
  EXPECT_EQ(notifier.clientCount(), 1u);
}

TEST_F(GenericNotifierTest, GuardDeregistersFromTheNotifierThatMadeIt) {
  GenericNotifier<int> other;
  Zo::Ptr<Zo::Guard> guard = add(listener("a"));
  other.deregisterNotification(guard); // made on the wrong notifier: still works
  EXPECT_EQ(notifier.clientCount(), 0u);
}

TEST_F(GenericNotifierTest, DeregisterByUnknownIdIsHarmless) {
  auto ga = add(listener("a"));
  notifier.deregisterNotification(IdStamp());
  EXPECT_EQ(notifier.clientCount(), 1u);
}

TEST_F(GenericNotifierTest, DeregisterByIdRemovesOnlyTheFirstMatch) {
  IdStamp shared;
  using Client = GenericNotifier<int>::Client;
  auto g1 = notifier.registerInternal(Client(listener("one"), anyType(), shared));
  auto g2 = notifier.registerInternal(Client(listener("two"), anyType(), shared));
  notifier.deregisterNotification(shared);
  notifier.issueNotification(3, anyType());
  EXPECT_EQ(log, (Log{"one-destroyed", "two:3"}));
}

TEST_F(GenericNotifierTest, NoListenersMeansNoDelivery) {
  notifier.issueNotification(1, anyType());
  EXPECT_TRUE(log.empty());
  EXPECT_EQ(notifier.clientCount(), 0u);
}

} // namespace

#include <zowidgets/values/notify/Notifier.h>

namespace {

struct NameLog : iCallbackBase<int, NotifyMsg> {
  std::vector<std::string> heard;
  int execute(NotifyMsg const& message) override {
    heard.emplace_back(message.name().str());
    return 0;
  }
};

TEST(Notifier, IssueByNameReachesThatNamesClientsAndAnyTypeClients) {
  Notifier notifier;
  auto& dictionary = NotifyMsgTypeDictionary::instance();
  Zo::Ptr<NameLog> detach(new NameLog), paste(new NameLog), any(new NameLog);
  auto g1 = notifier.addListener(detach, dictionary.lookup("detach"));
  auto g2 = notifier.addListener(paste, dictionary.lookup("paste"));
  auto g3 = notifier.addListener(any, dictionary.anyType());
  notifier.issueNotification(NotifyMsg("detach"));
  EXPECT_EQ(detach->heard, (std::vector<std::string>{"detach"}));
  EXPECT_TRUE(paste->heard.empty());
  EXPECT_EQ(any->heard, (std::vector<std::string>{"detach"}));
}

TEST(Notifier, AValueManagerIsItsOwnNotifier) {
  NotifyWithDisable notifier;
  EXPECT_EQ(notifier.getNotify(), &notifier);
}

} // namespace
