// What the public headers take from the standard library, declared and no more: enough to parse them as
// that system's compiler does, where its own headers are not at hand.
#ifndef ZEPH_TESTS_MSVC_STANDARD_DECLARATIONS_H
#define ZEPH_TESTS_MSVC_STANDARD_DECLARATIONS_H

#define CHAR_BIT 8
#define INT_MAX 2147483647
#define INT_MIN (-2147483647 - 1)
#define LONG_MAX 2147483647L
#define offsetof(type, field) __builtin_offsetof(type, field)

struct FILE;
FILE* __acrt_iob_func(unsigned number);
#define stdin (__acrt_iob_func(0))
#define stdout (__acrt_iob_func(1))
#define stderr (__acrt_iob_func(2))
struct __timeb64 {
  long long time;
  unsigned short millitm;
  short timezone;
  short dstflag;
};

namespace std {

using size_t = decltype(sizeof(0));
using ptrdiff_t = decltype(static_cast<int*>(nullptr) - static_cast<int*>(nullptr));
using nullptr_t = decltype(nullptr);
using int64_t = long long;
using uint32_t = unsigned;
using uint64_t = unsigned long long;
using uintmax_t = unsigned long long;
using uintptr_t = size_t;

using ::FILE;
int fprintf(FILE* stream, const char* format, ...);
int fflush(FILE* stream);
[[noreturn]] void abort();
void* memcpy(void* to, const void* from, size_t bytes);

template <bool B, class T = void>
struct enable_if {};
template <class T>
struct enable_if<true, T> {
  using type = T;
};
template <bool B, class T = void>
using enable_if_t = typename enable_if<B, T>::type;
template <bool B, class T, class F>
struct conditional {
  using type = T;
};
template <class T, class F>
struct conditional<false, T, F> {
  using type = F;
};
template <bool B, class T, class F>
using conditional_t = typename conditional<B, T, F>::type;
template <class T>
struct remove_reference {
  using type = T;
};
template <class T>
struct remove_reference<T&> {
  using type = T;
};
template <class T>
struct remove_reference<T&&> {
  using type = T;
};
template <class T>
using remove_reference_t = typename remove_reference<T>::type;
template <class T, class U>
inline constexpr bool is_same_v = false;
template <class T>
inline constexpr bool is_same_v<T, T> = true;
template <class T>
inline constexpr bool is_integral_v = __is_integral(T);
template <class T>
inline constexpr bool is_signed_v = __is_signed(T);
template <class T>
inline constexpr bool is_standard_layout_v = __is_standard_layout(T);
template <class T>
inline constexpr bool is_polymorphic_v = __is_polymorphic(T);
template <class T>
inline constexpr bool has_virtual_destructor_v = __has_virtual_destructor(T);
template <class T>
inline constexpr bool is_trivially_copyable_v = __is_trivially_copyable(T);
template <class T>
inline constexpr bool is_empty_v = __is_empty(T);

template <class T>
constexpr remove_reference_t<T>&& move(T&& value) noexcept {
  return static_cast<remove_reference_t<T>&&>(value);
}
template <class T>
constexpr T&& forward(remove_reference_t<T>& value) noexcept {
  return static_cast<T&&>(value);
}

template <class T>
class allocator;
template <class T>
struct char_traits;
template <class T, class Traits>
class basic_string_view {
 public:
  basic_string_view(const T* text);
};
using string_view = basic_string_view<char, char_traits<char>>;
template <class T, class Traits, class Allocator>
class basic_string {
 public:
  operator basic_string_view<T, Traits>() const;
};

class ios_base {
 public:
  static const int failbit = 2;
};
template <class T, class Traits>
class basic_istream : public ios_base {
 public:
  basic_istream& operator>>(T& value);
  basic_istream& operator>>(double& value);
  basic_istream& operator>>(int& value);
  void setstate(int state);
  explicit operator bool() const;
  bool operator!() const;
};
template <class T, class Traits>
class basic_ostream : public ios_base {};
using istream = basic_istream<char, char_traits<char>>;
using ostream = basic_ostream<char, char_traits<char>>;

template <class T>
class unique_ptr;
template <class T>
class unique_ptr<T[]> {
 public:
  explicit unique_ptr(T* block);
  ~unique_ptr();
  T* get() const;
  T& operator[](size_t i) const;
};

}  // namespace std

using std::ptrdiff_t;
using std::size_t;

#endif  // ZEPH_TESTS_MSVC_STANDARD_DECLARATIONS_H
