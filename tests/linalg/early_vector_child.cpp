// The first output of a program that does not include <iostream> is a vector's listing, from the constructor of a
// static object.
#include "linalg.h"

namespace {

struct Early {
  Early() {
    const double values[] = {1, 2};
    CZEPHVector(2, values).Display();
  }
} early;

}  // namespace

int main() {
  return 0;
}
