#pragma once

#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/base/Ptr.h>
#include <zowidgets/host/base/XY.h>
#include <zowidgets/host/drawing/ImageSurface.h>

#include <cstddef>
#include <memory>

class EventHandler;

namespace ZoImage {

// What a load brings back: the picture, empty when the file could not be
// read, with the file and the size it was asked for.
class ZO_API ImageLoadInfo : public iObject {
public:
  ImageLoadInfo(LightweightString<wchar_t> path, XY<int> fitWithin, Zo::Image::Surface picture)
      : path_(std::move(path)), fitWithin_(fitWithin), picture_(std::move(picture)) {}

  LightweightString<wchar_t> const& path() const noexcept { return path_; }
  XY<int> fitWithin() const noexcept { return fitWithin_; }
  Zo::Image::Surface const& surface() const noexcept { return picture_; }
  bool loaded() const noexcept { return !picture_.empty(); }

private:
  LightweightString<wchar_t> path_;
  XY<int> fitWithin_;
  Zo::Image::Surface picture_;
};

// The program's shared store of decoded pictures. Pictures are decoded by
// Loader on worker threads and kept, one copy per file and size, under a
// memory ceiling: when a new picture would pass it, the least recently used
// ones are dropped. Failed loads are not kept, so a later request tries again.
//
// Results reach the asker on the user-interface thread as a message named
// kImageLoadedMsg whose data is an ImageLoadInfo, and only while the asker
// still lives with the stamp it had when it asked: a widget destroyed, or a
// new one built at the same address, never hears of an old request.
class ZO_API Cache {
public:
  static constexpr char const* kImageLoadedMsg = "ZoImage::Cache::imageLoaded";
  static constexpr std::size_t kDefaultMemoryCeiling = std::size_t(256) << 20;

  // Made on first use, destroyed at exit after its workers have stopped.
  static Cache& instance();
  ~Cache();
  Cache(Cache const&) = delete;
  Cache& operator=(Cache const&) = delete;

  // `fitWithin` of (0, 0) is the whole picture; any other size is a
  // separate entry, decoded to fit it (see Loader::loadImage).
  bool isCached(LightweightString<wchar_t> const& path, XY<int> fitWithin = {0, 0}) const;
  // The kept picture, marked as just used; empty when there is none.
  Zo::Image::Surface retrieve(LightweightString<wchar_t> const& path, XY<int> fitWithin = {0, 0});
  // Asks for the picture. A kept one is delivered through the queue at once;
  // a request for a file already being decoded waits for that decode.
  void loadAsync(LightweightString<wchar_t> const& path, EventHandler* handler, XY<int> fitWithin = {0, 0});

  void setMemoryCeiling(std::size_t bytes);
  std::size_t memoryCeiling() const;
  std::size_t memoryInUse() const;
  std::size_t cachedCount() const;
  // How many decodes the workers have started since the last clear().
  std::size_t decodeCount() const;
  // True when no decode is waiting or running.
  bool idle() const;
  // Drops every kept picture and resets the count; decodes under way finish
  // and deliver as usual. The ceiling goes back to its default.
  void clear();

private:
  Cache();
  struct State;
  std::unique_ptr<State> state_;
};

} // namespace ZoImage
