#pragma once

#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/base/PStream.h>

// The root of objects with a layered binary form: each class from this one
// down to the most derived stores one chunk, the next class's chunk nested
// in it (StreamableTraits). The root's own chunk carries the stream's layer
// format version and no payload; its short name is "$". An object keeps the
// revision of the last layer it read.
class ZO_API Streamable {
public:
  // How clone() makes its copy; every kind copies the revision.
  enum BuilderType : int { kCopyOf = 2 };
  // What packing and unpacking a layer returns.
  enum eStatus : int { kPacked = 2, kUnpacked = 3, kStreamError = 6, kWrongLayer = 7, kUnexpectedEnd = 8 };
  static constexpr char kShortName[] = "$";
  static constexpr char kPrintableTypeName[] = "Streamable";

  Streamable() = default;
  Streamable(Streamable const&) = default;
  Streamable& operator=(Streamable const&) = default;
  virtual ~Streamable() = default;

  virtual int STRM_hierarchyUnpack(PStream& stream) = 0;
  virtual int STRM_hierarchyPack(PStream& stream) const = 0;
  virtual Streamable* clone(BuilderType type) const = 0;
  // The classes from the most derived to this one, for messages; with
  // `shortForm`, the most derived layer's short name alone.
  virtual LightweightString<char> hierarchyName(bool withRevisions, bool shortForm) const = 0;
  // Copies another object of the same class; anything else is ignored.
  virtual void assign(Streamable const* other) = 0;

  unsigned getMajorRevision() const noexcept { return majorRevision_; }
  unsigned getMinorRevision() const noexcept { return minorRevision_; }
  void setRevision(unsigned major, unsigned minor) noexcept {
    majorRevision_ = static_cast<unsigned char>(major);
    minorRevision_ = static_cast<unsigned char>(minor);
  }
  // Every layer is written at revision 1.0, which the object then carries.
  void stampWrittenRevision() const noexcept {
    majorRevision_ = 1;
    minorRevision_ = 0;
  }

  // The root layer's payload: none.
  void pack(PStream&) const {}
  void unpack(PStream&) {}

protected:
  // `derived` followed by the root's name.
  static LightweightString<char> STRM_L_Streamable_buildHierarchyName(LightweightString<char> const& derived);

private:
  mutable unsigned char majorRevision_ = 1;
  mutable unsigned char minorRevision_ = 0;
};

template <class T> char const* getPrintableTypeName() { return T::kPrintableTypeName; }
