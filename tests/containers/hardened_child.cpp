// Breaks one precondition, named by the argument.
#include <cstring>

#include "containers.h"

namespace {

int Equal(CObject*, CObject*) {
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  const auto is = [&](const char* name) { return std::strcmp(argv[1], name) == 0; };
  CZEPHSortableObArray array;
  array.SetSize(5);
  CZEPHSortableObList list;
  if (is("array null")) array.Sort(nullptr);
  if (is("range null")) array.Sort(0, 0, nullptr);
  if (is("first")) array.Sort(-1, 2, Equal);
  if (is("count")) array.Sort(2, 4, Equal);
  if (is("list null")) list.Sort(nullptr);
  if (is("position null")) list.Sort(nullptr, 1, nullptr);
  if (is("whole range")) array.Sort(0, 5, Equal);
  return 0;
}
