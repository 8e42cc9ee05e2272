#include <zowidgets/host/drawing/StandardColours.h>
#include <zowidgets/host/events/EventHandler.h>
#include <zowidgets/host/shell/Command.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

int staticCommandRuns = 0;

void runStaticCommand(Cmd::Context const&) { ++staticCommandRuns; }

// Made by this file's static initialiser after the colours it includes, as
// every module's registrars are.
Colour const blueSeenAtLoad = StandardColours::kBlue;
CommandRegistrar const staticRegistrar("CommandTest static", runStaticCommand, UIString(), UIString(),
                                       kCmdScopeApplication, MapItem());

class Payload : public iObject {
public:
  explicit Payload(std::string text) : text(std::move(text)) {}
  std::string text;
};

class OtherPayload : public iObject {};

bool hasName(std::string const& name) {
  auto names = CommandMap::commandNames();
  return std::find(names.begin(), names.end(), name) != names.end();
}

// Unregisters a test's command whatever happens in the test.
struct Unregister {
  ~Unregister() { CommandMap::unregisterCommand(name); }
  std::string name;
};

} // namespace

TEST(StandardColours, HoldTheThreeColours) {
  EXPECT_EQ(StandardColours::kBlack, Colour(0.0, 0.0, 0.0));
  EXPECT_EQ(StandardColours::kWhite, Colour(1.0, 1.0, 1.0));
  EXPECT_EQ(StandardColours::kBlue, Colour(0.18, 0.48, 0.92));
  EXPECT_EQ(blueSeenAtLoad, Colour(0.18, 0.48, 0.92));
}

TEST(CommandRegistrar, StaticRegistrarRegisteredAtLoad) {
  EXPECT_TRUE(staticRegistrar.registered());
  auto command = CommandMap::findCommand("CommandTest static");
  ASSERT_TRUE(command.has_value());
  EXPECT_EQ(command->name, "CommandTest static");
  EXPECT_EQ(command->scope, kCmdScopeApplication);
  EXPECT_EQ(command->scope, 2);
  EXPECT_TRUE(command->label.empty());
  EXPECT_TRUE(command->description.empty());
  EXPECT_TRUE(command->shortLabel.empty());
  EXPECT_EQ(command->mapItem, MapItem());
  EXPECT_EQ(command->mapItem.keyCode, 0);
  EXPECT_TRUE(hasName("CommandTest static"));
}

TEST(CommandRegistrar, KeepsTheWholePresentationRecord) {
  {
    CommandRegistrar presented("CommandTest presented", runStaticCommand, UIString(ResId(13638)),
                               UIString(ResId(13639)), kCmdScopeApplication, MapItem{33554509}, UIString(ResId(11233)));
    ASSERT_TRUE(presented.registered());
    auto command = CommandMap::findCommand("CommandTest presented");
    ASSERT_TRUE(command.has_value());
    EXPECT_EQ(command->label.resId(), 13638);
    EXPECT_EQ(command->description.resId(), 13639);
    EXPECT_EQ(command->shortLabel.resId(), 11233);
    EXPECT_EQ(command->mapItem.keyCode, 33554509);
  }
  EXPECT_FALSE(CommandMap::findCommand("CommandTest presented").has_value());
}

TEST(CommandRegistrar, StaticCommandCallableByName) {
  int before = staticCommandRuns;
  EXPECT_TRUE(CommandMap::callCommand("CommandTest static"));
  EXPECT_TRUE(CommandMap::callCommand("CommandTest static", Cmd::Context{}));
  EXPECT_EQ(staticCommandRuns, before + 2);
}

TEST(CommandRegistrar, RegistersForItsLifetime) {
  int runs = 0;
  {
    CommandRegistrar scoped(
        "CommandTest scoped", [&](Cmd::Context const&) { ++runs; }, UIString(), UIString(), kCmdScopeApplication,
        MapItem());
    EXPECT_TRUE(scoped.registered());
    EXPECT_TRUE(CommandMap::callCommand("CommandTest scoped"));
  }
  EXPECT_FALSE(CommandMap::findCommand("CommandTest scoped").has_value());
  EXPECT_FALSE(CommandMap::callCommand("CommandTest scoped"));
  EXPECT_EQ(runs, 1);
}

