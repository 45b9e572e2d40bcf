// Generated programs of documented operations leave the same bits in every build: plain and hardened, of each
// compiler and processor, they are compared with the digests written down here.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "support/forms.h"
#include "support/random.h"
#include "support/scale.h"

namespace zeph::test {
namespace {

constexpr int kPrograms = 250;

/// Of the results of one block of generated programs.
std::uint64_t Digest(std::uint64_t block) {
  Random random(block);
  std::uint64_t digest = 0xCBF29CE484222325u;
  std::vector<unsigned char> program;
  for (int k = 0; k < kPrograms; ++k) {
    program.resize(random.Below(100) + 1);
    for (auto& byte : program) byte = static_cast<unsigned char>(random.Next());
    for (const std::uint64_t bits : fuzz::ResultsOf(program.data(), program.size()))
      digest = (digest ^ bits) * 0x100000001B3u;
  }
  return digest;
}

constexpr std::uint64_t kExpected[] = {
    0xFF32C04AD1FCF567u, 0x5A94FD4D2FB98F9Au, 0xD553B6E7BF02B435u, 0x0A03A4AA753F1082u,
    0x508ACC46ECD56A0Fu, 0xF2B91C0749A1E8ABu, 0x5885B694F18F2A01u, 0x0EB008859692499Au};

}  // namespace

TEST(FuzzPrograms, GiveTheSameBitsInEveryBuild) {
  const std::uint64_t blocks = Scaled<std::uint64_t>(std::size(kExpected), 1);
  for (std::uint64_t block = 0; block < blocks; ++block)
    EXPECT_EQ(Digest(block), kExpected[block]) << "programs of block " << block;
}

}  // namespace zeph::test
