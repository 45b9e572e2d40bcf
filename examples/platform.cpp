// Platform: the framework's string, array and list, and the 32-bit long, on any system.
#include <cstdio>

#include <ZEPHDataStructureEngine/platform.h>

struct Item : CObject {
  explicit Item(int n) : number(n) {}
  int number;
};

int main() {
  CString line;
  line.Format("%d items", 3);
  line += ", counted";
  std::printf("%s, %d characters\n", line.GetString(), line.GetLength());
  std::printf("%s|%s\n", line.Left(1).GetString(), line.Right(7).GetString());

  Item one(1), two(2), three(3);
  CObList list;
  list.AddTail(&two);
  list.AddTail(&three);
  list.AddHead(&one);
  for (POSITION at = list.GetHeadPosition(); at;)
    std::printf("%d ", static_cast<Item*>(list.GetNext(at))->number);
  std::puts("");

  ZEPH_Long count = 2147483647;  // 32 bits, whatever the system's long has
  count += 1;
  std::printf("%zu bytes, wraps to %d\n", sizeof count, static_cast<int>(count));
  return 0;
}
