#pragma once

#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/drawing/Fonts.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/toolkit/PositionNames.h>
#include <zowidgets/host/toolkit/TabOrderManager.h>
#include <zowidgets/host/widgets/popups/Menu.h>
#include <zowidgets/host/widgets/popups/MenuGlob.h>

// A panel: a widget with an optional title bar carrying the standard widgets
// (close, pin, menu), an optional footer with a "Do it" action, a user area
// between them, a tab order, and handlers that react() feeds: messages, keys,
// mouse, timer ticks. Dragging the title bar moves a top-level panel.
class ZO_API StandardPanel : public MenuGlob {
public:
  // Standard widgets, for addStandardWidgets and removeStandardWidgets.
  enum eStandardWidget : unsigned {
    kPoot = 0x01,  // close button
    kCogs = 0x02,  // menu button
    kTitle = 0x08, // title bar
    kPin = 0x20,   // pin toggle
    kDoIt = 0x80,  // footer with the panel's main action
  };
  static constexpr char const* kDoItMsg = "DoIt";

  struct InitArgs : GlobCreationInfo {
    using GlobCreationInfo::GlobCreationInfo;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : GlobCreationInfo(info) {}
    UIString title;
    unsigned standardWidgets = 0;
  };

  explicit StandardPanel(InitArgs const& args);
  char const* idstring() const override { return "StandardPanel"; }
  // The panel's title, which its window carries on a real display.
  LightweightString<wchar_t> windowTitle() const override { return title_.getString(); }
  // The title bar's buttons, drawn here rather than widgets, say what they do.
  using MenuGlob::getTooltip;
  UIString getTooltip(XY<int> position, bool client) const override;

  template <class T>
  T* createWidget(typename T::InitArgs const& args, WidgetPosition const& position, WidgetSurround surround = {}) {
    return createChild<T>(args, position, surround);
  }

  void addStandardWidgets(unsigned flags);
  void removeStandardWidgets(unsigned flags);
  unsigned getStandardWidgets() const noexcept { return standardWidgets_; }
  virtual void setTitle(UIString const& title, Glib::FontDesc const& font, eRedrawFlag redraw);
  void setTitle(UIString const& title) { setTitle(title, titleFont_, kRedrawNow); }
  UIString const& getTitle() const noexcept { return title_; }
  // The text on the footer's action button; "OK" unless set.
  void setDoItLabel(UIString const& label);
  UIString const& getDoItLabel() const noexcept { return doItLabel_; }
  Zo::Box<int> getUserArea() const override;
  // How far the user area lies inside each edge of the panel: the border,
  // and the title bar above and the footer below when there are any.
  WidgetSurround getUserAreaBorders() const;
  Zo::Box<int> getMarginArea() const override;
  // The point of the user area that an origin names (its centre, the middle
  // of a side, a corner), in the panel's coordinates: where coordinates
  // measured from that origin start. kOriginPanelDefault names the centre.
  XY<int> getOriginXY(eCoordinateOrigin origin) const;
  // After the panel changed size: the children that spanned the user area
  // along an axis before (as wide as it, for kResizeWidth) are made to span
  // it again. Placement then puts them back in their places.
  enum eResizeAxes : int { kResizeWidth = 1, kResizeHeight = 2, kResizeBoth = 3 };
  void resizeChildren(int axes);
  // The palette of widgets standing in the footer: the panel's, on the
  // footer's colour.
  Palette makeFooterPalette() const;
  // Carries out the panel's main action, as the footer's button does:
  // handleDoIt(), then the message kDoItMsg to the panel's own handler.
  void doItMsg();
  // The title bar's box, empty without one.
  Zo::Box<int> getTitleArea() const;
  Zo::Box<int> getStandardWidgetBox(eStandardWidget which) const;
  // The outer size of a panel whose user area is `userArea`, with these
  // standard widgets and this border.
  static XY<int> calcPanelSize(XY<int> userArea, unsigned standardWidgets, Border const& border);
  static Border getDefaultBorder();
  bool isPinned() const noexcept { return pinned_; }
  TabOrderManager* getTabOrder() override { return tabOrder_.empty() ? nullptr : &tabOrder_; }
  TabOrderManager& tabOrder() noexcept { return tabOrder_; }

