// Which table of kernels is in use, and what the levels contain.
#include "kernels/table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "kernels/forms.h"
#include "kernels/sort.h"

namespace zeph::kernels {
namespace {

/// Restores the table that was in use.
class KernelTable : public testing::Test {
 protected:
  ~KernelTable() override { Force(*before_); }

 private:
  const Table* before_ = &Active();
};

[[maybe_unused]] std::vector<std::string> Names(const std::vector<const Table*>& tables) {
  std::vector<std::string> names;
  for (const Table* table : tables) names.emplace_back(table->name);
  return names;
}

/// The processor's features as the system lists them, "avx2" and the like; empty where it does not.
[[maybe_unused]] std::vector<std::string> ProcessorFlags() {
  std::ifstream file("/proc/cpuinfo");
  for (std::string line, flag; std::getline(file, line);) {
    if (line.compare(0, 5, "flags") != 0) continue;
    std::istringstream words(line.substr(line.find(':') + 1));
    std::vector<std::string> flags;
    while (words >> flag) flags.push_back(flag);
    return flags;
  }
  return {};
}

#if ZEPH_X64
/// Every set of the five features.
TEST_F(KernelTable, ALevelNeedsAllItsProcessorFeatures) {
  for (unsigned has = 0; has < 32; ++has) {
    Processor p;
    p.avx2 = has & 1;
    p.avx512f = has & 2, p.avx512dq = has & 4, p.avx512bw = has & 8, p.avx512vl = has & 16;
    std::vector<std::string> want = {"portable"};
    if (has & 1) want.emplace_back("avx2");
    if (has == 31) want.emplace_back("avx512");
    EXPECT_EQ(want, Names(RunnableTables(p))) << has;
    EXPECT_EQ(want.back(), BestTable(p).name) << has;
  }
}

TEST_F(KernelTable, TheProcessorsFeaturesAgreeWithTheSystems) {
  const std::vector<std::string> flags = ProcessorFlags();
  const char* before = std::getenv("LD_PRELOAD");
  if (before && std::strstr(before, "vgpreload"))
    GTEST_SKIP() << "valgrind's processor is not the one that the system describes";
  if (flags.empty()) GTEST_SKIP() << "/proc/cpuinfo does not list the processor's features";
  const auto has = [&](const char* name) {
    return std::find(flags.begin(), flags.end(), name) != flags.end();
  };
  const Processor p = ThisProcessor();
  EXPECT_EQ(has("avx2"), p.avx2);
  EXPECT_EQ(has("avx512f"), p.avx512f);
  EXPECT_EQ(has("avx512dq"), p.avx512dq);
  EXPECT_EQ(has("avx512bw"), p.avx512bw);
  EXPECT_EQ(has("avx512vl"), p.avx512vl);
}
#endif

/// The table in use before the first test.
class Start : public testing::Environment {
 public:
  void SetUp() override { table = &Active(); }
  static inline const Table* table;
};
[[maybe_unused]] const testing::Environment* const kStart =
    testing::AddGlobalTestEnvironment(new Start);

TEST_F(KernelTable, TheBestLevelIsActiveFromTheStart) {
  const char* asked = std::getenv("ZEPH_TEST_KERNELS");
  if (asked && *asked)
    EXPECT_STREQ(asked, Start::table->name);
  else
    EXPECT_EQ(&BestTable(ThisProcessor()), Start::table);
  EXPECT_EQ(RunnableTables().back(), &BestTable(ThisProcessor()));
}

TEST_F(KernelTable, ThePortableLevelIsFirstAndHasPortableFormsOnly) {
  const Table& first = *RunnableTables().front();
  EXPECT_STREQ(first.name, "portable");
  EXPECT_EQ(first.sorting, &portable::kSorting);
  EXPECT_EQ(first.searching, &portable::kSearching);
  EXPECT_EQ(first.elementwise, &portable::kElementwise);
  EXPECT_EQ(first.magnitudes, &portable::kMagnitudes);
  EXPECT_EQ(first.row_sums, &portable::kRowSums);
  EXPECT_EQ(first.partitions, &portable::kPartitions);
  EXPECT_EQ(first.chains, &portable::kChains);
  EXPECT_EQ(first.batch, &portable::kBatch);
  EXPECT_EQ(first.batch_products, &portable::kBatchProducts);
  EXPECT_EQ(first.products, &portable::kProducts);
}

TEST_F(KernelTable, EachWideLevelHasFormsOfItsOwn) {
  const std::vector<const Table*> tables = RunnableTables();
  for (std::size_t i = 1; i < tables.size(); ++i) {
    SCOPED_TRACE(tables[i]->name);
    EXPECT_NE(tables[i]->sorting, tables[i - 1]->sorting);
    EXPECT_NE(tables[i]->searching, tables[i - 1]->searching);
    EXPECT_NE(tables[i]->partitions, tables[i - 1]->partitions);
    EXPECT_NE(tables[i]->batch, tables[i - 1]->batch);
    EXPECT_NE(tables[i]->batch_products, tables[i - 1]->batch_products);
    EXPECT_NE(tables[i]->elementwise, tables[i - 1]->elementwise);
    EXPECT_NE(tables[i]->magnitudes, tables[i - 1]->magnitudes);
    EXPECT_NE(tables[i]->products, tables[i - 1]->products);
    EXPECT_NE(tables[i]->row_sums, &portable::kRowSums);
  }
}

#if ZEPH_X64
/// AVX-512 sums rows by the AVX2 form, which is faster.
TEST_F(KernelTable, EveryWideLevelHasItsForms) {
  Processor all;
  all.avx2 = all.avx512f = all.avx512dq = all.avx512bw = all.avx512vl = true;
  const std::vector<const Table*> tables = RunnableTables(all);
  ASSERT_EQ(tables.size(), 3u);
  const Table& two = *tables[1];
  EXPECT_EQ(two.sorting, &avx2::kSorting);
  EXPECT_EQ(two.partitions, &avx2::kPartitions);
  EXPECT_EQ(two.chains, &avx2::kChains);
  EXPECT_EQ(two.searching, &avx2::kSearching);
  EXPECT_EQ(two.elementwise, &avx2::kElementwise);
  EXPECT_EQ(two.magnitudes, &avx2::kMagnitudes);
  EXPECT_EQ(two.row_sums, &avx2::kRowSums);
  EXPECT_EQ(two.products, &avx2::kProducts);
  EXPECT_EQ(two.batch, &avx2::kBatch);
  EXPECT_EQ(two.batch_products, &avx2::kBatchProducts);
  const Table& five = *tables[2];
  EXPECT_EQ(five.sorting, &avx512::kSorting);
  EXPECT_EQ(five.partitions, &avx512::kPartitions);
  EXPECT_EQ(five.chains, &avx512::kChains);
  EXPECT_EQ(five.searching, &avx512::kSearching);
  EXPECT_EQ(five.elementwise, &avx512::kElementwise);
  EXPECT_EQ(five.magnitudes, &avx512::kMagnitudes);
  EXPECT_EQ(five.row_sums, &avx2::kRowSums);
  EXPECT_EQ(five.products, &avx512::kProducts);
  EXPECT_EQ(five.batch, &avx512::kBatch);
  EXPECT_EQ(five.batch_products, &avx512::kBatchProducts);
}
#endif

TEST_F(KernelTable, TheForcedLevelRuns) {
  for (const Table* table : RunnableTables()) {
    Force(*table);
    EXPECT_EQ(&Active(), table) << table->name;
    std::vector<double> v = {3, 1, 2};
    EXPECT_TRUE(OrderIsUnique(v.data(), v.size())) << table->name;
    SortAscending(v.data(), v.size());
    EXPECT_EQ(v, (std::vector<double>{1, 2, 3})) << table->name;
  }
}

TEST_F(KernelTable, AnUnknownNameForcesNothing) {
  for (const Table* table : RunnableTables()) {
    EXPECT_TRUE(Force(std::string(table->name).c_str())) << table->name;
    EXPECT_EQ(&Active(), table) << table->name;
    EXPECT_FALSE(Force("abacus")) << table->name;
    EXPECT_EQ(&Active(), table) << table->name;
  }
}

/// Neither the beginning of one nor more than one.
TEST_F(KernelTable, ANameIsAWholeName) {
  const Table& before = Active();
  for (const Table* table : RunnableTables()) {
    const std::string name = table->name;
    for (std::size_t length = 0; length < name.size(); ++length) {
      EXPECT_FALSE(Force(name.substr(0, length).c_str())) << length << " of " << name;
      EXPECT_FALSE(Force(name.substr(length + 1).c_str())) << length << " of " << name;
    }
    for (const char* more : {"f", "2", " "}) EXPECT_FALSE(Force((name + more).c_str())) << name;
    EXPECT_EQ(&Active(), &before) << name;
  }
}

}  // namespace
}  // namespace zeph::kernels
