// Finding, removing and merging.
#include <cstdio>

#include "tour.h"

namespace tour {
namespace {

void PrintFind(const char* what, CZEPHDoubleArray& a, double x) {
  int index = -1;
  const int found = a.BinarySearch(x, index);
  if (found) {
    std::printf("%-44s %g stands at index %d\n", what, x, index);
  } else {
    std::printf("%-44s %g is not there\n", what, x);
  }
}

/// Merges two sorted halves of the numbers and counts the values that differ from sorting all.
int DifferencesOfMerge(const CZEPHDoubleArray& numbers, const CZEPHDoubleArray& ascending) {
  const int n = numbers.GetSize();
  const int half = n / 2;
  CZEPHDoubleArray first(half, numbers.GetData()), second(n - half, numbers.GetData() + half);
  first.ShellSort();
  second.ShellSort();
  CZEPHDoubleArray merged(n, 0.0);
  merged.MergeSortedArray(first.GetData(), half, second.GetData(), n - half, merged.GetData());
  int differences = 0;
  for (int i = 0; i < n; ++i) differences += merged[i] != ascending[i];
  return differences;
}

}  // namespace

void ShowSearching(const Context& context) {
  CZEPHDoubleArray unsorted(context.numbers), sorted(context.numbers);
  sorted.QuickSort(3);
  const double wanted = unsorted[unsorted.GetSize() / 2];
  PrintFind("Scanned in the order they were read:", unsorted, wanted);
  PrintFind("Halved after a sort has set the flag:", sorted, wanted);
  PrintFind("One less than the smallest:", sorted, sorted[0] - 1);

  int removed = 0;
  CZEPHDoubleArray rest(sorted);
  while (rest.Remove(wanted)) ++removed;
  std::printf("Removing %g until none is left: %d removed, %d of %d remain\n", wanted, removed,
              rest.GetSize(), sorted.GetSize());

  const int differences = DifferencesOfMerge(context.numbers, sorted);
  std::printf("Sorting the two halves and merging them: %s\n",
              differences == 0 ? "the same as sorting all" : "not the same as sorting all");
}

}  // namespace tour
