#pragma once

#include <zowidgets/host/base/Box.h>
#include <zowidgets/host/base/DataChange.h>
#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/ImageSurface.h>
#include <zowidgets/host/events/Event.h>
#include <zowidgets/host/events/EventHandler.h>
#include <zowidgets/host/toolkit/Drawable.h>
#include <zowidgets/host/toolkit/GlobCreationInfo.h>

#include <functional>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

class CanvasRenderer;
class Theme;

// The widget base. Widgets form a tree: a parent owns its children and
// deletes them with itself. Coordinates are bottom-up in whole pixels: a
// widget's position is its bottom-left corner in its parent, (0, 0) is its own
// bottom-left corner, and its area covers [0, width) x [0, height).
//
// Placement: a child added with a WidgetPosition keeps it, and the parent
// re-runs every placement, in the order the children were added, whenever a
// child is shown, hidden or resized, or the parent itself is resized; so
// widgets placed against a sibling follow it. A hidden sibling takes no room:
// widgets placed against it go where it would have gone.
class ZO_API Glob : public EventHandler, public Drawable {
public:
  using InitArgs = GlobCreationInfo;

  explicit Glob(GlobCreationInfo const& info);
  Glob(Glob const&) = delete;
  Glob& operator=(Glob const&) = delete;
  ~Glob() override;

  virtual char const* idstring() const { return "Glob"; }
  // True when this widget's idstring is `name`, exactly; base classes do not
  // count.
  bool isType(char const* name) const;
  // What the desktop shows for this widget's window when it is a top-level
  // one: a panel's title. Empty for most widgets.
  virtual LightweightString<wchar_t> windowTitle() const { return {}; }
  // What this widget's window is to the desktop when it is a top-level one.
  // A panel is the desktop's to manage and to give the keyboard; a dialogue
  // (a message, a chooser) is a panel that stays in front of the panels, so
  // that a click on the panel it speaks for never hides it. A popup (a menu,
  // a drop-down, a tip, a lens) comes and goes with what the user opens or
  // points at: no window manager handles it, and it leaves the keyboard
  // where it is, in this program or another.
  enum class eWindowKind { kPanel, kPopupMenu, kTip, kDialogue };
  virtual eWindowKind windowKind() const { return eWindowKind::kPanel; }
  bool isPopupWindow() const { return windowKind() == eWindowKind::kPopupMenu || windowKind() == eWindowKind::kTip; }
  // Whether this window, coming on the screen, takes the keyboard from the
  // window behind it: panels and dialogues do, popups and tips do not.
  virtual bool takesKeyboardWhenShown() const { return !isPopupWindow(); }
  // A popup window (a menu, a drop-down) closes as a press outside it would
  // close it: another window was made the active one. Others ignore it.
  virtual void dismissPopup() {}
  // The window a popup belongs to (the one of a menu's button, of a
  // drop-down's owner); null for none.
  virtual Glob* popupOwnerWindow() const { return nullptr; }

  // --- Tree ---------------------------------------------------------------
  Glob* parent() const noexcept { return parent_; }
  std::vector<Glob*> const& getChildren() const noexcept { return children_; }
  // Takes ownership of `child` and places it; returns it.
  Glob* addChild(Glob* child, WidgetPosition const& position, WidgetSurround surround = {});
  // Takes ownership of `child` where it stands, without a placement.
  Glob* addWidget(Glob* child);
  // Destroys a child now; never from inside the child's own handler (use
  // GlobManager::requestDeletion there).
  virtual void removeWidget(Glob* child);
  // Gives up ownership of a child and returns it, unplaced and parentless.
  Glob* releaseChild(Glob* child);
  bool isChildGlob(Glob const* widget) const noexcept;
  Glob const* getRootParent() const noexcept;
  Glob* getRootParent() noexcept { return const_cast<Glob*>(std::as_const(*this).getRootParent()); }
  Canvas* canvas() const noexcept;
  // The first descendant (depth first, this one included) with that name.
  Glob* getWidget(LightweightString<char> const& name);
  void setName(LightweightString<char> const& name) { name_ = name; }
  LightweightString<char> const& getName() const noexcept { return name_; }

