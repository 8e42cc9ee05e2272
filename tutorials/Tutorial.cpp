#include <zowidgets/tutorials/Tutorial.h>

#include <zowidgets/host/base/TextFile.h>
#include <zowidgets/host/shell/FilePaths.h>

#include <algorithm>

namespace {

// The modifier flags in the order they are written.
constexpr std::pair<unsigned, char const*> kModifierNames[] = {
    {Tutorial::Action::kShift, "shift"},
    {Tutorial::Action::kCtrl, "ctrl"},
    {Tutorial::Action::kCmd, "cmd"},
    {Tutorial::Action::kAlt, "alt"},
};

// A number of the element, found by key without regard to case (the first
// match wins), narrowed to single precision; `def` when there is none. A value
// beyond a float's range becomes an infinity of its sign, as IEEE narrowing
// gives it.
float readNumber(JSON::Element const& element, char const* key, double def) {
  return static_cast<float>(element.getNumber(key, def));
}

void writeNumber(JSON::Builder& builder, char const* key, double value) { builder.add(key, static_cast<float>(value)); }

// The builder takes keys as C strings, and a wide string is written as is.
void writeComponent(JSON::Builder& builder, Tutorial::UIComponent const& component) {
  builder.startChild();
  builder.add("type", component.type);
  writeNumber(builder, "width", component.size.x);
  writeNumber(builder, "height", component.size.y);
  writeNumber(builder, "x", component.position.x);
  writeNumber(builder, "y", component.position.y);
  builder.end();
}

Tutorial::UIComponent readComponent(JSON::Element const& element) {
  Tutorial::UIComponent component;
  component.type = element.getString("type");
  component.position.x = readNumber(element, "x", 0.0);
  component.position.y = readNumber(element, "y", 0.0);
  component.size.x = readNumber(element, "width", 0.0);
  component.size.y = readNumber(element, "height", 0.0);
  return component;
}

} // namespace

// --- Pointer ------------------------------------------------------------

bool Tutorial::Pointer::valid() const noexcept { return position.x != kNoPosition || !target.empty(); }

LightweightString<wchar_t> Tutorial::Pointer::getDisplayString() const {
  if (!target.empty())
    return target;
  return LightweightString<wchar_t>(L",");
}

void Tutorial::Pointer::write(JSON::Builder& builder) const {
  if (position.x != kNoPosition) {
    writeNumber(builder, "x", position.x);
    writeNumber(builder, "y", position.y);
  } else if (!target.empty()) {
    builder.add("target", target);
  }
}

bool Tutorial::Pointer::read(Zo::Ptr<JSON::Element> const& element) {
  if (!element)
    return true;
  target = element->getWString("target");
  if (!target.empty())
    return true;
  position.x = readNumber(*element, "x", kNoPosition);
  position.y = readNumber(*element, "y", kNoPosition);
  return true;
}

// --- Message ------------------------------------------------------------

void Tutorial::Message::write(JSON::Builder& builder) const {
  if (target.empty()) {
    builder.add("origin", asString(origin));
  } else {
    builder.add("target", target);
    builder.add("relativity", asString(relativity));
  }
  builder.add("text", text);
}

bool Tutorial::Message::read(Zo::Ptr<JSON::Element> const& element) {
  if (!element)
    return true;
  if (element->hasString("origin")) {
    origin = CoordinateOriginFromString(element->getString("origin"));
  } else {
    target = element->getWString("target");
    relativity = WidgetRelativityFromString(element->getString("relativity"));
  }
  text = element->getWString("text");
  return true;
}

// --- Action -------------------------------------------------------------

LightweightString<char> Tutorial::Action::asString(unsigned int modifier) {
  for (auto const& [flag, name] : kModifierNames)
    if (flag == modifier)
      return LightweightString<char>(name);
  return {};
}

void Tutorial::Action::write(JSON::Builder& builder) const {
  builder.add("event", event);
  if (modifiers == 0)
    return;
  builder.startArray("modifiers");
  for (auto const& [flag, name] : kModifierNames)
    if (modifiers & flag)
      builder.add(nullptr, name);
  builder.end();
}

bool Tutorial::Action::read(Zo::Ptr<JSON::Element> const& element) {
  if (!element)
    return true;
  event = element->getString("event");
  if (Zo::Ptr<JSON::Element> const list = element->getChild("modifiers")) {
    for (unsigned short i = 0; i < list->getNumStringAttribs(); ++i) {
      LightweightString<char> const text = list->getStringAttrib(i);
      for (auto const& [flag, name] : kModifierNames)
        if (text == name)
          modifiers |= flag;
    }
  }
  return true;
}

// --- Phase --------------------------------------------------------------

