// Every ordering by swapping and recursing, an item at a time.
#ifndef ZEPH_TESTS_ORACLE_PERMUTATION_H
#define ZEPH_TESTS_ORACLE_PERMUTATION_H

#include <string>

namespace oracle {

enum class Form { kStream, kString };

inline std::string Line(const char* s, int n, Form form) {
  std::string line;
  for (int i = 0; i < n; ++i) {
    line += s[i];
    if (form == Form::kStream) line += ' ';
  }
  if (form == Form::kString) line += ' ';
  return line + "\n";
}

inline std::string Line(const int* s, int n, Form) {
  std::string line;
  for (int i = 0; i < n; ++i) line += std::to_string(s[i]) + " ";
  return line + "\n";
}

template <class T>
void Permute(T* s, int k, int n, Form form, std::string& out) {
  if (k == n - 1) {
    out += Line(s, n, form);
    return;
  }
  if (k >= n) return;
  for (int i = k; i < n; ++i) {
    T t = s[k];
    s[k] = s[i];
    s[i] = t;
    Permute(s, k + 1, n, form, out);
    t = s[k];
    s[k] = s[i];
    s[i] = t;
  }
}

}  // namespace oracle

#endif  // ZEPH_TESTS_ORACLE_PERMUTATION_H
