#pragma once

#include <zowidgets/host/base/JSONBuilder.h>
#include <zowidgets/host/base/JSONElement.h>

namespace JSON {

// An object that writes itself to a Builder and reads itself back from the
// element that its written text parses to. read() is given the element of the
// object itself (the one write() started) and says whether it could use it.
class ZO_API iPersistable : public virtual iObject {
public:
  virtual void write(Builder& builder) const = 0;
  virtual bool read(Zo::Ptr<Element> const& element) = 0;
};

} // namespace JSON
