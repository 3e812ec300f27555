// Strings beside their peers in the same run: a plain counted view of the same three words, memchr, and what the
// standard library offers for numbers.

#include <benchmark/benchmark.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "tavrone/core/Conversion.h"
#include "tavrone/core/tvstring.h"
#include "tavrone/core/tvstringbuffer.h"

namespace {

using tavrone::tvstring;
using tavrone::tvstringbuffer;

// The least that a counted view can cost: the same three words and a plain count, nothing else.
struct PlainArray {
  int references = 1;
};

class PlainView {
 public:
  PlainView() = default;
  PlainView(char const *data, size_t length, PlainArray *owner) : data_(data), length_(length), owner_(owner) {
    if (owner != nullptr) ++owner->references;
  }
  PlainView(PlainView const &other) : PlainView(other.data_, other.length_, other.owner_) {}
  PlainView &operator=(PlainView const &other) {
    PlainArray *old = owner_;
    if (other.owner_ != nullptr) ++other.owner_->references;
    data_ = other.data_;
    length_ = other.length_;
    owner_ = other.owner_;
    release(old);
    return *this;
  }
  ~PlainView() { release(owner_); }

  PlainView substr(size_t pos, size_t n) const {
    return PlainView(data_ + pos, n < length_ - pos ? n : length_ - pos, owner_);
  }
  void substr(size_t pos, size_t n, PlainView &out) const { out = substr(pos, n); }

 private:
  static void release(PlainArray *array) {
    if (array != nullptr && --array->references == 0) delete array;
  }

