// SPDX-License-Identifier: MIT
#include <cstdio>

#include "platform/block_writer.h"
#include "platform/format_number.h"
#include "raw_buffers.h"
#include "raw_buffers/precondition.h"
#include "raw_buffers/rows.h"

namespace zeph::raw_buffers {
namespace {

using platform::BlockWriter;
using platform::RealFormat;
using platform::StreamSink;

RealFormat CellFormat() {
  return RealFormat("%3.5f", RealFormat::Notation::kFixed, 5);
}

/// "label = \n", then every row as "\t%3.5f" cells and a line feed.
template <class Rows>
void PrintRows(std::FILE* stream, int rows, int cols, Rows m, const char* name) {
  const RealFormat format = CellFormat();
  BlockWriter<StreamSink> writer(StreamSink{stream});
  writer.Text(platform::TextOrNull(name));
  writer.Text(" = \n");
  for (int i = 0; i < rows; ++i) {
    for (int j = 0; j < cols; ++j) {
      writer.Text("\t", 1);
      writer.Real(format, m[i][j]);
    }
    writer.Text("\n", 1);
  }
  writer.Flush();
}

}  // namespace
}  // namespace zeph::raw_buffers

using namespace zeph::raw_buffers;

void ZEPH_MatrixPrint(FILE* stream, int rows, int cols, double** m, char* name) {
  ZEPH_REQUIRE_POINTER(__func__, stream);
  RequireRows(__func__, "m", m, 0, cols > 0 ? rows : 0);
  PrintRows(stream, rows, cols, TableRows{m}, name);
}

void ZEPH_MatrixPrint(FILE* stream, int n, double** m, char* name) {
  ZEPH_REQUIRE_POINTER(__func__, stream);
  RequireRows(__func__, "m", m, 0, n);
  PrintRows(stream, n, n, TableRows{m}, name);
}

void ZEPH_MatrixPrint3(FILE* stream, double** m, char* name) {
  ZEPH_REQUIRE_POINTER(__func__, stream);
  RequireRows(__func__, "m", m, 0, 3);
  PrintRows(stream, 3, 3, TableRows{m}, name);
}

void ZEPH_MatrixPrint4(FILE* stream, double** m, char* name) {
  ZEPH_REQUIRE_POINTER(__func__, stream);
  RequireRows(__func__, "m", m, 0, 4);
  PrintRows(stream, 4, 4, TableRows{m}, name);
}

void ZEPH_MatrixPrint4(FILE* stream, double* const m, char* name) {
  ZEPH_REQUIRE_POINTER(__func__, stream);
  ZEPH_REQUIRE_POINTER(__func__, m);
  PrintRows(stream, 4, 4, FlatRows{m, 4}, name);
}

void ZEPH_VectorPrint3(FILE* stream, double* const v, char* name) {
  ZEPH_REQUIRE_POINTER(__func__, stream);
  ZEPH_REQUIRE_POINTER(__func__, v);
  const RealFormat format = CellFormat();
  BlockWriter<StreamSink> writer(StreamSink{stream});
  writer.Text(zeph::platform::TextOrNull(name));
  const char* before = " = (";
  for (int k = 0; k < 3; ++k) {
    writer.Text(before);
    writer.Real(format, v[k]);
    before = " ";
  }
  writer.Text(")\n");
  writer.Flush();
}
