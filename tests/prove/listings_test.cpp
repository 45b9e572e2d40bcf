// Listings and texts against the runtime's printf, an item at a time.
#include "oracle/listing.h"

#include "double_array/arrays.h"
#include "prove/proof.h"
#include "raw_buffers.h"

namespace zeph::prove {
namespace {

using test::Random;

void CheckListing(std::uint64_t k, Case& seen) {
  Random random(k * 8 + 9);
  const int lo = random.Int(-12, 12), hi = lo + random.Int(-1, 14);
  const std::size_t n = static_cast<std::size_t>(hi - lo + 1);
  std::vector<double> values = test::Awkward(n, random.Next());
  std::vector<int> whole(n);
  for (int& x : whole) x = static_cast<int>(random.Next() >> random.Below(64));
  char label[] = "label";

  CString text;
  ZEPH_ArrayDisplay(text, values.data() - lo, lo, hi, label);
  seen.Expect(text.GetString() ==
                  oracle::Listing("%s[%d]=%-5.4le    ", "\r\n", values.data() - lo, lo, hi, label),
              "ZEPH_ArrayDisplay of doubles");
  CString numbers;
  ZEPH_ArrayDisplay(numbers, whole.data() - lo, lo, hi, label);
  seen.Expect(numbers.GetString() ==
                  oracle::Listing("%s[%d]=%-5d   ", "\r\n", whole.data() - lo, lo, hi, label),
              "ZEPH_ArrayDisplay of ints");

  CZEPHDoubleArray a = test::ArrayOf(values);
  std::string want = "{ ";
  for (std::size_t i = 0; i < n; ++i) {
    want += oracle::Printed("%lf  ", values[i]);
    if (i != 0 && i % 10 == 0) want += "\r\n";
  }
  CString shown;
  a.Display(shown);
  seen.Expect(shown.GetString() == want + "}\r\n", "Display");
  if (seen.Failed()) seen.Describe(test::Show(values));
}

TEST(Proof, TextsOfAnyDoublesAndIntsMatchTheirOracles) {
  Prove(kRandomCases, CheckListing);
}

}  // namespace
}  // namespace zeph::prove
