// Tutorials: a tutorial file, written as a person might write one by hand
// (a short-form text, a key in capitals, a key the format does not know),
// read back with Tutorial and shown as a tree of its components and phases.
#include "PageLayout.h"

#include <zowidgets/host/base/AtomicFile.h>
#include <zowidgets/host/widgets/lists/TreeView.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/tutorials/Tutorial.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <string_view>

namespace {

using WString = LightweightString<wchar_t>;

constexpr char kTutorialText[] = R"({
  "name": "Ripple trim",
  "category": "Editing",
  "author": "not part of the format, so ignored",
  "components": [
    { "type": "timeline", "width": 1280, "height": 320, "x": 0, "y": 24 },
    { "type": "viewer", "width": 640, "height": 360, "X": 320, "y": 400 }
  ],
  "phases": [
    { "pause": 1.5, "pointer": { "target": "timeline" },
      "message": { "target": "timeline", "relativity": "above", "text": "Clips sit on tracks here" } },
    { "text": "Drag the cut with Shift and Alt held",
      "pointer": { "x": 100, "y": 150 },
      "action": { "event": "drag", "modifiers": ["alt", "shift"] } },
    { "pause": 0.25, "message": { "origin": "bottomright", "text": "Done: the gap closed by itself" } }
  ]
})";

// Where the page keeps its file: the system's temporary folder.
WString tutorialFile() {
  return WString::fromUTF8((std::filesystem::temp_directory_path() / "zogallery-ripple-trim.ZoTutorial").string());
}

WString number(double value) {
  std::wostringstream text;
  text << value;
  return WString(text.str());
}

WString pair(XY<double> const& point) { return WString(L"(") + number(point.x) + L", " + number(point.y) + L")"; }

WString describe(Tutorial::Pointer const& pointer) {
  if (!pointer.target.empty())
    return WString(L"Pointer to ") + pointer.target;
  return WString(L"Pointer to ") + pair(pointer.position);
}

// A place's name as a reader says it: the file's "bottomright" is the
// bottom right.
WString spokenPlace(std::string const& name) {
  for (std::string_view const side : {"top", "bottom"})
    if (name.size() > side.size() && name.starts_with(side))
      return WString::fromUTF8(std::string(side) + ' ' + name.substr(side.size()));
  return WString::fromUTF8(name);
}

WString describe(Tutorial::Message const& message) {
  WString const text = WString(L"Message \u201C") + message.text + L"\u201D ";
  if (message.target.empty())
    return text + L"at the screen's " + spokenPlace(std::string(asString(message.origin).view()));
  return text + WString::fromUTF8(asString(message.relativity).view()) + L" " + message.target;
}

WString describe(Tutorial::Action const& action) {
  WString text = WString(L"Action ") + WString::fromUTF8(action.event.view());
  for (unsigned flag :
       {Tutorial::Action::kShift, Tutorial::Action::kCtrl, Tutorial::Action::kCmd, Tutorial::Action::kAlt})
    if (action.modifiers & flag)
      text += WString(L" + ") + WString::fromUTF8(Tutorial::Action::asString(flag).view());
  return text;
}

iTreeViewAdaptor::Item item(WString const& id, WString const& text) {
  iTreeViewAdaptor::Item made;
  made.id = id;
  made.text = UIString(text);
  return made;
}

// Ids: "components" and "phases" at the top, "components/2" a component,
// "phases/1" a phase, "phases/1/pointer" a part of it.
class TutorialAdaptor : public iTreeViewAdaptor {
public:
  void show(Zo::Ptr<Tutorial> const& tutorial) { tutorial_ = tutorial; }

  std::vector<Item> getChildItems(WString const& parentId) const override {
    std::vector<Item> items;
    if (!tutorial_)
      return items;
    std::wstring const parent = parentId.str();
    if (parent.empty()) {
      items.push_back(
          item(L"components", WString(L"Components (") + number(double(tutorial_->components().size())) + L")"));
      items.push_back(item(L"phases", WString(L"Phases (") + number(tutorial_->getNumPhases()) + L")"));
    } else if (parent == L"components") {
      for (std::size_t i = 0; i < tutorial_->components().size(); ++i) {
        Tutorial::UIComponent const& component = tutorial_->components()[i];
        items.push_back(item(WString(L"components/" + std::to_wstring(i)),
                             WString::fromUTF8(component.type.view()) + L": " + number(component.size.x) + L" \u00D7 " +
                                 number(component.size.y) + L" at " + pair(component.position)));
      }
    } else if (parent == L"phases") {
      for (unsigned short i = 0; i < tutorial_->getNumPhases(); ++i) {
        Tutorial::Phase const& phase = *tutorial_->getPhase(i);
        WString text = WString(L"Phase " + std::to_wstring(i + 1));
        if (phase.pause != 0.0f)
          text += WString(L", pause ") + number(phase.pause);
        items.push_back(item(WString(L"phases/" + std::to_wstring(i)), text));
      }
    } else if (parent.starts_with(L"phases/")) {
      Tutorial::Phase const& phase = *tutorial_->getPhase(static_cast<unsigned short>(std::stoi(parent.substr(7))));
      if (phase.pointer.valid())
        items.push_back(item(parentId + L"/pointer", describe(phase.pointer)));
      if (phase.message.valid())
        items.push_back(item(parentId + L"/message", describe(phase.message)));
      if (phase.action.valid())
        items.push_back(item(parentId + L"/action", describe(phase.action)));
    }
    return items;
  }

  bool hasChildItems(WString const& id) const override {
    std::wstring const path = id.str();
    return path == L"components" || path == L"phases" ||
           (path.starts_with(L"phases/") && path.find(L'/', 7) == std::wstring::npos);
  }

private:
  Zo::Ptr<Tutorial> tutorial_;
};

Glob* buildTutorialsPage(PageContext const& context) {
  static TutorialAdaptor adaptor; // outlives every page window
  WString const path = tutorialFile();
  Zo::writeFileAtomically(toNarrow(path), kTutorialText);
  auto const tutorial = Zo::make<Tutorial>(path);
  adaptor.show(tutorial);

  PageMetrics const m = PageMetrics::current();
  XY<int> const treeSize(m.row * 27, m.row * 14);
  StandardPanel* panel = openPageWindow(context, XY<int>(treeSize.x, treeSize.y + m.row + m.gap),
                                        WString(L"Tutorial: ") + tutorial->name());
  TextLabel::InitArgs heading(XY<int>(treeSize.x, m.row));
  heading.text = tutorial->category() + L" \u2014 read from " + tutorial->getID();
  auto* label = panel->createWidget<TextLabel>(heading, Glob::UserTopLeft(0, 0));
  TreeView::InitArgs args(treeSize);
  args.adaptor = &adaptor;
  auto* tree = panel->createWidget<TreeView>(args, Glob::Below(m.gap, label));
  tree->expand(L"components");
  tree->expand(L"phases");
  for (unsigned short i = 0; i < tutorial->getNumPhases(); ++i)
    tree->expand(WString(L"phases/" + std::to_wstring(i)));
  tree->setSelectedItem(L"phases/1/action");
  // The keys walk the tree from the start, as on the other list pages.
  tree->claimKbdFocus();
  return panel;
}

PageRegistrar const tutorialsPage{"tutorials", "Tutorials",
                                  "A tutorial file written by hand, with a short-form text, a key in capitals and "
                                  "a key the format ignores, read with Tutorial and shown as a tree: its components "
                                  "with their sizes and places, and its phases with pointer, message and action",
                                  buildTutorialsPage};

} // namespace
