#pragma once

#include "tavrone/core/tvstring.h"

namespace tavrone {

// An equal text without an owner, terminated, that lives until the process ends: for names and texts that threads
// share, where a count would be a race. Equal texts are kept once. Like all that is filled at load, for one thread at a
// time.
TAVRONE_API tvstring internText(tvstring const &text);

}  // namespace tavrone
