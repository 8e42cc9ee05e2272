#include "support/WidgetTestSupport.h"

#include <vector>

namespace {

// A widget that logs what reached it and can be told to use or pass events.
class Probe : public Glob {
public:
  Probe(XY<int> size, std::vector<std::string>& log, std::string name, bool uses = true)
      : Glob(GlobCreationInfo(size)), log_(log), name_(std::move(name)), uses_(uses) {}
  int react(Event const& event) override {
    switch (event.type) {
    case Event::kMouseDown:
      log_.push_back(name_ + " down " + std::to_string(event.position.x) + "," + std::to_string(event.position.y));
      break;
    case Event::kMouseUp:
      log_.push_back(name_ + " up");
      break;
    case Event::kMouseMove:
      if (event.buttons)
        log_.push_back(name_ + " drag " + std::to_string(event.position.x));
      break;
    case Event::kMouseEnter:
      log_.push_back(name_ + " enter");
      return 1;
    case Event::kMouseLeave:
      log_.push_back(name_ + " leave");
      return 1;
    case Event::kKeyDown:
      log_.push_back(name_ + " key " + std::to_string(event.key));
      if ((event.key & ~kKeyModifierMask) == kKeyTab)
        return 0; // like most widgets, leaves Tab to the panel
      break;
    case Event::kTextInput:
      log_.push_back(name_ + " text " + event.text.str());
      break;
    case Event::kFocusIn:
      log_.push_back(name_ + " focus in");
      return 1;
    case Event::kFocusOut:
      log_.push_back(name_ + " focus out");
      return 1;
    default:
      return 0;
    }
    return uses_ ? 1 : 0;
  }
  int contextCursor(XY<int>) const override { return cursor; }
  int cursor = 0;

private:
  std::vector<std::string>& log_;
  std::string name_;
  bool uses_;
};

struct GlobInputTest : HeadlessScreenTest {
  std::vector<std::string> log;
  StandardPanel* panel = nullptr;
  Probe* left = nullptr;
  Probe* right = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(200, 100), XY<int>(300, 300));
    left = static_cast<Probe*>(panel->addChild(new Probe(XY<int>(50, 40), log, "left"), Glob::UserBottomLeft(0, 0)));
    right = static_cast<Probe*>(panel->addChild(new Probe(XY<int>(50, 40), log, "right"), Glob::RightOf(10)));
  }
};

TEST_F(GlobInputTest, AClickReachesTheWidgetUnderThePointerInItsOwnCoordinates) {
  HeadlessInput::click(HeadlessInput::pointOn(*right, XY<int>(5, 6)));
  EXPECT_NE(std::find(log.begin(), log.end(), "right down 5,6"), log.end());
  EXPECT_NE(std::find(log.begin(), log.end(), "right up"), log.end());
  EXPECT_EQ(std::count_if(log.begin(), log.end(), [](auto const& l) { return l.rfind("left down", 0) == 0; }), 0);
}

TEST_F(GlobInputTest, UnusedEventsGoUpToTheParent) {
  std::vector<std::string> parentLog;
  auto* outer =
      static_cast<Probe*>(panel->addChild(new Probe(XY<int>(60, 50), parentLog, "outer"), Glob::UserTopRight(0, 0)));
  outer->addChild(new Probe(XY<int>(20, 20), log, "inner", false), Glob::Centre(0, 0));
  HeadlessInput::clickOn(*outer);
  EXPECT_NE(std::find(log.begin(), log.end(), "inner down 10,10"), log.end());
  EXPECT_NE(std::find(parentLog.begin(), parentLog.end(), "outer down 30,25"), parentLog.end());
}

TEST_F(GlobInputTest, APressCapturesThePointerUntilRelease) {
  XY<int> start = HeadlessInput::pointOn(*left, XY<int>(10, 10));
  XY<int> overRight = HeadlessInput::pointOn(*right, XY<int>(10, 10));
  HeadlessInput::drag(start, overRight, 2);
  // The drag's moves and release all went to the widget that took the press,
  // in its coordinates, even over the other widget.
  std::vector<std::string> expected{"left down 10,10", "left drag " + std::to_string(10 + 30),
                                    "left drag " + std::to_string(10 + 60), "left up"};
  std::vector<std::string> mouse;
  for (auto const& line : log)
    if (line.find("enter") == std::string::npos && line.find("leave") == std::string::npos)
      mouse.push_back(line);
  EXPECT_EQ(mouse, expected);
  EXPECT_EQ(InputRouter::mouseCapture(), nullptr);
}

