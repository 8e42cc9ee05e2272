#include <zowidgets/tutorials/TutorialsManager.h>

#include <zowidgets/host/base/Cookie.h>
#include <zowidgets/host/shell/FilePaths.h>
#include <zowidgets/host/shell/OS.h>

#include <algorithm>
#include <mutex>

namespace {

constexpr wchar_t kFolderName[] = L"Tutorials";
constexpr wchar_t kExtension[] = L".ZoTutorial";
// The character code of "T".
constexpr unsigned kCookieType = 84;

std::mutex g_baseFolderLock;
LightweightString<wchar_t> g_baseFolder;

LightweightString<wchar_t> baseFolder() {
  std::lock_guard lock(g_baseFolderLock);
  return g_baseFolder.empty() ? OS().appDataFolder() : g_baseFolder;
}

void notify(TutorialsManager const& manager, char const* name, Zo::Ptr<Tutorial> const& tutorial, int code) {
  manager.issueNotification(NotifyMsg(name, tutorial), code);
}

} // namespace

TutorialsManager& TutorialsManager::instance() {
  static TutorialsManager manager;
  return manager;
}

TutorialsManager::TutorialsManager() {
  LightweightString<wchar_t> const location = getLocation();
  // The listing gives names within the folder, files only, sorted.
  for (LightweightString<wchar_t> const& entry :
       OS().listFolder(location, LightweightString<wchar_t>(L"*") + kExtension, Zo::FolderEntries::files)) {
    LightweightString<wchar_t> const path = joinPaths(location, entry);
    Zo::Ptr<Tutorial> const tutorial = Zo::make<Tutorial>(path);
    // A file that is broken, empty or foreign reads with no name or
    // category; it is dropped without a word and stays on disk.
    if (!tutorial->category().empty() && !tutorial->name().empty())
      tutorials_.push_back(tutorial);
  }
  buildCategories();
}

LightweightString<wchar_t> TutorialsManager::getLocation() { return joinPaths(baseFolder(), kFolderName); }

void TutorialsManager::setBaseFolder(LightweightString<wchar_t> const& folder) {
  std::lock_guard lock(g_baseFolderLock);
  g_baseFolder = folder;
}

void TutorialsManager::buildCategories() {
  categories_.clear();
  for (Zo::Ptr<Tutorial> const& tutorial : tutorials_)
    categories_.insert(tutorial->category());
}

Zo::Ptr<Tutorial> TutorialsManager::createTutorial(LightweightString<wchar_t> const& name,
                                                   LightweightString<wchar_t> const& category) {
  Cookie const cookie = CookieJar::instance().makeCookie(kCookieType, 0, 0);
  Zo::Ptr<Tutorial> const tutorial = Zo::make<Tutorial>();
  tutorials_.push_back(tutorial);
  tutorial->setName(name);
  tutorial->setCategory(category);
  tutorial->save(joinPaths(getLocation(), cookie.asWString() + kExtension));
  categories_.insert(category);
  notify(*this, "TutorialCreated", tutorial, kTutorialCreated);
  return tutorial;
}

void TutorialsManager::save(Zo::Ptr<Tutorial> tutorial) {
  if (!tutorial)
    return;
  LightweightString<wchar_t> const path = tutorial->path();
  tutorial->save(path);
  notify(*this, "TutorialSaved", tutorial, kTutorialSaved);
}

Zo::Ptr<Tutorial> TutorialsManager::clone(Zo::Ptr<Tutorial> const& tutorial) {
  if (!tutorial)
    return {};
  return Zo::make<Tutorial>(*tutorial);
}

void TutorialsManager::deleteTutorial(Zo::Ptr<Tutorial> tutorial) {
  if (!tutorial)
    return;
  auto const found = std::find(tutorials_.begin(), tutorials_.end(), tutorial);
  if (found != tutorials_.end()) {
    tutorials_.erase(found);
    OS().deleteFile(tutorial->path());
    buildCategories();
  }
  notify(*this, "TutorialDeleted", tutorial, kTutorialDeleted);
}

Zo::Ptr<Tutorial> TutorialsManager::getTutorial(LightweightString<wchar_t> const& id) const {
  for (Zo::Ptr<Tutorial> const& tutorial : tutorials_)
    if (tutorial->getID() == id)
      return tutorial;
  return {};
}

std::vector<Zo::Ptr<Tutorial>> TutorialsManager::getCategoryContents(LightweightString<wchar_t> const& category) const {
  std::vector<Zo::Ptr<Tutorial>> contents;
  for (Zo::Ptr<Tutorial> const& tutorial : tutorials_)
    if (tutorial->category() == category)
      contents.push_back(tutorial);
  return contents;
}