TEST(CommandRegistrar, DuplicateHoldsNothingAndRemovesNothing) {
  int duplicateRuns = 0;
  {
    CommandRegistrar duplicate(
        "CommandTest static", [&](Cmd::Context const&) { ++duplicateRuns; }, UIString(), UIString(), kCmdScopePanel,
        MapItem{7});
    EXPECT_FALSE(duplicate.registered());
    EXPECT_EQ(CommandMap::findCommand("CommandTest static")->scope, kCmdScopeApplication);
  }
  int before = staticCommandRuns;
  EXPECT_TRUE(CommandMap::callCommand("CommandTest static"));
  EXPECT_EQ(staticCommandRuns, before + 1);
  EXPECT_EQ(duplicateRuns, 0);
}

TEST(CommandRegistrar, NullOrEmptyNameRegistersNothing) {
  auto namesBefore = CommandMap::commandNames();
  CommandRegistrar nullName(nullptr, runStaticCommand, UIString(), UIString(), kCmdScopeApplication, MapItem());
  CommandRegistrar emptyName("", runStaticCommand, UIString(), UIString(), kCmdScopeApplication, MapItem());
  EXPECT_FALSE(nullName.registered());
  EXPECT_FALSE(emptyName.registered());
  EXPECT_EQ(CommandMap::commandNames(), namesBefore);
}

TEST(CommandMap, UnknownNameIsReported) {
  EXPECT_FALSE(CommandMap::findCommand("CommandTest no such command").has_value());
  EXPECT_FALSE(CommandMap::callCommand("CommandTest no such command"));
  EXPECT_FALSE(CommandMap::unregisterCommand("CommandTest no such command"));
  EXPECT_FALSE(CommandMap::findCommand("commandtest static").has_value());
}

TEST(CommandMap, CalleeGetsTheContext) {
  Unregister cleanup{"CommandTest context"};
  std::string seen;
  EventHandler* seenOrigin = nullptr;
  ASSERT_TRUE(CommandMap::registerCommand("CommandTest context", [&](Cmd::Context const& context) {
    auto payload = context.dataAs<Payload>();
    seen = payload ? payload->text : "no payload";
    seenOrigin = context.origin;
  }));
  EventHandler origin;
  EXPECT_TRUE(CommandMap::callCommand("CommandTest context", {&origin, Zo::make<Payload>("log 1")}));
  EXPECT_EQ(seen, "log 1");
  EXPECT_EQ(seenOrigin, &origin);
  EXPECT_TRUE(CommandMap::callCommand("CommandTest context", {nullptr, Zo::make<OtherPayload>()}));
  EXPECT_EQ(seen, "no payload");
  EXPECT_TRUE(CommandMap::callCommand("CommandTest context"));
  EXPECT_EQ(seen, "no payload");
  EXPECT_EQ(seenOrigin, nullptr);
}

TEST(CommandMap, DuplicateRegistrationIsRefused) {
  Unregister cleanup{"CommandTest twice"};
  std::vector<int> calls;
  EXPECT_TRUE(CommandMap::registerCommand("CommandTest twice", [&](Cmd::Context const&) { calls.push_back(1); }));
  EXPECT_FALSE(CommandMap::registerCommand("CommandTest twice", [&](Cmd::Context const&) { calls.push_back(2); }));
  EXPECT_TRUE(CommandMap::callCommand("CommandTest twice"));
  EXPECT_EQ(calls, std::vector<int>{1});
}

