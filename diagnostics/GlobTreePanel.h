#pragma once

#include <zowidgets/host/widgets/lists/iTreeViewAdaptor.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/values/notify/NotifierBase.h>

#include <cstddef>

class GlobDetailsView;
class TreeView;
struct GlobManagerEvent;
struct TreeViewEvent;

// The live widget tree of every window but its own, in a window titled
// "Glob Tree", divided by a SpaceDivider: a tree on the left, one item per
// widget, its type and size ("StandardPanel, 300, 200"); the details of the
// selected widget on the right. An item's id is its widget's stamp, so a selection never reaches a
// widget that has gone.
//
// It follows the tree: windows made or destroyed are heard from the
// GlobManager's notifier, and at each timer tick a checksum of every other
// window's tree (stamps, sizes, visibility) tells whether widgets inside
// them were made, destroyed or changed. Either way the tree is asked again,
// keeping open items and the selection by id.
class ZO_API GlobTreePanel : public MessageBase, public iTreeViewAdaptor {
public:
  static constexpr char const* kCommand = "Glob Inspector 2";
  static constexpr wchar_t const* kTitleText = L"Glob Tree";

  using InitArgs = MessageBase::InitArgs;

  // Opens one beside the pointer.
  static GlobTreePanel* create();
  explicit GlobTreePanel(InitArgs const& args);
  ~GlobTreePanel() override;
  char const* idstring() const override { return "GlobTreePanel"; }
  static XY<int> calcSize();

  TreeView* getTree() const noexcept { return tree_; }
  GlobDetailsView* getDetails() const noexcept { return details_; }
  // The item id of a widget, and the live widget an id names (null when it
  // has gone or the id names none).
  static LightweightString<wchar_t> idOf(Glob const& widget);
  static Glob* widgetOf(LightweightString<wchar_t> const& id);

  std::vector<Item> getChildItems(LightweightString<wchar_t> const& parentId) const override;
  bool hasChildItems(LightweightString<wchar_t> const& id) const override;

  // Asks the tree again if any other window's widgets changed since it last
  // did; true when it did.
  bool refreshIfChanged();
  void handleTimerEvent() override;

private:
  void makeDivision();
  int handleTreeEvent(TreeViewEvent const& event);
  int handleWindowEvent(GlobManagerEvent const& event);
  std::size_t checksum() const;

  TreeView* tree_ = nullptr;
  GlobDetailsView* details_ = nullptr;
  Zo::Ptr<Zo::Guard> windowsGuard_;
  std::size_t shownChecksum_ = 0;
};
