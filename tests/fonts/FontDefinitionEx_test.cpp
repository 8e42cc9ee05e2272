#include <zowidgets/fonts/FontDefinitionEx.h>
#include <zowidgets/host/base/Log.h>

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

using Bytes = std::vector<unsigned char>;
using WString = LightweightString<wchar_t>;

FontDefinitionEx sampleFont() {
  return FontDefinitionEx(FontDefinition(L"Noto Sans Mono", 11.5f, 3, NormalisedRGB(0.25f, 0.5f, 0.75f, 1.0f),
                                         NormalisedRGB(1.0f, 0.0f, 0.0f, 0.5f)));
}

// Hand-made chunks, byte by byte, as an old or damaged file may hold them.
struct ChunkWriter {
  Bytes bytes;

  ChunkWriter& name(std::string const& text) {
    bytes.insert(bytes.end(), text.begin(), text.end());
    bytes.push_back(0);
    return *this;
  }
  ChunkWriter& byte(unsigned value) {
    bytes.push_back(static_cast<unsigned char>(value));
    return *this;
  }
  ChunkWriter& word(std::uint32_t value) {
    for (int i = 0; i < 4; ++i)
      bytes.push_back(static_cast<unsigned char>(value >> (8 * i)));
    return *this;
  }
  ChunkWriter& shortWord(std::uint16_t value) { return byte(value & 0xFF).byte(value >> 8); }
  ChunkWriter& append(Bytes const& more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
    return *this;
  }
};

// The payload of the font layer as FontDefinitionEx::pack writes it.
Bytes payloadOf(FontDefinitionEx const& font) {
  StreamFile file;
  PStream stream(file);
  font.pack(stream);
  return file.bytes();
}

// A version 2 stream: the root chunk with its own payload, then the font
// chunk named `fontName` whose own length may differ from its payload.
Bytes version2(Bytes const& rootPayload, std::string const& fontName, Bytes const& fontPayload,
               std::uint32_t fontOwnLength) {
  ChunkWriter font;
  font.name(fontName).byte(1).byte(0).word(fontOwnLength).word(static_cast<std::uint32_t>(fontPayload.size()));
  font.append(fontPayload);
  ChunkWriter root;
  root.name("$").byte(2).byte(0).word(static_cast<std::uint32_t>(rootPayload.size()));
  root.word(static_cast<std::uint32_t>(rootPayload.size() + font.bytes.size())).append(rootPayload).append(font.bytes);
  return root.bytes;
}

struct Unpacked {
  int result;
  FontDefinitionEx font;
  std::string messages;
  std::vector<std::string> logged;
  std::size_t position;
};

Unpacked unpack(Bytes const& bytes) {
  Unpacked out{0, FontDefinitionEx(), {}, {}, 0};
  int const sink = addLogSink([&out](std::string_view line) { out.logged.emplace_back(line); });
  StreamFile file(bytes);
  PStream stream(file);
  out.result = out.font.STRM_hierarchyUnpack(stream);
  removeLogSink(sink);
  out.messages = stream.getMessages();
  out.position = file.tell();
  return out;
}

Bytes packed(FontDefinitionEx const& font) {
  StreamFile file;
  PStream stream(file);
  EXPECT_EQ(font.STRM_hierarchyPack(stream), Streamable::kPacked);
  return file.bytes();
}

TEST(FontDefinitionEx, TheRootChunkComesFirstWithTheFontChunkNestedInIt) {
  FontDefinitionEx const font = sampleFont();
  Bytes const payload = payloadOf(font);
  Bytes const expected = version2({}, "FD", payload, static_cast<std::uint32_t>(payload.size()));
  EXPECT_EQ(packed(font), expected);
  EXPECT_EQ(payload.size(), std::string("Noto Sans Mono").size() + 1 + 4 + 1 + 16 + 16);
}