TEST_F(GlobInputTest, HoverSendsLeaveAndEnter) {
  HeadlessInput::moveTo(HeadlessInput::pointOn(*left));
  HeadlessInput::moveTo(HeadlessInput::pointOn(*right));
  EXPECT_EQ(log, (std::vector<std::string>{"left enter", "left leave", "right enter"}));
}

TEST_F(GlobInputTest, TheCursorFollowsTheWidgetUnderThePointer) {
  right->cursor = 21;
  HeadlessInput::moveTo(HeadlessInput::pointOn(*right));
  EXPECT_EQ(screen().cursor(), 21);
  HeadlessInput::moveTo(HeadlessInput::pointOn(*left));
  EXPECT_EQ(screen().cursor(), 0);
}

TEST_F(GlobInputTest, TheFrontWindowGetsTheClickWhereWindowsOverlap) {
  std::vector<std::string> frontLog;
  StandardPanel* front = openPanel(XY<int>(100, 100), XY<int>(290, 290));
  front->addChild(new Probe(XY<int>(100, 100), frontLog, "front"), Glob::BottomLeft(0, 0));
  HeadlessInput::click(HeadlessInput::pointOn(*left, XY<int>(20, 20)));
  EXPECT_FALSE(frontLog.empty());
  EXPECT_EQ(std::count_if(log.begin(), log.end(), [](auto const& l) { return l.rfind("left down", 0) == 0; }), 0);
}

TEST_F(GlobInputTest, AModalWindowRefusesInputToOtherWindows) {
  StandardPanel* dialog = openPanel(XY<int>(100, 60), XY<int>(800, 600));
  std::vector<std::string> dialogLog;
  auto* ok = dialog->addChild(new Probe(XY<int>(40, 20), dialogLog, "ok"), Glob::Centre(0, 0));
  GlobManager::addModalGlob(dialog);
  HeadlessInput::clickOn(*left);
  EXPECT_TRUE(log.empty() ||
              std::none_of(log.begin(), log.end(), [](auto const& l) { return l.find("down") != std::string::npos; }));
  HeadlessInput::clickOn(*ok);
  EXPECT_FALSE(dialogLog.empty());
  GlobManager::removeModalGlob(dialog);
  HeadlessInput::clickOn(*left);
  EXPECT_TRUE(std::any_of(log.begin(), log.end(), [](auto const& l) { return l.rfind("left down", 0) == 0; }));
}

TEST_F(GlobInputTest, KeysGoToTheFocusAndTabMovesIt) {
  left->setCanBeIt(true);
  right->setCanBeIt(true);
  HeadlessInput::clickOn(*left); // a click on a focusable widget takes the focus
  EXPECT_EQ(get_kbd_focus(), left);
  HeadlessInput::typeText("a");
  EXPECT_NE(std::find(log.begin(), log.end(), "left text a"), log.end());
  log.clear();
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), right);
  EXPECT_EQ(log[0], "left key 9"); // offered to the focus first, then passed on
  HeadlessInput::key(kKeyTab, kKeyShift);
  EXPECT_EQ(get_kbd_focus(), left);
}

TEST_F(GlobInputTest, TabWithNothingFocusedEntersTheFrontWindowAtItsFirstOrLastStop) {
  left->setCanBeIt(true);
  right->setCanBeIt(true);
  ASSERT_EQ(get_kbd_focus(), nullptr);
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), left);
  EXPECT_NE(std::find(log.begin(), log.end(), "left focus in"), log.end());
  set_kbd_focus(nullptr);
  HeadlessInput::key(kKeyTab, kKeyShift);
  EXPECT_EQ(get_kbd_focus(), right);
  // A panel's own tab order decides where Tab enters.
  set_kbd_focus(nullptr);
  panel->tabOrder().addTabStop(*right, 1);
  panel->tabOrder().addTabStop(*left, 2);
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), right);
}

