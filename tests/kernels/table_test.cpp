// Which table of kernels is in use, and what the levels bring.
#include "kernels/table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kernels/forms.h"
#include "kernels/sort.h"

namespace zeph::kernels {
namespace {

/// Puts the table back that was in use.
class KernelTable : public testing::Test {
 protected:
  ~KernelTable() override { Force(*before_); }

 private:
  const Table* before_ = &Active();
};

TEST_F(KernelTable, PortableOneIsTheFirstAndOfPortableFormsOnly) {
  const Table& first = *RunnableTables().front();
  EXPECT_STREQ(first.name, "portable");
  EXPECT_EQ(first.sorting, &portable::kSorting);
  EXPECT_EQ(first.searching, &portable::kSearching);
  EXPECT_EQ(first.elementwise, &portable::kElementwise);
  EXPECT_EQ(first.magnitudes, &portable::kMagnitudes);
  EXPECT_EQ(first.row_sums, &portable::kRowSums);
  EXPECT_EQ(first.products, &portable::kProducts);
}

TEST_F(KernelTable, EachWideLevelBringsFormsOfItsOwn) {
  const std::vector<const Table*> tables = RunnableTables();
  for (std::size_t i = 1; i < tables.size(); ++i) {
    SCOPED_TRACE(tables[i]->name);
    EXPECT_NE(tables[i]->sorting, tables[i - 1]->sorting);
    EXPECT_NE(tables[i]->searching, tables[i - 1]->searching);
    EXPECT_NE(tables[i]->elementwise, tables[i - 1]->elementwise);
    EXPECT_NE(tables[i]->magnitudes, tables[i - 1]->magnitudes);
    EXPECT_NE(tables[i]->products, tables[i - 1]->products);
    EXPECT_NE(tables[i]->row_sums, &portable::kRowSums);
  }
}

TEST_F(KernelTable, ForcedOneIsTheOneThatRuns) {
  for (const Table* table : RunnableTables()) {
    Force(*table);
    EXPECT_EQ(&Active(), table);
    std::vector<double> v = {3, 1, 2};
    EXPECT_TRUE(OrderIsUnique(v.data(), v.size()));
    SortAscending(v.data(), v.size());
    EXPECT_EQ(v, (std::vector<double>{1, 2, 3}));
  }
}

TEST_F(KernelTable, IsForcedByItsNameOrLeftAlone) {
  for (const Table* table : RunnableTables()) {
    EXPECT_TRUE(Force(std::string(table->name).c_str()));
    EXPECT_EQ(&Active(), table);
    EXPECT_FALSE(Force("abacus"));
    EXPECT_EQ(&Active(), table);
  }
}

}  // namespace
}  // namespace zeph::kernels
