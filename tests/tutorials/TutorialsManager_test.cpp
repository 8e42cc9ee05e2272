// The store of tutorial files: what it lists at start-up, what it writes and
// deletes, how categories follow, and what it tells its clients.
#include "tutorials/TutorialTestSupport.h"

#include <zowidgets/host/base/Log.h>
#include <zowidgets/host/shell/FilePaths.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/tutorials/TutorialsManager.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using WString = LightweightString<wchar_t>;

// A notification heard: the code listened for, the tutorial and the name.
struct Heard {
  int code;
  Zo::Ptr<iObject> tutorial;
  std::string name;
};

class TutorialsManagerTest : public ::testing::Test {
protected:
  void SetUp() override { TutorialsManager::setBaseFolder(base_.wide()); }
  void TearDown() override { TutorialsManager::setBaseFolder({}); }

  std::filesystem::path folder() const { return base_.path() / "Tutorials"; }

  // A tutorial file written by hand.
  void writeTutorial(std::string const& fileName, std::string const& name, std::string const& category) {
    writeBytes(folder() / fileName, R"({"name":")" + name + R"(","category":")" + category + R"(","phases":[{}]})");
  }

  static std::vector<std::string> namesOf(std::vector<Zo::Ptr<Tutorial>> const& tutorials) {
    std::vector<std::string> names;
    for (auto const& tutorial : tutorials)
      names.push_back(toNarrow(tutorial->name()));
    return names;
  }
  static std::vector<std::string> categoriesOf(TutorialsManager const& manager) {
    std::vector<std::string> categories;
    for (WString const& category : manager.getCategories())
      categories.push_back(toNarrow(category));
    return categories;
  }

  ScratchFolder base_;
};

// The code is the message type, so a client filtered to one code hears only
// that; each of these listens to one.
struct CodeListener {
  CodeListener(TutorialsManager& manager, int code, std::vector<Heard>& heard)
      : guard(manager.addListener(Zo::make<FunctionCallback<NotifyMsg>>([code, &heard](NotifyMsg const& message) {
                                    heard.push_back({code, message.data(), message.name().str()});
                                    return 0;
                                  }),
                                  code)) {}
  Zo::Ptr<Zo::Guard> guard;
};

std::vector<int> codesOf(std::vector<Heard> const& heard) {
  std::vector<int> codes;
  for (Heard const& each : heard)
    codes.push_back(each.code);
  return codes;
}

TEST_F(TutorialsManagerTest, TheLocationIsTheFolderTutorialsInTheBaseFolder) {
  EXPECT_EQ(TutorialsManager::getLocation(), base_.wide() + L"/Tutorials");
  TutorialsManager::setBaseFolder({});
  EXPECT_EQ(stripPath(TutorialsManager::getLocation()), L"Tutorials");
  EXPECT_NE(TutorialsManager::getLocation(), base_.wide() + L"/Tutorials");
}

TEST_F(TutorialsManagerTest, AFolderWithoutTutorialFilesGivesNothing) {
  TutorialsManager const missing;
  EXPECT_TRUE(missing.getTutorials().empty());
  EXPECT_TRUE(missing.getCategories().empty());

  writeBytes(folder() / "notes.txt", R"({"name":"N","category":"C"})");
  writeBytes(folder() / "upper.ZOTUTORIAL", R"({"name":"N","category":"C"})");
  writeBytes(folder() / "sub" / "deep.ZoTutorial", R"({"name":"N","category":"C"})");
  TutorialsManager const unmatched;
  EXPECT_TRUE(unmatched.getTutorials().empty()) << "other extensions, other cases and sub-folders are not looked at";
  EXPECT_TRUE(unmatched.getCategories().empty());
}

TEST_F(TutorialsManagerTest, FilesAreListedInTheFolderOrderAndCategoriesSorted) {
  writeTutorial("c.ZoTutorial", "Third", "Audio");
  writeTutorial("a.ZoTutorial", "First", "Editing");
  writeTutorial("b.ZoTutorial", "Second", "Audio");
  TutorialsManager const manager;
  EXPECT_EQ(namesOf(manager.getTutorials()), (std::vector<std::string>{"First", "Second", "Third"}));
  EXPECT_EQ(categoriesOf(manager), (std::vector<std::string>{"Audio", "Editing"}));
  EXPECT_EQ(namesOf(manager.getCategoryContents(L"Audio")), (std::vector<std::string>{"Second", "Third"}));
  EXPECT_TRUE(manager.getCategoryContents(L"Colour").empty());
  EXPECT_EQ(manager.getTutorial(L"b.ZoTutorial")->getNumPhases(), 1);
}