  char const *data_ = "";
  size_t length_ = 0;
  PlainArray *owner_ = nullptr;
};

template <class View>
View message();
template <>
tvstring message<tvstring>() {
  return tvstring("8=FIX.4.2|9=178|35=D|49=SENDER|56=TARGET|34=4|55=IBM|54=1|38=100|44=123.45|10=128|");
}
template <>
PlainView message<PlainView>() {
  static char const text[] = "8=FIX.4.2|9=178|35=D|49=SENDER|56=TARGET|34=4|55=IBM|54=1|38=100|44=123.45|10=128|";
  return PlainView(text, sizeof text - 1, new PlainArray);
}

template <class View>
void copy(benchmark::State &state) {
  View const whole = message<View>();
  for (auto _ : state) {
    View copied(whole);
    benchmark::DoNotOptimize(copied);
  }
}
BENCHMARK(copy<PlainView>);
BENCHMARK(copy<tvstring>);

template <class View>
void substr(benchmark::State &state) {
  View const whole = message<View>();
  size_t pos = 0;
  for (auto _ : state) {
    View field = whole.substr(pos, 7);
    benchmark::DoNotOptimize(field);
    pos = (pos + 7) & 31;
  }
}
BENCHMARK(substr<PlainView>);
BENCHMARK(substr<tvstring>);

template <class View>
void assignView(benchmark::State &state) {
  View const whole = message<View>();
  View fields[] = {whole.substr(0, 9), whole.substr(10, 5), whole.substr(16, 4), whole.substr(21, 9)};
  View target;
  size_t i = 0;
  for (auto _ : state) {
    target = fields[i++ & 3];
    benchmark::DoNotOptimize(target);
  }
}
BENCHMARK(assignView<PlainView>);
BENCHMARK(assignView<tvstring>);

template <class View>
void moveThroughVector(benchmark::State &state) {
  View const whole = message<View>();
  for (auto _ : state) {
    std::vector<View> fields;
    for (size_t i = 0; i < 64; ++i) fields.push_back(whole.substr(i, 4));
    benchmark::DoNotOptimize(fields.data());
  }
}
BENCHMARK(moveThroughVector<PlainView>);
BENCHMARK(moveThroughVector<tvstring>);

void findByMemchr(benchmark::State &state) {
  std::string const text(static_cast<size_t>(state.range(0)), 'x');
  std::string const with = text.substr(1) + "|";
  for (auto _ : state) {
    char const *data = with.data();
    benchmark::DoNotOptimize(data);
    void const *hit = std::memchr(data, '|', with.size());
    benchmark::DoNotOptimize(hit);
  }
}
BENCHMARK(findByMemchr)->Arg(16)->Arg(1024);

void find(benchmark::State &state) {
  tvstring const with = tvstring(static_cast<size_t>(state.range(0) - 1), 'x') + '|';
  for (auto _ : state) {
    tvstring const *text = &with;
    benchmark::DoNotOptimize(text);
    size_t const hit = text->find('|');
    benchmark::DoNotOptimize(hit);
  }
}
BENCHMARK(find)->Arg(16)->Arg(1024);

// Both report an order: memcmp's counts bytes as unsigned, so that it is a limit rather than a substitute.
void compareByMemcmp(benchmark::State &state) {
  std::string const a(static_cast<size_t>(state.range(0)), 'x');
  std::string const b = a.substr(1) + 'y';
  for (auto _ : state) {
    char const *data = a.data();
    benchmark::DoNotOptimize(data);
    int const order = std::memcmp(data, b.data(), b.size());
    benchmark::DoNotOptimize(order);
  }
}
BENCHMARK(compareByMemcmp)->Arg(3)->Arg(12)->Arg(1024);

void compare(benchmark::State &state) {
  tvstring const a(static_cast<size_t>(state.range(0)), 'x');
  tvstring const b = a.substr(1) + 'y';
  for (auto _ : state) {
    tvstring const *text = &a;
    benchmark::DoNotOptimize(text);
    int const order = text->compare(b);
    benchmark::DoNotOptimize(order);
  }
}
BENCHMARK(compare)->Arg(3)->Arg(12)->Arg(1024);

template <class Buffer>
void appendFields(benchmark::State &state) {
  Buffer buffer;
  for (auto _ : state) {
    buffer.clear();
    for (int i = 0; i < 32; ++i) {
      buffer.append("55=IBM", 6);
      buffer += '|';
    }
    benchmark::DoNotOptimize(buffer.data());
  }
}
BENCHMARK(appendFields<std::string>);
BENCHMARK(appendFields<tvstringbuffer>);

// Numbers: 4096 values whose lengths are mixed evenly, so that no branch on the length is foreseen.
constexpr size_t NUMBERS = 4096;

template <class Integer>
std::vector<Integer> mixedIntegers() {
  std::mt19937_64 random(5);
  std::vector<Integer> values;
  double const longest = std::is_same_v<Integer, int> ? 9.3 : 18.9;
  for (size_t i = 0; i < NUMBERS; ++i) {
    double const digits = static_cast<double>(random() % 10000) / 10000 * longest;
    Integer const magnitude = static_cast<Integer>(std::pow(10, digits));
    values.push_back(random() % 8 == 0 ? -magnitude : magnitude);
  }
  return values;
}

template <class Integer>
std::vector<std::string> mixedTexts() {
  std::vector<std::string> texts;
  for (Integer value : mixedIntegers<Integer>()) texts.push_back(std::to_string(value));
  return texts;
}

template <class Integer>
void readByFromChars(benchmark::State &state) {
  auto const texts = mixedTexts<Integer>();
  size_t i = 0;
  for (auto _ : state) {
    std::string const &text = texts[i++ % NUMBERS];
    Integer value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    benchmark::DoNotOptimize(value);
  }
}
BENCHMARK(readByFromChars<int>);
BENCHMARK(readByFromChars<long long>);

int readNumber(std::string const &text, int) {
  return t_atoi(text.data(), text.data() + text.size());
}
long long readNumber(std::string const &text, long long) {
  return t_atol(text.data(), text.data() + text.size());
}

template <class Integer>
void read(benchmark::State &state) {
  auto const texts = mixedTexts<Integer>();
  size_t i = 0;
  for (auto _ : state) {
    Integer value = readNumber(texts[i++ % NUMBERS], Integer());
    benchmark::DoNotOptimize(value);
  }
}
BENCHMARK(read<int>);
BENCHMARK(read<long long>);

template <class Integer>
void writeByToChars(benchmark::State &state) {
  auto const values = mixedIntegers<Integer>();
  char text[32];
  size_t i = 0;
  for (auto _ : state) {
    *std::to_chars(text, text + sizeof text, values[i++ % NUMBERS]).ptr = '\0';
    benchmark::DoNotOptimize(text);
  }
}
BENCHMARK(writeByToChars<int>);
BENCHMARK(writeByToChars<long long>);

template <class Integer>
void write(benchmark::State &state) {
  auto const values = mixedIntegers<Integer>();
  char text[32];
  size_t i = 0;
  for (auto _ : state) {
    if constexpr (std::is_same_v<Integer, int>)
      t_itoa(values[i++ % NUMBERS], text);
    else
      t_ltoa(values[i++ % NUMBERS], text);
    benchmark::DoNotOptimize(text);
  }
}
BENCHMARK(write<int>);
BENCHMARK(write<long long>);

std::vector<double> prices() {
  std::mt19937_64 random(5);
  std::vector<double> values;
  for (size_t i = 0; i < NUMBERS; ++i) values.push_back(static_cast<double>(random() % 10000000) / 10000);
  return values;
}

std::vector<double> spread() {
  std::mt19937_64 random(5);
  std::vector<double> values;
  for (size_t i = 0; i < NUMBERS; ++i) values.push_back(std::pow(10, static_cast<double>(random() % 21000) / 1000 - 6));
  return values;
}

struct Snprintf {
  static void write(double value, char *out) { std::snprintf(out, 352, "%.8f", value); }
};
struct ToChars {
  static void write(double value, char *out) {
    *std::to_chars(out, out + 352, value, std::chars_format::fixed, 8).ptr = '\0';
  }
};
struct Ours {
  static void write(double value, char *out) { doubleToString(value, out); }
};

template <class Writer, std::vector<double> (*VALUES)()>
void writeDoubles(benchmark::State &state) {
  auto const values = VALUES();
  char text[352];
  size_t i = 0;
  for (auto _ : state) {
    Writer::write(values[i++ % NUMBERS], text);
    benchmark::DoNotOptimize(text);
  }
}
BENCHMARK(writeDoubles<Snprintf, prices>);
BENCHMARK(writeDoubles<ToChars, prices>);
BENCHMARK(writeDoubles<Ours, prices>);
BENCHMARK(writeDoubles<Snprintf, spread>);
BENCHMARK(writeDoubles<ToChars, spread>);
BENCHMARK(writeDoubles<Ours, spread>);

}  // namespace

BENCHMARK_MAIN();
