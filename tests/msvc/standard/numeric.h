// Declarations of what the sources with arithmetic use of the standard library beyond that.
#ifndef ZEPH_TESTS_MSVC_STANDARD_NUMERIC_H
#define ZEPH_TESTS_MSVC_STANDARD_NUMERIC_H

#include "declarations.h"

#define FLT_EVAL_METHOD 0
#define DBL_MAX 1.7976931348623158e+308
#define FLT_MAX 3.402823466e+38F
#define RAND_MAX 0x7fff

namespace std {

const void* memchr(const void* block, int c, size_t bytes);
int memcmp(const void* a, const void* b, size_t bytes);
void* memmove(void* to, const void* from, size_t bytes);
void* memset(void* to, int value, size_t bytes);
int strcmp(const char* a, const char* b);
size_t strlen(const char* text);
const char* strchr(const char* text, int c);
const char* strrchr(const char* text, int c);
size_t strcspn(const char* text, const char* of);
int snprintf(char* text, size_t room, const char* format, ...);
size_t fwrite(const void* block, size_t size, size_t n, FILE* stream);
int fputs(const char* text, FILE* stream);
[[noreturn]] void exit(int status);
long strtol(const char* text, char** end, int base);
void srand(unsigned seed);
int rand();
struct div_t {
  int quot, rem;
};
div_t div(int a, int b);
void* malloc(size_t bytes);
void free(void* block);

double fabs(double x);
float fabs(float x);
double floor(double x);
double ceil(double x);
double sin(double x);
float sin(float x);
double cos(double x);
float cos(float x);
double tan(double x);
float tan(float x);
double log10(double x);
double frexp(double x, int* exponent);
bool isnan(double x);
bool isfinite(double x);
bool signbit(double x);
double sqrt(double x);
float sqrt(float x);
template <class T>
bool isless(T x, T y);
template <class T>
bool isgreater(T x, T y);
template <class T>
bool islessequal(T x, T y);

template <class T>
struct numeric_limits {
  static constexpr bool is_iec559 = true;
  static constexpr T max() noexcept { return T(); }
  static constexpr T min() noexcept { return T(); }
  static constexpr T lowest() noexcept { return T(); }
  static constexpr T infinity() noexcept { return static_cast<T>(__builtin_huge_val()); }
  static constexpr T quiet_NaN() noexcept { return static_cast<T>(__builtin_nan("")); }
};

template <class T>
inline constexpr bool is_const_v = false;
template <class T>
inline constexpr bool is_const_v<const T> = true;
template <class T, T... kValues>
struct integer_sequence {};
template <size_t... kValues>
using index_sequence = integer_sequence<size_t, kValues...>;
template <class T, T n>
using make_integer_sequence = __make_integer_seq<integer_sequence, T, n>;
template <size_t n>
using make_index_sequence = make_integer_sequence<size_t, n>;
template <class T, T kValue>
struct integral_constant {
  static constexpr T value = kValue;
  constexpr operator T() const noexcept { return value; }
};

enum memory_order {
  memory_order_relaxed,
  memory_order_acquire,
  memory_order_release,
  memory_order_seq_cst
};
void atomic_signal_fence(memory_order order) noexcept;
template <class T>
struct atomic {
  atomic() noexcept = default;
  constexpr atomic(T value) noexcept : value_(value) {}
  T load(memory_order order = memory_order_seq_cst) const noexcept;
  void store(T value, memory_order order = memory_order_seq_cst) noexcept;
  T operator=(T value) noexcept;
  operator T() const noexcept;
  T exchange(T value, memory_order order = memory_order_seq_cst) noexcept;
  T fetch_add(T value, memory_order order = memory_order_seq_cst) noexcept;
  T fetch_sub(T value, memory_order order = memory_order_seq_cst) noexcept;
  T fetch_or(T value, memory_order order = memory_order_seq_cst) noexcept;
  T operator++() noexcept;
  T operator++(int) noexcept;
  T operator--() noexcept;
  bool compare_exchange_strong(T& expected, T wanted,
                               memory_order order = memory_order_seq_cst) noexcept;
  bool compare_exchange_weak(T& expected, T wanted,
                             memory_order order = memory_order_seq_cst) noexcept;

 private:
  T value_;
};

template <class T>
class initializer_list {
  const T* begin_;
  size_t size_;

