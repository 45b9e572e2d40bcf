// Declarations of what the sources that write and read numbers use of the standard library beyond
// that.
#ifndef ZEPH_TESTS_MSVC_STANDARD_TEXTS_H
#define ZEPH_TESTS_MSVC_STANDARD_TEXTS_H

#include <stdarg.h>

#include "numeric.h"

#define __cpp_lib_to_chars 201611L
#define errno (*_errno())
#define EOVERFLOW 132
#define FE_TONEAREST 0
#define FE_INEXACT 0x01
#define FE_DIVBYZERO 0x08
#define FE_INVALID 0x10
#define FE_ALL_EXCEPT 0x1F

int* _errno();

namespace std {

using ::va_list;
int vsnprintf(char* text, size_t room, const char* format, va_list arguments);

struct lconv {
  char* decimal_point;
};
lconv* localeconv();

struct fenv_t {
  unsigned long control, status;
};
int fegetround();
int fegetenv(fenv_t* environment);
int fesetenv(const fenv_t* environment);
int feclearexcept(int flags);
int fetestexcept(int flags);
int feraiseexcept(int flags);

enum class errc { ok };
enum class chars_format { scientific = 1, fixed = 2, general = 3 };
struct to_chars_result {
  char* ptr;
  errc ec;
};
struct from_chars_result {
  const char* ptr;
  errc ec;
};
to_chars_result to_chars(char* first, char* last, int x);
to_chars_result to_chars(char* first, char* last, long long x);
to_chars_result to_chars(char* first, char* last, unsigned long long x);
to_chars_result to_chars(char* first, char* last, double x);
to_chars_result to_chars(char* first, char* last, double x, chars_format format, int precision);
from_chars_result from_chars(const char* first, const char* last, int& x);
from_chars_result from_chars(const char* first, const char* last, double& x);

}  // namespace std

#endif  // ZEPH_TESTS_MSVC_STANDARD_TEXTS_H
