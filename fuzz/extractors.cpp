// Stream extractors on arbitrary text: no access outside the storage, no broken object.
#include <sstream>

#include "linalg.h"
#include "support/bytes.h"
#include "support/require.h"

namespace {

using zeph::fuzz::Bytes;
using zeph::fuzz::Require;
using zeph::fuzz::RequireBits;

constexpr int kRoom = 64;

/// Extracts like a program that checks every extraction.
struct Reader {
  std::istringstream stream;
  explicit Reader(const std::string& text) : stream(text) {}
  bool Count(int& n) { return static_cast<bool>(stream >> n); }
  bool Value(double& x) { return static_cast<bool>(stream >> x); }
};

void Array(const std::string& text) {
  Reader reader(text);
  int count = 0;
  bool good = reader.Count(count);
  CZEPHDoubleArray bare;
  std::istringstream again(text);
  again >> bare;
  Require(good && count < 0 ? bare.size == count : bare.size == 0,
          "an array without storage stays empty");
  if (good && count > kRoom) return;  // the caller must provide room for the announced count
  CZEPHDoubleArray array(kRoom, 7.5);
  std::vector<double> want;
  for (int i = 0; good && i < count; ++i) {
    double x = 0;
    good = reader.Value(x);
    if (good) want.push_back(x);
  }
  std::istringstream is(text);
  is >> array;
  Require(array.size == (good ? count : 0), "the count is the stream's, 0 after a failure");
  RequireBits(array.data, want.data(), want.size(), "the elements are the stream's");
  for (int i = static_cast<int>(want.size()) + 1; i < kRoom; ++i)
    Require(array.data[i] == 7.5, "nothing is written after the elements");
  Require(static_cast<bool>(is) == good, "the stream reports a failure");
}

void Matrix(const std::string& text) {
  Reader reader(text);
  int rows = 0;
  int cols = 0;
  bool good = reader.Count(rows);
  good = reader.Count(cols) && good;
  CZEPHDoubleMatrix bare;
  std::istringstream again(text);
  again >> bare;
  Require(bare.m_ppData == nullptr, "an extractor allocates nothing");
  if (good && rows > 0 && cols > 0)
    Require(bare.m_nRows == 0 && bare.m_nColumns == 0, "a matrix without storage stays empty");
  if (good && (rows > 8 || cols > 8)) return;
  CZEPHDoubleMatrix m(8, 8, 7.5);
  for (int i = 0; good && i < rows; ++i)
    for (int j = 0; good && j < cols; ++j) {
      double x = 0;
      good = reader.Value(x);
    }
  std::istringstream is(text);
  is >> m;
  Require(m.m_nRows == (good ? rows : 0) && m.m_nColumns == (good ? cols : 0),
          "the counts are the stream's, 0 after a failure");
  m.m_nRows = 8;  // so that all rows are released
}

void Small(const std::string& text) {
  CZEPHVector3 v(1, 2, 3);
  std::istringstream is(text);
  if (!(is >> v)) {
    Require(v.x() == 1 && v.y() == 2 && v.z() == 3, "a failure leaves the vector unchanged");
  } else {
    std::ostringstream out;
    out.precision(17);
    out << v;
    CZEPHVector3 back;
    std::istringstream(out.str()) >> back;
    Require(back == v, "what was read is written and read again");
  }
  CZEPHMatrix4 m(4.0);
  std::istringstream all(text);
  if (all >> m) return;
  for (const double x : m.m_data) Require(x == 4.0, "a failure leaves the matrix unchanged");
}

void Long(const std::string& text) {
  ZEPH_Long got = -5;
  int want = -5;
  std::istringstream is(text), same(text);
  is >> got;
  same >> want;
  Require(static_cast<bool>(is) == static_cast<bool>(same), "a 32-bit long is read as an int");
  if (is) Require(got == want, "a 32-bit long holds the int that is stored there");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  Bytes in(data, size);
  const int what = in.Int(0, 3);
  const std::string text = in.Rest();
  switch (what) {
    case 0:
      Array(text);
      break;
    case 1:
      Matrix(text);
      break;
    case 2:
      Small(text);
      break;
    default:
      Long(text);
  }
  return 0;
}
