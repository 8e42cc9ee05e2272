#include <zowidgets/host/shell/StartupMessage.h>

#include <zowidgets/host/shell/Preferences.h>

#include <utility>

StartupMessage::StartupMessage(String title, String text, String imagePath, String id, String source, String recurrence)
    : title(std::move(title)), text(std::move(text)), imagePath(std::move(imagePath)), id(std::move(id)),
      source(std::move(source)), recurrence(std::move(recurrence)) {}

// A message that says nothing of coming back is shown once.
bool StartupMessage::isRecurring() const { return !recurrence.empty() && recurrence != L"once"; }

LightweightString<char> StartupMessage::readStateKey() const {
  // A message without an id is known by its title and text.
  String const name = id.empty() ? String((title.str() + L"|" + text.str()).c_str()) : id;
  return LightweightString<char>(("Startup message read : " + std::string(name.toUTF8().c_str())).c_str());
}

void StartupMessage::markAsRead() const { prefs().setPreference(readStateKey(), true); }

bool StartupMessage::isRead() const { return prefs().getPreference(readStateKey(), false); }
