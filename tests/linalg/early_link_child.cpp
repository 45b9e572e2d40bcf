// The first output of a program that does not include <iostream> is a link's listing, from the constructor of a
// static object.
#include "containers.h"

namespace {

struct Early {
  Early() { CZEPHLinkData(5).DisplayLink(); }
} early;

}  // namespace

int main() {
  return 0;
}
