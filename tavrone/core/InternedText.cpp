#include "tavrone/core/InternedText.h"

#include <string>
#include <unordered_set>

namespace tavrone {
namespace {

struct UnownedText : tvstring {
  explicit UnownedText(std::string const &text) : tvstring(text.data(), text.size(), nullptr, false) {}
};

}  // namespace

tvstring internText(tvstring const &text) {
  // Never destroyed: texts are still read while the process ends.
  static auto &texts = *new std::unordered_set<std::string>;
  return UnownedText(*texts.emplace(text.data(), text.length()).first);
}

}  // namespace tavrone
