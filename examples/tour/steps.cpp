#include "tour.h"

namespace tour {

// Each step is in a file of its own.
void ShowNumbers(const Context&);
void ShowSorting(const Context&);
void ShowSearching(const Context&);
void ShowNorms(const Context&);
void ShowRawTables(const Context&);
void ShowCollections(const Context&);
void ShowTrend(const Context&);
void RotateNeighbours(const Context&);
void DrawWireframe(const Context&);
void ListOrderings(const Context&);
void TimeSearches(const Context&);

const std::vector<Step>& Steps() {
  // clang-format off: a step a line
  static const std::vector<Step> steps = {
      {"The numbers", ShowNumbers},
      {"Sorting", ShowSorting},
      {"Searching, removing, merging", ShowSearching},
      {"Norms and arithmetic", ShowNorms},
      {"1-based tables, grown, rotated and listed", ShowRawTables},
      {"Collections that sort themselves", ShowCollections},
      {"A trend by least squares, with CZEPHMatrix", ShowTrend},
      {"A rotation, by a 4x4 matrix", RotateNeighbours},
      {"A solid in perspective and orthographically", DrawWireframe},
      {"All orderings of a word", ListOrderings},
      {"Searches in time", TimeSearches},
  };
  // clang-format on
  return steps;
}

}  // namespace tour
