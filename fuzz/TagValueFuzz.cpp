// Walks over tag=value text, fields of data among them, against the plain rules.
#include "tavrone/fix/FIXTokenizer.h"
#include "tests/FuzzInput.h"
#include "tests/fix/TagValueReference.h"

using namespace tavrone;

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  FuzzInput input(data, size);
  char const delimiter = input.below(4) == 0 ? input.take<char>() : '\x01';
  std::string const steps = input.takeText(input.below(32));
  std::string const text = input.takeText(size);
  FIXTokenizer tokens(UnownedText(text), delimiter);
  TagValueReference reference{text, delimiter};
  // Any field in steps, each of them: 0 hands the field before back, 1 to 127 is the length of data, all else any
  // field.
  auto const any = [&](auto &pair) { return tokens.next(pair); };
  for (char step : steps) {
    int const length = step;
    if (step == 0) {
      tokens.pushBack({length, "back"});
      require(shownStep(tokens, any) == "0=back@" + std::to_string(reference.at));
    } else if (step > 0) {
      auto const raw = [&](auto &pair) { return tokens.nextDataTag(pair, length); };
      require(shownStep(tokens, raw) == reference.nextData(length));
    } else {
      require(shownStep(tokens, any) == reference.next());
    }
  }
  while (reference.at != text.size()) require(shownStep(tokens, any) == reference.next());
  tokens.assertEmpty();
  return 0;
}
