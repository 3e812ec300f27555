// Walking all fields of FIX messages, tags converted and values as views, beside QuickFIX's Message::setString (at most
// 0.12 of its time) and beside a walk written by hand, with memchr and std::from_chars, whose views are counted like
// tvstring's (at most 1.0). Messages are of many lengths, so that no branch can be learned. The counter shows that
// nothing is allocated. Then messages told by their first bytes and their headers read, with bodies of 1 KB and 1 MB
// (at most 1.2 times as long).
#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "benchmarks/Allocations.h"
#include "benchmarks/peers/QuickFIXPeer.h"
#include "examples/messages/NewOrderSingleParser.h"
#include "tavrone/fix/FIXMessageIdentifier.h"
#include "tavrone/fix/FIXTokenizer.h"
#include "tavrone/pipeline/InputSources.h"

namespace {

using tavrone::FIXTokenizer;
using tavrone::tvstring;

constexpr char SOH = '\x01';
constexpr int RAW_DATA_LENGTH = 95;

// Writes messages of one kind, each with values of its own lengths.
class Writer {
 public:
  std::string word(size_t least, size_t most) {
    static constexpr char LETTERS[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    std::string text;
    for (size_t n = least + random_() % (most - least + 1); n != 0; --n) text += LETTERS[random_() % 36];
    return text;
  }
  std::string number(unsigned limit) { return std::to_string(random_() % limit); }
  std::string price() { return number(1000) + "." + number(10000); }
  std::string time() {
    return "20260105-09:" + std::to_string(10 + random_() % 50) + ":" + std::to_string(10 + random_() % 50);
  }

  Writer &field(int tag, std::string const &value) {
    body_ += std::to_string(tag) + '=' + value + SOH;
    return *this;
  }
  Writer &begin(char const *type) {
    body_.clear();
    return field(35, type).field(34, number(100000)).field(49, word(3, 9)).field(52, time()).field(56, word(3, 9));
  }
  std::string finish() {
    std::string text = std::string("8=FIX.4.4") + SOH + "9=" + std::to_string(body_.size()) + SOH + body_;
    unsigned sum = 0;
    for (char c : text) sum += static_cast<unsigned char>(c);
    char trailer[16];
    std::snprintf(trailer, sizeof trailer, "10=%03u%c", sum % 256, SOH);
    return text + trailer;
  }

 private:
  std::mt19937 random_{20260105};
  std::string body_;
};

// 17 fields, about 170 bytes.
std::string newOrderSingle(Writer &w) {
  return w.begin("D")
      .field(11, w.word(6, 16))
      .field(1, w.word(4, 10))
      .field(21, "1")
      .field(55, w.word(1, 5))
      .field(54, w.number(2))
      .field(60, w.time())
      .field(38, w.number(100000))
      .field(40, "2")
      .field(44, w.price())
      .finish();
}

// 32 fields, about 300 bytes.
std::string executionReport(Writer &w) {
  return w.begin("8")
      .field(37, w.word(8, 14))
      .field(11, w.word(6, 16))
      .field(17, w.word(8, 12))
      .field(150, "F")
      .field(39, w.number(3))
      .field(1, w.word(4, 10))
      .field(55, w.word(1, 5))
      .field(48, w.word(9, 12))
      .field(22, "4")
      .field(54, w.number(2))
      .field(38, w.number(100000))
      .field(40, "2")
      .field(44, w.price())
      .field(59, "0")
      .field(32, w.number(10000))
      .field(31, w.price())
      .field(30, w.word(3, 4))
      .field(151, w.number(10000))
      .field(14, w.number(100000))
      .field(6, w.price())
      .field(75, "20260105")
      .field(60, w.time())
      .field(12, w.price())
      .field(58, w.word(0, 40))
      .finish();
}

// 20 entries, about 1.1 KB.
std::string marketDataSnapshot(Writer &w) {
  w.begin("W").field(262, w.word(6, 10)).field(55, w.word(1, 5)).field(268, "20");
  for (int i = 0; i < 20; ++i)
    w.field(269, w.number(2))
        .field(270, w.price())
        .field(271, w.number(100000))
        .field(272, "20260105")
        .field(290, w.number(20));
  return w.finish();
}

// A text and 256 bytes of data, SOH among them.
std::string news(Writer &w) {
  std::string data = w.word(256, 256);
  for (size_t i = 3; i < data.size(); i += 17) data[i] = SOH;
  return w.begin("B")
      .field(148, w.word(20, 60))
      .field(33, "2")
      .field(58, w.word(10, 80))
      .field(58, w.word(10, 80))
      .field(RAW_DATA_LENGTH, "256")
      .field(96, data)
      .finish();
}

std::vector<std::string> messagesOf(std::string (*make)(Writer &)) {
  Writer writer;
  std::vector<std::string> messages;
  for (int i = 0; i < 256; ++i) messages.push_back(make(writer));
  return messages;
}

template <class Walk>
void measure(benchmark::State &state, size_t bytes, size_t messages, Walk const &walk) {
  walk();
  long long const before = allocations;
  for (auto _ : state) walk();
  auto const n = static_cast<int64_t>(state.iterations());
  state.SetItemsProcessed(n * static_cast<int64_t>(messages));
  state.SetBytesProcessed(n * static_cast<int64_t>(bytes));
  state.counters["allocations"] =
      static_cast<double>(allocations - before) / static_cast<double>(n) / static_cast<double>(messages);
}

std::vector<tvstring> asTexts(std::vector<std::string> const &messages) {
  std::vector<tvstring> texts;
  for (auto const &message : messages) texts.emplace_back(message.data(), message.size());
  return texts;
}

size_t sizeOf(std::vector<std::string> const &messages) {
  size_t bytes = 0;
  for (auto const &message : messages) bytes += message.size();
  return bytes;
}

template <std::string (*Make)(Writer &)>
void tokenizer(benchmark::State &state) {
  auto const messages = messagesOf(Make);
  auto const texts = asTexts(messages);
  measure(state, sizeOf(messages), texts.size(), [&] {
    for (tvstring const &text : texts) {
      FIXTokenizer tokens(text, SOH);
      FIXTokenizer::TagValuePair field;
      while (tokens.next(field)) {
        benchmark::DoNotOptimize(field.tag);
        benchmark::DoNotOptimize(field.value);
        if (field.tag == RAW_DATA_LENGTH) tokens.nextDataTag(field, field.toInt());
      }
    }
  });
}

// A view that keeps its text's count, as a tvstring does.
struct CountedText {
  std::string text;
  mutable int count = 1;
};
class CountedView {
 public:
  CountedView() = default;
  CountedView(CountedView const &) = delete;
  ~CountedView() { release(); }
  void set(char const *data, size_t length, CountedText const *owner) {
    ++owner->count;
    release();
    data_ = data;
    length_ = length;
    owner_ = owner;
  }
  char const *begin() const { return data_; }
  char const *end() const { return data_ + length_; }

