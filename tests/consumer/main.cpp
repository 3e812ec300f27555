#include <tavrone/tavrone.h>

#include <cstdio>

#include "tavrone/core/tvstring.h"

// Uses what the library exports and what is inline in its headers.
int main() {
  tavrone::tvstring const text("8=FIX.4.4");
  std::printf("%s %s\n", tavrone::Version::getImplementationVersion().c_str(), text.substr(0, 5).c_str());
}