TEST_F(GlobInputTest, APressInAnotherPanelWithNothingToFocusSendsTheKeysToThatPanel) {
  left->setCanBeIt(true);
  HeadlessInput::clickOn(*left);
  ASSERT_EQ(get_kbd_focus(), left);
  StandardPanel* other = openPanel(XY<int>(120, 80), XY<int>(700, 300));
  auto* inOther =
      static_cast<Probe*>(other->addChild(new Probe(XY<int>(40, 30), log, "other"), Glob::UserTopLeft(0, 0)));
  HeadlessInput::clickOn(*inOther); // cannot take the keyboard
  EXPECT_EQ(get_kbd_focus(), nullptr);
  EXPECT_NE(std::find(log.begin(), log.end(), "left focus out"), log.end());
  log.clear();
  HeadlessInput::typeText("a");
  EXPECT_EQ(std::find(log.begin(), log.end(), "left text a"), log.end()) << "the panel left behind hears no keys";
  HeadlessInput::clickOn(*right); // within the focus's own panel it stays
  HeadlessInput::clickOn(*left);
  HeadlessInput::clickOn(*right);
  EXPECT_EQ(get_kbd_focus(), left);
}

// A top-level window of a given kind, for the windows that must not take
// the keyboard.
class WindowOfKind : public StandardPanel {
public:
  WindowOfKind(XY<int> size, eWindowKind kind) : StandardPanel(argsFor(size)), kind_(kind) {}
  eWindowKind windowKind() const override { return kind_; }

private:
  static InitArgs argsFor(XY<int> size) {
    InitArgs args(size);
    args.screenPosition = XY<int>(600, 600);
    return args;
  }
  eWindowKind kind_;
};

TEST_F(GlobInputTest, AWindowShownTakesTheKeyboardAndGivesItBackWhenItCloses) {
  left->setCanBeIt(true);
  HeadlessInput::clickOn(*left);
  ASSERT_EQ(get_kbd_focus(), left);
  StandardPanel* shown = openPanel(XY<int>(120, 80), XY<int>(700, 300));
  auto* inShown =
      static_cast<Probe*>(shown->addChild(new Probe(XY<int>(40, 30), log, "shown"), Glob::UserTopLeft(0, 0)));
  inShown->setCanBeIt(true);
  EXPECT_EQ(get_kbd_focus(), nullptr) << "the widget of the window behind keeps no keys";
  EXPECT_NE(std::find(log.begin(), log.end(), "left focus out"), log.end());
  log.clear();
  HeadlessInput::key(' ');
  EXPECT_EQ(std::find(log.begin(), log.end(), "left key 32"), log.end()) << "the old focus hears no keys";
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), inShown) << "Tab enters the window shown";
  GlobManager::requestDeletion(shown);
  pump();
  EXPECT_EQ(get_kbd_focus(), left) << "back where it was before the window came";
}

TEST_F(GlobInputTest, AWindowTheDesktopActivatesGetsTheKeysAtItsOwnLastWidget) {
  left->setCanBeIt(true);
  HeadlessInput::clickOn(*left);
  StandardPanel* page = openPanel(XY<int>(120, 80), XY<int>(700, 300));
  auto* onPage = static_cast<Probe*>(page->addChild(new Probe(XY<int>(40, 30), log, "page"), Glob::UserTopLeft(0, 0)));
  onPage->setCanBeIt(true);
  HeadlessInput::clickOn(*onPage);
  ASSERT_EQ(get_kbd_focus(), onPage);

  // A window manager makes the first window the active one again.
  InputRouter::windowActivated(panel);
  EXPECT_EQ(get_kbd_focus(), left);
  EXPECT_EQ(Canvas::stack().back(), panel->canvas()) << "in front";
  log.clear();
  HeadlessInput::key(' ');
  EXPECT_NE(std::find(log.begin(), log.end(), "left key 32"), log.end());
  EXPECT_EQ(std::find(log.begin(), log.end(), "page key 32"), log.end()) << "the window behind hears no keys";

  InputRouter::windowActivated(page);
  EXPECT_EQ(get_kbd_focus(), onPage);
  InputRouter::windowActivated(page);
  EXPECT_EQ(get_kbd_focus(), onPage) << "activated again, nothing moves";
}