Tutorial::Phase::Phase(Phase const& other)
    : Zo::InternalRefCount(), pointer(other.pointer), message(other.message), action(other.action), pause(other.pause) {
}

void Tutorial::Phase::write(JSON::Builder& builder) const {
  if (pause != 0.0f)
    builder.add("pause", pause);
  if (pointer.valid()) {
    builder.startChild("pointer");
    pointer.write(builder);
    builder.end();
  }
  if (message.valid()) {
    builder.startChild("message");
    message.write(builder);
    builder.end();
  }
  if (action.valid()) {
    builder.startChild("action");
    action.write(builder);
    builder.end();
  }
}

bool Tutorial::Phase::read(Zo::Ptr<JSON::Element> const& element) {
  if (!element)
    return true;
  Zo::Ptr<JSON::Element> const pointerElement = element->getChild("pointer");
  Zo::Ptr<JSON::Element> const messageElement = element->getChild("message");
  Zo::Ptr<JSON::Element> const actionElement = element->getChild("action");
  message.text = element->getWString("text");
  pause = readNumber(*element, "pause", 0.0);
  if (pointerElement)
    pointer.read(pointerElement);
  if (messageElement)
    message.read(messageElement);
  if (actionElement)
    action.read(actionElement);
  return true;
}

// --- Tutorial -----------------------------------------------------------

Tutorial::Tutorial(LightweightString<wchar_t> const& path) { load(path); }

Tutorial::Tutorial(Tutorial const& other)
    : Zo::InternalRefCount(), name_(other.name_), category_(other.category_), path_(other.path_),
      components_(other.components_) {
  phases_.reserve(other.phases_.size());
  for (Zo::Ptr<Phase> const& phase : other.phases_)
    phases_.push_back(phase ? Zo::make<Phase>(*phase) : Zo::Ptr<Phase>());
}

void Tutorial::load(LightweightString<wchar_t> const& path) {
  path_ = path;
  if (Zo::Ptr<JSON::Element> const root = JSON::parseFile(path))
    read(root);
}

void Tutorial::save(LightweightString<wchar_t> const& path) {
  path_ = path;
  TextFile file(path, false);
  JSON::Builder builder(JSON::Builder::kPretty);
  write(builder);
  // The document's text, line by line, into the file.
  file.append(builder.getText().view());
  file.save({}, TextFile::kUnixEndOfLine);
}

void Tutorial::write(JSON::Builder& builder) const {
  builder.startChild();
  builder.add("name", name_);
  builder.add("category", category_);
  builder.startArray("components");
  for (UIComponent const& component : components_)
    writeComponent(builder, component);
  builder.end();
  builder.startArray("phases");
  for (Zo::Ptr<Phase> const& phase : phases_) {
    builder.startChild();
    if (phase)
      phase->write(builder);
    builder.end();
  }
  builder.end();
  builder.end();
}

bool Tutorial::read(Zo::Ptr<JSON::Element> const& element) {
  if (!element)
    return true;
  name_ = element->getWString("name");
  category_ = element->getWString("category");
  Zo::Ptr<JSON::Element> const phaseList = element->getChild("phases");
  Zo::Ptr<JSON::Element> const componentList = element->getChild("components");
  if (componentList)
    for (unsigned short i = 0; i < componentList->getNumChildren(); ++i)
      components_.push_back(readComponent(*componentList->getChild(i)));
  if (phaseList) {
    for (unsigned short i = 0; i < phaseList->getNumChildren(); ++i) {
      Zo::Ptr<Phase> const phase = Zo::make<Phase>();
      phases_.push_back(phase);
      phase->read(phaseList->getChild(i));
    }
  }
  return true;
}

LightweightString<wchar_t> Tutorial::getID() const { return stripPath(path_); }

XY<double> Tutorial::getComponentPosition(LightweightString<char> const& type, float) const {
  XY<double> position(0.0, 0.0);
  for (UIComponent const& component : components_)
    if (component.type == type)
      position = component.position;
  return position;
}

void Tutorial::addPhase(Zo::Ptr<Phase> const& phase) { phases_.push_back(phase); }

void Tutorial::removePhase(Zo::Ptr<Phase> const& phase) {
  auto const found = std::find(phases_.begin(), phases_.end(), phase);
  if (found != phases_.end())
    phases_.erase(found);
}

Zo::Ptr<Tutorial::Phase> Tutorial::getPhase(unsigned short index) {
  if (index >= static_cast<unsigned short>(phases_.size()))
    return {};
  return phases_[index];
}

Zo::Ptr<Tutorial::Phase const> Tutorial::getPhase(unsigned short index) const {
  if (index >= static_cast<unsigned short>(phases_.size()))
    return {};
  return phases_[index];
}
