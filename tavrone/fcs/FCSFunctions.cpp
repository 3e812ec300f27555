#include "tavrone/fcs/FCSFunctions.h"

namespace tavrone {

namespace {

constexpr size_t WORD = sizeof(short);

// The words need not be aligned. REQUIRES: size is even
void storeChecksum(char *bytes, size_t size) {
  short checksum = 0;
  for (size_t i = 0; i != size; i += WORD) {
    short word;
    std::memcpy(&word, bytes + i, WORD);
    checksum = static_cast<short>(checksum ^ word);
  }
  std::memcpy(bytes + size, &checksum, WORD);
}

constexpr size_t wholeWords(size_t size) {
  return size + size % WORD;
}

}  // namespace

void FCSFunctions::store_checksum(short *data, short length) {
  storeChecksum(reinterpret_cast<char *>(data), length < 0 ? 0 : wholeWords(static_cast<size_t>(length)));
}

Binary FCSFunctions::storePSSChecksum(Binary const &data) {
  return storePSSChecksum(data, Binary());
}

Binary FCSFunctions::storePSSChecksum(Binary const &first, Binary const &second) {
  size_t const size = first.length() + second.length();
  size_t const padded = wholeWords(size);
  Binary result(padded + WORD, '\0');
  char *const bytes = const_cast<char *>(result.data());
  std::memcpy(bytes, first.data(), first.length());
  std::memcpy(bytes + first.length(), second.data(), second.length());
  storeChecksum(bytes, padded);
  return result;
}

}  // namespace tavrone
