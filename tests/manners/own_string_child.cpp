// A program with a CString of its own, as old applications have, that lists through the library's.
#include <cstdio>
#include <cstdlib>

/// Not the library's, whose header this program does not include.
class __attribute__((visibility("default"))) CString {
 public:
  CString();
  CString(const char* text);
  ~CString();
  void Empty();
  const char* GetString() const;
  CString& operator+=(const char* text);
  CString& operator+=(char c);
  void Append(const char* text, int length);
  void AppendFormat(const char* format, ...);

  static int used;
};
class __attribute__((visibility("default"))) CZEPHPermutation {
 public:
  static int Test1(std::FILE* f);
};

int CString::used = 0;
CString::CString() {
  ++used;
}
CString::CString(const char*) {
  ++used;
}
CString::~CString() {
  ++used;
}
void CString::Empty() {
  ++used;
}
const char* CString::GetString() const {
  ++used;
  return "the program's own";
}
CString& CString::operator+=(const char*) {
  ++used;
  return *this;
}
CString& CString::operator+=(char) {
  ++used;
  return *this;
}
void CString::Append(const char*, int) {
  ++used;
}
void CString::AppendFormat(const char*, ...) {
  ++used;
}

int main() {
  CZEPHPermutation::Test1(stdout);
  return CString::used;
}
