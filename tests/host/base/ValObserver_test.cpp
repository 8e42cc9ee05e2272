#include <zowidgets/host/base/ValObserver.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// Writes down what it was told, and the value it read each time.
class Recorder : public ValObserverClient {
public:
  explicit Recorder(ValObserver<int> const& watched) : watched_(watched) {}
  void notifyPreValChanged(ValObserverBase const&) override {
    calls.push_back("pre " + std::to_string(watched_.get()));
  }
  void notifyValChanged(ValObserverBase const&) override { calls.push_back("post " + std::to_string(watched_.get())); }
  void notifyValObserverGone(ValObserverBase const&) override { calls.push_back("gone"); }
  std::vector<std::string> calls;

private:
  ValObserver<int> const& watched_;
};

TEST(ValObserver, ClientsHearBeforeAndAfterAChange) {
  ValObserver<int> value(3);
  Recorder recorder(value);
  value.addObserver(&recorder);
  value.set(5);
  EXPECT_EQ(recorder.calls, (std::vector<std::string>{"pre 3", "post 5"}));
}

TEST(ValObserver, AnEqualValueTellsNoOne) {
  ValObserver<int> value(3);
  Recorder recorder(value);
  value.addObserver(&recorder);
  value.set(3);
  EXPECT_TRUE(recorder.calls.empty());
}

TEST(ValObserver, AClientAddedTwiceIsToldOnceAndRemovedIsToldNothing) {
  ValObserver<int> value;
  Recorder recorder(value);
  value.addObserver(&recorder);
  value.addObserver(&recorder);
  value.set(1);
  EXPECT_EQ(recorder.calls.size(), 2u);
  value.removeObserver(&recorder);
  EXPECT_FALSE(value.isObservedBy(&recorder));
  value.set(2);
  EXPECT_EQ(recorder.calls.size(), 2u);
}

TEST(ValObserver, ClientsHearWhenTheValueGoes) {
  Recorder* recorder = nullptr;
  {
    auto value = std::make_unique<ValObserver<int>>(0);
    recorder = new Recorder(*value);
    value->addObserver(recorder);
  }
  EXPECT_EQ(recorder->calls, (std::vector<std::string>{"gone"}));
  delete recorder;
}

// A client that stops observing when told; the others are told still.
class Leaver : public ValObserverClient {
public:
  explicit Leaver(ValObserverBase& from) : from_(from) {}
  void notifyPreValChanged(ValObserverBase const&) override { from_.removeObserver(this); }
  void notifyValChanged(ValObserverBase const&) override { ++posts; }
  int posts = 0;

private:
  ValObserverBase& from_;
};

TEST(ValObserver, AClientThatGoesFirstStopsObserving) {
  ValObserver<int> value;
  {
    Recorder recorder(value);
    value.addObserver(&recorder);
    EXPECT_TRUE(value.isObservedBy(&recorder));
  }
  value.set(4); // nothing left to tell
  EXPECT_EQ(value.get(), 4);
}

TEST(ValObserver, AClientMayLeaveWhileItIsTold) {
  ValObserver<int> value;
  Leaver leaver(value);
  Recorder recorder(value);
  value.addObserver(&leaver);
  value.addObserver(&recorder);
  value.set(7);
  EXPECT_EQ(leaver.posts, 0);
  EXPECT_EQ(recorder.calls, (std::vector<std::string>{"pre 0", "post 7"}));
}

} // namespace
