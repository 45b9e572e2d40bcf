// sort_race FILE.svg: five ways to sort the same numbers, drawn as they happen.
//
// A panel is a method; time runs down, a row of pixels is the array at that moment, and the colour
// of a cell is its value. Insertion, partitioning and merging are the library's public steps; the
// passes of bubble and Shell sort are made step by step through Swap, since the library runs them
// in one call. Every method must give the result of QuickSort, or no picture is drawn.
#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <vector>

#include <ZEPHDataStructureEngine/ZEPHDataStructureEngine.h>

namespace {

constexpr int kCount = 48, kRows = 48, kCell = 4, kGap = 18, kTop = 34;

using Moments = std::vector<CZEPHDoubleArray>;

CZEPHDoubleArray Shuffled() {
  CZEPHDoubleArray a(kCount, 0.0);
  unsigned state = 2024;  // a generator of our own: the same picture everywhere
  for (int i = 0; i < kCount; ++i) a[i] = i;
  for (int i = kCount - 1; i > 0; --i) {
    state = state * 1664525u + 1013904223u;
    a.Swap(i, static_cast<int>((state >> 16) % static_cast<unsigned>(i + 1)));
  }
  return a;
}

Moments Bubble(CZEPHDoubleArray a) {
  Moments moments{a};
  for (int end = kCount - 1; end > 0; --end) {
    for (int i = 0; i < end; ++i)
      if (a[i] > a[i + 1]) a.Swap(i, i + 1);
    moments.push_back(a);
  }
  return moments;
}

Moments Insertion(CZEPHDoubleArray a) {
  Moments moments{a};
  for (int last = 1; last < kCount; ++last) {
    a.InsertionSort(0, last);
    moments.push_back(a);
  }
  return moments;
}

Moments Shell(CZEPHDoubleArray a) {
  Moments moments{a};
  for (int gap = kCount / 2; gap > 0; gap /= 2)
    for (int i = gap; i < kCount; ++i) {
      for (int j = i - gap; j >= 0 && a[j] > a[j + gap]; j -= gap) a.Swap(j, j + gap);
      moments.push_back(a);
    }
  return moments;
}

void Part(CZEPHDoubleArray& a, int left, int right, Moments& moments) {
  if (right - left < 3) {
    a.ManualSort(left, right);
    moments.push_back(a);
    return;
  }
  const double pivot = a.MedianOf3(left, right);
  const int middle = a.QuickPartition(left, right, pivot);
  moments.push_back(a);
  Part(a, left, middle - 1, moments);
  Part(a, middle + 1, right, moments);
}

Moments Quick(CZEPHDoubleArray a) {
  Moments moments{a};
  Part(a, 0, kCount - 1, moments);
  return moments;
}

Moments Merge(CZEPHDoubleArray a) {
  Moments moments{a};
  for (int width = 1; width < kCount; width *= 2)
    for (int first = 0; first + width < kCount; first += 2 * width) {
      const int second = std::min(width, kCount - first - width);
      CZEPHDoubleArray merged(width + second, 0.0);
      double* block = a.GetData() + first;
      a.MergeSortedArray(block, width, block + width, second, merged.GetData());
      std::copy(merged.begin(), merged.end(), block);
      moments.push_back(a);
    }
  return moments;
}

struct Method {
  const char* name;
  Moments (*run)(CZEPHDoubleArray);
};

/// A row of cells for each of kRows moments, spread evenly from the first to the last.
void DrawPanel(FILE* svg, const Method& method, const Moments& moments, int left) {
  std::fprintf(svg, "<g transform=\"translate(%d,%d)\">\n<text x=\"0\" y=\"-18\">%s</text>\n", left,
               kTop + 6, method.name);
  std::fprintf(svg, "<text x=\"0\" y=\"-5\" class=\"small\">%zu steps</text>\n",
               moments.size() - 1);
  for (int row = 0; row < kRows; ++row) {
    const std::size_t last = moments.size() - 1;
    const CZEPHDoubleArray& now = moments[static_cast<std::size_t>(row) * last / (kRows - 1)];
    for (int i = 0; i < kCount; ++i)
      std::fprintf(svg,
                   "<rect x=\"%d\" y=\"%d\" width=\"%d\" height=\"%d\" "
                   "fill=\"hsl(%.0f,70%%,%.0f%%)\"/>\n",
                   i * kCell, row * kCell, kCell, kCell, 250 - 210 * now[i] / (kCount - 1),
                   25 + 40 * now[i] / (kCount - 1));
  }
  std::fprintf(svg, "</g>\n");
}

bool EndsSorted(const Moments& moments, CZEPHDoubleArray sorted) {
  sorted.QuickSort(10);
  return std::equal(sorted.begin(), sorted.end(), moments.back().begin());
}

}  // namespace

int main(int argc, char** argv) {
  const Method methods[] = {
      {"bubble, by Swap", Bubble}, {"InsertionSort(0, k)", Insertion}, {"Shell, by Swap", Shell},
      {"QuickPartition", Quick},   {"MergeSortedArray", Merge},
  };
  FILE* svg = std::fopen(argc > 1 ? argv[1] : "sort_race.svg", "w");
  if (!svg) {
    std::fprintf(stderr, "sort_race: cannot write the picture\n");
    return 2;
  }
  const int width = kGap + 5 * (kCount * kCell + kGap), height = kTop + kRows * kCell + 24;
  std::fprintf(svg,
               "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%d\" height=\"%d\">\n<style>text{"
               "font:13px sans-serif;fill:#222}.small{font-size:10px;fill:#666}</style>\n"
               "<rect width=\"100%%\" height=\"100%%\" fill=\"white\"/>\n",
               width, height);
  int left = kGap;
  for (const Method& method : methods) {
    const Moments moments = method.run(Shuffled());
    if (!EndsSorted(moments, Shuffled())) {
      std::fprintf(stderr, "sort_race: %s did not sort\n", method.name);
      return 1;
    }
    std::printf("%-20s %4zu steps\n", method.name, moments.size() - 1);
    DrawPanel(svg, method, moments, left);
    left += kCount * kCell + kGap;
  }
  std::fprintf(svg, "</svg>\n");
  return std::fclose(svg) == 0 ? 0 : 2;
}