TEST_F(GlobInputTest, AWindowActivatedThatNeverHadTheKeysGivesThemToItsFirstStop) {
  right->setCanBeIt(true);
  HeadlessInput::clickOn(*right);
  StandardPanel* other = openPanel(XY<int>(120, 80), XY<int>(700, 300));
  auto* first = static_cast<Probe*>(other->addChild(new Probe(XY<int>(40, 30), log, "first"), Glob::UserTopLeft(0, 0)));
  first->setCanBeIt(true);
  InputRouter::windowActivated(panel); // back to the first window
  ASSERT_EQ(get_kbd_focus(), right);
  InputRouter::windowActivated(other);
  EXPECT_EQ(get_kbd_focus(), first) << "no widget of it ever had the keys: its first stop";
}

TEST_F(GlobInputTest, AWindowAModalWindowBlocksIsNotActivated) {
  left->setCanBeIt(true);
  StandardPanel* dialogue = openPanel(XY<int>(120, 80), XY<int>(700, 300));
  auto* answer =
      static_cast<Probe*>(dialogue->addChild(new Probe(XY<int>(40, 30), log, "answer"), Glob::UserTopLeft(0, 0)));
  answer->setCanBeIt(true);
  HeadlessInput::clickOn(*answer);
  GlobManager::addModalGlob(dialogue);
  InputRouter::windowActivated(panel);
  EXPECT_EQ(get_kbd_focus(), answer);
  GlobManager::removeModalGlob(dialogue);
}

TEST_F(GlobInputTest, AWindowHiddenGivesTheKeyboardBackUnlessItWentElsewhere) {
  left->setCanBeIt(true);
  right->setCanBeIt(true);
  HeadlessInput::clickOn(*left);
  StandardPanel* shown = openPanel(XY<int>(120, 80), XY<int>(700, 300));
  shown->canvas()->unmap();
  EXPECT_EQ(get_kbd_focus(), left);
  shown->canvas()->map();
  EXPECT_EQ(get_kbd_focus(), nullptr);
  HeadlessInput::clickOn(*right); // the user took it elsewhere meanwhile
  GlobManager::requestDeletion(shown);
  pump();
  EXPECT_EQ(get_kbd_focus(), right);
}

TEST_F(GlobInputTest, AWindowShownFromAnotherHandsTheKeyboardToTheFirstWhenBothGo) {
  left->setCanBeIt(true);
  HeadlessInput::clickOn(*left);
  StandardPanel* second = openPanel(XY<int>(120, 80), XY<int>(700, 300));
  auto* inSecond =
      static_cast<Probe*>(second->addChild(new Probe(XY<int>(40, 30), log, "second"), Glob::UserTopLeft(0, 0)));
  inSecond->setCanBeIt(true);
  HeadlessInput::clickOn(*inSecond);
  ASSERT_EQ(get_kbd_focus(), inSecond);
  StandardPanel* third = openPanel(XY<int>(120, 80), XY<int>(900, 300));
  GlobManager::requestDeletion(second); // the one it was taken from goes first
  pump();
  EXPECT_EQ(get_kbd_focus(), nullptr);
  GlobManager::requestDeletion(third);
  pump();
  EXPECT_EQ(get_kbd_focus(), left);
}

TEST_F(GlobInputTest, PopupsAndTipsShownLeaveTheKeyboardWhereItIs) {
  left->setCanBeIt(true);
  HeadlessInput::clickOn(*left);
  for (auto kind : {Glob::eWindowKind::kPopupMenu, Glob::eWindowKind::kTip}) {
    auto* popup = new WindowOfKind(XY<int>(60, 40), kind);
    GlobManager::realize(popup);
    EXPECT_EQ(get_kbd_focus(), left);
    GlobManager::requestDeletion(popup);
    pump();
    EXPECT_EQ(get_kbd_focus(), left);
  }
}

TEST_F(GlobInputTest, AWidgetOfAPopupClickedForTheKeyboardGivesItBackWhenThePopupGoes) {
  left->setCanBeIt(true);
  HeadlessInput::clickOn(*left);
  auto* popup = new WindowOfKind(XY<int>(60, 40), Glob::eWindowKind::kPopupMenu);
  auto* inPopup =
      static_cast<Probe*>(popup->addChild(new Probe(XY<int>(20, 20), log, "popup"), Glob::UserTopLeft(0, 0)));
  inPopup->setCanBeIt(true);
  GlobManager::realize(popup);
  ASSERT_EQ(get_kbd_focus(), left);
  HeadlessInput::clickOn(*inPopup);
  ASSERT_EQ(get_kbd_focus(), inPopup);
  GlobManager::requestDeletion(popup);
  pump();
  EXPECT_EQ(get_kbd_focus(), left);
}

