// SPDX-License-Identifier: MIT
//
// The body behind the three growable arrays.
#ifndef ZEPH_SRC_PLATFORM_ARRAY_STORAGE_H
#define ZEPH_SRC_PLATFORM_ARRAY_STORAGE_H

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "platform/allocation.h"
#include "platform/refusal.h"

namespace zeph::platform {

template <class T>
T& ElementOf(const char* operation, T* data, std::ptrdiff_t size, std::ptrdiff_t index) {
  if (index < 0 || index >= size) RefuseIndex(operation, index, size - 1);
  return data[index];
}

/// Works on the four members of an array class. Elements past `size` keep their old values.
template <class T>
struct ArrayStorage {
  using Count = std::ptrdiff_t;

  T*& data;
  Count& size;
  Count& capacity;
  Count& growth;

  ArrayStorage(T*& d, Count& s, Count& c, Count& g) : data(d), size(s), capacity(c), growth(g) {}

  void SetSize(const char* operation, Count wanted, Count growBy) {
    if (wanted < 0) Refuse(operation, "a size below 0");
    const Count setting = growBy >= 0 ? growBy : growth;
    if (wanted == 0) Release();
    if (wanted > capacity) Reallocate(CapacityFor(wanted, setting));  // may throw
    growth = setting;
    if (wanted > size) std::fill(data + size, data + wanted, T{});
    size = wanted;
  }

  void FreeExtra() {
    if (size == 0) return Release();
    if (size < capacity) Reallocate(size);
  }

  void Release() {
    delete[] data;
    data = nullptr;
    size = capacity = 0;
  }

  void SetAtGrow(const char* operation, Count index, T element) {
    if (index < 0) Refuse(operation, "an index below 0");
    if (index >= size) SetSize(operation, End(operation, index, 1), -1);
    data[index] = element;
  }

  void InsertAt(const char* operation, Count index, T element, Count count) {
    if (index < 0) Refuse(operation, "an index below 0");
    if (count < 1) Refuse(operation, "a count below 1");
    const Count oldSize = size;
    SetSize(operation, End(operation, std::max(index, oldSize), count), -1);
    if (index < oldSize) std::copy_backward(data + index, data + oldSize, data + size);
    std::fill_n(data + index, count, element);
  }

  void RemoveAt(const char* operation, Count index, Count count) {
    if (index < 0 || count < 0 || index > size || count > size - index)
      Refuse(operation, "elements outside the array");
    std::copy(data + index + count, data + size, data + index);
    size -= count;
  }

 private:
  static Count End(const char* operation, Count index, Count count) {
    if (index > PTRDIFF_MAX - count) Refuse(operation, "a size beyond all memory");
    return index + count;
  }

  // The first storage is as large as asked for, or as one growth step; a later one adds a step.
  // Without a setting it doubles, so that adding elements one by one takes constant time each: 1, 4,
  // 8, 16, ...
  Count CapacityFor(Count wanted, Count setting) const {
    if (!data) return std::max(wanted, setting);
    const Count step = setting > 0 ? setting : std::max<Count>(capacity, 3);
    return step > PTRDIFF_MAX - capacity ? wanted : std::max(wanted, capacity + step);
  }

  void Reallocate(Count wanted) {
    T* fresh = NewArray<T>(wanted);
    std::copy_n(data, size, fresh);
    delete[] data;
    data = fresh;
    capacity = wanted;
  }
};

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_ARRAY_STORAGE_H
