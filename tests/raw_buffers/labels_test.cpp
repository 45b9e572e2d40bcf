// Every listing writes its label as it is, whatever is in it.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "raw_buffers.h"
#include "support/child.h"
#include "support/stream.h"

using namespace zeph::test;

namespace {

using Listing = std::function<std::string(char* label)>;

template <class List>
Listing ToStream(List list) {
  return [list](char* label) { return Written([&](FILE* f) { list(f, label); }); };
}
template <class List>
Listing ToStandardOutput(List list) {
  return [list](char* label) {
    CaptureStdout printed;
    list(label);
    return printed.Text();
  };
}
template <class List>
Listing ToString(List list) {
  return [list](char* label) {
    CString text;
    list(text, label);
    return std::string(text.GetString(), static_cast<std::size_t>(text.GetLength()));
  };
}

int ints[] = {7, -8, 9, 10, 11, 12, 13};
double cells[16] = {1, -2.5, 3};
double* rows[] = {cells, cells + 4, cells + 8, cells + 12};

const std::pair<const char*, Listing> kListings[] = {
    {"ints, a range, to a string",
     ToString([](CString& out, char* label) { ZEPH_ArrayDisplay(out, ints, 0, 6, label); })},
    {"doubles, a range, to a string",
     ToString([](CString& out, char* label) { ZEPH_ArrayDisplay(out, cells, 0, 6, label); })},
    {"ints, a count, to a string",
     ToString([](CString& out, char* label) { ZEPH_ArrayDisplay(out, ints, 7, label); })},
    {"doubles, a count, to a string",
     ToString([](CString& out, char* label) { ZEPH_ArrayDisplay(out, cells, 7, label); })},
    {"ints, a range", ToStandardOutput([](char* label) { ZEPH_ArrayDisplay(ints, 0, 6, label); })},
    {"doubles, a range",
     ToStandardOutput([](char* label) { ZEPH_ArrayDisplay(cells, 0, 6, label); })},
    {"ints, a count", ToStandardOutput([](char* label) { ZEPH_ArrayDisplay(ints, 7, label); })},
    {"ints, a range, to a stream",
     ToStream([](FILE* f, char* label) { ZEPH_ArrayDisplay(f, ints, 0, 6, label); })},
    {"doubles, a range, to a stream",
     ToStream([](FILE* f, char* label) { ZEPH_ArrayDisplay(f, cells, 0, 6, label); })},
    {"ints, a count, to a stream",
     ToStream([](FILE* f, char* label) { ZEPH_ArrayDisplay(f, ints, 7, label); })},
    {"doubles, a count, to a stream",
     ToStream([](FILE* f, char* label) { ZEPH_ArrayDisplay(f, cells, 7, label); })},
    {"a matrix", ToStream([](FILE* f, char* label) { ZEPH_MatrixPrint(f, 2, 3, rows, label); })},
    {"a square matrix",
     ToStream([](FILE* f, char* label) { ZEPH_MatrixPrint(f, 2, rows, label); })},
    {"3 x 3", ToStream([](FILE* f, char* label) { ZEPH_MatrixPrint3(f, rows, label); })},
    {"4 x 4", ToStream([](FILE* f, char* label) { ZEPH_MatrixPrint4(f, rows, label); })},
    {"4 x 4 in a block",
     ToStream([](FILE* f, char* label) { ZEPH_MatrixPrint4(f, cells, label); })},
    {"a vector of 3", ToStream([](FILE* f, char* label) { ZEPH_VectorPrint3(f, cells, label); })}};

/// The text with `label` in each place of an "@".
std::string Labelled(const std::string& text, const std::string& label) {
  std::string all;
  for (char c : text) c == '@' ? all += label : all += c;
  return all;
}

}  // namespace

TEST(RawListings, WriteAnyLabelAsItIs) {
  char place[] = "@";
  for (const auto& [name, listing] : kListings) {
    const std::string text = listing(place);
    ASSERT_NE(text.find('@'), std::string::npos) << name;
    EXPECT_EQ(listing(nullptr), Labelled(text, "(null)")) << name;
    for (std::string label :
         {std::string(), std::string("%d%s%n"), std::string("\t\\ @"), std::string(10'000, 'x')})
      EXPECT_EQ(listing(label.data()), Labelled(text, label)) << name;
  }
}