TEST_F(GlobInputTest, AFocusedWidgetPutOutOfUseHandsTheKeyboardOnAsTabWould) {
  left->setCanBeIt(true);
  right->setCanBeIt(true);
  HeadlessInput::clickOn(*left);
  ASSERT_EQ(get_kbd_focus(), left);
  left->setActive(false, kRedrawNow);
  EXPECT_EQ(get_kbd_focus(), right);
  right->setActive(false, kRedrawNow);
  EXPECT_EQ(get_kbd_focus(), nullptr) << "nowhere left to go";
}

TEST_F(GlobInputTest, APanelTabOrderOverridesTreeOrder) {
  auto* third = static_cast<Probe*>(panel->addChild(new Probe(XY<int>(20, 20), log, "third", false), Glob::RightOf(5)));
  for (Probe* p : {left, right, third})
    p->setCanBeIt(true);
  panel->tabOrder().addTabStop(*third, 1);
  panel->tabOrder().addTabStop(*left, 2);
  panel->tabOrder().addTabStop(*right, 3);
  set_kbd_focus(third);
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), left);
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), right);
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), third); // wraps
  right->setVisible(false);
  HeadlessInput::key(kKeyTab, kKeyShift);
  EXPECT_EQ(get_kbd_focus(), left); // hidden stops are skipped
}

TEST_F(GlobInputTest, APanelsOnlyTabStopLetsTabGoOnThroughTheWindow) {
  StandardPanel::InitArgs args(XY<int>(40, 40));
  auto* inner = panel->createWidget<StandardPanel>(args, Glob::RightOf(5));
  auto* only = static_cast<Probe*>(inner->addChild(new Probe(XY<int>(20, 20), log, "only", false), Glob::Centre(0, 0)));
  for (Probe* p : {left, right, only})
    p->setCanBeIt(true);
  inner->tabOrder().addTabStop(*only, 1);
  set_kbd_focus(only);
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), left); // past the window's last, its first
  set_kbd_focus(only);
  HeadlessInput::key(kKeyTab, kKeyShift);
  EXPECT_EQ(get_kbd_focus(), right);
}

TEST_F(GlobInputTest, TabLeavesAPanelWithinTheWindowPastItsLastStopAndShiftTabPastItsFirst) {
  StandardPanel::InitArgs args(XY<int>(60, 40));
  auto* inner = panel->createWidget<StandardPanel>(args, Glob::RightOf(5));
  auto* box =
      static_cast<Probe*>(inner->addChild(new Probe(XY<int>(20, 20), log, "box", false), Glob::UserTopLeft(0, 0)));
  auto* clear = static_cast<Probe*>(inner->addChild(new Probe(XY<int>(20, 20), log, "clear", false), Glob::RightOf(2)));
  for (Probe* p : {left, right, box, clear})
    p->setCanBeIt(true);
  inner->tabOrder().addTabStop(*box, 1);
  inner->tabOrder().addTabStop(*clear, 2);
  set_kbd_focus(box);
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), clear) << "within the panel by its order";
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), left) << "past its last stop, on through the window (and round it)";
  set_kbd_focus(box);
  HeadlessInput::key(kKeyTab, kKeyShift);
  EXPECT_EQ(get_kbd_focus(), right) << "Shift-Tab past its first, back through the window";
  // A window's own order wraps round, once the panel within it, which is
  // not among its stops, has been through.
  panel->tabOrder().addTabStop(*left, 1);
  panel->tabOrder().addTabStop(*right, 2);
  set_kbd_focus(right);
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), box);
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), clear);
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), left);
}

