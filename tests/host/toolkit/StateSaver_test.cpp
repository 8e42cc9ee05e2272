#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/StateSaver.h>

namespace {

using StateSaverTest = HeadlessScreenTest;

TEST_F(StateSaverTest, TheCurrentCanvasComesBackWhenTheSaverEnds) {
  StandardPanel* first = openPanel(XY<int>(100, 100), XY<int>(10, 10));
  StandardPanel* second = openPanel(XY<int>(100, 100), XY<int>(300, 10));
  first->makeCanvasCurrent();
  {
    Glib::StateSaver saved;
    second->makeCanvasCurrent();
    EXPECT_EQ(Glib::currentCanvas(), second->canvas());
  }
  EXPECT_EQ(Glib::currentCanvas(), first->canvas());
}

TEST_F(StateSaverTest, AWindowThatWentWhileSavedIsNotBroughtBack) {
  StandardPanel* panel = openPanel(XY<int>(100, 100));
  panel->makeCanvasCurrent();
  {
    Glib::StateSaver saved;
    delete panel;
  }
  EXPECT_EQ(Glib::currentCanvas(), nullptr);
}

TEST_F(StateSaverTest, ThePositionWaitingForTheNextWindowComesBack) {
  Glib::StateSaver outer; // leaves no position waiting for the next test
  Glob::setupRootPos(nullptr, XY<int>(40, 50));
  {
    Glib::StateSaver saved;
    // A window made on the way takes a position of its own.
    Glob::setupRootPos(nullptr, XY<int>(700, 10));
    auto* other = new StandardPanel(StandardPanel::InitArgs(XY<int>(30, 30)));
    GlobManager::realize(other);
    EXPECT_EQ(other->screenPosition(), XY<int>(700, 10));
  }
  auto* wanted = new StandardPanel(StandardPanel::InitArgs(XY<int>(30, 30)));
  GlobManager::realize(wanted);
  EXPECT_EQ(wanted->screenPosition(), XY<int>(40, 50));
}

TEST_F(StateSaverTest, WhetherWidgetsChooseTheCursorComesBack) {
  ASSERT_TRUE(glib_mouseContextLogicEnabled());
  {
    Glib::StateSaver saved;
    glib_enableMouseContextLogic(false);
  }
  EXPECT_TRUE(glib_mouseContextLogicEnabled());
  glib_enableMouseContextLogic(false);
  {
    Glib::StateSaver saved;
    glib_enableMouseContextLogic(true);
  }
  EXPECT_FALSE(glib_mouseContextLogicEnabled());
}

TEST_F(StateSaverTest, SaversNest) {
  StandardPanel* a = openPanel(XY<int>(50, 50), XY<int>(10, 10));
  StandardPanel* b = openPanel(XY<int>(50, 50), XY<int>(100, 10));
  StandardPanel* c = openPanel(XY<int>(50, 50), XY<int>(200, 10));
  a->makeCanvasCurrent();
  {
    Glib::StateSaver outer;
    b->makeCanvasCurrent();
    {
      Glib::StateSaver inner;
      c->makeCanvasCurrent();
    }
    EXPECT_EQ(Glib::currentCanvas(), b->canvas());
  }
  EXPECT_EQ(Glib::currentCanvas(), a->canvas());
}

} // namespace
