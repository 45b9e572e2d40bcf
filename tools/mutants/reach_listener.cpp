
// Appended to the test programs' main: after each test, a line "name milliseconds site site ..."
// goes to the file named by ZEPH_MUTANT_TESTS.
namespace {

constexpr int kMostSites = 1 << 16;

class ReachListener : public ::testing::EmptyTestEventListener {
  void OnTestEnd(const ::testing::TestInfo& test) override {
    std::FILE* out = std::fopen(std::getenv("ZEPH_MUTANT_TESTS"), "a");
    std::fprintf(out, "%s.%s %d", test.test_suite_name(), test.name(),
                 static_cast<int>(test.result()->elapsed_time()));
    for (int site = 0; site < kMostSites; ++site) {
      if (zeph_mutants::reached[site]) std::fprintf(out, " %d", site);
      zeph_mutants::reached[site] = false;
    }
    std::fprintf(out, "\n");
    std::fclose(out);
  }
};

[[maybe_unused]] const bool listening = [] {
  if (std::getenv("ZEPH_MUTANT_TESTS"))
    ::testing::UnitTest::GetInstance()->listeners().Append(new ReachListener);
  return true;
}();

}  // namespace