TEST_F(GlobInputTest, WidgetsBesideAPanelsStopsAreVisitedInTreeOrderAroundThem) {
  // A button made before the ordered rows, two after: none is a stop.
  auto* before =
      static_cast<Probe*>(panel->addChild(new Probe(XY<int>(20, 20), log, "before", false), Glob::RightOf(5)));
  auto* row = static_cast<Probe*>(panel->addChild(new Probe(XY<int>(20, 20), log, "row", false), Glob::RightOf(5)));
  auto* after = static_cast<Probe*>(panel->addChild(new Probe(XY<int>(20, 20), log, "after", false), Glob::RightOf(5)));
  for (Probe* p : {left, right, before, row, after})
    p->setCanBeIt(true);
  // left and right come first in the tree; the stops are row, then left.
  panel->tabOrder().addTabStop(*row, 1);
  panel->tabOrder().addTabStop(*left, 2);
  set_kbd_focus(row);
  std::vector<Glob*> visited;
  for (int i = 0; i < 5; ++i) {
    HeadlessInput::key(kKeyTab);
    visited.push_back(get_kbd_focus());
  }
  EXPECT_EQ(visited, (std::vector<Glob*>{left, right, before, after, row}))
      << "the stops by their order, then the others in tree order, round again";
  HeadlessInput::key(kKeyTab, kKeyShift);
  EXPECT_EQ(get_kbd_focus(), after);
}

// A widget of two focusable parts that lends them to its owner's order.
class TwoPartHost : public Glob, public TabOrderableHost {
public:
  TwoPartHost(Probe* first, Probe* second) : Glob(GlobCreationInfo(XY<int>(1, 1))), first_(first), second_(second) {}
  void getTabOrderables(std::vector<TabOrderable*>& into) override {
    into.push_back(first_);
    into.push_back(second_);
  }

private:
  Probe* first_;
  Probe* second_;
};

TEST_F(GlobInputTest, AHostsPartsTakeTheirPlaceInItsOwnersTabOrder) {
  auto* third = static_cast<Probe*>(panel->addChild(new Probe(XY<int>(20, 20), log, "third", false), Glob::RightOf(5)));
  for (Probe* p : {left, right, third})
    p->setCanBeIt(true);
  TwoPartHost host(right, left);
  panel->tabOrder().addTabStop(*third, 2);
  panel->tabOrder().addTabStops(host, 1);
  set_kbd_focus(third);
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), right); // the host's order, before the later stop
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), left);
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), third);
}

TEST_F(GlobInputTest, TabStopsCanBeSteppedWithoutAKey) {
  left->setCanBeIt(true);
  right->setCanBeIt(true);
  EXPECT_FALSE(TabOrderManager::incrementTabStop()); // nothing has the focus
  set_kbd_focus(left);
  EXPECT_TRUE(TabOrderManager::incrementTabStop());
  EXPECT_EQ(get_kbd_focus(), right);
  EXPECT_TRUE(TabOrderManager::decrementTabStop());
  EXPECT_EQ(get_kbd_focus(), left);
  right->setCanBeIt(false);
  EXPECT_FALSE(TabOrderManager::incrementTabStop()); // nowhere else to go
  EXPECT_EQ(get_kbd_focus(), left);
}

TEST_F(GlobInputTest, FocusChangesAreAnnounced) {
  left->setCanBeIt(true);
  right->setCanBeIt(true);
  set_kbd_focus(left);
  set_kbd_focus(right);
  EXPECT_EQ(log, (std::vector<std::string>{"left focus in", "left focus out", "right focus in"}));
}

// Deletes itself, through the manager, from inside its own click handler.
class SelfDeleting : public Glob {
public:
  explicit SelfDeleting(bool& alive) : Glob(GlobCreationInfo(XY<int>(30, 30))), alive_(alive) { alive_ = true; }
  ~SelfDeleting() override { alive_ = false; }
  int react(Event const& event) override {
    if (event.type == Event::kMouseDown) {
      GlobManager::requestDeletion(this);
      GlobManager::requestDeletion(this); // twice is harmless
      touched = true;                     // still alive here
    }
    return 1;
  }
  bool touched = false;

private:
  bool& alive_;
};

