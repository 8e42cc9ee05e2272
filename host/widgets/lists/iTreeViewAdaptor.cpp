#include <zowidgets/host/widgets/lists/iTreeViewAdaptor.h>

std::vector<iTreeViewAdaptor::Item> iTreeViewAdaptor::getChildItems(LightweightString<wchar_t> const& parentId) const {
  std::vector<Item> items;
  if (std::optional<std::size_t> const count = getChildCount(parentId)) {
    items.reserve(*count);
    for (std::size_t index = 0; index < *count; ++index)
      items.push_back(getChildItem(parentId, index));
  }
  return items;
}

bool iTreeViewAdaptor::hasChildItems(LightweightString<wchar_t> const& id) const {
  if (std::optional<std::size_t> const count = getChildCount(id))
    return *count > 0;
  return !getChildItems(id).empty();
}
