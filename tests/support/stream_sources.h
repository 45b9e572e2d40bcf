// Stream buffers that supply a text in every way that a program's own might.
#ifndef ZEPH_TESTS_SUPPORT_STREAM_SOURCES_H
#define ZEPH_TESTS_SUPPORT_STREAM_SOURCES_H

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <streambuf>
#include <string>

namespace zeph::test {

/// Supplies at most `portion` characters at a time; 0 supplies none, as an unbuffered source.
/// Throws instead of a refill at or after character `throwing`.
class Source : public std::streambuf {
 public:
  static constexpr std::size_t kNever = ~std::size_t{0};

  explicit Source(std::string text, std::size_t portion, std::size_t throwing = kNever)
      : text_(std::move(text)), portion_(portion), throwing_(throwing) {}

  int refills = 0;

 protected:
  int_type underflow() override {
    if (!Refill()) return traits_type::eof();
    if (portion_ == 0) return traits_type::to_int_type(text_[next_]);
    char* const first = text_.data() + next_;
    const std::size_t size = std::min(portion_, text_.size() - next_);
    setg(first, first, first + size);
    next_ += size;
    return traits_type::to_int_type(*first);
  }
  int_type uflow() override {
    if (portion_ != 0) return std::streambuf::uflow();
    return Refill() ? traits_type::to_int_type(text_[next_++]) : traits_type::eof();
  }

 private:
  bool Refill() {
    ++refills;
    if (next_ >= throwing_) throw std::runtime_error("the source broke");
    return next_ < text_.size();
  }

  std::string text_;
  std::size_t portion_, throwing_, next_ = 0;
};

/// Accepts everything and counts flushes.
class FlushCounter : public std::streambuf {
 public:
  int flushes = 0;

 protected:
  int sync() override {
    ++flushes;
    return 0;
  }
};

}  // namespace zeph::test

#endif  // ZEPH_TESTS_SUPPORT_STREAM_SOURCES_H
