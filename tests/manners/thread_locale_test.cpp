// Threads with locales of their own, listing at once.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>

#include "ZEPHDataStructureEngine.h"
#include "support/locales.h"
#include "support/scale.h"

using namespace zeph::test;

#ifndef _WIN32
namespace {

char kName[] = "x";

/// How many of `count` listings differ from `want`.
int Others(int count, const std::string& want) {
  double values[] = {1.5};
  int others = 0;
  for (int k = 0; k < count; ++k) {
    CString listing;
    ZEPH_ArrayDisplay(listing, values, 1, kName);
    others += want != std::string(listing.GetString()).substr(0, want.size());
  }
  return others;
}

}  // namespace

TEST(ThreadLocale, DoesNotAffectTheTextsOfAnotherThread) {
  const int count = static_cast<int>(Scaled(300000));
  std::atomic<int> ready{0};
  std::atomic<bool> found{false};
  const auto meet = [&] {
    for (++ready; ready < 2;) std::this_thread::yield();
  };
  int withCommas = 0, withPoints = 0;
  std::thread other([&] {
    const ThreadLocale locale(kCommaLocales);
    found = locale.Found();
    meet();
    if (found) withCommas = Others(count, ZEPH_PortableMath ? "x[0]=1.5000e" : "x[0]=1,5000e");
  });
  meet();
  if (found) withPoints = Others(count, "x[0]=1.5000e");
  other.join();
  if (!found) GTEST_SKIP() << "no locale with a decimal comma is installed";
  EXPECT_EQ(withCommas, 0);
  EXPECT_EQ(withPoints, 0);
}
#endif
