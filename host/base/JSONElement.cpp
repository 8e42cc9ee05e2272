#include <zowidgets/host/base/JSONElement.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

namespace JSON {

namespace {

bool equalIgnoringAsciiCase(std::string_view a, char const* b) noexcept {
  auto lower = [](unsigned char c) { return c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c; };
  std::size_t i = 0;
  for (; i < a.size(); ++i) {
    if (b[i] == '\0' || lower(static_cast<unsigned char>(a[i])) != lower(static_cast<unsigned char>(b[i])))
      return false;
  }
  return b[i] == '\0';
}

} // namespace

// One block per parsed document for every element, name, text and list in it,
// so that a document costs a few large allocations.
class ElementAssembler::Arena : public iObject {
public:
  void* allocate(std::size_t size, std::size_t alignment) {
    std::size_t start = (used_ + alignment - 1) & ~(alignment - 1);
    if (blocks_.empty() || start + size > blockSize_) {
      blockSize_ = std::max(size, std::min(blockSize_ * 2, kLargestBlock));
      blocks_.push_back(std::make_unique_for_overwrite<std::byte[]>(blockSize_));
      start = 0;
    }
    used_ = start + size;
    return blocks_.back().get() + start;
  }

  void adopt(std::unique_ptr<char[]> block) { adopted_.push_back(std::move(block)); }

private:
  static constexpr std::size_t kLargestBlock = 64 * 1024;
  std::vector<std::unique_ptr<std::byte[]>> blocks_;
  std::vector<std::unique_ptr<char[]>> adopted_;
  std::size_t blockSize_ = 2048;
  std::size_t used_ = 0;
};

Element::Element(Zo::Ptr<iObject> storage, std::string_view name, bool isArray) noexcept
    : storage_(std::move(storage)), name_(name), isArray_(isArray) {}

void Element::operator delete(Element* element, std::destroying_delete_t) noexcept {
  Zo::Ptr<iObject> storage = std::move(element->storage_);
  element->~Element();
}

Element::~Element() {
  // The children live in the arena, which only frees memory: end them here.
  for (Zo::Ptr<Element>& child : children_)
    child.~Ptr();
}

Zo::Ptr<Element> Element::getChild(unsigned short index) const {
  return index < children_.size() ? children_[index] : Zo::Ptr<Element>();
}

Zo::Ptr<Element> Element::getChild(char const* key) const {
  if (!key)
    return {};
  std::string_view wanted(key);
  for (Zo::Ptr<Element> const& child : children_)
    if (child->name_ == wanted)
      return child;
  return {};
}

LightweightString<char> Element::getString(char const* key) const {
  StringAttrib const* found = find(strings_, key);
  return found ? LightweightString<char>(found->value) : LightweightString<char>();
}

LightweightString<wchar_t> Element::getWString(char const* key) const {
  StringAttrib const* found = find(strings_, key);
  return found ? LightweightString<wchar_t>::fromUTF8(found->value) : LightweightString<wchar_t>();
}

LightweightString<char> Element::getStringAttribName(unsigned short index) const {
  return index < strings_.size() ? LightweightString<char>(strings_[index].name) : LightweightString<char>();
}

LightweightString<char> Element::getStringAttrib(unsigned short index) const {
  return index < strings_.size() ? LightweightString<char>(strings_[index].value) : LightweightString<char>();
}

LightweightString<wchar_t> Element::getWStringAttrib(unsigned short index) const {
  return index < strings_.size() ? LightweightString<wchar_t>::fromUTF8(strings_[index].value)
                                 : LightweightString<wchar_t>();
}

bool Element::getBool(char const* key, bool def) const noexcept {
  BoolAttrib const* found = find(bools_, key);
  return found ? found->value : def;
}

double Element::getNumber(char const* key, double def) const noexcept {
  NumericAttrib const* found = findNumericAttrib(key);
  return found ? found->value : def;
}

Element::NumericAttrib const* Element::findNumericAttrib(char const* key) const noexcept {
  if (!key)
    return nullptr;
  for (NumericAttrib const& attrib : numbers_)
    if (equalIgnoringAsciiCase(attrib.name, key))
      return &attrib;
  return nullptr;
}

LightweightString<char> Element::getNumericAttribName(unsigned short index) const {
  return index < numbers_.size() ? LightweightString<char>(numbers_[index].name) : LightweightString<char>();
}

ElementAssembler::ElementAssembler() {
  auto arena = Zo::make<Arena>();
  arena_ = arena.get();
  storage_ = arena;
}

ElementAssembler::~ElementAssembler() = default;

void ElementAssembler::key(std::string_view name) {
  if (!frames_.empty() && !frames_.back().isArray)
    pendingName_ = keep(name);
}

void ElementAssembler::keyInPlace(std::string_view name) {
  if (!frames_.empty() && !frames_.back().isArray)
    pendingName_ = name;
}

void ElementAssembler::adopt(std::unique_ptr<char[]> block) { arena_->adopt(std::move(block)); }

std::string_view ElementAssembler::takeName() {
  std::string_view name = pendingName_;
  pendingName_ = {};
  return name;
}

std::string_view ElementAssembler::keep(std::string_view text) {
  auto* copy = static_cast<char*>(arena_->allocate(text.size() + 1, 1));
  std::memcpy(copy, text.data(), text.size());
  copy[text.size()] = '\0';
  return {copy, text.size()};
}

bool ElementAssembler::start(bool isArray) {
  if (frames_.size() >= kMaxDepth)
    return false;
  frames_.push_back({takeName(), isArray, children_.size(), strings_.size(), bools_.size(), numbers_.size()});
  return true;
}

template <class T> std::span<T> ElementAssembler::keepRange(std::vector<T>& pending, std::size_t first) {
  std::size_t count = pending.size() - first;
  if (count == 0)
    return {};
  auto* items = static_cast<T*>(arena_->allocate(count * sizeof(T), alignof(T)));
  std::uninitialized_move(pending.begin() + static_cast<std::ptrdiff_t>(first), pending.end(), items);
  pending.resize(first);
  return {items, count};
}

void ElementAssembler::end() {
  if (frames_.empty())
    return;
  Frame frame = frames_.back();
  frames_.pop_back();
  void* memory = arena_->allocate(sizeof(Element), alignof(Element));
  Zo::Ptr<Element> element(::new (memory) Element(storage_, frame.name, frame.isArray));
  element->children_ = keepRange(children_, frame.firstChild);
  element->strings_ = keepRange(strings_, frame.firstString);
  element->bools_ = keepRange(bools_, frame.firstBool);
  element->numbers_ = keepRange(numbers_, frame.firstNumber);
  if (frames_.empty())
    root_ = std::move(element);
  else
    children_.push_back(std::move(element));
}

void ElementAssembler::addString(std::string_view text) {
  if (frames_.empty())
    return addTopLevelScalar([&] { addString(text); });
  std::string_view name = takeName();
  strings_.push_back({name, keep(text)});
}

void ElementAssembler::addStringInPlace(std::string_view text) {
  if (frames_.empty())
    return addTopLevelScalar([&] { addStringInPlace(text); });
  strings_.push_back({takeName(), text});
}

void ElementAssembler::addNumber(double value) {
  if (frames_.empty())
    return addTopLevelScalar([&] { addNumber(value); });
  numbers_.push_back({takeName(), value});
}

void ElementAssembler::addBool(bool value) {
  if (frames_.empty())
    return addTopLevelScalar([&] { addBool(value); });
  bools_.push_back({takeName(), value});
}

void ElementAssembler::addNull() {
  if (frames_.empty())
    return addTopLevelScalar([] {});
  takeName();
}

template <class AddValue> void ElementAssembler::addTopLevelScalar(AddValue const& addValue) {
  startArray();
  addValue();
  end();
}

} // namespace JSON
