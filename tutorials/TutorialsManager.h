#pragma once

#include <zowidgets/tutorials/Tutorial.h>

#include <zowidgets/values/notify/Notifier.h>

#include <set>
#include <vector>

// The process-wide store of tutorials. At construction it reads
// every "*.ZoTutorial" file directly in getLocation(), keeps those with a
// name and a category, and groups them by category. It creates, saves,
// clones and deletes tutorials, and tells its clients of each change as a
// Notifier: the code (the message type) says what happened and the message
// carries the tutorial.
//
// Used on the user-interface thread; the list has no lock of its own.
class ZO_API TutorialsManager : public Notifier {
public:
  // Message types of the notifications.
  enum eNotification : int {
    kTutorialCreated = 10, // by createTutorial
    kTutorialSaved = 11,   // by save
    kTutorialDeleted = 12, // by deleteTutorial
  };

  // The one instance, made on first use over the folder of that moment.
  static TutorialsManager& instance();

  // A store of its own over getLocation() as it is now, for tests and tools
  // that want a fresh scan; instance() is the one an application uses.
  TutorialsManager();
  TutorialsManager(TutorialsManager const&) = delete;
  TutorialsManager& operator=(TutorialsManager const&) = delete;

  // The folder "Tutorials" in the base folder: the application's data folder
  // (OS().appDataFolder()) unless setBaseFolder chose another.
  static LightweightString<wchar_t> getLocation();
  // Chooses the base folder of getLocation(); an empty path goes back to the
  // application's data folder. For tests: a manager made afterwards (and
  // instance(), if not made yet) works there.
  static void setBaseFolder(LightweightString<wchar_t> const& folder);

  // A new tutorial, saved at once under a new cookie-based file name in
  // getLocation(), listed, and announced with kTutorialCreated. The arguments
  // are not tested.
  Zo::Ptr<Tutorial> createTutorial(LightweightString<wchar_t> const& name, LightweightString<wchar_t> const& category);
  // Saves the tutorial to its own path and announces kTutorialSaved. The
  // categories are not rebuilt. Null does nothing.
  void save(Zo::Ptr<Tutorial> tutorial);
  // A copy, not listed, not saved, with the source's path. Null gives null.
  Zo::Ptr<Tutorial> clone(Zo::Ptr<Tutorial> const& tutorial);
  // Removes the tutorial (found by identity) from the list, deletes its file
  // and rebuilds the categories; announces kTutorialDeleted in any case, found
  // or not. Null does nothing.
  void deleteTutorial(Zo::Ptr<Tutorial> tutorial);

  // The first tutorial whose getID() (its file name, extension included) is
  // `id`; null when none is.
  Zo::Ptr<Tutorial> getTutorial(LightweightString<wchar_t> const& id) const;
  // The tutorials of that category, in list order.
  std::vector<Zo::Ptr<Tutorial>> getCategoryContents(LightweightString<wchar_t> const& category) const;
  // Makes the set of categories again from the list.
  void buildCategories();

  std::vector<Zo::Ptr<Tutorial>> const& getTutorials() const noexcept { return tutorials_; }
  std::set<LightweightString<wchar_t>> const& getCategories() const noexcept { return categories_; }

private:
  std::vector<Zo::Ptr<Tutorial>> tutorials_;
  std::set<LightweightString<wchar_t>> categories_;
};