TEST(FontDefinitionEx, WhatIsWrittenReadsBackExactly) {
  Unpacked const back = unpack(packed(sampleFont()));
  EXPECT_EQ(back.result, Streamable::kUnpacked);
  EXPECT_EQ(static_cast<FontDefinition const&>(back.font), static_cast<FontDefinition const&>(sampleFont()));
  EXPECT_EQ(back.font.getMajorRevision(), 1u);
  EXPECT_EQ(back.font.getMinorRevision(), 0u);
  EXPECT_TRUE(back.messages.empty());
  EXPECT_TRUE(back.logged.empty());
}

TEST(FontDefinitionEx, ManyRandomFontsReadBackExactly) {
  std::mt19937 random(1125);
  std::uniform_real_distribution<float> any(-2.0f, 2.0f);
  for (int round = 0; round < 1000; ++round) {
    std::wstring name;
    for (int i = random() % 30; i > 0; --i)
      name += static_cast<wchar_t>(1 + random() % 0x2FFF); // no zero: a family stops at one
    FontDefinitionEx const font(FontDefinition(WString(name), any(random) * 100, static_cast<unsigned char>(random()),
                                               NormalisedRGB(any(random), any(random), any(random), any(random)),
                                               NormalisedRGB(any(random), any(random), any(random), any(random))));
    Unpacked const back = unpack(packed(font));
    ASSERT_EQ(back.result, Streamable::kUnpacked);
    ASSERT_EQ(static_cast<FontDefinition const&>(back.font), static_cast<FontDefinition const&>(font));
  }
}

TEST(FontDefinitionEx, TwoFontsInOneFileReadOneAfterTheOther) {
  FontDefinitionEx second = sampleFont();
  second.name = L"Second";
  Bytes both = packed(sampleFont());
  Bytes const more = packed(second);
  both.insert(both.end(), more.begin(), more.end());
  StreamFile file(both);
  PStream stream(file);
  FontDefinitionEx first, next;
  EXPECT_EQ(first.STRM_hierarchyUnpack(stream), Streamable::kUnpacked);
  EXPECT_EQ(next.STRM_hierarchyUnpack(stream), Streamable::kUnpacked);
  EXPECT_EQ(next.name, WString(L"Second"));
  EXPECT_TRUE(file.atEnd());
}

TEST(FontDefinitionEx, AChunkWhoseOwnLengthIsZeroIsAcceptedUnreadAndUnchecked) {
  Unpacked const back = unpack(version2({}, "XX", {}, 0));
  EXPECT_EQ(back.result, Streamable::kUnpacked);
  EXPECT_EQ(static_cast<FontDefinition const&>(back.font), FontDefinition()) << "unpack was not called";
  EXPECT_TRUE(back.messages.empty()) << "no name check";
}

TEST(FontDefinitionEx, ALayerThatReadsLessThanItsLengthWarnsAndStillSucceeds) {
  Bytes payload = payloadOf(sampleFont());
  payload.insert(payload.end(), {1, 2, 3}); // fields a newer writer added
  Unpacked const back = unpack(version2({}, "FD", payload, static_cast<std::uint32_t>(payload.size())));
  EXPECT_EQ(back.result, Streamable::kUnpacked);
  EXPECT_EQ(static_cast<FontDefinition const&>(back.font), static_cast<FontDefinition const&>(sampleFont()));
  ASSERT_EQ(back.logged.size(), 1u);
  EXPECT_EQ(back.logged[0], "Warning: Not all object data was read while unpacking object FontDefinitionEx/Streamable, "
                            "layer FD v1.0, 3/" +
                                std::to_string(payload.size()) + " bytes unread.\n");
  EXPECT_EQ(back.position, version2({}, "FD", payload, 0).size()) << "the reader moved past the unread bytes";
}