  template <class T>
  T* createChild(typename T::InitArgs const& args, WidgetPosition const& position, WidgetSurround surround = {}) {
    typename T::InitArgs withParent = args;
    withParent.setParent(this);
    return static_cast<T*>(addChild(new T(withParent), position, surround));
  }

  // --- Geometry -------------------------------------------------------------
  int getX() const noexcept { return position_.x; }
  int getY() const noexcept { return position_.y; }
  XY<int> getPosition() const noexcept { return position_; }
  virtual int width() const { return size_.x; }
  virtual int height() const { return size_.y; }
  XY<int> getSize() const noexcept { return size_; }
  int oldWidth() const noexcept { return oldSize_.x; }
  int oldHeight() const noexcept { return oldSize_.y; }
  // This widget's box in its canvas, and on the screen.
  Zo::Box<int> canvasBox() const;
  XY<int> canvasPosition() const;
  XY<int> screenPosition() const;
  // Moves the widget within its parent; a placed widget then stays where it
  // is put until its placement is set again.
  void setPosition(XY<int> position);
  virtual void resize(double width, double height);
  void setDimensions(XY<int> size) { resize(size.x, size.y); }
  void setMinSize(XY<int> size) { minSize_ = size; }
  // Virtual so that a container can report what its children need.
  virtual XY<int> getMinSize() const { return minSize_; }
  void setMaxSize(XY<int> size) { maxSize_ = size; }
  XY<int> getMaxSize() const noexcept { return maxSize_; }
  void setResizable(bool resizable) { resizable_ = resizable; }
  bool isResizable() const noexcept { return resizable_; }
  // Which edges of this widget are on the move while its parent shares out
  // its space anew (a splitter being dragged): eResizeDirection bits, set by
  // the parent around the sizes it gives, 0 at rest. A widget may read them
  // in resize(), to draw cheaply while kResizeLive is set, say.
  enum eResizeDirection : unsigned {
    kResizeLeft = 1,
    kResizeRight = 2,
    kResizeBottom = 4,
    kResizeTop = 8,
    kResizeLive = 16,  // a drag is under way
    kResizeFinal = 32, // the drag has just ended
  };
  void setResizeDirection(unsigned flags) noexcept { resizeDirection_ = flags; }
  unsigned getResizeDirection() const noexcept { return resizeDirection_; }

  // The point, in this widget's coordinates, where a tool window acts: the
  // spot an inspector looks through at what lies under it. (0, 0) unless set.
  void setHotSpot(XY<int> spot) noexcept { hotSpot_ = spot; }
  XY<int> getHotSpot() const noexcept { return hotSpot_; }

  Border const& getBorder() const noexcept { return border_; }
  virtual void setBorder(Border const& border);
  // The area children are placed in by the User... positions, in this
  // widget's coordinates.
  virtual Zo::Box<int> getUserArea() const;
  // The footer strip under the user area (empty unless a panel makes one).
  virtual Zo::Box<int> getMarginArea() const;

  // Sets where the next top-level widget made without a screen position will
  // go: `position` on the screen, or relative to `relativeTo`'s bottom-left
  // corner when a canvas is given.
  static void setupRootPos(Canvas* relativeTo, XY<int> position);
  // Where this widget asked to go when it becomes a top-level window; unset
  // lets the toolkit choose.
  XY<int> requestedScreenPosition() const noexcept { return requestedScreenPosition_; }

  // Re-runs the placement of the children and marks the whole widget for
  // repainting: what a widget does after its layout changed.
  virtual void reshape();
  // reshape(), then paints at once. A top-level window also moves to
  // `screenPosition`; a child to that position in its parent. The unset
  // position (-1234, -1234) keeps the widget where it is.
  void reshapeAndDraw(XY<int> screenPosition = XY<int>::unset());
  // Makes this widget's window the thread's current one
  // (Glib::currentCanvas), the window in hand while a change is made and
  // what a Glib::StateSaver puts back. Returns it; null before the widget
  // is in a realized window.
  Canvas* makeCanvasCurrent() const;
  // The named numbers of the look (UifStd::getTheme()).
  Theme& theme() const;

