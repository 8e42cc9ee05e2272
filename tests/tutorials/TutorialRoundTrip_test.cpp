// Random tutorials written and read back. A tutorial in the written form's
// own terms (one form of pointer and message, single-precision numbers, no
// invalid part carrying data) comes back field for field, through memory and
// through its file; any tutorial whose modifiers are named flags comes back to
// the same text after one trip. (Modifier bits without a name are written as
// an empty list, which reads back as no modifiers: such a tutorial settles
// after two trips; TutorialFileFormat tests that.)
#include "tutorials/TutorialTestSupport.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using Phase = Tutorial::Phase;
using Action = Tutorial::Action;

class RandomTutorials {
public:
  explicit RandomTutorials(unsigned seed) : random_(seed) {}

  // Each part in one of the forms the file keeps.
  Zo::Ptr<Tutorial> lossless() { return make(true); }
  // Parts in any state, some of which the file drops.
  Zo::Ptr<Tutorial> anything() { return make(false); }

private:
  Zo::Ptr<Tutorial> make(bool lossless) {
    auto tutorial = Zo::make<Tutorial>();
    tutorial->setName(wide(0, 12));
    tutorial->setCategory(wide(0, 8));
    for (int i = pick(0, 4); i > 0; --i) {
      Tutorial::UIComponent component;
      component.type = wide(0, 10).toUTF8();
      component.position = XY<double>(number(), number());
      component.size = XY<double>(number(), number());
      tutorial->components().push_back(component);
    }
    for (int i = pick(0, 6); i > 0; --i)
      tutorial->addPhase(lossless ? losslessPhase() : anyPhase());
    return tutorial;
  }

  Zo::Ptr<Phase> losslessPhase() {
    auto phase = Zo::make<Phase>();
    phase->pause = pick(0, 2) == 0 ? 0.0f : float(number());
    switch (pick(0, 2)) {
    case 1:
      do
        phase->pointer.position.x = number();
      while (phase->pointer.position.x == Tutorial::Pointer::kNoPosition);
      phase->pointer.position.y = pick(0, 4) == 0 ? Tutorial::Pointer::kNoPosition : number();
      break;
    case 2:
      phase->pointer.target = wide(1, 10);
      break;
    }
    switch (pick(0, 2)) {
    case 1:
      phase->message.text = wide(1, 30);
      phase->message.origin = origin();
      break;
    case 2:
      phase->message.text = wide(1, 30);
      phase->message.target = wide(1, 10);
      phase->message.relativity = relativity();
      break;
    }
    if (pick(0, 1)) {
      phase->action.event = wide(1, 10).toUTF8();
      phase->action.modifiers = modifiers();
    }
    return phase;
  }

  Zo::Ptr<Phase> anyPhase() {
    auto phase = Zo::make<Phase>();
    phase->pause = pick(0, 1) ? 0.0f : float(number());
    phase->pointer.position = XY<double>(pick(0, 1) ? Tutorial::Pointer::kNoPosition : number(), number());
    phase->pointer.target = wide(0, 5);
    phase->message.text = wide(0, 5);
    phase->message.target = wide(0, 5);
    phase->message.origin = origin();
    phase->message.relativity = relativity();
    phase->action.event = wide(0, 5).toUTF8();
    phase->action.modifiers = modifiers();
    return phase;
  }

  int pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

  // A double that a float holds exactly, as every number read is.
  double number() {
    switch (pick(0, 3)) {
    case 0:
      return double(pick(-5000, 5000));
    case 1:
      return double(float(std::uniform_real_distribution<double>(-1e6, 1e6)(random_)));
    case 2:
      return double(float(std::uniform_real_distribution<double>(-1.0, 1.0)(random_)));
    default:
      return double(float(std::ldexp(std::uniform_real_distribution<double>(1.0, 2.0)(random_), pick(-120, 120))));
    }
  }

