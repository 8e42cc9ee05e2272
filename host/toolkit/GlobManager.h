#pragma once

#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/values/notify/GenericNotifier.h>

#include <functional>

// What the window manager tells its listeners. `glob` is a top-level window
// for every kind but kWidgetDeleted. A kind 11 event may carry a window that
// is being shown for the first time; a kWidgetDeleted one a widget that is
// already half destroyed: compare its pointer, never call it.
struct ZO_API GlobManagerEvent {
  enum eKind : int {
    kRealized = 0,
    kDeleted = 1, // a top-level window is being destroyed
    kRaised = 2,
    kMoved = 10,        // a window moved on the screen
    kActivated = 11,    // a window came into use: shown, or a button pressed in it
    kResized = 12,      // a window changed size
    kHidden = 14,       // a window was taken off the screen (not destroyed)
    kWidgetDeleted = 20 // any widget is being destroyed, its children still whole
  };
  int kind = kRealized;
  Glob* glob = nullptr;
  IdStamp id;
};

// Top-level windows: where they go, making them real, deleting widgets
// safely, modal windows, and making widgets by class name. User-interface
// thread only.
class ZO_API GlobManager {
public:
  using Factory = std::function<Glob*(GlobCreationInfo const&)>;

  // The parent a new floating window should belong to: the top-level window
  // of `owner`, or null for a free window.
  static Glob* getParentForGlob(Glob* owner);
  // Where a window of `info.size` should go for a position: its explicit
  // screen position, a corner of the screen for corner kinds, or the centre.
  static XY<int> getPosForGlob(GlobCreationInfo const& info, WidgetPosition const& position);
  // Moves a window's position so that all of it is on the screen, if it fits;
  // one that does not keeps its top left corner on the screen.
  static XY<int> getSafePosForGlob(Canvas* near, XY<int> size, XY<int> position);
  static XY<int> calcPosForGlob(GlobCreationInfo const& info, WidgetPosition const& position);
  // Moves a realized window opened on behalf of `origin` (a command's
  // origin, say) beside the right edge of origin's window, tops level and
  // kept on the screen. Nothing happens unless both are live windows.
  static void placeBeside(Glob* root, EventHandler* origin);
  // Makes `root` a top-level window: gives it a canvas at its root position
  // (see Glob::setupRootPos), shows it in front and paints it.
  static void realize(Glob* root);
  // Destroys a widget after the current event, safely even from inside the
  // widget's own handler. Asking twice is harmless.
  static void requestDeletion(Glob* widget);
  static bool isDeletionPending(Glob const* widget);
  // Asks deletion of every top-level window that can be destroyed
  // (Glob::canBeDestroyed), as when the program changes its layout or closes
  // a project; returns how many. Indestructible windows stay.
  static int deleteDestroyableWindows();
  // While a modal window is up, input to other windows is refused.
  static void addModalGlob(Glob* root);
  // Lets `root`, a window that belongs beside the modal window `modalOwner`,
  // take input while that one is the modal window, without becoming modal
  // itself (the owner keeps its input too). Forgotten when either dies.
  static void addModalGlob(Glob* root, Glob* modalOwner);
  // True when a modal window refuses input to `widget`: one is up, and the
  // widget is neither in it nor in a window added beside it.
  static bool refusesInput(Glob const* widget);
  static void removeModalGlob(Glob* root);
  static bool isModal(Glob const* root);
  static Glob* currentModal();
  static Glob* find(IdStamp const& stamp);
  static Glob* find(LightweightString<char> const& name);
  static void registerGlobType(LightweightString<char> const& className, Factory factory);
  // Makes a widget of the class `info.className` names; null if none.
  static Glob* createGlob(GlobCreationInfo const& info);
  // Top-level windows, back to front.
  static std::vector<Glob*> topLevelWindows();
  // Paints every window that has pending damage.
  static void redisplay();
  static GenericNotifier<GlobManagerEvent>& notifier();
};

// The position for a panel of `size` opened from `canvas` (kind 17): beside
// the pointer, kept on the screen.
ZO_API XY<int> glib_getPosForPanel(Canvas* canvas, XY<int> size);