TEST(FontDefinitionEx, NestedChunksAreFoundAtTheEndOfTheOwnPayloadNotWhereUnpackStopped) {
  // The root layer reads nothing of its own, yet three bytes of it are there.
  Bytes const payload = payloadOf(sampleFont());
  Unpacked const back = unpack(version2({9, 9, 9}, "FD", payload, static_cast<std::uint32_t>(payload.size())));
  EXPECT_EQ(back.result, Streamable::kUnpacked);
  EXPECT_EQ(static_cast<FontDefinition const&>(back.font), static_cast<FontDefinition const&>(sampleFont()));
  ASSERT_EQ(back.logged.size(), 1u);
  EXPECT_NE(back.logged[0].find("layer $ v2.0, 3/3 bytes unread"), std::string::npos) << back.logged[0];
}

TEST(FontDefinitionEx, AWrongLayerNameIsReportedAndTheChunkSkipped) {
  Bytes const payload = payloadOf(sampleFont());
  Bytes bytes = version2({}, "XY", payload, static_cast<std::uint32_t>(payload.size()));
  bytes.push_back(42); // whatever follows the chunk
  Unpacked const back = unpack(bytes);
  EXPECT_EQ(back.result, Streamable::kWrongLayer);
  EXPECT_EQ(back.messages, "Expected short name 'FD' for layer FontDefinitionEx, got XY.");
  EXPECT_EQ(back.position, bytes.size() - 1) << "the next object can be read";
  EXPECT_EQ(static_cast<FontDefinition const&>(back.font), FontDefinition());
}

TEST(FontDefinitionEx, TheLongNameOfTheLayerIsAcceptedToo) {
  Bytes const payload = payloadOf(sampleFont());
  Unpacked const back = unpack(version2({}, "FontDefinitionEx", payload, static_cast<std::uint32_t>(payload.size())));
  EXPECT_EQ(back.result, Streamable::kUnpacked);
  EXPECT_EQ(back.font.name, sampleFont().name);
}

TEST(FontDefinitionEx, AnUnpackerThatReadsBeyondItsChunkFails) {
  Bytes const payload = payloadOf(sampleFont());
  Unpacked const back = unpack(version2({}, "FD", payload, static_cast<std::uint32_t>(payload.size() - 4)));
  EXPECT_EQ(back.result, Streamable::kStreamError);
  EXPECT_EQ(back.messages,
            "Error: Unpacker read beyond end of chunk while unpacking object FontDefinitionEx/Streamable, "
            "layer FD v1.0, 4 bytes overread.\n");
}

TEST(FontDefinitionEx, AFileCutAfterAHeaderIsAnUnexpectedEnd) {
  Bytes const payload = payloadOf(sampleFont());
  Bytes bytes = version2({}, "FD", payload, static_cast<std::uint32_t>(payload.size()));
  bytes.resize(bytes.size() - payload.size());
  Unpacked const back = unpack(bytes);
  EXPECT_EQ(back.result, Streamable::kUnexpectedEnd);
  EXPECT_EQ(back.messages,
            "Unexpected end-of-file while unpacking FontDefinitionEx/Streamable, layer FontDefinitionEx.");
}

TEST(FontDefinitionEx, AFileCutInsideThePayloadIsAStreamErrorAndNothingIsReadOutsideIt) {
  Bytes const whole = packed(sampleFont());
  for (std::size_t length = 0; length < whole.size(); ++length) {
    Bytes const cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
    Unpacked const back = unpack(cut);
    EXPECT_TRUE(back.result == Streamable::kStreamError || back.result == Streamable::kUnexpectedEnd)
        << "cut at " << length << " gave " << back.result;
    EXPECT_LE(back.position, length);
  }
}

TEST(FontDefinitionEx, AnUnknownStreamVersionIsRefused) {
  Bytes bytes = packed(sampleFont());
  bytes[2] = 3; // the root's major revision: the stream's version
  Unpacked const back = unpack(bytes);
  EXPECT_EQ(back.result, Streamable::kStreamError);
  ASSERT_EQ(back.logged.size(), 1u);
  EXPECT_EQ(back.logged[0], "Unrecognized version for Streamable base");
}

