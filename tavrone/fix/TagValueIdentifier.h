#pragma once

#include <memory>
#include <string_view>

#include "tavrone/routing/MessageIdentifier.h"

namespace tavrone {

// Knows the messages of one tag=value format: those of a Header, by their first bytes.
template <class Header, class Layout>
class TAVRONE_API TagValueIdentifier : public MessageIdentifier {
 public:
  // A payload that is shorter than the prefix is no match.
  static bool isMatch(char const *bytes, int length) {
    return std::string_view(bytes, length < 0 ? 0 : static_cast<size_t>(length)).starts_with(Layout::Format::PREFIX);
  }
  static tvstring getMessageFormat() { return tvstringliteral(Layout::MESSAGE_FORMAT); }

  // A new header with a count of 0. Raises as the header's parser does.
  DataObject *identifyMessage(InputSource &input) override {
    int length = 0;
    char const *const bytes = input.getAsBytes(length);
    if (!isMatch(bytes, length)) return nullptr;
    auto header = std::make_unique<Header>();
    header->parseHeader(bytes, length);
    return header.release();
  }
};

}  // namespace tavrone
