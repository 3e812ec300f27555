#include <benchmark/benchmark.h>

#include <cstring>
#include <string>

#include "tavrone/core/Binary.h"
#include "tavrone/core/BinaryText.h"
#include "tavrone/core/ByteBuffer.h"

// Hexadecimal and base64 of a megabyte, both ways; bytes_per_second counts the raw bytes, not their text. The peer is a
// plain copy of as many bytes into a fresh array, and for base64 the path for processors without AVX2.

namespace tavrone {
namespace {

constexpr size_t SIZE = 1 << 20;

Binary payload() {
  std::string bytes(SIZE, '\0');
  unsigned seed = 1;
  for (char &c : bytes) c = static_cast<char>((seed = seed * 1103515245 + 12345) >> 16);
  return Binary(bytes.data(), bytes.size());
}

// The base64 text with a line break after every 76 characters, as mail has it.
tvstring inLines(tvstring const &text) {
  std::string lines;
  for (size_t i = 0; i < text.length(); i += 76) {
    tvstring const line = text.substr(i, 76);
    lines.append(line.data(), line.length()).append("\r\n");
  }
  return tvstring(lines.data(), lines.size());
}

template <class Work>
void measure(benchmark::State &state, Work const &work) {
  for (auto _ : state) benchmark::DoNotOptimize(work());
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * SIZE));
}

void copy(benchmark::State &state) {
  Binary const bytes = payload();
  measure(state, [&] { return bytes.toASCIIString(); });
}
void hexEncode(benchmark::State &state) {
  Binary const bytes = payload();
  measure(state, [&] { return bytes.toHexString(); });
}
void hexDecode(benchmark::State &state) {
  tvstring const text = payload().toHexString();
  measure(state, [&] { return Binary::fromHexString(text); });
}
void base64Encode(benchmark::State &state) {
  Binary const bytes = payload();
  measure(state, [&] { return bytes.toBase64String(); });
}
void base64Decode(benchmark::State &state) {
  tvstring const text = payload().toBase64String();
  measure(state, [&] { return Binary::fromBase64String(text); });
}
void base64DecodeLines(benchmark::State &state) {
  tvstring const text = inLines(payload().toBase64String());
  measure(state, [&] { return Binary::fromBase64String(text); });
}

void base64EncodePlain(benchmark::State &state) {
  Binary const bytes = payload();
  measure(state, [&] {
    Binary text(base64TextLength(SIZE));
    PLAIN_BASE64.encode(bytes.data(), SIZE, const_cast<char *>(text.data()));
    return text;
  });
}
void base64DecodePlain(benchmark::State &state) {
  tvstring const text = payload().toBase64String();
  measure(state, [&] {
    Binary bytes(base64ByteLength(text.length()));
    PLAIN_BASE64.decode(text.data(), text.find('='), const_cast<char *>(bytes.data()));
    return bytes;
  });
}

// A message's worth of short fields into one buffer; the peer writes the same characters through a std::string.
void bufferFields(benchmark::State &state) {
  tvstring const name("Field");
  ByteBuffer buffer(1 << 16);
  for (auto _ : state) {
    buffer.chop(0);
    for (int i = 0; i < 1000; ++i) {
      buffer.append(name);
      buffer.append('=');
      buffer.append(i * 1000);
      buffer.append('|');
    }
    benchmark::DoNotOptimize(buffer.str());
  }
  state.SetItemsProcessed(state.iterations() * 1000);
}
void bufferFieldsStdString(benchmark::State &state) {
  std::string const name("Field");
  std::string buffer;
  for (auto _ : state) {
    buffer.clear();
    for (int i = 0; i < 1000; ++i) buffer.append(name).append(1, '=').append(std::to_string(i * 1000)).append(1, '|');
    benchmark::DoNotOptimize(buffer.data());
  }
  state.SetItemsProcessed(state.iterations() * 1000);
}

BENCHMARK(copy);
BENCHMARK(hexEncode);
BENCHMARK(hexDecode);
BENCHMARK(base64Encode);
BENCHMARK(base64EncodePlain);
BENCHMARK(base64Decode);
BENCHMARK(base64DecodePlain);
BENCHMARK(base64DecodeLines);
BENCHMARK(bufferFields);
BENCHMARK(bufferFieldsStdString);

}  // namespace
}  // namespace tavrone

BENCHMARK_MAIN();