  // Text with what needs escaping, characters beyond ASCII and beyond the
  // basic plane; never a surrogate or a NUL, which are no text.
  LightweightString<wchar_t> wide(int shortest, int longest) {
    static constexpr wchar_t kChoice[] = L"abcXYZ 019\"\\/\n\t\x01\x1F\x7F\u00E9\u00DF\u4E2D\uFFFD\U0001F600\U0010FFFF";
    LightweightString<wchar_t> text;
    for (int i = pick(shortest, longest); i > 0; --i)
      text += kChoice[pick(0, int(std::size(kChoice)) - 2)];
    return text;
  }

  eCoordinateOrigin origin() {
    static constexpr eCoordinateOrigin kOrigins[] = {
        kOriginCentre,     kOriginLeft,    kOriginRight,       kOriginTop,      kOriginBottom,
        kOriginBottomLeft, kOriginTopLeft, kOriginBottomRight, kOriginTopRight, kOriginPanelDefault};
    return kOrigins[pick(0, int(std::size(kOrigins)) - 1)];
  }

  eWidgetRelativity relativity() { return eWidgetRelativity(pick(kRelativeNone, kRelativeBelow)); }

  unsigned modifiers() {
    unsigned bits = 0;
    for (unsigned flag : {Action::kShift, Action::kCtrl, Action::kCmd, Action::kAlt})
      if (pick(0, 1))
        bits |= flag;
    return bits;
  }

  std::mt19937 random_;
};

void expectSame(Tutorial const& expected, Tutorial const& actual) {
  EXPECT_EQ(actual.name(), expected.name());
  EXPECT_EQ(actual.category(), expected.category());
  ASSERT_EQ(actual.components().size(), expected.components().size());
  for (std::size_t i = 0; i < expected.components().size(); ++i) {
    EXPECT_EQ(actual.components()[i].type, expected.components()[i].type);
    EXPECT_EQ(actual.components()[i].position, expected.components()[i].position);
    EXPECT_EQ(actual.components()[i].size, expected.components()[i].size);
  }
  ASSERT_EQ(actual.getNumPhases(), expected.getNumPhases());
  for (unsigned short i = 0; i < expected.getNumPhases(); ++i) {
    Phase const& want = *expected.getPhase(i);
    Phase const& got = *actual.getPhase(i);
    EXPECT_EQ(got.pause, want.pause) << "phase " << i;
    EXPECT_EQ(got.pointer.position, want.pointer.position) << "phase " << i;
    EXPECT_EQ(got.pointer.target, want.pointer.target) << "phase " << i;
    EXPECT_EQ(got.message.text, want.message.text) << "phase " << i;
    EXPECT_EQ(got.message.origin, want.message.origin) << "phase " << i;
    EXPECT_EQ(got.message.target, want.message.target) << "phase " << i;
    EXPECT_EQ(got.message.relativity, want.message.relativity) << "phase " << i;
    EXPECT_EQ(got.action.event, want.action.event) << "phase " << i;
    EXPECT_EQ(got.action.modifiers, want.action.modifiers) << "phase " << i;
  }
}

TEST(TutorialRoundTrip, LosslessTutorialsComeBackFieldForField) {
  for (unsigned seed = 1; seed <= 400; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    auto const tutorial = RandomTutorials(seed).lossless();
    expectSame(*tutorial, *readTutorial(writtenText(*tutorial)));
    if (testing::Test::HasFailure())
      return;
  }
}

TEST(TutorialRoundTrip, LosslessTutorialsComeBackThroughTheirFiles) {
  ScratchFolder folder;
  for (unsigned seed = 1000; seed < 1030; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    auto const tutorial = RandomTutorials(seed).lossless();
    LightweightString<wchar_t> const path = folder.file("round-trip.ZoTutorial");
    tutorial->save(path);
    Tutorial const loaded(path);
    EXPECT_EQ(loaded.path(), path);
    expectSame(*tutorial, loaded);
    EXPECT_EQ(readBytes(toPath(path)), writtenText(*tutorial) + "\n");
    if (testing::Test::HasFailure())
      return;
  }
}

TEST(TutorialRoundTrip, AnyTutorialReachesItsWrittenFormAfterOneTrip) {
  for (unsigned seed = 1; seed <= 400; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::string const once = writtenText(*RandomTutorials(seed).anything());
    std::string const twice = writtenText(*readTutorial(once));
    ASSERT_EQ(twice, once);
  }
}

} // namespace
