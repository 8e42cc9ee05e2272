#include <zowidgets/host/widgets/popups/MenuGlob.h>

std::vector<MenuItem> MenuGlob::getMenuItems(Event const*) {
  if (menuItems_.empty())
    return {};
  std::vector<MenuItem> items;
  items.reserve(menuItems_.size() + 1);
  if (!menuTitle_.empty())
    items.push_back(MenuItem::heading(menuTitle_));
  items.insert(items.end(), menuItems_.begin(), menuItems_.end());
  return items;
}

void MenuGlob::clearMenu() {
  menuItems_.clear();
  menuTitle_ = UIString();
}

void MenuGlob::addMenuItem(UIString const& text, MenuItem::Action const& action) {
  MenuItem item(text);
  item.action = action;
  menuItems_.push_back(item);
}
