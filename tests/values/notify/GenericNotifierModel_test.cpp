// Model-based property test: random sequences of joining, leaving (by id and
// by guard), nested issues and self-removal, run against the real notifier
// and against a small reference model of the delivery rules; the two must
// deliver exactly the same messages to the same clients in the same order.
#include <zowidgets/values/notify/GenericNotifier.h>

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace {

using Log = std::vector<std::string>;
using DeliveryHook = std::function<void(int client, int message)>;

// The rules, stated plainly: a client joined during delivery is not
// deliverable until the outermost delivery ends; a client that leaves during
// delivery is skipped from that moment and unlinked when the outermost
// delivery ends; outside delivery, leaving unlinks at once.
class ModelNotifier {
public:
  explicit ModelNotifier(int any) : any_(any) {}
  DeliveryHook onDeliver;

  int add(int type) {
    int client = static_cast<int>(guardRefs_.size());
    entries_.push_back({client, type, depth_ > 0, false});
    guardRefs_.push_back({true, true});
    return client;
  }
  void removeById(int client) {
    for (std::size_t i = 0; i < entries_.size(); ++i) {
      if (entries_[i].client != client)
        continue;
      if (depth_ == 0)
        entries_.erase(entries_.begin() + static_cast<long>(i));
      else
        entries_[i].leaving = true;
      return;
    }
  }
  void dropGuardRef(int client, int which) {
    auto& refs = guardRefs_[client];
    if (!refs[which])
      return;
    refs[which] = false;
    if (!refs[0] && !refs[1])
      removeById(client);
  }
  void issue(int message, int type) {
    ++depth_;
    for (std::size_t i = 0; i < entries_.size(); ++i) { // entries may grow during the walk
      Entry const e = entries_[i];
      if (e.joining || e.leaving)
        continue;
      if (e.type == any_ || type == any_ || e.type == type)
        onDeliver(e.client, message);
    }
    if (--depth_ == 0) {
      std::erase_if(entries_, [](Entry const& e) { return e.leaving; });
      for (Entry& e : entries_)
        e.joining = false;
    }
  }
  std::size_t size() const { return entries_.size(); }
  bool hasLiveGuard(int client) const { return guardRefs_[client][0] || guardRefs_[client][1]; }
  int clientCountEver() const { return static_cast<int>(guardRefs_.size()); }

private:
  struct Entry {
    int client;
    int type;
    bool joining;
    bool leaving;
  };
  int any_;
  int depth_ = 0;
  std::vector<Entry> entries_;
  std::vector<std::array<bool, 2>> guardRefs_; // which of the two guard references are held
};

// The real notifier behind the same interface. Each client's guard is held
// twice, so that dropping one reference must not end the subscription.
class RealNotifier {
public:
  explicit RealNotifier(int) {}
  DeliveryHook onDeliver;

  int add(int type) {
    int client = static_cast<int>(guards_.size());
    auto callback = Zo::Ptr<iCallbackBase<int, int>>(new FunctionCallback<int, int>([this, client](int const& m) {
      onDeliver(client, m);
      return 0;
    }));
    IdStamp id;
    ids_.push_back(id);
    Zo::Ptr<Zo::Guard> guard = notifier_.registerInternal(GenericNotifier<int>::Client(callback, type, id));
    guards_.push_back({guard, guard});
    return client;
  }
  void removeById(int client) { notifier_.deregisterNotification(ids_[client]); }
  void dropGuardRef(int client, int which) { notifier_.deregisterNotification(guards_[client][which]); }
  void issue(int message, int type) { notifier_.issueNotification(message, type); }
  std::size_t size() const { return notifier_.clientCount(); }
  bool hasLiveGuard(int client) const { return guards_[client][0] || guards_[client][1]; }
  int clientCountEver() const { return static_cast<int>(guards_.size()); }

private:
  GenericNotifier<int> notifier_; // declared first: outlives the guards below
  std::vector<IdStamp> ids_;
  std::vector<std::array<Zo::Ptr<Zo::Guard>, 2>> guards_;
};

// One random scenario, driven identically on either system: the same seed
// gives the same choices as long as the deliveries agree.
template <class System> Log runScenario(unsigned seed, int steps) {
  auto& dictionary = NotifyMsgTypeDictionary::instance();
  int const any = dictionary.anyType();
  int const types[] = {any, dictionary.lookup("model-red"), dictionary.lookup("model-blue")};
  std::mt19937 rng(seed);
  auto pick = [&](int n) { return static_cast<int>(rng() % static_cast<unsigned>(n)); };
  System system(any);
  Log log;
  int depth = 0;
  int nextMessage = 0;

  auto issue = [&] {
    int message = nextMessage++;
    int type = types[pick(3)];
    ++depth;
    system.issue(message, type);
    --depth;
  };
  auto randomClient = [&]() { return pick(system.clientCountEver()); };
  auto dropRef = [&](int client) {
    if (system.hasLiveGuard(client))
      system.dropGuardRef(client, pick(2));
  };

  system.onDeliver = [&](int client, int message) {
    log.push_back(std::to_string(client) + ":" + std::to_string(message));
    switch (pick(10)) {
    case 0:
      log.push_back(std::to_string(client) + " leaves");
      system.removeById(client);
      break;
    case 1:
      dropRef(randomClient());
      break;
    case 2:
      system.removeById(randomClient());
      break;
    case 3:
      system.add(types[pick(3)]);
      break;
    case 4:
      if (depth < 4)
        issue();
      break;
    default:
      break;
    }
  };

  system.add(types[0]);
  for (int step = 0; step < steps; ++step) {
    switch (pick(20)) {
    case 0:
    case 1:
    case 2:
    case 3:
    case 4:
    case 5:
      system.add(types[pick(3)]);
      break;
    case 6:
    case 7:
    case 8:
      system.removeById(randomClient());
      break;
    case 9:
    case 10:
    case 11:
    case 12:
      dropRef(randomClient());
      break;
    default:
      issue();
      break;
    }
    log.push_back("size " + std::to_string(system.size()));
  }
  return log;
}

// Where two logs part, with a little context; empty when they agree.
std::string firstDifference(Log const& actual, Log const& expected) {
  std::size_t i = 0;
  while (i < actual.size() && i < expected.size() && actual[i] == expected[i])
    ++i;
  if (i == actual.size() && i == expected.size())
    return "";
  std::string out = "at entry " + std::to_string(i) + ", after";
  for (std::size_t k = i > 6 ? i - 6 : 0; k < i; ++k)
    out += " [" + actual[k] + "]";
  out += ": actual [" + (i < actual.size() ? actual[i] : "end") + "] expected [" +
         (i < expected.size() ? expected[i] : "end") + "]";
  return out;
}

TEST(GenericNotifierModel, ThousandsOfRandomSequencesMatchTheReferenceModel) {
  int deliveriesChecked = 0;
  for (unsigned seed = 1; seed <= 2000; ++seed) {
    Log expected = runScenario<ModelNotifier>(seed, 60);
    Log actual = runScenario<RealNotifier>(seed, 60);
    ASSERT_EQ(firstDifference(actual, expected), "") << "seed " << seed;
    deliveriesChecked += static_cast<int>(expected.size());
  }
  EXPECT_GT(deliveriesChecked, 100000); // the scenarios really exercised delivery
}

} // namespace
