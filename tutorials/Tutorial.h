#pragma once

#include <zowidgets/host/base/JSON.h>
#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/base/XY.h>
#include <zowidgets/host/toolkit/PositionNames.h>

#include <vector>

// A tutorial: a scripted walk through the application's interface.
// An ordered list of phases, each of which may point at something, show a
// message and perform one input action, and a list of named interface
// components with the positions and sizes they had when it was recorded.
// This is the document and its JSON file format only; playing a tutorial is
// the application's affair, and the store of tutorial files is
// TutorialsManager. docs/tutorials.md gives the file format.
//
// Every number read from a file is narrowed to a float before it is stored,
// and every number is written as a float, so a value goes through single
// precision on every load and save.
class ZO_API Tutorial : public JSON::iPersistable {
public:
  // A recorded interface component. Not persistable by itself:
  // Tutorial::read and write handle it.
  struct UIComponent {
    LightweightString<char> type;  // the name getComponentPosition matches
    XY<double> position{0.0, 0.0}; // keys "x", "y"
    XY<double> offset{0.0, 0.0};   // carried and copied, never in the file
    XY<double> size{0.0, 0.0};     // x the width, y the height
  };

  // Where the pointer goes: an absolute position, or the name of a component
  // or widget. Written in one form only (see write).
  class ZO_API Pointer : public JSON::iPersistable {
  public:
    static constexpr double kNoPosition = -1234.0;

    // Valid when x is not kNoPosition or, failing that, the target is not
    // empty. y plays no part.
    bool valid() const noexcept;
    // The target when there is one; otherwise "," whatever the coordinates.
    LightweightString<wchar_t> getDisplayString() const;

    // Into the object open on the builder: "x" and "y" when x is set (the
    // target is then dropped), else "target" when it is not empty, else
    // nothing.
    void write(JSON::Builder& builder) const override;
    // "target" first; a non-empty target ends the reading and leaves the
    // position as it was. Otherwise "x" and "y", each -1234 when absent.
    bool read(Zo::Ptr<JSON::Element> const& element) override;

    XY<double> position{kNoPosition, kNoPosition};
    LightweightString<wchar_t> target;
  };

  // The text shown in a phase, placed on the screen (origin) or against a
  // target (relativity).
  class ZO_API Message : public JSON::iPersistable {
  public:
    // Valid when the text is not empty.
    bool valid() const noexcept { return !text.empty(); }

    // Screen form ("origin", "text") when the target is empty, else target
    // form ("target", "relativity", "text").
    void write(JSON::Builder& builder) const override;
    // Screen form when the element holds a string "origin": the target and
    // relativity are then left alone. Otherwise "target" and "relativity"
    // (an absent relativity reads as the empty text does). "text" last, in
    // both forms.
    bool read(Zo::Ptr<JSON::Element> const& element) override;

    LightweightString<wchar_t> text;
    eCoordinateOrigin origin = kOriginCentre;
    LightweightString<wchar_t> target;
    eWidgetRelativity relativity = kRelativeBelow;
  };

  // The input performed in a phase: an event's name and modifier flags.
  class ZO_API Action : public JSON::iPersistable {
  public:
    enum eModifier : unsigned {
      kShift = 0x1000000,
      kCtrl = 0x2000000,
      kCmd = 0x100000,
      kAlt = 0x4000000,
    };

    // The string of exactly one flag ("shift", "ctrl", "cmd", "alt"); any
    // other value, combinations included, gives an empty string.
    static LightweightString<char> asString(unsigned int modifier);

    // Valid when the event is not empty.
    bool valid() const noexcept { return !event.empty(); }

    // "event", then "modifiers" (one string per flag set, in the order shift,
    // ctrl, cmd, alt) when the modifiers are not 0.
    void write(JSON::Builder& builder) const override;
    // "event"; each string of "modifiers" that is exactly a flag's string
    // ORs that flag in. The modifiers are not cleared first.
    bool read(Zo::Ptr<JSON::Element> const& element) override;

    LightweightString<char> event;
    unsigned int modifiers = 0;
  };

  // One step of the script.
  class ZO_API Phase : public JSON::iPersistable {
  public:
    Phase() = default;
    // Member-wise copy of pointer, message, action and pause.
    Phase(Phase const& other);
    Phase& operator=(Phase const&) = delete;

    // Into the object open on the builder: "pause" unless it is 0, then
    // "pointer", "message" and "action", each only when valid.
    void write(JSON::Builder& builder) const override;
    // The short form "text" into the message's text, "pause", then the
    // objects "pointer", "message" (whose text replaces the short form) and
    // "action", those that are there.
    bool read(Zo::Ptr<JSON::Element> const& element) override;

    Pointer pointer;
    Message message;
    Action action;
    float pause = 0.0f; // in the unit that the player gives it
  };

  Tutorial() = default;
  // An empty tutorial that loads `path`.
  explicit Tutorial(LightweightString<wchar_t> const& path);
  // Copies name, category, path and components, and makes a new copy of
  // every phase, so that the copy can be edited without touching the source.
  Tutorial(Tutorial const& other);
  Tutorial& operator=(Tutorial const&) = delete;

  // Stores `path` as the tutorial's path, whatever happens next; reads the
  // file if it parses as JSON, and otherwise leaves the tutorial as it was.
  void load(LightweightString<wchar_t> const& path);
  // Stores `path` as the tutorial's path and writes the tutorial there as a
  // TextFile, replacing the old file atomically: a failed or interrupted
  // write leaves the old file whole. Nothing is reported.
  void save(LightweightString<wchar_t> const& path);

  // Starts an anonymous object on the builder, writes "name", "category",
  // "components" and "phases" into it, and ends it.
  void write(JSON::Builder& builder) const override;
  // Adds what the element holds to what the tutorial has: "name" and
  // "category" are set, components and phases are appended. Always true.
  bool read(Zo::Ptr<JSON::Element> const& element) override;

  // The file name of the path: the tutorial's identity.
  LightweightString<wchar_t> getID() const;
  // The position of the last component of that type; (0, 0) when none has
  // it. The float has no effect.
  XY<double> getComponentPosition(LightweightString<char> const& type, float) const;

  void addPhase(Zo::Ptr<Phase> const& phase);
  // Removes the first entry that is that very object; no change otherwise.
  void removePhase(Zo::Ptr<Phase> const& phase);
  // The phase at `index`, null beyond the end. The count is cut to 16 bits
  // before it is compared, as the index is.
  Zo::Ptr<Phase> getPhase(unsigned short index);
  Zo::Ptr<Phase const> getPhase(unsigned short index) const;
  // The phase count cut to 16 bits, as getPhase compares it.
  unsigned short getNumPhases() const noexcept { return static_cast<unsigned short>(phases_.size()); }

  std::vector<Zo::Ptr<Phase>> const& phases() const noexcept { return phases_; }
  LightweightString<wchar_t> const& name() const noexcept { return name_; }
  void setName(LightweightString<wchar_t> const& name) { name_ = name; }
  LightweightString<wchar_t> const& category() const noexcept { return category_; }
  void setCategory(LightweightString<wchar_t> const& category) { category_ = category; }
  // The file last saved to or loaded from; not stored in the file.
  LightweightString<wchar_t> const& path() const noexcept { return path_; }
  std::vector<UIComponent> const& components() const noexcept { return components_; }
  std::vector<UIComponent>& components() noexcept { return components_; }

private:
  std::vector<Zo::Ptr<Phase>> phases_;
  LightweightString<wchar_t> name_;
  LightweightString<wchar_t> category_;
  LightweightString<wchar_t> path_;
  std::vector<UIComponent> components_;
};