TEST_F(TutorialsManagerTest, BrokenAndNamelessFilesAreSkippedSilentlyAndTheOthersLoad) {
  writeTutorial("a-good.ZoTutorial", "Good", "Editing");
  writeBytes(folder() / "b-broken.ZoTutorial", R"({"name":"Broken","category":"Editing",)");
  writeTutorial("c-no-name.ZoTutorial", "", "Editing");
  writeTutorial("d-no-category.ZoTutorial", "Lost", "");
  writeBytes(folder() / "e-array.ZoTutorial", "[1, 2, 3]");
  writeTutorial("f-good.ZoTutorial", "Also good", "Audio");

  std::vector<std::string> logged;
  int const sink = addLogSink([&logged](std::string_view line) { logged.emplace_back(line); });
  TutorialsManager const manager;
  removeLogSink(sink);

  EXPECT_EQ(namesOf(manager.getTutorials()), (std::vector<std::string>{"Good", "Also good"}));
  EXPECT_EQ(categoriesOf(manager), (std::vector<std::string>{"Audio", "Editing"}));
  for (wchar_t const* skipped :
       {L"b-broken.ZoTutorial", L"c-no-name.ZoTutorial", L"d-no-category.ZoTutorial", L"e-array.ZoTutorial"}) {
    EXPECT_FALSE(manager.getTutorial(skipped)) << toNarrow(skipped);
    EXPECT_TRUE(std::filesystem::exists(folder() / toNarrow(skipped))) << "the file stays on disk";
  }
  EXPECT_EQ(logged, std::vector<std::string>{}) << "skipping is silent, in the program's log too";
}

TEST_F(TutorialsManagerTest, EmptyAndBinaryFilesAreSkippedAndTheOthersLoad) {
  writeTutorial("a.ZoTutorial", "Readable", "Editing");
  writeBytes(folder() / "b.ZoTutorial", "");
  writeBytes(folder() / "c.ZoTutorial", std::string("\x89PNG\r\n\x1a\n\x00\x00\x00\rIHDR", 16));
  writeTutorial("d.ZoTutorial", "Readable too", "Editing");
  TutorialsManager const manager;
  EXPECT_EQ(namesOf(manager.getTutorials()), (std::vector<std::string>{"Readable", "Readable too"}));
}

TEST_F(TutorialsManagerTest, DeletingTheLastOfACategoryRemovesItButRecategorisingDoesNot) {
  writeTutorial("a.ZoTutorial", "Cutting", "Editing");
  writeTutorial("b.ZoTutorial", "Mixing", "Audio");
  TutorialsManager manager;
  manager.deleteTutorial(manager.getTutorial(L"b.ZoTutorial"));
  EXPECT_EQ(categoriesOf(manager), (std::vector<std::string>{"Editing"}));
  EXPECT_FALSE(std::filesystem::exists(folder() / "b.ZoTutorial"));

  Zo::Ptr<Tutorial> const cutting = manager.getTutorial(L"a.ZoTutorial");
  cutting->setCategory(L"Basics");
  manager.save(cutting);
  EXPECT_EQ(categoriesOf(manager), (std::vector<std::string>{"Editing"})) << "the set is not rebuilt by saving";
  EXPECT_EQ(namesOf(manager.getCategoryContents(L"Basics")), (std::vector<std::string>{"Cutting"}));
  EXPECT_TRUE(manager.getCategoryContents(L"Editing").empty());
  manager.buildCategories();
  EXPECT_EQ(categoriesOf(manager), (std::vector<std::string>{"Basics"}));
  EXPECT_EQ(Tutorial(cutting->path()).category(), L"Basics");
}

TEST_F(TutorialsManagerTest, TutorialsAreFoundByTheirFileNameWithItsExtension) {
  TutorialsManager manager;
  Zo::Ptr<Tutorial> const made = manager.createTutorial(L"Colour", L"Grading");
  WString const id = made->getID();
  ASSERT_TRUE(id.endsWith(L".ZoTutorial"));
  EXPECT_EQ(manager.getTutorial(id), made);
  EXPECT_FALSE(manager.getTutorial(stripExtension(id))) << "the bare cookie text is not the id";
  EXPECT_FALSE(manager.getTutorial(made->path())) << "nor is the whole path";
  EXPECT_FALSE(manager.getTutorial(L""));
}