  // --- Window --------------------------------------------------------------
  // Whether the user may move this widget's window by dragging it: a
  // panel by its title bar, a floating host by any part its children leave
  // alone. Off unless the class turns it on.
  virtual void setMovable(bool movable) { movable_ = movable; }
  virtual bool isMovable() const { return movable_; }
  // A soft band of colour outside a top-level window's edges, fading out
  // over `width` pixels from `strength` (0 to 1) at the edge: a shadow when
  // black. `edges` are eEdge bits. The screen draws it under the window, over
  // whatever lies behind; it takes no room and moves nothing.
  enum eEdge : unsigned {
    kEdgeLeft = 1,
    kEdgeTop = 2,
    kEdgeRight = 4,
    kEdgeBottom = 8,
    kAllEdges = 15,
  };
  struct Surround {
    int width = 0;
    Colour colour;
    float strength = 0.0f;
    unsigned edges = 0;
    bool empty() const noexcept { return width <= 0 || strength <= 0.0f || edges == 0; }
  };
  void addSurround(int width, Colour const& colour, float strength, unsigned edges);
  // The standard shadow: black, below and to the right.
  void addShadow();
  void removeSurround();
  Surround const& getWindowSurround() const noexcept { return windowSurround_; }
  // Cuts a top-level window's corners to a curve of this radius: the screen
  // shows what lies behind outside it. 0, the default, keeps them square.
  void setWindowCornerRadius(int radius);
  int getWindowCornerRadius() const noexcept { return windowCornerRadius_; }

  // --- Placement ------------------------------------------------------------
  static WidgetPosition UserTopLeft(int x, int y);
  static WidgetPosition UserTopRight(int x, int y);
  static WidgetPosition UserBottomLeft(int x, int y);
  static WidgetPosition UserBottomRight(int x, int y);
  static WidgetPosition UserTopCentre(int x, int y, int grid = 1);
  static WidgetPosition UserBottomCentre(int x, int y, int grid = 1);
  static WidgetPosition TopLeft(int x, int y);
  static WidgetPosition TopRight(int x, int y);
  static WidgetPosition BottomLeft(int x, int y);
  static WidgetPosition BottomRight(int x, int y);
  static WidgetPosition Centre(int x, int y, int grid = 1);
  static WidgetPosition LeftCentre(int x, int y, int grid = 1);
  static WidgetPosition RightCentre(int x, int y, int grid = 1);
  static WidgetPosition MarginBottomLeft(int x, int y);
  static WidgetPosition MarginBottomRight(int x, int y);
  static WidgetPosition Above(int gap, Glob* sibling = nullptr, eWidgetAlignment alignment = kAlignStart);
  static WidgetPosition Below(int gap, Glob* sibling = nullptr, eWidgetAlignment alignment = kAlignStart);
  static WidgetPosition LeftOf(int gap, Glob* sibling = nullptr, eWidgetAlignment alignment = kAlignStart);
  static WidgetPosition RightOf(int gap, Glob* sibling = nullptr, eWidgetAlignment alignment = kAlignStart);

  WidgetPosition const& getWidgetPosition() const noexcept { return placement_; }
  WidgetSurround const& getWidgetSurround() const noexcept { return surround_; }
  bool isPlaced() const noexcept { return placed_; }
  // Changes how this widget is placed, and re-flows its parent.
  void setWidgetDetails(WidgetPosition const& position, WidgetSurround const& surround);
  void setWidgetRelativity(eWidgetRelativity relativity) { relativity_ = relativity; }
  eWidgetRelativity getWidgetRelativity() const noexcept { return relativity_; }
  // Tells the parent that this widget changed size or visibility.
  void notifyResized();
  // Re-runs the placement of every placed child.
  void layoutChildren();
  virtual void handleChildResize(Glob* child);

