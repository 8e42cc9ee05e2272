#include <zowidgets/values/params/GroupParam.h>

namespace GenericParam {

Zo::Ptr<iParam> GroupParam::clone() const {
  ParamList children;
  for (auto const& child : children_)
    children.push_back(child ? child->clone() : Zo::Ptr<iParam>());
  auto* copy = new GroupParam(*this);
  copy->children_ = children;
  return Zo::Ptr<iParam>(copy);
}

} // namespace GenericParam