TEST(CommandMap, NameIsFreeAgainAfterUnregistering) {
  Unregister cleanup{"CommandTest again"};
  int version = 0;
  EXPECT_TRUE(CommandMap::registerCommand("CommandTest again", [&](Cmd::Context const&) { version = 1; }));
  EXPECT_TRUE(CommandMap::unregisterCommand("CommandTest again"));
  EXPECT_TRUE(CommandMap::registerCommand("CommandTest again", [&](Cmd::Context const&) { version = 2; }));
  EXPECT_TRUE(CommandMap::callCommand("CommandTest again"));
  EXPECT_EQ(version, 2);
}

TEST(CommandMap, EmptyNameOrFunctionIsRefused) {
  auto namesBefore = CommandMap::commandNames();
  EXPECT_FALSE(CommandMap::registerCommand("", runStaticCommand));
  EXPECT_FALSE(CommandMap::registerCommand("CommandTest empty", Cmd::Function()));
  void (*nullFunction)(Cmd::Context const&) = nullptr;
  EXPECT_FALSE(CommandMap::registerCommand("CommandTest empty", nullFunction));
  EXPECT_EQ(CommandMap::commandNames(), namesBefore);
}

TEST(CommandMap, KeepsThePresentation) {
  Unregister cleanup{"CommandTest shown"};
  ASSERT_TRUE(CommandMap::registerCommand("CommandTest shown", runStaticCommand, UIString(11233), UIString(L"Tip"),
                                          kCmdScopeWindow, MapItem{33554509}));
  auto command = CommandMap::findCommand("CommandTest shown");
  ASSERT_TRUE(command.has_value());
  EXPECT_EQ(command->label, UIString(11233));
  EXPECT_EQ(command->description, UIString(L"Tip"));
  EXPECT_EQ(command->scope, kCmdScopeWindow);
  EXPECT_EQ(command->mapItem.keyCode, 33554509);
}

TEST(CommandMap, NamesComeInByteOrder) {
  Unregister b{"CommandTest order b"};
  Unregister a{"CommandTest order a"};
  Unregister upper{"CommandTest order B"};
  for (auto const* name : {"CommandTest order b", "CommandTest order a", "CommandTest order B"})
    ASSERT_TRUE(CommandMap::registerCommand(name, runStaticCommand));
  auto names = CommandMap::commandNames();
  EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
  auto first = std::find(names.begin(), names.end(), "CommandTest order B");
  ASSERT_NE(first, names.end());
  ASSERT_GE(std::distance(first, names.end()), 3);
  EXPECT_EQ(std::vector<std::string>(first, first + 3),
            (std::vector<std::string>{"CommandTest order B", "CommandTest order a", "CommandTest order b"}));
}

TEST(CmdFunction, WrapsFunctionsAndFunctionObjects) {
  struct Counter {
    int* count;
    bool operator()(Cmd::Context const&) const { return ++*count > 0; }
  };
  int count = 0;
  Cmd::Function fromPointer(runStaticCommand);
  Cmd::Function fromObject(Counter{&count});
  Cmd::Function copied = fromObject;
  EXPECT_TRUE(fromPointer);
  EXPECT_FALSE(Cmd::Function());
  copied(Cmd::Context{});
  fromObject(Cmd::Context{});
  EXPECT_EQ(count, 2);
}

TEST(CommandMap, CommandMayUseTheMapWhileRunning) {
  Unregister outer{"CommandTest outer"};
  Unregister inner{"CommandTest inner"};
  bool innerRan = false;
  ASSERT_TRUE(CommandMap::registerCommand("CommandTest outer", [&](Cmd::Context const& context) {
    CommandMap::registerCommand("CommandTest inner", [&](Cmd::Context const&) { innerRan = true; });
    CommandMap::callCommand("CommandTest inner", context);
    CommandMap::unregisterCommand("CommandTest outer");
  }));
  EXPECT_TRUE(CommandMap::callCommand("CommandTest outer"));
  EXPECT_TRUE(innerRan);
  EXPECT_FALSE(CommandMap::findCommand("CommandTest outer").has_value());
}
