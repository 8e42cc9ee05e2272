#pragma once

#include <zowidgets/host/base/IPAddress.h>
#include <zowidgets/host/toolkit/TabOrderManager.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
// The boxes are handed out (getBoxes), so their class comes with this one.
#include <zowidgets/textentry/CustomTextBox.h>

#include <vector>

// A compact editor for an IPv4 address with an optional port: four boxes of
// up to three digits with painted dots between them and, when a port is
// wanted, a box of up to five digits after a painted colon. Typing moves
// through the boxes as if they were one field: on at a "." or when a box is
// full, back with Backspace or Left from a box's start. Ctrl-V with an
// address on the clipboard fills every box. Return in any box sends
// kReturnPressedMsg to the panel's parent, with the panel as its sender.
class ZO_API IPAddressEntryBox : public StandardPanel, public TabOrderableHost {
public:
  static constexpr char const* kReturnPressedMsg = "IPReturnPressed";
  // Asks the panel's tab order for the next or the previous stop.
  static constexpr char const* kTabNextMsg = "hnext";
  static constexpr char const* kTabPrevMsg = "hprev";

  struct InitArgs : StandardPanel::InitArgs {
    InitArgs() = default;
    // The panel is always calcWidth(showPort) wide; a height of 0 is a row.
    explicit InitArgs(bool showPort, LightweightString<wchar_t> const& uri = {}, int height = 0);
    bool showPort = false;
    LightweightString<wchar_t> uri; // the address shown at first, if any
  };

  explicit IPAddressEntryBox(InitArgs const& args);
  char const* idstring() const override { return "IPAddressEntryBox"; }

  // The space between two boxes, which is also the side of a painted dot.
  static int gap();
  // A box wide enough to show `sample` whole.
  static int calcBoxWidth(LightweightString<wchar_t> const& sample);
  static int calcWidth(bool withPort);

  // Shows the address; without a port box its port is dropped, and an
  // address without a port empties the port box.
  void setURI(IPAddress const& address);
  // Shows the address the text holds and answers true; answers false and
  // changes nothing when the text is not an address.
  bool setURI(LightweightString<wchar_t> const& text);
  // The boxes as typed, joined: "a.b.c.d", then ":port" with a port box,
  // the colon even when that box is empty. Nothing is checked.
  LightweightString<wchar_t> getURI() const;
  bool hasPort() const noexcept { return boxes_.size() > 4; }
  // The boxes, left to right: four, then the port box if there is one.
  std::vector<CustomTextBox*> const& getBoxes() const noexcept { return boxes_; }

  void setActive(bool active, eRedrawFlag redraw) override;
  void setPalette(Palette const& palette) override;
  void getTabOrderables(std::vector<TabOrderable*>& list) override;
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override;

protected:
  void drawBackground(CanvasRenderer& renderer) override;

private:
  CustomTextBox* addBox(int width, std::size_t sizeLimit);
  // Index of `box` among the boxes; -1 when it is not one of them.
  int indexOf(Glob const* box) const;
  void moveTo(std::size_t index, bool atEnd, bool separatorPending);
  void pasteAddress();

  std::vector<CustomTextBox*> boxes_;
};
