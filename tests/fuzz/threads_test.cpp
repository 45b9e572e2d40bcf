// Threads with objects of their own do not interfere: all bodies at once, each on its own inputs.
//
// What threads may share by the documentation is not called here (the random generator) or
// suppressed by the step that runs this under the thread sanitizer (the live counts of CZEPHMatrix4
// and CZEPHVector3, tools/check/threads.supp).
#include <gtest/gtest.h>

#include <algorithms.h>
#include <containers.h>
#include <double_array.h>
#include <graphics.h>
#include <linalg.h>
#include <raw_buffers.h>

#include <cstring>
#include <thread>
#include <vector>

#include "fuzz/bodies.h"
#include "support/numbers.h"
#include "support/scale.h"

namespace zeph::test {
namespace {

constexpr int kThreads = 8;
/// Inputs of a thread for every body; most hold several operations.
const std::size_t kInputs = Scaled<std::size_t>(300, 100);

void RunAll(std::uint64_t seed) {
  Random random(seed);
  std::vector<unsigned char> input;
  for (std::size_t k = 0; k < kInputs; ++k)
    for (FuzzBody* body : kFuzzBodies) {
      input.resize(random.Below(120));
      for (auto& byte : input) byte = static_cast<unsigned char>(random.Next());
      body(input.data(), input.size());
    }
}

/// The objects of one thread, and a digest of all results.
class Mixture {
 public:
  explicit Mixture(std::uint64_t seed) : random_(seed) {}

  std::uint64_t Run(int operations) {
    for (int k = 0; k < operations; ++k) Step();
    return digest_;
  }

 private:
  void Step() {
    switch (random_.Below(9)) {
      case 0:
        return Keep(array_ = array_ + array_);
      case 1:
        return Sort();
      case 2:
        return Multiply();
      case 3:
        return Turn();
      case 4:
        return Negate();
      case 5:
        return Buffer();
      case 6:
        return List();
      case 7:
        return Write();
      default:
        return Refill();
    }
  }

  void Keep(double x) {
    std::uint64_t bits;
    std::memcpy(&bits, &x, sizeof bits);
    digest_ = (digest_ ^ bits) * 0x100000001B3u;
  }
  void Keep(const CZEPHDoubleArray& a) {
    for (int i = 0; i < a.GetSize(); ++i) Keep(a.data[i]);
  }

  void Refill() {
    for (int i = 0; i < array_.GetSize(); ++i) array_[i] = random_.Real();
  }
  void Sort() {
    array_.QuickSort(static_cast<int>(random_.Below(12)));
    Keep(array_);
  }
  void Multiply() {
    CZEPHDoubleMatrix m(4, 4, 0.0);
    for (int i = 0; i < 4; ++i)
      for (int j = 0; j < 4; ++j) m[i][j] = random_.Real();
    m *= m;
    Keep(m[3][2]);
  }
  void Turn() {
    transform_.SetRotationX(random_.Real(-90, 90));
    const CZEPHMatrix4x4 inverse = transform_.GetInverse();
    for (float x : inverse.entries) Keep(x);
  }
  void Negate() {  // uses what the library keeps for each thread
    CZEPHDoubleMatrix m(2, 2, 1.0);
    m[1][0] = random_.Real();
    Keep((-m)[1][0]);
  }
  void Buffer() {
    const int hi = static_cast<int>(random_.Below(20));
    double* x = ZEPH_ArrayAllocDouble("x", -3, hi);
    x[hi] = random_.Real();
    Keep(ZEPH_ArrayMaxNorm(x, hi, -3));
    ZEPH_ArrayFree(x, -3, hi);
  }
  void List() {
    CZEPHLinkList<double> list;
    for (int k = 0; k < 5; ++k) list.InsertOrdered(new CZEPHLink<double>(random_.Real()));
    Keep(list.m_pHead->m_value);
  }
  void Write() {
    CString text;
    array_.Display(text);
    Keep(text.GetLength());
  }

  Random random_;
  CZEPHDoubleArray array_{16, 0.5};
  CZEPHMatrix4x4 transform_;
  std::uint64_t digest_ = 0xCBF29CE484222325u;
};

TEST(Threads, GiveTheResultsOfOneThreadInTenThousandMixedOperationsEach) {
  constexpr int kOperations = 10'000;
  std::uint64_t together[kThreads], alone[kThreads];
  std::vector<std::thread> threads;
  for (unsigned i = 0; i < kThreads; ++i)
    threads.emplace_back([&, i] { together[i] = Mixture(i).Run(kOperations); });
  for (auto& thread : threads) thread.join();
  for (unsigned i = 0; i < kThreads; ++i) alone[i] = Mixture(i).Run(kOperations);
  for (int i = 0; i < kThreads; ++i) EXPECT_EQ(together[i], alone[i]) << "thread " << i;
}

TEST(Threads, RunEveryFuzzTargetOnObjectsOfTheirOwn) {
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) threads.emplace_back(RunAll, static_cast<std::uint64_t>(i));
  for (auto& thread : threads) thread.join();
}

}  // namespace
}  // namespace zeph::test
