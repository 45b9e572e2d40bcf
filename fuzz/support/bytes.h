// Numbers and choices from the bytes of a fuzzer's input.
#ifndef ZEPH_FUZZ_SUPPORT_BYTES_H
#define ZEPH_FUZZ_SUPPORT_BYTES_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "support/numbers.h"

namespace zeph::fuzz {

/// Reads the input front to back; after its end everything is zero. One input in 64, by its last byte, may be
/// long: what takes the time of a hundred others seldom reaches more than they do.
class Bytes {
 public:
  Bytes(const std::uint8_t* data, std::size_t size)
      : next_(data), end_(data + size), long_(size > 0 && data[size - 1] % 64 == 63) {}

  /// Whether sizes may be as great as this body knows them.
  bool Long() const { return long_; }
  /// 0 .. `most`, but of most inputs 0 .. `few`.
  std::size_t Size(std::size_t most, std::size_t few = 40) {
    const std::size_t n = Below(most + 1);
    return long_ || few >= most ? n : n % (few + 1);
  }

  bool Empty() const { return next_ == end_; }
  std::uint8_t Byte() { return Empty() ? std::uint8_t{0} : *next_++; }
  bool Flag() { return (Byte() & 1) != 0; }
  std::uint64_t Word(int bytes) {
    std::uint64_t word = 0;
    for (int i = 0; i < bytes; ++i) word = word << 8 | Byte();
    return word;
  }
  /// lo .. hi, from one byte where that is enough.
  int Int(int lo, int hi) {
    const auto span = static_cast<std::uint64_t>(std::int64_t{hi} - lo) + 1;
    const std::uint64_t word = Word(span <= 0x100 ? 1 : span <= 0x10000 ? 2 : 5);
    return static_cast<int>(lo + static_cast<std::int64_t>(word % span));
  }
  std::size_t Below(std::size_t n) {
    return static_cast<std::size_t>(Int(0, static_cast<int>(n) - 1));
  }

  /// One byte gives a small integer or a special value, or selects a random bit pattern.
  template <class T>
  T Real() {
    const std::uint8_t kind = Byte();
    const auto& special = test::SpecialValues<T>();
    if (kind < 0x60) return static_cast<T>(kind) / T(4) - T(8);
    if (kind < 0xC0) return special[kind % special.size()];
    return test::FromBits<T>(static_cast<test::BitsOf<T>>(Word(sizeof(T))));
  }
  double Double() { return Real<double>(); }
  float Float() { return Real<float>(); }

  /// Up to `most` doubles: read one by one, or generated from a few bytes in one of the orders.
  std::vector<double> Doubles(std::size_t most, std::size_t few = 40) {
    if (Flag()) {
      std::vector<double> values(Size(most < 64 ? most : 64, few));
      for (double& x : values) x = Double();
      return values;
    }
    const auto& order = test::Orders()[Below(test::Orders().size())];
    const std::size_t n = Size(most, few);
    return order.make(n, Word(2));
  }
  std::vector<double> ExactlyDoubles(std::size_t n) {
    std::vector<double> values(n);
    const bool generated = n > 64 || Flag();
    test::Random random(generated ? Word(2) : 0);
    for (double& x : values) x = generated ? test::AwkwardValue<double>(random) : Double();
    return values;
  }
  /// Up to `most` bytes as they are.
  std::string Text(std::size_t most) {
    std::string text(Below(most + 1), '\0');
    for (char& c : text) c = static_cast<char>(Byte());
    return text;
  }
  /// The rest of the input.
  std::string Rest() {
    std::string text(reinterpret_cast<const char*>(next_), static_cast<std::size_t>(end_ - next_));
    next_ = end_;
    return text;
  }

 private:
  const std::uint8_t* next_;
  const std::uint8_t* end_;
  bool long_;
};

}  // namespace zeph::fuzz

#endif  // ZEPH_FUZZ_SUPPORT_BYTES_H
