// Lines of a file beside a walk with memchr that keeps them as string_views, over a copy as LineReader does and in
// place (LineReader is meant to reach 3 GB/s), and the tokens of a line beside the same walk over its spaces (meant to
// stay below 60 ns and to allocate nothing). A whole order is meant to be read and written back in less than 1 us.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "examples/messages/FCSOrder.h"

namespace {

using namespace tavrone;

constexpr std::string_view LINE = "BUY 1200 IBM 101 3/8 DAY ACCT 4711-B FIRM ABCD BROKER 0042";  // 12 tokens

std::string makeFile() {
  constexpr size_t SIZE = 10 << 20;
  std::string file;
  for (size_t i = 0; file.size() < SIZE; ++i) (file += LINE.substr(0, 20 + i * 7 % (LINE.size() - 20))) += '\n';
  return file;
}

void cut(std::string_view rest, char delimiter, std::vector<std::string_view> &parts) {
  while (!rest.empty()) {
    void const *const found = std::memchr(rest.data(), delimiter, rest.size());
    size_t const length =
        found == nullptr ? rest.size() : static_cast<size_t>(static_cast<char const *>(found) - rest.data());
    parts.push_back(rest.substr(0, length));
    rest.remove_prefix(length < rest.size() ? length + 1 : length);
  }
}

void readLines(benchmark::State &state) {
  std::string const file = makeFile();
  for (auto _ : state) {
    LineReader reader(file.data(), static_cast<int>(file.size()), true);
    benchmark::DoNotOptimize(reader.getTrailerLine().data());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(file.size()));
}
BENCHMARK(readLines)->Name("lines of 10 MB/LineReader");

void peerReadsLines(benchmark::State &state, bool copies) {
  std::string const file = makeFile();
  for (auto _ : state) {
    std::unique_ptr<char[]> copy;
    std::string_view text(file);
    if (copies) {
      copy = std::make_unique_for_overwrite<char[]>(file.size());
      std::memcpy(copy.get(), file.data(), file.size());
      text = {copy.get(), file.size()};
    }
    std::vector<std::string_view> lines;
    cut(text, '\n', lines);
    benchmark::DoNotOptimize(lines.data());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(file.size()));
}
BENCHMARK_CAPTURE(peerReadsLines, , true)->Name("lines of 10 MB/memchr over a copy");
BENCHMARK_CAPTURE(peerReadsLines, , false)->Name("lines of 10 MB/memchr in place");

void tokenise(benchmark::State &state) {
  tvstring const line(LINE.data(), LINE.size());
  FCSLineTokenizer tokenizer;
  for (auto _ : state) {
    tokenizer.setString(line);
    benchmark::DoNotOptimize(tokenizer.getTokenCount());
  }
}
BENCHMARK(tokenise)->Name("12 tokens/FCSLineTokenizer");

void peerTokenises(benchmark::State &state) {
  std::string const line(LINE);
  std::vector<std::string_view> tokens;
  for (auto _ : state) {
    tokens.clear();
    cut(line, ' ', tokens);
    benchmark::DoNotOptimize(tokens.data());
  }
}
BENCHMARK(peerTokenises)->Name("12 tokens/memchr");

constexpr std::string_view ORDER =
    "AB 0042 03152024\nBUY 1200 IBM 191 1/8 AON\nACCT FB-137\nTEXT CALL DESK FIRST\n000123 FIRM ABCD";

// Into the kept objects of a channel, as AbstractInputFormat does.
template <bool Writes>
void readOrder(benchmark::State &state) {
  examples::FCSOrderMessage message;
  SmartPtr<ExternalObject> const order(message.createExternalObject());
  auto &writer = dynamic_cast<SimpleOutputWriter &>(*message.getOutputWriter());
  TransformContext context;
  Binary const bytes(ORDER.data(), ORDER.size());
  for (auto _ : state) {
    order->reset();
    message.getInputParser()->parse(order.get(), bytes, context);
    if constexpr (Writes) benchmark::DoNotOptimize(writer.writeExternal(*order, context).data());
  }
}
BENCHMARK(readOrder<false>)->Name("order/read");
BENCHMARK(readOrder<true>)->Name("order/read and written back");

}  // namespace

BENCHMARK_MAIN();