TEST_F(GlobInputTest, AWidgetCanAskForItsOwnDeletionInsideItsHandler) {
  bool alive = false;
  auto* doomed = static_cast<SelfDeleting*>(panel->addChild(new SelfDeleting(alive), Glob::UserTopLeft(0, 0)));
  HeadlessInput::clickOn(*doomed);
  EXPECT_TRUE(alive);
  EXPECT_TRUE(doomed->touched);
  EXPECT_TRUE(GlobManager::isDeletionPending(doomed));
  pump();
  EXPECT_FALSE(alive);
  EXPECT_FALSE(is_good_glob_ptr(doomed));
  EXPECT_FALSE(panel->isChildGlob(doomed));
}

TEST_F(GlobInputTest, InterceptorsSeeEventsFirstEvenOutsideTheirWindow) {
  struct Interceptor : Glob {
    Interceptor() : Glob(GlobCreationInfo(XY<int>(10, 10))) {}
    int intercept(Event const& event) override {
      if (event.type == Event::kMouseDown) {
        seen = event.screenPosition;
        return 1;
      }
      return 0;
    }
    XY<int> seen;
  };
  auto* grabber = static_cast<Interceptor*>(panel->addChild(new Interceptor, Glob::UserTopLeft(0, 0)));
  getEventInterceptStack().push(grabber);
  HeadlessInput::click(XY<int>(5, 5)); // on the bare desktop
  HeadlessInput::clickOn(*left);
  getEventInterceptStack().remove(grabber);
  EXPECT_EQ(grabber->seen, HeadlessInput::pointOn(*left));
  EXPECT_TRUE(std::none_of(log.begin(), log.end(), [](auto const& l) { return l.find("down") != std::string::npos; }));
}

TEST_F(GlobInputTest, GlobalMouseListenersHearMovesAnywhere) {
  std::vector<XY<int>> heard;
  auto listener = Zo::Ptr<iCallbackBase<int, Event>>(new FunctionCallback<Event, int>([&](Event const& e) {
    if (e.type == Event::kMouseMove)
      heard.push_back(e.screenPosition);
    return 0;
  }));
  auto guard = Glib::addMouseListener(listener);
  HeadlessInput::moveTo(XY<int>(1, 2));
  HeadlessInput::moveTo(XY<int>(1500, 900));
  guard.reset();
  HeadlessInput::moveTo(XY<int>(3, 4));
  EXPECT_EQ(heard, (std::vector<XY<int>>{XY<int>(1, 2), XY<int>(1500, 900)}));
  EXPECT_EQ(glib_getMousePos(), XY<int>(3, 4));
}

TEST_F(GlobInputTest, DraggingTheTitleBarMovesTheWindow) {
  StandardPanel* titled = openPanel(XY<int>(200, 120), XY<int>(600, 300), StandardPanel::kTitle, L"Drag me");
  Zo::Box<int> bar = titled->getTitleArea();
  XY<int> grip = titled->screenPosition() + XY<int>(bar.x0 + 20, bar.y0 + 2);
  HeadlessInput::drag(grip, grip + XY<int>(50, -40), 4);
  EXPECT_EQ(titled->canvas()->getPosition(), XY<int>(650, 260));
}

TEST_F(GlobInputTest, TheCloseButtonDeletesThePanel) {
  StandardPanel* closable = openPanel(XY<int>(200, 120), XY<int>(600, 300), StandardPanel::kPoot);
  Zo::Box<int> poot = closable->getStandardWidgetBox(StandardPanel::kPoot);
  ASSERT_FALSE(poot.empty());
  HeadlessInput::clickOn(*closable, XY<int>((poot.x0 + poot.x1) / 2, (poot.y0 + poot.y1) / 2));
  pump();
  EXPECT_FALSE(is_good_glob_ptr(closable));
}

TEST_F(GlobInputTest, MessagesReachPanelHandlersWithTheirSender) {
  struct Listening : StandardPanel {
    using StandardPanel::StandardPanel;
    int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override {
      heard = message.str();
      from = sender;
      return 1;
    }
    std::string heard;
    Glob* from = nullptr;
  };
  auto* host = new Listening(StandardPanel::InitArgs(XY<int>(100, 100)));
  panel->addChild(host, Glob::UserTopRight(0, 0));
  Glob* child = host->addChild(new Glob(GlobCreationInfo(XY<int>(10, 10))), Glob::Centre(0, 0));
  EXPECT_EQ(child->sendMsg("next"), 1);
  EXPECT_EQ(host->heard, "next");
  EXPECT_EQ(host->from, child);
}

} // namespace
