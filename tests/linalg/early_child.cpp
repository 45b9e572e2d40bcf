// Reports from the constructor of a static object, in a program that does not include <iostream>.
#include "containers.h"
#include "linalg.h"

namespace {

struct Early {
  Early() {
    CZEPHSortedLinkList().DisplayList();
    CZEPHMatrix().Display();
    CZEPHDoubleMatrix(2, 2, 1.0).CheckBound(5, 5);
  }
} early;

}  // namespace

int main() {
  return 7;
}