  int react(Event const& event) override;

  // Handlers; each returns non-zero when it used the event.
  virtual int handleMessageEvent(LightweightString<char> const& message, Glob* sender);
  virtual int handleDataMessageEvent(LightweightString<char> const& message, Glob* sender,
                                     Zo::Ptr<iObject> const& data);
  virtual int handleKeyboardEvent(int key);
  // Whether Escape closes this panel when it is a window of its own, as its
  // close box does: dialogues and modal windows do.
  virtual bool closesOnEscape() const;
  virtual int handleKeyReleaseEvent(int key);
  virtual int handleMouseEvent(Event const& event);
  virtual void handleTimerEvent() {}
  // The close button: by default the window deletes itself.
  virtual void handlePoot();
  virtual void handlePinned(bool pinned);
  virtual void handleDoIt() {}
  virtual void handleTitleChange() {}
  // The menu button was pressed: shows the panel's menu.
  virtual void handleMenuRequest(Event const& event) { makeMenu(event); }

  // The panel's context menu, shown by a right click that no child used or by
  // the menu button. initialiseMenu runs once before the first try,
  // reviewMenu before each, so it may build the rows the panel holds as a
  // MenuGlob; getMenuItems then gives the rows (none: no menu);
  // getMenuSection says which part of the panel the click was in (0: the
  // whole panel); a chosen row runs its action, then goes to
  // handleMenuChoice. canMakeMenu may keep a right click from trying.
  virtual void initialiseMenu() {}
  virtual void reviewMenu(Event const*) {}
  virtual int getMenuSection(Event const&) { return 0; }
  virtual bool canMakeMenu(Event const&) { return true; }
  // Opens the menu at the pointer; true when one is shown.
  virtual bool makeMenu(Event const& event);
  virtual void handleMenuChoice(int index, MenuItem const& item);
  // Closes an open menu of this panel, so that the next one is built afresh.
  void updateMenuIfNecessary();
  MenuWindow* openMenu() const;

protected:
  void drawBackground(CanvasRenderer& renderer) override;
  // The title bar's and the footer's bands, for panels that fill the rest
  // of their background themselves.
  void drawTitleAndFooterBands(CanvasRenderer& renderer);
  void draw(CanvasRenderer& renderer) override;

private:
  int titleBarHeight() const;
  int footerHeight() const;
  bool reactInTitleBar(Event const& event);

  UIString title_;
  UIString doItLabel_{L"OK"};
  Glib::FontDesc titleFont_;
  unsigned standardWidgets_ = 0;
  bool pinned_ = false;
  bool menuInitialised_ = false;
  Glob* menu_ = nullptr;
  bool draggingWindow_ = false;
  XY<int> dragGrip_;
  TabOrderManager tabOrder_;
};

// The base of message windows and dialogues: a popup-coloured panel.
class ZO_API MessageBase : public StandardPanel {
public:
  explicit MessageBase(InitArgs const& args);
  char const* idstring() const override { return "MessageBase"; }
  // The palette message windows use.
  static Palette palette();
  // Untitled, it is named on the desktop after the window it speaks for:
  // the one that had the keyboard when it opened.
  LightweightString<wchar_t> windowTitle() const override;

private:
  LightweightString<wchar_t> speaksFor_;
};

// A plain panel that only hosts children.
class ZO_API WidgetHost : public StandardPanel {
public:
  using StandardPanel::StandardPanel;
  char const* idstring() const override { return "WidgetHost"; }
};

// A host wholly covered by its children: it draws no background of its own.
class ZO_API OccludedChildWidget : public WidgetHost {
public:
  using WidgetHost::WidgetHost;
  char const* idstring() const override { return "OccludedChildWidget"; }

protected:
  void drawBackground(CanvasRenderer&) override {}
};
