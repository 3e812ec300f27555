// soak [messages]: good and broken messages of all wire formats through one router, for as long as it takes. Memory
// must stay flat: the resident set grows by less than a megabyte from the first twentieth on, and when the host is
// gone, no more blocks are alive than before it was made. The messages follow from a fixed seed.

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <random>

#include "examples/mixed/MixedOrders.h"
#include "tests/CountedHeap.h"

namespace tavrone {
namespace {

constexpr long DEFAULT_MESSAGES = 20'000;
constexpr long MIN_MESSAGES = 2'000;
constexpr long MAX_GROWTH = 1 << 20;
#ifdef __SANITIZE_ADDRESS__
constexpr bool RETURNS_MEMORY = false;  // the sanitizer keeps what was freed for a while
#else
constexpr bool RETURNS_MEMORY = true;
#endif
constexpr unsigned SEED = 20'240'315;

struct Memory {
  long blocks = 0, resident = 0;  // in bytes
};
Memory memoryInUse() {
  Memory memory{heap::alive, 0};
  char line[256] = "";
  if (std::FILE *const file = std::fopen("/proc/self/statm", "r")) {
    if (std::fgets(line, sizeof line, file) != nullptr) std::sscanf(line, "%*s %ld", &memory.resident);
    std::fclose(file);
  }
  memory.resident *= sysconf(_SC_PAGESIZE);
  return memory;
}

// Hands out samples, every second one with up to three changes.
class Stream {
 public:
  Stream() : samples_(mixedMessages(200)) { message_.reserve(1 << 16); }

  std::string const &next() {
    message_ = any();
    for (size_t changes = below(2) == 0 ? 0 : 1 + below(3); changes > 0; --changes) change();
    return message_;
  }

 private:
  size_t below(size_t limit) { return limit == 0 ? 0 : random_() % limit; }
  std::string const &any() { return samples_[below(samples_.size())]; }
  char anyByte() { return static_cast<char>(below(256)); }

  void change() {
    size_t const at = below(message_.size());
    size_t const kind = below(6);
    if (kind == 0) message_.replace(at, 1, 1, anyByte());
    if (kind == 1) message_.insert(at, 1, anyByte());
    if (kind == 2) message_.erase(at, 1 + below(8));
    if (kind == 3) message_.replace(at, 1, 1, static_cast<char>('0' + below(10)));
    if (kind < 4) return;
    message_.resize(at);
    if (kind == 4) return;
    std::string const &other = any();  // whose rest follows
    message_.append(other, below(other.size()), std::string::npos);
  }

  std::vector<std::string> const samples_;
  std::mt19937_64 random_{SEED};
  std::string message_;
};

// Sends the messages through one host, and tells what is in use after a twentieth of them.
Memory send(long messages, Stream &stream, long &good, long &bad) {
  MixedOrders host;
  Memory early;
  for (long i = 0; i < messages; ++i) {
    try {
      host.process(stream.next());
      ++good;
    } catch (TransformException const &) {
      ++bad;
    }
    if (i == messages / 20) early = memoryInUse();
  }
  return early;
}

void show(char const *when, Memory const &memory) {
  std::printf("%-20s %12ld %16ld\n", when, memory.blocks, memory.resident);
}

int soak(long messages) {
  bindMixedOrders();
  Stream stream;
  long good = 0, bad = 0;
  send(MIN_MESSAGES, stream, good, bad);  // what is made once, and stays
  good = bad = 0;
  Memory const before = memoryInUse();
  auto const start = std::chrono::steady_clock::now();
  Memory const early = send(messages, stream, good, bad);
  std::chrono::duration<double> const time = std::chrono::steady_clock::now() - start;
  Memory const late = memoryInUse();
  std::printf("%ld messages in %.1f s, %.0f a second: %ld good, %ld refused\n", messages, time.count(),
              static_cast<double>(messages) / time.count(), good, bad);
  std::printf("%-20s %12s %16s\n", "", "blocks alive", "resident bytes");
  show("before the host", before);
  show("after a twentieth", early);
  show("after the host", late);
  bool const isFlat =
      late.blocks == before.blocks && (!RETURNS_MEMORY || late.resident - early.resident < MAX_GROWTH);
  std::puts(isFlat ? "Memory is flat" : "MEMORY GREW");
  return isFlat && good != 0 && bad != 0 ? 0 : 1;
}

}  // namespace
}  // namespace tavrone

int main(int argc, char **argv) {
  long const messages = argc > 1 ? std::atol(argv[1]) : tavrone::DEFAULT_MESSAGES;
  if (messages < tavrone::MIN_MESSAGES) {
    std::fprintf(stderr, "usage: %s [messages, at least %ld]\n", argv[0], tavrone::MIN_MESSAGES);
    return 2;
  }
  return tavrone::soak(messages);
}
