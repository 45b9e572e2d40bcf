// SPDX-License-Identifier: MIT
#include <algorithm>
#include <iostream>

#include "double_array.h"
#include "double_array/elements.h"
#include "frame/fatal_report.h"
#include "kernels/few.h"
#include "platform/allocation.h"
#include "platform/live_blocks.h"

using namespace zeph::double_array;

CZEPHDoubleArray::CZEPHDoubleArray() : sorted(0), size(0), data(nullptr) {}

CZEPHDoubleArray::CZEPHDoubleArray(int n, double v) : CZEPHDoubleArray() {
  AllocMemory(n);
  SetEntry(v);
}

CZEPHDoubleArray::CZEPHDoubleArray(int n, double* src) : CZEPHDoubleArray() {
  AllocMemory(n);
  if (src) zeph::kernels::Copy(data, src, Count(*this));
}

CZEPHDoubleArray::CZEPHDoubleArray(const CZEPHDoubleArray& other)
    : CZEPHDoubleArray(other.size, other.data) {}

CZEPHDoubleArray::~CZEPHDoubleArray() {
  FreeMemory();
}

int CZEPHDoubleArray::AllocMemory(int n) {
  size = n;
  return zeph::platform::OnExhaustion(0, [&] {
    data = zeph::platform::NewArrayOrNull<double>(n);
    if (!data) return 0;
    zeph::platform::RememberBlock({data, data, 0, n});
    sorted = 0;
    return 1;
  });
}

void CZEPHDoubleArray::FreeMemory() {
  zeph::platform::ForgetBlock(data);
  delete[] data;
  data = nullptr;
}

void CZEPHDoubleArray::Resize(int n, int keep) {
  double* block = nullptr;
  if (n >= 1) {
    block = zeph::platform::NewArray<double>(n);
    zeph::platform::RememberBlock({block, block, 0, n});
    if (keep) zeph::kernels::Copy(block, data, std::min(Count(*this), static_cast<std::size_t>(n)));
  }
  FreeMemory();
  size = std::max(n, 0);
  data = block;
}

CZEPHDoubleArray& CZEPHDoubleArray::operator=(const CZEPHDoubleArray& other) {
  if (this == &other) return *this;
  const bool holds = data && size != 0;
  if (holds && size != other.size)
    zeph::frame::FatalReport("Bad vector sizes:CZEPHDoubleArray::operator=()", std::cout);
  // A failed allocation sets the size all the same, so the block may be too small for it.
  const bool ready = holds || AllocMemory(other.size);
  if (ready && other.data) zeph::kernels::Copy(data, other.data, Count(*this));
  return *this;
}

void CZEPHDoubleArray::ErrorMessage(char* message, std::ostream& os) {
  ZEPH_REQUIRE_POINTER("CZEPHDoubleArray::ErrorMessage", message);
  zeph::frame::FatalReport(message, os);
}

int CZEPHDoubleArray::CheckBound(int i) {
  if (!data || i < 0 || i > size)
    zeph::frame::FatalReport("Vector check bound error!\n", std::cout);
  return 1;
}

void CZEPHDoubleArray::SetEntry(double v) {
  zeph::kernels::Fill(data, v, Count(*this));
}

void CZEPHDoubleArray::Reset(double v) {
  SetEntry(v);
}
