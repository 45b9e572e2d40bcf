// SPDX-License-Identifier: MIT
#include <istream>
#include <ostream>

#include "double_array.h"
#include "double_array/elements.h"
#include "platform/block_writer.h"
#include "platform/format_number.h"
#include "platform/live_blocks.h"
#include "platform/stream_number.h"
#include "platform/stream_reader.h"

namespace zeph::double_array {
namespace {

/// Whether a line of a display ends after element `k`: the first line has eleven.
bool EndsLine(int k) {
  return k != 0 && k % 10 == 0;
}

/// Appends `count` elements in braces.
void AppendListing(CString& out, const double* first, int count) {
  using platform::RealFormat;
  platform::BlockWriter writer(platform::StringSink{out});
  const RealFormat number("%lf", RealFormat::Notation::kFixed, 6);
  writer.Text("{ ");
  for (int k = 0; k < count; ++k) {
    writer.Real(number, first[k]);
    writer.Text(EndsLine(k) ? "  \r\n" : "  ");
  }
  writer.Text("}\r\n");
  writer.Flush();
}

/// Hardened builds check that a block allocated by the library has room for the count that a stream
/// announces. The block may intentionally be larger than `size`; the program's own blocks cannot be
/// checked.
void RequireRoom([[maybe_unused]] const double* data, [[maybe_unused]] int count) {
#ifdef ZEPH_HARDENED
  platform::LiveBlock found;
  if (platform::FindBlock(data, found) && count > found.count)
    ZEPH_StopOutside("operator>>(CZEPHDoubleArray)", "count", count, 0, found.count);
#endif
}

}  // namespace
}  // namespace zeph::double_array

using namespace zeph::double_array;

void CZEPHDoubleArray::Display(std::ostream& os) {
  const int count = static_cast<int>(Count(*this));
  zeph::platform::StreamWriter out(os);
  for (int i = 0; i < count; ++i) {
    out.Real(data[i]);
    out.Text(" ");
    if (EndsLine(i)) out.EndLine();
  }
  out.Flush();
}

void CZEPHDoubleArray::Display(CString& out) {
  AppendListing(out, data, static_cast<int>(Count(*this)));
}

void CZEPHDoubleArray::Display(CString& out, int from, int to) {
  const bool any = data && from <= to;
  if (any) {
    ZEPH_REQUIRE_INSIDE("CZEPHDoubleArray::Display", from, 0, size - 1);
    ZEPH_REQUIRE_INSIDE("CZEPHDoubleArray::Display", to, from, size - 1);
  }
  AppendListing(out, any ? data + from : data, any ? to - from + 1 : 0);
}

void CZEPHDoubleArray::Trace(CString) {}

std::ostream& operator<<(std::ostream& os, const CZEPHDoubleArray& a) {
  const int count = static_cast<int>(Count(a));
  const bool onOneLine = count < 5;
  zeph::platform::StreamWriter out(os);
  out.Text("Elements of the vector are: \n");
  for (int i = 0; i < count; ++i) {
    out.Real(a.data[i]);
    out.Text(onOneLine ? "  " : "\n");
  }
  if (onOneLine && count > 0) out.Text("\n");
  out.Flush();
  return os;
}

std::istream& operator>>(std::istream& is, CZEPHDoubleArray& a) {
  // A stream may throw when it fails: the size is 0 then too.
  struct Ending {
    CZEPHDoubleArray& array;
    int count = 0;
    ~Ending() { array.size = count; }
  } ending{a};
  int announced = 0;
  if (!(is >> announced) || (!a.data && announced > 0)) return is;
  RequireRoom(a.data, announced);
  zeph::platform::StreamReader in(is);
  for (int i = 0; i < announced; ++i)
    if (!in.Read(a.data[i])) return is;
  ending.count = announced;
  return is;
}