// Version 1: revisions and lengths in the compact number form.
Bytes version1(Bytes const& fontPayload, Bytes const& fontRevision) {
  ChunkWriter font;
  font.name("FD").append(fontRevision);
  font.shortWord(static_cast<std::uint16_t>(fontPayload.size()))
      .shortWord(static_cast<std::uint16_t>(fontPayload.size()))
      .append(fontPayload);
  ChunkWriter root;
  root.name("$").byte(1).byte(0).shortWord(0).shortWord(static_cast<std::uint16_t>(font.bytes.size()));
  return root.append(font.bytes).bytes;
}

TEST(FontDefinitionEx, AnOldVersionOneFileWithCompactNumbersReads) {
  Unpacked const back = unpack(version1(payloadOf(sampleFont()), {3, 7}));
  EXPECT_EQ(back.result, Streamable::kUnpacked);
  EXPECT_EQ(static_cast<FontDefinition const&>(back.font), static_cast<FontDefinition const&>(sampleFont()));
  EXPECT_EQ(back.font.getMajorRevision(), 3u);
  EXPECT_EQ(back.font.getMinorRevision(), 7u);
}

TEST(FontDefinitionEx, AVersionOneRevisionAboveAByteIsRefused) {
  Unpacked const major = unpack(version1(payloadOf(sampleFont()), {255, 0x2C, 0x01, 0}));
  EXPECT_EQ(major.result, Streamable::kStreamError);
  ASSERT_EQ(major.logged.size(), 1u);
  EXPECT_EQ(major.logged[0], " Strm1.0 Object has oversized major rev (FD). ");
  Unpacked const minor = unpack(version1(payloadOf(sampleFont()), {1, 255, 0x00, 0x01}));
  EXPECT_EQ(minor.result, Streamable::kStreamError);
  ASSERT_EQ(minor.logged.size(), 1u);
  EXPECT_EQ(minor.logged[0], " Strm1.0 Object has oversized minor rev (FD). ");
  Unpacked const escaped = unpack(version1(payloadOf(sampleFont()), {255, 200, 0, 4}));
  EXPECT_EQ(escaped.result, Streamable::kUnpacked) << "an escaped value that fits a byte is taken";
  EXPECT_EQ(escaped.font.getMajorRevision(), 200u);
}

TEST(FontDefinitionEx, HierarchyNameCloneAndAssign) {
  FontDefinitionEx const font = sampleFont();
  EXPECT_EQ(font.hierarchyName(false, true), LightweightString<char>("FD"));
  EXPECT_EQ(font.hierarchyName(false, false), LightweightString<char>("FontDefinitionEx/Streamable"));
  FontDefinitionEx versioned = font;
  versioned.setRevision(4, 2);
  std::unique_ptr<Streamable> copy(versioned.clone(Streamable::kCopyOf));
  auto* copied = dynamic_cast<FontDefinitionEx*>(copy.get());
  ASSERT_NE(copied, nullptr);
  EXPECT_EQ(static_cast<FontDefinition const&>(*copied), static_cast<FontDefinition const&>(font));
  EXPECT_EQ(copied->getMajorRevision(), 4u);
  EXPECT_EQ(copied->getMinorRevision(), 2u);

  FontDefinitionEx target;
  target.assign(nullptr);
  EXPECT_EQ(static_cast<FontDefinition const&>(target), FontDefinition());
  target.assign(copied);
  EXPECT_EQ(target.name, font.name);
}

TEST(FontDefinitionEx, AFamilyStopsAtItsFirstZeroCharacter) {
  FontDefinitionEx font = sampleFont();
  font.name = WString(std::wstring(L"Sans\0Hidden", 11));
  Unpacked const back = unpack(packed(font));
  EXPECT_EQ(back.result, Streamable::kUnpacked);
  EXPECT_EQ(back.font.name, WString(L"Sans"));
  EXPECT_EQ(back.font.size, font.size) << "the fields after the name are still in place";
}

} // namespace
