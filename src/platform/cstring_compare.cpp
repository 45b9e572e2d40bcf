// SPDX-License-Identifier: MIT
#include "platform.h"

#ifndef ZEPH_USE_MFC

namespace {

std::string_view View(const CString& text) {
  return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}
std::string_view View(const char* text) {
  return text ? text : "";
}

}  // namespace

#define ZEPH_DEFINE(op, Left, Right)             \
  bool operator op(Left left, Right right) {     \
    return View(left).compare(View(right)) op 0; \
  }
#define ZEPH_DEFINE_ALL(op)                       \
  ZEPH_DEFINE(op, const CString&, const CString&) \
  ZEPH_DEFINE(op, const CString&, const char*)    \
  ZEPH_DEFINE(op, const char*, const CString&)
ZEPH_DEFINE_ALL(==)
ZEPH_DEFINE_ALL(!=)
ZEPH_DEFINE_ALL(<)
ZEPH_DEFINE_ALL(>)
ZEPH_DEFINE_ALL(<=)
ZEPH_DEFINE_ALL(>=)
#undef ZEPH_DEFINE_ALL
#undef ZEPH_DEFINE

#endif  // ZEPH_USE_MFC
