// SPDX-License-Identifier: MIT
#include <cstdio>

#include "containers.h"
#include "platform/allocation.h"

namespace {

void PushItem(CZEPHPointerStack& stack, int number) {
  char text[32];
  std::snprintf(text, sizeof text, "#ITEM%d", number);
  CString* item = zeph::platform::NewObject<CString>(text);
  try {
    stack.Push(item);
  } catch (...) {
    delete item;
    throw;
  }
}

CString* PopItem(CZEPHPointerStack& stack) {
  return static_cast<CString*>(stack.Pop());
}

void PushItems(CZEPHPointerStack& stack, int count) {
  try {
    for (int i = 0; i < count; ++i) PushItem(stack, i);
  } catch (...) {
    while (CString* item = PopItem(stack)) delete item;
    throw;
  }
}

}  // namespace

int CZEPHPointerStack::Test1(int count, FILE* stream) {
  if (!stream) return 0;
  std::fputs("\n@@@( CZEPHPointerStack::Test1()...BEGIN\n", stream);
  std::fputs("@@@( String stack test...\n", stream);
  CZEPHPointerStack stack;
  PushItems(stack, count);
  while (CString* item = PopItem(stack)) {
    std::fprintf(stream, "Pop:%s\n", static_cast<const char*>(*item));
    delete item;
  }
  std::fputs("\n@@@( CZEPHPointerStack::Test1()...END\n", stream);
  return 1;
}
