// Declarations of what the public headers use of the standard library: enough to parse them as that
// system's compiler does, where its own headers are not available.
#ifndef ZEPH_TESTS_MSVC_STANDARD_DECLARATIONS_H
#define ZEPH_TESTS_MSVC_STANDARD_DECLARATIONS_H

#define CHAR_BIT 8
#define INT_MAX 2147483647
#define INT_MIN (-2147483647 - 1)
#define LONG_MAX 2147483647L
#define SIZE_MAX (~std::size_t{0})
#define PTRDIFF_MAX (static_cast<std::ptrdiff_t>(SIZE_MAX / 2))
#define UINT32_MAX 0xffffffffu
#define INT64_MIN (-9223372036854775807LL - 1)
#define INT64_MAX 9223372036854775807LL
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
int _ftime64(__timeb64* time);

namespace std {

using size_t = decltype(sizeof(0));
using ptrdiff_t = decltype(static_cast<int*>(nullptr) - static_cast<int*>(nullptr));
using nullptr_t = decltype(nullptr);
using int8_t = signed char;
using uint8_t = unsigned char;
using uint16_t = unsigned short;
using int32_t = int;
using int64_t = long long;
using uint32_t = unsigned;
using uint64_t = unsigned long long;
using uintmax_t = unsigned long long;
using uintptr_t = size_t;
using intptr_t = ptrdiff_t;

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
inline constexpr bool is_trivially_destructible_v = __has_trivial_destructor(T);

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
  constexpr basic_string_view() : text_(nullptr) {}
  constexpr basic_string_view(const T* text) : text_(text) {}
  basic_string_view(const T* text, size_t length);
  basic_string_view(nullptr_t) = delete;
  size_t size() const;
  size_t length() const;
  const T* data() const;
  bool empty() const;
  const T* begin() const;
  const T* end() const;
  static const size_t npos = static_cast<size_t>(-1);
  size_t find(basic_string_view text, size_t from = 0) const;
  size_t find(T c, size_t from = 0) const;
  basic_string_view substr(size_t from, size_t length = npos) const;
  int compare(basic_string_view other) const;
  T operator[](size_t i) const;

 private:
  const T* text_;
};
using string_view = basic_string_view<char, char_traits<char>>;
template <class T, class Traits, class Allocator>
class basic_string {
 public:
  static const size_t npos = static_cast<size_t>(-1);
  basic_string(const T* text);
  explicit basic_string(basic_string_view<T, Traits> text);
  basic_string(const basic_string& other);
  ~basic_string();
  basic_string& append(const T* text, size_t length);
  basic_string& operator+=(const T* text);
  basic_string& replace(size_t from, size_t length, const T* text);
  size_t find(const T* text, size_t from = 0) const;
  size_t size() const;
  const T* c_str() const;
  const T* data() const;
  operator basic_string_view<T, Traits>() const;
};
using string = basic_string<char, char_traits<char>, allocator<char>>;
string to_string(long long x);
string to_string(unsigned long long x);
string operator+(const char* a, const string& b);
string operator+(const string& a, const char* b);
string operator+(const string& a, const string& b);

using streamsize = ptrdiff_t;
class locale {
 public:
  static const locale& classic();
  bool operator==(const locale& other) const;
  bool operator!=(const locale& other) const;
};
class ios_base {
 public:
  class Init {
   public:
    Init();
    ~Init();
  };
  locale getloc() const;
  using fmtflags = int;
  static const int failbit = 2;
  static const int badbit = 4;
  static const fmtflags fixed = 1, scientific = 2, left = 4, right = 8, floatfield = 3,
                        adjustfield = 12;
  static const fmtflags showpoint = 16, showpos = 32, uppercase = 64, internal = 128, dec = 256,
                        skipws = 1024, basefield = 256, unitbuf = 512;
  fmtflags setf(fmtflags flags);
  fmtflags setf(fmtflags flags, fmtflags mask);
  fmtflags flags() const;
  fmtflags flags(fmtflags flags);
  streamsize precision() const;
  streamsize precision(streamsize digits);
  streamsize width() const;
  streamsize width(streamsize width);
};
template <class T, class Traits>
class basic_streambuf {
 protected:
  basic_streambuf();
  T* gptr() const;
  T* egptr() const;
  void gbump(int count);
};
using streambuf = basic_streambuf<char, char_traits<char>>;
template <class T, class Traits>
class basic_ostream;
template <class T, class Traits>
class basic_istream : public ios_base {
 public:
  basic_istream& operator>>(T& value);
  basic_istream& operator>>(double& value);
  basic_istream& operator>>(int& value);
  void setstate(int state);
  bool good() const;
  basic_ostream<T, Traits>* tie() const;
  basic_streambuf<T, Traits>* rdbuf() const;
  explicit operator bool() const;
  bool operator!() const;
};
template <class T, class Traits>
class basic_ostream : public ios_base {
 public:
  basic_ostream& operator<<(basic_ostream& (*manipulator)(basic_ostream&));
  basic_ostream& operator<<(double value);
  basic_ostream& operator<<(int value);
  basic_ostream& write(const T* text, streamsize length);
  basic_ostream& flush();
  T fill() const;
  T fill(T with);
};
using istream = basic_istream<char, char_traits<char>>;
using ostream = basic_ostream<char, char_traits<char>>;
ostream& operator<<(ostream& out, const char* text);
ostream& operator<<(ostream& out, char c);
ostream& operator<<(ostream& out, string_view text);
ostream& endl(ostream& out);
extern ostream cout;
extern ostream cerr;
struct Width;
ostream& operator<<(ostream& out, const Width& width);
Width& setw(int width);
Width& setprecision(int digits);

template <class T>
struct default_delete;
template <class T, class Delete = default_delete<T>>
class unique_ptr;
template <class T, class Delete>
class unique_ptr<T[], Delete> {
 public:
  unique_ptr();
  explicit unique_ptr(T* block);
  unique_ptr(T* block, Delete how);
  ~unique_ptr();
  T* get() const;
  void reset(T* block = nullptr);
  T* release();
  unique_ptr(unique_ptr&& other);
  unique_ptr& operator=(unique_ptr&& other);
  explicit operator bool() const;
  T& operator[](size_t i) const;
};

}  // namespace std

using std::ptrdiff_t;
using std::size_t;

#endif  // ZEPH_TESTS_MSVC_STANDARD_DECLARATIONS_H
