// SPDX-License-Identifier: MIT
//
// One call of a kernel, between two marks, for tools/arm_model/model.py.
//
//     zeph_arm_model --list | zeph_arm_model FORM KERNEL
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "kernels/batch.h"
#include "kernels/dense_product.h"
#include "kernels/elementwise.h"
#include "kernels/largest_magnitude.h"
#include "kernels/partition.h"
#include "kernels/row_sums.h"
#include "kernels/search.h"
#include "kernels/sort.h"
#include "textbook.h"

namespace {

using namespace zeph::kernels;

constexpr std::size_t kCount = 1'000;  // elements
constexpr std::size_t kSide = 40;      // rows and columns
constexpr std::size_t kObjects = 200;
constexpr std::size_t kStride = 24;  // bytes from object to object

/// Whole numbers and fractions in no order, the same everywhere; none is 0.
template <class T>
std::vector<T> Numbers(std::size_t n, std::uint64_t state = 88172645463325252u) {
  std::vector<T> v(n);
  for (T& x : v) {
    state ^= state << 13;
    state ^= state >> 7;
    state ^= state << 17;
    x = static_cast<T>(static_cast<double>(state >> 40) / 1024.0 - 8000.0);
    if (x == T(0)) x = T(1);
  }
  return v;
}
template <class T>
std::vector<T> Sorted(std::size_t n, std::uint64_t state) {
  std::vector<T> v = Numbers<T>(n, state);
  std::sort(v.begin(), v.end());
  return v;
}

struct Rows {
  std::vector<double> elements = Numbers<double>(kSide * kSide);
  std::vector<double*> rows;
  Rows() {
    for (std::size_t i = 0; i < kSide; ++i) rows.push_back(elements.data() + i * kSide);
  }
};

using Work = std::function<void()>;
struct Kernel {
  const char* name;
  Work (*prepare)(const Table& table);
};

std::vector<double> a = Numbers<double>(kCount), b = Numbers<double>(kCount, 7), out(2 * kCount);
std::vector<double> up = Sorted<double>(kCount, 5), up2 = Sorted<double>(kCount, 9);
std::vector<int> whole = Numbers<int>(kCount), intsUp = Sorted<int>(kCount, 5),
                 intsUp2 = Sorted<int>(kCount, 9), intsOut(2 * kCount);
Rows left, right, result;
std::vector<double> sums(kSide);
std::vector<float> floats = Numbers<float>(kObjects * 16),
                   floats2 = Numbers<float>(kObjects * 16, 7), floatsOut(kObjects * 16);
std::vector<double> doubles = Numbers<double>(kObjects * 16),
                    doubles2 = Numbers<double>(kObjects * 16, 7), doublesOut(kObjects * 16);
volatile double sink;

template <class T>
merge::Pair<T> Blocks(const std::vector<T>& x, const std::vector<T>& y, std::vector<T>& to) {
  return {x.data(), x.data() + x.size(), y.data(), y.data() + y.size(), to.data()};
}

const Kernel kKernels[] = {
    {"sort of doubles",
     [](const Table& t) -> Work { return [&] { t.sorting->sort_doubles(a.data(), kCount); }; }},
    {"sort of ints",
     [](const Table& t) -> Work { return [&] { t.sorting->sort_ints(whole.data(), kCount); }; }},
    {"split (doubles)",
     [](const Table& t) -> Work {
       return [&] { sink = static_cast<double>(t.sorting->split_doubles(a.data(), kCount, 0)); };
     }},
    {"split (ints)",
     [](const Table& t) -> Work {
       return [&] { sink = static_cast<double>(t.sorting->split_ints(whole.data(), kCount, 0)); };
     }},
    {"whether the order is unique",
     [](const Table& t) -> Work {
       return [&] { sink = t.sorting->order_is_unique(a.data(), kCount); };
     }},
    {"whether doubles ascend",
     [](const Table& t) -> Work {
       return [&] { sink = t.sorting->ascends_doubles(up.data(), kCount); };
     }},
    {"whether ints ascend",
     [](const Table& t) -> Work {
       return [&] { sink = t.sorting->ascends_ints(intsUp.data(), kCount); };
     }},
    {"merge of doubles",
     [](const Table& t) -> Work {
       return [&] { t.sorting->merge_doubles(Blocks(up, up2, out)); };
     }},
    {"merge of ints",
     [](const Table& t) -> Work {
       return [&] { t.sorting->merge_ints(Blocks(intsUp, intsUp2, intsOut)); };
     }},
    {"what is in front (doubles)",
     [](const Table& t) -> Work {
       for (double& x : up2) x += 1e6;
       return [&] {
         auto p = Blocks(up, up2, out);
         t.sorting->take_front_doubles(p);
       };
     }},
    {"what is in front (ints)",
     [](const Table& t) -> Work {
       for (int& x : intsUp2) x += 1'000'000;
       return [&] {
         auto p = Blocks(intsUp, intsUp2, intsOut);
         t.sorting->take_front_ints(p);
       };
     }},
    {"exact partition",
     [](const Table& t) -> Work {
       a[0] = -9000;
       return
           [&] { sink = static_cast<double>(t.partitions->part(a.data(), kCount, a[kCount - 2])); };
     }},
    {"census",
     [](const Table& t) -> Work {
       return [&] { sink = static_cast<double>(t.partitions->census(a.data(), kCount).nans); };
     }},
    {"stops of 64",
     [](const Table& t) -> Work {
       return [&] { sink = static_cast<double>(t.partitions->not_less(a.data(), 64, 0)); };
     }},
    {"bounds",
     [](const Table& t) -> Work {
       return [&] { sink = t.partitions->bounds(a.data(), kCount).least; };
     }},
    {"first of a value, not there",
     [](const Table& t) -> Work {
       return [&] { sink = static_cast<double>(t.searching->find_first(a.data(), kCount, 1e9)); };
     }},
    {"last of a value (ints), not there",
     [](const Table& t) -> Work {
       return [&] {
         sink = static_cast<double>(t.searching->find_last(whole.data(), kCount, 1 << 30));
       };
     }},
    {"first of the least",
     [](const Table& t) -> Work {
       return [&] { sink = static_cast<double>(t.searching->first_least(a.data(), kCount)); };
     }},
    {"no descent",
     [](const Table& t) -> Work {
       return [&] { sink = t.searching->none_descends(up.data(), kCount); };
     }},
    {"add",
     [](const Table& t) -> Work {
       return [&] { t.elementwise->add(out.data(), a.data(), b.data(), kCount); };
     }},
    {"subtract",
     [](const Table& t) -> Work {
       return [&] { t.elementwise->subtract(out.data(), a.data(), b.data(), kCount); };
     }},
    {"multiply",
     [](const Table& t) -> Work {
       return [&] { t.elementwise->multiply(out.data(), a.data(), b.data(), kCount); };
     }},
    {"scale",
     [](const Table& t) -> Work {
       return [&] { t.elementwise->scale(out.data(), 3.0, a.data(), kCount); };
     }},
    {"subtract from",
     [](const Table& t) -> Work {
       return [&] { t.elementwise->subtract_from(out.data(), 3.0, a.data(), kCount); };
     }},
    {"fill",
     [](const Table& t) -> Work { return [&] { t.elementwise->fill(out.data(), 3.0, kCount); }; }},
    {"largest magnitude",
     [](const Table& t) -> Work {
       return [&] { sink = t.magnitudes->largest(a.data(), kCount); };
     }},
    {"the same, or NaN",
     [](const Table& t) -> Work {
       return [&] { sink = t.magnitudes->largest_or_nan(a.data(), kCount); };
     }},
    {"row sums",
     [](const Table& t) -> Work {
       return [&] { t.row_sums->sum(sums.data(), left.rows.data(), kSide, kSide); };
     }},
    {"row sums of magnitudes",
     [](const Table& t) -> Work {
       return [&] { t.row_sums->magnitude(sums.data(), left.rows.data(), kSide, kSide); };
     }},
    {"scaled lengths of rows",
     [](const Table& t) -> Work {
       return [&] { t.row_sums->length(sums.data(), left.rows.data(), kSide, kSide); };
     }},
    {"matrix times array",
     [](const Table& t) -> Work {
       return [&] { t.row_sums->dot(sums.data(), left.rows.data(), a.data(), kSide, kSide); };
     }},
    {"dense product",
     [](const Table& t) -> Work {
       return [&] {
         t.products->dense(result.rows.data(), left.rows.data(), right.rows.data(), kSide, kSide,
                           kSide);
       };
     }},
    {"normalise (floats)",
     [](const Table& t) -> Work {
       return
           [&] { t.batch->floats.normalise(floatsOut.data(), floats.data(), kStride, kObjects); };
     }},
    {"normalise (doubles)",
     [](const Table& t) -> Work {
       return [&] {
         t.batch->doubles.normalise(doublesOut.data(), doubles.data(), kStride, kObjects);
       };
     }},
    {"dot products (floats)",
     [](const Table& t) -> Work {
       return [&] {
         t.batch->floats.dot(floatsOut.data(), floats.data(), floats2.data(), kStride, kObjects);
       };
     }},
    {"dot products (doubles)",
     [](const Table& t) -> Work {
       return [&] {
         t.batch->doubles.dot(doublesOut.data(), doubles.data(), doubles2.data(), kStride,
                              kObjects);
       };
     }},
    {"cross products (floats)",
     [](const Table& t) -> Work {
       return [&] {
         t.batch->floats.cross(floatsOut.data(), floats.data(), floats2.data(), kStride, kObjects);
       };
     }},
    {"cross products (doubles)",
     [](const Table& t) -> Work {
       return [&] {
         t.batch->doubles.cross(doublesOut.data(), doubles.data(), doubles2.data(), kStride,
                                kObjects);
       };
     }},
    {"box (floats)",
     [](const Table& t) -> Work {
       return [&] {
         t.batch->floats.bounds(floatsOut.data(), floatsOut.data() + 4, floats.data(), kStride,
                                kObjects);
       };
     }},
    {"box (doubles)",
     [](const Table& t) -> Work {
       return [&] {
         t.batch->doubles.bounds(doublesOut.data(), doublesOut.data() + 4, doubles.data(), kStride,
                                 kObjects);
       };
     }},
    {"directions",
     [](const Table& t) -> Work {
       return [&] {
         t.batch->directions(floatsOut.data(), floats.data(), kStride, floats2.data(), kObjects);
       };
     }},
    {"points",
     [](const Table& t) -> Work {
       return [&] {
         t.batch->points(floatsOut.data(), floats.data(), kStride, floats2.data(), false, kObjects);
       };
     }},
    {"projected points",
     [](const Table& t) -> Work {
       return [&] {
         t.batch->points(floatsOut.data(), floats.data(), kStride, floats2.data(), true, kObjects);
       };
     }},
    {"vectors of four",
     [](const Table& t) -> Work {
       return [&] {
         t.batch->vectors(floatsOut.data(), floats.data(), kStride, floats2.data(), false,
                          kObjects);
       };
     }},
    {"4 x 4 products (floats)",
     [](const Table& t) -> Work {
       return [&] {
         t.batch_products->floats(floatsOut.data(), floats.data(), 64, floats2.data(), false, false,
                                  kObjects);
       };
     }},
    {"affine products (floats)",
     [](const Table& t) -> Work {
       return [&] {
         t.batch_products->floats(floatsOut.data(), floats.data(), 64, floats2.data(), true, true,
                                  kObjects);
       };
     }},
    {"4 x 4 products (doubles)",
     [](const Table& t) -> Work {
       return [&] {
         t.batch_products->doubles(doublesOut.data(), doubles.data(), 128, doubles2.data(),
                                   kObjects);
       };
     }},
};

}  // namespace

/// The model examines the instructions between the marks.
extern "C" __attribute__((noinline)) void ZephBegin() {
  asm volatile("" ::: "memory");
}
extern "C" __attribute__((noinline)) void ZephEnd() {
  asm volatile("" ::: "memory");
}

int main(int argc, char** argv) {
  if (argc == 2 && std::strcmp(argv[1], "--list") == 0) {
    for (const Kernel& kernel : kKernels) std::puts(kernel.name);
    return 0;
  }
  if (argc != 3) return 2;
  const Table* table = &zeph::arm_model::kTextbook;
  for (const Table* each : RunnableTables())
    if (argv[1] == std::string(each->name)) table = each;
  if (argv[1] != std::string(table->name)) return 3;
  Force(argv[1]);
  for (const Kernel& kernel : kKernels)
    if (argv[2] == std::string(kernel.name)) {
      const Work work = kernel.prepare(*table);
      ZephBegin();
      work();
      ZephEnd();
      return 0;
    }
  return 3;
}
