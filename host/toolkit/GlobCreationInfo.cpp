#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/GlobCreationInfo.h>

GlobCreationInfo::GlobCreationInfo() = default;

GlobCreationInfo::GlobCreationInfo(unsigned short width, unsigned short height) : size(width, height) {}

GlobCreationInfo::GlobCreationInfo(XY<int> size) : size(size) {}

GlobCreationInfo::GlobCreationInfo(GlobCreationInfo const& other)
    : size(other.size), parent(other.parent), screenPosition(other.screenPosition),
      palette(other.palette ? std::make_unique<Palette>(*other.palette) : nullptr), border(other.border),
      hasBorder(other.hasBorder), className(other.className), useParentAllotment(other.useParentAllotment),
      config(other.config) {}

GlobCreationInfo& GlobCreationInfo::operator=(GlobCreationInfo const& other) {
  if (this != &other) {
    GlobCreationInfo copy(other);
    size = copy.size;
    parent = copy.parent;
    screenPosition = copy.screenPosition;
    palette = std::move(copy.palette);
    border = copy.border;
    hasBorder = copy.hasBorder;
    className = copy.className;
    useParentAllotment = copy.useParentAllotment;
    config = std::move(copy.config);
  }
  return *this;
}

GlobCreationInfo::~GlobCreationInfo() = default;

GlobCreationInfo& GlobCreationInfo::setPalette(Palette const& newPalette) {
  palette = std::make_unique<Palette>(newPalette);
  return *this;
}
