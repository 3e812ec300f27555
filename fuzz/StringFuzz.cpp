// Operations on a buffer, and on the strings cut from it, beside a std::string that holds what each of them should.

#include <algorithm>
#include <functional>
#include <vector>

#include "tavrone/core/tvstring.h"
#include "tavrone/core/tvstringbuffer.h"
#include "tests/FuzzInput.h"
#include "tests/Text.h"

using namespace tavrone;

namespace {

void checkSearch(tvstring const &text, std::string const &model, tvstring const &part, size_t start) {
  std::string const needle = str(part);
  size_t const expected = start < model.size()                            ? model.find(needle, start)
                          : model.empty() && start == 0 && needle.empty() ? 0
                                                                          : tvstring::npos;
  require(text.find(part, start) == expected);
  require(text.rfind(part, start) == model.rfind(needle, start));
  if (part.empty()) return;
  require(text.find(part[0], start) == model.find(needle[0], start));
  require(text.rfind(part[0], start) == model.rfind(needle[0], start));
}

void checkOrder(tvstring const &a, tvstring const &b) {
  auto const bySign = [](char x, char y) { return static_cast<signed char>(x) <=> static_cast<signed char>(y); };
  std::string const x = str(a), y = str(b);
  auto const expected = std::lexicographical_compare_three_way(x.begin(), x.end(), y.begin(), y.end(), bySign);
  require((a.compare(b) <=> 0) == expected && (a == b) == (expected == 0));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  FuzzInput input(data, size);
  tvstringbuffer buffer;
  std::string model;
  std::vector<std::pair<tvstring, std::string>> kept;  // fresh strings, which no edit may change
  while (input.at < size && model.size() < 5000) {
    size_t const pos = input.below(model.size() + 1);
    size_t const n = input.below(256);
    tvstring const own = buffer.substr(pos, n);
    std::string const part = model.substr(pos, n);
    size_t const target = input.below(model.size() + 1);
    char const c = static_cast<char>(n);
    std::function<void()> const operations[] = {
        [&] { buffer.append(own), model.append(part); },
        [&] { buffer.insert(target, own), model.insert(target, part); },
        [&] { buffer.replace(target, n, own), model.replace(target, n, part); },
        [&] { buffer.erase(pos, n), model.erase(pos, n); },
        [&] { buffer.append(static_cast<int>(n) - 5, 'c'), model.append(n < 5 ? 0 : n - 5, 'c'); },
        [&] { buffer.reserve(n * 8); },
        [&] { buffer.clear(), model.clear(); },
        [&] { kept.emplace_back(buffer + own, model + part); },
        [&] { require(std::string(own.c_str(), part.size() + 1) == part + '\0'); },
        [&] { require(std::string(buffer.c_str(), model.size() + 1) == model + '\0'); },
        [&] { checkSearch(buffer, model, own, target); },
        [&] { checkOrder(buffer.substr(target), own); },
        [&] {
          if (target < model.size()) buffer[target] = model[target] = c;
        },
        [&] { buffer += c, model += c; },
    };
    operations[input.below(std::size(operations))]();
    require(str(buffer) == model);
  }
  for (auto const &[text, expected] : kept) require(str(text) == expected);
  return 0;
}