  // --- State ----------------------------------------------------------------
  bool isVisible() const noexcept { return visible_; }
  // Visible, and so are all its ancestors.
  bool isShowing() const noexcept;
  virtual void setVisible(bool visible);
  bool isActive() const noexcept { return active_; }
  virtual void setActive(bool active, eRedrawFlag redraw);
  Palette const& getPalette() const;
  virtual void setPalette(Palette const& palette);
  // Whether this widget was given a palette of its own, and dropping it to
  // use its parent's again.
  bool hasOwnPalette() const noexcept { return palette_ != nullptr; }
  void inheritPalette();
  // A heavy widget has a window of its own on the screen (a realized
  // top-level widget); a light one draws into its top-level widget's window.
  bool isLightweight() const noexcept { return !ownCanvas_; }

  // --- Drawing --------------------------------------------------------------
  // Marks the whole widget for repainting. Painting happens at once, or when
  // the outermost Drawable::enableRedraws() comes, if redraws are held.
  void invalidate();
  void invalidate(Zo::Box<int> const& localBox);
  // Paints now whatever is pending on this widget's canvas.
  void update();
  // Forgets pending repaints of this widget's canvas.
  void clearPendingRedraws();
  // Paints this widget and its children, clipped to `clip` (canvas box).
  void paint(CanvasRenderer& renderer, Zo::Box<int> const& clip);
  int paintCount() const noexcept { return paintCount_; }
  // Declares that this widget's background and drawing cover every pixel of
  // its box with opaque colour, so that what lies under it (its parent's
  // drawing, the siblings before it) is not painted where only it shows,
  // as when it alone is repainted. Off by default: many widgets draw no
  // background of their own.
  void setPaintsOpaquely(bool opaque) noexcept { paintsOpaquely_ = opaque; }
  bool paintsOpaquely() const noexcept { return paintsOpaquely_; }
  virtual bool isOpaqueAt(XY<int>) const { return true; }
  // The icon of that name (host/drawing/IconNames.h) as a square `size`
  // pixels wide at scale 1, drawn at the current interface scale in this
  // widget's text colour; the drawn stand-in when the theme lacks it. Shared
  // with IconCache: draw it, never draw on it.
  Zo::Image::Surface loadIcon(std::string_view name, double size) const;

  // --- Input ----------------------------------------------------------------
  // Handles an event; returns non-zero when it was used. Mouse events reach
  // the deepest widget under the pointer first and go up the tree until one
  // uses them; key events start at the keyboard focus.
  virtual int react(Event const& event);
  // Sees events first while this widget is on the event intercept stack.
  virtual int intercept(Event const& event);
  // The panel's tab order, if this widget keeps one.
  virtual class TabOrderManager* getTabOrder() { return nullptr; }
  // The deepest visible, active widget under a point in this widget's
  // coordinates; null when the point is outside.
  virtual Glob* pick(XY<int> point);
  // Puts down whatever this widget is carrying (a move of its window, a
  // dragged item) because a child took the mouse for itself; `reason` says
  // why, 0 for a child's own drag. Nothing is carried by default.
  virtual void drop(int reason);
  // The pointer's shape over a point of this widget (an eCursorCode): its
  // default mouse cursor, or when it has none its parent's choice, unless a
  // widget knows better.
  virtual int contextCursor(XY<int> point) const;
  void setDefaultMouseCursor(int cursorCode) noexcept { defaultCursor_ = cursorCode; }
  int getDefaultMouseCursor() const noexcept { return defaultCursor_; }
  void setCanBeIt(bool focusable) { canBeIt_ = focusable; }
  bool canBeIt() const noexcept { return canBeIt_ && isShowing() && isActive(); }
  // Takes the keyboard focus; a widget made of parts may hand it to one of
  // them instead.
  virtual bool claimKbdFocus();
  void relinquishKbdFocus();
  virtual void handleKbdFocus(bool gained);
  bool hasKbdFocus() const;
  // Delivers a named message to `target` at once, as a message event from
  // `sender`. Does nothing for a dead target.
  static int sendMsg(Glob* target, LightweightString<char> const& message, Glob* sender = nullptr);
  int sendMsg(LightweightString<char> const& message) { return sendMsg(parent_, message, this); }

