#include <zowidgets/host/toolkit/GlobHandle.h>

#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/toolkit/GlobManager.h>

GlobHandle::GlobHandle(Glob* glob)
    : glob_(glob), stamp_(is_good_glob_ptr(glob) ? glob->handlerStamp() : IdStamp::null()) {}

Glob* GlobHandle::get() const {
  return stamp_.valid() && is_good_glob_ptr(glob_) && glob_->handlerStamp() == stamp_ ? glob_ : nullptr;
}

void GlobHandle::clear() noexcept {
  glob_ = nullptr;
  stamp_ = IdStamp::null();
}

void GlobHandle::requestDeletion() {
  if (Glob* glob = get())
    GlobManager::requestDeletion(glob);
  clear();
}
