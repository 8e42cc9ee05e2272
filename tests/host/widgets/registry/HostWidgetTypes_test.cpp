#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/GlobCreationInfo.h>
#include <zowidgets/host/widgets/registry/HostWidgetTypes.h>

#include <set>
#include <string>

namespace {

using HostWidgetTypes = HeadlessScreenTest;

TEST_F(HostWidgetTypes, EveryRegisteredClassIsMadeByNameWithItsSizeAndAnswersToThatName) {
  std::vector<LightweightString<char>> const& names = hostWidgetTypeNames();
  ASSERT_GE(names.size(), 40u);
  StandardPanel* host = openPanel(XY<int>(400, 300));
  for (LightweightString<char> const& name : names) {
    GlobCreationInfo info(XY<int>(120, 60));
    info.className = name;
    Glob* widget = GlobManager::createGlob(info);
    ASSERT_NE(widget, nullptr) << name.str();
    EXPECT_EQ(std::string(widget->idstring()), name.str());
    host->addChild(widget, Glob::UserTopLeft(0, 0));
    if (name.str() != "LinkButton") { // a link is as wide as its text
      EXPECT_EQ(widget->width(), 120) << name.str();
    }
    EXPECT_EQ(widget->height(), 60) << name.str();
    host->removeWidget(widget);
  }
}

TEST_F(HostWidgetTypes, NamesAreRegisteredOnceAndAnUnknownNameMakesNothing) {
  std::vector<LightweightString<char>> const& names = hostWidgetTypeNames();
  std::set<std::string> distinct;
  for (LightweightString<char> const& name : names)
    distinct.insert(name.str());
  EXPECT_EQ(distinct.size(), names.size());
  EXPECT_TRUE(distinct.count("TreeView") && distinct.count("TableWidget") && distinct.count("ScrollList") &&
              distinct.count("TabbedDialogue") && distinct.count("Splitter") && distinct.count("Gauge"));
  GlobCreationInfo info(XY<int>(10, 10));
  info.className = "NoSuchWidget";
  EXPECT_EQ(GlobManager::createGlob(info), nullptr);
}

} // namespace
