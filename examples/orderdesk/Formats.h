#pragma once

#include <string>
#include <string_view>

#include "tavrone/tavrone.h"

namespace examples {

using namespace tavrone;

// A format that orders go out in, and what stands around its messages in a file.
struct Target {
  char const *name;
  void (*bind)();      // binds its output format as "desk.output"
  char const *begin;   // before the first message
  char const *behind;  // behind each
  char const *end;     // behind the last
  bool isFramed;       // a message tells its own end, so that nothing need part it from the next
};

// Null for an unknown name.
Target const *findTarget(std::string_view name);
// The names, with commas between them.
std::string targetNames();
// Binds an output format that writes nothing.
void bindNoTarget();

// The identifiers of all formats that orders come in.
MessageIdentificationService *newIdentificationService();
// One configuration for each kind of message.
void addConfigurations(MessageRouter &router);
// The property by which a configuration names its format in reports.
inline constexpr char const *FORMAT_NAME_PROPERTY = "desk.format";
// The input format of FIX messages that carry no order, such as logons and heartbeats.
inline constexpr char const *SESSION_FORMAT = "FIXSession";
// The name for a message that no configuration takes, by its header, which may be null.
tvstring formatNameOf(DataObject *header);

}  // namespace examples
