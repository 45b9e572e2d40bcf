#include "tour.h"

namespace tour {

// Each step stands in a file of its own.
void ShowNumbers(const Context&);
void ShowSorting(const Context&);
void ShowSearching(const Context&);
void ShowNorms(const Context&);
void ShowCollections(const Context&);

const std::vector<Step>& Steps() {
  static const std::vector<Step> steps = {
      {"The numbers, read through operator>>", ShowNumbers}, {"Sorting", ShowSorting},
      {"Searching, removing, merging", ShowSearching},       {"Norms and arithmetic", ShowNorms},
      {"Collections that sort themselves", ShowCollections},
void RotateNeighbours(const Context&);
void ListOrderings(const Context&);
void TimeSearches(const Context&);

const std::vector<Step>& Steps() {
  static const std::vector<Step> steps = {
      {"The numbers, read through operator>>", ShowNumbers},
      {"Sorting", ShowSorting},
      {"Searching, removing, merging", ShowSearching},
      {"Norms and arithmetic", ShowNorms},
      {"A rotation, by a 4x4 matrix", RotateNeighbours},
      {"All orderings of a word", ListOrderings},
      {"Searches in time", TimeSearches},
  };
  return steps;
}

}  // namespace tour