TEST_F(TutorialsManagerTest, DeletingACloneAnnouncesItButDeletesNothing) {
  writeTutorial("a.ZoTutorial", "Cutting", "Editing");
  TutorialsManager manager;
  Zo::Ptr<Tutorial> const source = manager.getTutorial(L"a.ZoTutorial");
  std::string const bytes = readBytes(folder() / "a.ZoTutorial");
  std::vector<Heard> heard;
  CodeListener const deletions(manager, TutorialsManager::kTutorialDeleted, heard);

  Zo::Ptr<Tutorial> const copy = manager.clone(source);
  ASSERT_TRUE(copy);
  EXPECT_NE(copy, source);
  EXPECT_EQ(copy->path(), source->path());
  EXPECT_TRUE(heard.empty()) << "cloning says nothing";
  manager.deleteTutorial(copy);

  ASSERT_EQ(heard.size(), 1u);
  EXPECT_EQ(heard[0].code, 12);
  EXPECT_EQ(heard[0].tutorial.get(), static_cast<iObject*>(copy.get()));
  EXPECT_EQ(readBytes(folder() / "a.ZoTutorial"), bytes);
  EXPECT_EQ(manager.getTutorials().size(), 1u);
  EXPECT_EQ(manager.getTutorial(L"a.ZoTutorial"), source);
}

TEST_F(TutorialsManagerTest, CreatingTwiceWithOneNameGivesTwoFilesAndTwoEntries) {
  TutorialsManager manager;
  Zo::Ptr<Tutorial> const first = manager.createTutorial(L"Same", L"Editing");
  Zo::Ptr<Tutorial> const second = manager.createTutorial(L"Same", L"Editing");
  EXPECT_NE(first->getID(), second->getID());
  EXPECT_EQ(manager.getTutorials().size(), 2u);
  EXPECT_EQ(OS().listFolder(TutorialsManager::getLocation(), L"*").size(), 2u);
  EXPECT_EQ(manager.getCategoryContents(L"Editing").size(), 2u);
  EXPECT_EQ(TutorialsManager().getTutorials().size(), 2u) << "both are found at the next start";
}

TEST_F(TutorialsManagerTest, ANewTutorialIsOnDiskAtOnceAndAnnounced) {
  TutorialsManager manager;
  std::vector<Heard> heard;
  CodeListener const creations(manager, TutorialsManager::kTutorialCreated, heard);
  Zo::Ptr<Tutorial> const made = manager.createTutorial(L"Keying", L"Effects");

  EXPECT_EQ(getPath(made->path()), TutorialsManager::getLocation() + L"/");
  EXPECT_TRUE(made->getID().startsWith(L"T0-")) << toNarrow(made->getID());
  EXPECT_EQ(readBytes(toPath(made->path())), R"({
  "name": "Keying",
  "category": "Effects",
  "components": [],
  "phases": []
}
)");
  EXPECT_EQ(categoriesOf(manager), (std::vector<std::string>{"Effects"}));
  ASSERT_EQ(heard.size(), 1u);
  EXPECT_EQ(heard[0].code, 10);
  EXPECT_EQ(heard[0].tutorial.get(), static_cast<iObject*>(made.get()));
}

TEST_F(TutorialsManagerTest, ANamelessNewTutorialIsKeptNowAndDroppedAtTheNextStart) {
  TutorialsManager manager;
  Zo::Ptr<Tutorial> const made = manager.createTutorial(L"", L"");
  EXPECT_EQ(manager.getTutorial(made->getID()), made);
  EXPECT_EQ(categoriesOf(manager), (std::vector<std::string>{""}));
  EXPECT_TRUE(std::filesystem::exists(toPath(made->path())));
  EXPECT_TRUE(TutorialsManager().getTutorials().empty());
}

TEST_F(TutorialsManagerTest, SavingWritesTheTutorialToItsOwnFileAndAnnouncesIt) {
  TutorialsManager manager;
  Zo::Ptr<Tutorial> const made = manager.createTutorial(L"Titles", L"Text");
  std::vector<Heard> heard;
  CodeListener const saves(manager, TutorialsManager::kTutorialSaved, heard);
  CodeListener const creations(manager, TutorialsManager::kTutorialCreated, heard);
  auto phase = Zo::make<Tutorial::Phase>();
  phase->message.text = L"Type here";
  made->addPhase(phase);
  manager.save(made);
  manager.save(nullptr);

  EXPECT_EQ(codesOf(heard), std::vector<int>{11});
  EXPECT_EQ(heard[0].tutorial.get(), static_cast<iObject*>(made.get()));
  EXPECT_EQ(Tutorial(made->path()).getPhase(0)->message.text, L"Type here");
}

