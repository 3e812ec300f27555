#pragma once

#include <map>

#include "tavrone/core/tvstring.h"

namespace tavrone {

class ObjectList;

// Named texts. Look-ups never fail and allocate nothing: an unknown key gives the empty string.
// Bundles live as long as the process; they are filled while libraries load and only read afterwards.
class TAVRONE_API ResourceBundle {
 public:
  ResourceBundle() = default;
  ResourceBundle(ResourceBundle const &) = default;
  ResourceBundle &operator=(ResourceBundle const &) = default;
  virtual ~ResourceBundle() noexcept(false);

  virtual tvstring getProperty(tvstring const &key) const = 0;
  tvstring getProperty(char const *key) const;
};

// A bundle that is filled by code. Its texts have no owner, so that threads may share them.
class TAVRONE_API PropertyResourceBundle : public ResourceBundle {
 public:
  ~PropertyResourceBundle() noexcept(false) override;

  using ResourceBundle::getProperty;
  tvstring getProperty(tvstring const &key) const override;

  // Keeps copies of both, until the process ends. Of two values for one key the first stays.
  void addProperty(char const *key, char const *value);
  // The same for static texts, which are kept as they are.
  void addProperty(tvstringliteral const &key, tvstringliteral const &value);

 private:
  std::map<tvstring, tvstring> properties_;
};

// Bundles by name, borrowed. The default instance holds the library's catalogues from the start, in whatever order the
// libraries of a process load.
class TAVRONE_API Resources {
 public:
  // Of two bundles under one name the first stays.
  void addResourceBundle(tvstring const &name, ResourceBundle const &bundle);
  // Null if there is none.
  ResourceBundle const *getBundle(tvstring const &name) const;

  static Resources &getDefaultResources();

  // The value in one bundle of the default resources.
  static tvstring getProperty(char const *bundleName, char const *key);
  // The first value that isn't empty, asking the bundles of the default resources in ascending order of their names.
  static tvstring getProperty(tvstring const &key);
  static tvstring getProperty(char const *key);

 private:
  std::map<tvstring, ResourceBundle const *> bundles_;
};

// The pattern with "{n}" replaced by the text of args[n], counted from 0 and read by the rules of t_atoi, and each
// doubled apostrophe by one; a null argument is empty. Nothing else is special: an apostrophe quotes nothing, and a
// brace that doesn't name an argument is literal text.
TAVRONE_API tvstring formatMessage(tvstring const &pattern, ObjectList const &args);

}  // namespace tavrone
