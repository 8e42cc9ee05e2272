#pragma once

#include <zowidgets/host/base/DynamicIntegralStorage.h>
#include <zowidgets/host/base/Log.h>
#include <zowidgets/host/base/Streamable.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <type_traits>
#include <vector>

// The layers still to write, the root's on top: each writes its own chunk
// and then calls the next, which nests inside it.
struct StreamableTraitsBase {
  struct PackFunctionStackEntry;
  using PackStack = std::vector<PackFunctionStackEntry>;
  struct PackFunctionStackEntry {
    int (*function)(void const* object, PStream& stream, PackStack& stack);
    void const* object;
  };
  static constexpr std::uint32_t kLengthPlaceholder = 4294967295u;
};

// The chunk of one layer of T, whose base class Base has the layer around it
// (void for Streamable itself). A chunk is: the short name (a string), the
// major and minor revision (a byte each), the length of the layer's own
// payload and the length of that payload and every nested chunk (32 bits
// each), the payload (T::pack), then the nested chunks.
template <class T, class Base> struct StreamableTraits : StreamableTraitsBase {
  static constexpr bool kIsRoot = std::is_void_v<Base>;

  // The stack entry that writes this layer of `object`.
  static PackStack::value_type entry(T const& object) { return {&packEntry, &object}; }

  // Puts this layer on top of the stack and writes from it.
  static int pack(T const& object, PStream& stream, PackStack& stack) {
    stack.push_back(entry(object));
    return packHeaderAndObject(object, stream, stack);
  }

  static int packHeaderAndObject(T const& object, PStream& stream, PackStack& stack) {
    stack.pop_back();
    StreamFile& file = stream.file();
    std::size_t const start = file.tell();
    object.stampWrittenRevision();
    // The root's major revision is the stream's layer format version, which
    // a reader takes from it to know how the lengths that follow are stored.
    unsigned const major = kIsRoot ? static_cast<unsigned>(stream.getVersion()) : object.getMajorRevision();
    writeHeader(stream, major, object.getMinorRevision(), kLengthPlaceholder, kLengthPlaceholder);
    std::size_t const payloadStart = file.tell();
    object.T::pack(stream);
    std::size_t const payloadEnd = file.tell();
    if (!stack.empty()) {
      PackFunctionStackEntry const next = stack.back();
      int const result = next.function(next.object, stream, stack);
      if (result != Streamable::kPacked && result != Streamable::kUnpacked)
        return result;
    }
    std::size_t const end = file.tell();
    file.seek(start);
    writeHeader(stream, major, object.getMinorRevision(), static_cast<std::uint32_t>(payloadEnd - payloadStart),
                static_cast<std::uint32_t>(end - payloadStart));
    file.seek(end);
    return stream.hasError() ? Streamable::kStreamError : Streamable::kPacked;
  }

  static int unpackHeaderAndObject(T& object, PStream& stream) {
    StreamFile& file = stream.file();
    LightweightString<char> name;
    if (!file.atEnd())
      if (auto read = file.getString())
        name = *read;
    unsigned major = 0;
    unsigned minor = 0;
    if (int const failed = readRevision(stream, name, major, minor))
      return failed;
    if (name == Streamable::kShortName || name == Streamable::kPrintableTypeName) {
      if (major != 1 && major != 2)
        return unrecognisedVersion();
      stream.setVersion(static_cast<int>(major));
    }
    std::uint32_t ownLength = kLengthPlaceholder;
    std::uint32_t totalLength = kLengthPlaceholder;
    readLengths(stream, ownLength, totalLength);
    std::size_t const payloadStart = file.tell();
    if (file.atEnd() && (ownLength != 0 || totalLength != 0)) {
      stream.appendMessage("Unexpected end-of-file while unpacking " + object.hierarchyName(false, false).str() +
                           ", layer " + getPrintableTypeName<T>() + ".");
      return Streamable::kUnexpectedEnd;
    }
    if (ownLength != 0) {
      if (name != T::kShortName && name != getPrintableTypeName<T>()) {
        stream.appendMessage(std::string("Expected short name '") + T::kShortName + "' for layer " +
                             getPrintableTypeName<T>() + ", got " + name.str() + ".");
        file.seek(payloadStart + totalLength);
        return Streamable::kWrongLayer;
      }
      object.setRevision(major, minor);
      object.T::unpack(stream);
      if (stream.hasError()) {
        file.seek(payloadStart + totalLength);
        return Streamable::kStreamError;
      }
    }
    std::size_t const payloadEnd = payloadStart + ownLength;
    // Named only when something is to be said about it.
    auto objectName = [&object] { return object.hierarchyName(false, false).str(); };
    if (file.tell() < payloadEnd) {
      char line[1024];
      std::snprintf(line, sizeof line,
                    "Warning: Not all object data was read while unpacking object %s, layer %s v%d.%d, %d/%d bytes "
                    "unread.\n",
                    objectName().c_str(), name.c_str(), static_cast<int>(major), static_cast<int>(minor),
                    static_cast<int>(payloadEnd - file.tell()), static_cast<int>(ownLength));
      LogBoth(line);
    } else if (file.tell() > payloadEnd) {
      char line[1024];
      std::snprintf(line, sizeof line,
                    "Error: Unpacker read beyond end of chunk while unpacking object %s, layer %s v%d.%d, %d bytes "
                    "overread.\n",
                    objectName().c_str(), name.c_str(), static_cast<int>(major), static_cast<int>(minor),
                    static_cast<int>(file.tell() - payloadEnd));
      stream.appendMessage(line);
      return Streamable::kStreamError;
    }
    file.seek(payloadEnd);
    return Streamable::kUnpacked;
  }

private:
  static int packEntry(void const* object, PStream& stream, PackStack& stack) {
    return packHeaderAndObject(*static_cast<T const*>(object), stream, stack);
  }

  static void writeHeader(PStream& stream, unsigned major, unsigned minor, std::uint32_t own, std::uint32_t total) {
    stream.writeBinary(T::kShortName);
    stream.file().setCookedChar(static_cast<unsigned char>(major));
    stream.file().setCookedChar(static_cast<unsigned char>(minor));
    stream.file().setUnsignedLong(own);
    stream.file().setUnsignedLong(total);
  }

  static int unrecognisedVersion() {
    LogBoth("Unrecognized version for Streamable base");
    return Streamable::kStreamError;
  }

  // 0, or the status to fail with.
  static int readRevision(PStream& stream, LightweightString<char> const& name, unsigned& major, unsigned& minor) {
    StreamFile& file = stream.file();
    if (stream.getVersion() == 1) {
      DynamicIntegralStorage<unsigned char, unsigned short> majorRead;
      DynamicIntegralStorage<unsigned char, unsigned short> minorRead;
      majorRead.unpack(stream);
      minorRead.unpack(stream);
      major = majorRead.value();
      minor = minorRead.value();
      if (major >= 256 || minor > 255) {
        LogBoth(std::string(major >= 256 ? " Strm1.0 Object has oversized major rev ("
                                         : " Strm1.0 Object has oversized minor rev (") +
                name.str() + "). ");
        return Streamable::kStreamError;
      }
      return 0;
    }
    if (stream.getVersion() != 2)
      return unrecognisedVersion();
    major = file.getCookedChar().value_or(0);
    minor = file.getCookedChar().value_or(0);
    return 0;
  }

  // Lengths the file does not hold stay as given: all bits set.
  static void readLengths(PStream& stream, std::uint32_t& own, std::uint32_t& total) {
    if (stream.getVersion() == 1) {
      DynamicIntegralStorage<unsigned short, unsigned int> ownRead(own);
      DynamicIntegralStorage<unsigned short, unsigned int> totalRead(total);
      ownRead.unpack(stream);
      totalRead.unpack(stream);
      own = ownRead.value();
      total = totalRead.value();
      return;
    }
    own = stream.file().getUnsignedLong().value_or(own);
    total = stream.file().getUnsignedLong().value_or(total);
  }
};
