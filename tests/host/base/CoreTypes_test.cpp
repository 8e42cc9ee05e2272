#include <zowidgets/host/base/CriticalSection.h>
#include <zowidgets/host/base/EnableDisable.h>
#include <zowidgets/host/base/IdStamp.h>
#include <zowidgets/host/base/NotifyMsg.h>
#include <zowidgets/host/base/NotifyMsgTypeDictionary.h>

#include <gtest/gtest.h>

#include <mutex>
#include <thread>

TEST(IdStamp, DefaultStampsAreUniqueAndValidTheNullOneIsNot) {
  IdStamp a, b;
  EXPECT_NE(a, b);
  EXPECT_TRUE(a.valid());
  EXPECT_FALSE(IdStamp(0, 0, 0).valid());
  EXPECT_EQ(IdStamp::null(), IdStamp(0, 0, 0));
  IdStamp copy = a;
  EXPECT_EQ(copy, a);
}

TEST(IdStamp, AsStringShowsTheThreeWords) { EXPECT_EQ(IdStamp(1, 2, 3).asString(), "1.2.3"); }

TEST(Identified, CarriesAStampThatCanBeReplaced) {
  Identified thing;
  EXPECT_TRUE(thing.id().valid());
  thing.id(IdStamp(4, 5, 6));
  EXPECT_EQ(thing.id(), IdStamp(4, 5, 6));
}

TEST(CriticalSection, TheHolderMayEnterAgain) {
  CriticalSection section;
  section.enter();
  section.enter();
  bool otherGotIn = true;
  std::thread([&] { otherGotIn = section.tryEnter(); }).join();
  EXPECT_FALSE(otherGotIn);
  section.leave();
  section.leave();
  std::thread([&] {
    otherGotIn = section.tryEnter();
    if (otherGotIn)
      section.leave();
  }).join();
  EXPECT_TRUE(otherGotIn);
  std::lock_guard lock(section); // a standard Lockable
}

TEST(EnableDisable, EnabledWhileTheCountIsBelowOne) {
  EnableDisable flag;
  EXPECT_TRUE(flag.isEnabled());
  flag.disable();
  flag.disable();
  flag.enable();
  EXPECT_FALSE(flag.isEnabled());
  flag.enable();
  EXPECT_TRUE(flag.isEnabled());
  flag.enable();
  EXPECT_EQ(flag.disableCount(), -1);
  EXPECT_TRUE(flag.isEnabled());
}

TEST(NotifyMsgTypeDictionary, NamesGetStableNumbersAndTheAnyTypeIsDistinct) {
  auto& dictionary = NotifyMsgTypeDictionary::instance();
  int a = dictionary.lookup("selection changed");
  EXPECT_EQ(dictionary.lookup("selection changed"), a);
  EXPECT_NE(a, dictionary.anyType());
  EXPECT_NE(dictionary.lookup("another"), a);
  EXPECT_EQ(dictionary.lookup(""), dictionary.anyType());
  EXPECT_EQ(dictionary.nameOf(a), "selection changed");
  EXPECT_TRUE(dictionary.nameOf(-5).empty());
}

TEST(NotifyMsg, CarriesANameAndData) {
  Zo::Ptr<iObject> data(new iObject);
  NotifyMsg message("detach", data);
  EXPECT_STREQ(static_cast<char const*>(message), "detach");
  EXPECT_EQ(message.data(), data);
}