TEST_F(TutorialsManagerTest, ACloneSavedThroughTheManagerWritesOverItsSource) {
  writeTutorial("a.ZoTutorial", "Original", "Editing");
  TutorialsManager manager;
  Zo::Ptr<Tutorial> const copy = manager.clone(manager.getTutorial(L"a.ZoTutorial"));
  EXPECT_EQ(manager.getTutorials().size(), 1u) << "a clone is not listed";
  copy->setName(L"Copy");
  manager.save(copy);
  EXPECT_EQ(Tutorial(copy->path()).name(), L"Copy");
  EXPECT_EQ(manager.getTutorial(L"a.ZoTutorial")->name(), L"Original") << "the listed one is another object";
  EXPECT_FALSE(manager.clone(nullptr));
}

TEST_F(TutorialsManagerTest, DeletingKeepsTheOrderOfTheRestAndTheCallersReference) {
  writeTutorial("a.ZoTutorial", "A", "One");
  writeTutorial("b.ZoTutorial", "B", "Two");
  writeTutorial("c.ZoTutorial", "C", "One");
  TutorialsManager manager;
  std::vector<Heard> heard;
  CodeListener const deletions(manager, TutorialsManager::kTutorialDeleted, heard);
  Zo::Ptr<Tutorial> const kept = manager.getTutorial(L"b.ZoTutorial");
  manager.deleteTutorial(kept);
  manager.deleteTutorial(nullptr);

  EXPECT_EQ(namesOf(manager.getTutorials()), (std::vector<std::string>{"A", "C"}));
  EXPECT_EQ(categoriesOf(manager), (std::vector<std::string>{"One"}));
  EXPECT_EQ(kept->name(), L"B") << "the caller's reference lives on";
  EXPECT_FALSE(std::filesystem::exists(folder() / "b.ZoTutorial"));
  EXPECT_EQ(codesOf(heard), std::vector<int>{12}) << "null is ignored without a word";
}

TEST_F(TutorialsManagerTest, AClientOfEveryTypeHearsEachChangeInTurn) {
  TutorialsManager manager;
  std::vector<Heard> heard;
  CodeListener const everything(manager, NotifyMsgTypeDictionary::instance().anyType(), heard);
  Zo::Ptr<Tutorial> const made = manager.createTutorial(L"Audio sync", L"Audio");
  manager.save(made);
  manager.deleteTutorial(made);
  ASSERT_EQ(heard.size(), 3u);
  EXPECT_EQ(heard[0].name, "TutorialCreated");
  EXPECT_EQ(heard[1].name, "TutorialSaved");
  EXPECT_EQ(heard[2].name, "TutorialDeleted");
  for (Heard const& each : heard)
    EXPECT_EQ(each.tutorial.get(), static_cast<iObject*>(made.get()));
}

TEST_F(TutorialsManagerTest, FilesChangedFromOutsideAreNotSeenUntilTheNextStart) {
  writeTutorial("a.ZoTutorial", "A", "One");
  TutorialsManager manager;
  writeTutorial("b.ZoTutorial", "B", "One");
  std::filesystem::remove(folder() / "a.ZoTutorial");
  EXPECT_EQ(namesOf(manager.getTutorials()), (std::vector<std::string>{"A"}));
  EXPECT_EQ(namesOf(TutorialsManager().getTutorials()), (std::vector<std::string>{"B"}));
}

TEST_F(TutorialsManagerTest, ALeftOverTemporaryFileIsNoTutorial) {
  writeTutorial("a.ZoTutorial", "A", "One");
  writeBytes(folder() / "a.ZoTutorial.Xy12Zq", R"({"name":"Half)");
  TutorialsManager const manager;
  EXPECT_EQ(namesOf(manager.getTutorials()), (std::vector<std::string>{"A"}));
}

TEST(TutorialsManagerInstance, ThereIsOneInstance) {
  ScratchFolder base;
  TutorialsManager::setBaseFolder(base.wide());
  TutorialsManager& first = TutorialsManager::instance();
  EXPECT_EQ(&first, &TutorialsManager::instance());
  TutorialsManager::setBaseFolder({});
}

} // namespace
