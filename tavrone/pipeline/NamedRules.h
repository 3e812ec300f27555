#pragma once

#include <map>
#include <vector>

#include "tavrone/core/OwnedPointers.h"
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
  ~NamedRules() noexcept(false) {
    std::vector<Rule *> owned;
    for (auto const &entry : rules_) owned.push_back(entry.second);
    deleteAll(owned);
  }

  // Takes the rule over. The first one under a name stays; a later one is refused and remains the caller's.
  void add(tvstring const &name, Rule *rule) { rules_.try_emplace(name, rule); }
  // Borrowed, or null.
  Rule *find(tvstring const &name) const {
    auto const entry = rules_.find(name);
    return entry == rules_.end() ? nullptr : entry->second;
  }

 private:
  std::map<tvstring, Rule *> rules_;
};

}  // namespace tavrone
