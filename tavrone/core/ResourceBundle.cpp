#include "tavrone/core/ResourceBundle.h"

#include <algorithm>

#include "tavrone/core/Catalogues.h"
#include "tavrone/core/DigitText.h"
#include "tavrone/core/InternedText.h"
#include "tavrone/core/ObjectList.h"
#include "tavrone/core/Raise.h"
#include "tavrone/core/Wrappers.h"

namespace tavrone {

ResourceBundle::~ResourceBundle() noexcept(false) = default;
tvstring ResourceBundle::getProperty(char const *key) const {
  return getProperty(tvstringliteral(key));
}

PropertyResourceBundle::~PropertyResourceBundle() noexcept(false) = default;

tvstring PropertyResourceBundle::getProperty(tvstring const &key) const {
  auto const found = properties_.find(key);
  return found == properties_.end() ? tvstring() : found->second;
}

void PropertyResourceBundle::addProperty(char const *key, char const *value) {
  properties_.try_emplace(internText(tvstringliteral(key)), internText(tvstringliteral(value)));
}
void PropertyResourceBundle::addProperty(tvstringliteral const &key, tvstringliteral const &value) {
  properties_.try_emplace(key, value);
}

void Resources::addResourceBundle(tvstring const &name, ResourceBundle const &bundle) {
  bundles_.try_emplace(internText(name), &bundle);
}

ResourceBundle const *Resources::getBundle(tvstring const &name) const {
  auto const found = bundles_.find(name);
  return found == bundles_.end() ? nullptr : found->second;
}

Resources &Resources::getDefaultResources() {
  // Never destroyed: failures are still raised while the process ends.
  static Resources &resources = [&]() -> Resources & {
    auto &made = *new Resources;
    registerCatalogues(made);
    return made;
  }();
  return resources;
}

tvstring Resources::getProperty(char const *bundleName, char const *key) {
  ResourceBundle const *bundle = getDefaultResources().getBundle(tvstringliteral(bundleName));
  return bundle == nullptr ? tvstring() : bundle->getProperty(key);
}

tvstring Resources::getProperty(tvstring const &key) {
  for (auto const &[name, bundle] : getDefaultResources().bundles_) {
    tvstring value = bundle->getProperty(key);
    if (!value.empty()) return value;
  }
  return tvstring();
}
tvstring Resources::getProperty(char const *key) {
  return getProperty(tvstringliteral(key));
}

namespace {

// The first closing brace at or after a position, which only moves forward: braces are looked for once, however many
// stay open.
class ClosingBrace {
 public:
  ClosingBrace(char const *text, char const *end) : at_(text), end_(end) {}
  // Null if there is none.
  char const *from(char const *position) {
    if (at_ == nullptr || (found_ && at_ >= position)) return at_;
    at_ = static_cast<char const *>(std::memchr(position, '}', static_cast<size_t>(end_ - position)));
    found_ = true;
    return at_;
  }

 private:
  char const *at_;
  char const *end_;
  bool found_ = false;
};

// The text in the making. Always has room for what is left of the pattern, which at least covers literal text.
class MessageText : private tvstring {
 public:
  explicit MessageText(size_t room) : at_(ensureCleanFree(room)), room_(room) {}

  void put(char const *begin, char const *end) { at_ = std::copy(begin, end, at_); }
  void append(tvstring const &text, size_t patternLeft) {
    size_t const used = static_cast<size_t>(at_ - data());
    size_t const needed = used + text.length() + patternLeft;
    if (needed > room_) {
      MessageText larger(2 * needed);
      std::memcpy(larger.at_, data(), used);
      larger.at_ += used;
      *this = std::move(larger);
    }
    std::memcpy(at_, text.data(), text.length());
    at_ += text.length();
  }
  tvstring take() {
    length_ = static_cast<size_t>(at_ - data());
    return std::move(*this);
  }

 private:
  char *at_;
  size_t room_;
};

}  // namespace

tvstring formatMessage(tvstring const &pattern, ObjectList const &args) {
  constexpr size_t ROOM_FOR_ARGUMENTS = 64;
  MessageText out(pattern.length() + ROOM_FOR_ARGUMENTS);
  char const *const end = pattern.data() + pattern.length();
  ClosingBrace closing(pattern.data(), end);
  for (char const *at = pattern.data();;) {
    char const *const mark = std::find_if(at, end, [](char c) { return c == '{' || c == '\''; });
    out.put(at, mark);
    if (mark == end) return out.take();
    at = mark + 1;
    if (*mark == '{') {
      char const *close = closing.from(at);
      int index;
      if (close != nullptr && tryReadInt(at, close, index) && index >= 0 && index < args.size()) {
        at = close + 1;
        if (Object const *argument = args[index]) out.append(argument->toString(), static_cast<size_t>(end - at));
        continue;
      }
    } else if (at != end && *at == '\'') {
      ++at;
    }
    out.put(mark, mark + 1);
  }
}

tvstring catalogueMessage(char const *key, ObjectList const &arguments) {
  return formatMessage(Resources::getProperty(tvstringliteral(key) + ".message"), arguments);
}

tvstring catalogueMessage(char const *key, tvstring const &argument) {
  ObjectList arguments;
  arguments.add(new StringObject(argument));
  return catalogueMessage(key, arguments);
}

tvstring catalogueCode(char const *key) {
  return Resources::getProperty(tvstringliteral(key) + ".code");
}

}  // namespace tavrone