  // Interest flags. kTimerInterest asks for an Event::kTimer tick through
  // react() every few tens of milliseconds, on the user-interface thread.
  static constexpr unsigned kTimerInterest = 4096;
  void setInterest(unsigned flags);
  void clearInterest(unsigned flags);
  unsigned getInterest() const noexcept { return interest_; }
  // Queued messages and timer ticks reach react().
  int handleEvent(Event const& event) override { return react(event); }

  // What the tooltip says when the pointer rests here (empty: none).
  void setContextString(struct TooltipDetails const& details);
  virtual UIString getTooltip() const { return tooltip_; }
  // What the tooltip says with the pointer at `position`: in the widget's own
  // coordinates when `client` is true, on the screen otherwise. The widget's
  // one tooltip, unless parts of it say different things (a title bar's
  // buttons, drawn by their panel).
  virtual UIString getTooltip(XY<int> position, bool client) const;

  // --- Persistence ----------------------------------------------------------
  virtual void dump(configb& into) const;
  virtual void load(configb const& from);
  void setPersistable(bool persistable) { persistable_ = persistable; }
  bool isPersistable() const noexcept { return persistable_; }

  // --- Life -----------------------------------------------------------------
  // An indestructible window outlives GlobManager::deleteDestroyableWindows
  // (the program tidying its windows away); the user may still close it.
  void setIndestructible(bool indestructible) { indestructible_ = indestructible; }
  bool isIndestructible() const noexcept { return indestructible_; }
  virtual bool canBeDestroyed() const { return !indestructible_; }
  void makeDirty() { dirty_ = true; }
  void makeClean() { dirty_ = false; }
  bool isDirty() const noexcept { return dirty_; }

protected:
  // The drawing steps, each in this widget's coordinates with the renderer's
  // origin at the widget's bottom-left corner.
  virtual void drawBackground(CanvasRenderer& renderer);
  virtual void draw(CanvasRenderer& renderer);
  virtual void drawBorder(CanvasRenderer& renderer);
  virtual void handleVisibilityChange(bool visible);
  // A top-level widget owns its canvas.
  void setCanvas(std::unique_ptr<Canvas> canvas);

private:
  friend class GlobManager;
  XY<int> placeChild(Glob const& child, Glob const* sibling) const;
  // paint() with this widget's canvas position known.
  void paintAt(CanvasRenderer& renderer, Zo::Box<int> const& clip, XY<int> origin);
  Zo::Box<int> placementArea(WidgetPosition::eArea area) const;

  Glob* parent_ = nullptr;
  std::vector<Glob*> children_;
  std::unique_ptr<Canvas> ownCanvas_;
  LightweightString<char> name_;
  XY<int> position_;
  XY<int> requestedScreenPosition_ = XY<int>::unset();
  XY<int> size_;
  XY<int> oldSize_;
  XY<int> minSize_;
  XY<int> maxSize_;
  XY<int> hotSpot_;
  Border border_;
  std::unique_ptr<Palette> palette_; // null: the parent's
  WidgetPosition placement_;
  WidgetSurround surround_;
  eWidgetRelativity relativity_ = kRelativeNone;
  bool placed_ = false;
  bool visible_ = true;
  bool active_ = true;
  bool canBeIt_ = false;
  int defaultCursor_ = 0;
  bool persistable_ = true;
  bool indestructible_ = false;
  bool dirty_ = false;
  bool resizable_ = true;
  bool movable_ = false;
  Surround windowSurround_;
  int windowCornerRadius_ = 0;
  unsigned resizeDirection_ = 0;
  bool laying_out_ = false;
  bool paintsOpaquely_ = false;
  int paintCount_ = 0;
  unsigned interest_ = 0;
  UIString tooltip_;
};

// True while `widget` is a live widget (and, with a name, one whose idstring
// is that name). Safe with any pointer value.
ZO_API bool is_good_glob_ptr(Glob const* widget);
ZO_API bool is_good_glob_ptr(Glob const* widget, char const* kind);
ZO_API bool isParentedTo(Glob const* widget, Glob const* ancestor);
ZO_API Glob* getRootParent(Glob* widget);
ZO_API Glob* get_kbd_focus();
ZO_API bool set_kbd_focus(Glob* widget);