 public:
  constexpr const T* begin() const { return begin_; }
  constexpr const T* end() const { return begin_ + size_; }
};
template <class T>
constexpr T min(initializer_list<T> values) {
  return *values.begin();
}
template <class T>
constexpr T max(initializer_list<T> values) {
  return *values.begin();
}
template <class T>
constexpr const T& min(const T& a, const T& b) {
  return b < a ? b : a;
}
template <class T>
constexpr const T& max(const T& a, const T& b) {
  return a < b ? b : a;
}
template <class T>
constexpr const T& clamp(const T& x, const T& low, const T& high) {
  return x < low ? low : high < x ? high : x;
}
template <class T>
void swap(T& a, T& b);
template <class T, class U = T>
T exchange(T& x, U&& value);
template <class T, size_t n>
constexpr size_t size(const T (&)[n]) noexcept {
  return n;
}
template <class It>
It rotate(It begin, It middle, It end);
template <class It, class Out>
Out swap_ranges(It begin, It end, Out out);
template <class It, class Out>
Out copy_backward(It begin, It end, Out out);
template <class It, class T>
It lower_bound(It begin, It end, const T& value);
template <class It, class T, class Less>
It lower_bound(It begin, It end, const T& value, Less less) {
  return less(*begin, value) ? end : begin;
}
template <class It, class T>
It upper_bound(It begin, It end, const T& value);
template <class It, class T, class Less>
It upper_bound(It begin, It end, const T& value, Less less) {
  return less(value, *begin) ? begin : end;
}
template <class It, class Less>
void sort(It begin, It end, Less less) {
  less(*begin, *(end - 1));
}
template <class It>
bool is_sorted(It begin, It end);
template <class It, class Less>
bool is_sorted(It begin, It end, Less less) {
  return less(*begin, *(end - 1));
}
template <class It, class Test>
bool all_of(It begin, It end, Test test) {
  return begin == end || test(*begin);
}
template <class It>
void reverse(It begin, It end);
template <class It>
void sort(It begin, It end);
template <class It>
void make_heap(It begin, It end);
template <class It>
void sort_heap(It begin, It end);
template <class It, class T>
void fill(It begin, It end, const T& value);
template <class It, class Size, class T>
It fill_n(It begin, Size n, const T& value);
template <class It, class Out>
Out copy(It begin, It end, Out out);
template <class It, class Size, class Out>
Out copy_n(It begin, Size n, Out out);
template <class It, class T>
It find(It begin, It end, const T& value);
template <class It, class Test>
It find_if(It begin, It end, Test test) {
  return begin == end || test(*begin) ? begin : end;
}
template <class It, class Test>
bool any_of(It begin, It end, Test test) {
  return begin != end && test(*begin);
}
template <class It>
It max_element(It begin, It end);
template <class It>
It min_element(It begin, It end);
template <class It, class T>
T accumulate(It begin, It end, T first);
template <class It, class T>
void iota(It begin, It end, T first);

template <class T = void>
struct plus {
  constexpr T operator()(const T& a, const T& b) const { return a + b; }
};
template <class T = void>
struct minus {
  constexpr T operator()(const T& a, const T& b) const { return a - b; }
};
template <class T = void>
struct multiplies {
  constexpr T operator()(const T& a, const T& b) const { return a * b; }
};
template <class T = void>
struct divides {
  constexpr T operator()(const T& a, const T& b) const { return a / b; }
};
template <class T = void>
struct less {
  constexpr bool operator()(const T& a, const T& b) const { return a < b; }
};
template <class A, class B>
struct pair {
  A first;
  B second;
};
template <class It>
pair<It, It> minmax_element(It begin, It end);
template <class T>
class optional {
 public:
  optional();
  template <class... Values>
  T& emplace(Values&&... values);
  void reset();
  explicit operator bool() const;
  T* operator->();
  T& operator*();
};

class exception {
 public:
  virtual ~exception();
  virtual const char* what() const noexcept;
};
class bad_alloc : public exception {};
class logic_error : public exception {
 public:
  explicit logic_error(const char* text);
  explicit logic_error(const string& text);
};
class out_of_range : public logic_error {
 public:
  using logic_error::logic_error;
};
class length_error : public logic_error {
 public:
  using logic_error::logic_error;
};
struct nothrow_t {};
extern const nothrow_t nothrow;

template <class T, size_t n>
struct array {
  T elements[n];
  constexpr T& operator[](size_t i) { return elements[i]; }
  constexpr const T& operator[](size_t i) const { return elements[i]; }
  constexpr T* begin() { return elements; }
  constexpr T* end() { return elements + n; }
  constexpr const T* begin() const { return elements; }
  constexpr const T* end() const { return elements + n; }
  constexpr size_t size() const { return n; }
  constexpr T* data() { return elements; }
};
template <class T>
class vector {
 public:
  vector();
  vector(const vector& other);
  ~vector();
  void push_back(const T& value);
  T* begin();
  T* end();
};

}  // namespace std

void* operator new(size_t bytes);
void* operator new(size_t bytes, const std::nothrow_t&) noexcept;
void operator delete(void* block) noexcept;
void* operator new[](size_t bytes);
void* operator new[](size_t bytes, const std::nothrow_t&) noexcept;
void operator delete[](void* block) noexcept;
inline void* operator new(size_t, void* place) noexcept {
  return place;
}

#endif  // ZEPH_TESTS_MSVC_STANDARD_NUMERIC_H