 private:
  void release() {
    if (owner_ != nullptr && --owner_->count == 0) std::abort();
  }

  char const *data_ = nullptr;
  size_t length_ = 0;
  CountedText const *owner_ = nullptr;
};

template <std::string (*Make)(Writer &)>
void handWritten(benchmark::State &state) {
  auto const messages = messagesOf(Make);
  std::vector<CountedText> texts;
  for (auto const &message : messages) texts.push_back({message});
  measure(state, sizeOf(messages), texts.size(), [&] {
    for (CountedText const &text : texts) {
      CountedView value;
      char const *at = text.text.data();
      char const *const end = at + text.text.size();
      size_t dataLength = 0;
      while (at != end) {
        int tag = 0;
        auto const *equals = static_cast<char const *>(std::memchr(at, '=', static_cast<size_t>(end - at)));
        if (equals == nullptr || std::from_chars(at, equals, tag).ptr != equals) std::abort();
        char const *from = equals + 1;
        auto const *soh = static_cast<char const *>(
            std::memchr(from + dataLength, SOH, static_cast<size_t>(end - from) - dataLength));
        if (soh == nullptr) std::abort();
        value.set(from, static_cast<size_t>(soh - from), &text);
        benchmark::DoNotOptimize(tag);
        benchmark::DoNotOptimize(value);
        dataLength = 0;
        if (tag == RAW_DATA_LENGTH) std::from_chars(value.begin(), value.end(), dataLength);
        at = soh + 1;
      }
    }
  });
}

template <std::string (*Make)(Writer &)>
void quickFIX(benchmark::State &state) {
  auto const messages = messagesOf(Make);
  QuickFIXPeer peer;
  measure(state, sizeOf(messages), messages.size(), [&] {
    for (auto const &message : messages) benchmark::DoNotOptimize(peer.readFields(message, Make == news));
  });
}

// The road of a payload into a record: its bytes copied once, everything else filled again.
void parseOrder(benchmark::State &state) {
  auto const messages = messagesOf(newOrderSingle);
  examples::NewOrderSingleParser parser;
  tavrone::TransformContext context;
  tavrone::SmartPtr<tavrone::ExternalObject> const object(new tavrone::ExternalObject);
  measure(state, sizeOf(messages), messages.size(), [&] {
    for (auto const &message : messages)
      parser.parse(object.get(), tavrone::Binary(message.data(), message.size()), context);
  });
}
void parseOrderByPeer(benchmark::State &state) {
  auto const messages = messagesOf(newOrderSingle);
  QuickFIXPeer peer;
  measure(state, sizeOf(messages), messages.size(), [&] {
    for (auto const &message : messages) benchmark::DoNotOptimize(peer.readOrder(message));
  });
}
BENCHMARK(parseOrder)->Name("256 NewOrderSingle into a record/FIXInputParser");
BENCHMARK(parseOrderByPeer)->Name("256 NewOrderSingle into a record/QuickFIX");

void identify(benchmark::State &state) {
  Writer writer;
  writer.begin("B").field(148, "News");
  for (int64_t size = 0; size < state.range(0); size += 24) writer.field(58, "twenty bytes of text");
  std::string const message = writer.finish();
  tavrone::StringInputSource input(tvstring(message.data(), message.size()));
  tavrone::FIXMessageIdentifier identifier;
  for (auto _ : state) {
    tavrone::SmartPtr<tavrone::DataObject> const header(identifier.identifyMessage(input));
    benchmark::DoNotOptimize(header.get());
  }
}
BENCHMARK(identify)->Name("header, body of")->Arg(1 << 10)->Arg(1 << 20);

#define WALK(make, name)                                       \
  BENCHMARK(tokenizer<make>)->Name(name "/FIXTokenizer");      \
  BENCHMARK(handWritten<make>)->Name(name "/written by hand"); \
  BENCHMARK(quickFIX<make>)->Name(name "/QuickFIX setString")
WALK(newOrderSingle, "256 NewOrderSingle");
WALK(executionReport, "256 ExecutionReport");
WALK(marketDataSnapshot, "256 MarketDataSnapshot");
WALK(news, "256 News");
#undef WALK

}  // namespace

BENCHMARK_MAIN();
