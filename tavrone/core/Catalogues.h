#pragma once

#include <array>
#include <span>

#include "tavrone/core/Export.h"

namespace tavrone {

class Resources;

// One failure of the library's own: `key` is its name in code and in the bundle, `code` what users see in ErrorCode.
// The two are numbered apart.
struct CatalogueRow {
  constexpr CatalogueRow(char const *rowKey, char const *rowCode, char const *rowMessage)
      : key(rowKey),
        code(rowCode),
        message(rowMessage),
        codeKey(join(rowKey, ".code")),
        messageKey(join(rowKey, ".message")) {}

  char const *key;
  char const *code;
  char const *message;              // a pattern of formatMessage
  std::array<char, 16> codeKey;     // key + ".code", under which the bundle holds the code
  std::array<char, 16> messageKey;  // key + ".message"

 private:
  static constexpr std::array<char, 16> join(char const *a, char const *b) {
    std::array<char, 16> joined{};
    size_t length = 0;
    for (; *a != '\0'; ++a) joined[length++] = *a;
    for (; *b != '\0'; ++b) joined[length++] = *b;
    return joined;
  }
};

// A table of failures, and the name of its bundle.
struct Catalogue {
  char const *name;
  std::span<CatalogueRow const> rows;  // in the order of registration
};

// The runtime's failures (keys "SRT...") and those of the wire formats (keys "UNV..."). Their misspellings, double
// blanks, repeated codes and gaps are what users know them by.
extern TAVRONE_API Catalogue const RuntimeResources;
extern TAVRONE_API Catalogue const UniversalResources;

// Adds a bundle for each catalogue, under its name. Resources::getDefaultResources does this once for the default
// instance.
TAVRONE_API void registerCatalogues(Resources &resources);

}  // namespace tavrone
