#include <gtest/gtest.h>

#include "archive/PngCheck.h"
#include "support/TestPng.h"

namespace tolva::test {
namespace {

PngCheck Check(const std::string& file) {
  return PngCheck(std::span(reinterpret_cast<const std::uint8_t*>(file.data()), file.size()));
}

TEST(PngCheck, RefusesAPictureCutOrChangedAtAnyByte) {
  const std::string file = MakePng({.color = PngColor::Palette, .palette = Bytes(6), .seeThrough = {0, 255}});
  for (std::size_t at = 0; at < file.size(); ++at) {
    EXPECT_FALSE(Check(file.substr(0, at)).IsSound()) << "cut at " << at;
    std::string changed = file;
    changed[at] = static_cast<char>(changed[at] ^ 0x10);
    EXPECT_FALSE(Check(changed).IsSound()) << "changed at " << at;
  }
}

// Header fields and chunks that are wrong although all checksums are right.
TEST(PngCheck, RefusesInvalidHeadersAndChunks) {
  const auto header = [](std::uint32_t width, std::uint32_t height, const std::string& kind) {
    return MakeChunk("IHDR", BigEndian(width) + BigEndian(height) + kind);
  };
  const std::string rgb("\x08\x02\0\0\0", 5), indexed("\x01\x03\0\0\0", 5);
  const std::string rgbHeader = header(1, 1, rgb), indexedHeader = header(1, 1, indexed);
  const std::string pixels = MakeChunk("IDAT", "x"), end = MakeChunk("IEND", ""), note = MakeChunk("tEXt", "hello");
  const std::string palette = MakeChunk("PLTE", "rgbRGB");

  const std::pair<const char*, std::string> sound[] = {
      {"largest", header(4096, 1024, rgb) + pixels + end},
      {"notes", rgbHeader + note + pixels + note + end},
      {"indexed", indexedHeader + palette + MakeChunk("tRNS", "ab") + pixels + pixels + end},
  };
  const std::pair<const char*, std::string> broken[] = {
      {"nothing", ""},
      {"no header", pixels + end},
      {"two headers", rgbHeader + rgbHeader + pixels + end},
      {"short header", MakeChunk("IHDR", BigEndian(1) + BigEndian(1)) + pixels + end},
      {"zero width", header(0, 1, rgb) + pixels + end},
      {"zero height", header(1, 0, rgb) + pixels + end},
      {"too wide", header(4097, 1, rgb) + pixels + end},
      {"too high", header(1, 0xFFFFFFFF, rgb) + pixels + end},
      {"too many pixels", header(4096, 1025, rgb) + pixels + end},
      {"no such color type", header(1, 1, std::string("\x08\x05\0\0\0", 5)) + pixels + end},
      {"no such interlacing", header(1, 1, std::string("\x08\x02\0\0\x02", 5)) + pixels + end},
      {"no pixels", rgbHeader + end},
      {"pixels apart", rgbHeader + pixels + note + pixels + end},
      {"unknown critical chunk", rgbHeader + MakeChunk("XXXX", "") + pixels + end},
      {"palette missing", indexedHeader + pixels + end},
      {"palette twice", indexedHeader + palette + palette + pixels + end},
      {"palette torn", indexedHeader + MakeChunk("PLTE", "rgbRG") + pixels + end},
      {"palette too long", indexedHeader + MakeChunk("PLTE", "rgbRGBrgb") + pixels + end},
      {"more alphas than colors", indexedHeader + palette + MakeChunk("tRNS", "abc") + pixels + end},
      {"alphas before the palette", indexedHeader + MakeChunk("tRNS", "a") + palette + pixels + end},
      {"short key", rgbHeader + MakeChunk("tRNS", "abcde") + pixels + end},
      {"chunk of 4 GB", rgbHeader + BigEndian(0xFFFFFFFF) + "IDAT" + std::string(64, 'x')},
      {"end with data", rgbHeader + pixels + MakeChunk("IEND", "x")},
  };
  const std::string signature = "\x89PNG\r\n\x1A\n";
  for (const auto& [name, chunks] : sound) EXPECT_TRUE(Check(signature + chunks).IsSound()) << name;
  for (const auto& [name, chunks] : broken) EXPECT_FALSE(Check(signature + chunks).IsSound()) << name;
}

}  // namespace
}  // namespace tolva::test
