// The saved inputs of the fuzz targets, run through the same bodies, so that a bug found once stays
// tested.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/bodies.h"
#include "support/require.h"

namespace {

/// Every file of the target's folder; an empty folder is a failure.
void Replay(const std::string& target, zeph::test::FuzzBody* body) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(ZEPH_FUZZ_CORPUS "/" + target))
    if (entry.is_regular_file()) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  ASSERT_FALSE(files.empty()) << "no saved inputs for " << target;
  for (const auto& path : files) {
    std::ifstream file(path, std::ios::binary);
    ASSERT_TRUE(file) << path;
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    zeph::fuzz::CurrentInput() = path.string();
    EXPECT_EQ(body(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()), 0) << path;
  }
  zeph::fuzz::CurrentInput().clear();
}

}  // namespace

// A broken promise ends the program with a message that names the input.
#define ZEPH_REPLAY(target, sentence)   \
  TEST(FuzzReplay, sentence) {          \
    Replay(#target, ZephFuzz_##target); \
  }
ZEPH_REPLAY(containers, CollectionsMatchTheStandardContainers)
ZEPH_REPLAY(double_array, DoubleArraysMatchAVector)
ZEPH_REPLAY(extractors, ExtractorsAcceptAnyText)
ZEPH_REPLAY(forms, EveryFormGivesTheSameBits)
ZEPH_REPLAY(graphics, FloatArithmeticMatchesPlainArrays)
ZEPH_REPLAY(matrices, MatricesMatchRowsOfNumbers)
ZEPH_REPLAY(raw_buffers, RawBlocksLiveAndDieAsDocumented)
ZEPH_REPLAY(sorts, SortsMatchTheirSteps)
ZEPH_REPLAY(texts, TextsMatchTheRuntime)
