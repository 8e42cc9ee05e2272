#pragma once

#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/Fonts.h>
#include <zowidgets/host/drawing/ImageSurface.h>
#include <zowidgets/host/widgets/popups/Menu.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>

#include <cstddef>
#include <optional>
#include <vector>

class Glob;

// What a TreeView shows: the model answers for the children of an item,
// named by id (the empty id is the root), in one of two forms. The list form
// hands over all the children at once (getChildItems). The counted form says
// how many there are (getChildCount) and hands them over one by one
// (getChildItem): the tree then asks only for the items that come into
// sight, so a long flat list costs nothing until it is seen. Everything else
// has a default body.
class ZO_API iTreeViewAdaptor {
public:
  struct Item {
    LightweightString<wchar_t> id;
    UIString text;
    TooltipDetails tooltip;
    Glib::FontDesc font;               // the default font unless set
    Colour colour = Colour::invalid(); // the palette's text colour unless set
    Zo::Image::Surface icon;           // drawn before the text when set
  };

  virtual ~iTreeViewAdaptor() = default;

  // The list form. By default it is made from the counted form.
  virtual std::vector<Item> getChildItems(LightweightString<wchar_t> const& parentId) const;
  // The counted form: no count (the default) means the list form answers.
  virtual std::optional<std::size_t> getChildCount(LightweightString<wchar_t> const&) const { return std::nullopt; }
  // Asked only for an index below the count.
  virtual Item getChildItem(LightweightString<wchar_t> const&, std::size_t) const { return {}; }
  // Where `id` lies among the counted children of `parentId`: its index, or
  // the count when it is not among them. No answer (the default) makes the
  // tree ask for every child when it looks for an item.
  virtual std::optional<std::size_t> getChildIndex(LightweightString<wchar_t> const& /*parentId*/,
                                                   LightweightString<wchar_t> const& /*id*/) const {
    return std::nullopt;
  }
  // Whether an item can open; asked only for items in sight.
  virtual bool hasChildItems(LightweightString<wchar_t> const& id) const;
  // The user renamed an item; false refuses the new text.
  virtual bool rename(LightweightString<wchar_t> const&, UIString const&) { return false; }
  // A widget to show in place of an item's text, or null for the text.
  virtual Glob* createCustomWidget(Item const&, XY<int>) { return nullptr; }
  virtual int calcCustomWidgetHeight(Item const&) const { return 0; }
  // Dragging: the kind of thing an item is (0: it cannot be dragged), and
  // whether a dragged kind may land on an item.
  virtual int getDragType(LightweightString<wchar_t> const&) const { return 0; }
  virtual bool acceptDrop(LightweightString<wchar_t> const&, int) { return false; }
  virtual int getDropCursor(LightweightString<wchar_t> const&, int) const { return 0; }
  // The rows of an item's context menu.
  virtual std::vector<MenuItem> getMenuItems(LightweightString<wchar_t> const&) const { return {}; }
};
