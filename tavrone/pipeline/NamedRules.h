#pragma once

#include <algorithm>
#include <map>

#include "tavrone/core/tvstring.h"

namespace tavrone {

// The validator of calls that name none.
inline constinit tvstringliteral const DEFAULT_VALIDATOR("Default");

// The rules of a message by their names. Deletes each once, also one that stands under several names.
template <class Rule>
class NamedRules {
 public:
  NamedRules() = default;
  NamedRules(NamedRules const &) = delete;
  NamedRules &operator=(NamedRules const &) = delete;
  // Allocates nothing: it may run for want of memory.
  ~NamedRules() noexcept(false) {
    for (auto entry = rules_.begin(); entry != rules_.end(); ++entry) {
      Rule *const rule = entry->second;
      for (auto same = entry; same != rules_.end(); ++same)
        if (same->second == rule) same->second = nullptr;
      delete rule;
    }
  }

  // Takes the rule over, also when this fails for want of memory. The first one under a name stays; a later one is
  // refused and remains the caller's.
  void add(tvstring const &name, Rule *rule) {
    try {
      rules_.try_emplace(name, rule);
    } catch (...) {
      if (std::none_of(rules_.begin(), rules_.end(), [rule](auto const &entry) { return entry.second == rule; }))
        delete rule;
      throw;
    }
  }
  // Borrowed, or null.
  Rule *find(tvstring const &name) const {
    auto const entry = rules_.find(name);
    return entry == rules_.end() ? nullptr : entry->second;
  }

 private:
  std::map<tvstring, Rule *> rules_;
};

}  // namespace tavrone
