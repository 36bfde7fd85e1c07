// What the compressor writes, read by another program's decompressor.
#include "graphic/deflate.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <random>
#include <string>

#include "equipment/temporary_folder.h"
#include "outside_tools.h"

namespace tarvo::test {
namespace {

std::string compressed(std::string_view data) {
  std::string result;
  Deflater().compress(data, result);
  return result;
}

// Numbered bytes of a fixed sequence, from so many different ones.
std::string randomBytes(std::size_t size, unsigned different) {
  std::minstd_rand random(different);
  std::string bytes(size, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random() / 7 % different);
  return bytes;
}

std::string repeated(std::string_view text, std::size_t size) {
  std::string all;
  while (all.size() < size) all += text;
  all.resize(size);
  return all;
}

std::string pageOfColumns() {
  std::string page;
  for (int i = 0; i < 66; ++i) {
    page += "(001-" + std::to_string(4500 + i * 37) + "  Cable de cobre 2.5 mm x 100 m, rollo   " +
            std::to_string(i * 85'300) + ",00)'\n";
  }
  return page;
}

// Data of every kind that a compressor treats in its own way.
std::map<std::string, std::string> samples() {
  std::map<std::string, std::string> all;
  all["empty"] = "";
  for (const std::size_t size :
       {1u, 2u, 3u, 4u, 5u, 8u, 257u, 258u, 259u, 260u, 261u, 516u, 517u}) {
    all["same" + std::to_string(size)] = std::string(size, 'a');
  }
  all["every_byte"] = randomBytes(256, 256);
  for (unsigned byte = 0; byte < 256; ++byte) {
    all["every_byte_twice"] += std::string(2, static_cast<char>(byte));
  }
  for (const unsigned different : {2u, 3u, 10u, 200u, 256u}) {
    all["random_of_" + std::to_string(different)] = randomBytes(150'000, different);
  }
  // Every length of a match, at distances of every range.
  std::string matches = randomBytes(40'000, 256);
  for (std::size_t length = 3; length <= 300; ++length) {
    const std::size_t distance = 1 + length * length * 7 % 32'768;
    matches += matches.substr(matches.size() - std::max(distance, length), length);
    matches += static_cast<char>(length);
  }
  all["matches"] = matches;
  // What repeats at the edge of the window, and just outside it.
  for (const std::size_t period : {32'766u, 32'767u, 32'768u, 32'769u, 65'536u}) {
    all["period_" + std::to_string(period)] = repeated(randomBytes(period, 256), 200'000);
  }
  all["short_periods"] = repeated("abc", 70'000) + repeated("abcd ", 70'000);
  all["page"] = pageOfColumns();
  all["pages"] = repeated(pageOfColumns(), 1'000'000);
  return all;
}

TEST(Deflate, AnotherDecompressorReadsItBack) {
  TARVO_NEEDS_PROGRAM("python3");
  const TemporaryFolder folder;
  const auto all = samples();
  for (const auto& [name, data] : all) {
    std::ofstream(folder.path() / (name + ".z"), std::ios::binary) << compressed(data);
  }
  std::ofstream(folder.path() / "inflate.py") << "import pathlib, sys, zlib\n"
                                                 "for f in pathlib.Path(sys.argv[1]).glob('*.z'):\n"
                                                 "    reader = zlib.decompressobj()\n"
                                                 "    data = reader.decompress(f.read_bytes())\n"
                                                 "    assert reader.eof, f\n"
                                                 "    assert not reader.unused_data, f\n"
                                                 "    f.with_suffix('.out').write_bytes(data)\n"
                                                 "print('read')\n";
  const std::string path = folder.path().string();
  ASSERT_EQ(outputOf("python3 " + path + "/inflate.py " + path), "read\n");
  for (const auto& [name, data] : all) {
    EXPECT_TRUE(folder.contentOf(fromUtf8(name + ".out")) == data) << name;
  }
}

TEST(Deflate, OneCompressorServesManyTimes) {
  Deflater deflater;
  for (const auto& [name, data] : samples()) {
    std::string result = "before";
    deflater.compress(data, result);
    EXPECT_TRUE(result == "before" + compressed(data)) << name;
  }
}

TEST(Deflate, PagesOfColumnsComeOutSmall) {
  const std::string page = pageOfColumns();
  EXPECT_LT(compressed(page).size(), page.size() / 4);
  EXPECT_LT(compressed(std::string(100'000, ' ')).size(), 700u);
}

TEST(Deflate, NothingGrowsByMoreThanAnEighth) {
  for (const auto& [name, data] : samples()) {
    EXPECT_LE(compressed(data).size(), data.size() + data.size() / 8 + 9) << name;
  }
}

}  // namespace
}  // namespace tarvo::test
