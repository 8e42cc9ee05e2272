#pragma once

#include <zowidgets/host/base/LightweightString.h>

#include <concepts>
#include <cstddef>
#include <memory>
#include <new>
#include <span>
#include <string_view>
#include <vector>

namespace JSON {

class ElementAssembler;

// One parsed JSON object or array. Its members are sorted by kind:
// - objects and arrays are its children, in document order, each with the key
//   it had (empty inside an array);
// - strings, booleans and numbers are its attributes, one ordered list for each
//   kind, each entry with its key (empty inside an array).
// So an array of strings is an element with string attributes and no names,
// read by index. Order within a kind is kept; order between kinds is not.
// Nulls are dropped. Strings and booleans are found by key exactly, numbers by
// key without regard to ASCII case; either way the first match wins. A key
// whose value has another kind reads as absent, and gives the default.
//
// Names and texts are UTF-8 and live as long as the element: a view taken
// from one is valid while some handle to the element is held. Each view's
// data is followed by a NUL, so it also serves as a C string (a text with an
// escaped NUL inside stops there when used that way).
//
// Counts are 16-bit, as callers index with unsigned short: a list longer than
// 65535 counts as 65535, and its span still gives every entry.
//
// Elements are made only by an ElementAssembler (JSON::parse uses one) and
// never change, so one may be read from several threads at once.
class ZO_API Element final : public iObject {
public:
  template <class Value> struct Attrib {
    std::string_view name;
    Value value;
  };
  using NumericAttrib = Attrib<double>;
  using StringAttrib = Attrib<std::string_view>;
  using BoolAttrib = Attrib<bool>;

  Element(Element const&) = delete;
  Element& operator=(Element const&) = delete;
  ~Element() override;
  // Elements live in their document's arena, which only they keep alive:
  // deleting one ends it and then lets go of the arena.
  static void operator delete(Element* element, std::destroying_delete_t) noexcept;

  // The key this element had in its parent object; empty for the root and for
  // the items of an array.
  std::string_view getName() const noexcept { return name_; }
  bool isArray() const noexcept { return isArray_; }

  // Children: objects and arrays. Null when out of range or not found.
  unsigned short getNumChildren() const noexcept { return count(children_); }
  Zo::Ptr<Element> getChild(unsigned short index) const;
  Zo::Ptr<Element> getChild(char const* key) const;
  // Any other integer type; without it getChild(0) would be ambiguous.
  template <std::integral Index> Zo::Ptr<Element> getChild(Index index) const {
    return inRange(index, children_.size()) ? children_[static_cast<std::size_t>(index)] : Zo::Ptr<Element>();
  }

  // Strings by key: empty when absent.
  bool hasString(char const* key) const noexcept { return find(strings_, key) != nullptr; }
  LightweightString<char> getString(char const* key) const;
  LightweightString<wchar_t> getWString(char const* key) const;
  // Strings by index, as for an array of strings: empty when out of range.
  unsigned short getNumStringAttribs() const noexcept { return count(strings_); }
  LightweightString<char> getStringAttribName(unsigned short index) const;
  LightweightString<char> getStringAttrib(unsigned short index) const;
  LightweightString<wchar_t> getWStringAttrib(unsigned short index) const;
  std::span<StringAttrib const> getStringAttribs() const noexcept { return strings_; }

  // Booleans.
  bool hasBool(char const* key) const noexcept { return find(bools_, key) != nullptr; }
  bool getBool(char const* key, bool def) const noexcept;
  unsigned short getNumBoolAttribs() const noexcept { return count(bools_); }
  std::span<BoolAttrib const> getBoolAttribs() const noexcept { return bools_; }

  // Numbers, as doubles; the key is matched without regard to ASCII case.
  bool hasNumber(char const* key) const noexcept { return findNumericAttrib(key) != nullptr; }
  double getNumber(char const* key, double def) const noexcept;
  NumericAttrib const* findNumericAttrib(char const* key) const noexcept;
  unsigned short getNumNumericAttribs() const noexcept { return count(numbers_); }
  LightweightString<char> getNumericAttribName(unsigned short index) const;
  std::span<NumericAttrib const> getNumericAttribs() const noexcept { return numbers_; }

private:
  friend class ElementAssembler;
  Element(Zo::Ptr<iObject> storage, std::string_view name, bool isArray) noexcept;

  template <class T> static unsigned short count(std::span<T> items) noexcept {
    return items.size() > 0xFFFF ? 0xFFFF : static_cast<unsigned short>(items.size());
  }
  template <std::integral Index> static bool inRange(Index index, std::size_t size) noexcept {
    if constexpr (std::is_signed_v<Index>)
      if (index < 0)
        return false;
    return static_cast<std::make_unsigned_t<Index>>(index) < size;
  }
  template <class T> static T const* find(std::span<T const> items, char const* key) noexcept {
    if (!key)
      return nullptr;
    std::string_view wanted(key);
    for (T const& item : items)
      if (item.name == wanted)
        return &item;
    return nullptr;
  }

  // The block that holds names, texts and the lists below; released last.
  Zo::Ptr<iObject> storage_;
  std::string_view name_;
  bool isArray_;
  std::span<Zo::Ptr<Element>> children_;
  std::span<StringAttrib const> strings_;
  std::span<BoolAttrib const> bools_;
  std::span<NumericAttrib const> numbers_;
};

// Builds elements from a stream of JSON events, as a parser reports them.
// Every start has its end; the first value started is the root. A top-level
// string, number or boolean is kept as the one attribute of an otherwise empty
// root, as if it were an array of one. Nesting deeper than kMaxDepth makes
// the start fail, and the caller is to give up.
class ZO_API ElementAssembler {
public:
  static constexpr int kMaxDepth = 256;

  ElementAssembler();
  ElementAssembler(ElementAssembler const&) = delete;
  ElementAssembler& operator=(ElementAssembler const&) = delete;
  ~ElementAssembler();

  // The key of the next value inside an object; ignored inside an array.
  void key(std::string_view name);
  // A reader that decodes in place hands over its buffer, so that the
  // elements can use names and texts where they lie instead of copying them.
  // Only views into an adopted block, each followed by a NUL, may be given
  // to the InPlace forms.
  void adopt(std::unique_ptr<char[]> block);
  void keyInPlace(std::string_view name);
  void addStringInPlace(std::string_view text);
  bool startObject() { return start(false); }
  bool startArray() { return start(true); }
  void end();
  void addString(std::string_view text);
  void addNumber(double value);
  void addBool(bool value);
  void addNull();

  // The root once it has ended; null before, or if nothing was added.
  Zo::Ptr<Element> result() const { return root_; }

private:
  class Arena;
  struct Frame {
    std::string_view name;
    bool isArray;
    std::size_t firstChild, firstString, firstBool, firstNumber;
  };

  bool start(bool isArray);
  std::string_view takeName();
  std::string_view keep(std::string_view text);
  template <class AddValue> void addTopLevelScalar(AddValue const& addValue);
  template <class T> std::span<T> keepRange(std::vector<T>& pending, std::size_t first);

  Zo::Ptr<iObject> storage_;
  Arena* arena_;
  std::string_view pendingName_;
  std::vector<Frame> frames_;
  std::vector<Zo::Ptr<Element>> children_;
  std::vector<Element::StringAttrib> strings_;
  std::vector<Element::BoolAttrib> bools_;
  std::vector<Element::NumericAttrib> numbers_;
  Zo::Ptr<Element> root_;
};

} // namespace JSON
